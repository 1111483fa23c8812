#pragma once

#include <vector>

#include <LumoConnection/odbc/handle.h>
#include <LumoConnection/odbc/odbc_session.h>

namespace LumoConnection::Odbc {

/// What driver manager, driver and server say during one call, messages of success included.
class Diagnostics {
  public:
    /// Keeps what stands behind the return code of a handle.
    /// @return whether the call went well
    bool Take(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle);

    /// A failure of our own.
    void Fail(Int32 number, const Text& text);
    /// Needs no memory.
    void FailOutOfMemory() noexcept;
    void Clear();

    bool Failed() const { return number_ != 0; }
    /// The first number of the server that came with a failure; 0 where nothing failed.
    Int32 Number() const { return number_; }
    /// A failure says that the connection is gone.
    bool Lost() const { return lost_; }
    const std::vector<OdbcDiagnostic>& Records() const { return records_; }

    /// "[42S02] 208: Invalid object name 'x'.", the records parted by blanks, in one line; empty where nothing failed.
    LumoSeminar::Text AllText() const;

  private:
    std::vector<OdbcDiagnostic> records_;
    Int32 number_ = 0;
    bool numbered_ = false;  // the number is the server's
    bool lost_ = false;
};

}  // namespace LumoConnection::Odbc
