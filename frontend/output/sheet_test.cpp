#include "frontend/output/sheet.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

namespace frontend {
namespace {

using namespace LumoSeminar;

Text Table(const Sheet& sheet, const TableStyle& style = {}) { return TableText(sheet, Shape::kRows, style); }

Sheet OneValue(Variant value) { return {{"V"}, {{std::move(value)}}}; }

TEST(TableText, AlignsByScreenWidthAndPutsNumbersToTheRight) {
    const Sheet sheet{{"Key", "Title", "Costs"},
                      {{Int32{7}, "Größe", Money(55)},
                       {Int32{12}, "漢字", Money::FromUnits(1'480'5000)},
                       {Int32{1}, "e\xCC\x81t", Variant::Null()}}};
    EXPECT_EQ(Table(sheet),
              "Key  Title    Costs\n"
              "---  -----  -------\n"
              "  7  Größe    55.00\n"
              " 12  漢字   1480.50\n"
              "  1  e\xCC\x81t        NULL\n");
}

TEST(TableText, WithoutRowsPrintsTheHeader) { EXPECT_EQ(Table({{"A", "Long"}, {}}), "A  Long\n-  ----\n"); }

TEST(TableText, TellsNullFromATextThatReadsNull) {
    const Sheet sheet{{"A", "B", "C"}, {{Variant::Null(), "NULL", ""}}};
    EXPECT_EQ(Table(sheet), "A     B       C\n----  ------  -\nNULL  'NULL'\n");
}

TEST(TableText, ColoursOnlyWhenAsked) {
    const Sheet sheet{{"A"}, {{Variant::Null()}, {"x"}}};
    EXPECT_EQ(Table(sheet, {0, true}), "\x1b[1mA\x1b[0m\n----\n\x1b[2mNULL\x1b[0m\nx\n");
    EXPECT_EQ(Table(sheet).find('\x1b'), Text::npos);
}

TEST(TableText, ShortensTheWidestTextToFitTheScreen) {
    const Sheet sheet{{"Key", "Title", "N"}, {{Int32{1}, "Übungen für Prüferinnen und Prüfer", Int32{5}}}};
    EXPECT_EQ(Table(sheet, {30, false}),
              "Key  Title                   N\n"
              "---  ----------------------  -\n"
              "  1  Übungen für Prüferinn…  5\n");
    EXPECT_EQ(Table(sheet, {0, false}), Table(sheet, {200, false}));
}

TEST(TableText, NeverCutsNumbersAndMoments) {
    const Sheet sheet{{"From", "Costs", "Title"},
                      {{DateTime::Of(2026, 2, 28, 9, 5, 1), Money(1234567), "Übungen für Prüferinnen und Prüfer"}}};
    EXPECT_EQ(Table(sheet, {49, false}),
              "From                      Costs  Title\n"
              "-------------------  ----------  ----------------\n"
              "2026-02-28 09:05:01  1234567.00  Übungen für Prü…\n");
    EXPECT_EQ(Table(sheet, {48, false}),
              "-- 1 -----------------------------------\n"
              "From   2026-02-28 09:05:01\n"
              "Costs  1234567.00\n"
              "Title  Übungen für Prüferinnen und Prüfer\n");
}

TEST(TableText, RecordsWrapLongTextsAndCanBeAskedFor) {
    const Sheet sheet{{"A", "Long"}, {{"Übungen für Prüferinnen und Prüfer", Variant::Null()}, {"", Int32{7}}}};
    EXPECT_EQ(Table(sheet, {30, true, true}),
              "\x1b[2m-- 1 -------------------------\x1b[0m\n"
              "\x1b[1mA\x1b[0m     Übungen für Prüferinnen\n"
              "      und Prüfer\n"
              "\x1b[1mLong\x1b[0m  \x1b[2mNULL\x1b[0m\n"
              "\x1b[2m-- 2 -------------------------\x1b[0m\n"
              "\x1b[1mA\x1b[0m\n"
              "\x1b[1mLong\x1b[0m  7\n");
}

TEST(TableText, MakesControlCharactersAndBadBytesVisible) {
    const Text text = Table(OneValue(Text("a\nb\x1b[31m\xFF\xE2\x80\xAE\0z", 14)));
    EXPECT_EQ(text, "V\n" + Text(24, '-') + "\na\\nb\\x1b[31m\xEF\xBF\xBD\\u202e\\x00z\n");
}

TEST(TableText, OneRowStandsAsPropertyALine) {
    const Sheet sheet{{"SemID", "SemTitel"}, {{Int32{3}, "Erste Hilfe"}}};
    EXPECT_EQ(TableText(sheet, Shape::kOneRow, {}), "SemID     3\nSemTitel  Erste Hilfe\n");
}

struct ValueCase {
    const char* name;
    Variant value;
    const char* table;
    const char* json;
    const char* csv;
};

TEST(Values, StandInEachFormatAsTold) {
    const ValueCase cases[] = {
        {"null", Variant::Null(), "NULL", "null", ""},
        {"empty text", "", "", "\"\"", "\"\""},
        {"text", "Größe", "Größe", "\"Größe\"", "Größe"},
        {"quotes", "a \"b\", c", "a \"b\", c", "\"a \\\"b\\\", c\"", "\"a \"\"b\"\", c\""},
        {"line break", "a\nb", "a\\nb", "\"a\\nb\"", "\"a\nb\""},
        {"bad byte", "a\xFF", "a\xEF\xBF\xBD", "\"a\xEF\xBF\xBD\"", "a\xFF"},
        {"whole number", Int32{-2147483647 - 1}, "-2147483648", "-2147483648", "-2147483648"},
        {"byte", Byte{255}, "255", "255", "255"},
        {"small number", Int16{-3}, "-3", "-3", "-3"},
        {"truth", true, "yes", "true", "true"},
        {"double", 7.5, "7.5", "7.5", "7.5"},
        {"double in binary noise", 0.1 + 0.2, "0.3", "0.30000000000000004", "0.30000000000000004"},
        {"single", 0.1F, "0.1", "0.1", "0.1"},
        {"money", Money::FromUnits(1'495'000), "149.50", "149.50", "149.50"},
        {"money, four decimals", Money::FromUnits(-1), "-0.0001", "-0.0001", "-0.0001"},
        {"least money", Money::FromUnits(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808",
         "-922337203685477.5808", "-922337203685477.5808"},
        {"date", DateTime::Of(2026, 2, 28), "2026-02-28", "\"2026-02-28T00:00:00\"", "2026-02-28T00:00:00"},
        {"moment", DateTime::Of(2026, 2, 28, 9, 5, 1), "2026-02-28 09:05:01", "\"2026-02-28T09:05:01\"", "2026-02-28T09:05:01"},
        {"time of day", DateTime::TimeOfDay(23, 59, 59), "23:59:59", "\"1899-12-30T23:59:59\"", "1899-12-30T23:59:59"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        const Sheet sheet = OneValue(one.value);
        EXPECT_TRUE(Table(sheet).ends_with(Text("\n") + one.table + "\n")) << Table(sheet);
        EXPECT_EQ(JsonText(sheet, Shape::kRows), Text("[\n  {\"V\": ") + one.json + "}\n]\n");
        EXPECT_TRUE(nlohmann::json::accept(JsonText(sheet, Shape::kRows)));
        EXPECT_EQ(CsvText(sheet), Text("V\n") + one.csv + "\n");
    }
}

TEST(JsonText, NumbersThatAreNoneAreNull) {
    EXPECT_EQ(JsonText(OneValue(std::numeric_limits<double>::infinity()), Shape::kRows), "[\n  {\"V\": null}\n]\n");
    EXPECT_EQ(JsonText(OneValue(std::numeric_limits<float>::quiet_NaN()), Shape::kRows), "[\n  {\"V\": null}\n]\n");
}

TEST(JsonText, ShapesAndNames) {
    const Sheet sheet{{"A", "", "A"}, {{Int32{1}, Int32{2}, Int32{3}}, {Int32{4}, Int32{5}, Int32{6}}}};
    EXPECT_EQ(JsonText(sheet, Shape::kRows),
              "[\n  {\"A\": 1, \"column 2\": 2, \"A 2\": 3},\n  {\"A\": 4, \"column 2\": 5, \"A 2\": 6}\n]\n");
    EXPECT_EQ(JsonText({{"A", "B"}, {{Int32{1}, "x"}}}, Shape::kOneRow), "{\n  \"A\": 1,\n  \"B\": \"x\"\n}\n");
    EXPECT_EQ(JsonText({{"A"}, {}}, Shape::kRows), "[]\n");
}

TEST(CsvText, PrintsTheHeaderWithoutRows) { EXPECT_EQ(CsvText({{"A", "B,C"}, {}}), "A,\"B,C\"\n"); }

}  // namespace
}  // namespace frontend
