#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include <test_support/odbc_driver/script.h>
#include <test_support/places.h>

namespace test_support {

/// The driver of odbc_driver/script.h with a fresh script. Stays in memory: the driver manager loads and unloads it as
/// it likes, the script is the same one.
class FakeOdbc {
  public:
    FakeOdbc() {
        void* file = dlopen(ScriptedDriver(), RTLD_NOW | RTLD_NODELETE);
        void* entry = file ? dlsym(file, "LumoOdbcDriverScript") : nullptr;
        if (!entry) {
            ADD_FAILURE() << dlerror();
            return;
        }
        script_ = reinterpret_cast<decltype(&LumoOdbcDriverScript)>(entry)();
        *script_ = {};
    }
    ~FakeOdbc() {
        if (!script_) return;
        EXPECT_EQ(script_->statements, 0) << "statements that nobody freed";
        EXPECT_EQ(script_->connections, 0) << "connections that nobody closed";
    }
    FakeOdbc(const FakeOdbc&) = delete;
    FakeOdbc& operator=(const FakeOdbc&) = delete;

    odbc_driver::Script* operator->() const { return script_; }
    /// A connection text for it.
    std::string ConnectionText(const std::string& more = {}) const {
        return std::string("Driver=") + ScriptedDriver() + more;
    }

  private:
    odbc_driver::Script* script_ = nullptr;
};

}  // namespace test_support
