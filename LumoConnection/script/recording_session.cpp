#include <LumoConnection/script/recording_session.h>

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

#include <LumoConnection/script/process_call.h>
#include <LumoConnection/script/script_state.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection {

using detail::CallKind;
using detail::Outcome;
using detail::ScriptState;
using detail::ScriptStepData;

class RecordingSession::Record {
  public:
    ScriptStepData& Append(CallKind kind, std::vector<Text> arguments = {}) {
        unchanged_states_ = 0;
        return state_.Append(kind, std::move(arguments));
    }

    // Runs the call of a step; what it raises is the answer.
    template <class Call>
    static auto Run(ScriptStepData& step, Call&& call) -> decltype(call()) {
        const auto raises = [&](Int32 number, const std::string& description, const std::string& source) {
            step.outcome = Outcome::kRaises;
            step.error_number = number;
            step.failure = description;
            step.error_source = source;
        };
        try {
            return call();
        } catch (const Error& error) {
            raises(error.Number(), error.Description(), error.Source());
            throw;
        } catch (const std::bad_alloc& error) {
            raises(ErrorNumber::kOutOfMemory, error.what(), "");
            throw;
        } catch (const std::exception& error) {
            raises(ErrorNumber::kForeignException, error.what(), "");
            throw;
        }
    }

    void Opened(ScriptStepData& step, Int32 state) { step.state = known_state_ = state; }

    // A State is a step where it is another one than the script would tell of itself. A script takes a step for the
    // first State that comes, so those before it become steps as well.
    void StateTold(Int32 state) {
        if (state == known_state_) {
            ++unchanged_states_;
            return;
        }
        for (int i = std::exchange(unchanged_states_, 0); i > 0; --i)
            state_.Append(CallKind::kConnectionState, {}).state = known_state_;
        state_.Append(CallKind::kConnectionState, {}).state = known_state_ = state;
    }

    const ScriptState& Steps() const { return state_; }

  private:
    ScriptState state_;
    Int32 known_state_ = Connection::kOpen;
    int unchanged_states_ = 0;
};

namespace {

using SharedRecord = std::shared_ptr<RecordingSession::Record>;

std::vector<std::string> NamesOf(RecordSet& rows) {
    std::vector<std::string> names;
    for (Int16 i = 0; i < rows.Fields().Count(); ++i) names.push_back(rows.Fields().Name(i));
    return names;
}

// All rows of another row set, whose Close is a step.
class RecordedRows final : public StoredRows {
  public:
    RecordedRows(SharedRecord record, ScriptStepData& step, Ref<RecordSet> rows)
        : StoredRows(NamesOf(*rows)), record_(std::move(record)), step_(step.number), rows_(std::move(rows)) {
        step.columns = NamesOf(*rows_);
        if (step.columns.empty()) return;
        for (; !rows_->Eof(); rows_->MoveNext()) {
            auto& row = step.rows.emplace_back();
            for (Int16 i = 0; i < rows_->Fields().Count(); ++i) {
                row.push_back(rows_->Fields().Item(i).Value());
                Append(row.back());
            }
        }
    }

    void Close() override {
        auto& step = record_->Append(CallKind::kCloseRows, {std::to_string(step_)});
        record_->Run(step, [&] { rows_->Close(); });
        StoredRows::Close();
    }

  private:
    SharedRecord record_;
    int step_;
    Ref<RecordSet> rows_;
};

class RecordingConnection final : public Connection {
  public:
    RecordingConnection(SharedRecord record, Ref<Connection> connection)
        : record_(std::move(record)), connection_(std::move(connection)) {}

    Int32 State() override {
        const Int32 state = connection_->State();
        record_->StateTold(state);
        return state;
    }

    void Open(const Text& connection_text, const Text& user, const Text& password, Int32 options) override {
        auto& step = record_->Append(CallKind::kConnectionOpen, {connection_text, user, password, std::to_string(options)});
        record_->Run(step, [&] {
            connection_->Open(connection_text, user, password, options);
            record_->Opened(step, connection_->State());
        });
    }

    Ref<RecordSet> Execute(const Text& sql, Int32 options) override {
        auto& step = record_->Append(CallKind::kConnectionExecute, {sql, std::to_string(options)});
        return record_->Run(step, [&]() -> Ref<RecordSet> {
            return New<RecordedRows>(record_, step, connection_->Execute(sql, options));
        });
    }

