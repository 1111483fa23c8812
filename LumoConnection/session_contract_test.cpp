#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <utility>
#include <vector>

#include <LumoConnection/any_session.h>
#include <LumoConnection/script/recording_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoConnection/tracing/tracing_session.h>
#include <test_support/embedded.h>
#include <test_support/odbc_drivers.h>
#include <test_support/postgres.h>
#include <test_support/raises.h>
#include <test_support/server.h>

namespace LumoConnection {
namespace {

/// What another database calls a word of T-SQL.
using Dialect = std::vector<std::pair<Text, Text>>;

/// A session under the contract: connected, on an empty database; empty where that one is not installed.
struct SessionKind {
    const char* name;
    std::function<Ref<DataSession>()> make;
    Dialect dialect = {};
};

class SessionContract : public testing::TestWithParam<SessionKind> {
  protected:
    void SetUp() override {
        if (!session_) GTEST_SKIP() << GetParam().name << ": the database or its ODBC driver is not installed";
    }

    Text InDialect(Text sql) const {
        const auto in_word = [&](std::size_t at) {
            return at < sql.size() && (std::isalnum(sql[at] & 0x7F) || sql[at] == '_');
        };
        for (const auto& [word, other] : GetParam().dialect) {
            for (auto at = sql.find(word); at != Text::npos; at = sql.find(word, at + 1)) {
                if (in_word(at - 1) || in_word(at + word.size())) continue;
                sql.replace(at, word.size(), other);
                at += other.size();
            }
        }
        return sql;
    }

    void Run(const Text& sql) {
        EXPECT_TRUE(session_->ExecuteSql(InDialect(sql))) << sql << ": " << session_->LastErrorText();
    }

    Ref<RecordSet> Select(const Text& sql) {
        EXPECT_TRUE(session_->OpenSelect(InDialect(sql))) << sql << ": " << session_->LastErrorText();
        return session_->Recordset();
    }

    Variant Value(const Text& sql) { return Select(sql)->Fields().Item(0).Value(); }

    void MakeCourses() {
        Run("CREATE TABLE Kurs (ID int NOT NULL PRIMARY KEY, Titel nvarchar(40) NULL, Kosten money NULL)");
        Run("INSERT INTO Kurs (ID, Titel, Kosten) VALUES (1, 'Übung für Anfänger', 12.5), (2, NULL, NULL), (3, 'Rock''n Roll', 0)");
    }

    Bool ExecuteSql(const Text& sql) { return session_->ExecuteSql(InDialect(sql)); }
    Bool OpenSelect(const Text& sql) { return session_->OpenSelect(InDialect(sql)); }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) {
        return session_->LookupValue(InDialect(expression), InDialect(table), InDialect(where));
    }

