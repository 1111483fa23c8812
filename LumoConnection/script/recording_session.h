#pragma once

#include <memory>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/components.h>
#include <LumoSeminar/frame/data_session.h>

namespace LumoConnection {

/// A session in front of another one that records each call with its answer as a step of a script. Rows are read whole
/// and handed on as rows of its own; whether they are closed is recorded. Of LastErrorText and Recordset nothing is
/// recorded, and of State only what an AdoConnection or an Open before it does not tell; the LastErrorText of a refused
/// call is part of its step.
///
/// User names and passwords stand in the record as they were given: record with an account that is for tests.
class RecordingSession final : public DataSession {
  public:
    explicit RecordingSession(Ref<DataSession> session);

    Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override;
    Ref<Connection> AdoConnection() override;
    Ref<RecordSet> Recordset() override;
    Bool OpenSelect(const Text& sql) override;
    Bool ExecuteSql(const Text& sql) override;
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override;
    Text LastErrorText() override;

    /// What was recorded so far, a script of its own.
    Script Recorded() const;

    /// Makers whose objects do what those of `real` do, each call a step in one order with the statements; to be played
    /// back with ScriptComponents(). `real` has to work on the session behind this one, as its own statements would be
    /// steps otherwise. No data session is made.
    Components RecordedComponents(Components real) const;

    /// What the session shares with its connections, rows and process objects.
    class Record;

  private:
    Ref<DataSession> session_;
    std::shared_ptr<Record> record_;
    Ref<RecordSet> rows_;
};

}  // namespace LumoConnection
