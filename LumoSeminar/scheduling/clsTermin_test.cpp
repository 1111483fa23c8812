#include <LumoSeminar/scheduling/clsTermin.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/day_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace termin_properties;
using namespace termin_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

const std::string kLabel = " LumoSeminar062.clsTermin.";

TEST(clsTermin, InitBindsWithoutAStatement) {
    Script script;
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Key(), "0000000017");
    EXPECT_EQ(date->NewDelOnlyTag(), false);
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
}

TEST(clsTermin, InitIsTrueWithAnEmptySessionAndTheFirstLoadRaises91) {
    const auto date = Bound(nullptr, 17);
    EXPECT_EQ(date->Key(), "0000000017");
    for (const auto& property : All(17)) {
        SCOPED_TRACE(property.label);
        EXPECT_RAISES_UNDER(91, (Labels{kLabel + "PropertiesInit", kLabel + property.label + " --> GET"}), property.get(*date));
    }
    EXPECT_RAISES_UNDER(91, Labels{kLabel + "SachbearbeiterEmail"}, date->SachbearbeiterEmail());
    EXPECT_RAISES(91, date->WriteToDatabase());
    EXPECT_RAISES(91, date->DeleteFromDatabase());
}

TEST(clsTermin, AnUnboundDateRaises91AtTheFirstLoad) {
    clsTermin date;
    EXPECT_EQ(date.Key(), "0000000000");
    EXPECT_EQ(date.Code(false), "");
    EXPECT_RAISES(91, date.Code());
    EXPECT_RAISES(91, date.Code("BS-17"));
    EXPECT_RAISES(91, date.WriteToDatabase());
}

TEST(clsTermin, TheKeyTextHasTenDigitsAndDoesNotLoad) {
    Script script;
    EXPECT_EQ(Bound(script.Session(), 0)->Key(), "0000000000");
    EXPECT_EQ(Bound(script.Session(), 2147483647)->Key(), "2147483647");
    EXPECT_EQ(Bound(script.Session(), -1)->Key(), "-0000000001");
    EXPECT_EQ(script.Report(), "");
}

// The load.

TEST(clsTermin, TheWordsOfTheStatusLoad) {
    for (const auto word : {static_cast<Text (clsTermin::*)()>(&clsTermin::StatusBezLang),
                            static_cast<Text (clsTermin::*)()>(&clsTermin::StatusBezKurz)}) {
        Script script;
        script.OpenSelect(Select(17)).Refused("time-out");
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(((*date).*word)(), "");
        EXPECT_NE(((*date).*word)(), "");
        EXPECT_EQ(date->Status(), 3);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AMissingRowReadsAsANewDateAndIsNotLookedForAgain) {
    for (const Int32 key : {0, 17}) {
        Script script;
        script.OpenSelect(Select(key)).Rows(kColumns, {});
        const auto date = Bound(script.Session(), key);
        EXPECT_EQ(date->Stunden(), 8);
        EXPECT_EQ(date->Sitzungen(), 1);
        EXPECT_EQ(date->Status(), 2);
        EXPECT_EQ(date->StatusBezLang(), "Anmeldung");
        EXPECT_EQ(date->StatusBezKurz(), "AM");
        ExpectValues(*date, All(key), &Property::by_default);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AMissingRowReplacesAllThatWasReadOrLetBefore) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.OpenSelect(Select(18)).Rows(kColumns, {});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Status(), 3);
    EXPECT_EQ(date->Init(18, script.Session()), true);
    ExpectValues(*date, All(18), &Property::by_default);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AZeroInTheRowIsNoNull) {
    Script script;
    auto row = NullRow();
    row[1] = Byte{0};
    row[15] = 0.0;
    row[16] = 0;
    script.OpenSelect(Select(17)).Rows(kColumns, {row});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Status(), 0);
    EXPECT_EQ(date->Stunden(), 0);
    EXPECT_EQ(date->Sitzungen(), 0);
    EXPECT_EQ(script.Report(), "");
}

// Seen through the members that do not load.
TEST(clsTermin, ALetBehindARefusedSelectStoresNothing) {
    Script script;
    for (int lets = 0; lets < 6; ++lets) script.OpenSelect(Select(17)).Refused("time-out");
    script.OpenSelect(SelectEmail(0)).Rows({"email"}, {});
    script.CloseRows();
    const auto date = Bound(script.Session(), 17);
    date->SemTerminID(18);
    date->Code("BS-17");
    date->Titel("Brandschutz");
    date->EndeDatum(DateTime::Of(2010, 3, 5));
    date->SemID(105);
    date->Sachbearbeiter(12);
    EXPECT_EQ(date->Key(), "0000000017");
    EXPECT_EQ(date->Code(false), "");
    EXPECT_EQ(date->Titel(false), "");
    EXPECT_EQ(date->EndeDatum(false), DateTime());
    EXPECT_FALSE(date->objSeminar());
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheWordsOfTheStatusCarryTheirLabel) {
    for (const bool in_full : {true, false}) {
        const std::string label = kLabel + (in_full ? "StatusBezLang --> GET" : "StatusBezKurz --> GET");
        ExpectFailures([](Script& script) { script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()}); },
                       [&](const Ref<DataSession>& session) {
                           const auto date = Bound(session, 17);
                           in_full ? date->StatusBezLang() : date->StatusBezKurz();
                       },
                       {{1, kNotOk}, {1, kRaises, 7001, {kLabel + "PropertiesInit", label}}});
    }
}

