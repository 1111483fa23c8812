#include <LumoSeminar/scheduling/organiser_venue.h>

#include <gtest/gtest.h>

#include <type_traits>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;
using Texts = std::vector<Text>;

const std::string kLabel = " LumoSeminar.clsTerminVeranstaltungsOrt.Init";

Texts TextsOf(clsTerminVeranstalter& o) {
    return {o.Name(),           o.PLZ(),   o.Ort(), o.Strasse(),      o.Ansprechpartner(), o.Telefon(), o.Fax(),
            o.Sachbearbeiter(), o.Email(), o.URL(), o.Mobiltelefon(), o.Bemerkungen()};
}

Texts TextsOf(clsTerminVeranstaltungsOrt& v) {
    return {v.Name(), v.PLZ(), v.Ort(), v.Strasse(), v.Ansprechpartner(), v.Telefon(), v.Fax(), v.Sachbearbeiter()};
}

std::string Select(const clsTerminVeranstalter&, Int32 key) {
    return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter, EMail, URL, Mobiltelefon, Bemerkungen "
           "FROM sysIData_Veranstalter WHERE ID = " +
           std::to_string(key);
}

std::string Select(const clsTerminVeranstaltungsOrt&, Int32 key) {
    return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter FROM sysIData_VOrte WHERE ID = " +
           std::to_string(key);
}

/// What holds for organisers and venues alike.
template <class Class>
class OrganiserVenue : public testing::Test {
  protected:
    static std::string SelectOf(Int32 key) { return Select(Class(), key); }

    static std::vector<std::string> Columns() {
        return FirstOf<std::string>({"Name", "PLZ", "Ort", "Strasse", "Anspr_partner", "Telefon", "Fax",
                                     "Sachbearbeiter", "EMail", "URL", "Mobiltelefon", "Bemerkungen"});
    }
    static Texts FullTexts() {
        return FirstOf<Text>({"Tagungshaus \"Am Dünnwald\"", "51069", "Köln", "Große Straße 9", "Familie Lüttgen",
                              "0221 4710 410", "0221 4710 411", "sthieme", "haus@tagungshaus.example",
                              "http://www.tagungshaus.example", "0172 9925904", "Übernachtung möglich, O'Neill fragen"});
    }
    static Texts EmptyTexts() { return Texts(CountOfTexts()); }
    static std::vector<Variant> FullRow() {
        const Texts texts = FullTexts();
        return {texts.begin(), texts.end()};
    }
    static std::vector<Variant> NullRow() { return std::vector<Variant>(CountOfTexts(), Variant::Null()); }

    static void ScriptRead(Script& script, Int32 key, const std::vector<std::vector<Variant>>& rows) {
        script.AdoConnection();
        script.ConnectionExecute(SelectOf(key)).Rows(Columns(), rows);
        script.CloseRows();
    }

  private:
    static std::size_t CountOfTexts() {
        Class object;
        return TextsOf(object).size();
    }
    template <class T>
    static std::vector<T> FirstOf(std::vector<T> values) {
        values.resize(CountOfTexts());
        return values;
    }
};

struct ClassNames {
    template <class Class>
    static std::string GetName(int) {
        return std::is_same_v<Class, clsTerminVeranstalter> ? "Organiser" : "Venue";
    }
};
using Classes = testing::Types<clsTerminVeranstalter, clsTerminVeranstaltungsOrt>;
TYPED_TEST_SUITE(OrganiserVenue, Classes, ClassNames);

TYPED_TEST(OrganiserVenue, AFreshOneHasEmptyTexts) {
    TypeParam object;
    EXPECT_EQ(TextsOf(object), this->EmptyTexts());
}

TYPED_TEST(OrganiserVenue, InitReadsTheRowOnceAndKeepsNoSession) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow()});
    TypeParam object;
    EXPECT_EQ(object.Init(9, script.Session()), true);
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.RecordsetCalls(), 0);
}

