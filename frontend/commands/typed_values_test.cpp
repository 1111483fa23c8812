#include <LumoSeminar/LumoSeminar.h>

#include "frontend/cli_test.h"
#include "frontend/output/value_text.h"

namespace frontend {
namespace {

using LumoSeminar::Today;

class TypedValues : public Cli {
  protected:
    TypedValues() { UseSample(); }

    std::string Stored(const std::string& typed) const {
        const auto date = Json({"dates", "set", "60", "StornoDatum=" + typed});
        return date["StornoDatum"].is_null() ? "NULL" : date["StornoDatum"].get<std::string>();
    }
};

TEST_F(TypedValues, DaysAsPeopleWriteThem) {
    EXPECT_EQ(Stored("1.3.2027"), "2027-03-01T00:00:00");
    EXPECT_EQ(Stored("2027-03-02"), "2027-03-02T00:00:00");
    EXPECT_EQ(Stored(""), "NULL");
}

TEST_F(TypedValues, DaysCountedFromToday) {
    // The program has the clock of the machine, and midnight may pass.
    const struct {
        const char* typed;
        int distance;
    } cases[] = {{"today", 0}, {"morgen", 1}, {"+7d", 7}, {"-1w", -7}};
    for (const auto& [typed, distance] : cases) {
        const auto before = IsoText(Today().AddDays(distance));
        const auto stored = Stored(typed);
        EXPECT_THAT(stored, testing::AnyOf(before, IsoText(Today().AddDays(distance)))) << typed;
    }
}

TEST_F(TypedValues, ADayThatBeginsWithADashIsAnArgumentToo) {
    const auto done = Run({"budget", "of", "-3d"});
    EXPECT_THAT(done.err, testing::HasSubstr("lies in no budget year."));
    EXPECT_EQ(done.code, 1);
}

TEST_F(TypedValues, TimesAndAmounts) {
    const auto date =
        Json({"dates", "set", "60", "BeginnUhrzeit=9", "EndeUhrzeit=16.30", "KostenProTN=149,50", "Stunden=7,5"});
    EXPECT_EQ(date["BeginnUhrzeit"], "09:00");
    EXPECT_EQ(date["EndeUhrzeit"], "16:30");
    EXPECT_EQ(date["KostenProTN"], 149.5);
    EXPECT_EQ(date["Stunden"], 7.5);
    EXPECT_EQ(Json({"participants", "costs", "505", "--add", "12,5"}).back()["Kostenbetrag"], 12.5);
}

TEST_F(TypedValues, WeekdaysOfASeries) {
    const auto series = Json({"series", "add", "--begin", "9h", "--end", "10:30", "--weekly", "1", "--on", "Montag, thu"});
    EXPECT_EQ(series["Rule"], "every week on Mo, Do");
    EXPECT_EQ(series["BeginnUhrzeit"], "09:00");
}

}  // namespace
}  // namespace frontend
