#include <LumoSeminar/enrolment/clsTeilnehmer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/errors.h>
#include <test_support/check_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace check_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kLabel = "Orbiq.Form_Termin_TNAnmeldungNew.";
const Labels kLabelsOfADateLoad = {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsTermin.SemID --> GET"};

class EnrolmentCheckFailures : public participant_statements::ParticipantTest {};

// A session that notes which field is read when, and whose fields with this text cannot be read.

const Text kUnreadable = "(unreadable)";
constexpr Int32 kUnreadableNumber = 7100;
using Reads = std::shared_ptr<Labels>;

class WatchedRows final : public RecordSet {
  public:
    WatchedRows(Ref<RecordSet> rows, Text name, Reads reads)
        : rows_(std::move(rows)), name_(std::move(name)), reads_(std::move(reads)) {}
    Bool Eof() override { return rows_->Eof(); }
    Bool Bof() override { return rows_->Bof(); }
    void MoveNext() override { rows_->MoveNext(); }
    void Close() override { rows_->Close(); }

  protected:
    Int16 ColumnCount() override { return rows_->Fields().Count(); }
    Text ColumnName(Int16 position) override { return rows_->Fields().Name(position); }
    Int16 ColumnPosition(std::string_view name) override {
        for (Int16 i = 0; i < ColumnCount(); ++i) {
            if (ColumnName(i) == name) return i;
        }
        return -1;
    }
    Variant ColumnValue(Int16 position) override {
        reads_->push_back("read: " + name_);
        Variant value = rows_->Fields().Item(position).Value();
        if (value == Variant(kUnreadable)) Raise(kUnreadableNumber, "The field cannot be read.");
        return value;
    }

  private:
    Ref<RecordSet> rows_;
    Text name_;
    Reads reads_;
};

class WatchedSession final : public DataSession {
  public:
    WatchedSession(Ref<DataSession> session, Reads reads) : session_(std::move(session)), reads_(std::move(reads)) {}
    Bool Connect(const Text& text, const Text& user, const Text& password, Int32 timeout) override {
        return session_->Connect(text, user, password, timeout);
    }
    Ref<Connection> AdoConnection() override { return session_->AdoConnection(); }
    Ref<RecordSet> Recordset() override { return New<WatchedRows>(session_->Recordset(), last_, reads_); }
    Bool OpenSelect(const Text& sql) override {
        last_ = sql;
        reads_->push_back("sent: " + sql);
        return session_->OpenSelect(sql);
    }
    Bool ExecuteSql(const Text& sql) override { return session_->ExecuteSql(sql); }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        return session_->LookupValue(expression, table, where);
    }
    Text LastErrorText() override { return session_->LastErrorText(); }

  private:
    Ref<DataSession> session_;
    Reads reads_;
    Text last_;
};

TEST_F(EnrolmentCheckFailures, TheRequiredSkillsAreReadAgainBehindTheStatementOfTheHeldOnes) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptUpToTheSkills(script);
    ScriptCount(script, CountRequiredSkills(kSeminar), 2);
    ScriptCount(script, CountHeldSkills(5, 100), 2);
    const auto reads = std::make_shared<Labels>();
    const auto record = Record(New<WatchedSession>(script.Session(), reads));
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), true);
    EXPECT_EQ(script.Report(), "");
    const auto held = std::ranges::find(*reads, "sent: " + CountHeldSkills(5, 100));
    ASSERT_NE(held, reads->end());
    EXPECT_EQ(std::count(held, reads->end(), "read: " + CountRequiredSkills(kSeminar)), 1);
    EXPECT_EQ(std::count(held, reads->end(), "read: " + CountHeldSkills(5, 100)), 1);
}

// What is refused

struct Refusal {
    int step;
    LumoConnection::FailureMode mode;
    Findings findings;
};

/// What a run whose one step fails finds until it ends.
void ExpectFindings(const std::function<void(Script&)>& write_script, const std::vector<Refusal>& expected) {
    for (const Refusal& refusal : expected) {
        Script script;
        write_script(script);
        script.FailAt(refusal.step, refusal.mode);
        SCOPED_TRACE(script.StepText(refusal.step));
        auto record = Record(script.Session());
        const auto error = RaisedBy([&] {
            EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), refusal.findings.empty());
            return 0;
        });
        EXPECT_EQ(error.has_value(), refusal.mode == kRaises);
        EXPECT_EQ(FindingsOf(*record), refusal.findings);
        ExpectMet(script, record);
    }
}

/// Steps 1 and 2 make the record. Each check has a finding.
void ScriptAllFindings(Script& script) {
    ScriptRecord(script, kEmployee);
    ScriptDate(script);                                                     // 3
    ScriptOpenDates(script, OfEmployee(100, 5), {{"A", "B"}, {"C", "D"}});  // 4, 5
    ScriptEnrolled(script, EnrolledEmployee(5, 100), {{41}});               // 6, 7
    ScriptOverlaps(script, OfEmployee(100, 5), {{"E", "F"}});               // 8, 9
    ScriptTakenBefore(script, OfEmployee(100, 5), {{"G", "H"}});            // 10, 11
    ScriptCount(script, CountRequiredSeminars(kSeminar), 1);                // 12
    ScriptRequiredTaken(script, RequiredOfEmployee(100), {{5, 100}});       // 13, 14
}

/// Nothing is found before the skills, which are missing.
void ScriptMissingSkills(Script& script) {
    ScriptRecord(script, kEmployee);
    ScriptDate(script);                                       // 3
    ScriptOpenDates(script, OfEmployee(100, 5));              // 4
    ScriptAlways(script);                                     // 5 to 8
    ScriptTakenBefore(script, OfEmployee(100, 5));            // 9
    ScriptCount(script, CountRequiredSeminars(kSeminar), 1);  // 10
    ScriptRequiredTaken(script, RequiredOfEmployee(100));     // 11, 12
    ScriptCount(script, CountRequiredSkills(kSeminar), 2);    // 13
    ScriptCount(script, CountHeldSkills(5, 100), 1);          // 14
}

TEST_F(EnrolmentCheckFailures, ARefusedStatementIsSilentAndFindsNothing) {
    const std::pair<Int32, Text> open_1(300000003, "A - B");
    const std::pair<Int32, Text> open_2(300000003, "C - D");
    const std::pair<Int32, Text> enrolled(300000001, "");
    const std::pair<Int32, Text> overlap(300000002, "E - F");
    const std::pair<Int32, Text> taken(300000004, "G - H");
    const std::pair<Int32, Text> missing(300000005, "");
    ExpectFindings(ScriptAllFindings, {{4, kNotOk, {enrolled, overlap, taken, missing}},
                                       {6, kNotOk, {open_1, open_2, overlap, taken, missing}},
                                       {8, kNotOk, {open_1, open_2, enrolled, taken, missing}},
                                       {10, kNotOk, {open_1, open_2, enrolled, overlap, missing}},
                                       {12, kNotOk, {open_1, open_2, enrolled, overlap, taken}},
                                       {13, kNotOk, {open_1, open_2, enrolled, overlap, taken}}});
    ExpectFindings(ScriptMissingSkills,
                   {{10, kNotOk, {}}, {11, kNotOk, {}}, {13, kNotOk, {}}, {14, kNotOk, {}}, {4, kNotOk, {missing}}});
}

TEST_F(EnrolmentCheckFailures, AfterAnErrorTheListHoldsTheFindingsSoFar) {
    const std::pair<Int32, Text> open_1(300000003, "A - B");
    const std::pair<Int32, Text> open_2(300000003, "C - D");
    const std::pair<Int32, Text> enrolled(300000001, "");
    const std::pair<Int32, Text> overlap(300000002, "E - F");
    const std::pair<Int32, Text> taken(300000004, "G - H");
    const std::pair<Int32, Text> missing(300000005, "");
    ExpectFindings(ScriptAllFindings, {{3, kRaises, {}},
                                       {4, kRaises, {}},
                                       {5, kRaises, {open_1, open_2}},
                                       {6, kRaises, {open_1, open_2}},
                                       {7, kRaises, {open_1, open_2, enrolled}},
                                       {8, kRaises, {open_1, open_2, enrolled}},
                                       {9, kRaises, {open_1, open_2, enrolled, overlap}},
                                       {10, kRaises, {open_1, open_2, enrolled, overlap}},
                                       {11, kRaises, {open_1, open_2, enrolled, overlap, taken}},
                                       {12, kRaises, {open_1, open_2, enrolled, overlap, taken}},
                                       {13, kRaises, {open_1, open_2, enrolled, overlap, taken}},
                                       {14, kRaises, {open_1, open_2, enrolled, overlap, taken, missing}}});
    ExpectFindings(ScriptMissingSkills, {{12, kRaises, {}}, {13, kRaises, {}}, {14, kRaises, {}}});
}

// Each step failing

