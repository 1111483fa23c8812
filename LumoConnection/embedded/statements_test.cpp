#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>

#include <LumoConnection/embedded/session.h>
#include <test_support/embedded.h>
#include <test_support/places.h>

// Every statement that the library sends, as it sends it, on the sample database. The table is testdata/statements.txt.
namespace LumoConnection {
namespace {

struct Call {
    enum class What { kGiven, kRows, kExecute, kChanges, kChangesBySelect, kNothing, kRefused, kLookup };

    int line = 0;
    What what = What::kGiven;
    std::string types;
    int number = 0;
    std::vector<std::string> lines;

    std::string Text() const {
        std::string text;
        for (std::size_t i = 0; i < lines.size(); ++i) text += (i == 0 ? "" : "\r\n") + lines[i];
        return text;
    }
};

struct NamedStatement {
    std::string area;
    std::string name;
    std::vector<Call> calls;
};

void PrintTo(const NamedStatement& statement, std::ostream* out) { *out << statement.area << ": " << statement.name; }

// Reads "rows IT 3" and its like.
std::optional<Call> ReadExpectation(const std::string& line) {
    using What = Call::What;
    static const std::map<std::string, What> kWords = {
        {"given", What::kGiven},     {"rows", What::kRows},       {"execute", What::kExecute},
        {"changes", What::kChanges}, {"nothing", What::kNothing}, {"refused", What::kRefused},
        {"lookup", What::kLookup},
    };
    std::istringstream words(line);
    std::string word;
    words >> word;
    const auto found = kWords.find(word);
    if (found == kWords.end()) return std::nullopt;
    Call call;
    call.what = found->second;
    if (call.what == What::kRows || call.what == What::kExecute || call.what == What::kLookup) words >> call.types;
    const bool counted = call.what != What::kGiven && call.what != What::kNothing && call.what != What::kLookup;
    if (counted) words >> call.number;
    if (!words) return std::nullopt;
    if (std::string rest; std::getline(words, rest) && !rest.empty()) {
        if (call.what != What::kChanges || rest != " by select") return std::nullopt;
        call.what = What::kChangesBySelect;
    }
    return call;
}

std::vector<NamedStatement> ReadStatements() {
    const std::string path = test_support::SourceDir() + "/LumoConnection/embedded/testdata/statements.txt";
    std::ifstream file(path, std::ios::binary);
    std::vector<NamedStatement> statements;
    std::string area;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            area = line.substr(1, line.size() - 2);
        } else if (line.starts_with("* ")) {
            statements.push_back({area, line.substr(2), {}});
        } else if (line.front() == '>' && !statements.empty() && !statements.back().calls.empty()) {
            statements.back().calls.back().lines.push_back(line.size() < 2 ? "" : line.substr(2));
        } else if (auto call = ReadExpectation(line); call && !statements.empty()) {
            call->line = number;
            statements.back().calls.push_back(std::move(*call));
        } else {
            ADD_FAILURE() << path << ":" << number << " cannot be read: " << line;
        }
    }
    return statements;
}

// "lists of dates", "the years of a client" -> "ListsOfDates_TheYearsOfAClient"
std::string TestName(const testing::TestParamInfo<NamedStatement>& info) {
    std::string name;
    bool capital = true;
    for (const char letter : info.param.area + "_" + info.param.name) {
        const auto code = static_cast<unsigned char>(letter);
        if (letter == '_') {
            name += letter;
            capital = true;
        } else if (std::isalnum(code) == 0) {
            capital = true;
        } else {
            name += capital ? static_cast<char>(std::toupper(code)) : letter;
            capital = false;
        }
    }
    return name;
}

char LetterOf(const Text& type) {
    static const std::map<Text, char> kLetters = {
        {"int", 'I'},   {"smallint", 'S'}, {"tinyint", 'B'}, {"bit", 'b'},
        {"money", 'M'}, {"float", 'F'},    {"real", 'R'},    {"datetime", 'D'},
    };
    const auto found = kLetters.find(type);
    if (found != kLetters.end()) return found->second;
    return type.starts_with("varchar") || type.starts_with("nvarchar") ? 'T' : '?';
}

bool Holds(const Variant& value, char letter) {
    switch (letter) {
        case 'I':
            return value.If<Int32>() != nullptr;
        case 'S':
            return value.If<Int16>() != nullptr;
        case 'B':
            return value.If<Byte>() != nullptr;
        case 'M':
            return value.If<Money>() != nullptr;
        case 'F':
            return value.If<Double>() != nullptr;
        case 'R':
            return value.If<Single>() != nullptr;
        case 'D':
            return value.If<DateTime>() != nullptr;
        case 'T':
            return value.If<Text>() != nullptr;
        default:
            return false;
    }
}

// Walks the rows: their number, after each value was seen to be Null or of its column's type.
int CheckedCount(RecordSet& rows, const std::string& types) {
    EXPECT_EQ(rows.Fields().Count(), static_cast<int>(types.size()));
    int count = 0;
    for (; !rows.Eof(); rows.MoveNext(), ++count) {
        for (Int16 i = 0; i < rows.Fields().Count(); ++i) {
            const Variant value = rows.Fields().Item(i).Value();
            EXPECT_TRUE(value.IsNull() || Holds(value, types.at(static_cast<std::size_t>(i))))
                << rows.Fields().Name(i) << " of row " << count + 1 << " is of type " << value.TypeName();
        }
    }
    return count;
}

