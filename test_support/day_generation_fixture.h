#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/day_generation_tables.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

/// For tests of the days of dates on a real database.
namespace test_support {

inline LumoSeminar::DateTime March(unsigned day) { return LumoSeminar::DateTime::Of(2010, 3, day); }

inline SeriesRule WorkingDays() { return {.tagefolge = 1, .taeglich = 0}; }

/// Flags from Monday to Sunday.
inline SeriesRule Weekly(int weeks, std::vector<int> flags) {
    return {.tagefolge = 2, .woche = weeks, .flags = std::move(flags)};
}

inline const std::vector<int> kMondays = {-1, 0, 0, 0, 0, 0, 0};
inline const std::vector<int> kMondaysTuesdays = {-1, -1, 0, 0, 0, 0, 0};
inline const std::vector<int> kMondaysThursdays = {-1, 0, 0, -1, 0, 0, 0};
inline const std::vector<int> kNoWeekday = {0, 0, 0, 0, 0, 0, 0};

inline std::string Shown(LumoSeminar::DateTime value) { return value ? LumoSeminar::DefaultText(value) : "none"; }

inline std::string Dates(const LumoSeminar::Ref<LumoSeminar::clsTermin>& date) {
    return Shown(date->BeginnDatum()) + " to " + Shown(date->EndeDatum());
}

inline std::string Times(const LumoSeminar::Ref<LumoSeminar::clsTermin>& date) {
    return Shown(date->BeginnUhrzeit()) + " to " + Shown(date->EndeUhrzeit());
}

/// Calls and expects an error with its labels, from the inside out.
template <class Call>
void ExpectLabels(LumoSeminar::Int32 number, const std::vector<std::string>& labels, Call&& call) {
    const auto error = RaisedBy([&] {
        call();
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), number) << error->Description();
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(LumoSeminar::ReadDescription(error->Description()).labels, labels);
}

/// One date, number 17, on a database of its own.
class DayGenerationFixture : public testing::Test {
  protected:
    using Days = std::vector<std::string>;
    using Labels = std::vector<std::string>;

    static constexpr LumoSeminar::Int32 kKey = 17;
    static inline const std::string kTermin = " LumoSeminar062.clsTermin.";
    static inline const std::string kGenerate = "LumoSeminar.clsTermin.ErzeugeTerminTage";
    static inline const std::string kList = "LumoSeminar.colTerminTage.";
    static inline const std::string kInsert = "LUmoSeminar.clsTerminTag.WriteToDatabase";

    /// A date without days, the only one, with the series where there is one.
    LumoSeminar::Ref<LumoSeminar::clsTermin> NewDate(const std::optional<SeriesRule>& series = {},
                                                     LumoSeminar::Int32 sessions = 3, LumoSeminar::Double hours = 12,
                                                     LumoSeminar::Int32 seminar = 0) {
        for (const char* table : {"Sem_Termin_IT", "Sem_Serien_IT", "Sem_Termin_Termine_IT"})
            Sql(std::string("DELETE FROM ") + table);
        Sql("INSERT INTO Sem_Termin_IT (SemTerminID, MDNr) VALUES (17, 1)");
        if (series) InsertSeries(*session_, 4, *series);
        auto date = Bound(kKey);
        date->SerienID(series ? 4 : 0);
        date->SemID(seminar);
        date->Sitzungen(sessions);
        date->Stunden(hours);
        return date;
    }

    /// Three days from the third of March on.
    LumoSeminar::Ref<LumoSeminar::clsTermin> ThreeDays() {
        auto date = NewDate();
        date->BeginnDatum(March(3));
        return date;
    }
    static Days TheThreeDays() {
        return {"03.03.2010 09:00-13:00", "04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00"};
    }

    LumoSeminar::Ref<LumoSeminar::clsTermin> Bound(LumoSeminar::Int32 key) {
        auto date = LumoSeminar::New<LumoSeminar::clsTermin>();
        date->Init(key, session_);
        return date;
    }

    void Sql(const std::string& sql) { RunSql(*session_, sql); }

    Days RowsOf(LumoSeminar::Int32 key = kKey) { return DaysOf(*session_, key); }

    Database session_ = SchemaDatabase();
};

}  // namespace test_support
