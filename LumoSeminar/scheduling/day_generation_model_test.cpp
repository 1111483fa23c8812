// The days of a date, held against a second statement of their rules over some thousand dates and their changes.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_generation_model.h>
#include <test_support/day_generation_tables.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using std::chrono::days;
using std::chrono::year;
using test_support::day_generation_model::Clock;
using test_support::day_generation_model::Date;
using test_support::day_generation_model::Failure;
using test_support::day_generation_model::Fields;
using test_support::day_generation_model::kFirstStored;
using test_support::day_generation_model::kLastDate;
using test_support::day_generation_model::kMinutesOfADay;
using test_support::day_generation_model::kNoDate;
using test_support::day_generation_model::Model;
using test_support::day_generation_model::Rule;
using test_support::day_generation_model::Times;
using test_support::day_generation_model::Written;

constexpr int kKey = 17;
constexpr int kSeminar = 5;
constexpr int kSeriesWithoutARow = 9;

DateTime ToDateTime(Date date) { return DateTime(date); }
DateTime ToTime(int minutes) { return DateTime().AddMinutes(minutes); }

int Minutes(DateTime time) {
    const auto since = time.Date() - kNoDate + std::chrono::floor<std::chrono::minutes>(time.Time());
    return static_cast<int>(std::chrono::floor<std::chrono::minutes>(since).count());
}

Fields FieldsOf(const Ref<clsTermin>& date) {
    return {.begin = date->BeginnDatum().Date(),
            .end = date->EndeDatum().Date(),
            .begin_time = Minutes(date->BeginnUhrzeit()),
            .end_time = Minutes(date->EndeUhrzeit()),
            .hours = To<Int32>(date->Stunden() * 100),
            .sessions = date->Sitzungen(),
            .series = date->SerienID()};
}

std::string Written(const Fields& fields) {
    return Written(fields.begin) + " to " + Written(fields.end) + ", " + std::to_string(fields.begin_time) + " to " +
           std::to_string(fields.end_time) + " minutes, hours " + std::to_string(fields.hours) + "/100, sessions " +
           std::to_string(fields.sessions) + ", series " + std::to_string(fields.series);
}

std::vector<std::string> Written(const std::map<Date, Times>& made) {
    std::vector<std::string> rows;
    rows.reserve(made.size());
    for (const auto& [date, times] : made)
        rows.push_back(Written(date) + " " + Clock(times.from) + "-" + Clock(times.to));
    return rows;
}

std::string TimeOrNull(int minutes) {
    return minutes == 0 ? "NULL" : "Convert(Datetime,'30.12.1899 " + Clock(minutes) + "',104)";
}

/// Where in the calendar a case lies. Weeks backwards and weeks without a flag run to its ends, and so they are kept
/// near them.
enum class Era { kFirstYear, kPresent, kLastYear };

/// How many changes ended with which error, 0 for none.
using Outcomes = std::map<int, int>;

/// A date, its series and its changes, all drawn from one number.
class Case {
  public:
    Case(const Ref<DataSession>& session, unsigned number, Outcomes& outcomes)
        : session_(session), outcomes_(outcomes), random_(number) {
        era_ = static_cast<Era>(Below(3));
        base_ = BaseOf(era_);
        for (const int key : {1, 2, 3}) rules_[key] = RandomRule();
        rules_[kSeriesWithoutARow] = {};
        const bool has_seminar = Chance(50);
        const Fields fields{.begin_time = RandomTime(),
                            .end_time = RandomTime(),
                            .hours = RandomHours(),
                            .sessions = RandomSessions(),
                            .series = RandomSeries()};
        story_ = "case " + std::to_string(number) + (has_seminar ? ", with a seminar" : "") + ": " + Written(fields) + "\n";
        model_.emplace(fields, rules_, has_seminar);
        WriteRows(fields, has_seminar);
        Bind();
    }

    void Run() {
        LetBegin();
        for (int change = 0; change < 6 && !testing::Test::HasFailure(); ++change) Change();
    }

  private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    int Between(int from, int to) { return from + static_cast<int>(Below(static_cast<unsigned>(to - from + 1))); }
    bool Chance(unsigned percent) { return Below(100) < percent; }

