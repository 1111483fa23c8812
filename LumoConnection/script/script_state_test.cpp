#include <LumoConnection/script/script_state.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace LumoConnection {
namespace {

using testing::HasSubstr;

Error ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return {0, "nothing was raised"};
}

TEST(ScriptDifferenceTest, AnotherTextIsReportedWholeAndAtItsPlace) {
    Script script;
    script.OpenSelect("SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Bär' AND MDNr = 1").Rows({"SemID"});
    const Error error = ErrorOf([&] {
        (void)script.Session()->OpenSelect("SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Bör' AND MDNr = 1");
    });
    EXPECT_EQ(error.Number(), ScriptError::kUnexpectedCall);
    EXPECT_EQ(error.Description(),
              "Step 1 differs: OpenSelect, statement, at character 53. "
              "Expected ...Katalog_IT WHERE SemTitel = 'Bär' AND MDNr = 1, "
              "actual ...Katalog_IT WHERE SemTitel = 'Bör' AND MDNr = 1");
    EXPECT_EQ(script.Report(),
              "Step 1 differs: OpenSelect, statement, at character 53.\n"
              "  expected  ...Katalog_IT WHERE SemTitel = 'Bär' AND MDNr = 1\n"
              "  actual    ...Katalog_IT WHERE SemTitel = 'Bör' AND MDNr = 1\n"
              "                                             ^\n"
              "Whole:\n"
              "  expected  OpenSelect: SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Bär' AND MDNr = 1\n"
              "  actual    OpenSelect: SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Bör' AND MDNr = 1\n");
}

TEST(ScriptDifferenceTest, ABlankMoreDiffers) {
    Script script;
    script.ExecuteSql("DELETE FROM A WHERE ID = 1");
    EXPECT_THAT(ErrorOf([&] { (void)script.Session()->ExecuteSql("DELETE FROM A  WHERE ID = 1"); }).Description(),
                HasSubstr("at character 15."));
}

TEST(ScriptDifferenceTest, CapitalsDiffer) {
    Script script;
    script.ExecuteSql("VALUES (NUll)");
    EXPECT_THAT(ErrorOf([&] { (void)script.Session()->ExecuteSql("VALUES (NULL)"); }).Description(),
                HasSubstr("at character 11."));
}

TEST(ScriptDifferenceTest, LineAndColumnAreNamedInTextsOfSeveralLines) {
    Script script;
    script.ExecuteSql("DECLARE @ID int\r\nSET @ID = 'ä1'");
    script.ExecuteSql("never");
    EXPECT_THROW((void)script.Session()->ExecuteSql("DECLARE @ID int\r\nSET @ID = 'ä2'"), Error);
    EXPECT_EQ(script.Report(),
              "Step 1 differs: ExecuteSql, statement, at character 30 (line 2, column 13).\n"
              "  expected  DECLARE @ID int\\r\\nSET @ID = 'ä1'\n"
              "  actual    DECLARE @ID int\\r\\nSET @ID = 'ä2'\n"
              "                                           ^\n"
              "Whole:\n"
              "  expected  ExecuteSql: DECLARE @ID int\\r\\nSET @ID = 'ä1'\n"
              "  actual    ExecuteSql: DECLARE @ID int\\r\\nSET @ID = 'ä2'\n"
              "Not reached:\n"
              "  Step 2  ExecuteSql: never\n");
}

