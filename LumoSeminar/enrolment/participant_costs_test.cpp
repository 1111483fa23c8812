#include <LumoSeminar/enrolment/participant_costs.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/cost_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace cost_statements;
using LumoConnection::Script;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const Variant kNull = Variant::Null();
const std::string kLabelOfALoad = " in LumoSeminar.IsInitialized";
const std::string kLabelOfAWrite = " in LumoSeminar.WriteToDatabase";
const std::string kLabelOfADelete = " in LumoSeminar.DeleteFromDatabase";

TEST(clsTeilnehmerKosten, TheKeysAreStoredAndGivenWithoutASession) {
    clsTeilnehmerKosten line;
    EXPECT_EQ(line.TeilnehmerID(), 0);
    EXPECT_EQ(line.KostenID(), 0);
    line.TeilnehmerID(-7);
    line.KostenID(2147483647);
    EXPECT_EQ(line.TeilnehmerID(), -7);
    EXPECT_EQ(line.KostenID(), 2147483647);
}

TEST(clsTeilnehmerKosten, InitStoresWhatItIsGivenReadsNothingAndGivesEmpty) {
    Script script;
    clsTeilnehmerKosten line;
    EXPECT_EQ(line.Init(7, 2, script.Session()), Variant());
    EXPECT_EQ(line.TeilnehmerID(), 7);
    EXPECT_EQ(line.KostenID(), 2);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(line.Init(8, 3, nullptr), Variant());
    EXPECT_EQ(line.TeilnehmerID(), 8);
    EXPECT_EQ(line.KostenID(), 3);
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AWholeRowIsReadKeysIncluded) {
    Script script;
    ScriptLoad(script, {{8, 9, 10, Single{11.5}, 12}});
    const auto line = Bound(script.Session());
    EXPECT_EQ(line->Kost(), 12);
    EXPECT_EQ(ValuesOf(*line), (Values{8, 9, 10, Single{11.5}, 12}));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ANumberOfAnotherTypeIsConverted) {
    Script script;
    ScriptLoad(script, {{Double{7}, Int16{2}, "3", 0.1, Money(4110)}});
    const auto line = Bound(script.Session());
    EXPECT_EQ(line->Kostenbetrag(), 0.1f);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 2, 3, Single{0.1f}, 4110}));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ALetOfANewLineLooksForTheRowFindsNoneAndStores) {
    Script script;
    ScriptLoad(script, {}, 7, 0);
    const auto line = Bound(script.Session(), 7, 0);
    line->Kostenbetrag(12.5f);
    line->Kost(4110);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 0, 0, Single{12.5}, 4110}));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnotherKeyOrAnotherInitDoesNotLoadAgain) {
    Script script;
    Script other;
    ScriptLoad(script);
    const auto line = Bound(script.Session());
    EXPECT_EQ(line->Kost(), 4110);
    line->KostenID(5);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 5, 3, Single{120.5}, 4110}));
    line->Init(8, 6, other.Session());
    EXPECT_EQ(ValuesOf(*line), (Values{8, 6, 3, Single{120.5}, 4110}));
    EXPECT_EQ(script.Report() + other.Report(), "");
}

TEST(clsTeilnehmerKosten, ARowThatIsTooShortRaisesAndIsTriedAgain) {
    Script script;
    script.OpenSelect(SelectLine(7, 2)).Rows({"TeilnehmerID", "KostenID", "KostenArtID", "Kostenbetrag"}, {{7, 2, 3, Single{120.5}}});
    ScriptLoad(script);
    const auto line = Bound(script.Session());
    EXPECT_RAISES_UNDER(9, Labels{kLabelOfALoad}, line->Kost());
    EXPECT_EQ(line->Kost(), 4110);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, WithoutASessionEverythingButTheKeysRaises91) {
    const struct {
        const char* name;
        Int32 key;
        void (*run)(clsTeilnehmerKosten&);
        Labels labels;
    } cases[] = {
        {"get KostenArtID", 2, [](clsTeilnehmerKosten& l) { l.KostenArtID(); }, {kLabelOfALoad}},
        {"get Kostenbetrag", 2, [](clsTeilnehmerKosten& l) { l.Kostenbetrag(); }, {kLabelOfALoad}},
        {"get Kost", 2, [](clsTeilnehmerKosten& l) { l.Kost(); }, {kLabelOfALoad}},
        {"let KostenArtID", 2, [](clsTeilnehmerKosten& l) { l.KostenArtID(1); }, {kLabelOfALoad}},
        {"let Kostenbetrag", 2, [](clsTeilnehmerKosten& l) { l.Kostenbetrag(1); }, {kLabelOfALoad}},
        {"let Kost", 2, [](clsTeilnehmerKosten& l) { l.Kost(1); }, {kLabelOfALoad}},
        {"update", 2, [](clsTeilnehmerKosten& l) { l.WriteToDatabase(); }, {kLabelOfALoad, kLabelOfAWrite}},
        {"insert", 0, [](clsTeilnehmerKosten& l) { l.WriteToDatabase(); }, {kLabelOfAWrite}},
        {"delete", 2, [](clsTeilnehmerKosten& l) { l.DeleteFromDatabase(); }, {kLabelOfADelete}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto line = Bound(nullptr, 7, c.key);
        EXPECT_RAISES_UNDER(91, c.labels, c.run(*line));
    }
}

void ScriptList(Script& script, const std::vector<Values>& rows, int participant = 7) {
    script.OpenSelect(SelectLines(participant)).Rows(kColumns, rows);
    script.CloseRows();
}

Ref<colTeilnehmerKosten> Listed(const Ref<DataSession>& session, Int32 participant = 7) {
    auto list = New<colTeilnehmerKosten>();
    EXPECT_EQ(list->Init(participant, session), Variant(true));
    return list;
}

std::vector<Int32> LinesOf(const Ref<colTeilnehmerKosten>& list) {
    std::vector<Int32> lines;
    for (const auto& line : list->NewEnum()) lines.push_back(line->KostenID());
    return lines;
}

TEST(colTeilnehmerKosten, ListsAndLoadsTheLinesInTheOrderOfTheServerWithOneStatement) {
    Script script;
    script
        .OpenSelect(
            "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT Where TeilnehmerID "
            "= 7")
        .Rows({"TeilnehmerID", "KostenID", "KostenArtID", "Kostenbetrag", "Kost"},
              {{7, 3, 1, Single{55}, 9400}, kLine, {7, 1, kNull, kNull, kNull}});
    script.CloseRows();
    colTeilnehmerKosten list;
    EXPECT_EQ(list.Init(7, script.Session()), Variant(true));
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(ValuesOf(*list.Item(1)), (Values{7, 3, 1, Single{55}, 9400}));
    EXPECT_EQ(ValuesOf(*list.Item(2)), kLine);
    EXPECT_EQ(ValuesOf(*list.Item(3)), (Values{7, 1, 0, Single{0}, 0}));
    list.Item(3)->Kost(1);
    EXPECT_EQ(list.Item(3)->Kost(), 1);
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, ALineBelongsToTheParticipantOfItsRowAndANullKeyIs0) {
    Script script;
    ScriptList(script, {{8, 4, 1, Single{1}, 1}, {kNull, kNull, 1, Single{2}, 2}});
    const auto list = Listed(script.Session());
    EXPECT_EQ(ValuesOf(*list->Item("4")), (Values{8, 4, 1, Single{1}, 1}));
    EXPECT_EQ(ValuesOf(*list->Item("0")), (Values{0, 0, 1, Single{2}, 2}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, ARefusedListRaises9999AndKeepsSessionAndParticipant) {
    Script script;
    script.OpenSelect(SelectLines(7)).Refused("Ungültiger Objektname 'Sem_Teilnehmer_Kosten_IT'.");
    ScriptLoad(script);
    colTeilnehmerKosten list;
    const auto error = RaisedBy([&] { return list.Init(7, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nUngültiger Objektname 'Sem_Teilnehmer_Kosten_IT'. in "
              "LumoSeminar.LoadKeysFromDataBase in LumoSeminar.Init");
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(ValuesOf(*list.Add(2)), kLine);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, ASecondInitAddsTheLinesOfTheOtherParticipant) {
    Script script;
    ScriptList(script, {kLine});
    ScriptList(script, {{8, 1, 1, Single{1}, 1}}, 8);
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Init(8, script.Session()), Variant(true));
    EXPECT_EQ(LinesOf(list), (std::vector<Int32>{2, 1}));
    EXPECT_EQ(list->Add(5)->TeilnehmerID(), 8);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, AddBindsAndFilesALineThatLoadsAtItsFirstAccess) {
    Script script;
    ScriptList(script, {});
    ScriptLoad(script);
    const auto list = Listed(script.Session());
    const auto line = list->Add(2);
    EXPECT_EQ(list->Item("2"), line);
    EXPECT_EQ(list->Item(1), line);
    EXPECT_EQ(ValuesOf(*line), kLine);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, ASecondNewLineRaises457AlsoWhereTheFirstHasBeenWritten) {
    Script script;
    ScriptList(script, {kLine});
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(1);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =7").Gives(2);
    script.ExecuteSql(InsertLine("7,3,1,NULL,0"));
    const auto list = Listed(script.Session());
    const auto line = list->Add(0);
    const auto expect_collision = [&] { EXPECT_RAISES_UNDER(457, Labels{}, list->Add(0)) << "Add has no label"; };
    expect_collision();
    EXPECT_EQ(line->WriteToDatabase(), true);
    expect_collision();
    EXPECT_EQ(LinesOf(list), (std::vector<Int32>{2, 3}));
    EXPECT_EQ(list->Item("0"), line) << "it keeps the key it was filed under";
    EXPECT_FALSE(list->Item("3"));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, RemoveLeavesTheRowAndDeleteFromDatabaseTheEntry) {
    Script script;
    ScriptList(script, {{7, 1, 1, Single{1}, 1}, kLine, {7, 3, 1, Single{1}, 1}});
    script.ExecuteSql(DeleteLine(7, 3));
    const auto list = Listed(script.Session());
    list->Remove(1);
    list->Remove("2");
    EXPECT_EQ(LinesOf(list), std::vector<Int32>{3});
    EXPECT_EQ(list->Item(1)->DeleteFromDatabase(), true);
    EXPECT_EQ(LinesOf(list), std::vector<Int32>{3});
    EXPECT_EQ(script.Report(), "");
}

TEST(colTeilnehmerKosten, ALineOutlivesItsListAndBothLetGoOfTheSession) {
    Script script;
    ScriptList(script, {kLine});
    script.ExecuteSql(DeleteLine(7, 2));
    auto list = Listed(script.Session());
    auto line = list->Item(1);
    list.Reset();
    EXPECT_EQ(line->DeleteFromDatabase(), true);
    EXPECT_FALSE(script.SessionReleased());
    line.Reset();
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
