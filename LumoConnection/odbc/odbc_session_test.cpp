#include <LumoConnection/odbc/odbc_session.h>

#include <gtest/gtest.h>

#include <LumoConnection/install.h>
#include <LumoConnection/stored_rows.h>
#include <LumoConnection/system_user.h>
#include <test_support/fake_odbc.h>
#include <test_support/raises.h>

// What the session asks of a driver, and what it makes of the answers. The driver plays a script.
namespace LumoConnection {
namespace {

using odbc_driver::Cell;
using odbc_driver::Message;
using odbc_driver::Result;

constexpr SQLSMALLINT kSqlServerTime = -154;

class OdbcSessionTest : public testing::Test {
  protected:
    void Connect(const Text& more = {}, const Text& user = {}, const Text& password = {}) {
        ASSERT_TRUE(session_->Connect(driver_.ConnectionText(more), user, password, 30)) << session_->LastErrorText();
    }
    void Answer(std::vector<Result> results) { driver_->answers.push_back(std::move(results)); }
    // The value of a text that gives one.
    Variant Value(odbc_driver::Column column, Cell cell) {
        Answer({{.columns = {std::move(column)}, .rows = {{std::move(cell)}}}});
        EXPECT_TRUE(session_->OpenSelect("SELECT x")) << session_->LastErrorText();
        return session_->Recordset() ? session_->Recordset()->Fields().Item(0).Value() : Variant();
    }

