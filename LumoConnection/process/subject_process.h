#pragma once

#include <optional>
#include <utility>
#include <vector>

#include <LumoSeminar/frame/data_session.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// What a process is about.
struct ProcessSubject {
    static constexpr Int32 kTrainingNeeds = 7;
    static constexpr Int32 kWaitList = 8;

    Int32 module = 0;
    Int32 key = 0;
    /// 0 where they are not known.
    Int32 client = 0;
    Int32 person = 0;
};

/// The process of a subject, as its steps in the database tell it. Each call reads them anew.
class SubjectProcess {
  public:
    enum class State : Int32 { kNone = 0, kRunning = 1, kApproved = 2, kRejected = 3, kDropped = 4 };

    SubjectProcess(Ref<DataSession> session, ProcessSubject subject)
        : session_(std::move(session)), subject_(subject) {}

    void Start(Int32 user);
    void Approve(Int32 user, const Text& remark) { Decide(true, user, remark); }
    void Reject(Int32 user, const Text& remark) { Decide(false, user, remark); }
    void Drop();

    bool MayDecide(Int32 user);
    /// Never kDropped: a dropped process is none.
    State CurrentState() { return Read().state; }
    Text StateText();

  private:
    /// Behind the last step; the stage is the one that decides next.
    struct Position {
        Int32 step = 0;
        State state = State::kNone;
        Int32 stage = 0;
        // whom the last step names; 0 for nobody
        Int32 client = 0;
        Int32 person = 0;
    };
    struct Step {
        Text kind = {};
        // 0 for none, as in user and next stage
        Int32 stage = 0;
        Int32 user = 0;
        Text remark = {};
        State state = State::kNone;
        Int32 next_stage = 0;
    };

    Position Read();
    void Decide(bool approve, Int32 user, const Text& remark);
    /// At that stage, otherwise at any of the module.
    bool HasRight(Int32 user, std::optional<Int32> stage = {});
    /// Takes client and person of the subject from its own row; leaves them where there is none.
    void FindPerson();
    static Step StartAt(Int32 stage, Int32 user);
    /// All steps in one statement. False where somebody else has taken the number of the first one; then nothing was
    /// written.
    bool Append(const Position& last, const std::vector<Step>& steps);

    Ref<DataSession> session_;
    ProcessSubject subject_;
};

}  // namespace LumoConnection
