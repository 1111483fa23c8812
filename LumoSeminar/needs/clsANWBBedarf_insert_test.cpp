#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace need_statements;
using LumoConnection::Script;
using process_calls::Connected;
using process_calls::Install;
using process_calls::kNow;
using process_calls::kTrainingNeed;
using process_calls::ScriptStart;
using process_calls::StepsBehind;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using NewTrainingNeedTest = process_calls::ProcessTest;

constexpr Int32 kUserID = 11;
const Text kLogin = "Jörg \"Jo\" Ähre";
const Variant kNull = Variant::Null();

/// The insert of a need that gets key 8 and has nothing but a status.
std::string InsertWithStatus(const std::string& stored) {
    return Insert("8,0,0,0,'02.03.2010',Null,Null,'" + kLogin + "'," + stored + ",Null");
}

std::string UpdateWithStatus(const std::string& stored, const std::string& settled = "Null") {
    return Update("Erford = Null, Erfuellt = " + settled + ", BedarfErfuellt = " + stored + ", Bemerkungen = Null, WBS = 0", 8);
}

/// A new need that was read, for which there is no row, with that status.
Ref<clsANWBBedarf> NewWithStatus(const Ref<DataSession>& session, Byte status) {
    auto need = Bound(session, 0);
    need->BedarfErfuellt(status);
    return need;
}

/// The load of NewWithStatus and the lookups that follow.
void ScriptNew(Script& script) {
    ScriptLoad(script, {}, 0);
    ScriptLookups(script, 7, kLogin);
}

TEST_F(NewTrainingNeedTest, StatusZeroRunsTheTwoLookupsTheInsertTheStartAndTheUpdate) {
    Script script;
    ScriptLoad(script, {}, 0);
    script.LookupValue("max(WBID)", "AN_WBBedarf_IT", "").Gives(41);
    script.LookupValue("System_User", "opactMD", "").Gives(kLogin);
    script.ExecuteSql(
        "Insert Into AN_WBBedarf_IT (WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen) values "
        "(42,5,123,4,'02.03.2010','01.06.2010','20.05.2010','Jörg \"Jo\" Ähre',0,'für die \"große\" Halle & später')");
    ScriptStart(script, kTrainingNeed, 42, kUserID);
    script.ExecuteSql(
        "Update AN_WBBedarf_IT Set Erford = '01.06.2010', Erfuellt = '20.05.2010', BedarfErfuellt = 0, "
        "Bemerkungen = 'für die \"große\" Halle & später', WBS = 4 WHERE WBID = 42");
    Install(script.Session());
    const auto need = Bound(script.Session(), 0);
    LetAll(*need, &Property::full);
    need->BedarfErfuellt(0);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(need->WBID(), 42);
    EXPECT_EQ(need->Key(), "42");
    EXPECT_EQ(need->ErfDat(), kNow);
    EXPECT_EQ(need->ErfUser(), kLogin);
    EXPECT_EQ(need->Erfuellt(), DateTime::Of(2010, 5, 20)) << "an open need is not settled";
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, StatusOneIsInsertedAsMinusOneAndWrittenTwiceWithoutAProcess) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("-1"));
    script.ExecuteSql(UpdateWithStatus("-1"));
    Install(script.Session());
    const auto need = NewWithStatus(script.Session(), 1);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(need->BedarfErfuellt(), 1);
    EXPECT_EQ(need->Erfuellt(), DateTime());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, AStatusAboveOneIsSettledAtThePresentMomentByTheSecondWriteWithoutAProcess) {
    for (const auto& [status, stored] : {std::pair<Byte, const char*>{2, "2"}, {3, "3"}, {128, "128"}, {255, "255"}}) {
        Script script;
        ScriptNew(script);
        script.ExecuteSql(InsertWithStatus(stored));
        script.ExecuteSql(UpdateWithStatus(stored, "'02.03.2010'"));
        Install(script.Session());
        const auto need = NewWithStatus(script.Session(), status);
        EXPECT_EQ(need->WriteToDatabase(kUserID), true);
        EXPECT_EQ(need->BedarfErfuellt(), status);
        EXPECT_EQ(need->Erfuellt(), kNow);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(NewTrainingNeedTest, AfterTheInsertTheSameObjectIsUpdated) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("-1"));
    for (int i = 0; i < 2; ++i) script.ExecuteSql(UpdateWithStatus("-1"));
    script.ExecuteSql(UpdateWithStatus("0"));
    Install(script.Session());
    const auto need = NewWithStatus(script.Session(), 1);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    need->BedarfErfuellt(0);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "") << "a need opened by its let alone gets no process";
}

