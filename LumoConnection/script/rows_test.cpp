#include <LumoConnection/script/rows.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

TEST(RowTableTest, HasRowsByTheirColumns) {
    const RowTable table =
        RowTable({"MDNr", "SemTitel", "Status"}).With({{"semtitel", "Messen"}, {"Status", 1}}).Row({1, "Lesen", 2}).Nulls();
    EXPECT_EQ(table.Rows(), (ValueRows{{Variant::Null(), "Messen", 1}, {1, "Lesen", 2}, ValueRow(3, Variant::Null())}));
    Script script;
    script.OpenSelect("S").RowsOf(table);
    script.CloseRows();
    EXPECT_EQ(SelectRows(*script.Session(), "S"), table.Rows());
    EXPECT_EQ(script.Report(), "");
    EXPECT_RAISES(ScriptError::kBadScript, RowTable({"A"}).Row({}));
    EXPECT_RAISES(ScriptError::kBadScript, RowTable({"A"}).With({{"B", 1}}));
}

TEST(RowTableTest, RowsAreReadFromASession) {
    Script script;
    script.OpenSelect("S").Rows({"A"}, {{7}});
    script.CloseRows();
    script.OpenSelect("S").Rows({"A"});
    script.CloseRows();
    script.OpenSelect("S").Refused("no");
    script.ExecuteSql("E");
    script.ExecuteSql("E").Refused("no");
    const auto session = script.Session();
    EXPECT_EQ(SelectValue(*session, "S"), Variant(7));
    EXPECT_TRUE(SelectValue(*session, "S").IsEmpty());
    EXPECT_RAISES(9999, SelectValue(*session, "S"));
    ExecuteOrRaise(*session, "E");
    EXPECT_RAISES(9999, ExecuteOrRaise(*session, "E"));
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoConnection
