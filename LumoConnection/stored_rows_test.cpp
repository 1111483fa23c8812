#include <LumoConnection/stored_rows.h>

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <limits>
#include <string>

namespace LumoConnection {
namespace {

Int32 NumberRaised(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

StoredRows::Names Names(std::initializer_list<const char*> names) { return {names.begin(), names.end()}; }

TEST(StoredRowsTest, GivesEveryValueBackInItsOwnType) {
    const DateTime moment = DateTime::Of(2024, 2, 29, 13, 30);
    const Variant values[] = {Variant::Null(),
                              true,
                              false,
                              Byte{255},
                              Int16{-32768},
                              std::numeric_limits<Int32>::min(),
                              std::numeric_limits<Int32>::max(),
                              Single{0.1F},
                              Double{-1e300},
                              Money::FromUnits(std::numeric_limits<std::int64_t>::min()),
                              Money::FromUnits(123456),
                              moment,
                              DateTime(),
                              "",
                              "Führung & 'Mut'",
                              Text("a\0b", 3),
                              Text("\xC3(")};
    StoredRows rows(StoredRows::Names(std::size(values), "x"));
    for (const Variant& value : values) rows.Append(value);
    ASSERT_EQ(rows.RowCount(), 1U);
    Int16 position = 0;
    for (const Variant& value : values) {
        const Variant read = rows.Fields().Item(position).Value();
        EXPECT_EQ(read.TypeName(), value.TypeName()) << position;
        EXPECT_EQ(read, value) << position;
        ++position;
    }
}

TEST(StoredRowsTest, EmptyBecomesNullAndAnObjectIsRefused) {
    StoredRows rows(Names({"a"}));
    rows.Append(Variant());
    EXPECT_TRUE(rows.Fields().Item("a").Value().IsNull());
    const Variant object = Ref<Object>(New<StoredRows>(Names({})));
    EXPECT_EQ(NumberRaised([&] { rows.Append(object); }), ErrorNumber::kTypeMismatch);
    EXPECT_EQ(rows.RowCount(), 1U);
}

TEST(StoredRowsTest, IsWalkedForward) {
    StoredRows rows(Names({"SemID", "SemTitel"}));
    for (Int32 key = 1; key <= 3; ++key) {
        rows.Append(key);
        rows.Append(Variant("Titel " + std::to_string(key)));
    }
    EXPECT_FALSE(rows.Bof());
    Int32 key = 1;
    for (; !rows.Eof(); rows.MoveNext(), ++key) {
        EXPECT_EQ(rows.Fields().Item("SemID").Value(), Variant(key));
        EXPECT_EQ(rows.Fields().Item(Int16{1}).Value(), Variant("Titel " + std::to_string(key)));
    }
    EXPECT_EQ(key, 4);
    EXPECT_FALSE(rows.Bof());
    EXPECT_EQ(NumberRaised([&] { rows.MoveNext(); }), RowSetError::kNoCurrentRow);
    EXPECT_EQ(NumberRaised([&] { rows.Fields().Item("SemID").Value(); }), RowSetError::kNoCurrentRow);
}

TEST(StoredRowsTest, AFieldReadsInTheCurrentRow) {
    StoredRows rows(Names({"SemID"}));
    rows.Append(Int32{1});
    rows.Append(Int32{2});
    const Field field = rows.Fields().Item("SemID");
    EXPECT_EQ(field.Value(), Variant(1));
    rows.MoveNext();
    EXPECT_EQ(field.Value(), Variant(2));
}

TEST(StoredRowsTest, WithoutRowsItIsAtBothEnds) {
    StoredRows rows(Names({"SemID"}));
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(rows.Fields().Count(), 1);
    EXPECT_EQ(NumberRaised([&] { rows.Fields().Item("SemID").Value(); }), RowSetError::kNoCurrentRow);
    EXPECT_EQ(NumberRaised([&] { rows.MoveNext(); }), RowSetError::kNoCurrentRow);
}

TEST(StoredRowsTest, WithoutColumnsItHasNoRows) {
    StoredRows rows(Names({}));
    EXPECT_EQ(rows.RowCount(), 0U);
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(rows.Fields().Count(), 0);
    EXPECT_EQ(NumberRaised([&] { rows.Fields().Item(Int16{0}); }), ErrorNumber::kPositionOutOfRange);
}

TEST(StoredRowsTest, ARowCountsWhenItIsWhole) {
    StoredRows rows(Names({"a", "b"}));
    rows.Append(Int32{1});
    EXPECT_EQ(rows.RowCount(), 0U);
    rows.AppendNull();
    EXPECT_EQ(rows.RowCount(), 1U);
}

TEST(StoredRowsTest, ColumnsAreFoundByNameWithoutRegardToCapitals) {
    StoredRows rows(Names({"SemID", "", "semid", "Größe"}));
    for (Int32 value = 0; value < 4; ++value) rows.Append(value);
    Fields fields = rows.Fields();
    EXPECT_EQ(fields.Item("SEMID").Value(), Variant(0));
    EXPECT_EQ(fields.Item("").Value(), Variant(1));
    EXPECT_EQ(fields.Item("größe").Value(), Variant(3));
    EXPECT_EQ(fields.Name(2), "semid");
    EXPECT_EQ(NumberRaised([&] { fields.Item("SemI"); }), ErrorNumber::kKeyNotFound);
    EXPECT_EQ(NumberRaised([&] { fields.Item(Int16{4}); }), ErrorNumber::kPositionOutOfRange);
    EXPECT_EQ(NumberRaised([&] { fields.Item(Int16{-1}); }), ErrorNumber::kPositionOutOfRange);
    EXPECT_EQ(NumberRaised([&] { fields.Name(4); }), ErrorNumber::kPositionOutOfRange);
}

TEST(StoredRowsTest, AClosedRowSetGivesNothingMore) {
    StoredRows rows(Names({"SemID"}));
    rows.Append(Int32{1});
    const Field field = rows.Fields().Item("SemID");
    rows.Close();
    EXPECT_EQ(NumberRaised([&] { rows.Eof(); }), RowSetError::kClosed);
    EXPECT_EQ(NumberRaised([&] { rows.Bof(); }), RowSetError::kClosed);
    EXPECT_EQ(NumberRaised([&] { rows.MoveNext(); }), RowSetError::kClosed);
    EXPECT_EQ(NumberRaised([&] { field.Value(); }), RowSetError::kClosed);
    EXPECT_EQ(NumberRaised([&] { rows.Close(); }), RowSetError::kClosed);
}

TEST(StoredRowsTest, LongTextsKeepTheirPlaceInTheBuffer) {
    const Text text(100'000, 'x');
    StoredRows rows(Names({"a", "b", "c"}));
    rows.Append(std::string_view("vorn"));
    rows.Append(std::string_view(text));
    rows.Append(std::string_view("hinten"));
    EXPECT_EQ(rows.Fields().Item("a").Value(), Variant("vorn"));
    EXPECT_EQ(rows.Fields().Item("b").Value(), Variant(text));
    EXPECT_EQ(rows.Fields().Item("c").Value(), Variant("hinten"));
}

TEST(StoredRowsTest, RowSetsOfOneStatementShareTheirNames) {
    const auto names = std::make_shared<const StoredRows::Names>(Names({"SemID"}));
    StoredRows first(names);
    StoredRows second(names);
    first.Append(Int32{1});
    EXPECT_EQ(second.RowCount(), 0U);
    EXPECT_EQ(second.Fields().Name(0), "SemID");
    EXPECT_EQ(names.use_count(), 3);
}

}  // namespace
}  // namespace LumoConnection
