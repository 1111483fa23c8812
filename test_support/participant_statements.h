#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/frame/variant.h>
#include <test_support/cost_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>

/// For tests: the statements of a participant as they are sent, rows of it, its properties, and ways to get a record.
namespace LumoSeminar::participant_statements {

using test_support::Labels;
using test_support::LabelsOf;

inline const std::string kLabel = " LumoSeminar062.clsTeilnehmer.";

// The statements.

inline std::string Select(int key) {
    return "SELECT Sem_Teilnehmer_IT.SemTerminID, Sem_Teilnehmer_IT.MDNr, Sem_Teilnehmer_IT.ANNR, Sem_Teilnehmer_IT.BWID, "
           "Sem_Teilnehmer_IT.LAID, Sem_Teilnehmer_IT.ErfDatum, Sem_Teilnehmer_IT.ErfUser, Sem_Teilnehmer_IT.Teilnahme, "
           "Sem_Teilnehmer_IT.Herkunft, Sem_Teilnehmer_IT.BeginnDatum, Sem_Teilnehmer_IT.BegUhrzeit, "
           "Sem_Teilnehmer_IT.EndeDatum, Sem_Teilnehmer_IT.EndUhrzeit, Sem_Teilnehmer_IT.storniertam, "
           "Sem_Teilnehmer_IT.StornoGrund, Sem_Teilnehmer_IT.StornoKosten, Sem_Teilnehmer_IT.Ergebnis, "
           "Sem_Teilnehmer_IT.Bemerkung FROM Sem_Teilnehmer_IT WHERE Sem_Teilnehmer_IT.TeilnehmerID = " +
           std::to_string(key);
}

inline const std::vector<std::string> kColumns = {
    "SemTerminID", "MDNr",        "ANNR",        "BWID",         "LAID",       "ErfDatum",
    "ErfUser",     "Teilnahme",   "Herkunft",    "BeginnDatum",  "BegUhrzeit", "EndeDatum",
    "EndUhrzeit",  "storniertam", "StornoGrund", "StornoKosten", "Ergebnis",   "Bemerkung"};

/// Every column set, no two alike.
inline std::vector<Variant> FullRow() {
    return {17,
            5,
            123,
            45,
            67,
            DateTime::Of(2010, 2, 14),
            "Jörg \"Jo\" Ähre",
            Int16{2},
            5,
            DateTime::Of(2010, 3, 4),
            DateTime::TimeOfDay(9, 15),
            DateTime::Of(2010, 3, 6),
            DateTime::TimeOfDay(15, 20),
            DateTime::Of(2010, 2, 20),
            9,
            Int16{250},
            4,
            "vegetarisch: \"Gemüse\" & Nüsse"};
}

inline std::vector<Variant> NullRow() { return std::vector<Variant>(18, Variant::Null()); }

/// @param assignments  all behind that of the key
inline std::string Update(const std::string& assignments, int key = 7) {
    const std::string written = std::to_string(key);
    return "UPDATE Sem_Teilnehmer_IT SET   TeilnehmerID  = " + written + ", " + assignments +
           " WHERE TeilnehmerID = " + written + "\r\n";
}

/// Those of the full row.
inline const std::string kFullAssignments =
    "SemTerminID = 17, "
    "MDNr = 5, "
    "ANNr =123, "
    "ErfDatum = convert(datetime,'14.02.2010',104) , "
    "ErfUser = 'Jörg \"Jo\" Ähre', "
    "Teilnahme = 2, "
    "Herkunft = 5, "
    "BeginnDatum = convert(datetime,'04.03.2010',104) , "
    "EndeDatum = convert(datetime,'06.03.2010',104) , "
    "BegUhrzeit = '30.12.1899 09:15', "
    "EndUhrzeit = '30.12.1899 15:20', "
    "storniertam = convert(datetime,'20.02.2010',104) , "
    "StornoGrund = 9, "
    "StornoKosten = 250, "
    "Ergebnis = 4, "
    "Bemerkung = 'vegetarisch: \"Gemüse\" & Nüsse', "
    "BWID = 45, "
    "LAID = 67";

/// Everything 0 or empty.
inline const std::string kZeroAssignments =
    "SemTerminID = 0, "
    "MDNr = 0, "
    "ANNr =NULL, "
    "ErfDatum = convert(datetime,'30.12.1899',104) , "
    "ErfUser = '', "
    "Teilnahme = 0, "
    "Herkunft = 0, "
    "BeginnDatum = convert(datetime,'30.12.1899',104) , "
    "EndeDatum = convert(datetime,'30.12.1899',104) , "
    "BegUhrzeit = '30.12.1899 00:00', "
    "EndUhrzeit = '30.12.1899 00:00', "
    "storniertam = convert(datetime,'30.12.1899',104) , "
    "StornoGrund = 0, "
    "StornoKosten = 0, "
    "Ergebnis = 0, "
    "Bemerkung = '', "
    "BWID = NULL, "
    "LAID = NULL";

inline std::string Insert(const std::string& values) {
    return "INSERT INTO Sem_Teilnehmer_IT ( "
           " TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme, "
           " Herkunft, BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund, "
           " StornoKosten, Ergebnis, Bemerkung, BWID, LAID ) "
           " SELECT ISNULL(max(TeilnehmerID),0)+1, " +
           values + " FROM Sem_Teilnehmer_IT\r\n";
}

/// Those of the full row.
inline const std::string kFullValues =
    "17,5, 123,"
    " convert(datetime,'14.02.2010',104), "
    "'Jörg \"Jo\" Ähre', "
    "2,5,"
    " convert(datetime,'04.03.2010',104), "
    " convert(datetime,'06.03.2010',104), "
    "'30.12.1899 09:15', "
    "'30.12.1899 15:20', "
    " convert(datetime,'20.02.2010',104), "
    "9, 250, 4, 'vegetarisch: \"Gemüse\" & Nüsse', "
    "45, 67";

/// Those of a new record for the date of the full row of termin_statements.h.
inline const std::string kNewValues =
    "17,0, NULL,"
    " convert(datetime,'02.03.2010',104), "
    "'Käthe Löffler', "
    "-1,3,"
    " convert(datetime,'03.03.2010',104), "
    " convert(datetime,'05.03.2010',104), "
    "'30.12.1899 08:30', "
    "'30.12.1899 16:45', "
    " NULL, "
    "0, 0, 1, '', "
    "NULL, NULL";

inline std::string Delete(int key) {
    return "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = " + std::to_string(key);
}

/// The list of a date.
inline std::string SelectKeys(int date, const std::string& filter = {}) {
    return "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = " + std::to_string(date) + filter;
}

// The surroundings of a new record.

/// The pinned moment.
inline const DateTime kNow = DateTime::Of(2010, 3, 2, 17, 45, 9);
inline const DateTime kToday = DateTime::Of(2010, 3, 2);
/// What the session defaults give for the entry user.
inline const Text kUser = "Käthe Löffler";

/// Pins the moment and gives the thread session defaults that write down what they are asked.
class ParticipantTest : public testing::Test {
  protected:
    ParticipantTest() {
        common::State() = {};
        GiveDefaults();
    }
    ~ParticipantTest() override {
        common::State() = {};
        SetComponents({});
    }