TEST_F(NewTrainingNeedTest, ANeedOfWhichNothingWasReadOrLetReadsItsNewRowBehindTheInsert) {
    Script script;
    ScriptLookups(script, 7, kLogin);
    script.ExecuteSql(InsertWithStatus("0"));
    ScriptLoad(script, {{8, 0, 0, 0, DateTime::Of(2010, 3, 2), kNull, kNull, kLogin, Int16{0}, kNull}}, 8);
    ScriptStart(script, kTrainingNeed, 8, kUserID);
    script.ExecuteSql(UpdateWithStatus("0"));
    Install(script.Session());
    const auto need = Bound(script.Session(), 0);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(need->ErfDat(), DateTime::Of(2010, 3, 2)) << "as stored, without time";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, TheKeyIsTheLargestPlusOneAndTheFirstIsOne) {
    for (const auto& [largest, key] :
         {std::pair<Variant, Int32>{kNull, 1}, {0, 1}, {-3, -2}, {"41", 42}, {2147483646, 2147483647}}) {
        Script script;
        ScriptLoad(script, {}, 0);
        ScriptLookups(script, largest, kLogin);
        script.ExecuteSql(Insert(std::to_string(key) + ",0,0,0,'02.03.2010',Null,Null,'" + kLogin + "',-1,Null"));
        script.ExecuteSql(Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = -1, Bemerkungen = Null, WBS = 0", key));
        const auto need = NewWithStatus(script.Session(), 1);
        EXPECT_EQ(need->WriteToDatabase(kUserID), true);
        EXPECT_EQ(need->WBID(), key);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(NewTrainingNeedTest, BehindTheLargestKeyTheWriteRaisesOverflow) {
    Script script;
    script.LookupValue("max(WBID)", "AN_WBBedarf_IT").Gives(2147483647);
    const auto need = Bound(script.Session(), 0);
    EXPECT_RAISES_UNDER(6, Labels{kLabelOfWrite}, need->WriteToDatabase(kUserID));
    EXPECT_EQ(need->WBID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, WithoutALoginTheWriterIsEmptyAndWhatWasLetIsLost) {
    Script script;
    ScriptLoad(script, {}, 0);
    ScriptLookups(script, 7, kNull);
    script.ExecuteSql(Insert("8,0,0,0,'02.03.2010',Null,Null,'',-1,Null"));
    script.ExecuteSql(UpdateWithStatus("-1"));
    const auto need = NewWithStatus(script.Session(), 1);
    need->ErfUser("Käthe");
    need->ErfDat(DateTime::Of(2009, 1, 1));
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(need->ErfUser(), "");
    EXPECT_EQ(need->ErfDat(), kNow);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, TheStarterIsConnectedByTheTextOrElseByTheSessionDefaultsWhichAreMadeOnce) {
    Script script;
    Install(script.Session(), "");
    for (const Connected connected : {Connected::kByDefaults, Connected::kByKeptDefaults, Connected::kByText}) {
        ScriptNew(script);
        script.ExecuteSql(InsertWithStatus("0"));
        ScriptStart(script, kTrainingNeed, 8, kUserID, connected);
        script.ExecuteSql(UpdateWithStatus("0"));
        const auto need = NewWithStatus(script.Session(), 0);
        if (connected == Connected::kByText) need->ConnectionString(process_calls::kConnectionText);
        EXPECT_EQ(need->WriteToDatabase(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

// Failures.

TEST_F(NewTrainingNeedTest, ARefusedInsertRaises9999AndTheKeyStaysSoThatTheNextWriteIsAnUpdate) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("0")).Refused("Verletzung des Primärschlüssels.");
    script.ExecuteSql(UpdateWithStatus("0"));
    Install(script.Session());
    const auto need = NewWithStatus(script.Session(), 0);
    const auto error = RaisedBy([&] { return need->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nVerletzung des Primärschlüssels. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(need->WBID(), 8);
    EXPECT_EQ(need->ErfDat(), kNow);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "") << "no process was opened";
}

TEST_F(NewTrainingNeedTest, ARefusedSecondWriteRaises9999UnderBothWritesAndRowAndProcessStay) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("0"));
    ScriptStart(script, kTrainingNeed, 8, kUserID);
    script.ExecuteSql(UpdateWithStatus("0")).Refused("Die Zeile wird benutzt.");
    Install(script.Session());
    const auto need = NewWithStatus(script.Session(), 0);
    const auto error = RaisedBy([&] { return need->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nDie Zeile wird benutzt. in LumoSeminar.WriteToDatabase in "
              "LumoSeminar.WriteToDatabase");
    EXPECT_EQ(need->WBID(), 8);
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(script.Report(), "") << "nothing is taken back";
}

TEST_F(NewTrainingNeedTest, AStartThatRaisesLeavesTheRowAndTheKeyAndTheSecondWriteUndone) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("0"));
    script.Process("New InfoStarter");
    process_calls::ScriptConnection(script, "InfoStarter", Connected::kByText);
    script.Process("InfoStarter.Starten 7, 8, 11").Raises(-2147467259, "Keine Verbindung.", "InfoStarter");
    Install(script.Session());
    const auto need = NewWithStatus(script.Session(), 0);
    const auto error = RaisedBy([&] { return need->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "InfoStarter");
    EXPECT_EQ(error->Description(), "in line: 0\r\nKeine Verbindung. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(need->WBID(), 8);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, WithoutAMakerOfStartersTheWriteRaises429BehindTheInsert) {
    Script script;
    ScriptNew(script);
    script.ExecuteSql(InsertWithStatus("0"));
    EXPECT_RAISES_UNDER(429, Labels{kLabelOfWrite}, NewWithStatus(script.Session(), 0)->WriteToDatabase(kUserID));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(NewTrainingNeedTest, EveryFailureRaisesUnderItsLabels) {
    const Labels write = {kLabelOfWrite};
    const Labels load = {kLabelOfLoad, kLabelOfWrite};
    const Labels twice = {kLabelOfWrite, kLabelOfWrite};
    const auto write_script = [](Script& script) {
        ScriptLookups(script, kNull, kNull);
        script.ExecuteSql(Insert("1,0,0,0,'02.03.2010',Null,Null,'',0,Null"));
        ScriptLoad(script, {}, 1);
        ScriptStart(script, kTrainingNeed, 1, kUserID, Connected::kByDefaults);
        script.ExecuteSql(Update(kZeroAssignments, 1));
    };
    ExpectFailures(write_script,
                   [](const Ref<DataSession>& session) {
                       Install(session, "");
                       Bound(session, 0)->WriteToDatabase(kUserID);
                   },
                   {
                       // A refused lookup cannot be told from one that finds nothing.
                       {1, kNotOk, 0, {}, StepsBehind(1, write_script)},
                       {2, kNotOk, 0, {}, StepsBehind(2, write_script)},
                       {3, kNotOk, 9999, write},
                       {4, kNotOk, 9999, load},
                       {12, kNotOk, 9999, twice},
                       {1, kRaises, 7001, write},
                       {2, kRaises, 7001, write},
                       {3, kRaises, 7001, write},
                       {4, kRaises, 7001, load},
                       {5, kRaises, 7001, load},
                       {6, kRaises, 7001, write},
                       {7, kRaises, 7001, write},
                       {8, kRaises, 7001, write},
                       {9, kRaises, 7001, write},
                       {10, kRaises, 7001, write},
                       {11, kRaises, 7001, write},
                       {12, kRaises, 7001, twice},
                   });
}

}  // namespace
}  // namespace LumoSeminar
