#pragma once

#include <memory>
#include <string>
#include <vector>

#include <test_support/odbc_driver/script.h>

/// What stands behind the driver. Each driver file is linked with one source of these.
namespace odbc_driver {

/// Answers the texts of one connection.
class Server {
  public:
    virtual ~Server() = default;
    virtual std::vector<Result> Run(const std::u16string& text) = 0;
};

/// Logs in. Null where that is refused.
/// @param messages what is said about it
std::unique_ptr<Server> LogIn(const std::u16string& connection_text, std::vector<Message>& messages);

/// What the server calls itself.
std::u16string ServerName();

}  // namespace odbc_driver
