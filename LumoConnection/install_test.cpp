#include <LumoConnection/install.h>

#include <gtest/gtest.h>

#include <thread>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/system_user.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

using namespace LumoSeminar;

TEST(Install, MakesASessionOnTheEmbeddedDatabase) {
    Install();
    const auto session = MakeDataSession();
    EXPECT_EQ(session->Connect("Provider=Embedded;Data Source=:memory:", "", "", 30), true);
    EXPECT_EQ(session->LookupValue("1 + 1", "(SELECT 1 AS a) AS t", ""), Variant(2));
    SetComponents({});
}

TEST(Install, GivesTheLoginAsSessionDefaults) {
    Install("lena", "geheim");
    const auto defaults = MakeSessionDefaults();
    for (const Int32 index : {0, 2, -1}) {
        EXPECT_EQ(defaults->FirstText(index), "lena");
        EXPECT_EQ(defaults->SecondText(index), "geheim");
    }
    SetComponents({});
}

TEST(Install, TakesTheUserOfTheOperatingSystemWithoutALogin) {
    Install();
    EXPECT_NE(SystemUser(), "");
    EXPECT_EQ(MakeSessionDefaults()->FirstText(2), SystemUser());
    EXPECT_EQ(MakeSessionDefaults()->SecondText(2), "");
    SetComponents({});
}

TEST(Install, TakesUserAndPasswordOfALogin) {
    Install(Login{.user = "lena", .password = "geheim"});
    EXPECT_EQ(MakeSessionDefaults()->FirstText(2), "lena");
    EXPECT_EQ(MakeSessionDefaults()->SecondText(2), "geheim");
    SetComponents({});
}

TEST(Install, MakesANewProcessObjectEachTime) {
    Install("lena");
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->Initialisieren(7, 12, 1, 4711);
    EXPECT_EQ(dispatcher->SchluesselID(), 12);
    EXPECT_EQ(MakeInfoDispatcher()->SchluesselID(), 0);
    EXPECT_NE(MakeInfoStarter(), MakeInfoStarter());
    EXPECT_RAISES(429, dispatcher->ProzessStatus());
    SetComponents({});
}

TEST(Install, KeepsASessionAsLongAsTheComponents) {
    const auto session = New<EmbeddedSession>();
    Install(Login{.session = session});
    EXPECT_GT(session.UseCount(), 1);
    SetComponents({});
    EXPECT_EQ(session.UseCount(), 1);
}

TEST(Install, LeavesOtherThreadsAlone) {
    SetComponents({});
    std::thread([] { Install("lena", ""); }).join();
    EXPECT_RAISES(429, MakeSessionDefaults());
    EXPECT_RAISES(429, MakeInfoDispatcher());
    EXPECT_RAISES(429, MakeInfoStarter());
}

}  // namespace
}  // namespace LumoConnection
