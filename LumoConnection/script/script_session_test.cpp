#include <LumoConnection/script/script_session.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include <LumoSeminar/frame/components.h>

namespace LumoConnection {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Error ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return {0, "nothing was raised"};
}

TEST(ScriptTest, AnswersCallsInTheirOrder) {
    Script script;
    script.Connect("Provider=Embedded", "user", "password", 30).Ok();
    script.AdoConnection().Open();
    script.OpenSelect("SELECT SemID FROM Sem_Katalog_IT").Rows({"SemID"}, {{1}, {2}, {Variant::Null()}});
    script.ExecuteSql("UPDATE Sem_Katalog_IT SET SemTitel = 'Führung \"neu\"'");
    script.LookupValue("max(SemID)", "Sem_Katalog_IT").Gives(7);
    script.LookupValue("min(SemID)", "Sem_Katalog_IT", "MDNr = 1");
    EXPECT_EQ(script.StepCount(), 6);

    const Ref<DataSession> session = script.Session();
    EXPECT_TRUE(session->Connect("Provider=Embedded", "user", "password", 30));
    EXPECT_EQ(session->AdoConnection()->State(), 1);
    EXPECT_TRUE(session->OpenSelect("SELECT SemID FROM Sem_Katalog_IT"));
    std::vector<Variant> keys;
    for (const Ref<RecordSet> rows = session->Recordset(); !rows->Eof(); rows->MoveNext()) {
        keys.push_back(rows->Fields().Item("semid").Value());
    }
    EXPECT_THAT(keys, ElementsAre(Variant(1), Variant(2), Variant::Null()));
    EXPECT_TRUE(session->ExecuteSql("UPDATE Sem_Katalog_IT SET SemTitel = 'Führung \"neu\"'"));
    EXPECT_EQ(session->LookupValue("max(SemID)", "Sem_Katalog_IT", ""), Variant(7));
    EXPECT_EQ(session->LookupValue("min(SemID)", "Sem_Katalog_IT", "MDNr = 1"), Variant::Null());

    EXPECT_EQ(script.Report(), "");
    EXPECT_THAT(script.Calls(), ElementsAre("Connect: Provider=Embedded, user user, password password, timeout 30",
                                            "AdoConnection", "OpenSelect: SELECT SemID FROM Sem_Katalog_IT",
                                            "ExecuteSql: UPDATE Sem_Katalog_IT SET SemTitel = 'Führung \"neu\"'",
                                            "LookupValue: max(SemID) from Sem_Katalog_IT",
                                            "LookupValue: min(SemID) from Sem_Katalog_IT where MDNr = 1"));
    for (int step = 1; step <= 6; ++step) {
        EXPECT_EQ(script.StepText(step), script.Calls()[static_cast<std::size_t>(step) - 1]);
    }
}

TEST(ScriptTest, AnEmptyScriptIsMetByDoingNothing) {
    Script script;
    EXPECT_EQ(script.Report(), "");
    EXPECT_THAT(script.Calls(), IsEmpty());
}

TEST(ScriptTest, RefusalsGiveFalseAndTheirText) {
    Script script;
    script.Connect("text", "", "", 30).Refused("Login failed.");
    script.OpenSelect("SELECT 1").Refused("Invalid object name 'X'.");
    script.ExecuteSql("DELETE").Refused("Incorrect syntax.");
    script.LookupValue("max(A)", "B").Refused("Invalid column name 'A'.");
    const Ref<DataSession> session = script.Session();
    EXPECT_EQ(session->LastErrorText(), "");
    EXPECT_FALSE(session->Connect("text", "", "", 30));
    EXPECT_EQ(session->LastErrorText(), "Login failed.");
    EXPECT_FALSE(session->OpenSelect("SELECT 1"));
    EXPECT_EQ(session->LastErrorText(), "Invalid object name 'X'.");
    EXPECT_FALSE(session->Recordset());
    EXPECT_FALSE(session->ExecuteSql("DELETE"));
    EXPECT_EQ(session->LastErrorText(), "Incorrect syntax.");
    EXPECT_TRUE(session->LookupValue("max(A)", "B", "").IsNull());
    EXPECT_EQ(session->LastErrorText(), "Invalid column name 'A'.");
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.LastErrorTextCalls(), 5);
    EXPECT_EQ(script.RecordsetCalls(), 1);
}

