#include <LumoSeminar/waitlist/clsSemWarteliste.h>

#include <gtest/gtest.h>

#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace waitlist_statements;
using LumoConnection::Script;
using participant_statements::Labels;
using test_support::LabelsOf;
using test_support::RaisedBy;

const Labels kLabelsOfLoad = {" in LumoSeminar.IsInitialized"};
const Variant kNull = Variant::Null();

/// The full row with one column put otherwise.
std::vector<Variant> RowWith(std::size_t position, const Variant& value) {
    auto row = FullRow();
    row[position] = value;
    return row;
}

// Binding, key and plain fields

TEST(clsSemWarteliste, InitKeepsKeyAndSessionWithoutAStatementAndIsFalse) {
    for (const Int32 key : {0, 42, -3}) {
        Script script;
        auto entry = New<clsSemWarteliste>();
        EXPECT_EQ(entry->Init(key, script.Session()), false);
        EXPECT_EQ(entry->SemWartelisteID(), key);
        EXPECT_FALSE(script.SessionReleased());
        entry.Reset();
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemWarteliste, InitIsFalseForAnEmptySessionTooAndTheFirstLoadRaises91) {
    for (const Property& property : Properties()) {
        const auto entry = Bound(nullptr);
        const auto get = RaisedBy([&] { return property.get(*entry); });
        const auto let = RaisedBy([&] { return property.let(*entry, property.other), 0; });
        for (const auto& error : {get, let}) {
            ASSERT_TRUE(error) << property.name;
            EXPECT_EQ(error->Number(), 91);
            EXPECT_EQ(LabelsOf(error), kLabelsOfLoad);
        }
    }
}

TEST(clsSemWarteliste, TheKeyTextIsPlainDecimalAndFollowsTheKeyWithoutALoad) {
    Script script;
    const auto entry = Bound(script.Session(), 7);
    EXPECT_EQ(entry->Key(), "7");
    for (const auto& [key, text] : {std::pair{0, "0"}, {42, "42"}, {2147483647, "2147483647"}, {-3, "-3"}}) {
        entry->SemWartelisteID(key);
        EXPECT_EQ(entry->Key(), text);
        EXPECT_EQ(entry->SemWartelisteID(), key);
    }
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, InfosAreSentAtFirstAndWhetherIsAPlainField) {
    Script script;
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->DoSendInfos(), true);
    entry->DoSendInfos(false);
    EXPECT_EQ(entry->DoSendInfos(), false);
    EXPECT_EQ(entry->Init(43, script.Session()), false);
    EXPECT_EQ(entry->DoSendInfos(), false);
    EXPECT_EQ(New<clsSemWarteliste>()->DoSendInfos(), true);
    EXPECT_EQ(script.Report(), "");
}

// The load

