#include <LumoSeminar/frame/statement.h>

#include <gtest/gtest.h>

#include <test_support/comma_locale.h>

namespace LumoSeminar {
namespace {

struct Row {
    Int32 Key = 0;
    Int16 Flag = 0;
    Byte Kind = 0;
    Double Hours = 0;
    Single Amount = 0;
    Money Cost;
    DateTime Day;
    Bool Open;
    Text Title;
};

constexpr Column<Row> kColumns[] = {
    {"Key", &Row::Key},        {"Flag", &Row::Flag, -1}, {"Kind", &Row::Kind, 2},
    {"Hours", &Row::Hours, 8}, {"Amount", &Row::Amount}, {"Cost", &Row::Cost},
    {"Day", &Row::Day},        {"Open", &Row::Open},     {"Title", &Row::Title, "<neu>"},
};

TEST(Statement, WritesEachTypeByItsRule) {
    constexpr Statement statement(kColumns, "{Key},{Flag},{Kind},{Hours},{Amount},{Cost},{Open},'{Title}'");
    Row row;
    EXPECT_EQ(statement(row), "0,0,0,0,0,0,0,''");
    row = {-5, -1, 255, 6.5, 0.25f, Money::FromUnits(1'205'000), {}, true, "Übung"};
    EXPECT_EQ(statement(row), "-5,-1,255,6.5,0.25,120.5,-1,'Übung'");
}

TEST(Statement, ReplacesTheCommaOfNumbersByAPointUnlessAskedForTheText) {
    constexpr Statement statement(kColumns, "{Hours} {Amount} {Cost} | {Hours:text} {Amount:text} {Cost:text}");
    Row row;
    row.Hours = 6.5;
    row.Amount = 0.25f;
    row.Cost = Money::FromUnits(1'205'000);
    EXPECT_EQ(statement(row), "6.5 0.25 120.5 | 6.5 0.25 120.5");
    const test_support::CommaLocale comma;
    EXPECT_EQ(statement(row), "6.5 0.25 120.5 | 6,5 0,25 120,5");
}

TEST(Statement, PutsTheWordInPlaceOfNothing) {
    constexpr Statement statement(
        kColumns,
        "{Key or NUll} {Hours or 8} {Amount or NULL} {Cost or Null} {Day:'dd.mm.yyyy' or Null} '{Title or <neues Seminar>}' {Title:'text' or NULL}");
    Row row;
    EXPECT_EQ(statement(row), "NUll 8 NULL Null Null '<neues Seminar>' NULL");
    row = {1, 0, 0, 0.5, 1.5f, Money(2), DateTime::Of(2010, 3, 2), false, "A"};
    EXPECT_EQ(statement(row), "1 0.5 1.5 2 '02.03.2010' 'A' 'A'");
}

TEST(Statement, FormatsMoments) {
    constexpr Statement statement(kColumns,
                                  "Convert(Datetime,'{Day:dd.mm.yyyy}',104) {Day:Convert(Datetime,'30.12.1899 hh:nn',104) or Null} '30.12.1899 {Day:hh:mm}' "
                                  "'{Day:dd.mm.yyyy hh:nn:ss}' {Day:yyyymmdd} {Day:text}");
    Row row;
    row.Day = DateTime::Of(2010, 3, 2, 7, 5, 9);
    EXPECT_EQ(statement(row),
              "Convert(Datetime,'02.03.2010',104) Convert(Datetime,'30.12.1899 07:05',104) '30.12.1899 07:05' "
              "'02.03.2010 07:05:09' 20100302 02.03.2010 07:05:09");
    row.Day = {};
    EXPECT_EQ(statement(row),
              "Convert(Datetime,'30.12.1899',104) Null '30.12.1899 00:00' '30.12.1899 00:00:00' 18991230 00:00:00");
}

TEST(Statement, NeverScansValuesForSlots) {
    constexpr Statement statement(kColumns, "'{Title}' {Key}");
    Row row;
    row.Key = 7;
    row.Title = "{Key} or {Title or x} }{";
    EXPECT_EQ(statement(row), "'{Key} or {Title or x} }{' 7");
}

TEST(Statement, PutsTextsInAsTheyStand) {
    constexpr Statement statement(kColumns, "'{Title}'");
    Row row;
    for (const Text& title : {Text("Rock'n Roll"), Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"), Text(100'000, 'x')}) {
        row.Title = title;
        EXPECT_EQ(statement(row), "'" + title + "'");
    }
}

TEST(Statement, KeepsItsWholeText) {
    constexpr Statement statement(kColumns, "DELETE FROM T WHERE Key = {Key}");
    EXPECT_EQ(statement.Whole(), "DELETE FROM T WHERE Key = {Key}");
    constexpr Sql<> plain = "SELECT 1";
    EXPECT_EQ(plain(), "SELECT 1");
}

TEST(Sql, TakesArgumentsInTheOrderOfTheirFirstAppearance) {
    constexpr Sql<Int32, Text> statement = "A = {A} AND B = '{B}' AND AA = {A}";
    EXPECT_EQ(statement(3, "x"), "A = 3 AND B = 'x' AND AA = 3");
}

TEST(Columns, TakeTheReplacementForANull) {
    Row row;
    for (const auto& column : kColumns) column.Load(row, Variant::Null());
    EXPECT_EQ(row.Key, 0);
    EXPECT_EQ(row.Flag, -1);
    EXPECT_EQ(row.Kind, 2);
    EXPECT_EQ(row.Hours, 8);
    EXPECT_EQ(row.Day, DateTime());
    EXPECT_EQ(row.Open, false);
    EXPECT_EQ(row.Title, "<neu>");
}

TEST(Columns, ConvertToTheirType) {
    Row row;
    kColumns[0].Load(row, "12");
    EXPECT_EQ(row.Key, 12);
    kColumns[2].Load(row, Int32{255});
    EXPECT_EQ(row.Kind, 255);
    kColumns[5].Load(row, 1.5);
    EXPECT_EQ(row.Cost, Money::FromUnits(15'000));
    kColumns[8].Load(row, 7);
    EXPECT_EQ(row.Title, "7");
}

}  // namespace
}  // namespace LumoSeminar
