#include "frontend/files.h"

#include <LumoSeminar/LumoSeminar.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

TEST(ReadFile, RaisesWhereThereIsNone) {
    try {
        ReadFile("/no/such/file.sql");
        FAIL() << "nothing was raised";
    } catch (const LumoSeminar::Error& error) {
        EXPECT_EQ(error.Number(), 53);
        EXPECT_EQ(error.Description(), "The file \"/no/such/file.sql\" cannot be read: No such file or directory.");
    }
    EXPECT_THROW(ReadFile("/"), LumoSeminar::Error);
}

}  // namespace
}  // namespace frontend
