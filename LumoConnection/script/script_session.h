#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

/// A session for tests: it expects calls in order, with whole texts, and answers them from a script.
///
///     Script script;
///     script.AdoConnection();
///     script.OpenSelect("SELECT SemID FROM Sem_Katalog_IT").Rows({"SemID"}, {{1}, {2}});
///     script.ExecuteSql("DELETE FROM Sem_Katalog_IT WHERE SemID = 1").Refused("The row is in use.");
///
///     RunTheProgram(script.Session());
///
///     EXPECT_EQ(script.Report(), "");
///     EXPECT_TRUE(script.SessionReleased());
///
/// A script can also be recorded: the program runs once on a session that writes down what it hears and what the real
/// one answers.
///
///     const auto recording = Script::Record(session);
///     RunTheProgram(recording);
///     std::cout << recording->Recorded().CppText();              // the lines of above, for a test
///     std::ofstream("run.script") << recording->Recorded().FileText();  // or for Script::ReadFile("run.script")
namespace LumoConnection {

using namespace LumoSeminar;

/// Numbers of the errors that a script raises of itself.
namespace ScriptError {
/// A call that the script does not expect at its place, and every call after that one.
inline constexpr Int32 kUnexpectedCall = 9001;
/// A script that cannot be written like that: a row of another length than its columns, no rows to close.
inline constexpr Int32 kBadScript = 9002;
/// A step that fails by Script::FailAt; the source is "Script".
inline constexpr Int32 kStepFailed = 7001;
}  // namespace ScriptError

namespace detail {
class ScriptState;
struct ScriptStepData;
}  // namespace detail

class RecordingSession;
class RowTable;

/// How a step fails that Script::FailAt has chosen.
enum class FailureMode {
    /// OpenSelect, ExecuteSql and Connect give false and LookupValue Null, with the LastErrorText "refused at step N".
    /// AdoConnection gives a connection that is closed and stays so, State gives 0, Open leaves the connection closed.
    /// Execute, which knows no refusal, raises kStepFailed with the text "refused at step N". Close and calls on process
    /// objects cannot fail like that.
    kNotOk,
    /// Raises kStepFailed, "raised at step N".
    kRaises,
};

/// A step of a script, to be given its answer. It must not outlive the script.
class ScriptStep {
  public:
    /// Raises in place of an answer. An empty source becomes that of the library, as in every Error.
    void Raises(Int32 number, Text description, Text source = {}) const;

  protected:
    friend class Script;
    explicit ScriptStep(detail::ScriptStepData& data) : data_(&data) {}

    detail::ScriptStepData* data_;
};

/// OpenSelect and Connection::Execute. Without an answer of its own it gives a row set without columns.
class RowsStep : public ScriptStep {
  public:
    /// Rows of values in the order of the columns; an Empty becomes Null. Raises kBadScript for a row of another
    /// length.
    RowsStep Rows(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows = {}) const;
    RowsStep RowsOf(const RowTable& table) const;

  private:
    friend class Script;
    friend class SelectStep;
    using ScriptStep::ScriptStep;
};

/// OpenSelect.
class SelectStep : public RowsStep {
  public:
    /// Gives false. Recordset is empty then.
    void Refused(Text last_error_text) const;

  private:
    friend class Script;
    using RowsStep::RowsStep;
};

/// ExecuteSql and Connect. Without an answer of its own it gives true.
class StatementStep : public ScriptStep {
  public:
    void Ok() const;
    void Refused(Text last_error_text) const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// LookupValue. Without an answer of its own it gives Null.
class LookupStep : public ScriptStep {
  public:
    void Gives(Variant value) const;
    /// Gives Null.
    void Refused(Text last_error_text) const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// AdoConnection. Without an answer of its own it gives an open connection.
class AdoConnectionStep : public ScriptStep {
  public:
    /// State 1.
    void Open() const;
    /// State 0. A ConnectionOpen step decides what becomes of it.
    void Closed() const;
    /// An empty reference.
    void Empty() const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// Connection::State. Without an answer of its own it gives 1.
class StateStep : public ScriptStep {
  public:
    /// The connection keeps that state.
    void Gives(Int32 state) const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// Connection::Open. Without an answer of its own the connection is open behind it.
class ConnectionOpenStep : public ScriptStep {
  public:
    void Ok() const;
    /// Raises nothing and leaves the connection closed.
    void StaysClosed() const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// A call on a process object. Without an answer of its own it gives what an object gives that does nothing: ModulNr
/// and SchluesselID what Initialisieren was told, all others 0, false or an empty text.
class ProcessStep : public ScriptStep {
  public:
    void Gives(Variant value) const;

  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// Close of a row set. Without an answer of its own it closes.
class CloseStep : public ScriptStep {
  private:
    friend class Script;
    using ScriptStep::ScriptStep;
};

/// The calls that a session is to receive, in order, and its answers.
///
/// Each call is compared with the next step, texts byte by byte. One that differs, or that comes behind the last step,
/// raises kUnexpectedCall, and so does every call from then on except LastErrorText; Report() tells about it even
/// where the program swallows the error.
///
/// Not steps, and allowed at any time: Recordset, LastErrorText, and State of a connection where the next step is no
/// ConnectionState. Steps like all others: Open and Close. A program that closes a row set needs a CloseRows at that
/// place, and one that must not close it is found out by not having one.
class Script {
  public:
    Script();
    ~Script();
    Script(Script&&) noexcept;
    Script& operator=(Script&&) noexcept;