TYPED_TEST(OrganiserVenue, KeysGoIntoTheStatementAsTheyAre) {
    for (const Int32 key : {-1, 2147483647, -2147483647 - 1}) {
        Script script;
        this->ScriptRead(script, key, {this->FullRow()});
        TypeParam object;
        EXPECT_EQ(object.Init(key, script.Session()), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(OrganiserVenue, ANullGivesAnEmptyTextInEachColumn) {
    for (std::size_t i = 0; i < this->Columns().size(); ++i) {
        SCOPED_TRACE(this->Columns()[i]);
        auto row = this->FullRow();
        row[i] = Variant::Null();
        auto expected = this->FullTexts();
        expected[i] = "";
        Script script;
        this->ScriptRead(script, 9, {row});
        TypeParam object;
        EXPECT_EQ(object.Init(9, script.Session()), true);
        EXPECT_EQ(TextsOf(object), expected);
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(OrganiserVenue, WithoutARowTheResultIsTrueAndTheTextsStayEmpty) {
    Script script;
    this->ScriptRead(script, 0, {});
    TypeParam object;
    EXPECT_EQ(object.Init(0, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->EmptyTexts());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, ARowOfKeyZeroIsReadLikeAnyOther) {
    Script script;
    this->ScriptRead(script, 0, {this->FullRow()});
    TypeParam object;
    EXPECT_EQ(object.Init(0, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, OfSeveralRowsTheFirstCounts) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow(), this->NullRow()});
    TypeParam object;
    EXPECT_EQ(object.Init(9, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, WhatWasReadStaysUntilAnInitFindsARow) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow()});
    this->ScriptRead(script, 10, {});
    script.AdoConnection().Empty();
    this->ScriptRead(script, 11, {this->NullRow()});
    TypeParam object;
    object.Init(9, script.Session());
    EXPECT_EQ(object.Init(10, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(object.Init(10, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(object.Init(11, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->EmptyTexts());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, AClosedConnectionIsOpenedFirst) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen().Ok();
    script.ConnectionExecute(this->SelectOf(9)).Rows(this->Columns(), {this->FullRow()});
    script.CloseRows();
    TypeParam object;
    EXPECT_EQ(object.Init(9, script.Session()), true);
    EXPECT_EQ(TextsOf(object), this->FullTexts());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, InitIsTrueWithoutAStatementWhereThereIsNoOpenConnection) {
    for (const bool empty : {true, false}) {
        Script script;
        if (empty) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection().Closed();
            script.ConnectionOpen().StaysClosed();
        }
        TypeParam object;
        EXPECT_EQ(object.Init(9, script.Session()), true);
        EXPECT_EQ(TextsOf(object), this->EmptyTexts());
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(OrganiserVenue, AnEmptySessionRaises91WithTheLabelOfTheVenueAlsoOnTheOrganiser) {
    TypeParam object;
    const auto error = RaisedBy([&] { return object.Init(9, nullptr); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(LabelsOf(error), Labels{kLabel});
}

TYPED_TEST(OrganiserVenue, WhatTheConnectionRaisesKeepsItsNumberAndSourceUnderTheLabelOfTheVenue) {
    Script script;
    script.AdoConnection();
    script.ConnectionExecute(this->SelectOf(9)).Raises(-2147217865, "Ungültiger Objektname.", "Datenbank");
    TypeParam object;
    const auto error = RaisedBy([&] { return object.Init(9, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147217865);
    EXPECT_EQ(error->Source(), "Datenbank");
    EXPECT_EQ(error->Description(), "Ungültiger Objektname.\r\n LumoSeminar.clsTerminVeranstaltungsOrt.Init");
    EXPECT_EQ(TextsOf(object), this->EmptyTexts());
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, ARowThatIsTooShortRaisesAndTheTextsBeforeAreTaken) {
    auto columns = this->Columns();
    auto row = this->FullRow();
    columns.pop_back();
    row.pop_back();
    Script script;
    script.AdoConnection();
    script.ConnectionExecute(this->SelectOf(9)).Rows(columns, {row});
    TypeParam object;
    const auto error = RaisedBy([&] { return object.Init(9, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9);
    EXPECT_EQ(LabelsOf(error), Labels{kLabel});
    auto expected = this->FullTexts();
    expected.back() = "";
    EXPECT_EQ(TextsOf(object), expected);
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(OrganiserVenue, InitFailsAsDocumentedAtEachStep) {
    ExpectFailures([&](Script& script) { this->ScriptRead(script, 9, {this->FullRow()}); },
                   [](const Ref<DataSession>& session) {
                       TypeParam object;
                       EXPECT_EQ(object.Init(9, session), true);
                   },
                   {{1, kNotOk, 0, {}, {"Open of the connection"}},
                    {2, kNotOk, 7001, {kLabel}},
                    {1, kRaises, 7001, {kLabel}},
                    {2, kRaises, 7001, {kLabel}},
                    {3, kRaises, 7001, {kLabel}}});
}

TYPED_TEST(OrganiserVenue, OpeningTheConnectionFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [&](Script& script) {
            script.AdoConnection().Closed();
            script.ConnectionOpen().Ok();
            script.ConnectionExecute(this->SelectOf(9)).Rows(this->Columns(), {this->FullRow()});
            script.CloseRows();
        },
        [](const Ref<DataSession>& session) {
            TypeParam object;
            EXPECT_EQ(object.Init(9, session), true);
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk, 7001, {kLabel}},
         {1, kRaises, 7001, {kLabel}},
         {2, kRaises, 7001, {"LumoSeminar.common.OpenADOConnection", kLabel}},
         {3, kRaises, 7001, {kLabel}},
         {4, kRaises, 7001, {kLabel}}});
}

/// A row set that says of itself what it is told to say, and stands on a row all the while.
class RowsAt final : public LumoConnection::StoredRows {
  public:
    RowsAt(bool bof, bool eof, std::vector<std::string> columns, const std::vector<Variant>& row)
        : StoredRows(std::move(columns)), bof_(bof), eof_(eof) {
        for (const Variant& value : row) Append(value);
    }
    Bool Eof() override { return eof_; }
    Bool Bof() override { return bof_; }
    void Close() override { ++closes; }

    int closes = 0;

  private:
    bool bof_;
    bool eof_;
};

/// A session whose connection gives one row set, whatever is asked.
class OneRowSet final : public DataSession {
  public:
    explicit OneRowSet(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
    Ref<Connection> AdoConnection() override { return New<Face>(rows_); }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Ref<RecordSet> Recordset() override { return nullptr; }
    Bool OpenSelect(const Text&) override { return false; }
    Bool ExecuteSql(const Text&) override { return false; }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

  private:
    class Face final : public Connection {
      public:
        explicit Face(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
        Int32 State() override { return kOpen; }
        void Open(const Text&, const Text&, const Text&, Int32) override {}
        Ref<RecordSet> Execute(const Text&, Int32) override { return rows_; }

      private:
        Ref<RecordSet> rows_;
    };

    Ref<RecordSet> rows_;
};

TYPED_TEST(OrganiserVenue, ARowSetInFrontOfItsFirstRowOrBehindItsLastIsNotReadButClosed) {
    for (const bool bof : {false, true}) {
        for (const bool eof : {false, true}) {
            const auto rows = New<RowsAt>(bof, eof, this->Columns(), this->FullRow());
            TypeParam object;
            EXPECT_EQ(object.Init(9, New<OneRowSet>(rows)), true);
            EXPECT_EQ(TextsOf(object), bof || eof ? this->EmptyTexts() : this->FullTexts());
            EXPECT_EQ(rows->closes, 1);
        }
    }
}

}  // namespace
}  // namespace LumoSeminar
