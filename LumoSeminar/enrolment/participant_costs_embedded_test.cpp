#include <gtest/gtest.h>

#include <LumoSeminar/enrolment/participant_costs.h>
#include <test_support/comma_locale.h>
#include <test_support/cost_statements.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using cost_statements::Bound;
using cost_statements::Values;
using cost_statements::ValuesOf;
using test_support::CommaLocale;
using test_support::RaisedBy;
using test_support::Rows;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Value;
using test_support::Write;

const Variant kNull = Variant::Null();

/// Participant 100 with two lines, and three cost types.
Ref<DataSession> SmallDatabase() {
    const auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (1, N'Teilnehmerkosten'), "
          "(2, N'Übernachtung \"Eifel\"'), (3, N'Reisekosten')");
    Write(*session,
          "INSERT INTO Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID, KostenArtID, Kostenbetrag, Kost) VALUES "
          "(100, 1, 1, 189.95, 7300), (100, 2, 2, 61.2, 7300)");
    return session;
}

Ref<colTeilnehmerKosten> Listed(const Ref<DataSession>& session, Int32 participant) {
    auto list = New<colTeilnehmerKosten>();
    EXPECT_EQ(list->Init(participant, session), Variant(true)) << session->LastErrorText();
    return list;
}

std::vector<Values> LinesOf(const Ref<colTeilnehmerKosten>& list) {
    std::vector<Values> lines;
    for (const auto& line : list->NewEnum()) lines.push_back(ValuesOf(*line));
    return lines;
}

Rows CostTypes(DataSession& session) {
    return Select(session, "SELECT KostenArten_ID, KostenArten FROM sysIData_KostenArten ORDER BY KostenArten_ID");
}

Rows StoredLines(DataSession& session) {
    return Select(session, "SELECT * FROM Sem_Teilnehmer_Kosten_IT ORDER BY TeilnehmerID, KostenID");
}

TEST(CostsForReal, ANewLineIsWrittenChangedAndReadBack) {
    const auto session = SchemaDatabase();
    const auto line = Bound(session, 7, 0);
    line->KostenArtID(2);
    line->Kostenbetrag(189.95f);
    line->Kost(4110);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->KostenID(), 1);
    EXPECT_EQ(ValuesOf(*Bound(session, 7, 1)), (Values{7, 1, 2, Single{189.95f}, 4110}));
    EXPECT_EQ(StoredLines(*session), (Rows{{7, 1, 2, Single{189.95f}, 4110}}));

    line->Kostenbetrag(-0.05f);
    line->KostenArtID(3);
    line->Kost(0);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(StoredLines(*session), (Rows{{7, 1, 3, Single{-0.05f}, 0}}));
    EXPECT_EQ(ValuesOf(*Bound(session, 7, 1)), (Values{7, 1, 3, Single{-0.05f}, 0}));
}

TEST(CostsForReal, TheFirstInsertMakesTheCostTypeWithTheKey1AndTheNextUsesIt) {
    const auto session = SchemaDatabase();
    for (const Int32 participant : {7, 8}) EXPECT_EQ(Bound(session, participant, 0)->WriteToDatabase(), true);
    EXPECT_EQ(CostTypes(*session), (Rows{{1, "Teilnehmerkosten"}}));
    EXPECT_EQ(StoredLines(*session), (Rows{{7, 1, 1, kNull, 0}, {8, 1, 1, kNull, 0}}));
}

TEST(CostsForReal, TheCostTypeIsMadeBehindTheOthersUpToKey100) {
    for (const Int32 highest : {-5, 7, 99}) {
        const auto session = SchemaDatabase();
        Write(*session, "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (-9, N'Übernachtung \"Eifel\"'), (" +
                            std::to_string(highest) + ", N'Verpflegung für O''Neill')");
        EXPECT_EQ(Bound(session, 7, 0)->WriteToDatabase(), true);
        EXPECT_EQ(
            CostTypes(*session),
            (Rows{{-9, "Übernachtung \"Eifel\""}, {highest, "Verpflegung für O'Neill"}, {highest + 1, "Teilnehmerkosten"}}));
        EXPECT_EQ(StoredLines(*session), (Rows{{7, 1, highest + 1, kNull, 0}}));
    }
}

