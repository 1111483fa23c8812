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

TEST(FindingText, SaysInOneSentenceWhatWasFound) {
    const struct {
        Int32 id;
        Int32 number;
        const char* english;
        const char* german;
    } cases[] = {
        {FindingNumber::kAlreadyEnrolled, 300000001, "The person is already enrolled in this date",
         "Die Person ist für diesen Termin schon angemeldet"},
        {FindingNumber::kOverlap, 300000002, "The person is booked on another date at the same time",
         "Die Person ist zur selben Zeit in einem anderen Termin gebucht"},
        {FindingNumber::kOpenDateOfSeminar, 300000003, "The person is enrolled in an open date of this seminar",
         "Die Person ist in einem offenen Termin dieses Seminars angemeldet"},
        {FindingNumber::kTakenBefore, 300000004, "The person has taken this seminar before",
         "Die Person hat dieses Seminar schon besucht"},
        {FindingNumber::kPrerequisiteMissing, 300000005, "A prerequisite of the seminar is missing",
         "Eine Voraussetzung des Seminars fehlt"},
        {7, 7, "Finding 7", "Befund 7"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.id, c.number);
        EXPECT_EQ(FindingText(c.id), c.english);
        EXPECT_EQ(FindingText(c.id, Language::kEnglish), c.english);
        EXPECT_EQ(FindingText(c.id, Language::kGerman), c.german);
    }
}

}  // namespace
}  // namespace LumoSeminar
