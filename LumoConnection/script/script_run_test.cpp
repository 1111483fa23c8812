#include <LumoConnection/script/script_run.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace LumoConnection {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Titles(const std::vector<FailureOutcome>& outcomes) {
    std::vector<std::string> titles;
    titles.reserve(outcomes.size());
    for (const FailureOutcome& outcome : outcomes) titles.push_back(outcome.Title());
    return titles;
}

// A program: lists keys, closes the rows, takes a new key and inserts. It stops at what is refused.
void WriteScript(Script& script) {
    script.AdoConnection();
    script.OpenSelect("SELECT SemID FROM A").Rows({"SemID"}, {{1}});
    script.CloseRows();
    script.LookupValue("max(SemID)", "A").Gives(1);
    script.ExecuteSql("INSERT 2");
}

void RunProgram(const Ref<DataSession>& session) {
    const Ref<Connection> connection = session->AdoConnection();
    if (connection->State() != Connection::kOpen) {
        connection->Open();
        if (connection->State() != Connection::kOpen) return;
    }
    if (!session->OpenSelect("SELECT SemID FROM A")) Raise(9999, session->LastErrorText());
    session->Recordset()->Close();
    const Variant largest = session->LookupValue("max(SemID)", "A", "");
    const Int32 key = largest.IsNull() ? 1 : To<Int32>(largest) + 1;
    if (!session->ExecuteSql("INSERT " + std::to_string(key))) Raise(9999, session->LastErrorText());
}

TEST(RunWithEachStepFailingTest, FailsEachStepInTurn) {
    const std::vector<FailureOutcome> outcomes = RunWithEachStepFailing(WriteScript, RunProgram);
    EXPECT_THAT(Titles(outcomes),
                ElementsAre("step 1 is refused: AdoConnection", "step 1 raises: AdoConnection",
                            "step 2 is refused: OpenSelect: SELECT SemID FROM A",
                            "step 2 raises: OpenSelect: SELECT SemID FROM A", "step 3 raises: Close of the rows of step 2",
                            "step 4 is refused: LookupValue: max(SemID) from A", "step 4 raises: LookupValue: max(SemID) from A",
                            "step 5 is refused: ExecuteSql: INSERT 2", "step 5 raises: ExecuteSql: INSERT 2"));
    for (const FailureOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.Title());
        EXPECT_EQ(outcome.report, "");
        EXPECT_TRUE(outcome.session_released);
        if (outcome.mode == FailureMode::kRaises) {
            ASSERT_TRUE(outcome.error);
            EXPECT_EQ(outcome.error->Number(), 7001);
            EXPECT_EQ(outcome.error->Source(), "Script");
            EXPECT_EQ(outcome.error->Description(), "raised at step " + std::to_string(outcome.step));
            EXPECT_THAT(outcome.calls_after, IsEmpty());
        }
    }
    EXPECT_FALSE(outcomes[0].error);
    EXPECT_THAT(outcomes[0].calls_after, ElementsAre("Open of the connection"));
    EXPECT_THAT(outcomes[0].unexpected_after, IsEmpty());

    EXPECT_EQ(outcomes[2].error->Description(), "refused at step 2");
    EXPECT_THAT(outcomes[2].calls_after, IsEmpty());

    EXPECT_EQ(outcomes[5].error->Description(), "after the failure");
    EXPECT_THAT(outcomes[5].calls_after, ElementsAre("ExecuteSql: INSERT 1"));
    EXPECT_THAT(outcomes[5].unexpected_after, ElementsAre("ExecuteSql: INSERT 1"));

    EXPECT_EQ(outcomes[7].error->Number(), 9999);
    EXPECT_EQ(outcomes[7].error->Description(), "refused at step 5");
}

TEST(RunWithEachStepFailingTest, ARunThatDoesNotMeetItsScriptIsNotTriedAtAll) {
    int runs = 0;
    try {
        RunWithEachStepFailing([](Script& script) { script.ExecuteSql("A"); },
                               [&](const Ref<DataSession>& session) {
                                   ++runs;
                                   (void)session->ExecuteSql("B");
                               });
        ADD_FAILURE() << "nothing raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ScriptError::kUnexpectedCall);
        EXPECT_THAT(error.Description(), HasSubstr("Step 1 differs: ExecuteSql, statement, at character 1."));
    }
    EXPECT_EQ(runs, 1);
}