    StatementStep Connect(Text connection_text, Text user, Text password, Int32 timeout);
    SelectStep OpenSelect(Text sql);
    StatementStep ExecuteSql(Text sql);
    LookupStep LookupValue(Text expression, Text table, Text where = {});
    AdoConnectionStep AdoConnection();
    StateStep ConnectionState();
    /// Without arguments: opens again with what the connection already holds.
    ConnectionOpenStep ConnectionOpen(Text connection_text = {}, Text user = {}, Text password = {},
                                      Int32 options = Connection::kNoOptions);
    RowsStep ConnectionExecute(Text sql, Int32 options = Connection::kNoOptions);

    /// Close of the row set of the last step that gives rows and has no CloseRows yet. Raises kBadScript where there is
    /// none.
    CloseStep CloseRows();
    /// Close of the row set of that step.
    CloseStep CloseRows(const RowsStep& rows);

    /// A call on a process object or on the session defaults, or that one is made: "New InfoStarter",
    /// "InfoStarter.Starten 8, 42, 17", "SessionDefaults.FirstText 2", "InfoDispatcher.Zustimmen 17, ''". Numbers stand
    /// in decimal, texts in single quotes.
    /// @see ScriptComponents
    ProcessStep Process(Text call);

    /// The session, always the same one. The script keeps a reference to it.
    Ref<DataSession> Session();

    /// Empty if every step was met and nothing else was called. Otherwise what differed: the step, the first differing
    /// place with its surroundings, and both texts whole; then the steps that were not reached. In these texts line
    /// breaks, other control characters, backslashes and bytes that are no UTF-8 are written \r, \n, \\, \xE4.
    /// Behind a step failed by FailAt steps need not be met.
    std::string Report() const;

    /// Every call that is a step or should have been one, as "OpenSelect: SELECT ...", in order.
    const std::vector<std::string>& Calls() const;

    /// How often these were called.
    int RecordsetCalls() const;
    int LastErrorTextCalls() const;

    /// Whether nobody but the script holds the session any more.
    bool SessionReleased() const;

    int StepCount() const;
    /// A step as it would stand in Calls(). Steps count from 1.
    std::string StepText(int step) const;
    /// Whether the step has an answer for that mode: Close and calls on process objects cannot be refused.
    bool CanFail(int step, FailureMode mode) const;

    /// Makes a step fail in place of its answer. From there on the script is lenient: a call that meets one of the
    /// steps left is answered by the next such one, those between being left out; any other is refused, with the
    /// LastErrorText "after the failure", and Close succeeds. Raises kBadScript where the step cannot fail like that.
    void FailAt(int step, FailureMode mode);

    /// The part of Calls() behind the step that failed, and those of it that met no step.
    std::vector<std::string> CallsAfterFailure() const;
    const std::vector<std::string>& UnexpectedAfterFailure() const;

    /// A session in front of that one, which records what it is asked and what it is answered.
    static Ref<RecordingSession> Record(Ref<DataSession> session);

    /// The script as lines of C++ that write it, each ending with a line break. They compile where the names of
    /// LumoConnection are known, on a Script of that name.
    std::string CppText(std::string_view name = "script") const;

    /// The script as a file: UTF-8, a line for each step and each row.
    ///
    ///     LumoScript 1
    ///
    ///     OpenSelect "SELECT SemID, SemTitel, Stunden FROM Sem_Katalog_IT"
    ///       columns "SemID" "SemTitel" "Stunden"
    ///       row 1 "Zeichnungen lesen" double:6.5
    ///       row 2 "Die \"neue\" Norm" null
    ///     ExecuteSql "DELETE FROM Sem_Katalog_IT WHERE SemID = 1"
    ///       refused "The row is in use."
    ///
    /// Steps are called as the members of this class, with all their arguments; CloseRows names the step of the rows.
    /// Answers stand below: columns and row, refused, raises NUMBER "text" "source", gives, open, closed, empty. Values
    /// are null, true, false, 5, int16:5, byte:5, double:6.5, single:6.5, money:12.5000, "text",
    /// moment:2010-03-02T17:45:09.003 and days:40239.5. In texts stand \" \\ \n \r \t and \xE4 for any other byte.
    /// Lines that begin with # are remarks.
    std::string FileText() const;

    /// What FileText() wrote, possibly changed by hand. Raises kBadScript, "Line 7: ...", for what it does not understand.
    static Script Read(std::string_view file_text);
    /// Raises 53 where the file cannot be read.
    static Script ReadFile(const std::filesystem::path& path);

  private:
    friend class RecordingSession;
    explicit Script(std::shared_ptr<detail::ScriptState> state);

    std::shared_ptr<detail::ScriptState> state_;
    Ref<DataSession> session_;
};

}  // namespace LumoConnection
