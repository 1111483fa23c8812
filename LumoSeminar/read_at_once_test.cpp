#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/target_groups.h>
#include <LumoSeminar/scheduling/organiser_venue.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/row_sets.h>

/// What holds for the classes whose Init reads their texts at once.
namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::ExpectedFailure;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::Labels;
using test_support::RaisedBy;
using Texts = std::vector<Text>;
using Values = std::vector<Variant>;

/// An object, its type left out.
struct AnyObject {
    std::function<Bool(Int32 key, const Ref<DataSession>&)> init;
    std::function<Texts()> texts;
};

struct ClassReadAtOnce {
    std::string name;
    std::function<AnyObject()> make;
    std::string (*select)(Int32 key);
    std::vector<std::string> columns;
    Texts full;
    std::string label;
    /// Of the connection that was found open, and of the one that the statement goes to; the other is not tested.
    bool asks_twice_for_the_connection = false;

    friend void PrintTo(const ClassReadAtOnce& kind, std::ostream* stream) { *stream << kind.name; }
};

template <class Class, class Init, class TextsOf>
std::function<AnyObject()> Makes(Init init, TextsOf texts_of) {
    return [=]() -> AnyObject {
        const auto object = New<Class>();
        return {[=](Int32 key, const Ref<DataSession>& session) { return init(*object, key, session); },
                [=] { return texts_of(*object); }};
    };
}

std::vector<ClassReadAtOnce> Classes() {
    const std::vector<std::string> columns = {"Name",          "PLZ",     "Ort",          "Strasse",
                                              "Anspr_partner", "Telefon", "Fax",          "Sachbearbeiter",
                                              "EMail",         "URL",     "Mobiltelefon", "Bemerkungen"};
    const Texts full = {"Tagungshaus \"Am Dünnwald\"",
                        "51069",
                        "Köln",
                        "Große Straße 9",
                        "Familie Lüttgen",
                        "0221 4710 410",
                        "0221 4710 411",
                        "sthieme",
                        "haus@tagungshaus.example",
                        "http://www.tagungshaus.example",
                        "0172 9925904",
                        "Übernachtung möglich, O'Neill fragen"};
    const auto init = [](auto& object, Int32 key, const Ref<DataSession>& session) { return object.Init(key, session); };
    return {
        {"clsTerminVeranstalter",
         Makes<clsTerminVeranstalter>(init,
                                      [](clsTerminVeranstalter& o) -> Texts {
                                          return {o.Name(),
                                                  o.PLZ(),
                                                  o.Ort(),
                                                  o.Strasse(),
                                                  o.Ansprechpartner(),
                                                  o.Telefon(),
                                                  o.Fax(),
                                                  o.Sachbearbeiter(),
                                                  o.Email(),
                                                  o.URL(),
                                                  o.Mobiltelefon(),
                                                  o.Bemerkungen()};
                                      }),
         [](Int32 key) {
             return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter, EMail, URL, Mobiltelefon, "
                    "Bemerkungen FROM sysIData_Veranstalter WHERE ID = " +
                    std::to_string(key);
         },
         columns, full, " LumoSeminar.clsTerminVeranstaltungsOrt.Init"},
        {"clsTerminVeranstaltungsOrt",
         Makes<clsTerminVeranstaltungsOrt>(
             init,
             [](clsTerminVeranstaltungsOrt& v) -> Texts {
                 return {v.Name(),    v.PLZ(), v.Ort(),           v.Strasse(), v.Ansprechpartner(),
                         v.Telefon(), v.Fax(), v.Sachbearbeiter()};
             }),
         [](Int32 key) {
             return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter FROM sysIData_VOrte WHERE "
                    "ID = " +
                    std::to_string(key);
         },
         {columns.begin(), columns.begin() + 8},
         {full.begin(), full.begin() + 8},
         " LumoSeminar.clsTerminVeranstaltungsOrt.Init"},
        {"clsSemZielgruppe",
         Makes<clsSemZielgruppe>([](auto& group, Int32 key, const auto& session) { return group.Init(3, key, session); },
                                 [](clsSemZielgruppe& group) -> Texts {
                                     return {group.BezeichungKurz(), group.Bezeichung()};
                                 }),
         [](Int32 key) {
             return "SELECT sysIData_Zielgruppen.Kurz, sysIData_Zielgruppen.Bezeichnung FROM Sem_Zielgruppen_IT INNER JOIN "
                    "sysIData_Zielgruppen ON Sem_Zielgruppen_IT.ZielGruppeID = sysIData_Zielgruppen.ID WHERE "
                    "Sem_Zielgruppen_IT.SemID = 3 AND Sem_Zielgruppen_IT.ZielGruppeID = " +
                    std::to_string(key);
         },
         {"Kurz", "Bezeichnung"},
         {"FK", "\"Führungskräfte\" & O'Neill"},
         " LumoSeminar.clsSemZielgruppe.Init",
         true},
        {"clsSemZielInhalt",
         Makes<clsSemZielInhalt>(init,
                                 [](clsSemZielInhalt& goal) -> Texts {
                                     return {goal.Ziel(), goal.Inhalt()};
                                 }),
         [](Int32 key) {
             return "SELECT Ziel, Inhalt FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = " + std::to_string(key);
         },
         {"Ziel", "Inhalt"},
         {"Jede weiß, \"was\" sie darf.", "Prüfungen,\r\nO'Neills Übungen {Ziel}"},
         " LumoSeminar.clsSemZielInhalt.Init",
         true},
    };
}

