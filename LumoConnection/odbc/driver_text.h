#pragma once

#include <string_view>

#include <LumoSeminar/frame/types.h>

namespace LumoConnection::Odbc {

/// What a connection text asks of us and of the driver.
struct DriverText {
    /// For the driver.
    LumoSeminar::Text text;
    /// Quoted dates are to be read day first.
    bool sets_date_format = true;
};

/// Takes our own words out of a connection text and adds user and password by the rules of OdbcSession::Connect.
/// Raises where LumoDateFormat is neither On nor Off.
DriverText MakeDriverText(std::string_view connection_text, std::string_view user, std::string_view password,
                          std::string_view system_user);

}  // namespace LumoConnection::Odbc