  private:
    SharedRecord record_;
    Ref<Connection> connection_;
};

// The calls of one process object, each with its answer.
class ProcessRecord {
  public:
    ProcessRecord(SharedRecord record, const char* object) : record_(std::move(record)), object_(object) {
        record_->Append(CallKind::kProcess, {detail::NewCall(object_)}).value = {};
    }

    template <class Call, class... Arguments>
    auto Run(Call&& call, const char* operation, const Arguments&... arguments) {
        auto& step = record_->Append(CallKind::kProcess, {detail::ProcessCall(object_, operation, arguments...)});
        step.value = {};
        return record_->Run(step, [&] {
            if constexpr (std::is_void_v<decltype(call())>) {
                call();
            } else {
                auto answer = call();
                step.value = answer;
                // An object cannot be written down.
                if (step.value.template Is<Ref<Object>>()) step.value = {};
                return answer;
            }
        });
    }

  private:
    SharedRecord record_;
    const char* object_;
};

class RecordingDispatcher final : public InfoDispatcher {
  public:
    RecordingDispatcher(SharedRecord record, Ref<InfoDispatcher> real)
        : calls_(std::move(record), detail::kDispatcherName), real_(std::move(real)) {}

    void ConnectionString(const Text& value) override {
        calls_.Run([&] { real_->ConnectionString(value); }, "ConnectionString", value);
    }
    Variant Verbinden(Int32 kind, const Text& first, const Text& second) override {
        return calls_.Run([&] { return real_->Verbinden(kind, first, second); }, "Verbinden", kind, first, second);
    }
    void Initialisieren(Int32 module_number, Int32 key, Int32 client, Int32 person) override {
        calls_.Run([&] { real_->Initialisieren(module_number, key, client, person); }, "Initialisieren", module_number,
                   key, client, person);
    }
    void Zustimmen(Int32 p_lngUserID, const Text& remark) override {
        calls_.Run([&] { real_->Zustimmen(p_lngUserID, remark); }, "Zustimmen", p_lngUserID, remark);
    }
    void Ablehnen(Int32 p_lngUserID, const Text& remark) override {
        calls_.Run([&] { real_->Ablehnen(p_lngUserID, remark); }, "Ablehnen", p_lngUserID, remark);
    }
    void Loeschen() override {
        calls_.Run([&] { real_->Loeschen(); }, "Loeschen");
    }
    Bool BenutzerHatRechte(Int32 p_lngUserID) override {
        return calls_.Run([&] { return real_->BenutzerHatRechte(p_lngUserID); }, "BenutzerHatRechte", p_lngUserID);
    }
    Text ProzessStatusText() override {
        return calls_.Run([&] { return real_->ProzessStatusText(); }, "ProzessStatusText");
    }
    Int32 ProzessStatus() override {
        return calls_.Run([&] { return real_->ProzessStatus(); }, "ProzessStatus");
    }
    Int32 ModulNr() override {
        return calls_.Run([&] { return real_->ModulNr(); }, "ModulNr");
    }
    Int32 SchluesselID() override {
        return calls_.Run([&] { return real_->SchluesselID(); }, "SchluesselID");
    }

  private:
    ProcessRecord calls_;
    Ref<InfoDispatcher> real_;
};

class RecordingStarter final : public InfoStarter {
  public:
    RecordingStarter(SharedRecord record, Ref<InfoStarter> real)
        : calls_(std::move(record), detail::kStarterName), real_(std::move(real)) {}

    void ConnectionString(const Text& value) override {
        calls_.Run([&] { real_->ConnectionString(value); }, "ConnectionString", value);
    }
    Variant Verbinden(Int32 kind, const Text& first, const Text& second) override {
        return calls_.Run([&] { return real_->Verbinden(kind, first, second); }, "Verbinden", kind, first, second);
    }
    Variant Starten(Int32 module_number, Int32 key, Int32 p_lngUserID) override {
        return calls_.Run([&] { return real_->Starten(module_number, key, p_lngUserID); }, "Starten", module_number,
                          key, p_lngUserID);
    }

  private:
    ProcessRecord calls_;
    Ref<InfoStarter> real_;
};

class RecordingDefaults final : public SessionDefaults {
  public:
    RecordingDefaults(SharedRecord record, Ref<SessionDefaults> real)
        : calls_(std::move(record), detail::kDefaultsName), real_(std::move(real)) {}

