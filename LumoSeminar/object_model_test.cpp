#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include <test_support/object_model.h>

// The members themselves are checked while the tables of the subsystems are compiled. Here the tables are counted, so
// that none of them and no line of one is lost.

namespace LumoSeminar {
namespace {

using test_support::ClassModel;
using test_support::ClassModels;

struct PublicClass {
    std::string_view name;
    bool creatable;
    std::size_t members;
    std::size_t not_public;
};

constexpr PublicClass kPublicClasses[] = {
    {"colSeminare", true, 6, 1},
    {"clsSeminar", true, 30, 3},
    {"colSemSchwerpunkte", true, 6, 1},
    {"clsSemSchwerpunkt", false, 6, 3},
    {"colSemTerminSchwerpunkte", true, 6, 2},
    {"clsSemTerminSchwerpunkt", true, 7, 2},
    {"colSemZielgruppen", true, 4, 2},
    {"clsSemZielgruppe", true, 3, 0},
    {"clsSemZielInhalt", true, 4, 0},
    {"colTermine", true, 8, 1},
    {"clsTermin", true, 47, 5},
    {"colSerie", true, 6, 1},
    {"clsSerie", true, 19, 3},
    {"colTerminTage", true, 9, 5},
    {"clsTerminTag", false, 9, 3},
    {"clsTerminVeranstalter", true, 13, 0},
    {"clsTerminVeranstaltungsOrt", true, 9, 4},
    {"colTeilnehmer", true, 9, 2},
    {"clsTeilnehmer", false, 41, 7},
    {"colTeilnehmerKosten", true, 6, 1},
    {"clsTeilnehmerKosten", true, 8, 2},
    {"colSemBudgetJahre", true, 7, 1},
    {"clsSemBudgetJahr", true, 4, 2},
    {"colSemWarteliste", true, 11, 1},
    {"clsSemWarteliste", true, 21, 3},
    {"colANWBBedarf", true, 6, 1},
    {"clsANWBBedarf", true, 20, 3},
    {"clsWBPerson", true, 21, 3},
    {"colErrorMsg", true, 5, 0},
    {"clsErrorMsg", true, 4, 0},
};

ClassModels Models() {
    ClassModels all;
    for (const auto model : {test_support::FrameModel, test_support::CatalogueModel, test_support::SchedulingModel,
                             test_support::EnrolmentModel, test_support::WaitlistModel, test_support::NeedsModel}) {
        std::ranges::copy(model(), std::back_inserter(all));
    }
    return all;
}

TEST(ObjectModel, HasThirtyClassesOfWhichThreeCannotBeCreatedByAFrontEnd) {
    EXPECT_EQ(std::size(kPublicClasses), 30U);
    EXPECT_EQ(std::ranges::count(kPublicClasses, false, &PublicClass::creatable), 3);

    std::vector<std::string_view> expected;
    for (const auto& entry : kPublicClasses) expected.push_back(entry.name);
    std::vector<std::string_view> found;
    for (const auto& model : Models()) found.push_back(model.name);
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected));
}

TEST(ObjectModel, ChecksEveryMemberOfEveryClassOnce) {
    const auto models = Models();
    for (const auto& entry : kPublicClasses) {
        SCOPED_TRACE(entry.name);
        const auto model = std::ranges::find(models, entry.name, &ClassModel::name);
        ASSERT_NE(model, models.end());
        EXPECT_EQ(model->members.size(), entry.members);
        EXPECT_EQ(model->not_public.size(), entry.not_public);

        std::set<std::string_view> names(model->members.begin(), model->members.end());
        names.insert(model->not_public.begin(), model->not_public.end());
        EXPECT_EQ(names.size(), entry.members + entry.not_public) << "a name stands twice";
    }
}

TEST(ObjectModel, AFrontEndCreatesTheOthersWithNew) {
    const auto models = Models();
    for (const auto& entry : kPublicClasses) {
        SCOPED_TRACE(entry.name);
        const auto model = std::ranges::find(models, entry.name, &ClassModel::name);
        ASSERT_NE(model, models.end());
        ASSERT_EQ(model->create != nullptr, entry.creatable);
        if (entry.creatable) {
            EXPECT_EQ(model->create().UseCount(), 1);
        }
    }
}

TEST(ObjectModel, ItsChecksRefuseAnotherNameTypeOrNumberOfArguments) {
    namespace check = test_support::object_model;
    using test_support::Optional;
    using test_support::Variable;
    using Session = Ref<DataSession>;

    constexpr auto key = MODEL_CALL(Key);
    EXPECT_TRUE((check::Gives<clsSeminar, Text>(key)));
    EXPECT_FALSE((check::Gives<clsSeminar, Int32>(key)));
    EXPECT_FALSE((check::Gives<clsSeminar, void, Text>(key)));
    EXPECT_FALSE((check::Gives<clsSeminar, Text>(MODEL_CALL(Schluessel))));

    constexpr auto hours = MODEL_CALL(Stunden);
    EXPECT_TRUE((check::Gives<clsSeminar, void, Double>(hours)));
    EXPECT_FALSE((check::Gives<clsSeminar, void, Single>(hours)));
    EXPECT_FALSE((check::Gives<clsSeminar, void, Int32>(hours)));

    constexpr auto bind = MODEL_CALL(Init);
    EXPECT_TRUE((check::Gives<colTermine, Bool, Int32, Int32, Session, Optional<Text>, Optional<Bool>>(bind)));
    EXPECT_FALSE((check::Gives<colTermine, Bool, Int32, Int32, Optional<Session>, Optional<Text>>(bind)));
    EXPECT_TRUE(check::TakesOnly<colTermine>(bind, 3, 5));
    EXPECT_FALSE(check::TakesOnly<colTermine>(bind, 4, 5));
    EXPECT_FALSE(check::TakesOnly<colTermine>(bind, 3, 4));

    constexpr auto add = MODEL_CALL(Add);
    EXPECT_TRUE((check::Gives<colTermine, Bool, Variable<Ref<clsTermin>>>(add)));
    EXPECT_FALSE((check::Gives<colTermine, Bool, Ref<clsTermin>>(add)));

    EXPECT_NE(check::NumbersTaken<clsSeminar>(bind), 0U);
    EXPECT_EQ(check::NumbersTaken<clsSeminar>(MODEL_CALL(PropertiesInit)), 0U);
    EXPECT_TRUE(check::CanBeCreated<clsSeminar>);
    EXPECT_FALSE(check::CanBeCreated<clsTeilnehmer>);
}

}  // namespace
}  // namespace LumoSeminar
