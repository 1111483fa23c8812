#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/date_list_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using date_list_statements::kListColumns;
using date_list_statements::SelectOfParticipants;
using LumoConnection::Script;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace dates = termin_statements;

using clsTeilnehmerTest = ParticipantTest;

const std::string kLoad = kLabel + "PropertiesInit";
const std::string kPersonLoad = " in LumoSeminar.IsInitializedPerson";
const std::string kGet = " -> Property GET";
const std::string kLet = " -> Property LET";

/// The full row with other keys of the person.
std::vector<Variant> RowOf(Int32 employee, Int32 applicant, Int32 worker) {
    auto row = FullRow();
    row[2] = employee;
    row[3] = applicant;
    row[4] = worker;
    return row;
}

void ScriptPerson(Script& script, const std::string& sql, const std::vector<std::vector<Variant>>& rows) {
    script.OpenSelect(sql).Rows({"Name", "Vorname", "ANNR"}, rows);
    script.CloseRows();
}

const std::string kSelectEmployee = "Select Name,Vorname,ANNR from Arbeitnehmer where MDNR = 5 AND ANNR = 123";
const std::string kSelectApplicant = "Select Nachname,Vornamem,BWNr from BW where BWID = 45";
const std::string kSelectWorker = "Select Name,Vorname,LID from LA where LID = 67";
const std::vector<Variant> kMueller = {"Müller", "Jörg", 123};

Ref<clsWBPerson> PersonOf(const Ref<DataSession>& session, Int32 key, Byte kind) {
    auto person = New<clsWBPerson>();
    auto of = session;
    person->Init(5, key, kind, of);
    return person;
}

// The person.

TEST_F(clsTeilnehmerTest, TheFirstKeyThatIsNotZeroSaysWhoThePersonIs) {
    const struct {
        Int32 employee, applicant, worker;
        Byte kind;
        Int32 key;
        const char* letters;
    } cases[] = {
        {123, 45, 67, 2, 123, "AN"}, {123, 0, 0, 2, 123, "AN"}, {0, 45, 67, 3, 45, "BW"},  {0, 45, 0, 3, 45, "BW"},
        {0, 0, 67, 4, 67, "LA"},     {0, 0, 0, 2, 0, "AN"},     {-1, 45, 67, 2, -1, "AN"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key);
        Script script;
        ScriptRecord(script, {RowOf(c.employee, c.applicant, c.worker)});
        const auto record = Bound(script.Session());
        const auto person = record->objWBPerson();
        EXPECT_EQ(person->ModId(), c.kind);
        EXPECT_EQ(person->PersonID(), c.key);
        EXPECT_EQ(person->MDNR(), 5);
        EXPECT_EQ(record->PersGr(), c.letters);
        EXPECT_EQ(record->TNID(), c.key);
        EXPECT_TRUE(record->objWBPerson() == person);
        EXPECT_EQ(script.Report(), "") << "the person is not read";
    }
}

