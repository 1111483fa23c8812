#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/date_lists.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace date_lists;
using namespace termin_properties;
using namespace termin_statements;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

const std::string kLabelOfCount = kLabel + "AnzAnmeldungen --> GET";
const std::string kLabelOfPlaces = kLabel + "AnzFreiePlaetze --> GET";

// The lists.

TEST(clsTermin, ParticipantsAreListedOnceBehindTheLoadAndEachIsReadWithTheList) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {{24}, {23}});
    const auto date = Bound(script.Session(), 17);
    const auto list = date->clscolTeilnehmer();
    ASSERT_TRUE(list);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"0000000024", "0000000023"}));
    EXPECT_EQ(list->Item("0000000023")->Bemerkung(), "vegetarisch: \"Gemüse\" & Nüsse");
    EXPECT_EQ(list->Item(1)->SemTerminID(), 17);
    EXPECT_TRUE(date->clscolTeilnehmer() == list);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, FocusAreasAreListedOnceBehindTheLoadAndEachReadsItsNameLater) {
    Script script;
    ScriptDate(script);
    ScriptFocusAreas(script, {16, 10});
    const auto date = Bound(script.Session(), 17);
    const auto list = date->clscolSemTerminSchwerpunkte();
    ASSERT_TRUE(list);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"0000000016", "0000000010"}));
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(focus_area::SelectOfDate(17, 10)).Rows({"WBS"}, {{"Qualität \"sichern\""}});
    EXPECT_EQ(list->Item("0000000010")->WBS(), "Qualität \"sichern\"");
    EXPECT_TRUE(date->clscolSemTerminSchwerpunkte() == list);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WhereTheLoadIsRefusedThereIsNoListAndTheNextGetTriesAgain) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        script.OpenSelect(Select(17)).Refused("time-out");
        ScriptDate(script);
        list.script(script, 17);
        const auto date = Bound(script.Session(), 17);
        EXPECT_FALSE(list.object(*date));
        EXPECT_TRUE(list.object(*date));
        EXPECT_EQ(list.count(*date), 2);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AListThatCouldNotBeReadIsKeptEmpty) {
    for (const auto& list : kLists) {
        for (const auto& [how, script_no_list] : kNoList) {
            SCOPED_TRACE(std::string(list.name) + ", " + how);
            Script script;
            ScriptDate(script);
            script_no_list(script, list.select(17));
            const auto date = Bound(script.Session(), 17);
            const auto first = list.object(*date);
            ASSERT_TRUE(first);
            EXPECT_TRUE(list.object(*date) == first);
            EXPECT_EQ(list.count(*date), 0);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST(clsTermin, ListsAreKeptBehindAnotherInitOnceThatHasLoaded) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        ScriptDate(script);
        list.script(script, 17);
        script.OpenSelect(Select(18)).Refused("time-out");
        script.OpenSelect(Select(18)).Rows(kColumns, {NullRow()});
        const auto date = Bound(script.Session(), 17);
        const auto first = list.object(*date);
        EXPECT_EQ(date->Init(18, script.Session()), true);
        EXPECT_FALSE(list.object(*date));
        EXPECT_TRUE(list.object(*date) == first) << "still that of date 17";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, TheListsOfANewDateAreThoseUnderKeyZeroAndStaySoBehindItsInsert) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        script.OpenSelect(Select(0)).Rows(kColumns, {});
        list.script(script, 0);
        script.OpenSelect(Insert(kNewValues)).Rows(kInsertedColumns, {{17}});
        const auto date = Bound(script.Session(), 0);
        const auto first = list.object(*date);
        EXPECT_EQ(list.count(*date), 2);
        EXPECT_EQ(date->WriteToDatabase(), true);
        EXPECT_EQ(date->SemTerminID(), 17);
        EXPECT_TRUE(list.object(*date) == first);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AListOutlivesItsDateAndBothLetGoOfTheSession) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        ScriptDate(script);
        list.script(script, 17);
        Ref<Object> outlives = list.object(*Bound(script.Session(), 17));
        EXPECT_FALSE(script.SessionReleased());
        outlives.Reset();
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, ListsFiguresAndDeleteOfAnUnboundDateRaise91WithTheirLabels) {
    const std::pair<std::string, void (*)(clsTermin&)> members[] = {
        {kLabelOfLists, [](clsTermin& date) { date.clscolTeilnehmer(); }},
        {kLabelOfLists, [](clsTermin& date) { date.clscolSemTerminSchwerpunkte(); }},
        {kLabelOfCount, [](clsTermin& date) { date.AnzAnmeldungen(); }},
        {kLabelOfPlaces, [](clsTermin& date) { date.AnzFreiePlaetze(); }},
        {kLabelOfDelete, [](clsTermin& date) { (void)date.DeleteFromDatabase(); }},
    };
    for (const auto& [label, call] : members) {
        SCOPED_TRACE(label);
        clsTermin date;
        const auto error = RaisedBy([&, member = call] {
            member(date);
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 91);
        EXPECT_EQ(LabelsOf(error), (Labels{kLabel + "PropertiesInit", label}));
    }
}

TEST(clsTermin, ReadingTheParticipantsFailsUnderALabelOfTheSeminar) {
    std::vector<test_support::ExpectedFailure> expected = {
        {1, kNotOk}, {2, kNotOk, 0, {}, {kOpen}}, {3, kNotOk}, {4, kNotOk, 0, {}, {kOpen}}, {5, kNotOk}};
    for (int step = 1; step <= 5; ++step) expected.push_back({step, kRaises, 7001, LabelsOfParticipants(step)});
    ExpectFailures(
        [](Script& script) {
            ScriptDate(script);
            ScriptParticipants(script, {{23}});
        },
        [](const Ref<DataSession>& session) { Bound(session, 17)->clscolTeilnehmer(); }, expected);
}

TEST(clsTermin, ReadingTheFocusAreasFailsUnderTheSameLabel) {
    std::vector<test_support::ExpectedFailure> expected = {
        {1, kNotOk}, {2, kNotOk, 0, {}, {kOpen}}, {3, kNotOk}, {4, kNotOk, 0, {}, {kOpen}}};
    for (int step = 1; step <= 4; ++step) expected.push_back({step, kRaises, 7001, LabelsOfFocusAreas(step)});
    ExpectFailures(
        [](Script& script) {
            ScriptDate(script);
            ScriptFocusAreas(script, {16});
        },
        [](const Ref<DataSession>& session) { Bound(session, 17)->clscolSemTerminSchwerpunkte(); }, expected);
}

// The figures.

TEST(clsTermin, OfThreeParticipantsWithOneCancelledTwoAreEnrolledAndEightOfTenPlacesFree) {
    Script script;
    ScriptDate(script, 10);
    ScriptParticipants(script, {{23}, {24, Int16{0}}, {25}});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 2);
    EXPECT_EQ(date->AnzFreiePlaetze(), 8);
    EXPECT_EQ(script.Report(), "") << "one list for both";
}