TEST(ScriptDifferenceTest, LongTextsStandWholeInTheReportAndCutInTheError) {
    const Text before(100'000, 'x');
    Script script;
    script.ExecuteSql(before + "ä" + before);
    const Error error = ErrorOf([&] { (void)script.Session()->ExecuteSql(before + "ö" + before); });
    EXPECT_LT(error.Description().size(), 300U);
    EXPECT_THAT(error.Description(), HasSubstr("at character 100001."));
    EXPECT_THAT(script.Report(), HasSubstr("expected  ExecuteSql: " + before + "ä" + before + "\n"));
    EXPECT_THAT(script.Report(), HasSubstr("actual    ExecuteSql: " + before + "ö" + before + "\n"));
}

TEST(ScriptDifferenceTest, BytesThatAreNoTextStayReadable) {
    Script script;
    script.ExecuteSql(Text("A\0B", 3));
    EXPECT_THROW((void)script.Session()->ExecuteSql("A\xFF"
                                                    "B"),
                 Error);
    EXPECT_THAT(script.Report(), HasSubstr("  expected  ExecuteSql: A\\x00B\n  actual    ExecuteSql: A\\xFFB\n"));
}

TEST(ScriptDifferenceTest, TheArgumentThatDiffersIsNamed) {
    const auto lookup = [](const Text& expression, const Text& table, const Text& where) {
        Script script;
        script.LookupValue("max(SemID)", "Sem_Katalog_IT", "MDNr = 1");
        return ErrorOf([&] { script.Session()->LookupValue(expression, table, where); }).Description();
    };
    EXPECT_THAT(lookup("min(SemID)", "Sem_Katalog_IT", "MDNr = 1"), HasSubstr("LookupValue, expression, at character 2."));
    EXPECT_THAT(lookup("max(SemID)", "Sem_Termin_IT", "MDNr = 1"), HasSubstr("LookupValue, table, at character 5."));
    EXPECT_THAT(lookup("max(SemID)", "Sem_Katalog_IT", ""), HasSubstr("LookupValue, where, at character 1."));

    const auto connect = [](const Text& text, const Text& user, const Text& password, Int32 timeout) {
        Script script;
        script.Connect("text", "user", "password", 30);
        return ErrorOf([&] { (void)script.Session()->Connect(text, user, password, timeout); }).Description();
    };
    EXPECT_THAT(connect("Text", "user", "password", 30), HasSubstr("Connect, connection text, at character 1."));
    EXPECT_THAT(connect("text", "use", "password", 30), HasSubstr("Connect, user, at character 4."));
    EXPECT_THAT(connect("text", "user", "Password", 30), HasSubstr("Connect, password, at character 1."));
    EXPECT_THAT(connect("text", "user", "password", 31), HasSubstr("Connect, timeout, at character 2."));
}

TEST(ScriptDifferenceTest, AnotherCallWithTheSameTextDiffers) {
    Script script;
    script.OpenSelect("SELECT 1");
    const Error error = ErrorOf([&] { (void)script.Session()->ExecuteSql("SELECT 1"); });
    EXPECT_EQ(error.Description(),
              "Step 1 differs: OpenSelect was expected, it is ExecuteSql. "
              "Expected OpenSelect: SELECT 1, actual ExecuteSql: SELECT 1");
}

TEST(ScriptDifferenceTest, ACallTooMuchIsReported) {
    Script script;
    script.ExecuteSql("A");
    const Ref<DataSession> session = script.Session();
    (void)session->ExecuteSql("A");
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(ErrorOf([&] { (void)session->ExecuteSql("A"); }).Description(),
              "Call 2 comes behind the last step of the script: ExecuteSql: A");
    EXPECT_EQ(script.Report(), "Call 2 comes behind the last step of the script.\n  actual    ExecuteSql: A\n");
}

TEST(ScriptDifferenceTest, StepsThatWereNotReachedAreListed) {
    Script script;
    script.ExecuteSql("A");
    script.LookupValue("max(SemID)", "Sem_Katalog_IT", "MDNr = 1");
    script.AdoConnection();
    (void)script.Session()->ExecuteSql("A");
    EXPECT_EQ(script.Report(),
              "Not reached:\n"
              "  Step 2  LookupValue: max(SemID) from Sem_Katalog_IT where MDNr = 1\n"
              "  Step 3  AdoConnection\n");
}

TEST(ScriptDifferenceTest, AfterADifferenceEveryCallRaisesAndSwallowingDoesNotHelp) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.AdoConnection();
    script.ExecuteSql("B");
    script.ExecuteSql("C");
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    const Ref<RecordSet> rows = session->Recordset();
    const Ref<Connection> connection = session->AdoConnection();
    const std::string first = ErrorOf([&] { (void)session->ExecuteSql("C"); }).Description();
    const std::function<void()> actions[] = {
        [&] { (void)session->ExecuteSql("B"); },
        [&] { (void)session->ExecuteSql("C"); },
        [&] { (void)session->OpenSelect("A"); },
        [&] { session->LookupValue("a", "b", ""); },
        [&] { (void)session->Connect("", "", "", 1); },
        [&] { session->AdoConnection(); },
        [&] { session->Recordset(); },
        [&] { connection->State(); },
        [&] { connection->Open(); },
        [&] { connection->Execute("B"); },
        [&] { rows->Close(); },
    };
    for (const auto& action : actions) {
        const Error error = ErrorOf(action);
        EXPECT_EQ(error.Number(), ScriptError::kUnexpectedCall);
        EXPECT_EQ(error.Description(), first);
    }
    EXPECT_EQ(rows->Fields().Item("X").Value(), Variant(1)) << "what was given out stays readable";
    EXPECT_EQ(script.Report(),
              "Step 3 differs: ExecuteSql, statement, at character 1.\n"
              "  expected  B\n"
              "  actual    C\n"
              "            ^\n"
              "Whole:\n"
              "  expected  ExecuteSql: B\n"
              "  actual    ExecuteSql: C\n"
              "Calls refused from then on:\n"
              "  ExecuteSql: B\n"
              "  ExecuteSql: C\n"
              "  OpenSelect: A\n"
              "  LookupValue: a from b\n"
              "  Connect: , user , password , timeout 1\n"
              "  AdoConnection\n"
              "  Open of the connection\n"
              "  Execute of the connection: B\n"
              "  Close of the rows of step 1\n"
              "Not reached:\n"
              "  Step 4  ExecuteSql: C\n");
}

TEST(ScriptDifferenceTest, TheReportShowsTenOfTheRefusedCalls) {
    Script script;
    for (int call = 0; call <= 12; ++call) {
        EXPECT_THROW((void)script.Session()->ExecuteSql("call " + std::to_string(call)), Error);
    }
    EXPECT_THAT(script.Report(), HasSubstr("  ExecuteSql: call 10\n  and 2 more\n"));
    EXPECT_EQ(script.Calls().size(), 13U);
}

}  // namespace
}  // namespace LumoConnection