    Text FirstText(Int32 index) override {
        return calls_.Run([&] { return real_->FirstText(index); }, "FirstText", index);
    }
    Text SecondText(Int32 index) override {
        return calls_.Run([&] { return real_->SecondText(index); }, "SecondText", index);
    }

  private:
    ProcessRecord calls_;
    Ref<SessionDefaults> real_;
};

void TakeRefusal(ScriptStepData& step, DataSession& session) {
    step.outcome = Outcome::kRefused;
    step.failure = session.LastErrorText();
}

}  // namespace

RecordingSession::RecordingSession(Ref<DataSession> session)
    : session_(std::move(session)), record_(std::make_shared<Record>()) {}

Bool RecordingSession::Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) {
    auto& step = record_->Append(CallKind::kConnect, {connection_text, user, password, std::to_string(timeout)});
    return Record::Run(step, [&] {
        const Bool ok = session_->Connect(connection_text, user, password, timeout);
        if (!ok) TakeRefusal(step, *session_);
        return ok;
    });
}

Ref<Connection> RecordingSession::AdoConnection() {
    constexpr Int32 kNoConnection = -1;
    auto& step = record_->Append(CallKind::kAdoConnection);
    return Record::Run(step, [&]() -> Ref<Connection> {
        Ref<Connection> connection = session_->AdoConnection();
        if (!connection) {
            step.state = kNoConnection;
            return {};
        }
        record_->Opened(step, connection->State() == Connection::kOpen ? Connection::kOpen : 0);
        return New<RecordingConnection>(record_, std::move(connection));
    });
}

Ref<RecordSet> RecordingSession::Recordset() { return rows_; }

Bool RecordingSession::OpenSelect(const Text& sql) {
    rows_.Reset();
    auto& step = record_->Append(CallKind::kOpenSelect, {sql});
    return Record::Run(step, [&] {
        const Bool ok = session_->OpenSelect(sql);
        if (ok) {
            rows_ = New<RecordedRows>(record_, step, session_->Recordset());
        } else {
            TakeRefusal(step, *session_);
        }
        return ok;
    });
}

Bool RecordingSession::ExecuteSql(const Text& sql) {
    auto& step = record_->Append(CallKind::kExecuteSql, {sql});
    return Record::Run(step, [&] {
        const Bool ok = session_->ExecuteSql(sql);
        if (!ok) TakeRefusal(step, *session_);
        return ok;
    });
}

Variant RecordingSession::LookupValue(const Text& expression, const Text& table, const Text& where) {
    auto& step = record_->Append(CallKind::kLookupValue, {expression, table, where});
    return Record::Run(step, [&] {
        // A refusal gives Null as a Null does; only its text tells.
        const Text before = session_->LastErrorText();
        step.value = session_->LookupValue(expression, table, where);
        if (step.value.IsNull() && session_->LastErrorText() != before) TakeRefusal(step, *session_);
        return step.value;
    });
}

Text RecordingSession::LastErrorText() { return session_->LastErrorText(); }

Script RecordingSession::Recorded() const {
    auto steps = std::make_shared<ScriptState>();
    for (const ScriptStepData& step : record_->Steps().Steps()) steps->Append(step.call.kind, {}) = step;
    return Script(std::move(steps));
}

Components RecordingSession::RecordedComponents(Components real) const {
    // A maker that is not set stays so, and one that makes nothing goes on to.
    const auto recorded = [&]<class Recorder, class Made>(std::type_identity<Recorder>, std::function<Ref<Made>()> make) {
        std::function<Ref<Made>()> recording;
        if (!make) return recording;
        recording = [record = record_, make = std::move(make)]() -> Ref<Made> {
            Ref<Made> made = make();
            if (!made) return {};
            return New<Recorder>(record, std::move(made));
        };
        return recording;
    };
    return {
        .data_session = {},
        .info_dispatcher = recorded(std::type_identity<RecordingDispatcher>(), std::move(real.info_dispatcher)),
        .info_starter = recorded(std::type_identity<RecordingStarter>(), std::move(real.info_starter)),
        .session_defaults = recorded(std::type_identity<RecordingDefaults>(), std::move(real.session_defaults)),
    };
}

}  // namespace LumoConnection
