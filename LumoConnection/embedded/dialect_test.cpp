#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include <LumoConnection/embedded/records_test.h>
#include <test_support/places.h>

namespace LumoConnection::Embedded {
namespace {

void RunFolder(const std::filesystem::path& folder) {
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".test") continue;
        ++files;
        std::vector<std::string> errors;
        const auto records = ReadTestRecords(entry.path().string(), errors);
        for (const std::string& error : errors) ADD_FAILURE() << error;
        EXPECT_FALSE(records.empty()) << entry.path();
        for (const std::string& failure : RunTestRecords(records))
            ADD_FAILURE() << entry.path().filename().string() << " " << failure;
    }
    EXPECT_GT(files, 0u) << folder;
}

TEST(Dialect, HoldsItsOwnRecords) { RunFolder(test_support::SourceDir() + "/LumoConnection/embedded/testdata"); }

// Further records, in a folder of the same form.
TEST(Dialect, HoldsTheRecordsOfAGivenFolder) {
    const char* folder = std::getenv("LUMOSEMINAR_TSQL");
    if (!folder) GTEST_SKIP() << "LUMOSEMINAR_TSQL names no folder";
    RunFolder(folder);
}

}  // namespace
}  // namespace LumoConnection::Embedded
