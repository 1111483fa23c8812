#include <LumoConnection/script/script_processes.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/script/script_run.h>
#include <LumoSeminar/frame/common.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

using testing::HasSubstr;

class ScriptProcessesTest : public testing::Test {
  protected:
    ScriptProcessesTest() { common::State() = {}; }
    ~ScriptProcessesTest() override {
        common::State() = {};
        SetComponents({});
    }
    void Install() { SetComponents(ScriptComponents(script_.Session())); }

    Script script_;
};

TEST_F(ScriptProcessesTest, CallsStandInOneOrderWithTheStatements) {
    script_.OpenSelect("SELECT 1");
    script_.Process("New InfoStarter");
    script_.Process("InfoStarter.ConnectionString 'Provider=Embedded;Data Source=Köln''s.db'");
    script_.Process("InfoStarter.Starten 8, 42, 17");
    script_.ExecuteSql("DELETE FROM t");
    Install();

    (void)script_.Session()->OpenSelect("SELECT 1");
    const auto starter = MakeInfoStarter();
    starter->ConnectionString("Provider=Embedded;Data Source=Köln''s.db");
    EXPECT_TRUE(starter->Starten(8, 42, 17).IsEmpty());
    (void)script_.Session()->ExecuteSql("DELETE FROM t");
    EXPECT_EQ(script_.Report(), "");
    EXPECT_EQ(script_.Calls()[3], "Process: InfoStarter.Starten 8, 42, 17");
}

TEST_F(ScriptProcessesTest, ADispatcherAnswersAsTheScriptTells) {
    script_.Process("New InfoDispatcher");
    script_.Process("InfoDispatcher.Verbinden 2, 'anna', ''").Gives(1);
    script_.Process("InfoDispatcher.Initialisieren 7, 5, 1, 101");
    script_.Process("InfoDispatcher.Zustimmen 17, ''");
    script_.Process("InfoDispatcher.Ablehnen 18, 'zu spät'");
    script_.Process("InfoDispatcher.ProzessStatus").Gives(2);
    script_.Process("InfoDispatcher.ProzessStatusText").Gives("Genehmigt");
    script_.Process("InfoDispatcher.BenutzerHatRechte 17").Gives(true);
    script_.Process("InfoDispatcher.ModulNr").Gives(9);
    script_.Process("InfoDispatcher.SchluesselID").Gives(6);
    script_.Process("InfoDispatcher.Loeschen");
    Install();

    const auto dispatcher = MakeInfoDispatcher();
    EXPECT_EQ(To<Int32>(dispatcher->Verbinden(2, "anna", "")), 1);
    dispatcher->Initialisieren(7, 5, 1, 101);
    dispatcher->Zustimmen(17, "");
    dispatcher->Ablehnen(18, "zu spät");
    EXPECT_EQ(dispatcher->ProzessStatus(), 2);
    EXPECT_EQ(dispatcher->ProzessStatusText(), "Genehmigt");
    EXPECT_EQ(dispatcher->BenutzerHatRechte(17), true);
    EXPECT_EQ(dispatcher->ModulNr(), 9);
    EXPECT_EQ(dispatcher->SchluesselID(), 6);
    dispatcher->Loeschen();
    EXPECT_EQ(script_.Report(), "");
}

TEST_F(ScriptProcessesTest, WithoutAnAnswerADispatcherKnowsWhatItWasBoundTo) {
    for (const char* call : {"New InfoDispatcher", "InfoDispatcher.Initialisieren 7, 5, 1, 101",
                             "InfoDispatcher.ModulNr", "InfoDispatcher.SchluesselID", "InfoDispatcher.ProzessStatus",
                             "InfoDispatcher.ProzessStatusText", "InfoDispatcher.BenutzerHatRechte 17"}) {
        script_.Process(call);
    }
    Install();
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->Initialisieren(7, 5, 1, 101);
    EXPECT_EQ(dispatcher->ModulNr(), 7);
    EXPECT_EQ(dispatcher->SchluesselID(), 5);
    EXPECT_EQ(dispatcher->ProzessStatus(), 0);
    EXPECT_EQ(dispatcher->ProzessStatusText(), "");
    EXPECT_EQ(dispatcher->BenutzerHatRechte(17), false);
    EXPECT_EQ(script_.Report(), "");
}

TEST_F(ScriptProcessesTest, SessionDefaultsAreStepsToo) {
    script_.Process("New SessionDefaults");
    script_.Process("SessionDefaults.FirstText 2").Gives("anna");
    script_.Process("SessionDefaults.SecondText 2");
    Install();
    const auto defaults = MakeSessionDefaults();
    EXPECT_EQ(defaults->FirstText(2), "anna");
    EXPECT_EQ(defaults->SecondText(2), "");
    EXPECT_EQ(script_.Report(), "");
}

TEST_F(ScriptProcessesTest, ACallThatIsNotExpectedIsReported) {
    script_.Process("New InfoStarter");
    script_.Process("InfoStarter.Starten 8, 42, 17");
    Install();
    const auto starter = MakeInfoStarter();
    EXPECT_RAISES(ScriptError::kUnexpectedCall, starter->Starten(8, 43, 17));
    EXPECT_THAT(script_.Report(), HasSubstr("Process, call"));
    EXPECT_THAT(script_.Report(), HasSubstr("InfoStarter.Starten 8, 43, 17"));
}

TEST_F(ScriptProcessesTest, AStepRaisesButIsNeverRefused) {
    const auto outcomes = RunWithEachStepFailing(
        [](Script& script) {
            script.Process("New InfoStarter");
            script.Process("InfoStarter.Starten 8, 42, 17");
        },
        [](const Ref<DataSession>& session) {
            SetComponents(ScriptComponents(session));
            MakeInfoStarter()->Starten(8, 42, 17);
        });
    ASSERT_EQ(outcomes.size(), 2U);
    for (const auto& outcome : outcomes) {
        EXPECT_EQ(outcome.mode, FailureMode::kRaises);
        ASSERT_TRUE(outcome.error) << outcome.Title();
        EXPECT_EQ(outcome.error->Number(), ScriptError::kStepFailed);
        EXPECT_TRUE(outcome.session_released);
    }
    script_.Process("New InfoStarter");
    EXPECT_RAISES(ScriptError::kBadScript, script_.FailAt(1, FailureMode::kNotOk));
}

TEST_F(ScriptProcessesTest, AnotherSessionHasNoScript) {
    EXPECT_RAISES(ScriptError::kBadScript, ScriptComponents(New<EmbeddedSession>()));
    EXPECT_RAISES(ScriptError::kBadScript, ScriptComponents({}));
}

}  // namespace
}  // namespace LumoConnection