TEST(ScriptTest, LastErrorTextIsThatOfTheLastRefusedCallWheneverItIsRead) {
    Script script;
    script.ExecuteSql("A").Refused("first");
    script.ExecuteSql("B");
    script.OpenSelect("C").Refused("second");
    const Ref<DataSession> session = script.Session();
    (void)session->ExecuteSql("A");
    (void)session->ExecuteSql("B");
    EXPECT_EQ(session->LastErrorText(), "first");
    (void)session->OpenSelect("C");
    EXPECT_EQ(session->LastErrorText(), "second");
    EXPECT_EQ(session->LastErrorText(), "second");
}

TEST(ScriptTest, EveryStepCanRaise) {
    Script script;
    const auto rows = script.OpenSelect("S").Rows({"A"});
    script.OpenSelect("S").Raises(6, "overflow in the driver", "driver");
    script.ExecuteSql("E").Raises(6, "overflow in the driver", "driver");
    script.LookupValue("L", "T").Raises(6, "overflow in the driver", "driver");
    script.Connect("C", "", "", 30).Raises(6, "overflow in the driver", "driver");
    script.AdoConnection().Raises(6, "overflow in the driver", "driver");
    script.AdoConnection();
    script.ConnectionState().Raises(6, "overflow in the driver", "driver");
    script.ConnectionOpen().Raises(6, "overflow in the driver", "driver");
    script.ConnectionExecute("X").Raises(6, "overflow in the driver", "driver");
    script.CloseRows(rows).Raises(6, "overflow in the driver", "driver");

    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("S");
    const Ref<RecordSet> open = session->Recordset();
    Ref<Connection> connection;
    const std::function<void()> actions[] = {
        [&] { (void)session->OpenSelect("S"); },
        [&] { (void)session->ExecuteSql("E"); },
        [&] { session->LookupValue("L", "T", ""); },
        [&] { (void)session->Connect("C", "", "", 30); },
        [&] { session->AdoConnection(); },
        [&] {
            connection = session->AdoConnection();
            connection->State();
        },
        [&] { connection->Open(); },
        [&] { connection->Execute("X"); },
        [&] { open->Close(); },
    };
    for (const auto& action : actions) {
        const Error error = ErrorOf(action);
        SCOPED_TRACE(script.Calls().back());
        EXPECT_EQ(error.Number(), 6);
        EXPECT_EQ(error.Description(), "overflow in the driver");
        EXPECT_EQ(error.Source(), "driver");
    }
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(session->Recordset()) << "a select that raises leaves no row set";
    EXPECT_TRUE(open->Eof()) << "a Close that raises does not close";
}

TEST(ScriptTest, ARaisedErrorWithoutSourceCarriesThatOfTheLibrary) {
    Script script;
    script.ExecuteSql("A").Raises(5, "text");
    EXPECT_EQ(ErrorOf([&] { (void)script.Session()->ExecuteSql("A"); }).Source(), "LumoSeminar");
}

TEST(ScriptTest, RowSetsOutliveLaterCallsAndTheScript) {
    Ref<RecordSet> first;
    Ref<RecordSet> second;
    {
        Script script;
        script.OpenSelect("A").Rows({"Titel"}, {{"Führung"}, {"Mut"}});
        script.OpenSelect("B").Rows({"X", "Y"}, {{1.5, true}});
        script.ExecuteSql("C");
        const Ref<DataSession> session = script.Session();
        (void)session->OpenSelect("A");
        first = session->Recordset();
        (void)session->OpenSelect("B");
        second = session->Recordset();
        (void)session->ExecuteSql("C");
        EXPECT_TRUE(session->Recordset() == second);
        EXPECT_EQ(script.RecordsetCalls(), 3);
    }
    EXPECT_EQ(first->Fields().Item("Titel").Value(), Variant("Führung"));
    first->MoveNext();
    EXPECT_EQ(first->Fields().Item(Int16{0}).Value(), Variant("Mut"));
    EXPECT_EQ(second->Fields().Count(), 2);
    EXPECT_EQ(second->Fields().Name(1), "Y");
    EXPECT_EQ(second->Fields().Item("y").Value(), Variant(true));
    EXPECT_EQ(ErrorOf([&] { second->Fields().Item("Z"); }).Number(), ErrorNumber::kKeyNotFound);
}

TEST(ScriptTest, AStatementWithoutAnAnswerGivesARowSetWithoutColumns) {
    Script script;
    script.OpenSelect("A");
    script.AdoConnection();
    script.ConnectionExecute("B");
    const Ref<DataSession> session = script.Session();
    EXPECT_TRUE(session->OpenSelect("A"));
    EXPECT_TRUE(session->Recordset()->Eof());
    EXPECT_TRUE(session->Recordset()->Bof());
    EXPECT_EQ(session->Recordset()->Fields().Count(), 0);
    EXPECT_TRUE(session->AdoConnection()->Execute("B")->Eof());
    EXPECT_EQ(script.Report(), "");
}