TEST(RunWithEachStepFailingTest, AnEmptyScriptIsNoTest) {
    try {
        RunWithEachStepFailing([](Script&) {}, [](const Ref<DataSession>&) {});
        ADD_FAILURE() << "nothing raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ScriptError::kBadScript);
    }
}

TEST(RunWithEachStepFailingTest, AScriptedFailureFailsInTheRunsWay) {
    const auto outcomes = RunWithEachStepFailing([](Script& script) { script.ExecuteSql("A").Raises(6, "driver"); },
                                                 [](const Ref<DataSession>& session) { (void)session->ExecuteSql("A"); });
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_FALSE(outcomes[0].error) << "refused, and the program does not look";
    EXPECT_EQ(outcomes[1].error->Number(), 7001);
}

TEST(RunWithEachStepFailingTest, ExceptionsOfOtherTypesAreKeptAsErrors) {
    const auto outcomes = RunWithEachStepFailing([](Script& script) { script.ExecuteSql("A"); },
                                                 [](const Ref<DataSession>& session) {
                                                     if (!session->ExecuteSql("A"))
                                                         throw std::runtime_error("given up");
                                                 });
    EXPECT_EQ(outcomes[0].error->Number(), ErrorNumber::kForeignException);
    EXPECT_EQ(outcomes[0].error->Description(), "given up");

    const auto unknown = RunWithEachStepFailing([](Script& script) { script.ExecuteSql("A"); },
                                                [](const Ref<DataSession>& session) {
                                                    if (!session->ExecuteSql("A")) throw 1;
                                                });
    EXPECT_EQ(unknown[0].error->Description(), "An exception of an unknown type was thrown.");
}

TEST(RunWithEachStepFailingTest, ASessionThatIsKeptIsSeen) {
    Ref<DataSession> kept;
    const auto outcomes = RunWithEachStepFailing([](Script& script) { script.ExecuteSql("A"); },
                                                 [&](const Ref<DataSession>& session) {
                                                     kept = session;
                                                     (void)session->ExecuteSql("A");
                                                 });
    EXPECT_FALSE(outcomes[0].session_released);
}

TEST(RunWithEachStepFailingTest, AProgramThatStopsInFrontOfTheFailingStepIsReported) {
    int runs = 0;
    const auto outcomes = RunWithEachStepFailing(
        [](Script& script) {
            script.ExecuteSql("A");
            script.ExecuteSql("B");
        },
        [&](const Ref<DataSession>& session) {
            ++runs;
            (void)session->ExecuteSql("A");
            if (runs < 4) (void)session->ExecuteSql("B");
        });
    ASSERT_EQ(outcomes.size(), 4U);
    EXPECT_EQ(outcomes[0].report, "");
    EXPECT_EQ(outcomes[2].report, "Not reached:\n  Step 2  ExecuteSql: B\n");
    EXPECT_THAT(outcomes[2].calls_after, IsEmpty());
}

// One failure chosen by hand

TEST(FailAtTest, BehindTheFailureStepsLeftAnswerAndTheOthersAreRefused) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.CloseRows();
    script.ExecuteSql("B");
    script.LookupValue("C", "T").Gives(3);
    script.ExecuteSql("D");
    script.FailAt(1, FailureMode::kNotOk);
    const Ref<DataSession> session = script.Session();
    EXPECT_FALSE(session->OpenSelect("A"));
    EXPECT_FALSE(session->Recordset());
    EXPECT_EQ(session->LastErrorText(), "refused at step 1");
    EXPECT_TRUE(session->ExecuteSql("B")) << "the Close between was left out";
    EXPECT_FALSE(session->OpenSelect("A")) << "tried again";
    EXPECT_EQ(session->LastErrorText(), "after the failure");
    EXPECT_TRUE(session->ExecuteSql("D"));
    EXPECT_TRUE(session->LookupValue("C", "T", "").IsNull()) << "it had been left out";
    EXPECT_FALSE(session->Connect("", "", "", 30));
    EXPECT_EQ(script.Report(), "");
    EXPECT_THAT(script.CallsAfterFailure(), ElementsAre("ExecuteSql: B", "OpenSelect: A", "ExecuteSql: D",
                                                        "LookupValue: C from T", "Connect: , user , password , timeout 30"));
    EXPECT_THAT(script.UnexpectedAfterFailure(),
                ElementsAre("OpenSelect: A", "LookupValue: C from T", "Connect: , user , password , timeout 30"));
    EXPECT_EQ(script.Calls().size(), 6U);
}

