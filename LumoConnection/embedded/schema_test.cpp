#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <vector>

#include <LumoConnection/tables/create_tables.h>
#include <LumoConnection/tables/sample_year.h>
#include <test_support/embedded.h>
#include <test_support/places.h>

// The files of the schema folder: the tables that are there, and a sample company that one can believe.
namespace LumoConnection {
namespace {

using std::chrono::days;
using std::chrono::local_days;

Int32 Number(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << sql << "\n" << session.LastErrorText();
    const auto rows = session.Recordset();
    return rows && !rows->Eof() ? To<Int32>(rows->Fields().Item(Int16{0}).Value()) : -1;
}

// A rule of the sample: the query counts the rows that break it.
struct Rule {
    const char* name;
    const char* broken;
};

constexpr Rule kRules[] = {
    {"each participant has a date",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE NOT SemTerminID IN (SELECT SemTerminID FROM Sem_Termin_IT)"},
    {"each participant is one person of one kind",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE CASE WHEN ANNr IS NULL THEN 0 ELSE 1 END + CASE WHEN BWID IS "
     "NULL THEN 0 ELSE 1 END + CASE WHEN LAID IS NULL THEN 0 ELSE 1 END <> 1"},
    {"each participating employee is there",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT LEFT OUTER JOIN arbeitnehmer ON Sem_Teilnehmer_IT.MDNr = "
     "arbeitnehmer.MDNR AND Sem_Teilnehmer_IT.ANNr = arbeitnehmer.ANNR WHERE NOT Sem_Teilnehmer_IT.ANNr IS NULL AND "
     "arbeitnehmer.ANNR IS NULL"},
    {"each participating applicant is there",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE NOT BWID IS NULL AND NOT BWID IN (SELECT BWID FROM BW)"},
    {"each participating temporary worker is there",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE NOT LAID IS NULL AND NOT LAID IN (SELECT LID FROM LA)"},
    {"nobody is on a date of the other client",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS p INNER JOIN Sem_Termin_IT AS t ON p.SemTerminID = t.SemTerminID "
     "WHERE t.MDNr <> -1 AND t.MDNr <> p.MDNr"},
    {"nobody is enrolled twice on a date",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS a INNER JOIN Sem_Teilnehmer_IT AS b ON a.SemTerminID = "
     "b.SemTerminID AND a.TeilnehmerID < b.TeilnehmerID WHERE ISNULL(a.ANNr, 0) = ISNULL(b.ANNr, 0) AND a.MDNr = "
     "b.MDNr AND ISNULL(a.BWID, 0) = ISNULL(b.BWID, 0) AND ISNULL(a.LAID, 0) = ISNULL(b.LAID, 0)"},
    {"no employee is in two places at once",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS a INNER JOIN Sem_Teilnehmer_IT AS b ON a.MDNr = b.MDNr AND a.ANNr = "
     "b.ANNr AND a.TeilnehmerID < b.TeilnehmerID INNER JOIN Sem_Termin_Termine_IT AS x ON x.SemTerminID = "
     "a.SemTerminID INNER JOIN Sem_Termin_Termine_IT AS y ON y.SemTerminID = b.SemTerminID AND y.Termin = x.Termin "
     "WHERE a.Teilnahme <> 0 AND b.Teilnahme <> 0 AND x.BegUhr < y.EndUhr AND y.BegUhr < x.EndUhr"},
    {"a participant attends on the days of the date",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS p INNER JOIN Sem_Termin_IT AS t ON p.SemTerminID = t.SemTerminID "
     "WHERE p.BeginnDatum IS NULL OR p.EndeDatum IS NULL OR p.BeginnDatum < t.BeginnDatum OR p.EndeDatum > "
     "t.EndeDatum OR p.BegUhrzeit <> t.BeginnUhrzeit OR p.EndUhrzeit <> t.EndeUhrzeit"},
    {"an enrolment comes before the date",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE ErfDatum IS NULL OR ErfDatum > BeginnDatum"},
    {"the cancelled have a day and a reason, the others none",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE Teilnahme = 0 AND (storniertam IS NULL OR storniertam < ErfDatum "
     "OR StornoGrund = 0) OR Teilnahme <> 0 AND (NOT storniertam IS NULL OR StornoGrund <> 0 OR StornoKosten <> 0)"},
    {"nobody attends a date that was called off",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS p INNER JOIN Sem_Termin_IT AS t ON p.SemTerminID = t.SemTerminID "
     "WHERE t.Status = 3 AND p.Teilnahme <> 0"},
    {"each date has a seminar of its client, but for one",
     "SELECT COUNT(*) - 1 FROM Sem_Termin_IT AS t LEFT OUTER JOIN Sem_Katalog_IT AS s ON t.SemID = s.SemID AND "
     "t.MDNr = s.MDNr WHERE s.SemID IS NULL"},
    {"each date has its series",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE NOT SerienID IS NULL AND NOT SerienID IN (SELECT SerienID FROM "
     "Sem_Serien_IT)"},
    {"each date has its organiser",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE VeranstalterID IS NULL OR VeranstalterID <> 0 AND NOT VeranstalterID "
     "IN (SELECT ID FROM sysIData_Veranstalter)"},
    {"each date has its venue",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE NOT VeranstaltungsOrtID IS NULL AND NOT VeranstaltungsOrtID IN "
     "(SELECT ID FROM sysIData_VOrte)"},
    {"each date has its goal and content",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE NOT InhaltZielID IS NULL AND NOT InhaltZielID IN (SELECT "
     "ZielInhaltID FROM Sem_ZielInhalt_IT)"},
    {"somebody looks after each date",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE NOT Sachbearbeiter IS NULL AND NOT Sachbearbeiter IN (SELECT "
     "sachbearbeiterid FROM sysIData_SemSachbearbeiter_IT)"},
    {"the state of a date fits 6 September 2010",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE Status = 4 AND EndeDatum >= Convert(datetime,'06.09.2010',104) OR "
     "Status = 1 AND NOT Convert(datetime,'06.09.2010',104) BETWEEN BeginnDatum AND EndeDatum OR Status = 2 AND "
     "BeginnDatum <= Convert(datetime,'06.09.2010',104)"},
    {"the codes of dates are told apart",
     "SELECT COUNT(*) FROM Sem_Termin_IT AS a INNER JOIN Sem_Termin_IT AS b ON a.Code = b.Code AND a.SemTerminID < "
     "b.SemTerminID"},
    {"limits are in order",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE MinTeil > MaxTeil OR MinTeil > OptTeil OR OptTeil > MaxTeil OR "
     "MinTeil < 1"},
    {"deadlines lie before the date",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE AnmeldefristDatum > BeginnDatum OR StornoDatum > BeginnDatum OR "
     "AbbruchDatum > BeginnDatum"},
    {"a date that is over had enough participants",
     "SELECT COUNT(*) FROM Sem_Termin_IT AS t WHERE Status = 4 AND (SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS p "
     "WHERE p.SemTerminID = t.SemTerminID AND p.Teilnahme <> 0) < t.MinTeil"},
    {"no date but one is overbooked",
     "SELECT COUNT(*) - 1 FROM Sem_Termin_IT AS t WHERE (SELECT COUNT(*) FROM Sem_Teilnehmer_IT AS p WHERE "
     "p.SemTerminID = t.SemTerminID AND p.Teilnahme <> 0) > t.MaxTeil"},
    {"each day has its date",
     "SELECT COUNT(*) FROM Sem_Termin_Termine_IT WHERE NOT SemTerminID IN (SELECT SemTerminID FROM Sem_Termin_IT)"},
    {"a date begins on its first day and ends on its last",
     "SELECT COUNT(*) FROM Sem_Termin_IT AS t WHERE NOT t.BeginnDatum IS NULL AND (t.BeginnDatum <> (SELECT "
     "MIN(Termin) FROM Sem_Termin_Termine_IT AS d WHERE d.SemTerminID = t.SemTerminID) OR t.EndeDatum <> (SELECT "
     "MAX(Termin) FROM Sem_Termin_Termine_IT AS d WHERE d.SemTerminID = t.SemTerminID))"},
    {"a date without a beginning has no end and no days",
     "SELECT COUNT(*) FROM Sem_Termin_IT WHERE BeginnDatum IS NULL AND (NOT EndeDatum IS NULL OR SemTerminID IN "
     "(SELECT SemTerminID FROM Sem_Termin_Termine_IT))"},
    {"each cost line has its participant and its type",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT WHERE NOT TeilnehmerID IN (SELECT TeilnehmerID FROM "
     "Sem_Teilnehmer_IT) OR NOT KostenArtID IN (SELECT KostenArten_ID FROM sysIData_KostenArten)"},
    {"the first cost line is what the date costs",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT AS k INNER JOIN Sem_Teilnehmer_IT AS p ON k.TeilnehmerID = "
     "p.TeilnehmerID INNER JOIN Sem_Termin_IT AS t ON p.SemTerminID = t.SemTerminID WHERE k.KostenID = 1 AND "
     "ABS(k.Kostenbetrag - t.KostenProTN) > 0.001"},
    {"a cost line goes to the cost centre of that time",
     "SELECT COUNT(*) FROM Sem_Teilnehmer_Kosten_IT AS k INNER JOIN Sem_Teilnehmer_IT AS p ON k.TeilnehmerID = "
     "p.TeilnehmerID WHERE NOT EXISTS (SELECT * FROM ANKOst_LV AS c WHERE c.MDNR = p.MDNr AND c.ANNR = p.ANNr AND "
     "c.Kost = k.Kost AND c.GueltigAB <= p.EndeDatum AND (c.GueltigBis IS NULL OR c.GueltigBis >= p.BeginnDatum))"},
    {"each cost centre belongs to an employee",
     "SELECT COUNT(*) FROM ANKOst_LV AS c LEFT OUTER JOIN arbeitnehmer AS a ON c.MDNR = a.MDNR AND c.ANNR = a.ANNR "
     "WHERE a.ANNR IS NULL"},
    {"an employee has one cost centre at a time",
     "SELECT COUNT(*) FROM ANKOst_LV AS a INNER JOIN ANKOst_LV AS b ON a.MDNR = b.MDNR AND a.ANNR = b.ANNR AND "
     "a.GueltigAB < b.GueltigAB WHERE a.GueltigBis IS NULL OR a.GueltigBis >= b.GueltigAB"},
    {"each employee has a cost centre",
     "SELECT COUNT(*) FROM arbeitnehmer AS a LEFT OUTER JOIN ANKOst_LV AS c ON c.MDNR = a.MDNR AND c.ANNR = a.ANNR "
     "WHERE c.ANNR IS NULL"},
    {"names of employees are told apart",
     "SELECT COUNT(*) FROM arbeitnehmer AS a INNER JOIN arbeitnehmer AS b ON a.Name = b.Name AND a.Vorname = "
     "b.Vorname AND a.MDNR * 1000 + a.ANNR < b.MDNR * 1000 + b.ANNR"},
    {"who looks after seminars is an employee with a mail box",
     "SELECT COUNT(*) FROM sysIData_SemSachbearbeiter_IT AS s LEFT OUTER JOIN arbeitnehmer AS a ON s.mdnr = a.MDNR "
     "AND s.annr = a.ANNR WHERE a.email IS NULL"},
    {"somebody looks after each seminar",
     "SELECT COUNT(*) FROM Sem_Katalog_IT WHERE NOT Sachbearbeiter IS NULL AND NOT Sachbearbeiter IN (SELECT "
     "sachbearbeiterid FROM sysIData_SemSachbearbeiter_IT)"},
    {"each seminar has its goal and content",
     "SELECT COUNT(*) FROM Sem_Katalog_IT WHERE NOT InhaltZielID IS NULL AND NOT InhaltZielID IN (SELECT "
     "ZielInhaltID FROM Sem_ZielInhalt_IT)"},
    {"each seminar is for somebody",
     "SELECT COUNT(*) FROM Sem_Katalog_IT AS s LEFT OUTER JOIN Sem_Zielgruppen_IT AS z ON s.SemID = z.SemID WHERE "
     "z.SemID IS NULL"},
    {"each target group is there",
     "SELECT COUNT(*) FROM Sem_Zielgruppen_IT WHERE NOT ZielGruppeID IN (SELECT ID FROM sysIData_Zielgruppen) OR "
     "NOT SemID IN (SELECT SemID FROM Sem_Katalog_IT)"},
    {"each focus area of a seminar is there",
     "SELECT COUNT(*) FROM Sem_Schwerpunkte_IT WHERE NOT SchwerpunktID IN (SELECT WBS_ID FROM sysIData_WBS) OR NOT "
     "SemID IN (SELECT SemID FROM Sem_Katalog_IT)"},
    {"each focus area of a date is there",
     "SELECT COUNT(*) FROM Sem_Termin_Schwerpunkte_IT WHERE NOT SchwerpunktID IN (SELECT WBS_ID FROM sysIData_WBS) "
     "OR NOT SemTerminID IN (SELECT SemTerminID FROM Sem_Termin_IT)"},
    {"each focus area belongs to a client",
     "SELECT COUNT(*) FROM sysIData_WBS WHERE NOT WBS_ID IN (SELECT WBS_ID FROM sysIData_WBS_Mandant_IT)"},
    {"what a seminar asks for is another seminar",
     "SELECT COUNT(*) FROM Sem_Anford_Seminare WHERE SemID = gef_SemID OR NOT SemID IN (SELECT SemID FROM "
     "Sem_Katalog_IT) OR NOT gef_SemID IN (SELECT SemID FROM Sem_Katalog_IT)"},
    {"somebody has each skill that is asked for",
     "SELECT COUNT(*) FROM Sem_Anford_Faehigkeiten WHERE NOT Prof_ID IN (SELECT Prof_ID FROM AN_Faehigkeiten) OR "
     "NOT SemID IN (SELECT SemID FROM Sem_Katalog_IT)"},
    {"each skill belongs to an employee",
     "SELECT COUNT(*) FROM AN_Faehigkeiten AS f LEFT OUTER JOIN arbeitnehmer AS a ON f.MDNr = a.MDNR AND f.ANNr = "
     "a.ANNR WHERE a.ANNR IS NULL"},
    {"each request is bound once",
     "SELECT COUNT(*) FROM Sem_Warteliste_IT AS w WHERE (SELECT COUNT(*) FROM Sem_WartelisteTermin_IT AS t WHERE "
     "t.SemWarteListeID = w.SemWarteListeID) + (SELECT COUNT(*) FROM Sem_WartelisteSem_IT AS s WHERE "
     "s.SemWarteListeID = w.SemWarteListeID) <> 1"},
    {"each binding has its date",
     "SELECT COUNT(*) FROM Sem_WartelisteTermin_IT WHERE NOT SemTerminID IN (SELECT SemTerminID FROM Sem_Termin_IT "
     "WHERE Status <= 2)"},
    {"each binding has its seminar",
     "SELECT COUNT(*) FROM Sem_WartelisteSem_IT WHERE NOT SemID IN (SELECT SemID FROM Sem_Katalog_IT)"},
    {"nobody waits for a date who is enrolled there",
     "SELECT COUNT(*) FROM Sem_Warteliste_IT AS w INNER JOIN Sem_WartelisteTermin_IT AS b ON w.SemWarteListeID = "
     "b.SemWarteListeID INNER JOIN Sem_Teilnehmer_IT AS p ON p.SemTerminID = b.SemTerminID AND p.MDNr = w.MDNr AND "
     "p.ANNr = w.TNID WHERE w.ModID = 2 AND p.Teilnahme <> 0"},
    {"each request comes from a person",
     "SELECT COUNT(*) FROM Sem_Warteliste_IT AS w WHERE NOT (ModID = 2 AND EXISTS (SELECT * FROM arbeitnehmer AS a "
     "WHERE a.MDNR = w.MDNr AND a.ANNR = w.TNID) OR ModID = 3 AND TNID IN (SELECT BWID FROM BW) OR ModID = 4 AND "
     "TNID IN (SELECT LID FROM LA))"},
    {"a request that came from a cancellation has no state, the others one",
     "SELECT COUNT(*) FROM Sem_Warteliste_IT WHERE Herkunft = 2 AND NOT Status IS NULL OR Herkunft <> 2 AND (Status "
     "IS NULL OR GeaendertAm < ErfDat)"},
    {"each need comes from an employee, within a focus area of the client",
     "SELECT COUNT(*) FROM AN_WBBedarf_IT AS n WHERE NOT EXISTS (SELECT * FROM arbeitnehmer AS a WHERE a.MDNR = "
     "n.MDNr AND a.ANNR = n.ANNr) OR NOT EXISTS (SELECT * FROM sysIData_WBS_Mandant_IT AS m WHERE m.WBS_ID = n.WBS "
     "AND m.MDNr = n.MDNr)"},
    {"a need is settled once it is fulfilled or rejected",
     "SELECT COUNT(*) FROM AN_WBBedarf_IT WHERE BedarfErfuellt = 0 AND NOT Erfuellt IS NULL OR BedarfErfuellt <> 0 "
     "AND (Erfuellt IS NULL OR Erfuellt < erfDat)"},
    {"budget years follow each other",
     "SELECT COUNT(*) - 1 FROM Sem_BudgetJahr_IT AS a LEFT OUTER JOIN Sem_BudgetJahr_IT AS b ON b.Von = "
     "DATEADD(day, 1, a.Bis) WHERE b.JahrID IS NULL"},
    {"each date falls into a budget year",
     "SELECT COUNT(*) FROM Sem_Termin_IT AS t WHERE NOT t.EndeDatum IS NULL AND NOT EXISTS (SELECT * FROM "
     "Sem_BudgetJahr_IT AS b WHERE b.Von <= t.EndeDatum AND b.Bis >= t.EndeDatum)"},
};

// What the days of a date are generated from.
struct Series {
    Int32 rhythm = 1;
    Int32 daily = 1;
    Int32 weeks = 0;
    // from Monday to Sunday
    std::array<bool, 7> weekdays{};
};

std::vector<local_days> Generated(local_days first, Int32 meetings, const Series& series) {
    std::vector<local_days> result;
    const auto count = static_cast<std::size_t>(meetings);
    const auto weekday = [](local_days day) { return std::chrono::weekday(day).iso_encoding(); };
    local_days day = first;
    // no sample date is that long; ends what would not end
    const local_days last = first + days(1000);
    while (result.size() < count && day < last) {
        if (series.rhythm == 1) {
            if (series.daily == 1 || weekday(day) < 6) result.push_back(day);
            day += days(1);
            continue;
        }
        for (int i = 0; i < 7 && result.size() < count; ++i) {
            if (series.weekdays.at(weekday(day + days(i)) - 1)) result.push_back(day + days(i));
        }
        day += days(7 * series.weeks);
    }
    return result;
}

class Sample : public testing::Test {
  protected:
    explicit Sample(Ref<AnySession> session = test_support::SampleDatabase()) : session_(std::move(session)) {}

    Variant At(RecordSet& rows, const char* name) { return rows.Fields().Item(name).Value(); }
    Int32 Int(RecordSet& rows, const char* name, Int32 at_null = 0) {
        const Variant value = At(rows, name);
        return value.IsNull() ? at_null : To<Int32>(value);
    }
    Ref<RecordSet> Rows(const Text& sql) {
        EXPECT_TRUE(session_->OpenSelect(sql)) << session_->LastErrorText();
        return session_->Recordset();
    }
    /// Of the sample that tells of this year and the next one.
    Text AllBroken(int first_year = kSampleYear) {
        const SampleMove move(first_year);
        Text broken;
        for (const Rule& rule : kRules) {
            const Int32 rows = Number(*session_, move.Moved(rule.broken));
            if (rows != 0) broken += std::to_string(rows) + " rows break: " + rule.name + "\n";
        }
        return broken;
    }
    void ExpectDaysOfTheSeries() {
        std::map<Int32, Series> series = {{0, {}}};
        for (auto rows = Rows("SELECT * FROM Sem_Serien_IT"); !rows->Eof(); rows->MoveNext()) {
            Series& rule = series[Int(*rows, "SerienID")];
            rule.rhythm = Int(*rows, "Tagefolge", 1);
            rule.daily = Int(*rows, "taeglich", 1);
            rule.weeks = Int(*rows, "Woche");
            std::size_t i = 0;
            for (const char* name : {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"})
                rule.weekdays.at(i++) = Int(*rows, name) == -1;
        }
        std::map<Int32, std::vector<local_days>> found;
        for (auto rows = Rows("SELECT SemTerminID, Termin FROM Sem_Termin_Termine_IT ORDER BY Termin"); !rows->Eof();
             rows->MoveNext()) {
            found[Int(*rows, "SemTerminID")].push_back(To<DateTime>(At(*rows, "Termin")).Date());
        }
        int dates = 0;
        for (auto rows = Rows("SELECT * FROM Sem_Termin_IT WHERE NOT BeginnDatum IS NULL"); !rows->Eof();
             rows->MoveNext(), ++dates) {
            const Int32 key = Int(*rows, "SemTerminID");
            const auto first = To<DateTime>(At(*rows, "BeginnDatum")).Date();
            EXPECT_EQ(found[key], Generated(first, Int(*rows, "Sitzungen"), series.at(Int(*rows, "SerienID"))))
                << "date " << key;
        }
        EXPECT_GE(dates, 70);
    }
    void ExpectTimesOfTheSeries() {
        EXPECT_EQ(Number(*session_,
                         "SELECT COUNT(*) FROM Sem_Termin_Termine_IT AS d INNER JOIN Sem_Termin_IT AS t ON d.SemTerminID = t.SemTerminID "
                         "WHERE d.BegUhr <> t.BeginnUhrzeit OR d.EndUhr <> t.EndeUhrzeit OR d.BegUhr IS NULL OR d.EndUhr IS NULL"),
                  0);
        EXPECT_EQ(Number(*session_,
                         "SELECT COUNT(*) FROM Sem_Termin_IT AS t INNER JOIN Sem_Serien_IT AS s ON t.SerienID = s.SerienID "
                         "WHERE t.BeginnUhrzeit <> s.BeginnUhrzeit OR t.EndeUhrzeit <> s.EndeUhrzeit"),
                  0);
        // the hours are spread evenly over the meetings
        EXPECT_EQ(Number(*session_,
                         "SELECT COUNT(*) FROM Sem_Termin_IT WHERE NOT BeginnDatum IS NULL AND "
                         "DATEDIFF(minute, BeginnUhrzeit, EndeUhrzeit) <> ROUND(Stunden / Sitzungen * 60, 0)"),
                  0);
    }

    Ref<AnySession> session_;
};

TEST(Schema, HasAllTables) {
    const auto session = test_support::EmbeddedSchemaDatabase();
    std::vector<Text> names;
    for (const TableInfo& table : session->Tables()) {
        names.push_back(table.name);
        EXPECT_TRUE(std::ranges::any_of(table.columns, &ColumnInfo::in_primary_key)) << table.name;
        EXPECT_EQ(Number(*session, "SELECT COUNT(*) FROM " + table.name), 0) << table.name;
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre(
                           "OpactMD", "optionen_database_dt", "Sem_Katalog_IT", "sysIData_WBS", "sysIData_WBS_Mandant_IT",
                           "Sem_Schwerpunkte_IT", "Sem_Termin_Schwerpunkte_IT", "sysIData_Zielgruppen", "Sem_Zielgruppen_IT",
                           "Sem_ZielInhalt_IT", "Sem_Serien_IT", "Sem_Termin_IT", "Sem_Termin_Termine_IT",
                           "sysIData_Veranstalter", "sysIData_VOrte", "arbeitnehmer", "sysIData_SemSachbearbeiter_IT",
                           "BW", "LA", "ANKOst_LV", "AN_Faehigkeiten", "Sem_Anford_Seminare", "Sem_Anford_Faehigkeiten",
                           "Sem_Teilnehmer_IT", "Sem_Teilnehmer_Kosten_IT", "sysIData_KostenArten", "Sem_BudgetJahr_IT",
                           "Sem_Warteliste_IT", "Sem_WartelisteTermin_IT", "Sem_WartelisteSem_IT", "AN_WBBedarf_IT"));
}

TEST(Schema, NamesTheKeyAndTheTableOfAViolation) {
    const auto session = test_support::EmbeddedSchemaDatabase();
    EXPECT_TRUE(session->ExecuteSql("INSERT INTO BW (BWID) VALUES (3)"));
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO BW (BWID) VALUES (3)"));
    EXPECT_EQ(session->LastErrorText(),
              "Violation of PRIMARY KEY constraint 'PK_BW'. Cannot insert duplicate key in object 'dbo.BW'. The duplicate key value is (3).");
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO Sem_WartelisteSem_IT (SemWarteListeID, SemID) VALUES (1, 1)"));
    EXPECT_EQ(session->LastErrorNumber(), 547);
    EXPECT_THAT(session->LastErrorText(), testing::HasSubstr("FK_Sem_WartelisteSem_IT_Warteliste"));
}

TEST_F(Sample, HoldsItsRules) { EXPECT_EQ(AllBroken(), ""); }

// The rules are worth something: each of these changes is found.
TEST_F(Sample, RulesFindWhatIsWrong) {
    const std::pair<const char*, const char*> kChanges[] = {
        {"DELETE FROM arbeitnehmer WHERE ANNR IN (SELECT ANNr FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 1) AND MDNR = 1",
         "each participating employee is there"},
        {"DELETE FROM Sem_Termin_IT WHERE SemTerminID = 5", "each participant has a date"},
        {"UPDATE Sem_Termin_Termine_IT SET SemTerminID = 999 WHERE SemTerminID = 5", "each day has its date"},
        {"UPDATE Sem_Termin_IT SET EndeDatum = DATEADD(day, 1, EndeDatum) WHERE SemTerminID = 4", "ends on its last"},
        {"UPDATE Sem_Termin_IT SET MinTeil = 99 WHERE SemTerminID = 4", "limits are in order"},
        {"UPDATE Sem_Termin_IT SET MaxTeil = 1, MinTeil = 1, OptTeil = 1 WHERE SemTerminID = 4", "no date but one is overbooked"},
        {"UPDATE Sem_Teilnehmer_IT SET LAID = 1 WHERE TeilnehmerID = 1", "one person of one kind"},
        {"DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 7", "each cost line has its participant"},
        {"UPDATE ANKOst_LV SET Kost = 1", "the cost centre of that time"},
        {"DELETE FROM Sem_WartelisteTermin_IT", "each request is bound once"},
        {"UPDATE AN_WBBedarf_IT SET Erfuellt = NULL", "a need is settled"},
        {"UPDATE Sem_Termin_IT SET Status = 4 WHERE SemTerminID = 78", "the state of a date fits"},
        {"DELETE FROM Sem_Serien_IT WHERE SerienID = 2", "each date has its series"},
    };
    for (const auto& [change, rule] : kChanges) {
        ASSERT_TRUE(session_->ExecuteSql("BEGIN TRANSACTION"));
        EXPECT_TRUE(session_->ExecuteSql(change)) << change << ": " << session_->LastErrorText();
        EXPECT_GT(session_->RowsAffected(), 0) << change;
        EXPECT_THAT(AllBroken(), testing::HasSubstr(rule)) << change;
        ASSERT_TRUE(session_->ExecuteSql("ROLLBACK TRANSACTION"));
    }
    EXPECT_EQ(AllBroken(), "");
}

TEST_F(Sample, DaysAreThoseThatTheSeriesGives) { ExpectDaysOfTheSeries(); }

TEST_F(Sample, TimesOfDaysAreThoseOfTheDateAndItsSeries) { ExpectTimesOfTheSeries(); }

TEST_F(Sample, HasSomethingOfEverything) {
    for (const std::string& table : test_support::TablesOf("schema.sql")) {
        EXPECT_GT(Number(*session_, "SELECT COUNT(*) FROM " + table), 0) << table;
    }
    EXPECT_EQ(Number(*session_, "SELECT COUNT(*) FROM Sem_Katalog_IT"), 42);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(*) FROM arbeitnehmer"), 300);
    EXPECT_GE(Number(*session_, "SELECT COUNT(DISTINCT Name) FROM arbeitnehmer"), 100);
    EXPECT_GE(Number(*session_, "SELECT COUNT(*) FROM arbeitnehmer WHERE Name LIKE '%[äöüß]%' OR Vorname LIKE '%[äöüß]%'"), 60);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(DISTINCT YEAR(BeginnDatum)) FROM Sem_Termin_IT"), 2);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(DISTINCT Status) FROM Sem_Termin_IT"), 4);
    EXPECT_GE(Number(*session_, "SELECT COUNT(DISTINCT SerienID) FROM Sem_Termin_IT"), 5);
    EXPECT_GE(Number(*session_, "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE Teilnahme = 0"), 20);
    EXPECT_GE(Number(*session_, "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE NOT BWID IS NULL"), 1);
    EXPECT_GE(Number(*session_, "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE NOT LAID IS NULL"), 5);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(DISTINCT ModID) FROM Sem_Warteliste_IT"), 3);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(DISTINCT Herkunft) FROM Sem_Warteliste_IT"), 4);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(DISTINCT BedarfErfuellt) FROM AN_WBBedarf_IT"), 3);
    EXPECT_EQ(Number(*session_, "SELECT COUNT(*) FROM sysIData_KostenArten WHERE KostenArten = 'Teilnehmerkosten'"), 1);
}

Ref<AnySession> SampleOf(int first_year) {
    auto session = New<AnySession>();
    EXPECT_TRUE(session->Connect("Provider=Embedded;Data Source=:memory:", "sa", "", 30));
    EXPECT_TRUE(CreateTables(session, kWithSample, {},
                             {.schema = test_support::SourceDir() + "/schema", .sample_year = first_year}));
    return session;
}

class MovedSample : public Sample, public testing::WithParamInterface<int> {
  protected:
    MovedSample() : Sample(SampleOf(GetParam())) {}

    void ExpectRules();
    void ExpectBudgetYears();
    void ExpectWeekdaysAndSpans();
    void ExpectProcesses();
    void ExpectCodes();

    /// The sample as it stands in the files, only to be read.
    static DataSession& Fixed() {
        static const Ref<AnySession> fixed = SampleOf(kSampleYear);
        return *fixed;
    }
};

// The rows of a select, the columns parted by blanks.
std::vector<Text> Lines(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << session.LastErrorText();
    std::vector<Text> lines;
    for (const auto rows = session.Recordset(); !rows->Eof(); rows->MoveNext()) {
        Text& line = lines.emplace_back();
        for (Int16 i = 0; i < rows->Fields().Count(); ++i) {
            const Variant value = rows->Fields().Item(i).Value();
            line += (value.IsNull() ? "-" : To<Text>(value)) + " ";
        }
    }
    return lines;
}

void MovedSample::ExpectRules() {
    EXPECT_EQ(AllBroken(GetParam()), "");
    ExpectDaysOfTheSeries();
    ExpectTimesOfTheSeries();
}

void MovedSample::ExpectBudgetYears() {
    // as the library's list of dates puts them
    constexpr const char* kYears =
        "SELECT t.SemTerminID, b.JahrID FROM Sem_Termin_IT AS t INNER JOIN Sem_BudgetJahr_IT AS b ON t.EndeDatum < b.Bis "
        "AND t.EndeDatum > b.Von ORDER BY t.SemTerminID";
    EXPECT_EQ(Lines(*session_, kYears), Lines(Fixed(), kYears));
    EXPECT_THAT(Lines(*session_, "SELECT DAY(Von), MONTH(Von), YEAR(Von) - " + std::to_string(GetParam()) +
                                     ", DAY(Bis), MONTH(Bis) FROM Sem_BudgetJahr_IT ORDER BY Von"),
                testing::ElementsAre("1 4 -1 31 3 ", "1 4 0 31 3 ", "1 4 1 31 3 "));
}

void MovedSample::ExpectWeekdaysAndSpans() {
    constexpr const char* kMoments =
        "SELECT DATEDIFF(day, (SELECT MIN(Termin) FROM Sem_Termin_Termine_IT), t.Termin), BegUhr, EndUhr FROM "
        "Sem_Termin_Termine_IT AS t ORDER BY SemTerminID, Termin";
    EXPECT_EQ(Lines(*session_, kMoments), Lines(Fixed(), kMoments));
    const auto first = [](DataSession& session) {
        return To<DateTime>(session.LookupValue("MIN(Termin)", "Sem_Termin_Termine_IT", "")).Date();
    };
    EXPECT_EQ((first(*session_) - first(Fixed())).count() % 7, 0);
}

void MovedSample::ExpectProcesses() {
    constexpr const char* kSteps =
        "SELECT ModulNr, SchluesselID, SchrittNr, Art, Stufe, Status, PersonID FROM Sem_ProzessSchritt_IT ORDER BY ModulNr, "
        "SchluesselID, SchrittNr";
    EXPECT_EQ(Lines(*session_, kSteps), Lines(Fixed(), kSteps));
    // the decisions behind the starts
    EXPECT_EQ(Number(*session_,
                     "SELECT COUNT(*) FROM Sem_ProzessSchritt_IT AS a INNER JOIN Sem_ProzessSchritt_IT AS b ON "
                     "a.ModulNr = b.ModulNr AND a.SchluesselID = b.SchluesselID AND a.SchrittNr < b.SchrittNr "
                     "AND a.Zeitpunkt > b.Zeitpunkt"),
              0);
}

void MovedSample::ExpectCodes() {
    for (const int next : {0, 1, 2}) {
        const auto dates_of = [&](DataSession& session, int first_year) {
            const Text year = std::to_string(first_year + next);
            return Number(session, "SELECT COUNT(*) FROM Sem_Termin_IT WHERE Code LIKE '%/" + year.substr(2) + "-%'");
        };
        const auto applicants_of = [&](DataSession& session, int first_year) {
            const Text year = std::to_string(first_year + next);
            return Number(session, "SELECT COUNT(*) FROM BW WHERE BWNr LIKE 'B-" + year + "-0%'");
        };
        EXPECT_EQ(dates_of(*session_, GetParam()), dates_of(Fixed(), kSampleYear));
        EXPECT_EQ(applicants_of(*session_, GetParam()), applicants_of(Fixed(), kSampleYear));
        EXPECT_GT(dates_of(Fixed(), kSampleYear), 1);
    }
}

// One test, as making the sample takes its time.
TEST_P(MovedSample, IsTheSampleOfOtherYears) {
    ExpectRules();
    ExpectBudgetYears();
    ExpectWeekdaysAndSpans();
    ExpectProcesses();
    ExpectCodes();
}

INSTANTIATE_TEST_SUITE_P(Years, MovedSample, testing::Values(2010, 2012, 2023, 2026, 1990));

}  // namespace
}  // namespace LumoConnection
