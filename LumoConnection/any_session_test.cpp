#include <LumoConnection/any_session.h>

#include <gtest/gtest.h>

#include <utility>

#include <LumoConnection/install.h>
#include <LumoSeminar/frame/components.h>
#include <test_support/processes.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

constexpr const char* kEmbedded = "Provider=Embedded;Data Source=:memory:";
constexpr const char* kOdbc = "Driver={Gibt es nicht}";

TEST(AnySession, IsEmbeddedWhereTheTextSaysSo) {
    const auto session = New<AnySession>();
    ASSERT_TRUE(session->Connect(kEmbedded, "sa", "", 30));
    ASSERT_TRUE(session->Embedded());
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE Kurs (ID int) INSERT INTO Kurs VALUES (1), (2)"));
    EXPECT_EQ(session->RowsAffected(), 2);
    EXPECT_TRUE(session->OpenSelect("SELECT ID FROM Kurs"));
    EXPECT_EQ(session->Recordset()->Fields().Item(0).Value(), Variant(1));
    EXPECT_EQ(session->LookupValue("max(ID)", "Kurs", ""), Variant(2));
    EXPECT_EQ(session->AdoConnection()->State(), Connection::kOpen);
    EXPECT_FALSE(session->ExecuteSql("SELECT ID FROM Kurse"));
    EXPECT_EQ(session->LastErrorNumber(), 208);
    EXPECT_NE(session->LastErrorText().find("Kurse"), Text::npos);
}

TEST(AnySession, IsLikeAClosedOneUntilItIsConnected) {
    const auto session = New<AnySession>();
    EXPECT_FALSE(session->ExecuteSql("SELECT 1"));
    EXPECT_EQ(session->LastErrorText(), "The session is not connected.");
    EXPECT_EQ(session->AdoConnection()->State(), 0);
    EXPECT_EQ(session->Recordset(), nullptr);
    EXPECT_EQ(session->RowsAffected(), -1);
}

TEST(AnySession, OtherTextsAreForOdbc) {
    const auto session = New<AnySession>();
    ASSERT_TRUE(session->Connect(kEmbedded, "sa", "", 30));
    EXPECT_FALSE(session->Connect(kOdbc, "lena", "", 30));
    EXPECT_NE(session->LastErrorNumber(), 0);
    EXPECT_EQ(session->AdoConnection()->State(), 0);
    if (OdbcAvailable()) {
        EXPECT_FALSE(session->Embedded());
        EXPECT_TRUE(session->LastErrorText().starts_with("[")) << session->LastErrorText();
        EXPECT_FALSE(MakeSessionFor(kOdbc).As<EmbeddedSession>());
    } else {
        EXPECT_EQ(session->LastErrorText(),
                  "There is no component for this connection text: it does not say Provider=Embedded, and this build has "
                  "no ODBC.");
        EXPECT_RAISES(429, MakeSessionFor(kOdbc));
    }
    const Text reason = session->LastErrorText();
    EXPECT_TRUE(session->Connect(kEmbedded, "sa", "", 30));
    EXPECT_EQ(session->LastErrorText(), reason);
    EXPECT_EQ(session->LastErrorNumber(), 0);
    EXPECT_TRUE(MakeSessionFor(kEmbedded).As<EmbeddedSession>());
}

TEST(AnySession, AProviderThatNobodyKnowsIsNamed) {
    const auto session = New<AnySession>();
    const std::pair<const char*, const char*> kTexts[] = {
        {"Provider=SQLOLEDB;Server=a;Database=b", "SQLOLEDB"},
        {"Server=a; provider = Embeded ;Data Source=a.db", "Embeded"},
        {"PROVIDER=\"Embedded 2\"", "\"Embedded 2\""},
        {"Password={;DSN=x;};Provider=X", "X"},
    };
    for (const auto& named : kTexts) {
        const char* text = named.first;
        EXPECT_FALSE(session->Connect(text, "", "", 1)) << text;
        EXPECT_EQ(session->LastErrorText(), "There is no component for the provider " + OneLine(named.second) +
                                                " of this connection text. Known are Provider=Embedded, and Driver=... "
                                                "or DSN=... for a server behind ODBC.");
        EXPECT_EQ(session->LastErrorNumber(), 429);
        EXPECT_RAISES(429, MakeSessionFor(text));
    }
    EXPECT_TRUE(session->Connect("PROVIDER=eMBEDDED;data source=:memory:", "", "", 1)) << session->LastErrorText();
}

TEST(AnySession, AProviderBesideADriverIsLeftToOdbc) {
    if (!OdbcAvailable()) GTEST_SKIP() << "this build has no ODBC";
    for (const char* text : {"Provider=MSDASQL;Driver={Gibt es nicht}", "provider=x;DSN=gibt es nicht",
                             "FILEDSN=/gibt/es/nicht.dsn;Provider=x", "Provider=", "Uid=Provider=x;Provider"}) {
        const auto session = New<AnySession>();
        EXPECT_FALSE(session->Connect(text, "", "", 1)) << text;
        EXPECT_TRUE(session->LastErrorText().starts_with("[")) << text << ": " << session->LastErrorText();
    }
}

TEST(AnySession, IsWhatTheLibraryAndTheProcessObjectsMake) {
    Install(Login{.connection_text = kOdbc, .user = "lena"});
    EXPECT_TRUE(MakeDataSession().As<AnySession>());
    const auto dispatcher = MakeInfoDispatcher();
    dispatcher->Initialisieren(7, 12, 1, 4711);
    const auto error = test_support::RaisedBy([&] { return dispatcher->ProzessStatus(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_NE(error->Description().find(OdbcAvailable() ? "[" : "no ODBC"), Text::npos) << error->Description();
    SetComponents({});
}

TEST(AnySession, KeepsFurtherRowsOfWhateverSessionItBecomes) {
    AnySession session;
    session.KeepFurtherRows(true);
    ASSERT_TRUE(session.Connect("Provider=Embedded;Data Source=:memory:", "", "", 30));
    ASSERT_TRUE(session.OpenSelect("SELECT 1 SELECT 2"));
    ASSERT_EQ(session.FurtherRows().size(), 1U);
    EXPECT_EQ(session.FurtherRows().front()->Fields().Item(Int16{0}).Value(), Variant(Int32{2}));
    session.KeepFurtherRows(false);
    ASSERT_TRUE(session.OpenSelect("SELECT 1 SELECT 2"));
    EXPECT_TRUE(session.FurtherRows().empty());
}

}  // namespace
}  // namespace LumoConnection