TEST(ScriptTest, RecordsetInFrontOfAnySelectIsEmpty) {
    Script script;
    EXPECT_FALSE(script.Session()->Recordset());
}

TEST(ScriptTest, AClosedConnectionIsOpenedByItsStep) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen();
    script.ConnectionExecute("SELECT Name").Rows({"Name"}, {{"Köln"}});
    const Ref<Connection> connection = script.Session()->AdoConnection();
    EXPECT_EQ(connection->State(), 0);
    connection->Open();
    EXPECT_EQ(connection->State(), 1);
    EXPECT_EQ(connection->Execute("SELECT Name")->Fields().Item("Name").Value(), Variant("Köln"));
    EXPECT_EQ(script.Report(), "");
}

TEST(ScriptTest, AConnectionCanStayClosed) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen().StaysClosed();
    const Ref<Connection> connection = script.Session()->AdoConnection();
    connection->Open();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(ScriptTest, AConnectionCanBeMissing) {
    Script script;
    script.AdoConnection().Empty();
    EXPECT_FALSE(script.Session()->AdoConnection());
    EXPECT_EQ(script.Report(), "");
}

TEST(ScriptTest, StateIsAStepWhereTheScriptHasIt) {
    Script script;
    script.AdoConnection();
    script.ConnectionState().Gives(0);
    script.ConnectionOpen("text", "user", "password", 3);
    const Ref<Connection> connection = script.Session()->AdoConnection();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(connection->State(), 0) << "it keeps the state";
    connection->Open("text", "user", "password", 3);
    EXPECT_EQ(connection->State(), 1);
    EXPECT_EQ(script.Report(), "");

    Script unmet;
    unmet.AdoConnection();
    unmet.ConnectionState();
    unmet.Session()->AdoConnection();
    EXPECT_EQ(unmet.Report(), "Not reached:\n  Step 2  State of the connection\n");
}

TEST(ScriptTest, OpenAndExecuteCompareTheirOptions) {
    Script script;
    script.AdoConnection();
    script.ConnectionOpen();
    const Ref<Connection> connection = script.Session()->AdoConnection();
    EXPECT_THAT(ErrorOf([&] { connection->Open({}, {}, {}, 0); }).Description(),
                HasSubstr("Open of the connection, options, at character 1"));

    Script other;
    other.AdoConnection();
    other.ConnectionExecute("SELECT 1");
    EXPECT_THAT(ErrorOf([&] { other.Session()->AdoConnection()->Execute("SELECT 1", 4); }).Description(),
                HasSubstr("Execute of the connection, options, at character 1"));
}

TEST(ScriptTest, ClosingIsAStepInItsPlace) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.CloseRows();
    script.ExecuteSql("B");
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    const Ref<RecordSet> rows = session->Recordset();
    rows->Close();
    EXPECT_EQ(ErrorOf([&] { rows->Eof(); }).Number(), 3704) << "it is closed";
    (void)session->ExecuteSql("B");
    EXPECT_EQ(script.Report(), "");
}

TEST(ScriptTest, ClosingTooLateDiffers) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.CloseRows();
    script.ExecuteSql("B");
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    EXPECT_EQ(ErrorOf([&] { (void)session->ExecuteSql("B"); }).Number(), ScriptError::kUnexpectedCall);
    EXPECT_EQ(script.Report(),
              "Step 2 differs: Close of the rows was expected, it is ExecuteSql.\n"
              "  expected  Close of the rows of step 1\n"
              "  actual    ExecuteSql: B\n"
              "Not reached:\n"
              "  Step 3  ExecuteSql: B\n");
}

TEST(ScriptTest, ForgettingToCloseIsReported) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.CloseRows();
    (void)script.Session()->OpenSelect("A");
    EXPECT_EQ(script.Report(), "Not reached:\n  Step 2  Close of the rows of step 1\n");
}

TEST(ScriptTest, ClosingWhatTheScriptDoesNotCloseDiffers) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    const Ref<RecordSet> rows = session->Recordset();
    EXPECT_EQ(ErrorOf([&] { rows->Close(); }).Number(), ScriptError::kUnexpectedCall);
    EXPECT_EQ(script.Report(),
              "Call 2 comes behind the last step of the script.\n"
              "  actual    Close of the rows of step 1\n");
}

