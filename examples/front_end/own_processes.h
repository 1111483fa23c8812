#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include <iostream>
#include <map>

namespace front_end {

using namespace LumoSeminar;

/// The open approvals of each process, by module and key. Here your workflow system comes in.
class OwnProcesses final : public Object {
  public:
    static constexpr Int32 kApprovals = 2;

    Int32& Open(Int32 module_number, Int32 key) { return open_[{module_number, key}]; }

  private:
    std::map<std::pair<Int32, Int32>, Int32> open_;
};

/// Opens processes: module 7 with the key of a training need, module 8 with that of a wait-list entry. The library makes
/// a new one each time and connects it: by ConnectionString where the front end has set one, otherwise by Verbinden.
class OwnStarter final : public InfoStarter {
  public:
    explicit OwnStarter(Ref<OwnProcesses> processes) : processes_(std::move(processes)) {}

    void ConnectionString(const Text&) override {}
    Variant Verbinden(Int32, const Text&, const Text&) override { return {}; }
    Variant Starten(Int32 module_number, Int32 key, Int32 user) override {
        std::cout << "    starter: user " << user << " opens " << module_number << '/' << key << '\n';
        processes_->Open(module_number, key) = OwnProcesses::kApprovals;
        return {};
    }

  private:
    Ref<OwnProcesses> processes_;
};

/// Works on an open process. The library keeps the last one of the thread and asks it for module and key: while they
/// are the right ones it is used again.
class OwnDispatcher final : public InfoDispatcher {
  public:
    explicit OwnDispatcher(Ref<OwnProcesses> processes) : processes_(std::move(processes)) {}

    void ConnectionString(const Text&) override {}
    Variant Verbinden(Int32, const Text&, const Text&) override { return {}; }
    void Initialisieren(Int32 module_number, Int32 key, Int32, Int32) override {
        module_number_ = module_number;
        key_ = key;
        std::cout << "    dispatcher: bound to " << module_number << '/' << key << '\n';
    }
    void Zustimmen(Int32 user, const Text&) override {
        --processes_->Open(module_number_, key_);
        std::cout << "    dispatcher: user " << user << " approves, " << ProzessStatusText() << '\n';
    }
    void Ablehnen(Int32, const Text&) override { Loeschen(); }
    void Loeschen() override { processes_->Open(module_number_, key_) = 0; }
    Bool BenutzerHatRechte(Int32) override { return true; }
    Text ProzessStatusText() override { return DefaultText(ProzessStatus()) + " pending"; }
    /// Of a wait-list entry 0 says that nothing is pending: then the library makes the participant. (Of a training need
    /// 2 says approved and 3 rejected.)
    Int32 ProzessStatus() override { return processes_->Open(module_number_, key_); }
    Int32 ModulNr() override { return module_number_; }
    Int32 SchluesselID() override { return key_; }

  private:
    Ref<OwnProcesses> processes_;
    Int32 module_number_ = 0;
    Int32 key_ = 0;
};

/// Who works here: the two texts of Verbinden. The first one is also written as the user who entered a participant.
class OwnDefaults final : public SessionDefaults {
  public:
    Text FirstText(Int32) override { return "portal"; }
    Text SecondText(Int32) override { return "secret"; }
};

}  // namespace front_end