    void GiveDefaults() {
        SetComponents({.data_session = {}, .info_dispatcher = {}, .info_starter = {}, .session_defaults = [this] {
                           return New<Defaults>(asked_);
                       }});
    }

    std::vector<std::string> asked_;

  private:
    class Defaults final : public SessionDefaults {
      public:
        explicit Defaults(std::vector<std::string>& asked) : asked_(asked) { asked_.emplace_back("made"); }
        Text FirstText(Int32 index) override {
            asked_.push_back("first " + std::to_string(index));
            return kUser;
        }
        Text SecondText(Int32 index) override {
            asked_.push_back("second " + std::to_string(index));
            return "nicht gefragt";
        }

      private:
        std::vector<std::string>& asked_;
    };

    PinnedNow now_{kNow};
};

// Records.

/// A record as a list makes it, with key 0, on a session that answers nothing further.
inline Ref<clsTeilnehmer> Made() {
    LumoConnection::Script script;
    script.AdoConnection();
    script.OpenSelect(SelectKeys(0)).Rows({"TeilnehmerID"});
    script.AdoConnection();
    colTeilnehmer list;
    EXPECT_EQ(list.Init(0, script.Session()), true);
    auto record = list.Add(0);
    EXPECT_EQ(script.Report(), "");
    return record;
}

inline Ref<clsTeilnehmer> Bound(const Ref<DataSession>& session, Int32 key = 7) {
    auto record = Made();
    EXPECT_EQ(record->Init(key, session), true);
    return record;
}

/// The binding of a record and its load.
inline void ScriptRecord(LumoConnection::Script& script, const std::vector<std::vector<Variant>>& rows = {FullRow()},
                         int key = 7) {
    script.AdoConnection();
    script.OpenSelect(Select(key)).Rows(kColumns, rows);
}

/// A record of a date that is not stored yet.
inline Ref<clsTeilnehmer> NewOfDate(const Ref<DataSession>& session, Int32 date = 17) {
    auto record = Made();
    EXPECT_EQ(record->Init(0, session, date), true);
    return record;
}

/// The load of a date.
inline void ScriptDate(LumoConnection::Script& script,
                       const std::vector<std::vector<Variant>>& rows = {termin_statements::FullRow()}, int key = 17) {
    script.OpenSelect(termin_statements::Select(key)).Rows(termin_statements::kColumns, rows);
}

/// The binding of a record without a row, and its load, which asks the date of the field.
inline void ScriptNew(LumoConnection::Script& script, int key = 0) {
    ScriptRecord(script, {}, key);
    ScriptDate(script, {}, 0);
}

/// The list of the cost lines.
inline void ScriptCosts(LumoConnection::Script& script, int participant,
                        const std::vector<cost_statements::Values>& rows = {}) {
    script.OpenSelect(cost_statements::SelectLines(participant)).Rows(cost_statements::kColumns, rows);
    script.CloseRows();
}

/// A cost line whose row names no participant.
inline const cost_statements::Values kLineOfNobody = {Variant::Null(), 4, 3, Single{120.5}, 4110};

/// ExpectFailures for what is done with a bound record. The script and the steps begin behind the binding, which fails
/// as it always does.
inline void ExpectRecordFailures(const std::function<void(LumoConnection::Script&)>& write_script,
                                 const std::function<void(clsTeilnehmer&)>& run,
                                 std::vector<test_support::ExpectedFailure> expected, Int32 key = 7) {
    for (auto& failure : expected) ++failure.step;
    expected.push_back({1, test_support::kNotOk, 0, {}, {"Open of the connection"}});
    expected.push_back({1, test_support::kRaises, LumoConnection::ScriptError::kStepFailed, {kLabel + "Init"}});
    test_support::ExpectFailures(
        [&](LumoConnection::Script& script) {
            script.AdoConnection();
            write_script(script);
        },
        [&](const Ref<DataSession>& session) {
            const auto record = Made();
            if (record->Init(key, session)) run(*record);
        },
        expected);
}

// The properties that are columns.

struct Property {
    /// As it stands in the label of the get.
    std::string label;
    std::function<Variant(clsTeilnehmer&)> get;
    std::function<void(clsTeilnehmer&, const Variant&)> let;
    /// What it has in the full row.
    Variant full;
    /// Where the column is Null.
    Variant at_null;
    /// Where the row could not be read.
    Variant zero;
    /// As it stands in the label of the let.
    std::string label_of_let = label;
};

template <class T>
Property PropertyOf(const char* label, T (clsTeilnehmer::*get)(), void (clsTeilnehmer::*let)(T), T full, T at_null = {}) {
    return {label,
            [get](clsTeilnehmer& record) { return Variant((record.*get)()); },
            [let](clsTeilnehmer& record, const Variant& value) { (record.*let)(*value.If<T>()); },
            full,
            at_null,
            T{}};
}

/// Those whose let loads. That of the date has the label of the client.
inline std::vector<Property> Columns() {
    using T = clsTeilnehmer;
    auto date = PropertyOf<Int32>("SemTerminID", &T::SemTerminID, &T::SemTerminID, 17);
    date.label_of_let = "MDNr";
    return {
        date,
        PropertyOf<Int32>("MDNr", &T::MDNR, &T::MDNR, 5),
        PropertyOf<Int32>("ANNr", &T::ANNr, &T::ANNr, 123),
        PropertyOf<Int32>("BWID", &T::BWID, &T::BWID, 45),
        PropertyOf<DateTime>("ErfDatum", &T::ErfDatum, &T::ErfDatum, DateTime::Of(2010, 2, 14), kToday),
        PropertyOf<Text>("ErfUser", &T::ErfUser, &T::ErfUser, "Jörg \"Jo\" Ähre", kUser),
        PropertyOf<Int16>("Teilnahme", &T::Teilnahme, &T::Teilnahme, 2, -1),
        PropertyOf<Int32>("Herkunft", &T::Herkunft, &T::Herkunft, 5, 3),
        PropertyOf<DateTime>("BeginnDatum", &T::BeginnDatum, &T::BeginnDatum, DateTime::Of(2010, 3, 4)),
        PropertyOf<DateTime>("BegUhrzeit", &T::BegUhrzeit, &T::BegUhrzeit, DateTime::TimeOfDay(9, 15)),
        PropertyOf<DateTime>("EndeDatum", &T::EndeDatum, &T::EndeDatum, DateTime::Of(2010, 3, 6)),
        PropertyOf<DateTime>("EndUhrzeit", &T::EndUhrzeit, &T::EndUhrzeit, DateTime::TimeOfDay(15, 20)),
        PropertyOf<DateTime>("storniertam", &T::storniertam, &T::storniertam, DateTime::Of(2010, 2, 20)),
        PropertyOf<Int32>("StornoGrund", &T::StornoGrund, &T::StornoGrund, 9),
        PropertyOf<Int16>("StornoKosten", &T::StornoKosten, &T::StornoKosten, 250),
        PropertyOf<Int32>("Ergebnis", &T::Ergebnis, &T::Ergebnis, 4, 1),
        PropertyOf<Text>("Bemerkung", &T::Bemerkung, &T::Bemerkung, "vegetarisch: \"Gemüse\" & Nüsse"),
    };
}

/// The key of the temporary worker, whose let does not load.
inline Property LAID() { return PropertyOf<Int32>("LAID", &clsTeilnehmer::LAID, &clsTeilnehmer::LAID, 67); }

/// The columns and LAID.
inline std::vector<Property> All() {
    auto all = Columns();
    all.push_back(LAID());
    return all;
}

inline void ExpectValues(clsTeilnehmer& record, const std::vector<Property>& properties, Variant Property::*value) {
    for (const Property& property : properties) EXPECT_EQ(property.get(record), property.*value) << property.label;
}

inline void LetAll(clsTeilnehmer& record, Variant Property::*value) {
    for (const Property& property : All()) property.let(record, property.*value);
}

}  // namespace LumoSeminar::participant_statements