TEST(ScriptTest, CloseRowsMeansTheLastRowSetStillOpen) {
    Script script;
    script.OpenSelect("keys").Rows({"SemID"}, {{1}});
    script.AdoConnection();
    script.ConnectionExecute("names").Rows({"Name"}, {{"a"}});
    script.OpenSelect("none").Refused("no");
    script.CloseRows();
    script.CloseRows();
    EXPECT_EQ(script.StepText(5), "Close of the rows of step 3");
    EXPECT_EQ(script.StepText(6), "Close of the rows of step 1");
    EXPECT_EQ(ErrorOf([&] { script.CloseRows(); }).Number(), ScriptError::kBadScript);
    EXPECT_EQ(script.StepCount(), 6);
}

TEST(ScriptTest, CloseRowsTellsRowSetsApart) {
    Script script;
    const auto first = script.OpenSelect("A").Rows({"X"});
    script.OpenSelect("B").Rows({"X"});
    script.CloseRows(first);
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    (void)session->OpenSelect("B");
    EXPECT_THAT(ErrorOf([&] { session->Recordset()->Close(); }).Description(),
                HasSubstr("Step 3 differs: Close of the rows, step, at character 1. Expected 1, actual 2"));
}

TEST(ScriptTest, ARowOfAnotherLengthIsRefusedWhileWriting) {
    Script script;
    const Error error = ErrorOf([&] { script.OpenSelect("A").Rows({"X", "Y"}, {{1, 2}, {3}}); });
    EXPECT_EQ(error.Number(), ScriptError::kBadScript);
    EXPECT_EQ(error.Description(), "A row of step 1 has 1 values for 2 columns.");
}

TEST(ScriptTest, TheLastAnswerOfAStepCounts) {
    Script script;
    const auto step = script.AdoConnection();
    step.Raises(5, "no");
    step.Open();
    EXPECT_EQ(script.Session()->AdoConnection()->State(), 1);
}

// Life time

TEST(ScriptLifeTest, KnowsWhetherTheSessionIsStillHeld) {
    Script script;
    script.AdoConnection();
    script.OpenSelect("A").Rows({"X"});
    EXPECT_TRUE(script.SessionReleased());
    Ref<DataSession> session = script.Session();
    EXPECT_FALSE(script.SessionReleased());
    Ref<DataSession> second = session;
    const Ref<Connection> connection = session->AdoConnection();
    (void)session->OpenSelect("A");
    const Ref<RecordSet> rows = session->Recordset();
    session.Reset();
    EXPECT_FALSE(script.SessionReleased());
    second.Reset();
    EXPECT_TRUE(script.SessionReleased()) << "neither its connection nor its rows hold it";
}

TEST(ScriptLifeTest, TheSessionIsTheSameOneEachTime) {
    Script script;
    EXPECT_TRUE(script.Session() == script.Session());
}

TEST(ScriptLifeTest, TheSessionDiesWithTheScript) {
    std::weak_ptr<DataSession> session;
    {
        Script script;
        script.OpenSelect("A").Rows({"X"}, {{1}});
        session = script.Session().Shared();
        (void)script.Session()->OpenSelect("A");
        script.Session()->Recordset();
        EXPECT_FALSE(session.expired());
    }
    EXPECT_TRUE(session.expired());
}

TEST(ScriptLifeTest, TheSessionAnswersWithoutTheScript) {
    Ref<DataSession> session;
    {
        Script script;
        script.ExecuteSql("A");
        session = script.Session();
    }
    EXPECT_TRUE(session->ExecuteSql("A"));
    EXPECT_THROW((void)session->ExecuteSql("A"), Error);
}

TEST(ScriptLifeTest, AScriptCanBeMoved) {
    Script script;
    script.ExecuteSql("A");
    Script moved = std::move(script);
    EXPECT_TRUE(moved.Session()->ExecuteSql("A"));
    EXPECT_EQ(moved.Report(), "");
}

TEST(ScriptLifeTest, ServesAsTheSessionThatAProgramMakes) {
    Script script;
    script.Connect("Provider=Embedded", "", "", 30);
    Components components;
    components.data_session = [&] { return script.Session(); };
    SetComponents(components);
    EXPECT_TRUE(MakeDataSession()->Connect("Provider=Embedded", "", "", 30));
    SetComponents({});
    EXPECT_EQ(script.Report(), "");
    EXPECT_TRUE(script.SessionReleased());
}

}  // namespace
}  // namespace LumoConnection