// What does not load.

TEST(clsTermin, CodeTitelAndEndeDatumAreReadWithoutALoadWhereToldSo) {
    Script script;
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Code(false), "");
    EXPECT_EQ(date->Titel(false), "");
    EXPECT_EQ(date->EndeDatum(false), DateTime());
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    EXPECT_EQ(date->Status(), 3);
    EXPECT_EQ(date->Code(false), "BS-17");
    EXPECT_EQ(date->Titel(false), "Brandschutz für \"Führungskräfte\"");
    EXPECT_EQ(date->EndeDatum(false), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, CodeTitelAndEndeDatumLetWithoutALoadAreReplacedByTheRow) {
    Script script;
    const auto date = Bound(script.Session(), 17);
    date->EndeDatum(DateTime::Of(2011, 1, 1), false);
    date->Titel("Löschübung", false);
    date->Code("ÜB-1", false);
    EXPECT_EQ(date->EndeDatum(false), DateTime::Of(2011, 1, 1));
    EXPECT_EQ(date->Titel(false), "Löschübung");
    EXPECT_EQ(date->Code(false), "ÜB-1");
    EXPECT_EQ(script.Report(), "") << "nor does the let of the end touch a day while there is no begin";
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    EXPECT_EQ(date->Code(), "BS-17");
    EXPECT_EQ(date->Titel(), "Brandschutz für \"Führungskräfte\"");
    EXPECT_EQ(date->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, CodeAndTitelLetWithoutALoadStayOnAReadDate) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Status(), 3);
    date->Code("ÜB-1", false);
    date->Titel("Löschübung", false);
    EXPECT_EQ(date->Code(), "ÜB-1");
    EXPECT_EQ(date->Titel(), "Löschübung");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnotherKeyUnderAReadRowDoesNotLoadAgain) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    date->SemTerminID(18);
    EXPECT_EQ(date->Key(), "0000000018");
    ExpectValues(*date, All(18), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnotherInitMakesTheDateLoadAgain) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.OpenSelect(Select(17)).Rows(kColumns, {NullRow()});
    script.OpenSelect(Select(18)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->MaxTeil(), 14);
    EXPECT_EQ(date->Init(17, script.Session()), true);
    EXPECT_EQ(date->MaxTeil(), 0);
    EXPECT_EQ(date->Init(18, script.Session()), true);
    EXPECT_EQ(date->Key(), "0000000018");
    EXPECT_EQ(date->MaxTeil(), 14);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, BehindAnotherInitARefusedLoadGivesZeroesNotTheFormerRow) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto all = All(18);
    for (std::size_t i = 0; i < all.size(); ++i) script.OpenSelect(Select(18)).Refused("time-out");
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->MaxTeil(), 14);
    EXPECT_EQ(date->Init(18, script.Session()), true);
    ExpectValues(*date, all, &Property::zero);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, NewDelOnlyTagIsFalseAtFirstAndCostsNothing) {
    Script script;
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->NewDelOnlyTag(), false);
    date->NewDelOnlyTag(true);
    EXPECT_EQ(date->NewDelOnlyTag(), true);
    date->NewDelOnlyTag(false);
    EXPECT_EQ(date->NewDelOnlyTag(), false);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheStatusHasAWordFromOneToFour) {
    const struct {
        Byte status;
        const char* in_full;
        const char* in_short;
    } cases[] = {
        {0, "", ""}, {1, "Aktiv", "A"}, {2, "Anmeldung", "AM"}, {3, "Storniert", "ST"}, {4, "Abgeschlossen", "AG"},
        {5, "", ""}, {255, "", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(int{c.status});
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {NullRow()});
        const auto date = Bound(script.Session(), 17);
        date->Status(c.status);
        EXPECT_EQ(date->StatusBezLang(), c.in_full);
        EXPECT_EQ(date->StatusBezKurz(), c.in_short);
        EXPECT_EQ(script.Report(), "");
    }
}

// The lets of the first and the last day, as far as they leave the days alone.

