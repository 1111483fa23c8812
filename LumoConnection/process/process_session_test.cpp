#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include <LumoConnection/install.h>
#include <LumoConnection/process/process_fixture_test.h>
#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/common.h>

// Where the process objects have their database from, and how the library gets at them.
namespace LumoConnection {
namespace {

// The makers of the thread are gone behind each test.
class ProcessDatabase : public testing::Test {
  protected:
    ~ProcessDatabase() override { SetComponents({}); }

    // What a start and a consent leave in the file.
    void ExpectTwoSteps() { EXPECT_EQ(Steps(*file_, kNeeds, 12), "Start 1 20 | Zustimmung 1 18"); }

    const ProcessFile file_;
};

TEST_F(ProcessDatabase, IsThatOfTheConnectionString) {
    Install("lena");
    const auto starter = MakeInfoStarter();
    starter->ConnectionString(file_.ConnectionText());
    starter->Starten(kNeeds, 12, kNobody);
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->ConnectionString(file_.ConnectionText());
    dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
    dispatcher->Zustimmen(kBoris, "");
    ExpectTwoSteps();
}

TEST_F(ProcessDatabase, IsThatOfTheLoginBehindVerbinden) {
    Install(Login{.connection_text = file_.ConnectionText(), .user = "lena", .password = "geheim"});
    const auto starter = MakeInfoStarter();
    EXPECT_TRUE(starter->Verbinden(2, "otto", "").IsEmpty());
    starter->Starten(kNeeds, 12, kNobody);
    const auto dispatcher = MakeInfoDispatcher();
    EXPECT_TRUE(dispatcher->Verbinden(2, "otto", "").IsEmpty());
    dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
    dispatcher->Zustimmen(kBoris, "");
    ExpectTwoSteps();
}

TEST_F(ProcessDatabase, MayBeTheSessionThatIsGiven) {
    Install(Login{.session = file_.Open()});
    const auto starter = MakeInfoStarter();
    starter->Verbinden(2, "otto", "");
    starter->Starten(kNeeds, 12, kNobody);
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->ConnectionString("Provider=Embedded;Data Source=:memory:");
    dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
    dispatcher->Zustimmen(kBoris, "");
    ExpectTwoSteps();
}

TEST_F(ProcessDatabase, MayChangeWithAnotherConnectionString) {
    const ProcessFile other;
    Execute(*other, "DROP TABLE Sem_ProzessSchritt_IT");
    Install(Login{.connection_text = file_.ConnectionText()});
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
    EXPECT_EQ(dispatcher->ProzessStatus(), ProcessStatus::kNone);
    dispatcher->ConnectionString(other.ConnectionText());
    EXPECT_RAISES(9999, dispatcher->ProzessStatus());
    dispatcher->ConnectionString(file_.ConnectionText());
    EXPECT_EQ(dispatcher->ProzessStatus(), ProcessStatus::kNone);
}

// Whoever makes a session in this thread gets that of the script.
void MakeSessionsOf(Script& script) {
    Components components;
    components.data_session = [&script] { return script.Session(); };
    SetComponents(std::move(components));
}

// Texts, user and password of the session that an object opens, once, at its first call.
struct Opening {
    const char* name;
    Login login;
    std::optional<Text> connection_string;
    bool logs_in;
    Text text, user, password;
};

TEST(ProcessSession, IsOpenedOnceWithTextAndLogin) {
    const Opening kOpenings[] = {
        {"text alone", {.user = "lena", .password = "geheim"}, "DSN=a", false, "DSN=a", "lena", "geheim"},
        {"text in place of another", {.connection_text = "DSN=b", .user = "lena", .password = "geheim"}, "DSN=a", false, "DSN=a", "lena", "geheim"},
        {"login", {.connection_text = "DSN=b", .user = "lena", .password = "geheim"}, {}, true, "DSN=b", "otto", "x'y"},
        {"neither", {.connection_text = "DSN=b", .user = "lena", .password = "geheim"}, {}, false, "DSN=b", "lena", "geheim"},
        {"a text without a user", {.connection_text = "DSN=b"}, {}, false, "DSN=b", "", ""},
    };
    for (const Opening& opening : kOpenings) {
        SCOPED_TRACE(opening.name);
        Script script;
        script.Connect(opening.text, opening.user, opening.password, 30);
        for (int i = 0; i < 2; ++i) {
            script
                .OpenSelect(
                    "SELECT TOP 1 SchrittNr, Status, NaechsteStufe, MDNr, PersonID FROM Sem_ProzessSchritt_IT WHERE "
                    "ModulNr = 7 AND SchluesselID = 12 ORDER BY SchrittNr DESC")
                .Rows({"SchrittNr", "Status", "NaechsteStufe", "MDNr", "PersonID"}, {{1, Byte{3}, {}, {}, {}}});
        }
        MakeSessionsOf(script);
        {
            const auto dispatcher = MakeProcessDispatcher(opening.login);
            if (opening.connection_string) dispatcher->ConnectionString(*opening.connection_string);
            if (opening.logs_in) dispatcher->Verbinden(2, "otto", "x'y");
            dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
            EXPECT_EQ(dispatcher->ModulNr(), kNeeds);
            EXPECT_EQ(dispatcher->SchluesselID(), 12);
            EXPECT_TRUE(script.Calls().empty());
            EXPECT_EQ(dispatcher->ProzessStatus(), ProcessStatus::kRejected);
            EXPECT_EQ(dispatcher->ProzessStatusText(), "Abgelehnt");
        }
        SetComponents({});
        EXPECT_EQ(script.Report(), "");
        EXPECT_TRUE(script.SessionReleased());
    }
}

TEST(ProcessSession, IsAskedForAgainWhereItWasRefused) {
    Script refused;
    refused.Connect("DSN=a", "lena", "", 30).Refused("Login failed for user 'lena'.");
    MakeSessionsOf(refused);
    const auto starter = MakeProcessStarter({.connection_text = "DSN=a", .user = "lena"});
    const auto error = test_support::RaisedBy([&] { return starter->Starten(kNeeds, 12, kAnna); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), ErrorNumber::kStatementRefused);
    EXPECT_EQ(error->Description(), "Login failed for user 'lena'.");
    EXPECT_EQ(refused.Report(), "");

    Script open;
    open.Connect("DSN=a", "lena", "", 30);
    open.OpenSelect("SELECT Stufe, Bezeichnung FROM Sem_ProzessStufe_IT WHERE ModulNr = 7 ORDER BY Stufe").Refused("No such table.");
    MakeSessionsOf(open);
    EXPECT_RAISES(9999, starter->Starten(kNeeds, 12, kAnna));
    EXPECT_EQ(open.Report(), "");
    SetComponents({});
}

// Every call that needs the database; all of them raise the same.
void ExpectAllRaise(Login login, Int32 number, const Text& description) {
    const auto starter = MakeProcessStarter(login);
    const auto process = MakeProcessDispatcher(login);
    process->Initialisieren(kNeeds, 12, 1, 4711);
    const std::function<void()> kCalls[] = {
        [&] { starter->Starten(kNeeds, 12, kAnna); }, [&] { process->Zustimmen(kAnna, ""); },
        [&] { process->Ablehnen(kAnna, ""); },        [&] { process->Loeschen(); },
        [&] { process->BenutzerHatRechte(kAnna); },   [&] { process->ProzessStatus(); },
        [&] { process->ProzessStatusText(); },
    };
    for (const auto& call : kCalls) {
        const auto error = test_support::RaisedBy([&] {
            call();
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), number);
        EXPECT_EQ(error->Description(), description);
    }
}

TEST(ProcessSession, IsMissedWhereNothingSaysWhichDatabase) {
    ExpectAllRaise({.user = "lena"}, 429,
                   "The process objects have no database: no session, no connection text and no ConnectionString was given.");
}

TEST(ProcessSession, CannotBeOpenedOnMemoryByText) {
    for (const char* text : {"Provider=Embedded;Data Source=:memory:", "data source = ':memory:' ; PROVIDER = embedded"}) {
        ExpectAllRaise({.connection_text = text}, 429,
                       "The process objects cannot reach a database in memory by its connection text: give them the session.");
    }
}

TEST(ProcessSession, NeedsTheMakerOfSessions) {
    SetComponents({});
    EXPECT_RAISES(429, MakeProcessStarter({.connection_text = "DSN=a"})->Starten(kNeeds, 12, kAnna));
}

TEST(ProcessSession, RaisesWhatTheDatabaseRefuses) {
    ExpectAllRaise({.session = New<EmbeddedSession>()}, 9999, "The session is not connected.");
    const auto session = test_support::EmptyDatabase();
    EXPECT_RAISES(9999, MakeProcessStarter({.session = session})->Starten(kNeeds, 12, kAnna));
    test_support::RunSchemaFile(*session, "process.sql");
    MakeProcessStarter({.session = session})->Starten(kNeeds, 12, kAnna);
    Execute(*session, "DROP TABLE Sem_ProzessSchritt_IT");
    ExpectAllRaise({.session = session}, 9999, "Invalid object name 'Sem_ProzessSchritt_IT'.");
}

// What the library does with the real objects.
class LibraryDispatcher : public ProcessTest {
  protected:
    LibraryDispatcher() { Install(Login{.session = session_}); }
    ~LibraryDispatcher() override {
        common::State() = {};
        SetComponents({});
    }
};

TEST_F(LibraryDispatcher, IsTheSameForOneModuleAndKey) {
    const auto dispatcher = common::GetInfoDispatcher(kNeeds, 12, 1, 300);
    EXPECT_EQ(dispatcher->ModulNr(), kNeeds);
    EXPECT_EQ(dispatcher->SchluesselID(), 12);
    EXPECT_EQ(common::GetInfoDispatcher(kNeeds, 12, 1, 300), dispatcher);
    EXPECT_EQ(common::GetInfoDispatcher(kNeeds, 12, 2, 301), dispatcher);
    dispatcher->Zustimmen(kAnna, "");
    EXPECT_EQ(session_->LookupValue("MAX(PersonID)", "Sem_ProzessSchritt_IT", ""), Variant(300));
}

TEST_F(LibraryDispatcher, IsAnotherOneForAnotherModuleOrKey) {
    const auto need = common::GetInfoDispatcher(kNeeds, 12, 1, 300);
    const auto entry = common::GetInfoDispatcher(kWaitList, 12, 1, 300);
    EXPECT_NE(entry, need);
    EXPECT_NE(common::GetInfoDispatcher(kWaitList, 13, 1, 300), entry);
    EXPECT_NE(common::GetInfoDispatcher(kNeeds, 12, 1, 300), need);
    EXPECT_EQ(need->ModulNr(), kNeeds);
}

TEST_F(LibraryDispatcher, SeesWhatOthersDecideThoughItIsKept) {
    Start(kNeeds, 12);
    EXPECT_EQ(common::GetInfoDispatcher(kNeeds, 12, 1, 300)->ProzessStatus(), ProcessStatus::kRunning);
    Bound(kNeeds, 12, 1, 300)->Ablehnen(kAnna, "");
    EXPECT_EQ(common::GetInfoDispatcher(kNeeds, 12, 1, 300)->ProzessStatus(), ProcessStatus::kRejected);
}

TEST_F(LibraryDispatcher, WorksOnTheDatabaseOfTheConnectionString) {
    const ProcessFile file;
    std::thread([&] {
        Install("lena");
        common::State().g_strConnectionString = file.ConnectionText();
        common::GetInfoDispatcher(kNeeds, 12, 1, 300)->Zustimmen(kAnna, "");
        const auto starter = MakeInfoStarter();
        common::ConnectProcessObject(*starter);
        starter->Starten(kWaitList, 50, kBoris);
    }).join();
    EXPECT_EQ(Steps(*file, kNeeds, 12), "Start 2 17 | Zustimmung 2 17");
    EXPECT_EQ(Steps(*file, kWaitList, 50), "Start 1 18");
}

TEST_F(LibraryDispatcher, WorksOnTheDatabaseOfTheLogin) {
    const ProcessFile file;
    Install(Login{.connection_text = file.ConnectionText(), .user = "lena"});
    common::GetInfoDispatcher(kNeeds, 12, 1, 300)->Zustimmen(kAnna, "");
    EXPECT_EQ(Steps(*file, kNeeds, 12), "Start 2 17 | Zustimmung 2 17");
}

}  // namespace
}  // namespace LumoConnection