    Date BaseOf(Era era) {
        if (era == Era::kFirstYear) return kFirstStored + days{Between(0, 90)};
        if (era == Era::kLastYear) return kLastDate - days{Between(30, 120)};
        return Date{year{1990} / 1 / 1} + days{Between(0, 50 * 365)};
    }

    Rule RandomRule() {
        Rule rule;
        rule.tagefolge = Between(0, 3);
        rule.taeglich = Between(0, 2);
        rule.woche = Between(era_ == Era::kFirstYear ? -2 : 0, 4);
        const unsigned density = Below(101);
        for (int& flag : rule.flags) flag = Chance(density) ? -1 : Between(0, 1);
        const bool flagless = std::ranges::find(rule.flags, -1) == rule.flags.end();
        if (flagless && rule.woche > 0 && era_ != Era::kLastYear) rule.flags[Below(7)] = -1;
        rule.begin = RandomTime();
        rule.end = RandomTime();
        return rule;
    }

    int RandomTime() { return Chance(50) ? 0 : Between(1, kMinutesOfADay - 1); }
    int RandomHours() {
        switch (Below(5)) {
            case 0:
                return 0;
            case 1:
                return Between(-500, 9'999);
            case 2:
                return Between(0, 400) * 5;  // many a session ends on half a minute
            default:
                return Between(1, 40) * 100;
        }
    }
    int RandomSessions() { return Between(-1, 20); }
    int RandomSeries() { return Chance(25) ? 0 : Chance(5) ? kSeriesWithoutARow : Between(1, 3); }
    Date RandomDate() { return std::min(base_ + days{Between(0, 60)}, kLastDate); }

    void WriteRows(const Fields& fields, bool has_seminar) {
        for (const char* table : {"Sem_Termin_IT", "Sem_Serien_IT", "Sem_Termin_Termine_IT"})
            test_support::RunSql(*session_, std::string("DELETE FROM ") + table);
        test_support::RunSql(*session_,
                             "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, SemID, Stunden, Sitzungen, SerienID, "
                             "BeginnUhrzeit, EndeUhrzeit) VALUES (17, 1, " +
                                 (has_seminar ? std::to_string(kSeminar) : "NULL") + ", " + std::to_string(fields.hours) +
                                 " / 100.0, " + std::to_string(fields.sessions) + ", " + std::to_string(fields.series) +
                                 ", " + TimeOrNull(fields.begin_time) + ", " + TimeOrNull(fields.end_time) + ")");
        for (const int key : {1, 2, 3}) {
            const Rule& rule = rules_[key];
            test_support::InsertSeries(*session_, key,
                                       {.tagefolge = rule.tagefolge,
                                        .taeglich = rule.taeglich,
                                        .woche = rule.woche,
                                        .flags = {rule.flags.begin(), rule.flags.end()},
                                        .begin = Clock(rule.begin),
                                        .end = Clock(rule.end)});
            story_ += "  series " + std::to_string(key) + ": Tagefolge " + std::to_string(rule.tagefolge) + ", Taeglich " +
                      std::to_string(rule.taeglich) + ", Woche " + std::to_string(rule.woche) + ", from Monday";
            for (const int flag : rule.flags) story_ += " " + std::to_string(flag);
            story_ += ", " + Clock(rule.begin) + " to " + Clock(rule.end) + "\n";
        }
    }

    void Bind() {
        date_ = New<clsTermin>();
        date_->Init(kKey, session_);
        date_->Sitzungen();  // its let alone does not load
    }

    void Change() {
        switch (Below(15)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return LetBegin();
            case 4:
            case 5:
            case 6:
            case 7:
                return LetEnd();
            case 8:
                return Both(
                    "Sitzungen", RandomSessions(), [&](int value) { date_->Sitzungen(value); }, model_->Row().sessions);
            case 9:
                return Both(
                    "hundredths of Stunden", RandomHours(), [&](int value) { date_->Stunden(value / 100.0); },
                    model_->Row().hours);
            case 10:
                return Both(
                    "SerienID", RandomSeries(), [&](int value) { date_->SerienID(value); }, model_->Row().series);
            case 11:
                Both(
                    "BeginnUhrzeit", RandomTime(), [&](int value) { date_->BeginnUhrzeit(ToTime(value)); },
                    model_->Row().begin_time);
                return Both(
                    "EndeUhrzeit", RandomTime(), [&](int value) { date_->EndeUhrzeit(ToTime(value)); }, model_->Row().end_time);
            case 12:
                return ChangeADayByHand();
            case 13:
                return Save();
            default:
                model_->leave_days_alone = !model_->leave_days_alone;
                return Compare(
                    "NewDelOnlyTag", [&] { date_->NewDelOnlyTag(model_->leave_days_alone); }, [] {});
        }
    }

    void LetBegin() {
        const Date value = Chance(5) ? kNoDate : Chance(10) ? model_->Row().begin : RandomDate();
        Compare(
            "BeginnDatum " + Written(value), [&] { date_->BeginnDatum(ToDateTime(value)); },
            [&] { model_->LetBegin(value); });
    }

    void LetEnd() {
        const Fields& row = model_->Row();
        const Date from = row.end != kNoDate ? row.end : base_;
        Date value = std::min(from + days{Chance(70) ? Between(0, 45) : Between(-30, 0)}, kLastDate);
        if (era_ != Era::kFirstYear && Chance(3)) value = kNoDate;
        Compare(
            "EndeDatum " + Written(value), [&] { date_->EndeDatum(ToDateTime(value)); }, [&] { model_->LetEnd(value); });
    }

    void ChangeADayByHand() {
        const auto& made = model_->Made();
        if (Chance(50) && !made.empty()) {
            return Compare(
                "the first day removed", [&] { date_->colTerminTage()->Remove(1); }, [&] { model_->RemoveFirst(); });
        }
        const Date value = RandomDate();
        const Times times{RandomTime(), RandomTime()};
        Compare(
            "a new day " + Written(value) + " " + Clock(times.from) + "-" + Clock(times.to),
            [&] { date_->colTerminTage()->NewTerminTag(ToDateTime(value), ToTime(times.from), ToTime(times.to)); },
            [&] { model_->Make(value, times); });
    }

    void Save() {
        Compare(
            "WriteToDatabase", [&] { (void)date_->WriteToDatabase(); }, [&] { model_->Save(); });
        if (Chance(50)) return;
        Compare(
            "read anew", [&] { Bind(); }, [&] { model_->ReadAnew(); });
    }

    template <class Let>
    void Both(const std::string& what, int value, Let&& let, int& field) {
        Compare(
            what + " " + std::to_string(value), [&] { let(value); }, [&] { field = value; });
    }

    /// Does a change on both sides and compares all that can be seen of it.
    template <class Real, class Modelled>
    void Compare(const std::string& what, Real&& real, Modelled&& modelled) {
        if (testing::Test::HasFailure()) return;
        story_ += "  " + what + "\n";
        int expected = 0;
        try {
            modelled();
        } catch (const Failure& failure) {
            expected = failure.number;
        }
        const auto error = test_support::RaisedBy([&] {
            real();
            return 0;
        });
        EXPECT_EQ(error ? error->Number() : 0, expected) << story_ << (error ? error->Description() : "");
        EXPECT_EQ(test_support::DaysOf(*session_, kKey), Written(model_->Made())) << story_;
        const Fields fields = FieldsOf(date_);
        EXPECT_EQ(fields, model_->Row()) << story_ << "  it has " << Written(fields) << "\n  expected "
                                         << Written(model_->Row());
        ++outcomes_[expected];
    }

    Ref<DataSession> session_;
    Outcomes& outcomes_;
    std::mt19937 random_;
    Era era_ = Era::kPresent;
    Date base_;
    std::map<int, Rule> rules_;
    std::optional<Model> model_;
    Ref<clsTermin> date_;
    std::string story_;
};

TEST(DayGenerationModel, SomeThousandDatesFollowTheRules) {
    const auto session = test_support::SchemaDatabase();
    Outcomes outcomes;
    for (unsigned number = 1; number <= 2000; ++number) {
        Case(session, number, outcomes).Run();
        if (HasFailure()) return;
    }
    // Each way to end comes often enough to count.
    for (const int number : {0, 6, 9, 9999}) EXPECT_GE(outcomes[number], 50) << number;
}

}  // namespace
}  // namespace LumoSeminar