TEST(clsTermin, TheDateLetsOnlyLoadWhereTheyChangeNothing) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    date->BeginnDatum(DateTime::Of(2010, 3, 3));
    date->EndeDatum(DateTime::Of(2010, 3, 5));
    ExpectValues(*date, All(17), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheLastDayOfADateWithoutAFirstIsStoredWithoutADay) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    const auto date = Bound(script.Session(), 0);
    date->EndeDatum(DateTime::Of(2010, 3, 5));
    EXPECT_EQ(date->EndeDatum(), DateTime::Of(2010, 3, 5));
    date->BeginnDatum(DateTime());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WithNewDelOnlyTagTheDateLetsLeaveTheDaysAlone) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    date->NewDelOnlyTag(true);
    date->BeginnDatum(DateTime::Of(2010, 4, 1));
    date->EndeDatum(DateTime::Of(2010, 4, 9));
    EXPECT_EQ(date->BeginnDatum(), DateTime::Of(2010, 4, 1));
    EXPECT_EQ(date->EndeDatum(), DateTime::Of(2010, 4, 9));
    EXPECT_EQ(script.Report(), "");
}

// One of the two days is changed without its days, so that the let of the other has something to do for them.
TEST(clsTermin, TheDateLetsGoOnToTheDaysAlsoWhereTheLoadIsRefused) {
    const struct {
        const char* label;
        void (*leave_open)(clsTermin&);
        void (*let)(clsTermin&);
        int loads;
    } cases[] = {
        {"BeginnDatum", [](clsTermin& d) { d.EndeDatum(DateTime::Of(2010, 3, 4)); },
         [](clsTermin& d) { d.BeginnDatum(DateTime::Of(2010, 3, 3)); }, 2},
        {"EndeDatum", [](clsTermin& d) { d.BeginnDatum(DateTime::Of(2010, 3, 4)); },
         [](clsTermin& d) { d.EndeDatum(DateTime::Of(2010, 3, 5)); }, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        for (int i = 0; i < c.loads; ++i) script.OpenSelect(Select(17)).Refused("time-out");
        script.OpenSelect(day_statements::SelectDays(17)).Refused("deadlock");
        const auto date = Bound(script.Session(), 17);
        date->NewDelOnlyTag(true);
        c.leave_open(*date);
        date->NewDelOnlyTag(false);
        EXPECT_EQ(date->Init(17, script.Session()), true);
        const auto error = RaisedBy([&] {
            c.let(*date);
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 9999);
        EXPECT_EQ(LabelsOf(error), (Labels{"LumoSeminar.colTerminTage.LoadKeysFromDataBase", "LumoSeminar.colTerminTage.Init",
                                           " lumoRessourcen.clsRessource.colRessourcenDetails",
                                           "LumoSeminar.clsTermin.ErzeugeTerminTage", kLabel + c.label + " --> LET"}));
        EXPECT_EQ(script.Report(), "");
    }
}

// The mail address of the clerk.

TEST(clsTermin, TheMailAddressOfTheClerkIsAskedForEachTime) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    for (const char* email : {"jörg.weiß@öl.example", "neu@öl.example"}) {
        script.OpenSelect(SelectEmail(12)).Rows({"email"}, {{email}, {"zweite@öl.example"}});
        script.CloseRows();
    }
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Status(), 3);
    EXPECT_EQ(date->SachbearbeiterEmail(), "jörg.weiß@öl.example");
    EXPECT_EQ(date->SachbearbeiterEmail(), "neu@öl.example");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, OnADateNotReadYetTheMailAddressIsThatOfClerkZero) {
    Script script;
    script.OpenSelect(SelectEmail(0)).Rows({"email"}, {});
    script.CloseRows();
    EXPECT_EQ(Bound(script.Session(), 17)->SachbearbeiterEmail(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WithoutAMailAddressTheTextIsEmpty) {
    Script script;
    script.OpenSelect(SelectEmail(0)).Rows({"email"}, {{Variant::Null()}});
    script.CloseRows();
    script.OpenSelect(SelectEmail(0)).Refused("Invalid object name 'arbeitnehmer'.");
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
    EXPECT_EQ(date->SachbearbeiterEmail(), "") << "refused: nothing to read and nothing to close";
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheMailAddressFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(SelectEmail(0)).Rows({"email"}, {{"jörg.weiß@öl.example"}});
            script.CloseRows();
        },
        [](const Ref<DataSession>& session) { Bound(session, 17)->SachbearbeiterEmail(); },
        {{1, kNotOk}, {1, kRaises, 7001, {kLabel + "SachbearbeiterEmail"}}, {2, kRaises, 7001, {kLabel + "SachbearbeiterEmail"}}});
}

TEST(clsTermin, AnotherInitLetsGoOfTheFormerSession) {
    Script former;
    Script script;
    const auto date = Bound(former.Session(), 17);
    EXPECT_EQ(date->Init(17, script.Session()), true);
    EXPECT_TRUE(former.SessionReleased());
    EXPECT_FALSE(script.SessionReleased());
}

}  // namespace
}  // namespace LumoSeminar
