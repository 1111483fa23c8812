#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <test_support/embedded.h>
#include <test_support/fake_odbc.h>

// How the tests take hold of a server: what test_support/server.h sends to it.
namespace LumoConnection {
namespace {

class TestServer : public testing::Test {
  protected:
    TestServer() {
        driver_->server_name = u"Microsoft SQL Server";
        setenv(kVariable, driver_.ConnectionText().c_str(), 1);
    }
    ~TestServer() override {
        if (before_.empty()) {
            unsetenv(kVariable);
        } else {
            setenv(kVariable, before_.c_str(), 1);
        }
    }
    // What the server answers to the date format and to the question for its name.
    void AnswerName(std::vector<std::vector<odbc_driver::Cell>> rows) {
        driver_->answers = {{{}}, {{.columns = {{.name = u""}}, .rows = std::move(rows)}}};
    }

    static constexpr const char* kVariable = "LUMOSEMINAR_TEST_ODBC";
    const std::string before_ = test_support::ServerText();
    const test_support::FakeOdbc driver_;
};

TEST_F(TestServer, EachTestGetsTheSampleOnNewTables) {
    AnswerName({{u"lumo_test"}});
    const auto session = test_support::SampleDatabase();
    const auto& texts = driver_->texts;
    const auto tables = test_support::TablesOf("schema.sql");
    const std::size_t dropped = tables.size() + test_support::TablesOf("process.sql").size();
    ASSERT_GT(texts.size(), 2 + dropped);
    EXPECT_EQ(texts[0], u"SET DATEFORMAT dmy");
    EXPECT_EQ(texts[1], u"SELECT DB_NAME() WHERE LOWER(DB_NAME()) LIKE '%test%'");
    EXPECT_EQ(texts[2], u"IF OBJECT_ID(N'Sem_ProzessSchritt_IT', N'U') IS NOT NULL DROP TABLE Sem_ProzessSchritt_IT");
    EXPECT_EQ(texts[1 + dropped], u"IF OBJECT_ID(N'OpactMD', N'U') IS NOT NULL DROP TABLE OpactMD");
    EXPECT_NE(texts[2 + dropped].find(u"CREATE TABLE OpactMD ("), std::u16string::npos);
    const std::size_t batches =
        test_support::SchemaBatches("schema.sql").size() + test_support::SchemaBatches("sample.sql").size();
    EXPECT_EQ(texts.size(), 2 + dropped + batches);
    EXPECT_GT(tables.size(), 30u);
}

TEST_F(TestServer, ADatabaseThatIsNotForTestsIsLeftAlone) {
    AnswerName({});
    EXPECT_THROW(test_support::SchemaDatabase(), std::runtime_error);
    EXPECT_EQ(driver_->texts.size(), 2u);
}

TEST_F(TestServer, ATestThatNamesTheEmbeddedDatabaseFailsThere) {
    AnswerName({{u"lumo_test"}});
    const auto session = test_support::SchemaDatabase();
    EXPECT_THROW(static_cast<void>(Ref<EmbeddedSession>(session)), std::runtime_error);
}

}  // namespace
}  // namespace LumoConnection
