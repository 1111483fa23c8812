#include <LumoSeminar/needs/clsANWBBedarf.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace need_statements;
using LumoConnection::Script;
using process_calls::Install;
using process_calls::kTrainingNeed;
using process_calls::ScriptNewDispatcher;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using clsANWBBedarfTest = process_calls::ProcessTest;

constexpr Int32 kUserID = 11;
const Variant kNull = Variant::Null();

// Binding and the members that do not load.

TEST_F(clsANWBBedarfTest, ANewNeedIsNobodysAndSendsInfos) {
    clsANWBBedarf need;
    EXPECT_EQ(need.WBID(), 0);
    EXPECT_EQ(need.Key(), "0");
    EXPECT_EQ(need.DoSendInfos(), true);
    EXPECT_EQ(need.ConnectionString(), "");
}

TEST_F(clsANWBBedarfTest, InitTakesKeyAndSessionReadsNothingAndIsFalse) {
    Script script;
    auto need = New<clsANWBBedarf>();
    EXPECT_EQ(need->Init(7, script.Session()), false);
    EXPECT_EQ(need->WBID(), 7);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
    need.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST_F(clsANWBBedarfTest, InitWithoutASessionIsFalseTooAndTheFirstStatementRaises91) {
    clsANWBBedarf need;
    EXPECT_EQ(need.Init(7, {}), false);
    EXPECT_EQ(need.WBID(), 7);
    EXPECT_RAISES_UNDER(91, Labels{kLabelOfLoad}, need.MDNR());
    EXPECT_RAISES(91, need.WriteToDatabase(kUserID));
    EXPECT_RAISES(91, need.DeleteFromDatabase());
}

TEST_F(clsANWBBedarfTest, TheKeyIsPlainDecimalTextAndMovesWithWBID) {
    Script script;
    const auto need = Bound(script.Session());
    for (const auto& [key, text] : {std::pair<Int32, Text>{7, "7"}, {0, "0"}, {-5, "-5"}, {2147483647, "2147483647"}}) {
        need->WBID(key);
        EXPECT_EQ(need->Key(), text);
        EXPECT_EQ(need->WBID(), key);
    }
    EXPECT_EQ(script.Report(), "") << "no load";
}

TEST_F(clsANWBBedarfTest, DoSendInfosIsAPlainField) {
    Script script;
    const auto need = Bound(script.Session());
    need->DoSendInfos(false);
    EXPECT_EQ(need->DoSendInfos(), false);
    need->DoSendInfos(true);
    EXPECT_EQ(need->DoSendInfos(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, TheConnectionStringIsOneForAllObjectsOfTheThread) {
    const auto need = New<clsANWBBedarf>();
    need->ConnectionString("Data Source=Größe.db");
    EXPECT_EQ(need->ConnectionString(), "Data Source=Größe.db");
    EXPECT_EQ(New<clsANWBBedarf>()->ConnectionString(), "Data Source=Größe.db");
    EXPECT_EQ(New<clsWBPerson>()->ConnectionString(), "Data Source=Größe.db");
    EXPECT_EQ(common::State().g_strConnectionString, "Data Source=Größe.db");
    New<clsWBPerson>()->ConnectionString("andere");
    EXPECT_EQ(need->ConnectionString(), "andere");
    need->ConnectionString("");
    EXPECT_EQ(common::State().g_strConnectionString, "");
}

// The load.

TEST_F(clsANWBBedarfTest, NullsAreZeroesAndEmptyTexts) {
    Script script;
    ScriptLoad(script, {NullRow()});
    const auto need = Bound(script.Session());
    ExpectValues(*need, &Property::zero);
    EXPECT_EQ(need->WBID(), 0) << "the key is read like the others";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, TheStatusIsReadWithoutItsSign) {
    const struct {
        Variant stored;
        Byte status;
    } cases[] = {{Int16{0}, 0}, {Int16{-1}, 1}, {Int16{1}, 1}, {Int16{2}, 2}, {Int16{-2}, 2},
                 {255, 255},    {-255, 255},    {kNull, 0},    {"-1", 1},     {Bool(true), 1}};
    for (const auto& c : cases) {
        Script script;
        auto row = FullRow();
        row[8] = c.stored;
        ScriptLoad(script, {row});
        EXPECT_EQ(Bound(script.Session())->BedarfErfuellt(), c.status);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsANWBBedarfTest, ANeedWithoutARowIsEmptyKeepsWhatIsLetAndIsNotLookedForAgain) {
    Script script;
    ScriptLoad(script, {});
    const auto need = Bound(script.Session());
    ExpectValues(*need, &Property::zero);
    LetAll(*need, &Property::full);
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(need->WBID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, ANewKeyOrASecondInitDoesNotReadAgain) {
    Script first;
    Script second;
    ScriptLoad(first);
    const auto need = Bound(first.Session());
    EXPECT_EQ(need->WBS(), 4);
    need->WBID(8);
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(need->Init(9, second.Session()), false);
    EXPECT_EQ(need->Key(), "9");
    ExpectValues(*need, &Property::full);
    EXPECT_TRUE(first.SessionReleased());
    EXPECT_EQ(first.Report(), "");
    EXPECT_EQ(second.Report(), "");
}

TEST_F(clsANWBBedarfTest, AKeyLetBeforeTheLoadIsTheOneThatIsRead) {
    Script script;
    ScriptLoad(script, {FullRow(8)}, 8);
    const auto need = Bound(script.Session());
    need->WBID(8);
    EXPECT_EQ(need->ANNr(), 123);
    EXPECT_EQ(script.Report(), "");
}

// The update.

TEST_F(clsANWBBedarfTest, AnUpdateWritesTheDaysTheStatusTheRemarksAndTheFocusArea) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(
        "Update AN_WBBedarf_IT Set Erford = '01.06.2010', Erfuellt = '20.05.2010', BedarfErfuellt = -1, "
        "Bemerkungen = 'für die \"große\" Halle & später', WBS = 4 WHERE WBID = 7");
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->WBS(), 4);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "") << "no process";
}

TEST_F(clsANWBBedarfTest, AnUpdateWritesNullForNoDayAndNoRemarks) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(
        "Update AN_WBBedarf_IT Set Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 0 "
        "WHERE WBID = 7");
    const auto need = Bound(script.Session());
    LetAll(*need, &Property::zero);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, StatusOneIsStoredAsMinusOneAndEveryOtherAsItIs) {
    for (const auto& [status, stored] : {std::pair<Byte, const char*>{0, "0"}, {1, "-1"}, {2, "2"}, {3, "3"}, {255, "255"}}) {
        Script script;
        ScriptLoad(script, {NullRow()});
        script.ExecuteSql(Update(std::string("Erford = Null, Erfuellt = Null, BedarfErfuellt = ") + stored +
                                 ", Bemerkungen = Null, WBS = 0"));
        const auto need = Bound(script.Session());
        need->BedarfErfuellt(status);
        need->WBID(7);
        EXPECT_EQ(need->WriteToDatabase(kUserID), true);
        EXPECT_EQ(need->BedarfErfuellt(), status);
        EXPECT_EQ(script.Report(), "") << "an update neither opens a process nor settles the need";
    }
}

TEST_F(clsANWBBedarfTest, DaysAreWrittenWithoutTheirTimeWhichTheObjectKeeps) {
    Script script;
    ScriptLoad(script, {});
    script.ExecuteSql(Update("Erford = '01.03.2011', Erfuellt = '31.12.1899', BedarfErfuellt = 0, Bemerkungen = Null, WBS = 0"));
    const auto need = Bound(script.Session());
    const DateTime evening = DateTime::Of(2011, 3, 1, 23, 59, 59);
    need->Erford(evening);
    need->Erfuellt(DateTime::Of(1899, 12, 31, 12, 0));
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(need->Erford(), evening);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, ATimeWithoutADayIsADayAndWrittenAsDayZero) {
    Script script;
    ScriptLoad(script, {});
    script.ExecuteSql(Update("Erford = '30.12.1899', Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 0"));
    const auto need = Bound(script.Session());
    need->Erford(DateTime::TimeOfDay(12, 0));
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, AnUpdateOfANeedThatWasNotReadLoadsForTheFocusAreaAloneAndWritesTheRestEmpty) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(
        "Update AN_WBBedarf_IT Set Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 4 "
        "WHERE WBID = 7");
    script.ExecuteSql(Update(kFullAssignments));
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true) << "now the row is known";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, AnUpdateOfAKeyWithoutARowWritesNoRowAndIsTrue) {
    Script script;
    ScriptLoad(script, {});
    script.ExecuteSql(
        Update("Erford = '01.06.2010', Erfuellt = '20.05.2010', BedarfErfuellt = -1, Bemerkungen = 'für die \"große\" "
               "Halle & später', WBS = 4"));
    const auto need = Bound(script.Session());
    LetAll(*need, &Property::full);
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, NeitherTheUserNorDoSendInfosChangesAnUpdate) {
    for (const Int32 user : {0, -1, 2147483647}) {
        for (const bool infos : {true, false}) {
            Script script;
            ScriptLoad(script);
            script.ExecuteSql(Update(kFullAssignments));
            const auto need = Bound(script.Session());
            need->DoSendInfos(infos);
            EXPECT_EQ(need->WBS(), 4);
            EXPECT_EQ(need->WriteToDatabase(user), true);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsANWBBedarfTest, ANegativeKeyIsUpdated) {
    Script script;
    ScriptLoad(script, {}, -3);
    script.ExecuteSql(Update(kZeroAssignments, -3));
    EXPECT_EQ(Bound(script.Session(), -3)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, RemarksGoIntoTheStatementAsTheyStand) {
    for (const Text& text : {Text("Rock'n Roll"), Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"),
                             Text("{WBS} {Bemerkungen:'text' or Null}"), Text("Zeile\r\nZeile"), Text(100'000, 'x')}) {
        Script script;
        ScriptLoad(script, {});
        script.ExecuteSql(Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = '" + text + "', WBS = 0"));
        const auto need = Bound(script.Session());
        need->Bemerkungen(text);
        EXPECT_EQ(need->WriteToDatabase(kUserID), true);
        EXPECT_EQ(need->Bemerkungen(), text);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsANWBBedarfTest, RemarksWithASingleQuoteBreakTheStatementWhichRaises9999AndCanBeTriedAgain) {
    Script script;
    ScriptLoad(script, {});
    script
        .ExecuteSql(Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = 'Rock'n Roll', WBS = 0"))
        .Refused("Falsche Syntax in der Nähe von 'n'.");
    script.ExecuteSql(Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = 'Rock and Roll', WBS = 0"));
    const auto need = Bound(script.Session());
    need->Bemerkungen("Rock'n Roll");
    const auto error = RaisedBy([&] { return need->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nFalsche Syntax in der Nähe von 'n'. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    need->Bemerkungen("Rock and Roll");
    EXPECT_EQ(need->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, EveryFailureOfAnUpdateRaisesUnderItsLabels) {
    const Labels load = {kLabelOfLoad, kLabelOfWrite};
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {});
            script.ExecuteSql(Update(kZeroAssignments));
        },
        [](const Ref<DataSession>& session) { Bound(session)->WriteToDatabase(kUserID); },
        {{1, kNotOk, 9999, load},
         {1, kRaises, 7001, load},
         {2, kRaises, 7001, load},
         {3, kNotOk, 9999, {kLabelOfWrite}},
         {3, kRaises, 7001, {kLabelOfWrite}}});
}

// Deleting.

TEST_F(clsANWBBedarfTest, DeletingANeedThatWasReadDeletesTheRowAndDropsItsProcess) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql("Delete AN_WBBedarf_IT  WHERE WBID = 7");
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.Loeschen");
    Install(script.Session());
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->WBS(), 4);
    EXPECT_EQ(need->DeleteFromDatabase(), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(need->WBID(), 7) << "the object keeps what it has";
}

TEST_F(clsANWBBedarfTest, DeletingANeedThatWasNotReadLooksForTheRowBehindItsEndAndDropsTheProcessOfNobody) {
    Script script;
    script.ExecuteSql(Delete());
    ScriptLoad(script, {});
    ScriptNewDispatcher(script, kTrainingNeed, 7, 0, 0);
    script.Process("InfoDispatcher.Loeschen");
    Install(script.Session());
    EXPECT_EQ(Bound(script.Session())->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, ARefusedDeleteRaises9999AndLeavesTheProcessAlone) {
    Script script;
    script.ExecuteSql(Delete()).Refused("Die Zeile wird benutzt.");
    Install(script.Session());
    const auto error = RaisedBy([&] { return Bound(script.Session())->DeleteFromDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Zeile wird benutzt. in LumoSeminar.DeleteFromDatabase");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsANWBBedarfTest, EveryFailureOfADeleteRaisesUnderItsLabels) {
    const Labels load = {kLabelOfLoad, kLabelOfDelete};
    ExpectFailures(
        [](Script& script) {
            script.ExecuteSql(Delete());
            ScriptLoad(script, {});
            ScriptNewDispatcher(script, kTrainingNeed, 7, 0, 0);
            script.Process("InfoDispatcher.Loeschen");
        },
        [](const Ref<DataSession>& session) {
            Install(session);
            Bound(session)->DeleteFromDatabase();
        },
        {{1, kNotOk, 9999, {kLabelOfDelete}},
         {1, kRaises, 7001, {kLabelOfDelete}},
         {2, kNotOk, 9999, load},
         {2, kRaises, 7001, load},
         {3, kRaises, 7001, load},
         {4, kRaises, 7001, {kLabelOfDelete}},
         {5, kRaises, 7001, {kLabelOfDelete}},
         {6, kRaises, 7001, {kLabelOfDelete}},
         {7, kRaises, 7001, {kLabelOfDelete}}});
}

}  // namespace
}  // namespace LumoSeminar
