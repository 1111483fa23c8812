#include <LumoConnection/script/recording_session.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/process/process_objects.h>
#include <LumoConnection/script/rows.h>
#include <LumoConnection/script/script_processes.h>
#include <LumoConnection/stored_rows.h>
#include <LumoConnection/text_file.h>
#include <test_support/embedded.h>
#include <test_support/places.h>
#include <test_support/processes.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

using testing::HasSubstr;

constexpr const char* kMemory = "Provider=Embedded;Data Source=:memory:";

// Each kind of call, answered in each way. Gives what it saw.
std::string Walk(const Ref<DataSession>& session) {
    std::ostringstream seen;
    const auto tell = [&](const auto& value) { seen << value << "\n"; };
    const auto tell_value = [&](const Variant& value) { tell(value.IsNull() ? Text("Null") : To<Text>(value)); };
    const auto tell_rows = [&](const Ref<RecordSet>& rows) {
        for (const ValueRow& row : ReadRows(*rows)) {
            for (const Variant& value : row) tell_value(value);
        }
    };
    tell(static_cast<bool>(session->Connect(kMemory, "lena", "", 30)));
    (void)session->ExecuteSql("CREATE TABLE Kurs (ID int NOT NULL, Titel nvarchar(40) NULL, CONSTRAINT PK_Kurs PRIMARY KEY (ID))");
    (void)session->ExecuteSql("INSERT INTO Kurs (ID, Titel) VALUES (1, 'Übung für \"Anfänger\"'),\r\n\t(2, NULL)");
    tell(static_cast<bool>(session->ExecuteSql("INSERT INTO Kurs (ID) VALUES (1)")));
    tell(session->LastErrorText());
    (void)session->OpenSelect("SELECT ID, Titel FROM Kurs ORDER BY ID");
    const auto all = session->Recordset();
    (void)session->OpenSelect("SELECT Titel FROM Kurs WHERE ID = 9");
    const auto none = session->Recordset();
    tell_rows(all);
    tell_rows(none);
    all->Close();
    none->Close();
    tell(static_cast<bool>(session->OpenSelect("SELECT Nichts FROM Kurs")));
    tell(session->Recordset() == nullptr);
    tell(session->LastErrorText());
    tell_value(session->LookupValue("max(ID)", "Kurs", ""));
    tell_value(session->LookupValue("Titel", "Kurs", "ID = 2"));
    tell_value(session->LookupValue("max(Nummer)", "Kurs", ""));
    tell(session->LastErrorText());
    const auto connection = session->AdoConnection();
    tell(connection->State());
    const auto rows = connection->Execute("SELECT Titel FROM Kurs WHERE ID = 1");
    tell_rows(rows);
    rows->Close();
    const auto error = test_support::RaisedBy([&] { return connection->Execute("DELETE FROM Kurse"); });
    tell(error ? error->Number() : 0);
    tell(error ? error->Description() : "");
    connection->Open(kMemory);
    tell(connection->State());
    return seen.str();
}

Ref<RecordingSession> Recording() { return Script::Record(New<EmbeddedSession>()); }

TEST(Recording, IsWrittenAsTheLinesThatWriteTheScript) {
    const auto recording = Recording();
    const std::string seen = Walk(recording);
    // The lines stand in a file that is compiled here, too.
    EXPECT_EQ(recording->Recorded().CppText(),
              ReadTextFile(test_support::SourceDir() + "/LumoConnection/script/testdata/recorded.inc"));
    Script script;
#include <LumoConnection/script/testdata/recorded.inc>
    EXPECT_EQ(script.FileText(), recording->Recorded().FileText());
    EXPECT_EQ(Walk(script.Session()), seen);
    EXPECT_EQ(script.Report(), "");
}

TEST(Recording, IsPlayedBackFromItsFile) {
    const test_support::Folder folder;
    const std::string file = folder.File("walk.script");
    std::string seen;
    {
        const auto recording = Recording();
        seen = Walk(recording);
        std::ofstream(file, std::ios::binary) << recording->Recorded().FileText();
    }
    Script script = Script::ReadFile(file);
    EXPECT_EQ(Walk(script.Session()), seen);
    EXPECT_EQ(script.Report(), "");
    EXPECT_THAT(seen, HasSubstr("Übung für \"Anfänger\"\n"));
    EXPECT_THAT(seen, HasSubstr("208\nInvalid object name 'Kurse'."));
}