class ReadAtOnce : public testing::TestWithParam<ClassReadAtOnce> {
  protected:
    const ClassReadAtOnce& kind_ = GetParam();
    const Texts& full_ = kind_.full;
    const Texts empty_ = Texts(full_.size());
    const Values full_row_ = {full_.begin(), full_.end()};
    const Values null_row_ = Values(full_.size(), Variant::Null());
    const Labels labels_ = {kind_.label};
    Script script_;
    AnyObject object_ = kind_.make();

    /// The statement on a connection that was found open.
    void ScriptStatement(Script& script, Int32 key, const std::vector<Values>& rows) const {
        if (kind_.asks_twice_for_the_connection) script.AdoConnection();
        script.ConnectionExecute(kind_.select(key)).Rows(kind_.columns, rows);
        script.CloseRows();
    }
    void Reads(Int32 key, const std::vector<Values>& rows) {
        script_.AdoConnection();
        ScriptStatement(script_, key, rows);
    }
    void ExpectInit(Int32 key, const Texts& texts) {
        EXPECT_EQ(object_.init(key, script_.Session()), true);
        EXPECT_EQ(object_.texts(), texts);
    }
    void TearDown() override { EXPECT_EQ(script_.Report(), ""); }
};

TEST_P(ReadAtOnce, InitReadsTheRowOnceAndKeepsNoSession) {
    EXPECT_EQ(object_.texts(), empty_);
    Reads(9, {full_row_});
    ExpectInit(9, full_);
    EXPECT_TRUE(script_.SessionReleased());
    EXPECT_EQ(object_.texts(), full_);
    EXPECT_EQ(script_.RecordsetCalls(), 0);
}

TEST_P(ReadAtOnce, KeysGoIntoTheStatementAsTheyAre) {
    for (const Int32 key : {-1, 2147483647, -2147483647 - 1, 0}) {
        Reads(key, {full_row_});
        object_ = kind_.make();
        ExpectInit(key, full_);
    }
}

TEST_P(ReadAtOnce, ANullGivesAnEmptyTextInEachColumn) {
    for (std::size_t i = 0; i < kind_.columns.size(); ++i) {
        SCOPED_TRACE(kind_.columns[i]);
        auto row = full_row_;
        row[i] = Variant::Null();
        auto expected = full_;
        expected[i] = "";
        Reads(9, {row});
        object_ = kind_.make();
        ExpectInit(9, expected);
    }
}

TEST_P(ReadAtOnce, WithoutARowTheResultIsTrueAndTheTextsStayEmpty) {
    for (const Int32 key : {0, -1, 2147483647}) {
        Reads(key, {});
        ExpectInit(key, empty_);
    }
}

TEST_P(ReadAtOnce, OfSeveralRowsTheFirstCounts) {
    Reads(9, {full_row_, null_row_});
    ExpectInit(9, full_);
}

TEST_P(ReadAtOnce, WhatWasReadStaysUntilAnInitFindsARow) {
    Reads(9, {full_row_});
    Reads(10, {});
    script_.AdoConnection().Empty();
    auto row = null_row_;
    row[0] = "neu";
    Reads(11, {row});
    auto expected = empty_;
    expected[0] = "neu";
    ExpectInit(9, full_);
    ExpectInit(10, full_);
    ExpectInit(10, full_);
    ExpectInit(11, expected);
}