TEST(clsTermin, PlacesAreNotClampedAndWithoutALimitThereAreMinusTheEnrolled) {
    const std::pair<Variant, Int16> cases[] = {{0, -2}, {Variant::Null(), -2}, {1, -1}, {2, 0}, {-3, -5}};
    for (const auto& [limit, places] : cases) {
        Script script;
        ScriptDate(script, limit);
        ScriptParticipants(script, {{23}, {24}});
        EXPECT_EQ(Bound(script.Session(), 17)->AnzFreiePlaetze(), places);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AnyParticipationButZeroCountsAndNullIsNotZero) {
    const std::pair<Variant, Int16> cases[] = {{Int16{-1}, 1},     {Int16{1}, 1},     {Int16{2}, 1},
                                               {Int16{-32768}, 1}, {Int16{32767}, 1}, {Variant::Null(), 1},
                                               {Int16{0}, 0}};
    for (const auto& [participation, counted] : cases) {
        Script script;
        ScriptDate(script);
        ScriptParticipants(script, {{23, participation}});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(date->AnzAnmeldungen(), counted);
        EXPECT_EQ(date->AnzFreiePlaetze(), 14 - counted);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, BothFiguresShowTheListAsThisObjectHasReadItAndTheLimitAsItIsLet) {
    Script script;
    ScriptDate(script, 10);
    ScriptParticipants(script, {{23}});
    ScriptDate(script, 10);
    ScriptParticipants(script, {{23}, {24}});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->clscolTeilnehmer()->Count(), 1);
    const auto later = Bound(script.Session(), 17);
    EXPECT_EQ(later->AnzFreiePlaetze(), 8) << "another one has been enrolled since";
    EXPECT_EQ(later->AnzAnmeldungen(), 2);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    EXPECT_EQ(date->AnzFreiePlaetze(), 9);
    date->MaxTeil(20);
    EXPECT_EQ(date->AnzFreiePlaetze(), 19);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnEntryCountsAsItStandsInTheListStoredOrNot) {
    Script script;
    ScriptDate(script, 10);
    ScriptParticipants(script, {{23}, {24}});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 2);
    date->clscolTeilnehmer()->Item(2)->Teilnahme(0);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    date->clscolTeilnehmer()->RemoveColOnly(1);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(date->AnzFreiePlaetze(), 10);
    participant::ScriptRecord(script, {RowOf({25})}, 25);
    date->clscolTeilnehmer()->Add(25);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    EXPECT_EQ(date->AnzFreiePlaetze(), 9);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WhereTheLoadIsRefusedBothFiguresAreZero) {
    Script script;
    script.OpenSelect(Select(17)).Refused("time-out");
    script.OpenSelect(Select(17)).Refused("time-out");
    ScriptDate(script, 10);
    ScriptParticipants(script, {{23}, {24}});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(date->AnzFreiePlaetze(), 0);
    EXPECT_EQ(date->AnzFreiePlaetze(), 8);
    EXPECT_EQ(date->AnzAnmeldungen(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AListThatCouldNotBeReadLeavesAllPlacesFree) {
    for (const auto& [how, script_no_list] : kNoList) {
        SCOPED_TRACE(how);
        Script script;
        ScriptDate(script, 10);
        script_no_list(script, SelectParticipants(17));
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(date->AnzAnmeldungen(), 0);
        EXPECT_EQ(date->AnzFreiePlaetze(), 10);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AParticipantWhoseRowIsRefusedIsListedAndDoesNotCount) {
    Script script;
    ScriptDate(script, 10);
    script.AdoConnection();
    script.OpenSelect(SelectParticipants(17)).Rows({"TeilnehmerID"}, {{23}});
    script.AdoConnection();
    script.OpenSelect(participant::Select(23)).Refused("time-out");
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(date->clscolTeilnehmer()->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

using clsTerminWithDefaults = participant::ParticipantTest;

TEST_F(clsTerminWithDefaults, AParticipantWhoseRowIsGoneByThenReadsAsANewOneAndCounts) {
    Script script;
    ScriptDate(script, 10);
    script.AdoConnection();
    script.OpenSelect(SelectParticipants(17)).Rows({"TeilnehmerID"}, {{23}});
    participant::ScriptNew(script, 23);
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    EXPECT_EQ(date->AnzFreiePlaetze(), 9);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, PlacesThatDoNotFitRaiseOverflow) {
    const struct {
        Int32 limit;
        std::vector<Enrolment> enrolments;
        std::optional<Int16> places;
    } cases[] = {
        {32767, {}, Int16{32767}},
        {32768, {}, {}},
        {32769, {{23}, {24}}, Int16{32767}},
        {32769, {{23}}, {}},
        {-32768, {}, Int16{-32768}},
        {-32768, {{23}}, {}},
        {40000, {{23}}, {}},
        {std::numeric_limits<Int32>::max(), {{23}}, {}},
        {std::numeric_limits<Int32>::min(), {}, {}},
        {std::numeric_limits<Int32>::min(), {{23}}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.limit);
        Script script;
        ScriptDate(script, c.limit);
        ScriptParticipants(script, c.enrolments);
        const auto date = Bound(script.Session(), 17);
        if (c.places) {
            EXPECT_EQ(date->AnzFreiePlaetze(), *c.places);
        } else {
            EXPECT_RAISES_UNDER(6, Labels{kLabelOfPlaces}, date->AnzFreiePlaetze());
        }
        EXPECT_EQ(date->AnzAnmeldungen(), static_cast<Int16>(c.enrolments.size()));
        EXPECT_EQ(script.Report(), "");
    }
}

/// A session with date 17 and that many participants of it, all enrolled. A script would hold a step for each call.
class ManyParticipants final : public DataSession {
  public:
    explicit ManyParticipants(Int32 count) {
        for (const Variant& value : RowWithLimit(32768)) date_->Append(value);
        for (const Variant& value : participant::FullRow()) record_->Append(value);
        for (Int32 key = 1; key <= count; ++key) keys_->Append(key);
    }

    Ref<Connection> AdoConnection() override { return connection_; }
    Ref<RecordSet> Recordset() override { return rows_; }
    Bool OpenSelect(const Text& sql) override {
        rows_ = sql == select_date_ ? date_ : sql == select_keys_ ? keys_ : record_;
        return true;
    }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Bool ExecuteSql(const Text&) override { return false; }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

  private:
    class OpenConnection final : public Connection {
      public:
        Int32 State() override { return kOpen; }
        void Open(const Text&, const Text&, const Text&, Int32) override {}
        Ref<RecordSet> Execute(const Text&, Int32) override { return nullptr; }
    };

    const Text select_date_ = Select(17);
    const Text select_keys_ = SelectParticipants(17);
    Ref<Connection> connection_ = New<OpenConnection>();
    Ref<LumoConnection::StoredRows> date_ = New<LumoConnection::StoredRows>(kColumns);
    Ref<LumoConnection::StoredRows> record_ = New<LumoConnection::StoredRows>(participant::kColumns);
    Ref<LumoConnection::StoredRows> keys_ = New<LumoConnection::StoredRows>(std::vector<std::string>{"TeilnehmerID"});
    Ref<RecordSet> rows_;
};

TEST(clsTermin, MoreThan32767EnrolledRaiseOverflowAlsoWhereThePlacesWouldFit) {
    const auto date = Bound(New<ManyParticipants>(32767), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 32767);
    EXPECT_EQ(date->AnzFreiePlaetze(), 1);
    date->clscolTeilnehmer()->Add(32768);
    const auto count = RaisedBy([&] { return date->AnzAnmeldungen(); });
    ASSERT_TRUE(count);
    EXPECT_EQ(count->Number(), 6);
    EXPECT_EQ(LabelsOf(count), Labels{kLabelOfCount});
    EXPECT_RAISES_UNDER(6, (Labels{kLabelOfCount, kLabelOfPlaces}), date->AnzFreiePlaetze());
    date->clscolTeilnehmer()->Item(1)->Teilnahme(0);
    EXPECT_EQ(date->AnzAnmeldungen(), 32767) << "the cancelled do not count";
}

TEST(clsTermin, TheFiguresFailAsDocumentedAtEachStep) {
    const std::pair<Labels, Int16 (clsTermin::*)()> figures[] = {
        {{kLabelOfCount}, &clsTermin::AnzAnmeldungen},
        {{kLabelOfCount, kLabelOfPlaces}, &clsTermin::AnzFreiePlaetze},
    };
    const Labels unbound = {kParticipant + "PropertiesInit", kParticipant + "Teilnahme -> Property GET"};
    for (const auto& [labels, get] : figures) {
        SCOPED_TRACE(labels.back());
        std::vector<test_support::ExpectedFailure> expected = {{1, kNotOk},
                                                               {2, kNotOk, 0, {}, {kOpen}},
                                                               {3, kNotOk},
                                                               // a participant that could not be bound has no session
                                                               {4, kNotOk, 91, Then(unbound, labels), {kOpen}},
                                                               {5, kNotOk},
                                                               {1, kRaises, 7001, {kLabel + "PropertiesInit", labels.back()}}};
        for (int step = 2; step <= 5; ++step) {
            expected.push_back({step, kRaises, 7001, Then(LabelsOfParticipants(step), labels)});
        }
        ExpectFailures(
            [](Script& script) {
                ScriptDate(script);
                ScriptParticipants(script, {{23}});
            },
            [member = get](const Ref<DataSession>& session) { ((*Bound(session, 17)).*member)(); }, expected);
    }
}

}  // namespace
}  // namespace LumoSeminar
