#include <LumoSeminar/enrolment/budget_years.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;
using Values = std::vector<Variant>;

const Variant kNull = Variant::Null();
const std::string kLabelOfALoad = " in LumoSeminar.IsInitialized";

const std::vector<std::string> kColumns = {"JahrID", "Von", "Bis"};
const std::string kSelectYears = "Select JahrID,von,bis from Sem_BudgetJahr_IT Order by Von";

const DateTime kFrom = DateTime::Of(2009, 4, 1);
const DateTime kTo = DateTime::Of(2010, 3, 31);
const Values kYear = {2, kFrom, kTo};

std::string SelectYear(int key) {
    return "Select JahrID,Von,Bis from Sem_BudgetJahr_IT where JahrID = " + std::to_string(key);
}

void ScriptLoad(Script& script, const std::vector<Values>& rows = {kYear}, int key = 2) {
    script.OpenSelect(SelectYear(key)).Rows(kColumns, rows);
    script.CloseRows();
}

void ScriptList(Script& script, const std::vector<Values>& rows) {
    script.OpenSelect(kSelectYears).Rows(kColumns, rows);
    script.CloseRows();
}

Ref<clsSemBudgetJahr> Bound(const Ref<DataSession>& session, Int32 key = 2) {
    auto year = New<clsSemBudgetJahr>();
    year->Init(key, session);
    return year;
}

Ref<colSemBudgetJahre> Listed(const Ref<DataSession>& session) {
    auto list = New<colSemBudgetJahre>();
    EXPECT_EQ(list->Init(session), Variant(false));
    return list;
}

Ref<colSemBudgetJahre> Listed(const std::vector<Values>& rows) {
    Script script;
    ScriptList(script, rows);
    return Listed(script.Session());
}

Values ValuesOf(clsSemBudgetJahr& year) { return {year.JahrID(), year.Von(), year.Bis()}; }

TEST(clsSemBudgetJahr, InitStoresWhatItIsGivenReadsNothingAndGivesEmpty) {
    Script script;
    clsSemBudgetJahr year;
    EXPECT_EQ(year.JahrID(), 0);
    EXPECT_EQ(year.Init(2, script.Session()), Variant());
    EXPECT_EQ(year.JahrID(), 2);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(year.Init(-3, nullptr), Variant());
    EXPECT_EQ(year.JahrID(), -3);
    EXPECT_TRUE(script.SessionReleased());
    year.JahrID(2147483647);
    EXPECT_EQ(year.JahrID(), 2147483647);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemBudgetJahr, AWholeRowIsReadItsKeyIncludedAndANullIsZero) {
    const Values rows[] = {{9, kFrom, kTo}, {kNull, kFrom, kTo}, {2, kNull, kTo}, {2, kFrom, kNull}};
    const Values expected[] = {{9, kFrom, kTo}, {0, kFrom, kTo}, {2, DateTime(), kTo}, {2, kFrom, DateTime()}};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Script script;
        ScriptLoad(script, {rows[i]});
        const auto year = Bound(script.Session());
        year->Von();
        EXPECT_EQ(ValuesOf(*year), expected[i]) << i;
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemBudgetJahr, AnotherKeyOrAnotherInitDoesNotLoadAgain) {
    Script script;
    Script other;
    ScriptLoad(script);
    const auto year = Bound(script.Session());
    EXPECT_EQ(year->Von(), kFrom);
    year->JahrID(5);
    EXPECT_EQ(ValuesOf(*year), (Values{5, kFrom, kTo}));
    year->Init(6, other.Session());
    EXPECT_EQ(ValuesOf(*year), (Values{6, kFrom, kTo}));
    EXPECT_EQ(script.Report() + other.Report(), "");
}

TEST(clsSemBudgetJahr, ARowThatIsTooShortRaisesAndIsTriedAgain) {
    Script script;
    script.OpenSelect(SelectYear(2)).Rows({"JahrID", "Von"}, {{2, kFrom}});
    ScriptLoad(script);
    const auto year = Bound(script.Session());
    EXPECT_RAISES_UNDER(9, Labels{kLabelOfALoad}, year->Von());
    EXPECT_EQ(ValuesOf(*year), (Values{2, kFrom, kTo})) << "Von is loaded again before it is given";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemBudgetJahr, WithoutASessionBothEndsRaise91) {
    clsSemBudgetJahr year;
    const std::function<void()> accesses[] = {[&] { year.Von(); }, [&] { year.Bis(); }, [&] { year.Von(kFrom); },
                                              [&] { year.Bis(kTo); }};
    for (const auto& access : accesses) {
        EXPECT_RAISES_UNDER(91, Labels{kLabelOfALoad}, access());
    }
}

