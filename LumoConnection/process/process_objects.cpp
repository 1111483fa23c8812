#include <LumoConnection/process/process_objects.h>

#include <utility>

#include <LumoConnection/process/process_session.h>
#include <LumoConnection/process/subject_process.h>

namespace LumoConnection {
namespace {

class ProcessStarter final : public InfoStarter {
  public:
    explicit ProcessStarter(Login login) : session_(std::move(login)) {}

    void ConnectionString(const Text& value) override { session_.ConnectTo(value); }
    Variant Verbinden(Int32 /*kind*/, const Text& first, const Text& second) override {
        session_.LogIn(first, second);
        return {};
    }

    Variant Starten(Int32 module_number, Int32 key, Int32 p_lngUserID) override {
        SubjectProcess(session_.Get(), {.module = module_number, .key = key}).Start(p_lngUserID);
        return {};
    }

  private:
    ProcessSession session_;
};

class ProcessDispatcher final : public InfoDispatcher {
  public:
    explicit ProcessDispatcher(Login login) : session_(std::move(login)) {}

    void ConnectionString(const Text& value) override { session_.ConnectTo(value); }
    Variant Verbinden(Int32 /*kind*/, const Text& first, const Text& second) override {
        session_.LogIn(first, second);
        return {};
    }

    void Initialisieren(Int32 module_number, Int32 key, Int32 client, Int32 person) override {
        subject_ = {module_number, key, client, person};
    }
    Int32 ModulNr() override { return subject_.module; }
    Int32 SchluesselID() override { return subject_.key; }

    void Zustimmen(Int32 p_lngUserID, const Text& remark) override { Process().Approve(p_lngUserID, remark); }
    void Ablehnen(Int32 p_lngUserID, const Text& remark) override { Process().Reject(p_lngUserID, remark); }
    void Loeschen() override { Process().Drop(); }

    Bool BenutzerHatRechte(Int32 p_lngUserID) override { return Process().MayDecide(p_lngUserID); }
    Text ProzessStatusText() override { return Process().StateText(); }
    Int32 ProzessStatus() override {
        const auto state = Process().CurrentState();
        if (subject_.module == ProcessSubject::kWaitList && state == SubjectProcess::State::kApproved) {
            return ProcessStatus::kNone;
        }
        return static_cast<Int32>(state);
    }

  private:
    SubjectProcess Process() { return {session_.Get(), subject_}; }

    ProcessSession session_;
    ProcessSubject subject_;
};

}  // namespace

Ref<InfoStarter> MakeProcessStarter(Login login) { return New<ProcessStarter>(std::move(login)); }
Ref<InfoDispatcher> MakeProcessDispatcher(Login login) { return New<ProcessDispatcher>(std::move(login)); }

}  // namespace LumoConnection
