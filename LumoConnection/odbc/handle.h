#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqltypes.h>

#include <cstdint>
#include <type_traits>

namespace LumoConnection::Odbc {

static_assert(std::is_same_v<SQLWCHAR, std::uint16_t>, "wide texts are UTF-16");

/// Owner of one handle; empty where none could be had.
template <SQLSMALLINT kType>
class Handle {
  public:
    explicit Handle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_))) handle_ = SQL_NULL_HANDLE;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (handle_ != SQL_NULL_HANDLE) SQLFreeHandle(kType, handle_);
    }

    explicit operator bool() const { return handle_ != SQL_NULL_HANDLE; }
    SQLHANDLE Get() const { return handle_; }

  private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// A number in the place of a pointer, as the attribute calls want it.
inline SQLPOINTER AsPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace LumoConnection::Odbc