class Statements : public testing::TestWithParam<NamedStatement> {
  protected:
    static void SetUpTestSuite() {
        std::string name = testing::TempDir() + "lumo_statements_XXXXXX";
        folder_ = mkdtemp(name.data());
        EmbeddedSession session;
        ASSERT_TRUE(session.Connect("Provider=Embedded;Sync=Normal;Data Source=" + Sample(), "sa", "", 30));
        test_support::RunSchemaFile(session, "schema.sql");
        test_support::RunSchemaFile(session, "sample.sql");
        session.Close();
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(folder_); }

    // Each statement on a copy of its own.
    void SetUp() override {
        std::filesystem::copy_file(Sample(), Copy());
        ASSERT_TRUE(session_.Connect("Provider=Embedded;Sync=Normal;Data Source=" + Copy(), "meier", "", 30));
    }
    void TearDown() override {
        session_.Close();
        std::filesystem::remove(Copy());
    }

    void Check(const Call& call) {
        using What = Call::What;
        switch (call.what) {
            case What::kGiven:
                EXPECT_TRUE(session_.ExecuteSql(call.Text())) << session_.LastErrorText();
                break;
            case What::kRows:
            case What::kExecute:
                CheckRows(call);
                break;
            case What::kChanges:
                EXPECT_TRUE(session_.ExecuteSql(call.Text())) << session_.LastErrorText();
                EXPECT_EQ(session_.RowsAffected(), call.number);
                break;
            case What::kChangesBySelect:
                EXPECT_TRUE(session_.OpenSelect(call.Text())) << session_.LastErrorText();
                EXPECT_EQ(session_.RowsAffected(), call.number);
                EXPECT_TRUE(session_.Recordset()->Eof());
                break;
            case What::kNothing:
                EXPECT_TRUE(session_.ExecuteSql(call.Text())) << session_.LastErrorText();
                EXPECT_EQ(session_.RowsAffected(), -1);
                break;
            case What::kRefused:
                EXPECT_FALSE(session_.ExecuteSql(call.Text()));
                EXPECT_EQ(session_.LastErrorNumber(), call.number) << session_.LastErrorText();
                break;
            case What::kLookup:
                CheckLookup(call);
                break;
        }
    }

    static std::string Sample() { return (folder_ / "sample.db").string(); }
    static std::string Copy() { return (folder_ / "copy.db").string(); }

    static inline std::filesystem::path folder_;
    EmbeddedSession session_;

  private:
    void CheckTypes(const std::string& expected) {
        std::string types;
        for (const Text& type : session_.ColumnTypes()) types += LetterOf(type);
        EXPECT_EQ(types, expected);
    }

    void CheckRows(const Call& call) {
        ASSERT_TRUE(session_.OpenSelect(call.Text())) << session_.LastErrorText();
        CheckTypes(call.types);
        EXPECT_EQ(CheckedCount(*session_.Recordset(), call.types), call.number);
        if (call.what != Call::What::kExecute) return;
        const auto rows = session_.AdoConnection()->Execute(call.Text());
        EXPECT_EQ(CheckedCount(*rows, call.types), call.number);
    }

    void CheckLookup(const Call& call) {
        ASSERT_EQ(call.lines.size(), 3u);
        const Variant value = session_.LookupValue(call.lines[0], call.lines[1], call.lines[2]);
        EXPECT_EQ(session_.LastErrorText(), "");
        if (call.types == "Null") {
            EXPECT_TRUE(value.IsNull());
            return;
        }
        EXPECT_TRUE(Holds(value, call.types.at(0))) << value.TypeName();
        const Text where = call.lines[2].empty() ? "" : " WHERE " + call.lines[2];
        ASSERT_TRUE(session_.OpenSelect("SELECT " + call.lines[0] + " FROM " + call.lines[1] + where))
            << session_.LastErrorText();
        CheckTypes(call.types);
        EXPECT_EQ(session_.Recordset()->Fields().Item(Int16{0}).Value(), value);
    }
};

TEST_P(Statements, Run) {
    bool first = true;
    for (const Call& call : GetParam().calls) {
        SCOPED_TRACE("testdata/statements.txt:" + std::to_string(call.line));
        const auto hits = session_.PlanHits();
        Check(call);
        const bool planned = call.what != Call::What::kGiven && call.what != Call::What::kRefused && !call.Text().empty();
        if (!planned) continue;
        if (!first) {
            EXPECT_GT(session_.PlanHits(), hits) << "no plan is shared with the text before";
        }
        first = false;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Statements, testing::ValuesIn(ReadStatements()), TestName);

TEST(StatementTable, HasEachAreaAndNoNameTwice) {
    std::map<std::string, int> areas;
    std::map<std::string, int> names;
    for (const NamedStatement& statement : ReadStatements()) {
        ++areas[statement.area];
        EXPECT_EQ(++names[statement.area + ": " + statement.name], 1) << statement.area << ": " << statement.name;
        EXPECT_FALSE(statement.calls.empty()) << statement.name;
        for (const Call& call : statement.calls) EXPECT_FALSE(call.lines.empty()) << statement.name;
    }
    std::vector<std::string> found;
    for (const auto& [area, count] : areas) found.push_back(area);
    EXPECT_THAT(found, testing::UnorderedElementsAre(
                           "common", "catalogue", "focus areas", "target groups", "dates", "lists of dates", "series",
                           "days", "organiser and venue", "participants", "enrolment checks", "cancellation", "costs",
                           "budget years", "wait-list entry", "wait-list loaders", "training needs", "persons"));
}

}  // namespace
}  // namespace LumoConnection
