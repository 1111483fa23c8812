#include <LumoConnection/process/subject_process.h>

#include <string>

#include <LumoConnection/process/process_objects.h>

namespace LumoConnection {
namespace {

Ref<RecordSet> Select(DataSession& session, const Text& sql) {
    if (!session.OpenSelect(sql)) RaiseRefused(session.LastErrorText());
    return session.Recordset();
}

Int32 NumberAt(RecordSet& rows, Int16 position) {
    const Variant value = rows.Fields().Item(position).Value();
    return value.IsNull() ? 0 : To<Int32>(value);
}

Text TextAt(RecordSet& rows, Int16 position) {
    const Variant value = rows.Fields().Item(position).Value();
    return value.IsNull() ? Text() : To<Text>(value);
}

Text NumberOrNull(Int32 number) { return number == 0 ? "NULL" : std::to_string(number); }

Text Quoted(const Text& text) {
    Text quoted = "N'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

Text TextOrNull(const Text& text) { return text.empty() ? "NULL" : Quoted(text); }

Text NameOf(const ProcessSubject& subject) {
    const Text key = std::to_string(subject.key);
    if (subject.module == ProcessSubject::kTrainingNeeds) return "training need " + key;
    if (subject.module == ProcessSubject::kWaitList) return "wait-list entry " + key;
    return "subject " + key + " of module " + std::to_string(subject.module);
}

Text WhereSubject(const ProcessSubject& subject) {
    return " WHERE ModulNr = " + std::to_string(subject.module) + " AND SchluesselID = " + std::to_string(subject.key);
}

[[noreturn]] void RefuseDecision(Int32 user, const Text& why) {
    Raise(ProcessError::kDecisionRefused, "User " + std::to_string(user) + why);
}

// The stages of a module in their order, at least one.
class Stages {
  public:
    Stages(DataSession& session, Int32 module) {
        const auto rows = Select(session, "SELECT Stufe, Bezeichnung FROM Sem_ProzessStufe_IT WHERE ModulNr = " +
                                              std::to_string(module) + " ORDER BY Stufe");
        for (; !rows->Eof(); rows->MoveNext()) stages_.push_back({NumberAt(*rows, 0), TextAt(*rows, 1)});
        if (stages_.empty()) stages_ = {{1, "Vorgesetzte"}, {2, "Weiterbildung"}};
    }

    Int32 First() const { return stages_.front().number; }
    Int32 Last() const { return stages_.back().number; }

    // 0 behind the last one.
    Int32 After(Int32 number) const {
        for (const Stage& stage : stages_) {
            if (stage.number > number) return stage.number;
        }
        return 0;
    }

    // Empty for a stage that has been taken out, too.
    Text Name(Int32 number) const {
        for (const Stage& stage : stages_) {
            if (stage.number == number) return stage.name;
        }
        return {};
    }

    // "Stufe 1 von 2", the place counted, whatever the numbers are.
    Text Place(Int32 number) const {
        std::size_t place = 0;
        for (const Stage& stage : stages_) place += stage.number <= number ? 1 : 0;
        return "Stufe " + std::to_string(place) + " von " + std::to_string(stages_.size());
    }

  private:
    struct Stage {
        Int32 number;
        Text name;
    };
    std::vector<Stage> stages_;
};

}  // namespace

void SubjectProcess::Start(Int32 user) {
    if (subject_.key == 0) return;
    const Step start = StartAt(Stages(*session_, subject_.module).First(), user);
    FindPerson();
    while (!Append(Read(), {start})) {
    }
}

void SubjectProcess::Drop() {
    for (Position last = Read(); last.state != State::kNone; last = Read()) {
        if (Append(last, {{.kind = "Löschung", .state = State::kDropped}})) return;
    }
}

void SubjectProcess::Decide(bool approve, Int32 user, const Text& remark) {
    if (subject_.key == 0) RefuseDecision(user, " has nothing to decide on: there is no " + NameOf(subject_) + ".");
    const Position last = Read();
    if (last.state == State::kApproved || last.state == State::kRejected) {
        if (approve != (last.state == State::kApproved)) {
            const char* outcome = approve ? " is rejected already." : " is approved already.";
            RefuseDecision(user, " may not decide: " + NameOf(subject_) + outcome);
        }
        // What was to follow from the decision may have failed: whoever decides in such processes can go on with it.
        if (!HasRight(user)) RefuseDecision(user, " may not decide on " + NameOf(subject_) + " at any stage.");
        return;
    }
    if (last.state == State::kRunning && subject_.person == 0) {
        subject_.client = last.client;
        subject_.person = last.person;
    }

    const Stages stages(*session_, subject_.module);
    const Int32 stage = last.state == State::kRunning ? last.stage : stages.Last();
    if (!HasRight(user, stage)) {
        const Text name = stages.Name(stage);
        RefuseDecision(user, " may not decide on " + NameOf(subject_) + " at stage " + std::to_string(stage) +
                                 (name.empty() ? "." : " (" + name + ")."));
    }

    Step decision{.kind = "Ablehnung", .stage = stage, .user = user, .remark = remark, .state = State::kRejected};
    if (approve) {
        decision.kind = "Zustimmung";
        decision.next_stage = stages.After(stage);
        decision.state = decision.next_stage == 0 ? State::kApproved : State::kRunning;
    }
    std::vector<Step> steps;
    if (last.state == State::kNone) steps.push_back(StartAt(stage, user));
    steps.push_back(std::move(decision));
    if (!Append(last, steps)) {
        RefuseDecision(user, " was too late: " + NameOf(subject_) + " has been decided by somebody else meanwhile.");
    }
}

bool SubjectProcess::MayDecide(Int32 user) {
    if (subject_.key == 0) return false;
    const Position last = Read();
    if (last.state == State::kRunning) return HasRight(user, last.stage);
    return last.state == State::kNone && HasRight(user, Stages(*session_, subject_.module).Last());
}

Text SubjectProcess::StateText() {
    const Position last = Read();
    switch (last.state) {
        case State::kRunning: {
            const Stages stages(*session_, subject_.module);
            const Text name = stages.Name(last.stage);
            return stages.Place(last.stage) + (name.empty() ? "" : ": Entscheidung durch " + name);
        }
        case State::kApproved:
            return "Genehmigt";
        case State::kRejected:
            return "Abgelehnt";
        default:
            return "Kein Vorgang";
    }
}

SubjectProcess::Position SubjectProcess::Read() {
    const auto rows =
        Select(*session_, "SELECT TOP 1 SchrittNr, Status, NaechsteStufe, MDNr, PersonID FROM Sem_ProzessSchritt_IT" +
                              WhereSubject(subject_) + " ORDER BY SchrittNr DESC");
    if (rows->Eof()) return {};
    Position last{NumberAt(*rows, 0), State{NumberAt(*rows, 1)}, NumberAt(*rows, 2), NumberAt(*rows, 3), NumberAt(*rows, 4)};
    const bool of_another =
        last.person != 0 && subject_.person != 0 && (last.person != subject_.person || last.client != subject_.client);
    if (last.state == State::kDropped || of_another) last.state = State::kNone;
    return last;
}

bool SubjectProcess::HasRight(Int32 user, std::optional<Int32> stage) {
    return !Select(*session_,
                   "SELECT UserID FROM Sem_ProzessRecht_IT WHERE ModulNr = " + std::to_string(subject_.module) +
                       (stage ? " AND Stufe = " + std::to_string(*stage) : "") + " AND UserID = " + std::to_string(user))
                ->Eof();
}

void SubjectProcess::FindPerson() {
    const Text key = std::to_string(subject_.key);
    Text sql;
    if (subject_.module == ProcessSubject::kTrainingNeeds) {
        sql = "SELECT MDNr, ANNr FROM AN_WBBedarf_IT WHERE WBID = " + key;
    } else if (subject_.module == ProcessSubject::kWaitList) {
        sql = "SELECT MDNr, TNID FROM Sem_Warteliste_IT WHERE SemWarteListeID = " + key;
    }
    // A database that has the tables of the processes alone tells nobody.
    if (sql.empty() || !session_->OpenSelect(sql)) return;
    const auto rows = session_->Recordset();
    if (rows->Eof()) return;
    subject_.client = NumberAt(*rows, 0);
    subject_.person = NumberAt(*rows, 1);
}

SubjectProcess::Step SubjectProcess::StartAt(Int32 stage, Int32 user) {
    return {.kind = "Start", .stage = stage, .user = user, .state = State::kRunning, .next_stage = stage};
}

bool SubjectProcess::Append(const Position& last, const std::vector<Step>& steps) {
    Text sql =
        "INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, "
        "Status, NaechsteStufe, MDNr, PersonID) VALUES ";
    Int32 number = last.step;
    for (const Step& step : steps) {
        if (number != last.step) sql += ", ";
        number = Add(number, 1);
        sql += "(" + std::to_string(subject_.module) + ", " + std::to_string(subject_.key) + ", " +
               std::to_string(number) + ", " + Quoted(step.kind) + ", " + NumberOrNull(step.stage) + ", " +
               NumberOrNull(step.user) + ", GetDate(), " + TextOrNull(step.remark) + ", " +
               std::to_string(static_cast<Int32>(step.state)) + ", " + NumberOrNull(step.next_stage) + ", " +
               NumberOrNull(subject_.client) + ", " + NumberOrNull(subject_.person) + ")";
    }
    if (session_->ExecuteSql(sql)) return true;
    const Text refusal = session_->LastErrorText();
    if (Read().step == last.step) RaiseRefused(refusal);
    return false;
}

}  // namespace LumoConnection
