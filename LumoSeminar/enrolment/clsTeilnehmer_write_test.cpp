#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/cost_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using LumoConnection::Script;
using termin_statements::With;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace costs = cost_statements;
namespace dates = termin_statements;

using clsTeilnehmerTest = ParticipantTest;

constexpr Int32 kUserID = 11;
const std::string kTermin = " LumoSeminar062.clsTermin.";
const std::string kLabelOfWrite = kLabel + "WriteToDatabase";
const Labels kLabelsOfLoad = {kLabel + "PropertiesInit", kLabel + "Herkunft -> Property GET"};
const Labels kLabelsOfCostList = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init",
                                  " in LumoSeminar.objKosten", kLabelOfWrite};
const Labels kLabelsOfCostWrite = {" in LumoSeminar.WriteToDatabase", kLabelOfWrite};

/// A record with the row, the update of it, and no costs.
void ScriptUpdate(Script& script, const std::vector<Variant>& row, const std::string& assignments,
                  const std::vector<Variant>& date = dates::FullRow(), int date_key = 17) {
    ScriptRecord(script, {row});
    ScriptDate(script, {date}, date_key);
    script.OpenSelect(Update(assignments));
    ScriptCosts(script, 7);
}

/// The insert, the key that is looked up behind it, and no costs.
void ScriptInsert(Script& script, const std::string& values, const Variant& key = 42) {
    script.OpenSelect(Insert(values));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(key);
    ScriptCosts(script, To<Int32>(key));
}

// The update.