TEST(clsSemWarteliste, AnEntryThatWasOnlyBoundTakesItsLastThreeFieldsFromTheColumnBefore) {
    Script script;
    ScriptEntry(script, 42, {FullRow()});
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->ModId(), 2);
    EXPECT_EQ(entry->MDNR(), 5);
    EXPECT_EQ(entry->TNID(), 45);
    EXPECT_EQ(entry->ErfDat(), DateTime::Of(2010, 2, 14, 8, 30, 5));
    EXPECT_EQ(entry->Herkunft(), 3);
    EXPECT_EQ(entry->Wunschtermin(), DateTime::Of(2010, 4, 1));
    EXPECT_EQ(entry->SemTerminID(), 17);
    EXPECT_EQ(entry->SemID(), 105);
    EXPECT_EQ(entry->Status(), 105) << "the seminar";
    EXPECT_EQ(entry->GeaendertAm(), DateTime::Of(1899, 12, 29)) << "the stored status -1 as a day";
    EXPECT_EQ(entry->GeaendertVon(), "20.02.2010 23:59:58") << "the moment of the change";
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, TheLastColumnIsNotRead) {
    Script script;
    auto columns = kColumns;
    auto row = FullRow();
    columns.pop_back();
    row.pop_back();
    script.OpenSelect(SelectEntry(42)).Rows(columns, {row});
    script.CloseRows();
    ExpectValues(*Bound(script.Session()), &Property::alone);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, NullsAreZeroAndTheKeyIsThatOfTheRow) {
    for (const auto& [key_of_row, key] : {std::pair{Variant(43), 43}, {kNull, 0}}) {
        Script script;
        ScriptEntry(script, 42, {NullRow(key_of_row)});
        const auto entry = Bound(script.Session());
        ExpectValues(*entry, &Property::zero);
        EXPECT_EQ(entry->SemWartelisteID(), key);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemWarteliste, AloneTheStatusIsTheSeminarWithoutItsSignWhateverIsStored) {
    const std::pair<Variant, Byte> cases[] = {{kNull, 0}, {0, 0}, {1, 1}, {-1, 1}, {255, 255}, {-255, 255}};
    for (const auto& [seminar, status] : cases) {
        for (const Variant& stored : {Variant(Int16{-1}), Variant(Int16{0}), kNull}) {
            Script script;
            auto row = RowWith(8, seminar);
            row[9] = stored;
            ScriptEntry(script, 42, {row});
            EXPECT_EQ(Bound(script.Session())->Status(), status);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST(clsSemWarteliste, AloneASeminarAbove255OverflowsTheStatusAtEveryGetAndLet) {
    for (const Int32 seminar : {256, 300, -300, 2147483647}) {
        Script script;
        const Rows rows = {RowWith(8, seminar)};
        script.OpenSelect(SelectEntry(42)).Rows(kColumns, rows);
        script.OpenSelect(SelectEntry(42)).Rows(kColumns, rows);
        const auto entry = Bound(script.Session());
        const auto get = RaisedBy([&] { return entry->Status(); });
        const auto let = RaisedBy([&] { return entry->MDNR(6), 0; });
        for (const auto& error : {get, let}) {
            ASSERT_TRUE(error);
            EXPECT_EQ(error->Number(), 6);
            EXPECT_EQ(error->Source(), "LumoSeminar");
            EXPECT_EQ(LabelsOf(error), kLabelsOfLoad);
        }
        EXPECT_EQ(script.Report(), "") << "read again, as nothing was loaded, and not closed";
    }
}

TEST(clsSemWarteliste, AloneTheMomentOfTheChangeIsTheStoredStatusAsADay) {
    const std::pair<Variant, DateTime> cases[] = {{Int16{-1}, DateTime::Of(1899, 12, 29)},
                                                  {Int16{0}, DateTime::Of(1899, 12, 30)},
                                                  {Int16{1}, DateTime::Of(1899, 12, 31)},
                                                  {kNull, DateTime()}};
    for (const auto& [stored, moment] : cases) {
        Script script;
        ScriptEntry(script, 42, {RowWith(9, stored)});
        EXPECT_EQ(Bound(script.Session())->GeaendertAm(), moment);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemWarteliste, AloneTheLoginIsTheMomentOfTheChangeAsText) {
    const std::pair<Variant, Text> cases[] = {
        {DateTime::Of(2010, 2, 20, 7, 5, 9), "20.02.2010 07:05:09"}, {DateTime::Of(2010, 2, 20), "20.02.2010"}, {kNull, ""}};
    for (const auto& [moment, text] : cases) {
        Script script;
        ScriptEntry(script, 42, {RowWith(10, moment)});
        EXPECT_EQ(Bound(script.Session())->GeaendertVon(), text);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemWarteliste, AnEntryWithSeveralRowsIsItsFirst) {
    Script script;
    ScriptEntry(script, 42, {FullRow(), RowWith(7, 18)});
    EXPECT_EQ(Bound(script.Session())->SemTerminID(), 17);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, AnEntryWithoutARowHasZerosKeepsItsKeyAndIsNotLookedForAgain) {
    for (const Int32 key : {0, 42}) {
        Script script;
        ScriptEntry(script, key, {});
        const auto entry = Bound(script.Session(), key);
        for (int i = 0; i < 2; ++i) ExpectValues(*entry, &Property::zero);
        EXPECT_EQ(entry->SemWartelisteID(), key);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemWarteliste, ANewEntryIsLookedForUnderKey0AtItsFirstLetAndTakesTheOthersAsTheyCome) {
    Script script;
    ScriptEntry(script, 0, {});
    const auto entry = Bound(script.Session(), 0);
    for (const Property& property : Properties()) property.let(*entry, property.other);
    ExpectValues(*entry, &Property::other);
    EXPECT_EQ(entry->SemWartelisteID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, ALoadedEntryStaysLoadedBehindAnotherInit) {
    Script first;
    Script second;
    ScriptEntry(first, 42, {FullRow()});
    const auto entry = Bound(first.Session());
    ExpectValues(*entry, &Property::alone);
    EXPECT_EQ(entry->Init(43, second.Session()), false);
    EXPECT_TRUE(first.SessionReleased());
    EXPECT_EQ(entry->Key(), "43");
    ExpectValues(*entry, &Property::alone);
    EXPECT_EQ(first.Report() + second.Report(), "");
}

// The date

TEST(clsSemWarteliste, TheDateIsMadeWithoutAStatementFromTheNumberThatTheObjectHolds) {
    Script script;
    ScriptEntry(script, 42, {FullRow()});
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->SemTerminID(), 17);
    const auto date = entry->objSemTermin();
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(termin_statements::Select(17)).Rows(termin_statements::kColumns, {termin_statements::FullRow()});
    EXPECT_EQ(date->SemTerminID(), 17);
    EXPECT_EQ(date->Code(), "BS-17");
    EXPECT_EQ(script.Report(), "") << "with the session of the entry";
}

TEST(clsSemWarteliste, AskedForBeforeTheLoadTheDateIsDate0AndStaysSo) {
    Script script;
    const auto entry = Bound(script.Session());
    const auto date = entry->objSemTermin();
    EXPECT_EQ(script.Report(), "");
    ScriptEntry(script, 42, {FullRow()});
    EXPECT_EQ(entry->SemTerminID(), 17);
    EXPECT_EQ(entry->objSemTermin(), date);
    script.OpenSelect(termin_statements::Select(0)).Rows(termin_statements::kColumns, {});
    EXPECT_EQ(date->SemTerminID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, TheDateIsKeptBehindAnotherNumberAndAnotherInit) {
    Script script;
    ScriptEntry(script, 42, {FullRow()});
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->MDNR(), 5);
    const auto date = entry->objSemTermin();
    entry->SemTerminID(18);
    EXPECT_EQ(entry->objSemTermin(), date);
    entry->Init(43, script.Session());
    EXPECT_EQ(entry->objSemTermin(), date);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemWarteliste, TheDateOutlivesItsEntryAndBothLetGoOfTheSession) {
    Script script;
    auto date = Bound(script.Session())->objSemTermin();
    EXPECT_FALSE(script.SessionReleased());
    date.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST(clsSemWarteliste, WithoutASessionThereIsADateAllTheSame) {
    const auto entry = New<clsSemWarteliste>();
    const auto date = entry->objSemTermin();
    ASSERT_TRUE(date);
    EXPECT_EQ(entry->objSemTermin(), date);
}

// Labels

TEST(clsSemWarteliste, MembersWithAHandlerAddTheirLabelAndTheOthersNone) {
    const std::string load = " in LumoSeminar.IsInitialized";
    const struct {
        const char* member;
        void (*run)(clsSemWarteliste&);
        Labels labels;
    } cases[] = {
        {"ModId", [](clsSemWarteliste& e) { e.ModId(); }, {load}},
        {"ModId let", [](clsSemWarteliste& e) { e.ModId(2); }, {load}},
        {"MDNR", [](clsSemWarteliste& e) { e.MDNR(); }, {load}},
        {"MDNR let", [](clsSemWarteliste& e) { e.MDNR(5); }, {load}},
        {"TNID", [](clsSemWarteliste& e) { e.TNID(); }, {load}},
        {"TNID let", [](clsSemWarteliste& e) { e.TNID(5); }, {load}},
        {"ErfDat", [](clsSemWarteliste& e) { e.ErfDat(); }, {load}},
        {"ErfDat let", [](clsSemWarteliste& e) { e.ErfDat({}); }, {load}},
        {"Herkunft", [](clsSemWarteliste& e) { e.Herkunft(); }, {load}},
        {"Herkunft let", [](clsSemWarteliste& e) { e.Herkunft(3); }, {load}},
        {"Wunschtermin", [](clsSemWarteliste& e) { e.Wunschtermin(); }, {load}},
        {"Wunschtermin let", [](clsSemWarteliste& e) { e.Wunschtermin({}); }, {load}},
        {"SemID", [](clsSemWarteliste& e) { e.SemID(); }, {load}},
        {"SemID let", [](clsSemWarteliste& e) { e.SemID(5); }, {load}},
        {"SemTerminID", [](clsSemWarteliste& e) { e.SemTerminID(); }, {load}},
        {"SemTerminID let", [](clsSemWarteliste& e) { e.SemTerminID(5); }, {load}},
        {"Status", [](clsSemWarteliste& e) { e.Status(); }, {load}},
        {"Status let", [](clsSemWarteliste& e) { e.Status(1); }, {load}},
        {"GeaendertAm", [](clsSemWarteliste& e) { e.GeaendertAm(); }, {load}},
        {"GeaendertAm let", [](clsSemWarteliste& e) { e.GeaendertAm({}); }, {load}},
        {"GeaendertVon", [](clsSemWarteliste& e) { e.GeaendertVon(); }, {load}},
        {"GeaendertVon let", [](clsSemWarteliste& e) { e.GeaendertVon("ä"); }, {load}},
        {"WriteToDatabase", [](clsSemWarteliste& e) { (void)e.WriteToDatabase(99); }, {" in LumoSeminar.WriteToDatabase"}},
        {"DeleteFromDatabase", [](clsSemWarteliste& e) { e.DeleteFromDatabase(); }, {" in LumoSeminar.DeleteFromDatabase"}},
        {"TeilnahmeGenehmigen",
         [](clsSemWarteliste& e) { (void)e.TeilnahmeGenehmigen(99); },
         {load, " in LumoSeminar.TeilnahmeGenehmigen"}},
        {"TeilnahmePruefen",
         [](clsSemWarteliste& e) { (void)e.TeilnahmePruefen(); },
         {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsSeminar.Teilnehmer"}},
        {"ZustimmungVerwerfen", [](clsSemWarteliste& e) { e.ZustimmungVerwerfen(99); }, {" in LumoSeminar.WriteToDatabase"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.member);
        EXPECT_RAISES_UNDER(91, c.labels, c.run(*New<clsSemWarteliste>()));
    }
}

TEST(clsSemWarteliste, MembersThatNeedNoSessionRaiseNothingWithoutOne) {
    const auto entry = New<clsSemWarteliste>();
    EXPECT_EQ(entry->Init(42, nullptr), false);
    entry->SemWartelisteID(7);
    EXPECT_EQ(entry->SemWartelisteID(), 7);
    EXPECT_EQ(entry->Key(), "7");
    entry->DoSendInfos(false);
    EXPECT_EQ(entry->DoSendInfos(), false);
    EXPECT_TRUE(entry->objSemTermin());
}

}  // namespace
}  // namespace LumoSeminar
