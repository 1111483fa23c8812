#include <LumoSeminar/enrolment/clsTeilnehmer.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/cost_statements.h>
#include <test_support/date_list_statements.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using LumoConnection::Script;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace dates = termin_statements;

using clsTeilnehmerTest = ParticipantTest;

const std::string kLabelOfRow = " LumoSeminar062.clsTermin.InitPropertiesByRecordset";

// Init.

TEST_F(clsTeilnehmerTest, InitBindsWithoutAStatement) {
    Script script;
    script.AdoConnection();
    const auto record = Made();
    EXPECT_EQ(record->Init(42, script.Session()), true);
    EXPECT_EQ(record->Key(), "0000000042");
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
}

TEST_F(clsTeilnehmerTest, TheKeyTextHasTenDigitsAndDoesNotLoad) {
    const struct {
        Int32 key;
        const char* text;
    } cases[] = {{0, "0000000000"}, {42, "0000000042"}, {2147483647, "2147483647"}, {-1, "-0000000001"}};
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        EXPECT_EQ(Bound(script.Session(), c.key)->Key(), c.text);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, InitOpensAConnectionThatIsClosed) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen().Ok();
    EXPECT_EQ(Bound(script.Session(), 42)->Key(), "0000000042");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, InitIsFalseAndKeepsNothingWhereTheConnectionIsNotOpen) {
    for (const bool empty : {true, false}) {
        Script before;
        ScriptRecord(before);
        before.ExecuteSql(Delete(7));
        Script script;
        if (empty) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection().Closed();
            script.ConnectionOpen().StaysClosed();
        }
        const auto record = Bound(before.Session());
        EXPECT_EQ(record->Bemerkung(), "vegetarisch: \"Gemüse\" & Nüsse");
        EXPECT_EQ(record->Init(8, script.Session(), 18), false);
        EXPECT_EQ(record->Key(), "0000000007");
        ExpectValues(*record, All(), &Property::full);
        EXPECT_EQ(record->DeleteFromDatabase(), true);
        EXPECT_EQ(before.Report() + script.Report(), "");
        EXPECT_TRUE(script.SessionReleased());
    }
}

TEST_F(clsTeilnehmerTest, InitRaises91WithoutASession) {
    EXPECT_RAISES_UNDER(91, Labels{kLabel + "Init"}, Made()->Init(7, nullptr));
}

TEST_F(clsTeilnehmerTest, InitWithADateLoadsTheRowAndReplacesItsDate) {
    Script script;
    ScriptRecord(script);
    const auto record = Made();
    EXPECT_EQ(record->Init(7, script.Session(), 18), true);
    EXPECT_EQ(script.Report(), "") << "a date is not read";
    EXPECT_EQ(record->SemTerminID(), 18);
    record->SemTerminID(17);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ANewRecordOfADateLinksThatDateAndNotTheOneOfKeyZeroThatItsLoadHasRead) {
    Script script;
    ScriptNew(script);
    ScriptDate(script);
    const auto record = Made();
    EXPECT_EQ(record->Init(0, script.Session(), 17), true);
    EXPECT_EQ(record->Key(), "0000000000");
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_EQ(record->Teilnahme(), -1);
    EXPECT_EQ(record->Herkunft(), 3);
    EXPECT_EQ(record->Ergebnis(), 1);
    EXPECT_EQ(record->ErfDatum(), kToday);
    EXPECT_EQ(record->ErfUser(), kUser);
    EXPECT_EQ(record->MDNR(), 0);
    record->SemTerminID(0);
    ExpectValues(*record, All(), &Property::at_null);
    record->SemTerminID(17);
    EXPECT_EQ(record->clsTermin()->Code(), "BS-17") << "linked only now, so with the date of then";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ADateInInitDropsALinkThatWasMadeBefore) {
    Script script;
    ScriptRecord(script);
    script.AdoConnection();
    script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
    const auto record = Bound(script.Session());
    record->SemTerminID();
    const auto before = record->clsTermin();
    EXPECT_EQ(record->Init(7, script.Session(), 18), true);
    EXPECT_FALSE(record->clsTermin() == before);
    EXPECT_EQ(record->clsTermin()->Key(), "0000000018");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ASecondInitLoadsAgainAndReplacesWhatWasLet) {
    Script script;
    ScriptRecord(script);
    ScriptRecord(script);
    ScriptRecord(script, {NullRow()}, 8);
    const auto record = Bound(script.Session());
    LetAll(*record, &Property::zero);
    EXPECT_EQ(record->Init(7, script.Session()), true);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(record->Init(8, script.Session()), true);
    ExpectValues(*record, All(), &Property::at_null);
    EXPECT_EQ(record->Key(), "0000000008");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, InitWithADateFailsAsDocumentedAtEachStep) {
    const Labels load = {kLabel + "PropertiesInit", kLabel + "MDNr -> Property LET", kLabel + "Init"};
    test_support::ExpectFailures([](Script& script) { ScriptNew(script); },
                                 [](const Ref<DataSession>& session) { (void)Made()->Init(0, session, 17); },
                                 {{1, kNotOk, 0, {}, {"Open of the connection"}},
                                  {1, kRaises, 7001, {kLabel + "Init"}},
                                  {2, kNotOk},
                                  {2, kRaises, 7001, load},
                                  {3, kNotOk},
                                  {3,
                                   kRaises,
                                   7001,
                                   {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsTermin.SemTerminID --> GET",
                                    kLabelOfRow, load[0], load[1], load[2]}}});
}

