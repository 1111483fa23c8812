#include <LumoSeminar/frame/date_time.h>

#include <gtest/gtest.h>

#include <sstream>

#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/text_form.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace std::chrono_literals;

TEST(DateTime, CountsDaysFromTheBaseDate) {
    const struct {
        Double days;
        const char* moment;
    } cases[] = {
        {0, "30.12.1899 00:00:00"},       {1, "31.12.1899 00:00:00"},       {2, "01.01.1900 00:00:00"},
        {-1, "29.12.1899 00:00:00"},      {40237, "28.02.2010 00:00:00"},   {0.375, "30.12.1899 09:00:00"},
        {40239.5, "02.03.2010 12:00:00"}, {2958465, "31.12.9999 00:00:00"}, {-657434, "01.01.0100 00:00:00"},
        {61, "01.03.1900 00:00:00"},      {60, "28.02.1900 00:00:00"},      {36526, "01.01.2000 00:00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(common::FormatDatumZeit(DateTime(c.days)), c.moment) << c.days;
        EXPECT_EQ(ToDateTime(c.moment).Days(), c.days) << c.moment;
    }
}

TEST(DateTime, FractionCountsForwardFromMidnightWhateverTheSignOfTheDay) {
    EXPECT_EQ(common::FormatDatumZeit(DateTime(-1.25)), "29.12.1899 06:00:00");
    EXPECT_EQ(common::FormatDatumZeit(DateTime(-1.75)), "29.12.1899 18:00:00");
    EXPECT_EQ(common::FormatDatumZeit(DateTime(-2.5)), "28.12.1899 12:00:00");
    EXPECT_EQ(DateTime::Of(1899, 12, 29, 6).Days(), -1.25);
    EXPECT_EQ(common::FormatDatumZeit(DateTime(-657434.5)), "01.01.0100 12:00:00");
}

TEST(DateTime, OneMomentOnDayZeroHasOneValue) {
    EXPECT_EQ(DateTime(-0.25), DateTime(0.25));
    EXPECT_EQ(DateTime(-0.25).Days(), 0.25);
}

TEST(DateTime, ComparesInTheOrderOfTime) {
    EXPECT_LT(DateTime(-1.25), DateTime(-1.75));
    EXPECT_LT(DateTime(-1.75), DateTime(0));
    EXPECT_LT(DateTime(-2.75), DateTime(-1));
    EXPECT_LT(DateTime(1), DateTime(1.5));
}

TEST(DateTime, KnowsNoDate) {
    EXPECT_FALSE(DateTime());
    EXPECT_FALSE(DateTime(0));
    EXPECT_TRUE(DateTime(0.5));
    EXPECT_TRUE(DateTime(-1));
}

TEST(DateTime, RefusesWhatLiesBesideItsRange) {
    EXPECT_RAISES(6, DateTime(2958466));
    EXPECT_RAISES(6, DateTime(-657435));
    EXPECT_RAISES(6, DateTime(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_RAISES(6, DateTime::Of(99, 12, 31));
    EXPECT_RAISES(6, DateTime::Of(10000, 1, 1));
    EXPECT_RAISES(6, DateTime::Of(9999, 12, 31).AddDays(1));
    EXPECT_RAISES(6, DateTime::Of(100, 1, 1).AddDays(-1));
    EXPECT_RAISES(6, DateTime::Of(9999, 12, 31, 23, 59).AddMinutes(1));
    EXPECT_EQ(common::FormatDatumZeit(DateTime(2958465.999999999)), "31.12.9999 23:59:59");
}

TEST(DateTime, RefusesDaysAndTimesThatDoNotExist) {
    EXPECT_RAISES(13, DateTime::Of(2009, 2, 29));
    EXPECT_RAISES(13, DateTime::Of(2010, 13, 1));
    EXPECT_RAISES(13, DateTime::Of(2010, 1, 1, 24));
    EXPECT_RAISES(13, DateTime::TimeOfDay(0, 60));
    EXPECT_EQ(DateTime::Of(2012, 2, 29).Days(), 40968);
}

TEST(DateTime, CutsNoNumberToTheSizeOfACalendarField) {
    const struct {
        int year;
        unsigned month;
        unsigned day;
        Int32 number;
    } cases[] = {
        {2010, 257, 1, 13},  // 1 in 8 bits
        {2010, 1, 257, 13},  // 1 in 8 bits
        {2010, 0, 1, 13},
        {2010, 1, 0, 13},
        {2010, 4294967295U, 1, 13},
        {70000, 1, 1, 6},   // 4464 in 16 bits
        {-63526, 1, 1, 6},  // 2010 in 16 bits
        {67546, 3, 1, 6},   // 2010 in 16 bits
        {2147483647, 1, 1, 6},
        {-2147483647 - 1, 1, 1, 6},
        {70000, 2, 29, 6},  // there is that day
        {70001, 2, 29, 13},
        {70000, 13, 1, 13},
        {0, 1, 1, 6},
        {-1, 2, 29, 13},
        {-4, 2, 29, 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.year << '-' << c.month << '-' << c.day);
        EXPECT_RAISES(c.number, DateTime::Of(c.year, c.month, c.day));
    }
    EXPECT_EQ(DateTime::Of(2000, 2, 29), DateTime(36585));
}

TEST(DateTime, IsWrittenToAStreamInItsTextForm) {
    std::ostringstream stream;
    stream << DateTime::Of(2010, 3, 2, 17, 45) << '|' << DateTime::Of(2010, 3, 2) << '|' << DateTime::TimeOfDay(9, 0);
    EXPECT_EQ(stream.str(), "02.03.2010 17:45:00|02.03.2010|09:00:00");
}

TEST(DateTime, AddsCalendarDaysAndKeepsTheTime) {
    EXPECT_EQ(DateTime::Of(2010, 2, 28, 17, 45).AddDays(1), DateTime::Of(2010, 3, 1, 17, 45));
    EXPECT_EQ(DateTime::Of(1899, 12, 29, 6).AddDays(1), DateTime::TimeOfDay(6, 0));
    EXPECT_EQ(DateTime::TimeOfDay(9, 0).AddMinutes(140), DateTime::TimeOfDay(11, 20));
    EXPECT_EQ(DateTime::TimeOfDay(23, 0).AddMinutes(90), DateTime::Of(1899, 12, 31, 0, 30));
    EXPECT_EQ(DateTime::Of(2010, 3, 1, 8).AddMinutes(-481), DateTime::Of(2010, 2, 28, 23, 59));
}

TEST(DateTime, SplitsIntoDateAndTime) {
    const DateTime moment = DateTime::Of(2010, 3, 2, 17, 45, 30);
    EXPECT_EQ(moment.Date(), (std::chrono::local_days{std::chrono::year{2010} / 3 / 2}));
    EXPECT_EQ(moment.Time(), 17h + 45min + 30s);
    EXPECT_EQ(moment.DatePart(), DateTime::Of(2010, 3, 2));
}

TEST(DateTime, FormatsEveryDayFromYear100To9999) {
    using namespace std::chrono;
    const local_days last{year{9999} / 12 / 31};
    int year_number = 100;
    unsigned month_number = 1;
    unsigned day_number = 1;
    for (local_days date{year{100} / 1 / 1}; date <= last; date += days{1}) {
        char expected[16];
        std::snprintf(expected, sizeof expected, "%02u.%02u.%04d", day_number, month_number, year_number);
        const DateTime moment(date);
        ASSERT_EQ(common::FormatDatum(moment), expected);
        ASSERT_EQ(DateTime(moment.Days()).Date(), date);
        const bool leap = year_number % 4 == 0 && (year_number % 100 != 0 || year_number % 400 == 0);
        const unsigned lengths[] = {31, leap ? 29u : 28u, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        if (++day_number > lengths[month_number - 1]) {
            day_number = 1;
            if (++month_number > 12) {
                month_number = 1;
                ++year_number;
            }
        }
    }
    EXPECT_EQ(year_number, 10000);
}

TEST(DateTime, FormatsEveryMinuteOfADay) {
    for (const char* day : {"30.12.1899", "28.12.1899", "02.03.2010", "01.01.0100", "31.12.9999"}) {
        const DateTime midnight = ToDateTime(day);
        for (int minute = 0; minute < 24 * 60; ++minute) {
            char clock[8];
            std::snprintf(clock, sizeof clock, "%02d:%02d", minute / 60, minute % 60);
            const DateTime moment = midnight.AddMinutes(minute);
            ASSERT_EQ(ClockText(moment), clock) << day;
            ASSERT_EQ(common::FormatDatumZeit(moment), Text(day) + " " + clock + ":00");
            // The same from a plain number of days.
            const Double fraction = minute / 1440.0;
            const Double days = midnight.Days() < 0 ? midnight.Days() - fraction : midnight.Days() + fraction;
            ASSERT_EQ(ClockText(DateTime(days)), clock) << day;
        }
    }
}

TEST(DateTime, FormatsSecondsAndCutsWhatIsSmaller) {
    EXPECT_EQ(common::FormatDatumZeit(DateTime::Of(2010, 3, 2, 23, 59, 59)), "02.03.2010 23:59:59");
    const DateTime just_before(DateTime::Of(2010, 3, 2).Date(), 23h + 59min + 59s + 997ms);
    EXPECT_EQ(common::FormatDatumZeit(just_before), "02.03.2010 23:59:59");
    EXPECT_EQ(common::FormatDatum(just_before), "02.03.2010");
    EXPECT_EQ(ClockText(just_before), "23:59");
    EXPECT_EQ(CompactDateText(just_before), "20100302");
    EXPECT_EQ(CompactDateText(DateTime::Of(100, 1, 1)), "01000101");
}

TEST(DateTime, DefaultTextLeavesOutMidnightAndTheBaseDate) {
    EXPECT_EQ(DefaultText(DateTime::Of(2010, 3, 2)), "02.03.2010");
    EXPECT_EQ(DefaultText(DateTime::Of(2010, 3, 2, 7, 5)), "02.03.2010 07:05:00");
    EXPECT_EQ(DefaultText(DateTime::TimeOfDay(9, 30, 15)), "09:30:15");
    EXPECT_EQ(DefaultText(DateTime()), "00:00:00");
    EXPECT_EQ(DefaultText(DateTime(-1)), "29.12.1899");
}

TEST(DateTime, ReadsItsOwnTextForms) {
    for (const DateTime moment : {DateTime::Of(2010, 3, 2), DateTime::Of(2010, 3, 2, 7, 5, 9), DateTime(0.375), DateTime()}) {
        EXPECT_EQ(ToDateTime(DefaultText(moment)), moment);
    }
    EXPECT_EQ(ToDateTime(" 2.3.2010 "), DateTime::Of(2010, 3, 2));
    EXPECT_EQ(ToDateTime("2.3.2010 7:05"), DateTime::Of(2010, 3, 2, 7, 5));
    for (const char* text : {"", " ", "morgen", "2.3.10", "31.02.2010", "2010-03-02", "02.03.2010x", "02.03.2010 25:00",
                             "1:2", "7", "02.03.", "02/03/2010", "02.03.2010  07:05", "07:05:"}) {
        EXPECT_RAISES(13, ToDateTime(text)) << text;
    }
}

TEST(Now, IsThePresentMomentInLocalTime) {
    const auto before = std::time(nullptr);
    const DateTime now = Now();
    std::tm local{};
    localtime_r(&before, &local);
    const DateTime expected = DateTime::Of(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                                           static_cast<unsigned>(local.tm_mday), local.tm_hour, local.tm_min);
    EXPECT_GE(now, expected);
    EXPECT_LE(now, expected.AddMinutes(2));
}

TEST(Now, CanBePinned) {
    const DateTime outer = DateTime::Of(2010, 3, 2, 7, 5);
    const DateTime inner = DateTime::Of(2011, 1, 1);
    const PinnedNow pinned(outer);
    {
        const PinnedNow again(inner);
        EXPECT_EQ(Now(), inner);
    }
    EXPECT_EQ(Now(), outer);
    EXPECT_EQ(Today(), DateTime::Of(2010, 3, 2));
}

}  // namespace
}  // namespace LumoSeminar