TEST_P(ReadAtOnce, AClosedConnectionIsOpenedFirst) {
    script_.AdoConnection().Closed();
    script_.ConnectionOpen().Ok();
    ScriptStatement(script_, 9, {full_row_});
    ExpectInit(9, full_);
}

TEST_P(ReadAtOnce, InitIsTrueWithoutAStatementWhereThereIsNoOpenConnection) {
    for (const bool empty : {true, false}) {
        if (empty) {
            script_.AdoConnection().Empty();
        } else {
            script_.AdoConnection().Closed();
            script_.ConnectionOpen().StaysClosed();
        }
        ExpectInit(9, empty_);
        EXPECT_TRUE(script_.SessionReleased());
    }
}

TEST_P(ReadAtOnce, AnEmptySessionRaises91) { EXPECT_RAISES_UNDER(91, labels_, object_.init(9, nullptr)); }

TEST_P(ReadAtOnce, WhatTheConnectionRaisesKeepsItsNumberAndSource) {
    script_.AdoConnection();
    if (kind_.asks_twice_for_the_connection) script_.AdoConnection();
    script_.ConnectionExecute(kind_.select(9)).Raises(-2147217865, "Ungültiger Objektname.", "Datenbank");
    const auto error = RaisedBy([&] { return object_.init(9, script_.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147217865);
    EXPECT_EQ(error->Source(), "Datenbank");
    EXPECT_EQ(error->Description(), "Ungültiger Objektname.\r\n" + kind_.label);
    EXPECT_EQ(object_.texts(), empty_);
    EXPECT_EQ(script_.LastErrorTextCalls(), 0);
    EXPECT_TRUE(script_.SessionReleased());
}

TEST_P(ReadAtOnce, ARowThatIsTooShortRaisesAndTheTextsBeforeAreTaken) {
    auto columns = kind_.columns;
    auto row = full_row_;
    auto expected = full_;
    columns.pop_back();
    row.pop_back();
    expected.back() = "";
    script_.AdoConnection();
    if (kind_.asks_twice_for_the_connection) script_.AdoConnection();
    script_.ConnectionExecute(kind_.select(9)).Rows(columns, {row});
    EXPECT_RAISES_UNDER(9, labels_, object_.init(9, script_.Session()));
    EXPECT_EQ(object_.texts(), expected);
}

TEST_P(ReadAtOnce, ARowSetInFrontOfItsFirstRowOrBehindItsLastIsNotReadButClosed) {
    for (const auto& [bof, eof] : {std::pair{false, false}, {false, true}, {true, false}, {true, true}}) {
        const auto rows = New<test_support::RowsAt>(bof, eof, kind_.columns, full_row_);
        const auto object = kind_.make();
        EXPECT_EQ(object.init(9, New<test_support::OneRowSet>(rows)), true);
        EXPECT_EQ(object.texts(), bof || eof ? empty_ : full_);
        EXPECT_EQ(rows->closes, 1);
    }
}

TEST_P(ReadAtOnce, InitFailsAsDocumentedAtEachStepWithAndWithoutAnOpening) {
    for (const bool closed : {false, true}) {
        std::vector<ExpectedFailure> expected = {{1, kNotOk, 0, {}, {"Open of the connection"}}, {1, kRaises, 7001, labels_}};
        int step = 1;
        if (closed) {
            expected.push_back({++step, kNotOk});
            expected.push_back({step, kRaises, 7001, {"LumoSeminar.common.OpenADOConnection", kind_.label}});
        }
        if (kind_.asks_twice_for_the_connection) {
            // The connection that is taken for the statement is not tested: the statement is sent all the same.
            ++step;
            const auto close = "Close of the rows of step " + std::to_string(step + 1);
            expected.push_back({step, kNotOk, 0, {}, {"Execute of the connection: " + kind_.select(9), close}});
            expected.push_back({step, kRaises, 7001, labels_});
        }
        expected.push_back({++step, kNotOk, 7001, labels_});
        expected.push_back({step, kRaises, 7001, labels_});
        expected.push_back({++step, kRaises, 7001, labels_});
        ExpectFailures(
            [&](Script& script) {
                if (closed) {
                    script.AdoConnection().Closed();
                    script.ConnectionOpen().Ok();
                } else {
                    script.AdoConnection();
                }
                ScriptStatement(script, 9, {full_row_});
            },
            [&](const Ref<DataSession>& session) { EXPECT_EQ(kind_.make().init(9, session), true); }, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ReadAtOnce, testing::ValuesIn(Classes()), [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace LumoSeminar
