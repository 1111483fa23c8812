#include <LumoConnection/tables/sample_year.h>

#include <gtest/gtest.h>

#include <regex>

#include <test_support/raises.h>
#include <test_support/server.h>

namespace LumoConnection {
namespace {

struct Case {
    const char* text;
    int first_year;
    const char* moved;
};

constexpr Case kCases[] = {
    // 887 weeks are 17 years to the day
    {"VALUES ('01.01.2010')", 2026, "VALUES ('01.01.2027')"},
    {"Convert(datetime,'06.09.2010 16:41:31',104), N'31.12.2009'", 2026,
     "Convert(datetime,'06.09.2027 16:41:31',104), N'31.12.2026'"},
    // up to three days more or less
    {"'01.01.2009' '01.01.2010'", 2012, "'05.01.2012' '04.01.2013'"},
    {"'01.01.2009' '01.01.2010'", 2017, "'29.12.2016' '29.12.2017'"},
    {"'01.01.2010'", 1990, "'04.01.1991'"},
    // a day that another year has not
    {"'28.02.2010'", 2011, "'26.02.2012'"},
    // times of day
    {"'30.12.1899 08:30' '30.12.1899'", 2026, "'30.12.1899 08:30' '30.12.1899'"},
    // budget years go by whole years, up to the next insert
    {"INSERT INTO Sem_BudgetJahr_IT VALUES ('01.04.2008', '31.03.2009') insert into X values ('01.04.2008')", 2012,
     "INSERT INTO Sem_BudgetJahr_IT VALUES ('01.04.2011', '31.03.2012') insert into X values ('05.04.2011')"},
    // codes
    {"N'FT-101/09-1' 'AS-10/10-2' 'B-2009-003' N'B-2010-052'", 2026, "N'FT-101/26-1' 'AS-10/27-2' 'B-2026-003' N'B-2027-052'"},
    {"N'FT-150/11-1'", 2026, "N'FT-150/28-1'"},
    {"'FT-101/09-1'", 1999, "'FT-101/99-1'"},
    {"'/09-/10-'", 2010, "'/10-/10-'"},
    // what is no moment, no text, and no year of the sample
    {"'1.1.2010' '01.01.2010x' '01-01-2010' '' '2010' '/12-' '-2012-' 2009 /09- x", 2026,
     "'1.1.2010' '01.01.2010x' '01-01-2010' '' '2010' '/12-' '-2012-' 2009 /09- x"},
    {"-- of '01.01.2010\n'01.01.2010' /* '01.01.2010' */ --", 2026, "-- of '01.01.2010\n'01.01.2027' /* '01.01.2010' */ --"},
    {"'D''Angelo', '01.01.2010', '''', '01.01.2010'", 2026, "'D''Angelo', '01.01.2027', '''', '01.01.2027'"},
    {"'01.01.2010", 2026, "'01.01.2010"},
    {"'", 2026, "'"},
    {"/* '01.01.2010'", 2026, "/* '01.01.2010'"},
};

TEST(SampleMoveTest, MovesWhatItKnows) {
    for (const Case& c : kCases)
        EXPECT_EQ(SampleMove(c.first_year).Moved(c.text), c.moved) << c.text << ", " << c.first_year;
}

TEST(SampleMoveTest, LeavesItsOwnYearsAsTheyAre) {
    for (const char* name : {"sample.sql", "process_sample.sql"}) {
        for (const Batch& batch : test_support::SchemaBatches(name))
            EXPECT_EQ(SampleMove(kSampleYear).Moved(batch.text), batch.text);
    }
}

// No form of a moment or of a year in the files is one that it does not know.
TEST(SampleMoveTest, LeavesNoYearOfTheSampleInItsFiles) {
    const std::regex comment("--[^\n]*");
    const std::regex year("20(0[0-9]|1[01])|/(09|1[01])-");
    const std::regex quoted("'[^']*'");
    const std::regex moment("^'[0-9]{2}[.][0-9]{2}[.]20[34]");
    int moments = 0;
    for (const char* name : {"sample.sql", "process_sample.sql"}) {
        for (const Batch& batch : test_support::SchemaBatches(name)) {
            const std::string moved = std::regex_replace(SampleMove(2044).Moved(batch.text), comment, "");
            std::string rest;
            for (std::sregex_token_iterator text(moved.begin(), moved.end(), quoted), end; text != end; ++text) {
                const std::string literal = *text;
                if (std::regex_search(literal, year)) rest += literal + " ";
                moments += std::regex_search(literal, moment) ? 1 : 0;
            }
            EXPECT_EQ(rest, "") << name << ", line " << batch.line;
        }
    }
    EXPECT_GT(moments, 1500);
}

TEST(SampleMoveTest, RefusesYearsThatNoMomentHas) {
    for (const int first_year : {1761, 9998, 0, -5}) EXPECT_RAISES(6, SampleMove(first_year));
    EXPECT_EQ(SampleMove(1762).Moved("'01.01.2010'"), "'31.12.1762'");
    EXPECT_EQ(SampleMove(9997).Moved("'31.03.2011'").substr(7), "9999'");
}

}  // namespace
}  // namespace LumoConnection
