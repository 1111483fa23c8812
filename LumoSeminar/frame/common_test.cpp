#include <LumoSeminar/frame/common.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoSeminar/frame/session_calls.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::RaisedBy;

constexpr const char* kSelectClient = "Select * From OpactMD";
constexpr const char* kSelectOption = "select Wert from optionen_database_dt where OptionID=30";

TEST(GetActMD, ReadsTheFieldByNameFromTheFirstRow) {
    Script script;
    script.OpenSelect(kSelectClient).Rows({"Bezeichnung", "mdnr"}, {{"Werk Köln", 5}, {"zweites", 6}});
    EXPECT_EQ(common::GetActMD(script.Session()), 5);
    EXPECT_EQ(script.Report(), "");
    EXPECT_TRUE(script.SessionReleased());
}

TEST(GetActMD, IsZeroWhereTheSelectIsRefused) {
    Script script;
    script.OpenSelect(kSelectClient).Refused("gone");
    EXPECT_EQ(common::GetActMD(script.Session()), 0);
    EXPECT_EQ(script.RecordsetCalls(), 0);
}

TEST(GetActMD, RaisesTheRowSetsErrorWhereTheTableIsEmpty) {
    Script script;
    script.OpenSelect(kSelectClient).Rows({"MDNR"}, {});
    const auto error = RaisedBy([&] { return common::GetActMD(script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), LumoConnection::RowSetError::kNoCurrentRow);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(ReadDescription(error->Description()).labels, (std::vector<std::string>{"LumoSeminar.common.GetActMD"}));
}

TEST(GetActMD, RaisesForANullAndForAMissingField) {
    Script script;
    script.OpenSelect(kSelectClient).Rows({"MDNR"}, {{Variant::Null()}});
    script.OpenSelect(kSelectClient).Rows({"Nummer"}, {{1}});
    EXPECT_RAISES(94, common::GetActMD(script.Session()));
    EXPECT_RAISES(5, common::GetActMD(script.Session()));
}

TEST(GetActMD, FailsAsDocumentedAtEachStep) {
    test_support::ExpectFailures(
        [](Script& script) { script.OpenSelect(kSelectClient).Rows({"MDNR"}, {{5}}); },
        [](const Ref<DataSession>& session) { common::GetActMD(session); },
        {{1, test_support::kNotOk}, {1, test_support::kRaises, 7001, {"LumoSeminar.common.GetActMD"}}});
}

TEST(IsMDabhKonst, ConvertsTheOptionToATruthValue) {
    const struct {
        Variant value;
        bool expected;
    } cases[] = {{"-1", true}, {"0", false}, {Int16{-1}, true}, {0, false}, {true, true}, {"False", false}};
    for (const auto& c : cases) {
        Script script;
        script.OpenSelect(kSelectOption).Rows({"Wert"}, {{c.value}});
        EXPECT_EQ(common::IsMDabhKonst(script.Session()), c.expected);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(IsMDabhKonst, IsFalseWhereTheSelectIsRefused) {
    Script script;
    script.OpenSelect(kSelectOption).Refused("gone");
    EXPECT_EQ(common::IsMDabhKonst(script.Session()), false);
}

TEST(IsMDabhKonst, RaisesForANullAnEmptyTableAndAWord) {
    const std::vector<std::vector<std::vector<Variant>>> answers = {{{Variant::Null()}}, {}, {{"ja"}}};
    const Int32 numbers[] = {94, LumoConnection::RowSetError::kNoCurrentRow, 13};
    for (std::size_t i = 0; i < answers.size(); ++i) {
        Script script;
        script.OpenSelect(kSelectOption).Rows({"Wert"}, answers[i]);
        const auto error = RaisedBy([&] { return common::IsMDabhKonst(script.Session()); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), numbers[i]);
        EXPECT_EQ(ReadDescription(error->Description()).labels, (std::vector<std::string>{"LumoSeminar.common.IsMDabhKonst"}));
    }
}

TEST(Nz, GivesTheReplacementUnconverted) {
    EXPECT_EQ(common::Nz(Variant::Null(), "x"), Variant("x"));
    EXPECT_EQ(common::Nz(Variant::Null(), Byte{3}), Variant(Byte{3}));
    EXPECT_EQ(common::Nz(7, "x"), Variant(7));
    EXPECT_EQ(common::Nz(Variant(), 3), Variant());
}

TEST(Nz, TakesAField) {
    LumoConnection::StoredRows rows(std::vector<std::string>{"a", "b"});
    rows.AppendNull();
    rows.Append(Int32{4});
    EXPECT_EQ(common::Nz(rows.Fields().Item(0), 9), Variant(9));
    EXPECT_EQ(common::Nz(rows.Fields().Item("B"), 9), Variant(4));
    rows.MoveNext();
    const auto error = RaisedBy([&] { return common::Nz(rows.Fields().Item(0), 9); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ReadDescription(error->Description()).labels, (std::vector<std::string>{"LumoSeminar.common.Nz"}));
}

TEST(OpenADOConnection, AnswersByTheState) {
    EXPECT_EQ(common::OpenADOConnection(nullptr), false);

    Script open;
    open.AdoConnection();
    EXPECT_EQ(common::OpenADOConnection(open.Session()->AdoConnection()), true);

    Script opens;
    opens.AdoConnection().Closed();
    opens.ConnectionOpen().Ok();
    EXPECT_EQ(common::OpenADOConnection(opens.Session()->AdoConnection()), true);
    EXPECT_EQ(opens.Report(), "");

    Script stays;
    stays.AdoConnection().Closed();
    stays.ConnectionOpen().StaysClosed();
    EXPECT_EQ(common::OpenADOConnection(stays.Session()->AdoConnection()), false);
    EXPECT_EQ(stays.Report(), "");
}

TEST(OpenADOConnection, RaisesThroughItsHandlerWhereOpenRaises) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen().Raises(-2147467259, "Server nicht gefunden", "Treiber");
    const auto error = RaisedBy([&] { return common::OpenADOConnection(script.Session()->AdoConnection()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(), "Server nicht gefunden\r\nLumoSeminar.common.OpenADOConnection");
}

TEST(FormatDatum, GivesDayMonthYear) {
    EXPECT_EQ(common::FormatDatum(DateTime::Of(2010, 3, 2, 17, 45)), "02.03.2010");
    EXPECT_EQ(common::FormatDatum(DateTime()), "30.12.1899");
    EXPECT_EQ(common::FormatDatumZeit(DateTime::Of(2010, 3, 2, 17, 45, 9)), "02.03.2010 17:45:09");
    EXPECT_EQ(common::FormatDatumZeit(DateTime::Of(2010, 3, 2)), "02.03.2010 00:00:00");
}

TEST(NextKey, IsTheLargestPlusOne) {
    Script script;
    script.LookupValue("max(A)", "T").Gives(41);
    script.LookupValue("max(A)", "T").Gives(Variant::Null());
    script.LookupValue("max(A)", "T", "B =3").Gives(-5);
    script.LookupValue("max(A)", "T").Gives(2147483647);
    EXPECT_EQ(NextKey(script.Session(), "max(A)", "T"), 42);
    EXPECT_EQ(NextKey(script.Session(), "max(A)", "T"), 1);
    EXPECT_EQ(NextKey(script.Session(), "max(A)", "T", "B =3"), -4);
    EXPECT_RAISES(6, NextKey(script.Session(), "max(A)", "T"));
    EXPECT_EQ(script.Report(), "");
}

// Process objects that write down what they are asked to do.
using Calls = std::vector<std::string>;

class RecordingDispatcher final : public InfoDispatcher {
  public:
    explicit RecordingDispatcher(Calls& calls) : calls_(calls) { calls_.emplace_back("create"); }
    void ConnectionString(const Text& value) override { calls_.push_back("ConnectionString " + value); }
    Variant Verbinden(Int32 kind, const Text& first, const Text& second) override {
        calls_.push_back("Verbinden " + std::to_string(kind) + " " + first + " " + second);
        return {};
    }
    void Initialisieren(Int32 module_number, Int32 key, Int32 client, Int32 person) override {
        module_number_ = module_number;
        key_ = key;
        calls_.push_back("Initialisieren " + std::to_string(module_number) + " " + std::to_string(key) + " " +
                         std::to_string(client) + " " + std::to_string(person));
    }
    void Zustimmen(Int32, const Text&) override {}
    void Ablehnen(Int32, const Text&) override {}
    void Loeschen() override {}
    Bool BenutzerHatRechte(Int32) override { return false; }
    Text ProzessStatusText() override { return {}; }
    Int32 ProzessStatus() override { return 0; }
    Int32 ModulNr() override { return module_number_; }
    Int32 SchluesselID() override { return key_; }

  private:
    Calls& calls_;
    Int32 module_number_ = 0;
    Int32 key_ = 0;
};

class RecordingDefaults final : public SessionDefaults {
  public:
    explicit RecordingDefaults(Calls& calls) : calls_(calls) { calls_.emplace_back("create defaults"); }
    Text FirstText(Int32 index) override {
        calls_.push_back("first " + std::to_string(index));
        return "Benutzer";
    }
    Text SecondText(Int32 index) override {
        calls_.push_back("second " + std::to_string(index));
        return "Kennwort";
    }

  private:
    Calls& calls_;
};

class GetInfoDispatcher : public testing::Test {
  protected:
    GetInfoDispatcher() {
        common::State() = {};
        SetComponents({.data_session = {},
                       .info_dispatcher = [this] { return New<RecordingDispatcher>(calls_); },
                       .info_starter = {},
                       .session_defaults = [this] { return New<RecordingDefaults>(calls_); }});
    }
    ~GetInfoDispatcher() override {
        common::State() = {};
        SetComponents({});
    }

    Calls calls_;
};

TEST_F(GetInfoDispatcher, ConnectsANewObjectByTheConnectionText) {
    common::State().g_strConnectionString = "Provider=Embedded";
    const auto dispatcher = common::GetInfoDispatcher(7, 12, 5, 100);
    EXPECT_EQ(dispatcher, common::State().g_objInfoDispatcher);
    EXPECT_EQ(calls_, (Calls{"create", "ConnectionString Provider=Embedded", "Initialisieren 7 12 5 100"}));
}

TEST_F(GetInfoDispatcher, AsksTheDefaultsWithoutAConnectionText) {
    common::GetInfoDispatcher(8, 3, 1, 2);
    EXPECT_EQ(calls_, (Calls{"create", "create defaults", "first 2", "second 2", "Verbinden 2 Benutzer Kennwort",
                             "Initialisieren 8 3 1 2"}));
    calls_.clear();
    common::GetInfoDispatcher(8, 4, 1, 2);
    EXPECT_EQ(calls_, (Calls{"create", "first 2", "second 2", "Verbinden 2 Benutzer Kennwort", "Initialisieren 8 4 1 2"}));
}

TEST_F(GetInfoDispatcher, KeepsTheObjectForTheSameModuleAndKeyWhateverClientAndPerson) {
    const auto first = common::GetInfoDispatcher(8, 3, 1, 2);
    calls_.clear();
    EXPECT_EQ(common::GetInfoDispatcher(8, 3, 99, 98), first);
    EXPECT_EQ(calls_, Calls{});
}

TEST_F(GetInfoDispatcher, ReplacesTheObjectForAnotherModuleOrKey) {
    common::State().g_strConnectionString = "x";
    const auto needs = common::GetInfoDispatcher(7, 3, 1, 2);
    const auto waitlist = common::GetInfoDispatcher(8, 3, 1, 2);
    EXPECT_FALSE(needs == waitlist);
    EXPECT_FALSE(common::GetInfoDispatcher(7, 3, 1, 2) == needs);
    EXPECT_EQ(calls_.size(), 9u);
}

TEST_F(GetInfoDispatcher, RaisesWithoutALabelWhereTheComponentCannotBeCreated) {
    SetComponents({});
    const auto error = RaisedBy([] { return common::GetInfoDispatcher(7, 1, 1, 1); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 429);
    EXPECT_EQ(error->Description(),
              "The component InfoDispatcher cannot be created: this thread has no maker for it. "
              "Call LumoConnection::Install or SetComponents in it first.");
}

TEST(Components, RaiseWhereNoMakerIsSetOrItMakesNothing) {
    SetComponents({});
    EXPECT_RAISES(429, MakeDataSession());
    EXPECT_RAISES(429, MakeInfoStarter());
    EXPECT_RAISES(429, MakeSessionDefaults());
    SetComponents(
        {.data_session = [] { return Ref<DataSession>(); }, .info_dispatcher = {}, .info_starter = {}, .session_defaults = {}});
    const auto error = RaisedBy([] { return MakeDataSession(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 429);
    EXPECT_EQ(error->Description(),
              "The component DataSession cannot be created: the maker that SetComponents was given has made nothing.");
    SetComponents({});
}

}  // namespace
}  // namespace LumoSeminar