TEST(CostsForReal, BehindKey100NoCostTypeIsMadeAndNoLineIsWritten) {
    for (const Int32 highest : {100, 101, 2147483647}) {
        const auto session = SchemaDatabase();
        Write(*session, "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (1, N'Reisekosten'), (" +
                            std::to_string(highest) + ", N'Prüfungsgebühr')");
        const auto line = Bound(session, 7, 0);
        line->KostenArtID(1);
        const auto error = RaisedBy([&] { return line->WriteToDatabase(); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 94);
        EXPECT_EQ(ReadDescription(error->Description()).labels, (std::vector<std::string>{" in LumoSeminar.WriteToDatabase"}));
        EXPECT_EQ(line->KostenID(), 0);
        EXPECT_EQ(StoredLines(*session), Rows{});
        EXPECT_EQ(CostTypes(*session).size(), 2u);

        Write(*session, "UPDATE sysIData_KostenArten SET KostenArten = 'TEILNEHMERKOSTEN' WHERE KostenArten_ID = " +
                            std::to_string(highest));
        EXPECT_EQ(line->WriteToDatabase(), true) << "one that is there is found, in capitals as well";
        line->KostenID(0);
        line->KostenArtID(0);
        EXPECT_EQ(line->WriteToDatabase(), true);
        EXPECT_EQ(StoredLines(*session), (Rows{{7, 1, 1, kNull, 0}, {7, 2, highest, kNull, 0}}));
    }
}

TEST(CostsForReal, KostenIDCountsWithinAParticipantBehindTheLargest) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID) VALUES (7, 1), (7, 40), (8, 2), (-9, -3)");
    const struct {
        Int32 participant;
        Int32 line;
    } cases[] = {{7, 41}, {8, 3}, {9, 1}, {0, 1}, {7, 42}};
    for (const auto& c : cases) {
        const auto line = Bound(session, c.participant, 0);
        EXPECT_EQ(line->WriteToDatabase(), true) << session->LastErrorText();
        EXPECT_EQ(line->KostenID(), c.line) << c.participant;
    }
}

TEST(CostsForReal, BehindTheLargestNegativeKeyComesOneThatIsNoLineYet) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID) VALUES (7, -1)");
    const auto line = Bound(session, 7, 0);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->KostenID(), 0);
    EXPECT_EQ(line->WriteToDatabase(), true) << "the second write is an insert as well";
    EXPECT_EQ(line->KostenID(), 1);
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT"), Variant(3));
}

TEST(CostsForReal, KeysAtTheEdgesOfTheRange) {
    const auto session = SchemaDatabase();
    for (const Int32 key : {2147483647, -2147483647 - 1}) {
        Write(*session, "INSERT INTO Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID) VALUES (" + std::to_string(key) +
                            ", " + std::to_string(key) + ")");
        const auto line = Bound(session, key, key);
        line->KostenArtID(key);
        line->Kost(key);
        EXPECT_EQ(line->WriteToDatabase(), true);
        EXPECT_EQ(LinesOf(Listed(session, key)), (std::vector<Values>{{key, key, key, Single{0}, key}}));
    }
    EXPECT_RAISES(6, Bound(session, 2147483647, 0)->WriteToDatabase());
}

void ExpectAmountsComeBack() {
    const auto session = SchemaDatabase();
    for (const Single amount : {0.05f, 0.1f, 12.5f, -99.99f, 1234.56f, 9999999.0f, 1e7f, 1.25e-8f, 1.5e30f}) {
        const auto line = Bound(session, 7, 0);
        line->Kostenbetrag(amount);
        EXPECT_EQ(line->WriteToDatabase(), true) << session->LastErrorText();
        EXPECT_EQ(Bound(session, 7, line->KostenID())->Kostenbetrag(), amount);
        line->Kostenbetrag(-amount);
        EXPECT_EQ(line->WriteToDatabase(), true) << session->LastErrorText();
        EXPECT_EQ(Bound(session, 7, line->KostenID())->Kostenbetrag(), -amount);
    }
    const auto third = Bound(session, 7, 0);
    third->Kostenbetrag(1.0f / 3);
    EXPECT_EQ(third->WriteToDatabase(), true);
    EXPECT_EQ(Bound(session, 7, third->KostenID())->Kostenbetrag(), 0.3333333f) << "seven digits are sent";
}

TEST(CostsForReal, AmountsComeBackAsTheyWereLet) { ExpectAmountsComeBack(); }

TEST(CostsForReal, AmountsComeBackUnderADecimalCommaToo) {
    const CommaLocale comma;
    ExpectAmountsComeBack();
}

TEST(CostsForReal, AnAmountOf0IsStoredAsNullAndSoIsACostTypeOf0ByAnUpdate) {
    const auto session = SmallDatabase();
    const auto line = Bound(session, 100, 2);
    EXPECT_EQ(line->Kostenbetrag(), 61.2f);
    line->Kostenbetrag(0);
    line->KostenArtID(0);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(LinesOf(Listed(session, 100)),
              (std::vector<Values>{{100, 1, 1, Single{189.95f}, 7300}, {100, 2, 0, Single{0}, 7300}}));
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT WHERE KostenArtID IS NULL AND Kostenbetrag IS NULL"),
              Variant(1));
}