TEST_F(clsTeilnehmerTest, AnUpdateWritesEveryColumnThroughOpenSelect) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(
        "UPDATE Sem_Teilnehmer_IT SET   TeilnehmerID  = 7, SemTerminID = 17, MDNr = 5, ANNr =123, ErfDatum = "
        "convert(datetime,'14.02.2010',104) , ErfUser = 'Jörg \"Jo\" Ähre', Teilnahme = 2, Herkunft = 5, BeginnDatum = "
        "convert(datetime,'04.03.2010',104) , EndeDatum = convert(datetime,'06.03.2010',104) , BegUhrzeit = '30.12.1899 "
        "09:15', EndUhrzeit = '30.12.1899 15:20', storniertam = convert(datetime,'20.02.2010',104) , StornoGrund = 9, "
        "StornoKosten = 250, Ergebnis = 4, Bemerkung = 'vegetarisch: \"Gemüse\" & Nüsse', BWID = 45, LAID = 67 WHERE "
        "TeilnehmerID = 7\r\n");
    ScriptCosts(script, 7);
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(record->TeilnehmerID(), 7);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AnUpdateWritesWhatWasLet) {
    Script script;
    ScriptUpdate(script, NullRow(), kFullAssignments);
    const auto record = Bound(script.Session());
    record->Herkunft();
    LetAll(*record, &Property::full);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AnUpdateWritesNULLForTheKeysOfThePersonAloneAndDayZeroForNoCancellation) {
    Script script;
    ScriptUpdate(script, FullRow(), kZeroAssignments, dates::NullRow(), 0);
    const auto record = Bound(script.Session());
    record->Herkunft();
    LetAll(*record, &Property::zero);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AnUpdateWritesTheDefaultsOfNullsBack) {
    Script script;
    auto assignments = With(kZeroAssignments, "ErfDatum = convert(datetime,'30.12.1899',104)",
                            "ErfDatum = convert(datetime,'02.03.2010',104)");
    assignments = With(assignments, "ErfUser = ''", "ErfUser = 'Käthe Löffler'");
    assignments = With(assignments, "Teilnahme = 0, Herkunft = 0", "Teilnahme = -1, Herkunft = 3");
    ScriptUpdate(script, NullRow(), With(assignments, "Ergebnis = 0", "Ergebnis = 1"), dates::NullRow(), 0);
    EXPECT_EQ(Bound(script.Session())->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ARecordWhoseLoadWasRefusedIsUpdatedWithZeroes) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(Select(7)).Refused("time-out");
    ScriptDate(script, {}, 0);
    script.OpenSelect(Update(kZeroAssignments));
    ScriptCosts(script, 7);
    EXPECT_EQ(Bound(script.Session())->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ARecordWithAKeyButWithoutARowIsUpdatedAllTheSame) {
    Script script;
    ScriptRecord(script, {});
    ScriptDate(script, {}, 0);
    script.OpenSelect(Update(With(With(With(With(kZeroAssignments, "ErfDatum = convert(datetime,'30.12.1899',104)",
                                                 "ErfDatum = convert(datetime,'02.03.2010',104)"),
                                            "ErfUser = ''", "ErfUser = 'Käthe Löffler'"),
                                       "Teilnahme = 0, Herkunft = 0", "Teilnahme = -1, Herkunft = 3"),
                                  "Ergebnis = 0", "Ergebnis = 1")));
    ScriptCosts(script, 7);
    EXPECT_EQ(Bound(script.Session())->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AnotherKeyIsUpdatedWithTheRowThatWasRead) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(Update(kFullAssignments, 8));
    ScriptCosts(script, 8);
    const auto record = Bound(script.Session());
    record->Herkunft();
    record->TeilnehmerID(8);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, NeitherTheUserNorDoSendInfosChangesWhatIsWritten) {
    for (const Int32 user : {0, -1, 2147483647}) {
        for (const bool infos : {true, false}) {
            Script script;
            ScriptUpdate(script, FullRow(), kFullAssignments);
            const auto record = Bound(script.Session());
            record->DoSendInfos(infos);
            record->Teilnahme(2);
            EXPECT_EQ(record->WriteToDatabase(user), true);
            EXPECT_EQ(record->DoSendInfos(), infos);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsTeilnehmerTest, TextsGoIntoTheStatementsAsTheyStand) {
    for (const Text& text : {Text("Rock'n Roll"), Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"),
                             Text("{SemTerminID} {ANNr or NULL}"), Text("Zeile\r\nZeile"), Text(100'000, 'x')}) {
        Script script;
        const std::string quoted = "'" + text + "'";
        ScriptUpdate(script, FullRow(),
                     With(With(kFullAssignments, "'Jörg \"Jo\" Ähre'", quoted), "'vegetarisch: \"Gemüse\" & Nüsse'", quoted));
        ScriptNew(script);
        ScriptDate(script);
        ScriptInsert(script, With(With(kNewValues, "'Käthe Löffler'", quoted), "1, ''", "1, " + quoted));
        const auto write = [&](clsTeilnehmer& record) {
            record.ErfUser(text);
            record.Bemerkung(text);
            EXPECT_EQ(record.WriteToDatabase(kUserID), true);
        };
        write(*Bound(script.Session()));
        write(*NewOfDate(script.Session()));
        EXPECT_EQ(script.Report(), "");
    }
}

// The insert.

TEST_F(clsTeilnehmerTest, AnInsertWritesEveryColumnThroughOpenSelectAndTakesTheLargestKey) {
    Script script;
    ScriptNew(script);
    ScriptDate(script);
    script.OpenSelect(
        "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  Herkunft, "
        "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, Ergebnis, Bemerkung, BWID, "
        "LAID )  SELECT ISNULL(max(TeilnehmerID),0)+1, 17,5, 123, convert(datetime,'14.02.2010',104), 'Jörg \"Jo\" Ähre', "
        "2,5, convert(datetime,'04.03.2010',104),  convert(datetime,'06.03.2010',104), '30.12.1899 09:15', '30.12.1899 "
        "15:20',  convert(datetime,'20.02.2010',104), 9, 250, 4, 'vegetarisch: \"Gemüse\" & Nüsse', 45, 67 FROM "
        "Sem_Teilnehmer_IT\r\n");
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT", "").Gives(42);
    ScriptCosts(script, 42);
    const auto record = NewOfDate(script.Session());
    LetAll(*record, &Property::full);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->Key(), "0000000042");
    EXPECT_EQ(record->TeilnehmerID(), 42);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ANewRecordIsInsertedWithItsDefaultsAndTheDaysAndTimesOfItsDate) {
    Script script;
    ScriptNew(script);
    ScriptDate(script);
    script.OpenSelect(
        "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  Herkunft, "
        "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, Ergebnis, Bemerkung, BWID, "
        "LAID )  SELECT ISNULL(max(TeilnehmerID),0)+1, 17,0, NULL, convert(datetime,'02.03.2010',104), 'Käthe Löffler', "
        "-1,3, convert(datetime,'03.03.2010',104),  convert(datetime,'05.03.2010',104), '30.12.1899 08:30', '30.12.1899 "
        "16:45',  NULL, 0, 0, 1, '', NULL, NULL FROM Sem_Teilnehmer_IT\r\n");
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT", "").Gives(1);
    ScriptCosts(script, 1);
    const auto record = NewOfDate(script.Session());
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->Key(), "0000000001");
    EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(record->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(record->BegUhrzeit(), DateTime::TimeOfDay(8, 30));
    EXPECT_EQ(record->EndUhrzeit(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(record->storniertam(), DateTime());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ACancellationIsWrittenByItsDayAlsoByTheInsert) {
    const struct {
        DateTime cancelled;
        const char* insert;
        const char* update;
    } cases[] = {
        {DateTime(), " NULL, ", "convert(datetime,'30.12.1899',104)"},
        {DateTime::TimeOfDay(12, 0), " convert(datetime,'30.12.1899',104), ", "convert(datetime,'30.12.1899',104)"},
        {DateTime::Of(2010, 2, 28, 23, 59, 59), " convert(datetime,'28.02.2010',104), ", "convert(datetime,'28.02.2010',104)"},
    };
    for (const auto& c : cases) {
        Script script;
        ScriptNew(script);
        ScriptDate(script);
        ScriptInsert(script, With(kNewValues, " NULL, 0, 0", c.insert + Text("0, 0")));
        auto record = NewOfDate(script.Session());
        record->storniertam(c.cancelled);
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        ScriptUpdate(script, FullRow(), With(kFullAssignments, "convert(datetime,'20.02.2010',104)", c.update));
        record = Bound(script.Session());
        record->storniertam(c.cancelled);
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        EXPECT_EQ(record->storniertam(), c.cancelled);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, TheDayOfEntryIsWrittenWithoutItsTimeWhichTheObjectKeeps) {
    Script script;
    ScriptUpdate(script, FullRow(), With(kFullAssignments, "'14.02.2010'", "'28.02.2010'"));
    const auto record = Bound(script.Session());
    record->ErfDatum(DateTime::Of(2010, 2, 28, 23, 59, 59));
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->ErfDatum(), DateTime::Of(2010, 2, 28, 23, 59, 59));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ANegativeKeyIsInsertedAndNotReplaced) {
    Script script;
    ScriptRecord(script, {FullRow()}, -3);
    ScriptDate(script);
    script.OpenSelect(Insert(kFullValues));
    ScriptCosts(script, -3);
    script.OpenSelect(Insert(kFullValues));
    const auto record = Bound(script.Session(), -3);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->TeilnehmerID(), -3);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, TheKeyIsConvertedAndTheNextWriteIsAnUpdateOfIt) {
    for (const Variant& key : {Variant(42), Variant(42.0), Variant("42"), Variant(Money(42))}) {
        Script script;
        ScriptNew(script);
        ScriptDate(script);
        ScriptInsert(script, kNewValues, key);
        script.OpenSelect(Update(
            "SemTerminID = 17, MDNr = 0, ANNr =123, ErfDatum = convert(datetime,'02.03.2010',104) , ErfUser = 'Käthe "
            "Löffler', Teilnahme = -1, Herkunft = 3, BeginnDatum = convert(datetime,'03.03.2010',104) , EndeDatum = "
            "convert(datetime,'05.03.2010',104) , BegUhrzeit = '30.12.1899 08:30', EndUhrzeit = '30.12.1899 16:45', "
            "storniertam = convert(datetime,'30.12.1899',104) , StornoGrund = 0, StornoKosten = 0, Ergebnis = 1, "
            "Bemerkung = '', BWID = NULL, LAID = NULL",
            42));
        const auto record = NewOfDate(script.Session());
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        record->ANNr(123);
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, WhereTheKeyCannotBeFoundTheWriteRaisesAndTheRecordStaysNew) {
    const struct {
        Variant key;
        Int32 number;
    } cases[] = {{Variant::Null(), 94}, {2147483648.0, 6}, {"keiner", 13}};
    for (const auto& c : cases) {
        Script script;
        ScriptNew(script);
        ScriptDate(script);
        script.OpenSelect(Insert(kNewValues));
        script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(c.key);
        const auto record = NewOfDate(script.Session());
        EXPECT_RAISES_UNDER(c.number, Labels{kLabelOfWrite}, record->WriteToDatabase(kUserID));
        EXPECT_EQ(record->Key(), "0000000000");
        EXPECT_EQ(script.Report(), "") << "costs are left alone";
    }
}

// Refused writes.

TEST_F(clsTeilnehmerTest, ARefusedUpdateIsFalseAndSilentAndCanBeTriedAgain) {
    Script script;
    const std::string update = Update(With(kFullAssignments, "'vegetarisch: \"Gemüse\" & Nüsse'", "'Rock'n Roll'"));
    ScriptRecord(script);
    ScriptDate(script);
    for (int i = 0; i < 2; ++i) script.OpenSelect(update).Refused("Falsche Syntax in der Nähe von 'n'.");
    script.OpenSelect(Update(kFullAssignments));
    ScriptCosts(script, 7);
    const auto record = Bound(script.Session());
    record->Bemerkung("Rock'n Roll");
    for (int i = 0; i < 2; ++i) EXPECT_EQ(record->WriteToDatabase(kUserID), false);
    EXPECT_EQ(record->Bemerkung(), "Rock'n Roll");
    EXPECT_EQ(record->TeilnehmerID(), 7);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    record->Bemerkung("vegetarisch: \"Gemüse\" & Nüsse");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ARefusedInsertIsFalseAndSilentKeepsKeyZeroAndCanBeTriedAgain) {
    Script script;
    ScriptNew(script);
    ScriptDate(script);
    for (int i = 0; i < 2; ++i) script.OpenSelect(Insert(kNewValues)).Refused("Die Tabelle ist gesperrt.");
    ScriptInsert(script, kNewValues);
    const auto record = NewOfDate(script.Session());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(record->WriteToDatabase(kUserID), false);
        EXPECT_EQ(record->Key(), "0000000000");
        EXPECT_EQ(record->Teilnahme(), -1);
        EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 3)) << "the gaps are filled all the same";
    }
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->Key(), "0000000042");
    EXPECT_EQ(script.Report(), "");
}

// Each gap asks a date that cannot be read again; the record has days and times of its own.
Labels CallsBehindARefusedDate(const std::string& statement, const Labels& calls_behind_it) {
    Labels calls(3, "OpenSelect: " + dates::Select(17));
    calls.push_back("OpenSelect: " + With(statement, "\r\n", "\\r\\n"));
    calls.insert(calls.end(), calls_behind_it.begin(), calls_behind_it.end());
    return calls;
}

TEST_F(clsTeilnehmerTest, AnUpdateFailsAsDocumentedAtEachStep) {
    const std::string line = costs::UpdateLine(7, 2, 4110, "3", "120.5");
    ExpectRecordFailures(
        [&](Script& script) {
            script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
            ScriptDate(script);
            script.OpenSelect(Update(kFullAssignments));
            ScriptCosts(script, 7, {costs::kLine});
            script.ExecuteSql(line);
        },
        [](clsTeilnehmer& record) {
            if (record.Herkunft() == 5) (void)record.WriteToDatabase(kUserID);
        },
        {{1, kNotOk},
         {2,
          kNotOk,
          0,
          {},
          CallsBehindARefusedDate(Update(kFullAssignments), {"OpenSelect: " + costs::SelectLines(7),
                                                             "Close of the rows of step 5", "ExecuteSql: " + line})},
         {3, kNotOk},
         {4, kNotOk, 9999, kLabelsOfCostList},
         {6, kNotOk, 9999, kLabelsOfCostWrite},
         {1, kRaises, 7001, kLabelsOfLoad},
         {2, kRaises, 7001, {kTermin + "PropertiesInit", kTermin + "BeginnDatum --> GET", kLabelOfWrite}},
         {3, kRaises, 7001, {kLabelOfWrite}},
         {4, kRaises, 7001, kLabelsOfCostList},
         {5, kRaises, 7001, kLabelsOfCostList},
         {6, kRaises, 7001, kLabelsOfCostWrite}});
}

TEST_F(clsTeilnehmerTest, AnInsertFailsAsDocumentedAtEachStep) {
    const std::string line = costs::UpdateLine(42, 4, 4110, "3", "120.5");
    ExpectRecordFailures(
        [&](Script& script) {
            script.OpenSelect(Select(0)).Rows(kColumns, {FullRow()});
            ScriptDate(script);
            script.OpenSelect(Insert(kFullValues));
            script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(42);
            ScriptCosts(script, 42, {kLineOfNobody});
            script.ExecuteSql(line);
        },
        [](clsTeilnehmer& record) {
            if (record.Herkunft() == 5) (void)record.WriteToDatabase(kUserID);
        },
        {{1, kNotOk},
         {2,
          kNotOk,
          0,
          {},
          CallsBehindARefusedDate(Insert(kFullValues), {"LookupValue: max(TeilnehmerID) from Sem_Teilnehmer_IT",
                                                        "OpenSelect: " + costs::SelectLines(42),
                                                        "Close of the rows of step 6", "ExecuteSql: " + line})},
         {3, kNotOk},
         {4, kNotOk, 94, {kLabelOfWrite}},
         {5, kNotOk, 9999, kLabelsOfCostList},
         {7, kNotOk, 9999, kLabelsOfCostWrite},
         {1, kRaises, 7001, kLabelsOfLoad},
         {2, kRaises, 7001, {kTermin + "PropertiesInit", kTermin + "BeginnDatum --> GET", kLabelOfWrite}},
         {3, kRaises, 7001, {kLabelOfWrite}},
         {4, kRaises, 7001, {kLabelOfWrite}},
         {5, kRaises, 7001, kLabelsOfCostList},
         {6, kRaises, 7001, kLabelsOfCostList},
         {7, kRaises, 7001, kLabelsOfCostWrite}},
        0);
}

TEST_F(clsTeilnehmerTest, AWriteLoadsTheRecordFirstUnderItsOwnLabel) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(Select(7)).Raises(-1, "Die Verbindung ist abgebrochen.", "Treiber");
    const auto error = RaisedBy([&] { return Bound(script.Session())->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -1);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(LabelsOf(error), (Labels{kLabel + "PropertiesInit", kLabelOfWrite}));
    EXPECT_EQ(script.Report(), "");
}

// Gaps.

TEST_F(clsTeilnehmerTest, EachGapAloneIsFilledFromTheDateIntoTheObjectToo) {
    const struct {
        const char* column;
        void (*let)(clsTeilnehmer&, DateTime);
        DateTime (*get)(clsTeilnehmer&);
        DateTime of_date;
        const char* own;
        const char* filled;
    } cases[] = {
        {"BeginnDatum", [](clsTeilnehmer& r, DateTime v) { r.BeginnDatum(v); },
         [](clsTeilnehmer& r) { return r.BeginnDatum(); }, DateTime::Of(2010, 3, 3), "'04.03.2010'", "'03.03.2010'"},
        {"EndeDatum", [](clsTeilnehmer& r, DateTime v) { r.EndeDatum(v); },
         [](clsTeilnehmer& r) { return r.EndeDatum(); }, DateTime::Of(2010, 3, 5), "'06.03.2010'", "'05.03.2010'"},
        {"BegUhrzeit", [](clsTeilnehmer& r, DateTime v) { r.BegUhrzeit(v); },
         [](clsTeilnehmer& r) { return r.BegUhrzeit(); }, DateTime::TimeOfDay(8, 30), "'30.12.1899 09:15'", "'30.12.1899 08:30'"},
        {"EndUhrzeit", [](clsTeilnehmer& r, DateTime v) { r.EndUhrzeit(v); },
         [](clsTeilnehmer& r) { return r.EndUhrzeit(); }, DateTime::TimeOfDay(16, 45), "'30.12.1899 15:20'", "'30.12.1899 16:45'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Script script;
        ScriptUpdate(script, FullRow(), With(kFullAssignments, c.own, c.filled));
        const auto record = Bound(script.Session());
        c.let(*record, DateTime());
        EXPECT_EQ(c.get(*record), DateTime());
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        for (const auto& property : All()) {
            EXPECT_EQ(property.get(*record), property.label == c.column ? Variant(c.of_date) : property.full)
                << property.label;
        }
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, AWriteReadsTheDateOnceAlsoWhereThereIsNoGap) {
    Script script;
    ScriptUpdate(script, FullRow(), kFullAssignments);
    script.OpenSelect(Update(kFullAssignments));
    const auto record = Bound(script.Session());
    for (int i = 0; i < 2; ++i) EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->clsTermin()->Code(), "BS-17");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, OwnDaysLoseTheirTimeInTheObjectTooAndTimesKeepTheirDayAndSeconds) {
    Script script;
    ScriptUpdate(script, FullRow(), kFullAssignments);
    const auto record = Bound(script.Session());
    record->BeginnDatum(DateTime::Of(2010, 3, 4, 23, 59, 59));
    record->EndeDatum(DateTime::Of(2010, 3, 6, 0, 0, 1));
    record->BegUhrzeit(DateTime::Of(2010, 3, 4, 9, 15, 59));
    record->EndUhrzeit(DateTime::Of(2010, 3, 6, 15, 20, 1));
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 4));
    EXPECT_EQ(record->EndeDatum(), DateTime::Of(2010, 3, 6));
    EXPECT_EQ(record->BegUhrzeit(), DateTime::Of(2010, 3, 4, 9, 15, 59));
    EXPECT_EQ(record->EndUhrzeit(), DateTime::Of(2010, 3, 6, 15, 20, 1));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, DaysOfTheDateLoseTheirTimeAndItsTimesAreTakenAsTheyAre) {
    auto date = dates::FullRow();
    date[8] = DateTime::Of(2010, 3, 3, 23, 59, 59);
    date[9] = DateTime::Of(2010, 3, 5, 12, 0);
    date[10] = DateTime::Of(2010, 3, 3, 8, 30, 15);
    date[11] = DateTime::Of(2010, 3, 5, 16, 45, 59);
    Script script;
    ScriptNew(script);
    ScriptDate(script, {date});
    ScriptInsert(script, kNewValues);
    const auto record = NewOfDate(script.Session());
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(record->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(record->BegUhrzeit(), DateTime::Of(2010, 3, 3, 8, 30, 15));
    EXPECT_EQ(record->EndUhrzeit(), DateTime::Of(2010, 3, 5, 16, 45, 59));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ATimeOnDayZeroIsNoGapAndCutToDayZeroWhichIsOneForTheNextWrite) {
    Script script;
    ScriptUpdate(script, FullRow(), With(kFullAssignments, "'04.03.2010'", "'30.12.1899'"));
    script.OpenSelect(Update(With(kFullAssignments, "'04.03.2010'", "'03.03.2010'")));
    const auto record = Bound(script.Session());
    record->BeginnDatum(DateTime::TimeOfDay(12, 0));
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->BeginnDatum(), DateTime());
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ADateWithoutDaysWithoutARowOrUnreadableLeavesTheGaps) {
    std::string values = With(kNewValues, "'03.03.2010'", "'30.12.1899'");
    values = With(With(values, "'05.03.2010'", "'30.12.1899'"), "08:30", "00:00");
    values = With(values, "16:45", "00:00");
    for (const char* which : {"without days", "without a row", "unreadable"}) {
        SCOPED_TRACE(which);
        Script script;
        ScriptNew(script);
        if (which == std::string_view("unreadable")) {
            for (int gap = 0; gap < 4; ++gap) script.OpenSelect(dates::Select(17)).Refused("time-out");
        } else if (which == std::string_view("without a row")) {
            ScriptDate(script, {});
        } else {
            ScriptDate(script, {dates::NullRow()});
        }
        ScriptInsert(script, values);
        const auto record = NewOfDate(script.Session());
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        EXPECT_EQ(record->BeginnDatum(), DateTime());
        EXPECT_EQ(record->EndUhrzeit(), DateTime());
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, TheGapsAreFilledFromTheLinkedDateAsItStandsAlsoBehindAnotherDate) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    script.OpenSelect(Update(With(With(kFullAssignments, "09:15", "10:00"), "SemTerminID = 17", "SemTerminID = 18")));
    ScriptCosts(script, 7);
    const auto record = Bound(script.Session());
    record->BegUhrzeit(DateTime());
    record->clsTermin()->BeginnUhrzeit(DateTime::TimeOfDay(10, 0));
    record->SemTerminID(18);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->BegUhrzeit(), DateTime::TimeOfDay(10, 0));
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
