#include <LumoSeminar/frame/error_list.h>

#include <gtest/gtest.h>

#include <vector>

#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

TEST(clsErrorMsg, IsPlainStorage) {
    clsErrorMsg finding;
    EXPECT_EQ(finding.ErrID(), 0);
    EXPECT_EQ(finding.ParamDate(), DateTime());
    EXPECT_EQ(finding.ParamName(), "");
    EXPECT_EQ(finding.errZusatzInfo(), "");
    finding.ErrID(300000005);
    finding.ParamDate(DateTime(2));
    finding.ParamName("BS - Brandschutz für Führungskräfte");
    finding.errZusatzInfo("mehr");
    EXPECT_EQ(finding.ErrID(), 300000005);
    EXPECT_EQ(finding.ParamDate(), DateTime(2));
    EXPECT_EQ(finding.ParamName(), "BS - Brandschutz für Führungskräfte");
    EXPECT_EQ(finding.errZusatzInfo(), "mehr");
}

TEST(colErrorMsg, AddReturnsTheNewFindingWithItsArguments) {
    colErrorMsg list;
    const auto finding = list.Add(300000002, "Name", DateTime(3));
    EXPECT_EQ(finding->ErrID(), 300000002);
    EXPECT_EQ(finding->ParamName(), "Name");
    EXPECT_EQ(finding->ParamDate(), DateTime(3));
    EXPECT_EQ(finding->errZusatzInfo(), "");
    finding->errZusatzInfo("später");
    EXPECT_EQ(list.Item(1)->errZusatzInfo(), "später");
    const auto bare = list.Add(300000001);
    EXPECT_EQ(bare->ParamName(), "");
    EXPECT_EQ(bare->ParamDate(), DateTime());
}

TEST(colErrorMsg, KeepsTheOrderAndDuplicates) {
    colErrorMsg list;
    for (const Int32 id : {300000003, 300000001, 300000003}) list.Add(id);
    std::vector<Int32> ids;
    for (const auto& finding : list.NewEnum()) ids.push_back(finding->ErrID());
    EXPECT_EQ(ids, (std::vector<Int32>{300000003, 300000001, 300000003}));
    list.Remove(1);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item(1)->ErrID(), 300000001);
}

TEST(colErrorMsg, AnEmptyListCountsZero) { EXPECT_EQ(colErrorMsg().Count(), 0); }

TEST(colErrorMsg, RaisesTheCollectionsErrorWithoutALabel) {
    colErrorMsg list;
    list.Add(300000001);
    const auto beside = test_support::RaisedBy([&] { return list.Item(2); });
    ASSERT_TRUE(beside);
    EXPECT_EQ(beside->Number(), 9);
    EXPECT_EQ(beside->Description(), "There is no entry at position 2 of the collection.");
    EXPECT_RAISES(9, list.Item(0));
    EXPECT_RAISES(5, list.Item("1"));
    EXPECT_RAISES(9, list.Remove(2));
}

}  // namespace
}  // namespace LumoSeminar
