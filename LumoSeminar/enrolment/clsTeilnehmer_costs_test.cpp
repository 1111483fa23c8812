#include <gtest/gtest.h>

#include <limits>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <test_support/cost_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using LumoConnection::Script;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace costs = cost_statements;

using clsTeilnehmerTest = ParticipantTest;

constexpr Int32 kUserID = 11;

/// The load of a line that is not stored yet.
void ScriptNewLine(Script& script, int participant = 7) {
    script.OpenSelect(costs::SelectLine(participant, 0)).Rows(costs::kColumns, {});
    script.CloseRows();
}

const std::vector<costs::Values> kTwoLines = {costs::kLine, {7, 3, 1, Single{55.25}, 9400}};

// The list of lines.

TEST_F(clsTeilnehmerTest, TheCostLinesAreLinkedWithoutALoadInOneStatementAndKept) {
    Script script;
    script.AdoConnection();
    ScriptCosts(script, 7, kTwoLines);
    script.AdoConnection();
    const auto record = Bound(script.Session());
    const auto list = record->objKosten();
    EXPECT_EQ(list->Count(), 2);
    record->TeilnehmerID(8);
    EXPECT_TRUE(record->objKosten() == list);
    EXPECT_EQ(record->Init(9, script.Session()), true);
    EXPECT_TRUE(record->objKosten() == list);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, CostLinesSetFromOutsideAreKeptAndThoseSetToNothingAreReadAnew) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    const auto list = New<colTeilnehmerKosten>();
    record->objKosten(list);
    EXPECT_TRUE(record->objKosten() == list);
    EXPECT_EQ(script.Report(), "");
    record->objKosten(nullptr);
    ScriptCosts(script, 7, kTwoLines);
    EXPECT_EQ(record->objKosten()->Count(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ReadingTheCostLinesFailsWithLabelsInTheLine) {
    const Labels labels = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init", " in LumoSeminar.objKosten"};
    ExpectRecordFailures([](Script& script) { ScriptCosts(script, 7, kTwoLines); },
                         [](clsTeilnehmer& record) { record.objKosten(); },
                         {{1, kNotOk, 9999, labels}, {1, kRaises, 7001, labels}, {2, kRaises, 7001, labels}});
    Script script;
    script.AdoConnection();
    script.OpenSelect(costs::SelectLines(7)).Refused("time-out");
    const auto error = RaisedBy([&] { return Bound(script.Session())->objKosten(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nin line: 0\r\ntime-out in LumoSeminar.LoadKeysFromDataBase in LumoSeminar.Init in "
              "LumoSeminar.objKosten");
}

// The cost centre.

TEST_F(clsTeilnehmerTest, KostIsThatOfTheFirstLineAndZeroWithoutOne) {
    Script script;
    ScriptRecord(script);
    ScriptCosts(script, 7, kTwoLines);
    ScriptRecord(script, {FullRow()}, 8);
    ScriptCosts(script, 8);
    const auto record = Bound(script.Session());
    for (int i = 0; i < 2; ++i) EXPECT_EQ(record->Kost(), 4110);
    EXPECT_EQ(Bound(script.Session(), 8)->Kost(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, KostIsLetOnAllLinesWithoutALoad) {
    Script script;
    script.AdoConnection();
    ScriptCosts(script, 7, {costs::kLine, {7, 3, 1, Single{55.25}, 9400}, {7, 4, 1, Single{1}, 0}});
    const auto record = Bound(script.Session());
    record->Kost(7100);
    for (Int32 line = 1; line <= 3; ++line) EXPECT_EQ(record->objKosten()->Item(line)->Kost(), 7100);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, KostIsLetOnALineThatIsAddedWhereThereIsNone) {
    Script script;
    script.AdoConnection();
    ScriptCosts(script, 0);
    ScriptNewLine(script, 0);
    const auto record = Bound(script.Session(), 0);
    record->Kost(7100);
    ASSERT_EQ(record->objKosten()->Count(), 1);
    EXPECT_EQ(costs::ValuesOf(*record->objKosten()->Item("0")), (costs::Values{0, 0, 0, Single{0}, 7100}));
    record->Kost(7200);
    EXPECT_EQ(record->objKosten()->Count(), 1);
    EXPECT_EQ(record->objKosten()->Item(1)->Kost(), 7200);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, LettingKostFailsAsDocumentedAtEachStep) {
    const std::string let = kLabel + "Kost -> Property LET";
    const Labels list = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init", " in LumoSeminar.objKosten", let};
    const Labels line = {" in LumoSeminar.IsInitialized", let};
    ExpectRecordFailures(
        [](Script& script) {
            ScriptCosts(script, 7);
            ScriptNewLine(script);
        },
        [](clsTeilnehmer& record) { record.Kost(7100); },
        {{1, kNotOk, 9999, list},
         {3, kNotOk, 9999, line},
         {1, kRaises, 7001, list},
         {2, kRaises, 7001, list},
         {3, kRaises, 7001, line},
         {4, kRaises, 7001, line}});
}

// What the enrolment costs.

std::vector<Variant> RowWith(Int16 enrolment, Int16 cancellation_costs) {
    auto row = FullRow();
    row[7] = enrolment;
    row[15] = cancellation_costs;
    return row;
}

TEST_F(clsTeilnehmerTest, AnEnrolmentCostsTheSumOfItsLines) {
    for (const Int16 enrolment : {Int16{-1}, Int16{2}}) {
        const struct {
            std::vector<costs::Values> lines;
            Single sum;
        } cases[] = {{{}, 0},
                     {{costs::kLine}, 120.5f},
                     {kTwoLines, 175.75f},
                     {{costs::kLine, {7, 3, 1, Single{-120.5}, 1}, {7, 4, 1, Variant::Null(), 1}}, 0}};
        for (const auto& c : cases) {
            Script script;
            ScriptRecord(script, {RowWith(enrolment, 250)});
            ScriptCosts(script, 7, c.lines);
            const auto record = Bound(script.Session());
            for (int i = 0; i < 2; ++i) EXPECT_EQ(record->TeilnehmerKosten(), c.sum);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsTeilnehmerTest, ACancelledEnrolmentCostsStornoKostenEvenWithCostLines) {
    Script script;
    ScriptRecord(script, {RowWith(0, -250)});
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->TeilnehmerKosten(), -250.0f);
    EXPECT_EQ(script.Report(), "") << "the lines are not read";
    ScriptCosts(script, 7, kTwoLines);
    record->Teilnahme(-1);
    EXPECT_EQ(record->TeilnehmerKosten(), 175.75f);
    record->Teilnahme(0);
    EXPECT_EQ(record->TeilnehmerKosten(), -250.0f);
    EXPECT_EQ(record->objKosten()->Count(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, TheCostsOfAnEnrolmentGoToALineThatIsAddedOrToTheOnlyLineAndNowhereWithSeveral) {
    for (const std::size_t lines : {0u, 1u, 2u}) {
        SCOPED_TRACE(lines);
        Script script;
        ScriptRecord(script, {RowWith(-1, 250)});
        ScriptCosts(script, 7, {kTwoLines.begin(), kTwoLines.begin() + static_cast<std::ptrdiff_t>(lines)});
        if (lines == 0) ScriptNewLine(script);
        const auto record = Bound(script.Session());
        record->TeilnehmerKosten(12.6f);
        ASSERT_EQ(record->objKosten()->Count(), lines == 2 ? 2 : 1);
        EXPECT_EQ(record->objKosten()->Item(1)->Kostenbetrag(), lines == 2 ? 120.5f : 12.6f);
        EXPECT_EQ(record->TeilnehmerKosten(), lines == 2 ? 175.75f : 12.6f);
        EXPECT_EQ(record->StornoKosten(), 250);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, TheCostsOfACancelledEnrolmentAreRoundedHalvesToEven) {
    const struct {
        Single value;
        Int16 stored;
    } cases[] = {{12.6f, 13}, {12.4f, 12}, {12.5f, 12},       {13.5f, 14},        {-12.5f, -12},
                 {-0.5f, 0},  {0, 0},      {32767.4f, 32767}, {-32768.5f, -32768}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        Script script;
        ScriptRecord(script, {RowWith(0, 250)});
        const auto record = Bound(script.Session());
        record->TeilnehmerKosten(c.value);
        EXPECT_EQ(record->StornoKosten(), c.stored);
        EXPECT_EQ(record->TeilnehmerKosten(), static_cast<Single>(c.stored));
        EXPECT_EQ(script.Report(), "") << "no line is read or added";
    }
}

TEST_F(clsTeilnehmerTest, CostsThatDoNotFitRaise6WithALabelInTheLine) {
    constexpr Single kMost = std::numeric_limits<Single>::max();
    for (const Single value : {32767.5f, -32769.0f, kMost}) {
        Script script;
        ScriptRecord(script, {RowWith(0, 250)});
        const auto record = Bound(script.Session());
        const auto error = RaisedBy([&] { return record->TeilnehmerKosten(value), 0; });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 6);
        EXPECT_EQ(error->Description(),
                  "in line: 0\r\nOverflow: the value does not fit the type. in LumoSeminar.TeilnehmerKosten");
        EXPECT_EQ(record->StornoKosten(), 250);
        EXPECT_EQ(script.Report(), "");
    }
    Script script;
    ScriptRecord(script, {RowWith(-1, 250)});
    ScriptCosts(script, 7, {{7, 1, 1, kMost, 1}, {7, 2, 1, kMost, 1}});
    EXPECT_RAISES_UNDER(6, Labels{" in LumoSeminar.TeilnehmerKosten"}, Bound(script.Session())->TeilnehmerKosten());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, TheCostsFailAsDocumentedAtEachStep) {
    const std::string own = " in LumoSeminar.TeilnehmerKosten";
    const Labels list = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init", " in LumoSeminar.objKosten", own};
    const Labels line = {" in LumoSeminar.IsInitialized", own};
    ExpectRecordFailures(
        [](Script& script) {
            script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
            ScriptCosts(script, 7);
            ScriptNewLine(script);
        },
        [](clsTeilnehmer& record) { record.TeilnehmerKosten(12.6f); },
        // A record that could not be read is not enrolled.
        {{1, kNotOk},
         {2, kNotOk, 9999, list},
         {4, kNotOk, 9999, line},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", own}},
         {2, kRaises, 7001, list},
         {3, kRaises, 7001, list},
         {4, kRaises, 7001, line},
         {5, kRaises, 7001, line}});
}

// Lines behind a written record.

TEST_F(clsTeilnehmerTest, EachCostLineIsWrittenBehindTheRecord) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(Update(kFullAssignments));
    ScriptCosts(script, 7, {costs::kLine, {8, 3, 1, Single{55}, 9400}, kLineOfNobody});
    script.ExecuteSql(costs::UpdateLine(7, 2, 4110, "3", "120.5"));
    script.ExecuteSql(costs::UpdateLine(8, 3, 9400, "1", "55"));
    script.ExecuteSql(costs::UpdateLine(7, 4, 4110, "3", "120.5"));
    EXPECT_EQ(Bound(script.Session())->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "") << "a line of another participant stays with it, one of nobody gets this one";
}

TEST_F(clsTeilnehmerTest, LinesAddedToANewRecordGetItsKeyBeforeTheyAreWritten) {
    Script script;
    ScriptNew(script);
    ScriptCosts(script, 0);
    ScriptNewLine(script, 0);
    ScriptDate(script);
    script.OpenSelect(Insert(kNewValues));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(42);
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(1);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =42");
    script.ExecuteSql(costs::InsertLine("42,1,1,99.5,4110"));
    const auto record = NewOfDate(script.Session());
    const auto line = record->objKosten()->Add(0);
    line->Kostenbetrag(99.5f);
    line->Kost(4110);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(line->TeilnehmerID(), 42);
    EXPECT_EQ(line->KostenID(), 1);
    EXPECT_EQ(record->objKosten()->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, TheLinesOfAListThatWasSetAreWritten) {
    Script script;
    ScriptCosts(script, 0, {kLineOfNobody});
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(Update(kFullAssignments));
    script.ExecuteSql(costs::UpdateLine(7, 4, 4110, "3", "120.5"));
    const auto list = New<colTeilnehmerKosten>();
    list->Init(0, script.Session());
    const auto record = Bound(script.Session());
    record->objKosten(list);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(list->Item(1)->TeilnehmerID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ALineThatIsRefusedRaises9999AndLeavesTheRecordWrittenAndTheLinesBehindItNot) {
    Script script;
    ScriptNew(script);
    ScriptDate(script);
    script.OpenSelect(Insert(kNewValues));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(42);
    ScriptCosts(script, 42, {kLineOfNobody, {Variant::Null(), 5, 1, Single{55}, 9400}});
    script.ExecuteSql(costs::UpdateLine(42, 4, 4110, "3", "120.5")).Refused("Die Tabelle ist gesperrt: \"Kosten\".");
    const auto record = NewOfDate(script.Session());
    const auto error = RaisedBy([&] { return record->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nDie Tabelle ist gesperrt: \"Kosten\". in LumoSeminar.WriteToDatabase\r\n "
              "LumoSeminar062.clsTeilnehmer.WriteToDatabase");
    EXPECT_EQ(record->Key(), "0000000042");
    EXPECT_EQ(record->objKosten()->Item(1)->TeilnehmerID(), 42);
    EXPECT_EQ(record->objKosten()->Item(2)->TeilnehmerID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AListOfCostsThatIsRefusedRaises9999BehindAWrittenRecord) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(Update(kFullAssignments));
    script.OpenSelect(costs::SelectLines(7)).Refused("time-out");
    const auto error = RaisedBy([&] { return Bound(script.Session())->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nin line: 0\r\ntime-out in LumoSeminar.LoadKeysFromDataBase in LumoSeminar.Init in "
              "LumoSeminar.objKosten\r\n LumoSeminar062.clsTeilnehmer.WriteToDatabase");
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