    const test_support::FakeOdbc driver_;
    Ref<OdbcSession> session_ = New<OdbcSession>();
};

Result Rows(const std::vector<long long>& numbers) {
    Result result{.columns = {{.name = u"ID", .type = SQL_INTEGER}}};
    for (const long long number : numbers) result.rows.push_back({Cell(number)});
    return result;
}

std::vector<Int32> NumbersOf(const Ref<RecordSet>& rows) {
    std::vector<Int32> numbers;
    for (; !rows->Eof(); rows->MoveNext()) numbers.push_back(To<Int32>(rows->Fields().Item(0).Value()));
    return numbers;
}

TEST_F(OdbcSessionTest, ATextReachesTheDriverUntouchedAndWhole) {
    Connect();
    const Text text = "SELECT '{fn x} ? €𝄞' AS [a b];\r\n--\tende {d '1'}";
    EXPECT_TRUE(session_->ExecuteSql(text));
    EXPECT_EQ(driver_->texts, (std::vector<std::u16string>{u"SELECT '{fn x} ? €𝄞' AS [a b];\r\n--\tende {d '1'}"}));
    EXPECT_EQ(driver_->no_scan, SQLULEN{SQL_NOSCAN_ON});
    EXPECT_TRUE(session_->ExecuteSql(Text(300'000, 'x')));
    EXPECT_EQ(driver_->texts.at(1), std::u16string(300'000, u'x'));
    EXPECT_TRUE(session_->ExecuteSql(""));
    EXPECT_EQ(driver_->texts.at(2), u"");
}

TEST_F(OdbcSessionTest, TheTimeoutIsThatOfTheLoginAndOfEachStatement) {
    for (const auto& [given, seconds] : {std::pair{7, 7}, {0, 30}, {-1, 30}}) {
        ASSERT_TRUE(session_->Connect(driver_.ConnectionText(), "", "", given));
        (void)session_->ExecuteSql("x");
        EXPECT_EQ(driver_->login_timeout, static_cast<SQLULEN>(seconds));
        EXPECT_EQ(driver_->statement_timeout, static_cast<SQLULEN>(seconds));
    }
}

TEST_F(OdbcSessionTest, ADriverWithoutTimeoutsAndAttributesWillDo) {
    driver_->knows_attributes = false;
    Connect();
    Answer({Rows({4})});
    EXPECT_TRUE(session_->OpenSelect("x"));
    EXPECT_EQ(session_->LastErrorText(), "");
    EXPECT_EQ(session_->AdoConnection()->State(), Connection::kOpen);
}

TEST_F(OdbcSessionTest, UserAndPasswordAreAddedToTheText) {
    Connect(";Server=x", "lena", "a;b}c");
    const Text expected = driver_.ConnectionText(";Server=x;UID=lena;PWD={a;b}}c}");
    EXPECT_EQ(driver_->logins, (std::vector{std::u16string(expected.begin(), expected.end())}));
}

TEST_F(OdbcSessionTest, TheUserOfTheOperatingSystemIsNotAdded) {
    Connect("", SystemUser());
    const Text expected = driver_.ConnectionText();
    EXPECT_EQ(driver_->logins, (std::vector{std::u16string(expected.begin(), expected.end())}));
}

TEST_F(OdbcSessionTest, ProcessObjectsWorkOnItWithoutTheUserOfTheOperatingSystem) {
    Install(Login{.connection_text = driver_.ConnectionText()});
    const auto defaults = MakeSessionDefaults();
    {
        const auto dispatcher = MakeInfoDispatcher();
        dispatcher->Verbinden(2, defaults->FirstText(2), defaults->SecondText(2));
        dispatcher->Initialisieren(7, 12, 1, 4711);
        EXPECT_EQ(dispatcher->ProzessStatus(), ProcessStatus::kNone);
        dispatcher->Verbinden(2, "lena", "geheim");
        EXPECT_EQ(dispatcher->ProzessStatus(), ProcessStatus::kNone);
    }
    SetComponents({});
    const Text texts[] = {driver_.ConnectionText(), driver_.ConnectionText(";UID=lena;PWD=geheim")};
    ASSERT_EQ(driver_->logins.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i)
        EXPECT_EQ(driver_->logins[i], std::u16string(texts[i].begin(), texts[i].end())) << texts[i];
}

// The date format of Microsoft's server.

TEST_F(OdbcSessionTest, QuotedDatesAreReadDayFirstOnTheServer) {
    driver_->server_name = u"Microsoft SQL Server";
    Connect();
    EXPECT_EQ(driver_->texts, std::vector<std::u16string>{u"SET DATEFORMAT dmy"});
}

TEST_F(OdbcSessionTest, TheDateFormatMayBeLeftToTheLogin) {
    driver_->server_name = u"Microsoft SQL Server";
    Connect(";lumodateformat=OFF;Server=x");
    EXPECT_TRUE(driver_->texts.empty());
    const Text expected = driver_.ConnectionText(";Server=x");
    EXPECT_EQ(driver_->logins, (std::vector{std::u16string(expected.begin(), expected.end())}));
    EXPECT_FALSE(session_->Connect(driver_.ConnectionText(";LumoDateFormat=mdy"), "", "", 30));
    EXPECT_EQ(session_->LastErrorText(), "The connection text cannot be used: LumoDateFormat is On or Off, not \"mdy\".");
}

TEST_F(OdbcSessionTest, OtherServersAreToldNothing) {
    Connect();
    EXPECT_TRUE(driver_->texts.empty());
}

TEST_F(OdbcSessionTest, AServerThatRefusesTheDateFormatIsNotConnected) {
    driver_->server_name = u"Microsoft SQL Server";
    Answer({{.code = SQL_ERROR, .messages = {{"42000", 156, u"[M][D][S]Incorrect syntax."}}}});
    EXPECT_FALSE(session_->Connect(driver_.ConnectionText(), "", "", 30));
    EXPECT_EQ(session_->LastErrorText(), "[42000] 156: Incorrect syntax.");
    EXPECT_EQ(session_->AdoConnection()->State(), 0);
}

TEST_F(OdbcSessionTest, MessagesOfALoginAreNoFailure) {
    driver_->login_messages = {{"01000", 5701, u"[Microsoft][Driver][SQL Server]Changed database context to 'lumo'."},
                               {"01000", 5703, u"[Microsoft][Driver][SQL Server]Changed language setting to us_english."}};
    Connect();
    EXPECT_EQ(session_->LastErrorText(), "");
    EXPECT_EQ(session_->LastErrorNumber(), 0);
    ASSERT_EQ(session_->Diagnostics().size(), 2u);
    EXPECT_EQ(session_->Diagnostics()[1].text, "Changed language setting to us_english.");
}

TEST_F(OdbcSessionTest, ARefusedLoginIsTold) {
    driver_->login_refusal = {{"28000", 18456, u"[Microsoft][ODBC Driver][SQL Server]Login failed for user 'lena'."}};
    EXPECT_FALSE(session_->Connect(driver_.ConnectionText(), "lena", "geheim", 30));
    EXPECT_EQ(session_->LastErrorText(), "[28000] 18456: Login failed for user 'lena'.");
    EXPECT_EQ(session_->LastErrorNumber(), 18456);
    EXPECT_FALSE(session_->ExecuteSql("SELECT 1"));
    EXPECT_EQ(session_->LastErrorText(), "The connection is closed.");
    EXPECT_RAISES(18456, session_->AdoConnection()->Open());
}

TEST_F(OdbcSessionTest, AllMessagesOfARefusedLoginAreToldInTheOrderOfTheDriverManager) {
    driver_->login_refusal = {{"28000", 18456, u"[Microsoft][ODBC Driver][SQL Server]Login failed for user 'lena'."},
                              {"42000", 4060, u"[Microsoft][ODBC Driver][SQL Server]Cannot open database \"lumo\"."}};
    EXPECT_FALSE(session_->Connect(driver_.ConnectionText(), "", "", 30));
    for (const char* record : {"[28000] 18456: Login failed for user 'lena'.", "[42000] 4060: Cannot open database \"lumo\"."}) {
        EXPECT_NE(session_->LastErrorText().find(record), Text::npos) << session_->LastErrorText();
    }
    EXPECT_EQ(session_->Diagnostics().size(), 2u);
}

// Types.

struct TypeCase {
    const char* name;
    odbc_driver::Column column;
    Cell cell;
    Variant expected;
};

TEST_F(OdbcSessionTest, AValueHasTheTypeOfItsColumn) {
    Connect();
    const SQL_TIMESTAMP_STRUCT moment{2026, 11, 21, 10, 15, 59, 997'000'000};
    const TypeCase kCases[] = {
        {"bit 1", {.type = SQL_BIT}, 1LL, true},
        {"bit 0", {.type = SQL_BIT}, 0LL, false},
        {"tinyint", {.type = SQL_TINYINT, .is_unsigned = true}, 255LL, Byte{255}},
        {"tinyint with a sign", {.type = SQL_TINYINT}, -128LL, Int16{-128}},
        {"smallint", {.type = SQL_SMALLINT}, -32768LL, Int16{-32768}},
        {"smallint without a sign", {.type = SQL_SMALLINT, .is_unsigned = true}, 65535LL, 65535},
        {"int", {.type = SQL_INTEGER}, -2147483648LL, Int32{-2147483647 - 1}},
        {"int without a sign", {.type = SQL_INTEGER, .is_unsigned = true}, 4294967295LL, 4294967295.0},
        {"bigint", {.type = SQL_BIGINT}, 2147483647LL, 2147483647},
        {"long bigint", {.type = SQL_BIGINT}, 2147483648LL, 2147483648.0},
        {"money",
         {.type = SQL_DECIMAL, .type_name = u"money"},
         u"-922337203685477.5808",
         Money::FromUnits(std::numeric_limits<std::int64_t>::min())},
        {"much money", {.type = SQL_DECIMAL, .type_name = u"money"}, u"90071992547409.9301", Money::FromUnits(900'719'925'474'099'301)},
        {"smallmoney", {.type = SQL_DECIMAL, .type_name = u"smallmoney"}, u".0500", Money::FromUnits(500)},
        {"decimal", {.type = SQL_DECIMAL, .type_name = u"decimal"}, u"-12.3400", -12.34},
        {"numeric", {.type = SQL_NUMERIC, .type_name = u"numeric"}, u".1", 0.1},
        {"float", {.type = SQL_FLOAT}, 6.5, 6.5},
        {"double", {.type = SQL_DOUBLE}, -1e300, -1e300},
        {"real", {.type = SQL_REAL}, 0.1, 0.1f},
        {"datetime",
         {.type = SQL_TYPE_TIMESTAMP},
         moment,
         DateTime(std::chrono::local_days{std::chrono::year{2026} / 11 / 21}, std::chrono::milliseconds{36'959'997})},
        {"date", {.type = SQL_TYPE_DATE}, SQL_TIMESTAMP_STRUCT{100, 1, 1, 0, 0, 0, 0}, DateTime::Of(100, 1, 1)},
        {"time",
         {.type = kSqlServerTime},
         moment,
         DateTime(std::chrono::local_days{std::chrono::year{1899} / 12 / 30}, std::chrono::milliseconds{36'959'997})},
        {"varchar", {.type = SQL_VARCHAR}, u"Grüße, 'ß'", "Grüße, 'ß'"},
        {"nvarchar", {.type = SQL_WVARCHAR}, u"", ""},
        {"text", {.type = SQL_LONGVARCHAR}, u"a\r\nb\tc", "a\r\nb\tc"},
        {"ntext", {.type = SQL_WLONGVARCHAR}, u"𝄞€", "𝄞€"},
        {"half a pair",
         {.type = SQL_WVARCHAR},
         std::u16string{u'a', 0xD834, u'b'},
         "a\xEF\xBF\xBD"
         "b"},
        {"uniqueidentifier", {.type = SQL_GUID}, u"6F9619FF-8B86-D011-B42D-00C04FC964FF", "6F9619FF-8B86-D011-B42D-00C04FC964FF"},
        {"varbinary", {.type = SQL_VARBINARY}, std::vector<unsigned char>{0, 0xAB, 0xFF}, "0x00ABFF"},
        {"no varbinary", {.type = SQL_LONGVARBINARY}, std::vector<unsigned char>{}, "0x"},
        {"xml", {.type = -152}, u"<a/>", "<a/>"},
    };
    for (const TypeCase& type : kCases) {
        EXPECT_EQ(Value(type.column, type.cell), type.expected) << type.name;
        EXPECT_EQ(Value(type.column, {}), Variant::Null()) << type.name;
    }
}

TEST_F(OdbcSessionTest, AValueThatItsTypeCannotHoldRefusesTheCall) {
    Connect();
    const TypeCase kCases[] = {
        {"[] The value of column \"Datum\" cannot be read. ",
         {u"Datum", SQL_TYPE_DATE},
         SQL_TIMESTAMP_STRUCT{1, 1, 1, 0, 0, 0, 0},
         {}},
        {"", {u"Datum", SQL_TYPE_DATE}, SQL_TIMESTAMP_STRUCT{2026, 2, 30, 0, 0, 0, 0}, {}},
        {"", {u"Betrag", SQL_DECIMAL, u"money"}, u"12,5x", {}},
        {"", {u"", SQL_DECIMAL, u"decimal"}, u"1e999", {}},
    };
    for (const TypeCase& refused : kCases) {
        Answer({{.columns = {refused.column}, .rows = {{refused.cell}}}});
        EXPECT_FALSE(session_->OpenSelect("SELECT x"));
        const Text text = session_->LastErrorText();
        EXPECT_TRUE(text.starts_with("The value of column ")) << text;
        EXPECT_EQ(session_->LastErrorNumber(), 40001);
        EXPECT_EQ(session_->Recordset(), nullptr);
    }
}

TEST_F(OdbcSessionTest, LongValuesComeInPieces) {
    Connect();
    std::u16string wide;
    Text text;
    for (int i = 0; i < 30'000; ++i) {
        wide += i % 3 == 0 ? u"𝄞" : u"ä";
        text += i % 3 == 0 ? "𝄞" : "ä";
    }
    for (const bool keeps_pairs : {false, true}) {
        for (const bool tells_lengths : {false, true}) {
            // So that a pair is parted at one of the two places.
            for (const char16_t* front : {u"", u"x"}) {
                driver_->keeps_pairs = keeps_pairs;
                driver_->tells_lengths = tells_lengths;
                driver_->pieces = 0;
                const Text expected = (*front == 0 ? Text() : Text("x")) + text;
                EXPECT_TRUE(Value({.type = SQL_WLONGVARCHAR}, front + wide) == Variant(expected))
                    << keeps_pairs << tells_lengths;
                EXPECT_GT(driver_->pieces, 3);
            }
        }
    }
    driver_->tells_lengths = false;
    Text hex = "0x";
    for (int i = 0; i < 70'000; ++i) hex += "07";
    EXPECT_TRUE(Value({.type = SQL_LONGVARBINARY}, std::vector<unsigned char>(70'000, 7)) == Variant(hex));
}

TEST_F(OdbcSessionTest, ATextThatJustFillsAPieceIsWhole) {
    Connect();
    for (std::size_t size = 8180; size < 8200; ++size) {
        const std::u16string wide(size, u'y');
        EXPECT_TRUE(Value({.type = SQL_WVARCHAR}, wide) == Variant(Text(size, 'y'))) << size;
    }
}

// Several results.

TEST_F(OdbcSessionTest, TheFirstRowSetCountsAndAllIsRead) {
    Connect();
    Answer({{.row_count = 3}, {.row_count = 1}, Rows({4, 5}), Rows({6}), {.row_count = 2}});
    ASSERT_TRUE(session_->OpenSelect("INSERT ... SELECT ...")) << session_->LastErrorText();
    EXPECT_EQ(session_->RowsAffected(), 2);
    EXPECT_EQ(NumbersOf(session_->Recordset()), (std::vector<Int32>{4, 5}));
    EXPECT_EQ(driver_->most_statements, 1);
    EXPECT_EQ(driver_->statements, 0);
}

TEST_F(OdbcSessionTest, FurtherRowSetsAreKeptWhereTheyAreAskedFor) {
    Connect();
    session_->KeepFurtherRows(true);
    Answer({Rows({4, 5}), {.row_count = 1}, Rows({6}), Rows({})});
    ASSERT_TRUE(session_->OpenSelect("SELECT ...")) << session_->LastErrorText();
    EXPECT_EQ(NumbersOf(session_->Recordset()), (std::vector<Int32>{4, 5}));
    ASSERT_EQ(session_->FurtherRows().size(), 2U);
    EXPECT_EQ(NumbersOf(session_->FurtherRows()[0]), std::vector<Int32>{6});
    EXPECT_EQ(NumbersOf(session_->FurtherRows()[1]), std::vector<Int32>{});
    session_->KeepFurtherRows(false);
    Answer({Rows({4}), Rows({6})});
    ASSERT_TRUE(session_->OpenSelect("SELECT ..."));
    EXPECT_TRUE(session_->FurtherRows().empty());
}

TEST_F(OdbcSessionTest, ATextWithoutRowsGivesARowSetWithoutColumns) {
    Connect();
    Answer({{.row_count = 3, .code = SQL_NO_DATA}});
    ASSERT_TRUE(session_->OpenSelect("DELETE ..."));
    EXPECT_EQ(session_->Recordset()->Fields().Count(), 0);
    EXPECT_EQ(session_->Recordset()->Eof(), true);
}

TEST_F(OdbcSessionTest, AFailureAnywhereRefusesTheCall) {
    Connect();
    const Message failure{"23000", 2627, u"[M][S]Violation of PRIMARY KEY constraint."};
    Result late = Rows({1, 2});
    late.end_code = SQL_ERROR;
    late.end_messages = {failure};
    const Result failed{.code = SQL_ERROR, .messages = {failure}};
    const std::vector<std::vector<Result>> kTexts = {
        {failed}, {Rows({1}), failed}, {{.row_count = 1}, failed, Rows({1})},
        {late},   {Rows({7}), late},   {{.row_count = 1}, {.row_count = 1}, failed}};
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        for (const bool select : {true, false}) {
            Answer(kTexts[i]);
            EXPECT_FALSE(select ? session_->OpenSelect("x") : session_->ExecuteSql("x")) << i;
            EXPECT_EQ(session_->LastErrorText(), "[23000] 2627: Violation of PRIMARY KEY constraint.") << i;
            EXPECT_EQ(session_->LastErrorNumber(), 2627);
        }
        EXPECT_EQ(session_->Recordset(), nullptr);
        Answer(kTexts[i]);
        EXPECT_EQ(session_->LookupValue("a", "b", ""), Variant::Null());
        EXPECT_NE(session_->LastErrorText(), "");
        Answer(kTexts[i]);
        EXPECT_RAISES(2627, session_->AdoConnection()->Execute("x"));
    }
    const Text reason = session_->LastErrorText();
    EXPECT_TRUE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorNumber(), 0);
    EXPECT_EQ(session_->LastErrorText(), reason);
    EXPECT_TRUE(session_->Diagnostics().empty());
}

TEST_F(OdbcSessionTest, ADriverThatFailsForEverIsLeft) {
    Connect();
    driver_->endless_failures = 1'000'000;
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_GT(driver_->endless_failures, 999'000);
    driver_->endless_failures = 0;
}

TEST_F(OdbcSessionTest, AllMessagesOfARefusedCallAreToldInTheirOrder) {
    Connect();
    Answer({{.row_count = 1, .code = SQL_SUCCESS_WITH_INFO, .messages = {{"01000", 0, u"[M][D][S]erst\r\ndies"}}},
            {.code = SQL_ERROR,
             .messages = {{"42S02", 208, u"[M][D][S]Invalid object name 'x'."},
                          {"42000", 8180, u"[M][D][S]Statement(s) could not be prepared."}}}});
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorText(),
              "[01000] erst dies [42S02] 208: Invalid object name 'x'. [42000] 8180: Statement(s) could not be prepared.");
    EXPECT_EQ(session_->LastErrorNumber(), 208);
    ASSERT_EQ(session_->Diagnostics().size(), 3u);
    EXPECT_EQ(session_->Diagnostics()[2].number, 8180);
    EXPECT_EQ(session_->Diagnostics()[2].state, "42000");
}

TEST_F(OdbcSessionTest, ALongMessageIsWhole) {
    Connect();
    Answer({{.code = SQL_ERROR, .messages = {{"42000", 50000, std::u16string(3000, u'ä')}}}});
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorText().size(), Text("[42000] 50000: ").size() + 6000);
}

TEST_F(OdbcSessionTest, AFailureWithoutAMessageHasAText) {
    Connect();
    Answer({{.code = SQL_ERROR}});
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorText(), "[HY000] The driver reports a failure without a text.");
    EXPECT_EQ(session_->LastErrorNumber(), 40001);
}

TEST_F(OdbcSessionTest, ATextThatIsNoneIsNotSent) {
    Connect();
    EXPECT_FALSE(session_->ExecuteSql("SELECT '\xE4'"));
    EXPECT_EQ(session_->LastErrorText(), "The text is not UTF-8.");
    EXPECT_FALSE(session_->ExecuteSql(Text("DELETE FROM x\0 WHERE ID = 1", 27)));
    EXPECT_EQ(session_->LastErrorText(), "The text holds a NUL character.");
    EXPECT_TRUE(driver_->texts.empty());
}

TEST_F(OdbcSessionTest, TwoRowSetsAreReadAtOnce) {
    Connect();
    Answer({Rows({1, 2})});
    Answer({Rows({3, 4})});
    ASSERT_TRUE(session_->OpenSelect("a"));
    const auto first = session_->Recordset();
    ASSERT_TRUE(session_->OpenSelect("b"));
    const auto second = session_->Recordset();
    session_.Reset();
    EXPECT_EQ(NumbersOf(second), (std::vector<Int32>{3, 4}));
    EXPECT_EQ(NumbersOf(first), (std::vector<Int32>{1, 2}));
}

// The connection.

TEST_F(OdbcSessionTest, AConnectionThatTheDriverCallsDeadIsClosedAndOpensAgain) {
    Connect(";Server=x", "lena", "geheim");
    const auto connection = session_->AdoConnection();
    EXPECT_EQ(connection->State(), Connection::kOpen);
    driver_->dead = true;
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(driver_->connections, 0);
    EXPECT_FALSE(session_->OpenSelect("SELECT 1"));
    EXPECT_EQ(session_->LastErrorText(), "The connection is closed.");
    EXPECT_RAISES(40002, connection->Execute("SELECT 1"));
    driver_->dead = false;
    connection->Open();
    EXPECT_EQ(connection->State(), Connection::kOpen);
    ASSERT_EQ(driver_->logins.size(), 2u);
    EXPECT_EQ(driver_->logins[0], driver_->logins[1]);
}

TEST_F(OdbcSessionTest, AFailureOfTheConnectionClosesIt) {
    Connect();
    Answer({{.row_count = 1}, {.code = SQL_ERROR, .messages = {{"08S01", 10054, u"[M][D]TCP Provider: reset by peer."}}}});
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorText(), "[08S01] 10054: TCP Provider: reset by peer.");
    EXPECT_EQ(session_->AdoConnection()->State(), 0);
    session_->AdoConnection()->Open();
    EXPECT_TRUE(session_->ExecuteSql("x"));
}

TEST_F(OdbcSessionTest, OtherFailuresLeaveItOpen) {
    Connect();
    Answer({{.code = SQL_ERROR, .messages = {{"HYT00", 0, u"[M][D]Query timeout expired"}}}});
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->AdoConnection()->State(), Connection::kOpen);
}

TEST_F(OdbcSessionTest, TheConnectionMayBeOpenedElsewhere) {
    const auto connection = session_->AdoConnection();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_FALSE(session_->ExecuteSql("x"));
    EXPECT_EQ(session_->LastErrorText(), "The session is not connected.");
    connection->Open(driver_.ConnectionText(";Server=a"), "otto", "x");
    EXPECT_EQ(connection->State(), Connection::kOpen);
    connection->Open(driver_.ConnectionText(";Server=b"));
    ASSERT_EQ(driver_->logins.size(), 2u);
    EXPECT_TRUE(driver_->logins[1].ends_with(u";Server=b;UID=otto;PWD=x"));
    session_->Close();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(driver_->connections, 0);
}

TEST_F(OdbcSessionTest, LookupValueSendsOneSelect) {
    Connect();
    Answer({Rows({9, 8})});
    Answer({Rows({})});
    EXPECT_EQ(session_->LookupValue("max(SemID)", "Sem_Katalog_IT", "MDNr = 1"), Variant(9));
    EXPECT_EQ(session_->LookupValue("a", "b", ""), Variant::Null());
    EXPECT_EQ(driver_->texts,
              (std::vector<std::u16string>{u"SELECT max(SemID) FROM Sem_Katalog_IT WHERE MDNr = 1", u"SELECT a FROM b"}));
}

TEST(OdbcDriver, AMissingOneIsTold) {
    const auto session = New<OdbcSession>();
    for (const char* text : {"Driver={Gibt es nicht};Server=x", "DSN=gibt_es_nicht", "Driver=/gibt/es/nicht.so", "", "Unsinn"}) {
        EXPECT_FALSE(session->Connect(text, "lena", "geheim", 30)) << text;
        const Text told = session->LastErrorText();
        EXPECT_TRUE(told.starts_with("[IM002] ") || told.starts_with("[01000] Can't open lib") || told.starts_with("[IM0"))
            << told;
        EXPECT_EQ(told.find("geheim"), Text::npos) << told;
        EXPECT_NE(session->LastErrorNumber(), 0);
        EXPECT_EQ(session->AdoConnection()->State(), 0);
    }
    EXPECT_FALSE(session->Connect("Driver=\xE4", "", "", 30));
}

}  // namespace
}  // namespace LumoConnection
