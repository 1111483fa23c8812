#pragma once

#include <vector>

#include <LumoSeminar/frame/data_session.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// One message of driver manager, driver or server.
struct OdbcDiagnostic {
    /// "42S02"; empty for a failure of the session itself.
    Text state;
    /// The server's number; 0 where it gives none.
    Int32 number = 0;
    /// In one line, without the names of those who passed it on.
    Text text;
};

/// A session on a database behind an ODBC driver, made for Microsoft SQL Server. For one thread at a time. Only in
/// builds with ODBC (OdbcAvailable()).
///
/// Texts are sent untouched, in one piece, without escape processing; each text stands alone, outside of a
/// transaction. Its first row set counts. All its results are read to their end, and a failure in any of them makes the
/// call fail, whatever has run before. Where its very first statement fails, those behind it may not have run. All rows
/// are in memory and the statement is freed when a call returns: the connection is never busy.
///
/// Values. bit is a Bool; tinyint a Byte, smallint an Int16, int an Int32; bigint an Int32 where it fits, otherwise a
/// Double; money and smallmoney are Money, told from other decimals by the name of their type; decimal is a Double,
/// real a Single, float a Double; datetime, smalldatetime, datetime2 and date are a DateTime, rounded to milliseconds;
/// time is a DateTime on day 0; binary values are a Text "0x00FF"; everything else is a Text. A value that its type
/// cannot hold (a year before 100) refuses the call.
class OdbcSession final : public DataSession {
  public:
    OdbcSession();
    ~OdbcSession() override;

    /// Any ODBC connection text: "Driver={...};Server=...;Database=..." or "DSN=...". It reaches the driver as it
    /// stands, with these exceptions.
    ///
    /// User and password are added as UID and PWD. Nothing is added to a text that asks for an integrated login
    /// (Trusted_Connection=Yes, Integrated Security=SSPI, Yes or True). UID is not added where the text has one, nor
    /// for the user of the operating system without a password: that one stands for "no user was given", and how to log
    /// in is left to the text, the DSN and the driver. PWD is not added where the text has one, nor where the text's
    /// UID is another user.
    ///
    /// On Microsoft SQL Server the session sends "SET DATEFORMAT dmy" once it is connected, so that a quoted date means
    /// the same as in the embedded database. LumoDateFormat=Off leaves that to the login's language; the word is taken
    /// out before the driver sees the text. Nothing else is set: the drivers ask for the ANSI settings by themselves.
    /// @param timeout seconds, for the login and for each statement; 0 or less: 30
    [[nodiscard]] Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override;

    /// State asks the driver whether the connection is dead; one that was lost is closed. Open() without arguments
    /// opens it again with text, user, password and time-out of the last Connect.
    Ref<Connection> AdoConnection() override;
    Ref<RecordSet> Recordset() override;
    /// Gives the first row set of the text; a row set without columns where there is none.
    [[nodiscard]] Bool OpenSelect(const Text& sql) override;
    [[nodiscard]] Bool ExecuteSql(const Text& sql) override;
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override;
    /// All messages of the last refused call in their order, those of statements that went well included:
    /// "[42S02] 208: Invalid object name 'x'. [42000] 8180: Statement(s) could not be prepared."
    Text LastErrorText() override;

    /// The server's number of the last refusal, 0 where the last call went well; 40001 where the server has none, 40002
    /// where the session is not open.
    Int32 LastErrorNumber() const;
    /// The messages of the last call one by one, also where it went well.
    const std::vector<OdbcDiagnostic>& Diagnostics() const;
    /// Rows that the last call changed (its last statement that tells) or selected; -1 where there are none.
    Int32 RowsAffected() const;
    /// From here on, or no longer, a text is asked for all its row sets, which costs the memory for them.
    void KeepFurtherRows(bool keep);
    /// The row sets of the last text behind its first one, in their order. Empty where they are not kept.
    const std::vector<Ref<RecordSet>>& FurtherRows() const;

    /// Ends the connection. Row sets stay readable. May be opened again.
    void Close();
    bool IsOpen() const;

  private:
    class State;
    class AdoFace;

    Ref<State> state_;
};

/// A session that is not connected yet.
Ref<DataSession> MakeOdbcSession();

}  // namespace LumoConnection