// The load.

TEST_F(clsTeilnehmerTest, ReadsItsRowOnceByPosition) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(Select(7)).Rows(std::vector<std::string>(18, "X"), {FullRow(), NullRow()});
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->TeilnehmerID(), 7);
    for (int i = 0; i < 2; ++i) ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(record->NewStorno(), false);
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(asked_, std::vector<std::string>{}) << "the row has an entry user";
}

TEST_F(clsTeilnehmerTest, TheLetOfTheKeyDoesNotLoadAndTheLoadTakesIt) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    record->TeilnehmerID(8);
    EXPECT_EQ(record->Key(), "0000000008");
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(Select(8)).Rows(kColumns, {FullRow()});
    EXPECT_EQ(record->TeilnehmerID(), 8);
    record->TeilnehmerID(9);
    EXPECT_EQ(record->Key(), "0000000009");
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "") << "another key under a read row does not load again";
}

TEST_F(clsTeilnehmerTest, NewStornoIsReadWithoutALoadLetWithOneAndFalseBehindEach) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->NewStorno(), false);
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(Select(7)).Rows(kColumns, {FullRow()});
    record->NewStorno(true);
    EXPECT_EQ(script.Report(), "");
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(record->NewStorno(), true) << "the load came before the let";
    for (const bool missing : {false, true}) {
        record->NewStorno(true);
        script.AdoConnection();
        EXPECT_EQ(record->Init(7, script.Session()), true);
        EXPECT_EQ(record->NewStorno(), true) << "it is the load that resets it";
        const auto load = script.OpenSelect(Select(7));
        if (missing) {
            load.Rows(kColumns, {});
            ScriptDate(script, {}, 0);
        } else {
            load.Rows(kColumns, {NullRow()});
        }
        EXPECT_EQ(record->Herkunft(), 3);
        EXPECT_EQ(record->NewStorno(), false);
    }
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, DoSendInfosIsTrueAtFirstCostsNothingAndSurvivesInitAndLoad) {
    Script script;
    script.AdoConnection();
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->DoSendInfos(), true);
    record->DoSendInfos(false);
    EXPECT_EQ(record->DoSendInfos(), false);
    EXPECT_EQ(script.Report(), "");
    ScriptRecord(script);
    EXPECT_EQ(record->Init(7, script.Session()), true);
    EXPECT_EQ(record->Herkunft(), 5);
    EXPECT_EQ(record->DoSendInfos(), false);
    record->DoSendInfos(true);
    EXPECT_EQ(record->DoSendInfos(), true);
    EXPECT_EQ(script.Report(), "");
}

// What stands in for what the row has not.

TEST_F(clsTeilnehmerTest, AZeroOrAnEmptyTextInTheRowIsNoNull) {
    Script script;
    ScriptRecord(script, {{0, 0, 0, 0, 0, DateTime(), "", Int16{0}, 0, DateTime(), DateTime(), DateTime(), DateTime(),
                           DateTime(), 0, Int16{0}, 0, ""}});
    const auto record = Bound(script.Session());
    ExpectValues(*record, All(), &Property::zero);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(asked_, std::vector<std::string>{});
}

