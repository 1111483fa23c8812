#include <LumoSeminar/waitlist/colSemWarteliste.h>

#include <gtest/gtest.h>

#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace waitlist_statements;
using LumoConnection::Script;
using participant_statements::Labels;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;
using Keys = std::vector<Text>;

const Variant kNull = Variant::Null();
const Labels kLabelsOfLoad = {" in LumoSeminar.LoadList"};

/// The loaders, each for client 5, employee 45, seminar 105, date 17.
struct Loader {
    const char* name;
    const char* where;
    Variant (*load)(colSemWarteliste& list, const Ref<DataSession>& session);
};

const Loader kLoaders[] = {
    {"LoadListComplete", "", [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadListComplete(s); }},
    {"LoadListCompleteMA", " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = 5 AND Sem_Warteliste_IT.TnId = 45",
     [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadListCompleteMA(s, 5, 45); }},
    {"LoadWartelisteMA",
     " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = 5 AND Sem_Warteliste_IT.TnId = 45 AND Not "
     "Sem_WartelisteTermin_IT.SemTerminID Is Null",
     [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadWartelisteMA(s, 5, 45); }},
    {"LoadInteressentenlisteMA",
     " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = 5 AND Sem_Warteliste_IT.TnId = 45 AND Not "
     "Sem_WartelisteSem_IT.SemID Is Null",
     [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadInteressentenlisteMA(s, 5, 45); }},
    {"LoadListSeminar", " Where Sem_WartelisteSem_IT.SemID = 105",
     [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadListSeminar(s, 105); }},
    {"LoadListSeminartermin", " Where Sem_WartelisteTermin_IT.SemTerminID  = 17",
     [](colSemWarteliste& list, const Ref<DataSession>& s) { return list.LoadListSeminartermin(s, 17); }},
};

Keys KeysOf(colSemWarteliste& list) {
    Keys keys;
    for (const auto& entry : list.NewEnum()) keys.push_back(entry->Key());
    return keys;
}

/// A list of entries without a binding.
Ref<colSemWarteliste> Loaded(Script& script, const std::vector<Int32>& entries) {
    Rows rows;
    for (const Int32 key : entries) rows.push_back(NullRow(key));
    ScriptList(script, "", rows);
    auto list = New<colSemWarteliste>();
    list->LoadListComplete(script.Session());
    return list;
}

// Loaders

TEST(colSemWarteliste, EachLoaderSendsItsOneStatementAndIsEmpty) {
    for (const Loader& loader : kLoaders) {
        SCOPED_TRACE(loader.name);
        Script script;
        script
            .OpenSelect(
                "SELECT Sem_Warteliste_IT.SemWarteListeID,  Sem_Warteliste_IT.ModID,  Sem_Warteliste_IT.MDNr,  "
                "Sem_Warteliste_IT.TNID, Sem_Warteliste_IT.ErfDat,  Sem_Warteliste_IT.Herkunft,  "
                "Sem_Warteliste_IT.Wunschtermin,  Sem_WartelisteTermin_IT.SemTerminID,  Sem_WartelisteSem_IT.SemID, "
                " Sem_Warteliste_IT.Status,  Sem_Warteliste_IT.GeaendertAm,  Sem_Warteliste_IT.GeaendertVon  FROM "
                "Sem_Warteliste_IT LEFT OUTER JOIN  Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = "
                "Sem_WartelisteTermin_IT.SemWarteListeID LEFT OUTER JOIN  Sem_WartelisteSem_IT ON "
                "Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID " +
                std::string(loader.where) + " Order by Sem_Warteliste_IT.ErfDat")
            .Rows(kColumns, {FullRow(43), FullRow(7), FullRow(42)});
        script.CloseRows();
        colSemWarteliste list;
        EXPECT_TRUE(loader.load(list, script.Session()).IsEmpty());
        EXPECT_EQ(KeysOf(list), (Keys{"43", "7", "42"})) << "in the order of the server";
        for (const auto& entry : list.NewEnum()) {
            ExpectValues(*entry, &Property::in_list);
            EXPECT_EQ(entry->DoSendInfos(), true);
        }
        EXPECT_EQ(script.RecordsetCalls(), 1);
        EXPECT_EQ(script.Report(), "") << "no entry is read again";
    }
}

