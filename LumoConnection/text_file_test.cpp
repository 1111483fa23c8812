#include <LumoConnection/text_file.h>

#include <gtest/gtest.h>

#include <LumoSeminar/frame/errors.h>

namespace LumoConnection {
namespace {

TEST(ReadTextFile, RaisesWhereThereIsNone) {
    try {
        ReadTextFile("/no/such/file.sql");
        FAIL() << "nothing was raised";
    } catch (const LumoSeminar::Error& error) {
        EXPECT_EQ(error.Number(), 53);
        EXPECT_EQ(error.Description(), "The file \"/no/such/file.sql\" cannot be read: No such file or directory.");
    }
    EXPECT_THROW(ReadTextFile("/"), LumoSeminar::Error);
}

}  // namespace
}  // namespace LumoConnection