TEST(CostsForReal, TheSecondWriteOfALineThatWasLetTakesTheDefaultCostTypeAwayAgain) {
    const auto session = SmallDatabase();
    const auto let = Bound(session, 1, 0);
    let->Kostenbetrag(30);
    const auto unlet = Bound(session, 2, 0);
    for (const Int32 stored : {1, 0}) {
        EXPECT_EQ(let->WriteToDatabase(), true);
        EXPECT_EQ(unlet->WriteToDatabase(), true);
        EXPECT_EQ(Bound(session, 1, 1)->KostenArtID(), stored);
        EXPECT_EQ(Bound(session, 2, 1)->KostenArtID(), 1) << "an update that has to load keeps what is stored";
    }
}

TEST(CostsForReal, AnUpdateOfALineWhoseRowIsGoneIsTrueAndWritesNothing) {
    const auto session = SmallDatabase();
    const Rows before = StoredLines(*session);
    const auto line = Bound(session, 100, 3);
    line->Kostenbetrag(5);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(StoredLines(*session), before);
}

TEST(CostsForReal, TheLinesOfTheSampleAreListedAsTheyStand) {
    const auto session = SampleDatabase();
    std::size_t listed = 0;
    for (const auto& participant : Select(*session, "SELECT DISTINCT TeilnehmerID FROM Sem_Teilnehmer_Kosten_IT")) {
        const auto key = To<Int32>(participant[0]);
        const auto lines = LinesOf(Listed(session, key));
        EXPECT_EQ(lines,
                  Select(*session, "SELECT * FROM Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = " + std::to_string(key)));
        listed += lines.size();
    }
    EXPECT_EQ(Variant(static_cast<Int32>(listed)), Value(*session, "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT"));
    EXPECT_GT(listed, 300u);
    EXPECT_EQ(Listed(session, -1)->Count(), 0);
}

TEST(CostsForReal, ANewLineOfAListIsWrittenAndListedUnderItsKeyTheNextTime) {
    const auto session = SmallDatabase();
    const auto list = Listed(session, 100);
    const auto line = list->Add(0);
    line->KostenArtID(3);
    line->Kostenbetrag(74.5f);
    line->Kost(9100);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->KostenID(), 3);
    EXPECT_RAISES(457, list->Add(0));
    const auto next = Listed(session, 100);
    EXPECT_EQ(next->Count(), 3);
    EXPECT_EQ(ValuesOf(*next->Item("3")), (Values{100, 3, 3, Single{74.5}, 9100}));
}

TEST(CostsForReal, RemoveLeavesTheRowAndDeleteFromDatabaseTheEntry) {
    const auto session = SmallDatabase();
    const auto list = Listed(session, 100);
    list->Remove("1");
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(Listed(session, 100)->Count(), 2);
    const auto line = list->Item("2");
    EXPECT_EQ(line->DeleteFromDatabase(), true);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(LinesOf(Listed(session, 100)), (std::vector<Values>{{100, 1, 1, Single{189.95f}, 7300}}));
    EXPECT_EQ(line->DeleteFromDatabase(), true) << "no row is no refusal";
}

TEST(CostsForReal, WithoutTheTableEverythingRaises9999WithTheTextOfTheDatabase) {
    const auto session = SmallDatabase();
    Write(*session, "DROP TABLE Sem_Teilnehmer_Kosten_IT");
    const auto error = RaisedBy([&] { return Bound(session, 100, 1)->Kost(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\n" + session->LastErrorText() + " in LumoSeminar.IsInitialized");
    EXPECT_NE(error->Description().find("Sem_Teilnehmer_Kosten_IT"), Text::npos) << error->Description();
    EXPECT_RAISES(9999, Bound(session, 100, 1)->WriteToDatabase());
    EXPECT_RAISES(9999, Bound(session, 100, 0)->WriteToDatabase());
    EXPECT_RAISES(9999, Bound(session, 100, 1)->DeleteFromDatabase());
    EXPECT_RAISES(9999, colTeilnehmerKosten().Init(100, session));
}

TEST(CostsForReal, WithoutTheTableOfCostTypesALineIsUpdatedButNotInserted) {
    const auto session = SmallDatabase();
    Write(*session, "DROP TABLE sysIData_KostenArten");
    EXPECT_EQ(Bound(session, 100, 1)->WriteToDatabase(), true);
    const auto line = Bound(session, 100, 0);
    const auto error = RaisedBy([&] { return line->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_NE(error->Description().find("sysIData_KostenArten"), Text::npos) << error->Description();
    EXPECT_EQ(line->KostenID(), 0);
}

}  // namespace
}  // namespace LumoSeminar