    Ref<DataSession> session_ = GetParam().make();
};

/// What only T-SQL has words for.
class TsqlContract : public SessionContract {};

TEST_P(SessionContract, ASelectGivesItsRowsStandingOnTheFirst) {
    MakeCourses();
    const auto rows = Select("SELECT ID, Titel FROM Kurs ORDER BY ID");
    EXPECT_EQ(rows->Bof(), false);
    std::vector<Variant> read;
    for (; !rows->Eof(); rows->MoveNext()) {
        read.push_back(rows->Fields().Item(0).Value());
        read.push_back(rows->Fields().Item(1).Value());
    }
    EXPECT_EQ(read, (std::vector<Variant>{1, "Übung für Anfänger", 2, Variant::Null(), 3, "Rock'n Roll"}));
    EXPECT_RAISES(RowSetError::kNoCurrentRow, rows->Fields().Item(0).Value());
    EXPECT_RAISES(RowSetError::kNoCurrentRow, rows->MoveNext());
}

TEST_P(SessionContract, ARowSetWithoutRowsIsAtItsEndAtOnce) {
    MakeCourses();
    const auto rows = Select("SELECT ID FROM Kurs WHERE ID = 9");
    EXPECT_EQ(rows->Eof(), true);
    EXPECT_EQ(rows->Bof(), true);
    EXPECT_EQ(rows->Fields().Count(), 1);
    EXPECT_RAISES(RowSetError::kNoCurrentRow, rows->Fields().Item("ID").Value());
}

TEST_P(SessionContract, FieldsAreFoundByPositionAndByNameWithoutCase) {
    MakeCourses();
    const auto rows = Select("SELECT ID, Titel, ID + 1 FROM Kurs WHERE ID = 1");
    EXPECT_EQ(rows->Fields().Count(), 3);
    EXPECT_EQ(rows->Fields().Item("tITEL").Value(), Variant("Übung für Anfänger"));
    EXPECT_EQ(rows->Fields().Name(1), "Titel");
    EXPECT_RAISES(9, rows->Fields().Item(3));
    EXPECT_RAISES(9, rows->Fields().Item(-1));
    EXPECT_RAISES(5, rows->Fields().Item("Kosten"));
}

TEST_P(SessionContract, ARowSetStaysReadableAfterLaterCallsAndWithoutItsSession) {
    MakeCourses();
    const auto rows = Select("SELECT ID FROM Kurs ORDER BY ID");
    Run("DELETE FROM Kurs");
    const auto others = Select("SELECT COUNT(*) FROM Kurs");
    EXPECT_FALSE(OpenSelect("SELECT nichts FROM Kurs"));
    EXPECT_EQ(rows->Fields().Item(0).Value(), Variant(1));
    session_.Reset();
    rows->MoveNext();
    EXPECT_EQ(rows->Fields().Item(0).Value(), Variant(2));
    EXPECT_EQ(others->Fields().Item(0).Value(), Variant(0));
}

TEST_P(SessionContract, AClosedRowSetIsNotReadable) {
    MakeCourses();
    const auto rows = Select("SELECT ID FROM Kurs");
    rows->Close();
    EXPECT_RAISES(RowSetError::kClosed, rows->Eof());
    EXPECT_RAISES(RowSetError::kClosed, rows->Fields().Item(0).Value());
}

TEST_P(SessionContract, ARefusedSelectIsFalseWithATextAndAnEmptyRecordset) {
    MakeCourses();
    Select("SELECT ID FROM Kurs");
    EXPECT_FALSE(OpenSelect("SELECT ID FROM Kurse"));
    EXPECT_EQ(session_->Recordset(), nullptr);
    const Text text = session_->LastErrorText();
    EXPECT_NE(text.find("Kurse"), Text::npos) << text;
    EXPECT_EQ(text.find_first_of("\r\n"), Text::npos) << text;
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Kurs"), Variant(3));
}

TEST_P(SessionContract, ARefusedStatementChangesNothing) {
    MakeCourses();
    EXPECT_FALSE(ExecuteSql("INSERT INTO Kurs (ID, Titel) VALUES (4, 'vier'), (1, 'doppelt')"));
    EXPECT_NE(session_->LastErrorText().find("Kurs"), Text::npos) << session_->LastErrorText();
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Kurs"), Variant(3));
    EXPECT_FALSE(ExecuteSql("UPDATE Kurs SET ID = 7"));
    EXPECT_EQ(Value("SELECT MAX(ID) FROM Kurs"), Variant(3));
}

TEST_P(SessionContract, TheReasonOfARefusalStaysUntilTheNextOne) {
    MakeCourses();
    EXPECT_FALSE(ExecuteSql("DELETE FROM Kurse"));
    const Text reason = session_->LastErrorText();
    EXPECT_NE(reason.find("Kurse"), Text::npos) << reason;
    Run("DELETE FROM Kurs WHERE ID = 1");
    Select("SELECT ID FROM Kurs");
    LookupValue("max(ID)", "Kurs", "");
    EXPECT_EQ(session_->LastErrorText(), reason);
    EXPECT_FALSE(OpenSelect("SELECT Nummer FROM Kurs"));
    EXPECT_NE(session_->LastErrorText().find("Nummer"), Text::npos) << session_->LastErrorText();
}

TEST_P(SessionContract, ABrokenTextIsRefusedWhole) {
    MakeCourses();
    for (const char* text :
         {"INSERT INTO Kurs (ID, Titel) VALUES (4, 'Rock'n Roll')", "DELETE FROM Kurs SELEC 1", "", " \r\n", "'"}) {
        if (Text(text).find_first_not_of(" \r\n") == Text::npos) continue;
        EXPECT_FALSE(ExecuteSql(text)) << text;
        EXPECT_NE(session_->LastErrorText(), "");
    }
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Kurs"), Variant(3));
}

TEST_P(TsqlContract, AnExpressionHasNoName) {
    MakeCourses();
    EXPECT_EQ(Select("SELECT ID, ID + 1 FROM Kurs")->Fields().Name(1), "");
}

TEST_P(TsqlContract, ATextMayWriteAndThenSelect) {
    MakeCourses();
    EXPECT_EQ(Value("INSERT INTO Kurs (ID) SELECT ISNULL(MAX(Kurs.ID),0)+1 FROM Kurs SELECT MAX(Kurs.ID) As ID From Kurs"),
              Variant(4));
    EXPECT_EQ(session_->Recordset()->Fields().Name(0), "ID");
}

TEST_P(SessionContract, LookupValueGivesAValueOrNull) {
    MakeCourses();
    EXPECT_EQ(LookupValue("max(ID)", "Kurs", ""), Variant(3));
    EXPECT_EQ(LookupValue("Titel", "Kurs", "ID =3"), Variant("Rock'n Roll"));
    EXPECT_EQ(LookupValue("Titel", "Kurs", "ID = 2"), Variant::Null());
    EXPECT_EQ(LookupValue("ID", "Kurs", "Titel = 'keiner'"), Variant::Null());
    EXPECT_EQ(LookupValue("max(ID)", "Kurs", "ID > 3"), Variant::Null());
    EXPECT_EQ(LookupValue("ISNULL(max(ID),0)+1", "Kurs", ""), Variant(4));
    EXPECT_EQ(LookupValue("max(Nummer)", "Kurs", ""), Variant::Null());
    EXPECT_NE(session_->LastErrorText().find("Nummer"), Text::npos);
}

TEST_P(SessionContract, TheConnectionIsOpenAndExecutes) {
    MakeCourses();
    const auto connection = session_->AdoConnection();
    EXPECT_EQ(connection->State(), Connection::kOpen);
    const auto rows = connection->Execute(InDialect("SELECT Titel FROM Kurs WHERE ID = 1"));
    EXPECT_EQ(rows->Fields().Item(0).Value(), Variant("Übung für Anfänger"));
    const auto none = connection->Execute(InDialect("DELETE FROM Kurs WHERE ID = 1"));
    EXPECT_EQ(none->Fields().Count(), 0);
    EXPECT_EQ(none->Eof(), true);
    const auto error = test_support::RaisedBy([&] { return connection->Execute(InDialect("SELECT nichts FROM Kurs")); });
    ASSERT_TRUE(error);
    EXPECT_NE(error->Description().find("nichts"), Text::npos);
    EXPECT_EQ(connection->State(), Connection::kOpen);
}

TEST_P(TsqlContract, FieldsHaveTheTypeOfTheirColumn) {
    Run("CREATE TABLE Arten (b bit, t tinyint, s smallint, i int, m money, f float, r real, d datetime, c varchar(10), n nvarchar(max))");
    Run("INSERT INTO Arten VALUES (1, 255, -32768, 2147483647, 99.9999, 6.5, 0.1, Convert(Datetime,'02.03.2010 17:45',104), 'ä', N'ß')");
    Run("INSERT INTO Arten VALUES (NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    const auto rows = Select("SELECT b, t, s, i, m, f, r, d, c, n FROM Arten ORDER BY ISNULL(i, 0) DESC");
    const std::vector<Variant> expected = {true,
                                           Byte{255},
                                           Int16{-32768},
                                           2147483647,
                                           Money::FromUnits(999'999),
                                           6.5,
                                           0.1f,
                                           DateTime::Of(2010, 3, 2, 17, 45),
                                           "ä",
                                           "ß"};
    for (Int16 i = 0; i < 10; ++i)
        EXPECT_EQ(rows->Fields().Item(i).Value(), expected[static_cast<std::size_t>(i)]) << i;
    rows->MoveNext();
    for (Int16 i = 0; i < 10; ++i) EXPECT_EQ(rows->Fields().Item(i).Value(), Variant::Null()) << i;
}

TEST_P(SessionContract, TextsKeepEveryCharacter) {
    Run("CREATE TABLE Texte (ID int NOT NULL PRIMARY KEY, T nvarchar(max))");
    const Text texts[] = {"Ärger mit \"Anführung\"", "a\\b%c_d", "zwei\r\nZeilen\tTab", "€ und 𝄞",
                          Text(100'000, 'x'),        "{Name}"};
    int id = 0;
    for (const Text& text : texts) {
        Run("INSERT INTO Texte (ID, T) VALUES (" + std::to_string(++id) + ", N'" + text + "')");
        EXPECT_EQ(Value("SELECT T FROM Texte WHERE ID = " + std::to_string(id)), Variant(text));
    }
}

Ref<DataSession> Connected(const Text& connection_text, const std::vector<Text>& tables) {
    if (connection_text.empty()) return {};
    auto session = New<AnySession>();
    if (!session->Connect(connection_text, "", "", 30)) ADD_FAILURE() << session->LastErrorText();
    for (const Text& table : tables) (void)session->ExecuteSql("DROP TABLE IF EXISTS \"" + table + "\", " + table);
    return session;
}

const std::vector<Text> kTables = {"Kurs", "Arten", "Texte"};

Ref<DataSession> OnPostgres() {
    const auto* server = OdbcAvailable() ? test_support::SharedPostgres() : nullptr;
    return server ? Connected(server->ConnectionText(), kTables) : Ref<DataSession>();
}

Ref<DataSession> OnServer() {
    const auto session = test_support::EmptyServer();
    test_support::DropTables(*session, kTables);
    return session;
}

// The server of the environment is there for those who have one.
std::vector<SessionKind> TsqlKinds() {
    std::vector<SessionKind> kinds = {{"Embedded", [] { return Ref<DataSession>(test_support::EmptyDatabase()); }}};
    // Sessions in front of another one change nothing of it.
    kinds.push_back({"Recording", [] { return Ref<DataSession>(Script::Record(test_support::EmptyDatabase())); }});
    kinds.push_back({"Tracing", [] {
                         return Ref<DataSession>(New<TracingSession>(test_support::EmptyDatabase(), [](const TracedCall&) {}));
                     }});
    if (!test_support::ServerText().empty()) kinds.push_back({"SqlServer", OnServer});
    return kinds;
}

std::vector<SessionKind> AllKinds() {
    std::vector<SessionKind> kinds = TsqlKinds();
    kinds.push_back({"Postgres",
                     OnPostgres,
                     {{"nvarchar(max)", "text"},
                      {"nvarchar", "varchar"},
                      {"ISNULL", "COALESCE"},
                      {"Kurs", "\"Kurs\""},
                      {"Kurse", "\"Kurse\""},
                      {"Titel", "\"Titel\""},
                      {"Nummer", "\"Nummer\""}}});
    return kinds;
}

constexpr auto kKindName = [](const auto& kind) { return std::string(kind.param.name); };

INSTANTIATE_TEST_SUITE_P(Sessions, SessionContract, testing::ValuesIn(AllKinds()), kKindName);
INSTANTIATE_TEST_SUITE_P(Sessions, TsqlContract, testing::ValuesIn(TsqlKinds()), kKindName);

}  // namespace
}  // namespace LumoConnection