TEST(colSemWarteliste, NumbersGoIntoTheConditionsAsTheyAre) {
    Script script;
    for (const auto& where : {WhereEmployee(-1, 2147483647), WhereEmployeeWaits(0, -3), WhereEmployeeIsInterested(2, 0),
                              WhereSeminar(0), WhereDate(-7)}) {
        ScriptList(script, where);
    }
    colSemWarteliste list;
    list.LoadListCompleteMA(script.Session(), -1, 2147483647);
    list.LoadWartelisteMA(script.Session(), 0, -3);
    list.LoadInteressentenlisteMA(script.Session(), 2, 0);
    list.LoadListSeminar(script.Session(), 0);
    list.LoadListSeminartermin(script.Session(), -7);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, ALetOfAListedEntryLoadsNothing) {
    for (const Property& property : Properties()) {
        Script script;
        ScriptList(script, "", {FullRow()});
        colSemWarteliste list;
        list.LoadListComplete(script.Session());
        property.let(*list.Item(1), property.other);
        EXPECT_EQ(property.get(*list.Item("42")), property.other);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemWarteliste, NullsAreZerosAndAnEntryWithoutAKeyHasKey0) {
    Script script;
    ScriptList(script, "", {NullRow()});
    colSemWarteliste list;
    list.LoadListComplete(script.Session());
    ASSERT_EQ(KeysOf(list), Keys{"0"});
    ExpectValues(*list.Item(1), &Property::zero);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, TheStatusIsReadWithoutItsSign) {
    const std::pair<Variant, Byte> cases[] = {{Int16{-1}, 1}, {Int16{0}, 0},   {kNull, 0}, {Int16{1}, 1},
                                              {-255, 255},    {Bool(true), 1}, {"-1", 1}};
    for (const auto& [stored, status] : cases) {
        Script script;
        auto row = FullRow();
        row[9] = stored;
        ScriptList(script, "", {row});
        colSemWarteliste list;
        list.LoadListComplete(script.Session());
        EXPECT_EQ(list.Item(1)->Status(), status);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemWarteliste, ASeminarAbove255DoesNotTouchTheStatus) {
    Script script;
    auto row = FullRow();
    row[8] = 300;
    ScriptList(script, "", {row});
    colSemWarteliste list;
    list.LoadListComplete(script.Session());
    EXPECT_EQ(list.Item(1)->SemID(), 300);
    EXPECT_EQ(list.Item(1)->Status(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, AnEntryWithBothBindingsIsOneEntryThatShowsBothAndOneWithoutShowsNone) {
    Script script;
    ScriptList(script, WhereEmployee(5, 45), {FullRow(42), NullRow(43)});
    colSemWarteliste list;
    list.LoadListCompleteMA(script.Session(), 5, 45);
    EXPECT_EQ(KeysOf(list), (Keys{"42", "43"}));
    EXPECT_EQ(list.Item("42")->SemTerminID(), 17);
    EXPECT_EQ(list.Item("42")->SemID(), 105);
    EXPECT_EQ(list.Item("43")->SemTerminID(), 0);
    EXPECT_EQ(list.Item("43")->SemID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, AnEntryThatComesTwiceRaises457AndTheFirstAndThoseBeforeItStay) {
    for (const Loader& loader : kLoaders) {
        SCOPED_TRACE(loader.name);
        Script script;
        script.OpenSelect(SelectList(loader.where)).Rows(kColumns, {NullRow(7), RowOfDate(42, 17), RowOfDate(42, 18), NullRow(43)});
        colSemWarteliste list;
        EXPECT_RAISES_UNDER(457, kLabelsOfLoad, loader.load(list, script.Session()));
        EXPECT_EQ(KeysOf(list), (Keys{"7", "42"}));
        EXPECT_EQ(list.Item("42")->SemTerminID(), 17);
        EXPECT_EQ(script.Report(), "") << "the rows are not closed";
    }
}

TEST(colSemWarteliste, ASecondLoadAddsToTheFirstAndRaises457AtTheFirstEntryThatIsThere) {
    Script script;
    const auto list = Loaded(script, {7});
    ScriptList(script, WhereDate(17), {NullRow(42)});
    list->LoadListSeminartermin(script.Session(), 17);
    EXPECT_EQ(KeysOf(*list), (Keys{"7", "42"}));
    script.OpenSelect(SelectList(WhereSeminar(105))).Rows(kColumns, {NullRow(43), NullRow(7), NullRow(44)});
    EXPECT_RAISES_UNDER(457, kLabelsOfLoad, list->LoadListSeminar(script.Session(), 105));
    EXPECT_EQ(KeysOf(*list), (Keys{"7", "42", "43"}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, WhereTheRowsDoNotCloseTheListIsThereAllTheSame) {
    Script script;
    script.OpenSelect(SelectList()).Rows(kColumns, {FullRow()});
    script.CloseRows().Raises(-7, "Die Leitung ist tot.", "Treiber");
    colSemWarteliste list;
    const auto error = RaisedBy([&] { return list.LoadListComplete(script.Session()); });
    EXPECT_EQ(LabelsOf(error), kLabelsOfLoad);
    ASSERT_EQ(list.Count(), 1);
    ExpectValues(*list.Item(1), &Property::in_list);
    EXPECT_EQ(script.Report(), "");
}

// The session

TEST(colSemWarteliste, ALoaderKeepsItsSessionEvenWhereItsStatementIsRefused) {
    for (const Loader& loader : kLoaders) {
        SCOPED_TRACE(loader.name);
        Script first;
        Script second;
        const auto list = Loaded(first, {7});
        second.OpenSelect(SelectList(loader.where)).Refused("time-out");
        EXPECT_TRUE(RaisedBy([&] { return loader.load(*list, second.Session()); }));
        ScriptEntry(second, 42, {FullRow()});
        ExpectValues(*list->Add(42), &Property::alone);
        EXPECT_EQ(first.Report() + second.Report(), "");
    }
}

TEST(colSemWarteliste, AnEmptySessionRaises91AndIsKeptToo) {
    for (const Loader& loader : kLoaders) {
        SCOPED_TRACE(loader.name);
        Script script;
        const auto list = Loaded(script, {});
        EXPECT_RAISES_UNDER(91, kLabelsOfLoad, loader.load(*list, nullptr));
        EXPECT_RAISES_UNDER(91, Labels{" in LumoSeminar.IsInitialized"}, list->Add(42)->MDNR());
        EXPECT_TRUE(script.SessionReleased());
    }
}

TEST(colSemWarteliste, ListedEntriesHaveTheSessionAndOutliveTheList) {
    Script script;
    auto entry = Loaded(script, {42})->Item(1);
    script.ExecuteSql(Delete(42));
    EXPECT_EQ(entry->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
    entry.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

// Members of the list

TEST(colSemWarteliste, AddBeforeAnyLoaderGivesAnEntryWithoutASession) {
    colSemWarteliste list;
    const auto entry = list.Add(42);
    EXPECT_EQ(list.Item("42"), entry);
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_RAISES_UNDER(91, Labels{" in LumoSeminar.IsInitialized"}, entry->Status());
    Script script;
    ScriptList(script, "");
    list.LoadListComplete(script.Session());
    EXPECT_RAISES(91, entry->Status());
    EXPECT_EQ(script.Report(), "") << "it does not get one later";
}

TEST(colSemWarteliste, AddFilesABoundEntryAtTheEndWithoutAStatement) {
    Script script;
    const auto list = Loaded(script, {7});
    const auto entry = list->Add(42);
    EXPECT_EQ(KeysOf(*list), (Keys{"7", "42"}));
    EXPECT_EQ(list->Item(2), entry);
    EXPECT_EQ(script.Report(), "");
    ScriptEntry(script, 42, {FullRow()});
    ExpectValues(*entry, &Property::alone);
    EXPECT_EQ(script.Report(), "") << "it reads its row itself";
}

TEST(colSemWarteliste, AKeyThatIsThereRaises457FromAddWithoutALabelAndFromALoaderWithOne) {
    Script script;
    const auto list = Loaded(script, {7});
    EXPECT_RAISES_UNDER(457, Labels{}, list->Add(7));
    list->Add(42);
    script.OpenSelect(SelectList()).Rows(kColumns, {NullRow(42)});
    EXPECT_RAISES_UNDER(457, kLabelsOfLoad, list->LoadListComplete(script.Session()));
    EXPECT_EQ(KeysOf(*list), (Keys{"7", "42"}));
}

TEST(colSemWarteliste, AnEntryStaysUnderTheKeyThatItWasFiledUnder) {
    Script script;
    const auto list = Loaded(script, {7});
    const auto entry = list->Item(1);
    entry->SemWartelisteID(8);
    EXPECT_EQ(list->Item("7"), entry);
    EXPECT_RAISES(5, list->Item("8"));
}

// The wait-list of a date

Ref<clsTermin> Date17(const Ref<DataSession>& session) {
    auto date = New<clsTermin>();
    date->Init(17, session);
    return date;
}

const Labels kLabelsOfDate = {" in LumoSeminar.LoadList", " in LumoSeminar.colWarteliste"};

TEST(colSemWarteliste, ADateReadsItsWaitListOnceWithoutReadingItself) {
    Script script;
    ScriptList(script, WhereDate(17), {RowOfDate(43, 17), RowOfDate(42, 17)});
    const auto date = Date17(script.Session());
    const auto list = date->colWarteliste();
    ASSERT_TRUE(list);
    EXPECT_EQ(KeysOf(*list), (Keys{"43", "42"}));
    list->Remove(1);
    EXPECT_EQ(date->colWarteliste(), list);
    EXPECT_EQ(date->Init(18, script.Session()), true);
    EXPECT_EQ(date->colWarteliste(), list);
    EXPECT_EQ(KeysOf(*date->colWarteliste()), Keys{"42"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, ANewDateHasTheWaitListOfDate0AndAnEmptyListIsKeptToo) {
    Script script;
    ScriptList(script, WhereDate(0));
    clsTermin date;
    date.Init(0, script.Session());
    for (int i = 0; i < 2; ++i) EXPECT_EQ(date.colWarteliste()->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, AWaitListOfADateThatFailsRaisesUnderBothLabelsAndStaysAsFarAsItCame) {
    Script script;
    script.OpenSelect(SelectList(WhereDate(17))).Rows(kColumns, {RowOfDate(42, 17), RowOfDate(42, 17)});
    const auto date = Date17(script.Session());
    const auto error = RaisedBy([&] { return date->colWarteliste(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 457);
    EXPECT_TRUE(error->Description().starts_with("in line: 0\r\nin line: 0\r\n"));
    EXPECT_EQ(LabelsOf(error), kLabelsOfDate);
    EXPECT_EQ(KeysOf(*date->colWarteliste()), Keys{"42"});
    EXPECT_EQ(script.Report(), "");

    Script refused;
    refused.OpenSelect(SelectList(WhereDate(17))).Refused("Zeitüberschreitung");
    const auto other = Date17(refused.Session());
    const auto refusal = RaisedBy([&] { return other->colWarteliste(); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Number(), 9999);
    EXPECT_EQ(refusal->Description(),
              "in line: 0\r\nin line: 0\r\nZeitüberschreitung in LumoSeminar.LoadList in LumoSeminar.colWarteliste");
    EXPECT_EQ(other->colWarteliste()->Count(), 0);
    EXPECT_EQ(refused.Report(), "");
}

TEST(colSemWarteliste, TheWaitListOfADateFailsAsDocumentedAtEachStepAndWithoutASession) {
    ExpectFailures([](Script& script) { ScriptList(script, WhereDate(17), {RowOfDate(42, 17)}); },
                   [](const Ref<DataSession>& session) { Date17(session)->colWarteliste(); },
                   {{1, kNotOk, 9999, kLabelsOfDate}, {1, kRaises, 7001, kLabelsOfDate}, {2, kRaises, 7001, kLabelsOfDate}});
    EXPECT_RAISES_UNDER(91, kLabelsOfDate, New<clsTermin>()->colWarteliste());
}

// The interest list of a seminar

Ref<clsSeminar> Seminar105(const Ref<DataSession>& session) {
    auto seminar = New<clsSeminar>();
    seminar->Init(105, session);
    return seminar;
}

void ScriptSeminar(Script& script) {
    script.OpenSelect(seminar_statements::Select(105)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
}

TEST(colSemWarteliste, ASeminarReadsItselfThenItsInterestListOnce) {
    Script script;
    ScriptSeminar(script);
    ScriptList(script, WhereSeminar(105), {NullRow(43), NullRow(42)});
    const auto seminar = Seminar105(script.Session());
    const auto list = seminar->colInteressentenliste();
    ASSERT_TRUE(list);
    EXPECT_EQ(KeysOf(*list), (Keys{"43", "42"}));
    EXPECT_EQ(seminar->colInteressentenliste(), list);
    EXPECT_EQ(seminar->SemCode(), "BS-01");
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, ASeminarThatCannotBeReadHasNoInterestListAndIsReadAgain) {
    Script script;
    script.OpenSelect(seminar_statements::Select(105)).Rows(seminar_statements::kColumns);
    script.OpenSelect(seminar_statements::Select(105)).Refused("time-out");
    ScriptSeminar(script);
    ScriptList(script, WhereSeminar(105), {NullRow(42)});
    const auto seminar = Seminar105(script.Session());
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(seminar->colInteressentenliste());
    EXPECT_EQ(KeysOf(*seminar->colInteressentenliste()), Keys{"42"});
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(New<clsSeminar>()->colInteressentenliste()) << "one without a session reads nothing";
}

TEST(colSemWarteliste, AnInterestListThatFailsRaisesWithoutALabelOfTheSeminarAndStaysAsFarAsItCame) {
    Script script;
    ScriptSeminar(script);
    script.OpenSelect(SelectList(WhereSeminar(105))).Rows(kColumns, {NullRow(42), NullRow(42)});
    const auto seminar = Seminar105(script.Session());
    EXPECT_RAISES_UNDER(457, kLabelsOfLoad, seminar->colInteressentenliste());
    EXPECT_EQ(KeysOf(*seminar->colInteressentenliste()), Keys{"42"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemWarteliste, TheInterestListOfASeminarFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptSeminar(script);
            ScriptList(script, WhereSeminar(105), {NullRow(42)});
        },
        [](const Ref<DataSession>& session) { Seminar105(session)->colInteressentenliste(); },
        {{1, kNotOk},
         {2, kNotOk, 9999, kLabelsOfLoad},
         {1, kRaises, 7001, {" LumoSeminar062.clsSeminar.PropertiesInit"}},
         {2, kRaises, 7001, kLabelsOfLoad},
         {3, kRaises, 7001, kLabelsOfLoad}});
}

}  // namespace
}  // namespace LumoSeminar