TEST(Recording, FindsOutAProgramThatHasChanged) {
    const auto recording = Recording();
    recording->Connect(kMemory, "", "", 30);
    recording->ExecuteSql("CREATE TABLE T (a int)");
    Script script = Script::Read(recording->Recorded().FileText());
    (void)script.Session()->Connect(kMemory, "", "", 30);
    EXPECT_RAISES(ScriptError::kUnexpectedCall, script.Session()->ExecuteSql("CREATE TABLE T (b int)"));
    EXPECT_THAT(script.Report(), HasSubstr("Step 2 differs: ExecuteSql, statement, at character 17"));
}

TEST(Recording, HandsOnWhatTheSessionAnswers) {
    const auto real = test_support::EmptyDatabase();
    const Ref<DataSession> recording = Script::Record(real);
    ASSERT_TRUE(recording->ExecuteSql("CREATE TABLE T (a int) INSERT INTO T VALUES (1), (2)"));
    EXPECT_EQ(recording->Recordset(), nullptr);
    ASSERT_TRUE(recording->OpenSelect("SELECT a FROM T ORDER BY a"));
    const auto rows = recording->Recordset();
    EXPECT_TRUE(recording->Recordset() == rows);
    EXPECT_EQ(rows->Fields().Item("A").Value(), Variant(1));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields().Item(0).Value(), Variant(2));
    rows->Close();
    EXPECT_RAISES(RowSetError::kClosed, rows->Eof());
}