TEST_F(clsTeilnehmerTest, TheSessionDefaultsAreMadeAtTheFirstNeedAndKeptForAllRecords) {
    Script script;
    ScriptRecord(script, {FullRow()}, 1);
    ScriptRecord(script, {NullRow()}, 2);
    ScriptNew(script);
    const auto user = [&](Int32 key) { return Bound(script.Session(), key)->ErfUser(); };
    EXPECT_EQ(user(1), "Jörg \"Jo\" Ähre");
    EXPECT_EQ(asked_, std::vector<std::string>{});
    EXPECT_EQ(user(2), kUser);
    EXPECT_EQ(asked_, (std::vector<std::string>{"made", "first 2"}));
    EXPECT_EQ(user(0), kUser);
    EXPECT_EQ(asked_, (std::vector<std::string>{"made", "first 2", "first 2"}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ARecordWithoutARowIsANewOneAndIsNotLookedForAgain) {
    for (const Int32 key : {0, 7, -3}) {
        Script script;
        ScriptNew(script, key);
        const auto record = Bound(script.Session(), key);
        for (int i = 0; i < 2; ++i) ExpectValues(*record, All(), &Property::at_null);
        EXPECT_EQ(record->TeilnehmerID(), key);
        EXPECT_EQ(record->NewStorno(), false);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, WithoutARowTheDateIsThatOfTheFieldAndTheKeysOfThePersonStay) {
    for (const bool refused : {false, true}) {
        Script script;
        ScriptRecord(script);
        ScriptRecord(script, {}, 99);
        const auto date = script.OpenSelect(dates::Select(17));
        if (refused) {
            date.Refused("time-out");
        } else {
            date.Rows(dates::kColumns, {dates::FullRow()});
        }
        const auto record = Bound(script.Session());
        EXPECT_EQ(record->MDNR(), 5);
        EXPECT_EQ(record->Init(99, script.Session()), true);
        for (const auto& property : All()) {
            const bool stays = property.label == "ANNr" || property.label == "BWID" || property.label == "LAID" ||
                               (property.label == "SemTerminID" && !refused);
            EXPECT_EQ(property.get(*record), stays ? property.full : property.at_null) << property.label;
        }
        EXPECT_EQ(script.Report(), "") << "a date that cannot be read has the key 0";
    }
}

TEST_F(clsTeilnehmerTest, WithoutARowLAIDStaysAsItWasLetBefore) {
    Script script;
    ScriptNew(script);
    const auto record = Bound(script.Session(), 0);
    record->LAID(67);
    EXPECT_EQ(record->MDNR(), 0);
    EXPECT_EQ(record->LAID(), 67);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, WithoutARowTheDateIsTakenFromALinkThatWasMadeBefore) {
    Script script;
    ScriptRecord(script);
    ScriptDate(script);
    ScriptRecord(script, {}, 99);
    const auto record = Bound(script.Session());
    record->SemTerminID();
    EXPECT_EQ(record->clsTermin()->MaxTeil(), 14);
    record->SemTerminID(18);
    EXPECT_EQ(record->Init(99, script.Session()), true);
    EXPECT_EQ(record->SemTerminID(), 17);
    EXPECT_EQ(script.Report(), "");
}

// Loads that fail.

TEST_F(clsTeilnehmerTest, BehindAnotherInitARefusedLoadLeavesTheFormerRow) {
    Script script;
    ScriptRecord(script);
    script.AdoConnection();
    script.OpenSelect(Select(8)).Refused("time-out");
    const auto record = Bound(script.Session());
    record->NewStorno(true);
    EXPECT_EQ(record->Init(8, script.Session()), true);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(record->NewStorno(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, WithoutSessionDefaultsTheLoadOfANewRecordRaises429AndIsTriedAgain) {
    Script script;
    ScriptNew(script);
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    const auto record = Bound(script.Session(), 0);
    SetComponents({});
    EXPECT_RAISES_UNDER(429, (Labels{kLabelOfRow, kLabel + "PropertiesInit", kLabel + "ErfUser -> Property GET"}),
                        record->ErfUser());
    GiveDefaults();
    ExpectValues(*record, All(), &Property::at_null);
    EXPECT_EQ(script.Report(), "") << "the date of key 0 stays linked";
}

// The labels.

TEST_F(clsTeilnehmerTest, TheLabelsAreTheseTexts) {
    const struct {
        void (*run)(clsTeilnehmer&);
        const char* label;
    } cases[] = {
        {[](clsTeilnehmer& r) { r.TeilnehmerID(); }, " LumoSeminar062.clsTeilnehmer.TeilnehmerID -> Property GET"},
        {[](clsTeilnehmer& r) { r.SemTerminID(); }, " LumoSeminar062.clsTeilnehmer.SemTerminID -> Property GET"},
        {[](clsTeilnehmer& r) { r.SemTerminID(1); }, " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET"},
        {[](clsTeilnehmer& r) { r.MDNR(); }, " LumoSeminar062.clsTeilnehmer.MDNr -> Property GET"},
        {[](clsTeilnehmer& r) { r.MDNR(1); }, " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET"},
        {[](clsTeilnehmer& r) { r.NewStorno(true); }, "LumoSeminar.clsTeilnehmer.NewStorno"},
    };
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        script.OpenSelect(Select(7)).Raises(-1, "Die Verbindung ist abgebrochen.", "Treiber");
        const auto record = Bound(script.Session());
        const auto error = RaisedBy([&] { return c.run(*record), 0; });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -1);
        EXPECT_EQ(error->Source(), "Treiber");
        EXPECT_EQ(error->Description(),
                  "Die Verbindung ist abgebrochen.\r\n LumoSeminar062.clsTeilnehmer.PropertiesInit\r\n" + Text(c.label));
        EXPECT_EQ(script.Report(), "");
    }
}

// The delete.

TEST_F(clsTeilnehmerTest, ADeleteIsOneStatementWithoutALoadAndLeavesTheCostsAlone) {
    for (const Int32 key : {7, 0}) {
        Script script;
        script.AdoConnection();
        script.ExecuteSql(key == 7 ? "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 7"
                                   : "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 0");
        EXPECT_EQ(Bound(script.Session(), key)->DeleteFromDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsTeilnehmerTest, ARefusedDeleteIsFalseAndRaisesNothing) {
    Script script;
    script.AdoConnection();
    script.ExecuteSql(Delete(7)).Refused("Die Zeile wird verwendet.");
    EXPECT_EQ(Bound(script.Session())->DeleteFromDatabase(), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsTeilnehmerTest, ADeleteFailsAsDocumentedAtEachStep) {
    ExpectRecordFailures([](Script& script) { script.ExecuteSql(Delete(7)); },
                         [](clsTeilnehmer& record) { (void)record.DeleteFromDatabase(); },
                         {{1, kNotOk}, {1, kRaises, 7001, {kLabel + "DeleteFromDatabase"}}});
}

TEST_F(clsTeilnehmerTest, ADeletedRecordKeepsItsFieldsAndItsKey) {
    Script script;
    ScriptRecord(script);
    script.ExecuteSql(Delete(7));
    const auto record = Bound(script.Session());
    EXPECT_EQ(record->MDNR(), 5);
    EXPECT_EQ(record->DeleteFromDatabase(), true);
    EXPECT_EQ(record->TeilnehmerID(), 7);
    ExpectValues(*record, All(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

// The end.

TEST_F(clsTeilnehmerTest, ARecordWithAllItsLinksLetsGoOfTheSession) {
    Script script;
    ScriptRecord(script);
    ScriptCosts(script, 7, {cost_statements::kLine});
    script.AdoConnection();
    script.OpenSelect(date_list_statements::SelectOfParticipants(5, " AND ANNR = 123"))
        .Rows(date_list_statements::kListColumns, {{17, DateTime::Of(2010, 3, 5), "Brandschutz", "BS-17"}});
    auto record = Bound(script.Session());
    record->NewStorno(false);
    EXPECT_EQ(record->clsTermin()->Key(), "0000000017");
    EXPECT_EQ(record->objKosten()->Count(), 1);
    EXPECT_EQ(record->colTermine()->Count(), 1);
    EXPECT_EQ(record->objWBPerson()->PersonID(), 123);
    EXPECT_FALSE(script.SessionReleased());
    record.Reset();
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