TEST_F(clsTeilnehmerTest, APersonStaysAsItWasMadeAlsoBehindOtherKeysAndAnotherInit) {
    Script script;
    ScriptRecord(script);
    script.AdoConnection();
    const auto record = Bound(script.Session());
    const auto person = record->objWBPerson();
    record->ANNr(0);
    record->MDNR(6);
    EXPECT_TRUE(record->objWBPerson() == person);
    EXPECT_EQ(record->PersGr(), "AN");
    EXPECT_EQ(record->TNID(), 123);
    EXPECT_EQ(record->Init(8, script.Session()), true);
    script.OpenSelect(Select(8)).Rows(kColumns, {RowOf(0, 45, 0)});
    EXPECT_TRUE(record->objWBPerson() == person);
    EXPECT_EQ(script.Report(), "") << "the keys are looked at on each call, so the record loads";
    EXPECT_EQ(record->PersGr(), "AN");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, APersonSetFromOutsideIsKeptWhateverTheKeysSayAndOneSetToNothingIsMadeAnew) {
    Script script;
    ScriptRecord(script);
    const auto record = Bound(script.Session());
    for (const Byte kind : {Byte{3}, Byte{4}, Byte{9}}) {
        const auto person = PersonOf(script.Session(), 99, kind);
        record->objWBPerson(person);
        EXPECT_TRUE(record->objWBPerson() == person);
        EXPECT_EQ(record->PersGr(), kind == 3 ? "BW" : "LA");
        EXPECT_EQ(record->TNID(), 99);
    }
    record->objWBPerson(nullptr);
    EXPECT_EQ(record->TNID(), 123);
    EXPECT_EQ(record->PersGr(), "AN");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, SettingAPersonCostsNothing) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    record->objWBPerson(PersonOf(script.Session(), 99, 3));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, AParticipantOfATrainingHistoryHasThePersonItBelongsToUntilAnotherIsSet) {
    Script script;
    const auto history = script
                             .OpenSelect(
                                 "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE BWID = 45 Order by BeginnDatum, "
                                 "BegUhrzeit,EndeDatum,EndUhrzeit ")
                             .Rows({"TeilnehmerID", "SemTerminID"}, {{7, 17}});
    ScriptRecord(script);
    script.CloseRows(history);
    const auto person = PersonOf(script.Session(), 45, 3);
    const auto record = person->colWeiterbildungen()->Item(1);
    EXPECT_TRUE(record->objWBPerson() == person);
    EXPECT_EQ(record->MDPersNr(), "5M45") << "whatever the keys of the record say";
    const auto other = PersonOf(script.Session(), 99, 4);
    record->objWBPerson(other);
    EXPECT_TRUE(record->objWBPerson() == other);
    record->objWBPerson(nullptr);
    EXPECT_EQ(record->MDPersNr(), "5M123");
    EXPECT_FALSE(record->objWBPerson() == person);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, NamesAndNumberAreReadFromThePersonInOneStatementByItsKind) {
    const struct {
        std::vector<Variant> row;
        std::string sql;
        std::vector<Variant> person;
        Text number;
    } cases[] = {
        {RowOf(123, 0, 0), kSelectEmployee, kMueller, "123"},
        {RowOf(0, 45, 0), kSelectApplicant, {"Müller", "Jörg", "B-2010-\"ü\""}, "B-2010-\"ü\""},
        {RowOf(0, 0, 67), kSelectWorker, {"Müller", "Jörg", 67}, "67"},
    };
    for (const auto& c : cases) {
        for (const bool number_first : {true, false}) {
            SCOPED_TRACE(c.sql);
            Script script;
            ScriptRecord(script, {c.row});
            ScriptPerson(script, c.sql, {c.person});
            const auto record = Bound(script.Session());
            if (number_first) {
                EXPECT_EQ(record->PersNr(), c.number);
            }
            EXPECT_EQ(record->Name(), "Müller");
            EXPECT_EQ(record->Vorname(), "Jörg");
            EXPECT_EQ(record->NameVorname(), "Müller, Jörg");
            EXPECT_EQ(record->PersNr(), c.number);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsTeilnehmerTest, NameVornameIsEmptyWithoutEitherAndKeepsTheCommaWithOne) {
    const struct {
        std::vector<std::vector<Variant>> rows;
        Text name;
    } cases[] = {
        {{}, ""},
        {{{Variant::Null(), Variant::Null(), Variant::Null()}}, ""},
        {{{"Müller", "", ""}}, "Müller, "},
        {{{"", "Jörg", ""}}, ", Jörg"},
        {{{" ", "", ""}}, " , "},
        {{{"von der Größe, geb. Ähre", "\"Jo\"", ""}}, "von der Größe, geb. Ähre, \"Jo\""},
    };
    for (const auto& c : cases) {
        Script script;
        ScriptRecord(script);
        ScriptPerson(script, kSelectEmployee, c.rows);
        const auto record = Bound(script.Session());
        EXPECT_EQ(record->NameVorname(), c.name);
        EXPECT_EQ(record->NameVorname(), c.name);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, NamesAndNumberAreLetOnThePersonAlone) {
    Script script;
    ScriptRecord(script);
    ScriptPerson(script, kSelectEmployee, {kMueller});
    const auto record = Bound(script.Session());
    record->Name("Löffler");
    record->Vorname("Käthe");
    record->PersNr("0123");
    EXPECT_EQ(record->NameVorname(), "Löffler, Käthe");
    EXPECT_EQ(record->PersNr(), "0123");
    EXPECT_EQ(record->objWBPerson()->Nachname(), "Löffler");
    EXPECT_EQ(record->objWBPerson()->Vorname(), "Käthe");
    EXPECT_EQ(record->objWBPerson()->PersNr(), "0123");
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, TNIDIsLetOnThePersonAndNotInTheKeysOfTheRecord) {
    Script script;
    ScriptRecord(script);
    ScriptPerson(script, "Select Name,Vorname,ANNR from Arbeitnehmer where MDNR = 5 AND ANNR = 99", {{"Ähre", "Jo", 99}});
    const auto record = Bound(script.Session());
    record->TNID(99);
    EXPECT_EQ(record->TNID(), 99);
    EXPECT_EQ(record->objWBPerson()->PersonID(), 99);
    EXPECT_EQ(record->NameVorname(), "Ähre, Jo");
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, APersonThatCannotBeReadRaises9999UnderTheLabelOfTheMember) {
    const struct {
        void (*run)(clsTeilnehmer&);
        Labels labels;
    } cases[] = {
        {[](clsTeilnehmer& r) { r.Name(); }, {kPersonLoad, kLabel + "Name" + kGet}},
        {[](clsTeilnehmer& r) { r.Name("Ähre"); }, {kPersonLoad, kLabel + "Name" + kLet}},
        {[](clsTeilnehmer& r) { r.Vorname(); }, {kPersonLoad, kLabel + "VorName" + kGet}},
        {[](clsTeilnehmer& r) { r.Vorname("Jo"); }, {kPersonLoad, kLabel + "VorName" + kLet}},
        {[](clsTeilnehmer& r) { r.PersNr(); }, {kPersonLoad, kLabel + "PersNr" + kGet}},
        {[](clsTeilnehmer& r) { r.PersNr("1"); }, {kPersonLoad, kLabel + "PersNr" + kLet}},
        {[](clsTeilnehmer& r) { r.NameVorname(); }, {kPersonLoad, kLabel + "Name" + kGet, kLabel + "NameVorname" + kGet}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.labels.back());
        ExpectRecordFailures(
            [](Script& script) {
                script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
                ScriptPerson(script, kSelectEmployee, {kMueller});
            },
            [&](clsTeilnehmer& record) {
                if (record.Herkunft() == 5) c.run(record);
            },
            {{1, kNotOk},
             {2, kNotOk, 9999, c.labels},
             {1, kRaises, 7001, {kLoad, kLabel + "Herkunft" + kGet}},
             {2, kRaises, 7001, c.labels},
             {3, kRaises, 7001, c.labels}});
    }
}

TEST_F(clsTeilnehmerTest, WhatIsKnownThroughThePersonLoadsTheRecordFirstUnderItsOwnLabel) {
    const struct {
        void (*run)(clsTeilnehmer&);
        Labels labels;
    } cases[] = {
        {[](clsTeilnehmer& r) { r.TNID(); }, {kLoad, kLabel + "TNID" + kGet}},
        {[](clsTeilnehmer& r) { r.TNID(1); }, {kLoad, kLabel + "TNID" + kLet}},
        {[](clsTeilnehmer& r) { r.Name(); }, {kLoad, kLabel + "Name" + kGet}},
        {[](clsTeilnehmer& r) { r.Name("x"); }, {kLoad, kLabel + "Name" + kLet}},
        {[](clsTeilnehmer& r) { r.Vorname(); }, {kLoad, kLabel + "VorName" + kGet}},
        {[](clsTeilnehmer& r) { r.Vorname("x"); }, {kLoad, kLabel + "VorName" + kLet}},
        {[](clsTeilnehmer& r) { r.NameVorname(); }, {kLoad, kLabel + "NameVorname" + kGet}},
        {[](clsTeilnehmer& r) { r.PersGr(); }, {kLoad, kLabel + "PersGr" + kGet}},
        {[](clsTeilnehmer& r) { r.PersNr(); }, {kLoad, kLabel + "PersNr" + kGet}},
        {[](clsTeilnehmer& r) { r.PersNr("x"); }, {kLoad, kLabel + "PersNr" + kLet}},
        {[](clsTeilnehmer& r) { r.MDPersNr(); }, {kLoad, kLabel + "PersGr" + kGet, "LumoSeminar.clsTeilnehmer.MDPersNr"}},
        {[](clsTeilnehmer& r) { r.MDPersNr("7M1"); }, {kLoad, kLabel + "ANNr" + kLet, "LumoSeminar.clsTeilnehmer.MDPersNr"}},
        {[](clsTeilnehmer& r) { r.Kost(); }, {kLoad, kLabel + "Kost" + kGet}},
        {[](clsTeilnehmer& r) { r.TeilnehmerKosten(); }, {kLoad, " in LumoSeminar.TeilnehmerKosten"}},
        {[](clsTeilnehmer& r) { r.TeilnehmerKosten(1); }, {kLoad, " in LumoSeminar.TeilnehmerKosten"}},
        {[](clsTeilnehmer& r) { r.objWBPerson(); }, {kLoad, kLabel + "ANNr" + kGet}},
        {[](clsTeilnehmer& r) { r.colTermine(); }, {kLoad, kLabel + "ANNr" + kGet, "LumoSeminar.clsTeilnehmer.ColTermine"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.labels.back());
        Script script;
        script.AdoConnection();
        script.OpenSelect(Select(7)).Raises(-1, "Die Verbindung ist abgebrochen.", "Treiber");
        const auto record = Bound(script.Session());
        const auto error = RaisedBy([&] { return c.run(*record), 0; });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -1);
        EXPECT_EQ(error->Source(), "Treiber");
        EXPECT_EQ(LabelsOf(error), c.labels);
        EXPECT_EQ(script.Report(), "");
    }
}

// Client and person in one text.

TEST_F(clsTeilnehmerTest, MDPersNrHasTheKeyOfTheKindOfThePerson) {
    const struct {
        Byte kind;
        Text text;
    } cases[] = {{2, "5M123"}, {3, "5M45"}, {4, "5M67"}, {9, "5M67"}};
    for (const auto& c : cases) {
        Script script;
        ScriptRecord(script);
        const auto record = Bound(script.Session());
        record->objWBPerson(PersonOf(script.Session(), 99, c.kind));
        EXPECT_EQ(record->MDPersNr(), c.text);
        EXPECT_EQ(script.Report(), "");
    }
    Script script;
    ScriptRecord(script, {RowOf(0, 0, 0)});
    const auto nobody = Bound(script.Session());
    nobody->MDNR(-1);
    EXPECT_EQ(nobody->MDPersNr(), "-1M0");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, MDPersNrSetsClientAndEmployeeWhateverTheKindOfThePerson) {
    const struct {
        Text text;
        Int32 client;
        Int32 employee;
    } cases[] = {
        {"7M123", 7, 123}, {"-1M0", -1, 0}, {"2147483647M-2147483648", 2147483647, -2147483647 - 1}, {" 7 M 123 ", 7, 123}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        Script script;
        ScriptRecord(script, {RowOf(0, 45, 0)});
        const auto record = Bound(script.Session());
        record->MDPersNr(c.text);
        EXPECT_EQ(record->ANNr(), c.employee);
        EXPECT_EQ(record->BWID(), 45);
        EXPECT_EQ(record->MDNR(), c.client);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, MDPersNrRaisesForATextThatIsNoSuchAndSetsWhatStandsBehindTheFirstMOnly) {
    const struct {
        Text text;
        Int32 number;
        Int32 employee;
    } cases[] = {{"7123", 13, 123}, {"", 13, 123},    {"7m99", 13, 123},        {"M", 13, 123},
                 {"7M", 13, 123},   {"7Mx", 13, 123}, {"7M2147483648", 6, 123}, {"7M1M2", 13, 123},
                 {"M99", 13, 99},   {"xM99", 13, 99}, {"3000000000M99", 6, 99}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        Script script;
        ScriptRecord(script);
        const auto record = Bound(script.Session());
        EXPECT_EQ(record->MDNR(), 5);
        EXPECT_RAISES_UNDER(c.number, Labels{"LumoSeminar.clsTeilnehmer.MDPersNr"}, record->MDPersNr(c.text));
        EXPECT_EQ(record->ANNr(), c.employee);
        EXPECT_EQ(record->MDNR(), 5);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, MDPersNrDoesNotLoadForATextWithoutM) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    EXPECT_RAISES(13, record->MDPersNr("7123"));
    EXPECT_EQ(script.Report(), "");
}

// The other links.

TEST_F(clsTeilnehmerTest, TheDateIsLinkedWithoutALoadAndKept) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    const auto early = record->clsTermin();
    EXPECT_EQ(early->Key(), "0000000000") << "linked before the load, it has the date of then";
    script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_TRUE(record->clsTermin() == early);
    ScriptRecord(script, {FullRow()}, 8);
    EXPECT_EQ(record->Init(8, script.Session()), true);
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_TRUE(record->clsTermin() == early);
    EXPECT_EQ(script.Report(), "");

    Script other;
    ScriptRecord(other);
    other.OpenSelect(dates::Select(17)).Rows(dates::kColumns, {dates::FullRow()});
    const auto loaded = Bound(other.Session());
    loaded->Herkunft();
    const auto date = loaded->clsTermin();
    EXPECT_EQ(date->Code(), "BS-17");
    loaded->SemTerminID(18);
    EXPECT_TRUE(loaded->clsTermin() == date);
    EXPECT_EQ(other.Report(), "");
}

TEST_F(clsTeilnehmerTest, TheDatesOfThePersonAreListedByItsKindAndTheListIsKept) {
    const struct {
        Byte kind;
        const char* filter;
    } cases[] = {{2, " AND ANNR = 123"}, {3, " AND BWID = 45"}, {4, " AND LAID = 67"}, {9, " AND LAID = 67"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.filter);
        Script script;
        ScriptRecord(script);
        script.AdoConnection();
        script.OpenSelect(SelectOfParticipants(5, c.filter))
            .Rows(kListColumns, {{18, DateTime::Of(2010, 3, 5), "Löschübung", "ÜB"}, {17, Variant::Null(), "", ""}});
        script.AdoConnection();
        const auto record = Bound(script.Session());
        record->objWBPerson(PersonOf(script.Session(), 99, c.kind));
        const auto list = record->colTermine();
        ASSERT_EQ(list->Count(), 2);
        EXPECT_EQ(list->Item("0000000018")->Titel(false), "Löschübung");
        EXPECT_EQ(list->Item(2)->Key(), "0000000017");
        record->ANNr(1);
        record->MDNR(6);
        EXPECT_TRUE(record->colTermine() == list);
        EXPECT_EQ(record->Init(8, script.Session()), true);
        EXPECT_TRUE(record->colTermine() == list);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, TheDatesOfARecordsOwnPersonLoadTheRecordForClientAndKey) {
    for (const bool employee : {true, false}) {
        Script script;
        ScriptRecord(script, {employee ? RowOf(123, 45, 67) : RowOf(0, 0, 67)});
        script.AdoConnection();
        script.OpenSelect(
            std::string("SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT  INNER JOIN Sem_Teilnehmer_IT ON "
                        "Sem_Termin_IT.SemTerminID = Sem_Teilnehmer_IT.SemTerminID WHERE (MDNr = 5 OR MDNr = -1)  AND ") +
            (employee ? "ANNR = 123" : "LAID = 67") + " ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ");
        EXPECT_EQ(Bound(script.Session())->colTermine()->Count(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, DatesThatAreRefusedAreAnEmptyListWhichIsKept) {
    for (const bool closed : {true, false}) {
        Script script;
        ScriptRecord(script);
        if (closed) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection();
            script.OpenSelect(SelectOfParticipants(5, " AND ANNR = 123")).Refused("Mehrdeutiger Spaltenname 'SemTerminID'.");
        }
        const auto record = Bound(script.Session());
        const auto list = record->colTermine();
        ASSERT_TRUE(list);
        EXPECT_EQ(list->Count(), 0);
        EXPECT_TRUE(record->colTermine() == list);
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, ReadingTheDatesOfThePersonFailsAsDocumentedAtEachStep) {
    const std::string own = "LumoSeminar.clsTeilnehmer.ColTermine";
    const std::string dates_init = " LumoSeminar062.clsColTermine.Init";
    const std::string no_row = "OpenSelect: " + SelectOfParticipants(0, " AND ANNR = 0");
    ExpectRecordFailures(
        [](Script& script) {
            script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
            script.AdoConnection();
            script.OpenSelect(SelectOfParticipants(5, " AND ANNR = 123")).Rows(kListColumns, {{17, Variant::Null(), "", ""}});
        },
        [](clsTeilnehmer& record) {
            record.colTermine();
            record.colTermine();
        },
        {{1, kNotOk, 0, {}, {"AdoConnection", no_row}},
         {2, kNotOk, 0, {}, {"Open of the connection"}},
         {3, kNotOk},
         {1, kRaises, 7001, {kLoad, kLabel + "ANNr" + kGet, own}},
         {2, kRaises, 7001, {dates_init, own}},
         {3, kRaises, 7001, {" LumoSeminar062.clsColTermine.LoadKeysFromDatabase", dates_init, own}}});
}

}  // namespace
}  // namespace LumoSeminar