std::vector<test_support::ExpectedFailure> WithThoseOfTheRecord(std::vector<test_support::ExpectedFailure> failures) {
    const std::string label = " LumoSeminar062.clsTeilnehmer.";
    failures.push_back({1, kNotOk, 0, {}, {"Open of the connection"}});
    failures.push_back({1, kRaises, 7001, {label + "Init"}});
    failures.push_back({2, kRaises, 7001, {label + "PropertiesInit", label + "MDNr -> Property LET", label + "Init"}});
    return failures;
}

void CheckAll(const Ref<DataSession>& session) {
    if (const auto record = Record(session)) (void)record->CheckTeilnehmerAnmeldung();
}

/// The calls of a script from one step to another, as they stand in its record.
Labels Steps(const std::function<void(Script&)>& write_script, int from, int to) {
    Script script;
    write_script(script);
    Labels texts;
    for (int step = from; step <= to; ++step) texts.push_back(script.StepText(step));
    return texts;
}

Labels Joined(std::initializer_list<Labels> parts) {
    Labels all;
    for (const Labels& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string Sent(const std::string& sql) { return "OpenSelect: " + sql; }

TEST_F(EnrolmentCheckFailures, FailAsDocumentedAtEachStep) {
    const auto steps = [](int from, int to = 14) { return Steps(ScriptAllFindings, from, to); };
    const std::string date = Sent(termin_statements::Select(kDate));
    const std::string nobody = OfEmployee(0, 0);
    ExpectFailures(
        ScriptAllFindings, CheckAll,
        WithThoseOfTheRecord({// A record that could not be read is one of nobody in that date.
                              {2,
                               kNotOk,
                               0,
                               {},
                               {date, Sent(OpenDates(kSeminar, nobody)), Sent(Enrolled(kDate)),
                                Sent(Overlaps(kDate, nobody)), Sent(TakenBefore(kSeminar, nobody)),
                                Sent(CountRequiredSeminars(kSeminar)), Sent(RequiredTaken(kSeminar, 0))}},
                              // A date that could not be read has no seminar and is asked for again by each check.
                              {3, kNotOk, 0, {}, Joined({steps(6, 9), {date, date, Sent(CountRequiredSeminars(0))}})},
                              {4, kNotOk, 0, {}, steps(6)},
                              {6, kNotOk, 0, {}, steps(8)},
                              {8, kNotOk, 0, {}, steps(10)},
                              {10, kNotOk, 0, {}, steps(12)},
                              {12, kNotOk},
                              {13, kNotOk},
                              {3, kRaises, 7001, kLabelsOfADateLoad},
                              {4, kRaises, 7001, {}},
                              {5, kRaises, 7001, {}},
                              {6, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckAnmeldungStorno"}},
                              {7, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckAnmeldungStorno"}},
                              {8, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum"}},
                              {9, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum"}},
                              {10, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckTeilnahme"}},
                              {11, kRaises, 7001, {"Orbiq.Form_Termin_TNAnmeldungNew.CheckTeilnahme"}},
                              {12, kRaises, 7001, {}},
                              {13, kRaises, 7001, {}},
                              {14, kRaises, 7001, {}}}));
}

TEST_F(EnrolmentCheckFailures, FailAsDocumentedAtEachStepOfTheSkills) {
    const auto write_script = [](Script& script) {
        ScriptRecord(script, kEmployee);                        // 1, 2
        ScriptUpToTheSkills(script);                            // 3 to 10
        ScriptCount(script, CountRequiredSkills(kSeminar), 2);  // 11
        ScriptCount(script, CountHeldSkills(5, 100), 1);        // 12
    };
    const auto steps = [&](int from, int to = 12) { return Steps(write_script, from, to); };
    const std::string date = Sent(termin_statements::Select(kDate));
    ExpectFailures(
        write_script,
        [](const Ref<DataSession>& session) {
            if (const auto record = Record(session)) (void)record->CheckTeilnehmerAnmeldung(false, false, true);
        },
        WithThoseOfTheRecord({{2,
                               kNotOk,
                               0,
                               {},
                               {Sent(Enrolled(kDate)), Sent(Overlaps(kDate, OfEmployee(0, 0))), date,
                                Sent(CountRequiredSeminars(kSeminar)), Sent(RequiredTaken(kSeminar, 0))}},
                              {3, kNotOk, 0, {}, steps(5)},
                              {5, kNotOk, 0, {}, steps(7)},
                              {7, kNotOk, 0, {}, {Sent(CountRequiredSeminars(0))}},
                              {8, kNotOk},
                              {9, kNotOk},
                              {11, kNotOk},
                              {12, kNotOk},
                              {3, kRaises, 7001, {kLabel + "CheckAnmeldungStorno"}},
                              {4, kRaises, 7001, {kLabel + "CheckAnmeldungStorno"}},
                              {5, kRaises, 7001, {kLabel + "CheckZeitraum"}},
                              {6, kRaises, 7001, {kLabel + "CheckZeitraum"}},
                              {7, kRaises, 7001, kLabelsOfADateLoad},
                              {8, kRaises, 7001, {}},
                              {9, kRaises, 7001, {}},
                              {10, kRaises, 7001, {}},
                              {11, kRaises, 7001, {}},
                              {12, kRaises, 7001, {}}}));
}

TEST_F(EnrolmentCheckFailures, AnErrorOfTheDatesLoadCarriesTheLabelOfTheOneCheckThatHasAHandler) {
    const struct {
        bool open_dates;
        bool taken_before;
        bool prerequisite;
        Labels more;
    } cases[] = {{true, true, true, {}}, {false, true, true, {kLabel + "CheckTeilnahme"}}, {false, false, true, {}}};
    for (const auto& c : cases) {
        Script script;
        ScriptRecord(script, kEmployee);
        if (!c.open_dates) ScriptAlways(script);
        script.OpenSelect(termin_statements::Select(kDate)).Raises(-2147467259, "Verbindung getrennt", "Treiber");
        auto record = Record(script.Session());
        const auto error =
            RaisedBy([&] { return record->CheckTeilnehmerAnmeldung(c.open_dates, c.taken_before, c.prerequisite); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -2147467259);
        EXPECT_EQ(error->Source(), "Treiber");
        EXPECT_EQ(ReadDescription(error->Description()).text, "Verbindung getrennt");
        EXPECT_EQ(LabelsOf(error), Joined({kLabelsOfADateLoad, c.more}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentCheckFailures, AFieldThatCannotBeReadRaisesWithTheLabelOfTheCheckAloneAndTheRowsBeforeItAreFound) {
    const RowValues rows = {{"A", "B"}, {"C", kUnreadable}};
    const struct {
        int failing;
        Labels labels;
        Int32 number;
    } cases[] = {{0, {}, 300000003}, {1, {kLabel + "CheckZeitraum"}, 300000002}, {2, {kLabel + "CheckTeilnahme"}, 300000004}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script);
        if (c.failing == 0) {
            script.OpenSelect(OpenDates(kSeminar, OfEmployee(100, 5))).Rows({"Code", "Titel"}, rows);
        } else {
            ScriptOpenDates(script, OfEmployee(100, 5));
            ScriptEnrolled(script, EnrolledEmployee(5, 100));
        }
        if (c.failing == 1) script.OpenSelect(Overlaps(kDate, OfEmployee(100, 5))).Rows({"Code", "Titel"}, rows);
        if (c.failing == 2) {
            ScriptOverlaps(script, OfEmployee(100, 5));
            script.OpenSelect(TakenBefore(kSeminar, OfEmployee(100, 5))).Rows({"Code", "Titel"}, rows);
        }
        auto record = Record(New<WatchedSession>(script.Session(), std::make_shared<Labels>()));
        EXPECT_RAISES_UNDER(kUnreadableNumber, c.labels, record->CheckTeilnehmerAnmeldung());
        EXPECT_EQ(FindingsOf(*record), (Findings{{c.number, "A - B"}}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentCheckFailures, ACountThatCannotBeReadRaisesWithNothingAdded) {
    for (int failing = 0; failing < 3; ++failing) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptAlways(script);
        ScriptDate(script);
        ScriptCount(script, CountRequiredSeminars(kSeminar), failing == 0 ? Variant(kUnreadable) : Variant(1));
        if (failing > 0) {
            ScriptRequiredTaken(script, RequiredOfEmployee(100));
            ScriptCount(script, CountRequiredSkills(kSeminar), failing == 1 ? Variant(kUnreadable) : Variant(1));
        }
        if (failing == 2) ScriptCount(script, CountHeldSkills(5, 100), kUnreadable);
        auto record = Record(New<WatchedSession>(script.Session(), std::make_shared<Labels>()));
        const auto error = RaisedBy([&] { return record->CheckTeilnehmerAnmeldung(false, false, true); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), kUnreadableNumber);
        EXPECT_EQ(error->Description(), "The field cannot be read.");
        EXPECT_EQ(FindingsOf(*record), Findings{});
        ExpectMet(script, record);
    }
}

}  // namespace
}  // namespace LumoSeminar
