#include <LumoConnection/odbc/driver_text.h>

#include <gtest/gtest.h>

#include <test_support/raises.h>

namespace LumoConnection::Odbc {
namespace {

constexpr const char* kSystemUser = "otto";

struct Login {
    const char* text;
    const char* user;
    const char* password;
    const char* expected;
};

TEST(DriverText, UserAndPasswordAreAddedWhereTheyBelong) {
    const Login kLogins[] = {
        {"", "", "", ""},
        {"DSN=lumo", "", "", "DSN=lumo"},
        {"DSN=lumo", "lena", "geheim", "DSN=lumo;UID=lena;PWD=geheim"},
        {"DSN=lumo;", "lena", "", "DSN=lumo;UID=lena"},
        {"DSN=lumo", "", "geheim", "DSN=lumo;PWD=geheim"},
        // what stands there already
        {"DSN=lumo;UID=app", "", "geheim", "DSN=lumo;UID=app;PWD=geheim"},
        {"DSN=lumo;uid=lena;pwd=x", "lena", "geheim", "DSN=lumo;uid=lena;pwd=x"},
        {"DSN=lumo;UID={lena}", "lena", "geheim", "DSN=lumo;UID={lena};PWD=geheim"},
        {"DSN=lumo; User ID = app", "lena", "geheim", "DSN=lumo; User ID = app"},
        {"DSN=lumo;Password=x", "lena", "geheim", "DSN=lumo;Password=x;UID=lena"},
        // an integrated login
        {"Server=x;Trusted_Connection=Yes", "lena", "geheim", "Server=x;Trusted_Connection=Yes"},
        {"Server=x;trusted_connection={yes};", "lena", "geheim", "Server=x;trusted_connection={yes};"},
        {"Server=x;Integrated Security=SSPI", "lena", "geheim", "Server=x;Integrated Security=SSPI"},
        {"Server=x;Integrated Security=true", "lena", "", "Server=x;Integrated Security=true"},
        {"Server=x;Trusted_Connection=No", "lena", "geheim", "Server=x;Trusted_Connection=No;UID=lena;PWD=geheim"},
        {"Server=x;Application={a;Trusted_Connection=Yes}", "lena", "", "Server=x;Application={a;Trusted_Connection=Yes};UID=lena"},
        // the user of the operating system, which is what a login without a user gives
        {"DSN=lumo", kSystemUser, "", "DSN=lumo"},
        {"DSN=lumo", kSystemUser, "geheim", "DSN=lumo;UID=otto;PWD=geheim"},
        // quoting
        {"DSN=a", "a;b", "x}y", "DSN=a;UID={a;b};PWD={x}}y}"},
        {"DSN=a", "DOM\\lena", "{x", "DSN=a;UID=DOM\\lena;PWD={{x}"},
        {"DSN=a", "l n", "a=b", "DSN=a;UID={l n};PWD={a=b}"},
        {"DSN=a;x={b}}c;UID=d}", "lena", "", "DSN=a;x={b}}c;UID=d};UID=lena"},
        {"DSN=a;x={nie zu", "lena", "", "DSN=a;x={nie zu;UID=lena"},
    };
    for (const Login& login : kLogins)
        EXPECT_EQ(MakeDriverText(login.text, login.user, login.password, kSystemUser).text, login.expected);
}

TEST(DriverText, OurOwnWordIsTakenOut) {
    const struct {
        const char* text;
        bool sets;
        const char* expected;
    } kTexts[] = {
        {"DSN=a", true, "DSN=a"},
        {"DSN=a;LumoDateFormat=Off", false, "DSN=a"},
        {"lumodateformat = {off} ;DSN=a;x={LumoDateFormat=On}", false, "DSN=a;x={LumoDateFormat=On}"},
        {"DSN=a;LumoDateFormat=on;Server=b;", true, "DSN=a;Server=b"},
        {"DSN=a;x={;LumoDateFormat=Off}", true, "DSN=a;x={;LumoDateFormat=Off}"},
    };
    for (const auto& text : kTexts) {
        const DriverText made = MakeDriverText(text.text, "", "", kSystemUser);
        EXPECT_EQ(made.sets_date_format, text.sets) << text.text;
        EXPECT_EQ(made.text, text.expected);
    }
    EXPECT_RAISES(40003, MakeDriverText("LumoDateFormat=ymd", "", "", kSystemUser));
    EXPECT_RAISES(40003, MakeDriverText("LumoDateFormat=", "", "", kSystemUser));
}

}  // namespace
}  // namespace LumoConnection::Odbc
