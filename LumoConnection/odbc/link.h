#pragma once

#include <LumoConnection/odbc/diagnostics.h>
#include <LumoConnection/odbc/handle.h>
#include <LumoConnection/odbc/result_reader.h>

namespace LumoConnection::Odbc {

/// What a text brought.
struct TextOutcome {
    /// The first row set, even where something failed behind it.
    Ref<StoredRows> rows;
    /// Rows changed by the last statement that tells, or selected; -1 where there are none.
    Int32 affected = -1;
    bool keeps_further_rows = false;
    /// The row sets behind the first, where they are kept.
    std::vector<Ref<RecordSet>> further_rows;
};

/// One connection to a server, from the login to the end of the object.
class Link {
  public:
    Link() : environment_(SQL_NULL_HANDLE), connection_(Prepared()) {}
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link();

    /// Logs in; once. What fails is in the diagnostics.
    /// @param timeout seconds, for this and for each statement
    bool Open(const Text& driver_text, Int32 timeout, Diagnostics& diagnostics);
    bool IsOpen() const { return open_; }

    /// False where the driver knows that the connection is gone.
    bool IsAlive() const;
    /// Whether the server is one of Microsoft's.
    bool IsMicrosoft() const;

    /// Runs a text, which has to be UTF-8, and reads all its results.
    void Run(const Text& sql, TextOutcome& outcome, Diagnostics& diagnostics);

  private:
    SQLHANDLE Prepared();
    void ReadResult(SQLHSTMT statement, TextOutcome& outcome, Diagnostics& diagnostics);

    Handle<SQL_HANDLE_ENV> environment_;
    Handle<SQL_HANDLE_DBC> connection_;
    Int32 timeout_ = 0;
    bool open_ = false;
};

}  // namespace LumoConnection::Odbc