TEST(FailAtTest, UpToTheFailureTheScriptIsStrict) {
    Script script;
    script.ExecuteSql("A");
    script.ExecuteSql("B");
    script.FailAt(2, FailureMode::kRaises);
    EXPECT_THROW((void)script.Session()->ExecuteSql("B"), Error);
    EXPECT_THAT(script.Report(), HasSubstr("Step 1 differs"));
    EXPECT_THAT(script.CallsAfterFailure(), IsEmpty());
}

TEST(FailAtTest, AConnectionThatFailsStaysClosedWhateverTheScriptExpects) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionState().Gives(0);
    script.ConnectionOpen();
    script.ConnectionState().Gives(1);
    script.FailAt(1, FailureMode::kNotOk);
    const Ref<Connection> connection = script.Session()->AdoConnection();
    EXPECT_EQ(connection->State(), 0);
    connection->Open();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_THAT(script.CallsAfterFailure(), ElementsAre("Open of the connection"));
    EXPECT_THAT(script.UnexpectedAfterFailure(), IsEmpty());
    EXPECT_EQ(script.Report(), "");
}

TEST(FailAtTest, AStepThatGivesALaterConnectionOpensItAgain) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    script.FailAt(1, FailureMode::kNotOk);
    EXPECT_EQ(script.Session()->AdoConnection()->State(), 0);
    EXPECT_EQ(script.Session()->AdoConnection()->State(), 1);
    EXPECT_EQ(script.Session()->AdoConnection()->State(), 0) << "one more than the script has";
}

TEST(FailAtTest, OpenFailsByAConnectionThatStaysClosed) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen();
    script.FailAt(2, FailureMode::kNotOk);
    const Ref<Connection> connection = script.Session()->AdoConnection();
    connection->Open();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(FailAtTest, StateFailsByAClosedConnection) {
    Script script;
    script.AdoConnection();
    script.ConnectionState();
    script.FailAt(2, FailureMode::kNotOk);
    const Ref<Connection> connection = script.Session()->AdoConnection();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(FailAtTest, ExecuteOfTheConnectionIsRefusedByRaising) {
    Script script;
    script.AdoConnection();
    script.ConnectionExecute("SELECT 1").Rows({"X"});
    script.FailAt(2, FailureMode::kNotOk);
    const Ref<Connection> connection = script.Session()->AdoConnection();
    try {
        connection->Execute("SELECT 1");
        ADD_FAILURE() << "nothing raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ScriptError::kStepFailed);
        EXPECT_EQ(error.Source(), "Script");
        EXPECT_EQ(error.Description(), "refused at step 2");
    }
    try {
        connection->Execute("SELECT 2");
        ADD_FAILURE() << "nothing raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(), "after the failure");
    }
}

TEST(FailAtTest, ClosingBehindTheFailureSucceeds) {
    Script script;
    script.OpenSelect("A").Rows({"X"}, {{1}});
    script.ExecuteSql("B");
    script.CloseRows();
    script.FailAt(2, FailureMode::kRaises);
    const Ref<DataSession> session = script.Session();
    (void)session->OpenSelect("A");
    const Ref<RecordSet> rows = session->Recordset();
    EXPECT_THROW((void)session->ExecuteSql("B"), Error);
    rows->Close();
    EXPECT_THROW(rows->Eof(), Error);
    EXPECT_THAT(script.CallsAfterFailure(), ElementsAre("Close of the rows of step 1"));
    EXPECT_THAT(script.UnexpectedAfterFailure(), IsEmpty());
}

TEST(FailAtTest, WhatCannotFailIsRefusedWhileWriting) {
    Script script;
    script.OpenSelect("A").Rows({"X"});
    script.CloseRows();
    EXPECT_FALSE(script.CanFail(2, FailureMode::kNotOk));
    EXPECT_TRUE(script.CanFail(2, FailureMode::kRaises));
    const auto number = [&](int step, FailureMode mode) {
        try {
            script.FailAt(step, mode);
        } catch (const Error& error) {
            return error.Number();
        }
        return Int32{0};
    };
    EXPECT_EQ(number(2, FailureMode::kNotOk), ScriptError::kBadScript);
    EXPECT_EQ(number(0, FailureMode::kRaises), ErrorNumber::kPositionOutOfRange);
    EXPECT_EQ(number(3, FailureMode::kRaises), ErrorNumber::kPositionOutOfRange);
    EXPECT_EQ(number(2, FailureMode::kRaises), 0);
}

}  // namespace
}  // namespace LumoConnection