TEST(colSemBudgetJahre, ListsAndLoadsTheYearsInTheOrderOfTheServerWithOneStatementAndGivesFalse) {
    Script script;
    script.OpenSelect("Select JahrID,von,bis from Sem_BudgetJahr_IT Order by Von")
        .Rows({"JahrID", "von", "bis"}, {{3, kTo, kFrom}, kYear, {1, kNull, kNull}});
    script.CloseRows();
    colSemBudgetJahre list;
    EXPECT_EQ(list.Init(script.Session()), Variant(false));
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(ValuesOf(*list.Item(1)), (Values{3, kTo, kFrom}));
    EXPECT_EQ(ValuesOf(*list.Item(2)), kYear);
    EXPECT_EQ(ValuesOf(*list.Item(3)), (Values{1, DateTime(), DateTime()}));
    list.Item(3)->Von(kFrom);
    EXPECT_EQ(list.Item(3)->Von(), kFrom);
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemBudgetJahre, AnEmptyTableGivesFalseAndNoYear) {
    Script script;
    ScriptList(script, {});
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Count(), 0);
    EXPECT_FALSE(list->GetBudgetJahr(kFrom));
    EXPECT_FALSE(list->GetBudgetJahr(DateTime()));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemBudgetJahre, ARefusedListRaises9999AndKeepsTheSession) {
    Script script;
    script.OpenSelect(kSelectYears).Refused("Ungültiger Objektname 'Sem_BudgetJahr_IT'.");
    ScriptLoad(script);
    colSemBudgetJahre list;
    const auto error = RaisedBy([&] { return list.Init(script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nUngültiger Objektname 'Sem_BudgetJahr_IT'. in "
              "LumoSeminar.LoadKeysFromDataBase in LumoSeminar.Init");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Add(2)->Von(), kFrom);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemBudgetJahre, AddBindsAYearAndFilesNothing) {
    Script script;
    ScriptList(script, {kYear});
    ScriptLoad(script, {{5, kTo, kFrom}}, 5);
    ScriptLoad(script);
    const auto list = Listed(script.Session());
    EXPECT_EQ(ValuesOf(*list->Add(5)), (Values{5, kTo, kFrom}));
    const auto second = list->Add(2);
    EXPECT_NE(second, list->Item("2"));
    EXPECT_EQ(second->Bis(), kTo);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_FALSE(list->Item("5"));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemBudgetJahre, AYearAddedToAListWithoutASessionCannotBeLoaded) {
    const auto year = New<colSemBudgetJahre>()->Add(7);
    EXPECT_EQ(year->JahrID(), 7);
    EXPECT_RAISES(91, year->Von());
}

/// In the order of Von: two years without a gap, a gap, two that overlap and begin together, one in the second of them,
/// one that ends before it begins, and one of a single moment.
Ref<colSemBudgetJahre> YearsToSearch() {
    return Listed(std::vector<Values>{
        {1, DateTime::Of(2008, 4, 1), DateTime::Of(2009, 3, 31)},
        {2, DateTime::Of(2009, 4, 1), DateTime::Of(2010, 3, 31, 12, 0)},
        {11, DateTime::Of(2012, 1, 1, 6, 30), DateTime::Of(2012, 6, 30)},
        {10, DateTime::Of(2012, 1, 1, 6, 30), DateTime::Of(2012, 12, 31)},
        {9, DateTime::Of(2012, 10, 1), DateTime::Of(2013, 9, 30)},
        {14, DateTime::Of(2014, 12, 31), DateTime::Of(2014, 1, 1)},
        {15, DateTime::Of(2015, 1, 1, 8, 0), DateTime::Of(2015, 1, 1, 8, 0)},
    });
}

TEST(colSemBudgetJahre, GetBudgetJahrGivesTheFirstYearAroundAMomentBothEndsCounted) {
    const auto list = YearsToSearch();
    const struct {
        const char* name;
        DateTime moment;
        /// 0 for none.
        Int32 year;
    } cases[] = {
        {"no date", DateTime(), 0},
        {"before all", DateTime::Of(2008, 3, 31), 0},
        {"the second before the first day", DateTime::Of(2008, 3, 31, 23, 59, 59), 0},
        {"the first day", DateTime::Of(2008, 4, 1), 1},
        {"noon of the first day", DateTime::Of(2008, 4, 1, 12, 0), 1},
        {"within", DateTime::Of(2008, 12, 24, 18, 0), 1},
        {"the last day at midnight", DateTime::Of(2009, 3, 31), 1},
        {"the last day a second later", DateTime::Of(2009, 3, 31, 0, 0, 1), 0},
        {"the last day at noon", DateTime::Of(2009, 3, 31, 12, 0), 0},
        {"the last day at night", DateTime::Of(2009, 3, 31, 23, 59, 59), 0},
        {"the first day of the next year", DateTime::Of(2009, 4, 1), 2},
        {"the end at noon", DateTime::Of(2010, 3, 31, 12, 0), 2},
        {"a second behind it", DateTime::Of(2010, 3, 31, 12, 0, 1), 0},
        {"the gap", DateTime::Of(2011, 5, 5), 0},
        {"the last moment of the gap", DateTime::Of(2012, 1, 1, 6, 29, 59), 0},
        {"the first of two that begin together", DateTime::Of(2012, 1, 1, 6, 30), 11},
        {"the end of the shorter one", DateTime::Of(2012, 6, 30), 11},
        {"the same day at noon is in the longer one", DateTime::Of(2012, 6, 30, 12, 0), 10},
        {"an overlap goes to the earlier beginning", DateTime::Of(2012, 11, 11), 10},
        {"the end of the earlier one", DateTime::Of(2012, 12, 31), 10},
        {"the same day at noon is in the later one", DateTime::Of(2012, 12, 31, 12, 0), 9},
        {"only the later one", DateTime::Of(2013, 2, 1), 9},
        {"a year that ends before it begins", DateTime::Of(2014, 6, 1), 0},
        {"its beginning", DateTime::Of(2014, 12, 31), 0},
        {"its end", DateTime::Of(2014, 1, 1), 0},
        {"a year of one moment", DateTime::Of(2015, 1, 1, 8, 0), 15},
        {"a second behind it", DateTime::Of(2015, 1, 1, 8, 0, 1), 0},
        {"behind all", DateTime::Of(9999, 12, 31), 0},
    };
    for (const auto& c : cases) {
        const auto year = list->GetBudgetJahr(c.moment);
        EXPECT_EQ(year ? year->JahrID() : 0, c.year) << c.name;
    }
}

TEST(colSemBudgetJahre, ADayAtTheEndOfAYearIsCaughtWhereTheNextOneBeginsOnIt) {
    const auto list = Listed(std::vector<Values>{{1, DateTime::Of(2009, 1, 1), DateTime::Of(2009, 12, 31)},
                                                 {2, DateTime::Of(2009, 12, 31), DateTime::Of(2010, 12, 31)}});
    EXPECT_EQ(list->GetBudgetJahr(DateTime::Of(2009, 12, 31))->JahrID(), 1);
    EXPECT_EQ(list->GetBudgetJahr(DateTime::Of(2009, 12, 31, 12, 0))->JahrID(), 2);
}

TEST(colSemBudgetJahre, AMissingVonCountsAsTheBaseDateAndAMissingBisToo) {
    const auto open = Listed(std::vector<Values>{{1, kNull, kTo}});
    EXPECT_EQ(open->GetBudgetJahr(kFrom)->JahrID(), 1);
    EXPECT_EQ(open->GetBudgetJahr(DateTime())->JahrID(), 1);
    EXPECT_FALSE(open->GetBudgetJahr(DateTime::Of(1899, 12, 29, 23, 59)));
    const auto endless = Listed(std::vector<Values>{{1, kFrom, kNull}});
    EXPECT_FALSE(endless->GetBudgetJahr(kTo)) << "a year without an end holds no day";
}

TEST(colSemBudgetJahre, MomentsBeforeTheBaseDateAreComparedInTheOrderOfTime) {
    const auto list = Listed(std::vector<Values>{{1, DateTime::Of(1899, 12, 28, 6, 0), DateTime::Of(1899, 12, 28, 18, 0)}});
    EXPECT_FALSE(list->GetBudgetJahr(DateTime::Of(1899, 12, 28, 5, 59)));
    EXPECT_TRUE(list->GetBudgetJahr(DateTime::Of(1899, 12, 28, 6, 0)));
    EXPECT_TRUE(list->GetBudgetJahr(DateTime::Of(1899, 12, 28, 18, 0)));
    EXPECT_FALSE(list->GetBudgetJahr(DateTime::Of(1899, 12, 28, 18, 1)));
}

TEST(colSemBudgetJahre, GetBudgetJahrGoesByTheEntriesAsTheyAreNow) {
    Script script;
    ScriptList(script, {{1, DateTime::Of(2008, 4, 1), DateTime::Of(2009, 3, 31)}, kYear});
    const auto list = Listed(script.Session());
    const DateTime moment = DateTime::Of(2009, 8, 1);
    EXPECT_EQ(list->GetBudgetJahr(moment), list->Item("2"));
    list->Item("1")->Bis(DateTime::Of(2009, 12, 31));
    EXPECT_EQ(list->GetBudgetJahr(moment), list->Item("1"));
    list->Remove("1");
    EXPECT_EQ(list->GetBudgetJahr(moment), list->Item("2"));
    list->Item("2")->Von(DateTime::Of(2009, 8, 1, 0, 0, 1));
    EXPECT_FALSE(list->GetBudgetJahr(moment));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemBudgetJahre, AYearOutlivesItsListAndBothLetGoOfTheSession) {
    Script script;
    ScriptList(script, {kYear});
    auto list = Listed(script.Session());
    auto year = list->Item(1);
    list.Reset();
    EXPECT_EQ(year->Bis(), kTo);
    EXPECT_FALSE(script.SessionReleased());
    year.Reset();
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