TEST(Recording, KeepsEachTypeInBothForms) {
    const std::vector<std::pair<Variant, std::pair<const char*, const char*>>> kValues = {
        {true, {"true", "true"}},
        {false, {"false", "false"}},
        {Byte{255}, {"Byte{255}", "byte:255"}},
        {Int16{-5}, {"Int16{-5}", "int16:-5"}},
        {std::numeric_limits<Int16>::min(), {"Int16{-32767 - 1}", "int16:-32768"}},
        {0, {"0", "0"}},
        {std::numeric_limits<Int32>::min(), {"-2147483647 - 1", "-2147483648"}},
        {6.5, {"6.5", "double:6.5"}},
        {7.0, {"7.0", "double:7"}},
        {-1e300, {"-1e+300", "double:-1e+300"}},
        {0.1, {"0.1", "double:0.1"}},
        {0.1F, {"0.1F", "single:0.1"}},
        {Money::FromUnits(125'001), {"Money::FromUnits(125001)", "money:12.5001"}},
        {Money::FromUnits(-1), {"Money::FromUnits(-1)", "money:-0.0001"}},
        {Money::FromUnits(std::numeric_limits<std::int64_t>::min()),
         {"Money::FromUnits(-9223372036854775807 - 1)", "money:-922337203685477.5808"}},
        {DateTime::Of(2010, 3, 2), {"DateTime::Of(2010, 3, 2)", "moment:2010-03-02"}},
        {DateTime::Of(2010, 3, 2, 17, 45), {"DateTime::Of(2010, 3, 2, 17, 45)", "moment:2010-03-02T17:45:00"}},
        {DateTime::Of(2010, 3, 2, 0, 0, 9), {"DateTime::Of(2010, 3, 2, 0, 0, 9)", "moment:2010-03-02T00:00:09"}},
        {DateTime::TimeOfDay(9, 15), {"DateTime::Of(1899, 12, 30, 9, 15)", "moment:1899-12-30T09:15:00"}},
        {DateTime::Of(101, 1, 1), {"DateTime::Of(101, 1, 1)", "moment:0101-01-01"}},
        {DateTime(40239.123456789), {"DateTime(40239.123456789)", "days:40239.123456789"}},
        {Variant::Null(), {"Variant::Null()", "null"}},
        {"", {"\"\"", "\"\""}},
        {"a\"b\\c\nd\re\tf", {R"("a\"b\\c\nd\re\tf")", R"("a\"b\\c\nd\re\tf")"}},
        {"Führung, 𝄞 's", {"\"Führung, 𝄞 's\"", "\"Führung, 𝄞 's\""}},
        {"\x01"
         "1\xE4"
         "2\x7F",
         {R"("\0011\3442\177")", R"("\x011\xE42\x7F")"}},
        {Text("a\0b", 3), {R"(Text("a\000b", 3))", R"("a\x00b")"}},
    };
    for (const auto& [value, texts] : kValues) {
        SCOPED_TRACE(texts.second);
        Script script;
        script.OpenSelect("S").Rows({"A"}, {{value}});
        EXPECT_EQ(script.CppText(), "script.OpenSelect(\"S\").Rows({\"A\"}, {{" + std::string(texts.first) + "}});\n");
        EXPECT_EQ(script.FileText(),
                  "LumoScript 1\n\nOpenSelect \"S\"\n  columns \"A\"\n  row " + std::string(texts.second) + "\n");
        Script again = Script::Read(script.FileText());
        EXPECT_EQ(again.FileText(), script.FileText());
        (void)again.Session()->OpenSelect("S");
        EXPECT_EQ(again.Session()->Recordset()->Fields().Item(0).Value(), value);
    }
    // to the thousandth, as the database gives them
    const auto recording = Script::Record(test_support::EmptyDatabase());
    ASSERT_TRUE(recording->OpenSelect("SELECT Convert(datetime, '02.03.2010 17:45:09.003', 104)"));
    EXPECT_THAT(recording->Recorded().FileText(), HasSubstr("moment:2010-03-02T17:45:09.003"));
    EXPECT_THAT(recording->Recorded().CppText(), HasSubstr("DateTime(40239.73968"));
}

TEST(Recording, KeepsTheStateOfAConnection) {
    const auto real = New<EmbeddedSession>();
    const auto recording = Script::Record(real);
    recording->Connect(kMemory, "", "", 30);
    const auto use = [](DataSession& session, const std::function<void()>& close) {
        std::vector<Int32> states;
        const auto connection = session.AdoConnection();
        for (int i = 0; i < 2; ++i) states.push_back(connection->State());
        close();
        for (int i = 0; i < 2; ++i) states.push_back(connection->State());
        connection->Open(kMemory);
        states.push_back(connection->State());
        close();
        states.push_back(session.AdoConnection()->State());
        return states;
    };
    const auto states = use(*recording, [&] { real->Close(); });
    EXPECT_EQ(states, (std::vector<Int32>{1, 1, 0, 0, 1, 0}));
    EXPECT_EQ(recording->Recorded().CppText("s"),
              "s.Connect(\"Provider=Embedded;Data Source=:memory:\", \"\", \"\", 30);\n"
              "s.AdoConnection();\n"
              "s.ConnectionState().Gives(1);\ns.ConnectionState().Gives(1);\ns.ConnectionState().Gives(0);\n"
              "s.ConnectionOpen(\"Provider=Embedded;Data Source=:memory:\", \"\", \"\", -1);\n"
              "s.AdoConnection().Closed();\n");
    Script script = Script::Read(recording->Recorded().FileText());
    (void)script.Session()->Connect(kMemory, "", "", 30);
    EXPECT_EQ(use(*script.Session(), [] {}), states);
    EXPECT_EQ(script.Report(), "");
}

// A session behind the recording that does what no database here does.
TEST(Recording, KeepsWhatIsRaisedAndWhatIsEmpty) {
    Script real;
    real.AdoConnection().Empty();
    real.ExecuteSql("E").Raises(6, "overflow in the driver", "driver");
    real.OpenSelect("S").Raises(5, "no such thing");
    const auto rows = real.OpenSelect("S").Rows({"A"}, {{1}});
    real.CloseRows(rows).Raises(3704, "closed");
    real.CloseRows(rows);
    real.AdoConnection().Closed();
    real.ConnectionOpen().StaysClosed();
    real.ConnectionOpen("text", "user", "pass\"word", 5).Raises(17, "no server");
    real.ConnectionExecute("X", 1).Raises(18, "not open");
    real.LookupValue("L", "T", "w").Raises(19, "lookup");
    real.Connect("C", "u", "p", 3).Refused("no login");
    const auto use = [](DataSession& session) {
        const auto number = [](const std::function<void()>& call) {
            const auto error = test_support::RaisedBy([&] {
                call();
                return 0;
            });
            return error ? error->Number() : 0;
        };
        std::vector<Int32> numbers = {session.AdoConnection() ? 1 : 0};
        numbers.push_back(number([&] { (void)session.ExecuteSql("E"); }));
        numbers.push_back(number([&] { (void)session.OpenSelect("S"); }));
        (void)session.OpenSelect("S");
        const auto open = session.Recordset();
        numbers.push_back(number([&] { open->Close(); }));
        numbers.push_back(number([&] { open->Close(); }));
        const auto connection = session.AdoConnection();
        numbers.push_back(connection->State());
        connection->Open();
        numbers.push_back(connection->State());
        numbers.push_back(number([&] { connection->Open("text", "user", "pass\"word", 5); }));
        numbers.push_back(number([&] { connection->Execute("X", 1); }));
        numbers.push_back(number([&] { session.LookupValue("L", "T", "w"); }));
        numbers.push_back(session.Connect("C", "u", "p", 3) ? 1 : 0);
        return numbers;
    };
    const auto recording = Script::Record(real.Session());
    const auto numbers = use(*recording);
    EXPECT_EQ(real.Report(), "");
    EXPECT_EQ(numbers, (std::vector<Int32>{0, 6, 5, 3704, 0, 0, 0, 17, 18, 19, 0}));
    EXPECT_EQ(recording->Recorded().FileText(), real.FileText());
    EXPECT_EQ(recording->Recorded().CppText(), real.CppText());
    Script script = Script::Read(real.FileText());
    EXPECT_EQ(use(*script.Session()), numbers);
    EXPECT_EQ(script.Report(), "");
    EXPECT_THAT(real.CppText(), HasSubstr(".Raises(6, \"overflow in the driver\", \"driver\");\n"));
    EXPECT_THAT(real.CppText(), HasSubstr(".Raises(5, \"no such thing\");\n"));
    EXPECT_THAT(real.CppText(), HasSubstr("script.ConnectionExecute(\"X\", 1)"));
    EXPECT_THAT(real.FileText(), HasSubstr("AdoConnection\n  empty\n"));
}

TEST(Recording, KeepsTheCallsOfProcessObjects) {
    const auto database = test_support::EmptyDatabase();
    test_support::RunSchemaFile(*database, "process.sql");
    ASSERT_TRUE(database->ExecuteSql("INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (8, 1, 17)"));
    const auto recording = Script::Record(database);
    const auto use = [](DataSession& session, const Components& components) {
        const auto starter = components.info_starter();
        starter->ConnectionString("text");
        starter->Verbinden(2, "käthe", "zwei's");
        starter->Starten(8, 42, 17);
        (void)session.ExecuteSql("DELETE FROM Sem_ProzessStufe_IT");
        const auto dispatcher = components.info_dispatcher();
        dispatcher->Initialisieren(8, 42, 1, 4711);
        std::vector<Text> seen = {dispatcher->ProzessStatusText()};
        dispatcher->Zustimmen(17, "");
        seen.push_back(
            std::to_string(dispatcher->ProzessStatus() * 1000 + dispatcher->ModulNr() * 100 + dispatcher->SchluesselID()));
        seen.emplace_back(dispatcher->BenutzerHatRechte(17) ? "may" : "may not");
        const auto error = test_support::RaisedBy([&] {
            dispatcher->Ablehnen(17, "nein");
            return 0;
        });
        seen.push_back(error ? error->Description() : "");
        dispatcher->Loeschen();
        seen.push_back(dispatcher->ProzessStatusText());
        seen.push_back(components.session_defaults()->FirstText(2));
        return seen;
    };
    class Defaults final : public SessionDefaults {
      public:
        Text FirstText(Int32) override { return "lena"; }
        Text SecondText(Int32) override { return {}; }
    };
    const Components real = {
        .data_session = {},
        .info_dispatcher = [&] { return MakeProcessDispatcher({.session = database}); },
        .info_starter = [&] { return MakeProcessStarter({.session = database}); },
        .session_defaults = [] { return New<Defaults>(); },
    };
    const auto seen = use(*recording, recording->RecordedComponents(real));
    EXPECT_EQ(seen[0], "Stufe 1 von 2: Entscheidung durch Vorgesetzte");
    EXPECT_EQ(seen[1], "1842");
    EXPECT_THAT(seen[3], HasSubstr("User 17 may not decide"));
    const std::string file = recording->Recorded().FileText();
    EXPECT_THAT(file, HasSubstr("Process \"InfoStarter.Verbinden 2, 'käthe', 'zwei's'\"\n"
                                "Process \"InfoStarter.Starten 8, 42, 17\"\n"
                                "ExecuteSql \"DELETE FROM Sem_ProzessStufe_IT\"\n"
                                "Process \"New InfoDispatcher\"\n"));
    EXPECT_THAT(file, HasSubstr("Process \"InfoDispatcher.BenutzerHatRechte 17\"\n  gives false\n"));
    Script script = Script::Read(file);
    EXPECT_EQ(use(*script.Session(), ScriptComponents(script.Session())), seen);
    EXPECT_EQ(script.Report(), "");
    const Components none = recording->RecordedComponents({});
    EXPECT_FALSE(none.info_dispatcher || none.info_starter || none.session_defaults || none.data_session);
}

TEST(Recording, LetsGoOfItsSession) {
    Script real;
    {
        const auto recording = Script::Record(real.Session());
        EXPECT_FALSE(real.SessionReleased());
    }
    EXPECT_TRUE(real.SessionReleased());
}

}  // namespace
}  // namespace LumoConnection
