// How many statements a change of the two dates of a date costs, counted on a real database.

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_generation_fixture.h>

namespace LumoSeminar {
namespace {

using test_support::kNoWeekday;
using test_support::March;
using test_support::SeriesRule;
using test_support::Weekly;
using test_support::WorkingDays;

/// Counts what is sent to the session behind it.
class CountingSession final : public DataSession {
  public:
    explicit CountingSession(Ref<DataSession> behind) : behind_(std::move(behind)) {}

    Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override {
        return behind_->Connect(connection_text, user, password, timeout);
    }
    Ref<Connection> AdoConnection() override { return behind_->AdoConnection(); }
    Ref<RecordSet> Recordset() override { return behind_->Recordset(); }
    Bool OpenSelect(const Text& sql) override {
        ++count_;
        return behind_->OpenSelect(sql);
    }
    Bool ExecuteSql(const Text& sql) override {
        ++count_;
        return behind_->ExecuteSql(sql);
    }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        ++count_;
        return behind_->LookupValue(expression, table, where);
    }
    Text LastErrorText() override { return behind_->LastErrorText(); }

    int Count() const { return count_; }

  private:
    Ref<DataSession> behind_;
    int count_ = 0;
};

class DayGenerationCost : public test_support::DayGenerationFixture {
  protected:
    /// The date bound to a session that counts.
    Ref<clsTermin> Counted() {
        counting_ = New<CountingSession>(session_);
        auto date = New<clsTermin>();
        date->Init(kKey, counting_);
        return date;
    }

    /// The date, read, with so many days from the first of March on.
    Ref<clsTermin> WithDays(int count, const std::optional<SeriesRule>& series = {}) {
        (void)NewDate(series, count == 0 ? -1 : count)->WriteToDatabase();
        auto date = Counted();
        if (count > 0) date->BeginnDatum(March(1));
        EXPECT_EQ(static_cast<int>(RowsOf().size()), count);
        return date;
    }

    int CostOf(const std::function<void()>& call) const {
        const int before = counting_->Count();
        call();
        return counting_->Count() - before;
    }

    Ref<CountingSession> counting_;
};

TEST_F(DayGenerationCost, OfARebuildIsOneAndTwoForEachOldDayAndOneForEachNew) {
    for (const int old_days : {0, 1, 2, 9}) {
        for (const int new_days : {1, 2, 12}) {
            SCOPED_TRACE(std::to_string(old_days) + " old days, " + std::to_string(new_days) + " new ones");
            const auto date = WithDays(old_days);
            date->Sitzungen();
            date->Sitzungen(new_days);
            EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(15)); }), 1 + 2 * old_days + new_days);
        }
    }
}

TEST_F(DayGenerationCost, OfARebuildByASeriesIsOneListMoreAndAtFirstTheSeries) {
    for (const auto& series : {WorkingDays(), Weekly(1, {-1, -1, 0, 0, -1, 0, 0})}) {
        SCOPED_TRACE(series.tagefolge);
        const auto date = WithDays(0, series);
        date->Sitzungen();
        date->Sitzungen(5);
        EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(15)); }), 1 + 1 + 1 + 5);
        date->Sitzungen(2);
        EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(16)); }), 1 + 2 * 5 + 1 + 2);
        EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(17)); }), 1 + 2 * 2 + 1 + 2);
    }
}

TEST_F(DayGenerationCost, OfTheFirstChangeIsTheLoadMore) {
    const auto date = WithDays(0);
    (void)NewDate({}, 2)->WriteToDatabase();
    EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(3)); }), 1 + 1 + 2);
}

TEST_F(DayGenerationCost, OfARebuildWithoutSessionsIsThatOfItsDeletions) {
    const auto date = WithDays(4);
    date->Sitzungen(-1);
    EXPECT_EQ(CostOf([&] { date->BeginnDatum(March(15)); }), 1 + 2 * 4);
}

TEST_F(DayGenerationCost, OfAnExtensionIsFiveAndOneForEachNewDay) {
    for (const int old_days : {1, 5}) {
        for (const int new_days : {1, 7}) {
            const auto date = WithDays(old_days);
            EXPECT_EQ(CostOf([&] { date->EndeDatum(date->EndeDatum().AddDays(new_days)); }), 5 + new_days);
        }
    }
}

TEST_F(DayGenerationCost, OfAnExtensionByASeriesIsTheSeriesMoreWhereItWasNotReadYet) {
    const auto date = WithDays(2);
    test_support::InsertSeries(*session_, 4, WorkingDays());
    test_support::InsertSeries(*session_, 5, Weekly(1, kNoWeekday));
    date->SerienID(4);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(5)); }), 5 + 1 + 3);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(9)); }), 5 + 2);
    date->SerienID(5);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(31)); }), 5 + 1 + 1);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(DateTime::Of(2020, 3, 31)); }), 5 + 1);
}

TEST_F(DayGenerationCost, OfAShrinkIsThreeAndOneForEachDayThatGoes) {
    const auto date = WithDays(9);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(8)); }), 3 + 1);
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(3)); }), 3 + 5);
    Sql("DELETE FROM Sem_Termin_Termine_IT WHERE Termin = Convert(datetime,'02.03.2010',104)");
    EXPECT_EQ(CostOf([&] { date->EndeDatum(March(2)); }), 3 + 1 + 3) << "three more for the correction";
}

TEST_F(DayGenerationCost, OfDatesThatStayIsNothing) {
    const auto date = WithDays(3);
    EXPECT_EQ(CostOf([&] {
                  date->BeginnDatum(March(1));
                  date->EndeDatum(March(3));
                  date->NewDelOnlyTag(true);
                  date->BeginnDatum(March(8));
                  date->EndeDatum(March(9));
              }),
              0);
}

TEST_F(DayGenerationCost, OfASaveIsTwoAndOneForEachDay) {
    for (const int count : {1, 4}) {
        const auto date = WithDays(count);
        EXPECT_EQ(CostOf([&] { (void)date->WriteToDatabase(); }), 2 + count);
    }
}

TEST_F(DayGenerationCost, OfAReadOfTheListIsOneHoweverManyDays) {
    const auto date = WithDays(30);
    EXPECT_EQ(CostOf([&] { EXPECT_EQ(date->colTerminTage()->Count(), 30); }), 1);
}

}  // namespace
}  // namespace LumoSeminar
