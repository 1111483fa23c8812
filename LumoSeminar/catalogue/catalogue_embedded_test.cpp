#include <gtest/gtest.h>

#include <LumoSeminar/LumoSeminar.h>
#include <LumoSeminar/frame/common.h>
#include <test_support/comma_locale.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;

Ref<clsSeminar> Bound(const Ref<DataSession>& session, Int32 key) {
    auto seminar = New<clsSeminar>();
    seminar->Init(key, session);
    return seminar;
}

Variant Value(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << session.LastErrorText();
    return session.Recordset()->Fields().Item(0).Value();
}

TEST(CatalogueForReal, ANewSeminarIsWrittenAndReadBack) {
    const auto session = SchemaDatabase();
    const auto seminar = Bound(session, 0);
    seminar->MDNR(-1);
    seminar->SemCode("Ü-1");
    seminar->SemTitel("Müller & Söhne: \"Größe\" {SemID}");
    seminar->Sachbearbeiter(12);
    seminar->Status(2);
    seminar->InhaltZielID(3);
    seminar->TeilnehmerMIN(4);
    seminar->TeilnehmerMAX(12);
    seminar->TeilnehmerOPT(8);
    seminar->Stunden(6.5);
    seminar->Sitzungen(3);
    seminar->SerienID(7);
    seminar->KostenProTN(Money::FromUnits(1'205'000));
    seminar->Anzahlung(Money::FromUnits(1));
    seminar->StornoKosten(Money(25));
    seminar->Abbruchkosten(Money::FromUnits(-5'000));
    seminar->FristStorno(14);
    seminar->FristAbbruch(15);
    seminar->FristAnmeldung(16);
    seminar->Wiederholung(24);
    EXPECT_EQ(seminar->WriteToDatabase(), true);
    EXPECT_EQ(seminar->SemID(), 1);

    const auto read = Bound(session, 1);
    EXPECT_EQ(read->MDNR(), -1);
    EXPECT_EQ(read->SemCode(), "Ü-1");
    EXPECT_EQ(read->SemTitel(), "Müller & Söhne: \"Größe\" {SemID}");
    EXPECT_EQ(read->Sachbearbeiter(), 12);
    EXPECT_EQ(read->Status(), 2);
    EXPECT_EQ(read->InhaltZielID(), 3);
    EXPECT_EQ(read->TeilnehmerMIN(), 4);
    EXPECT_EQ(read->TeilnehmerMAX(), 12);
    EXPECT_EQ(read->TeilnehmerOPT(), 8);
    EXPECT_EQ(read->Stunden(), 6.5);
    EXPECT_EQ(read->Sitzungen(), 3);
    EXPECT_EQ(read->SerienID(), 7);
    EXPECT_EQ(read->KostenProTN(), Money::FromUnits(1'205'000));
    EXPECT_EQ(read->Anzahlung(), Money::FromUnits(1));
    EXPECT_EQ(read->StornoKosten(), Money(25));
    EXPECT_EQ(read->Abbruchkosten(), Money::FromUnits(-5'000));
    EXPECT_EQ(read->FristStorno(), 14);
    EXPECT_EQ(read->FristAbbruch(), 15);
    EXPECT_EQ(read->FristAnmeldung(), 16);
    EXPECT_EQ(read->Wiederholung(), 24);
}

TEST(CatalogueForReal, ZeroesAreStoredAsTheirDefaultsOrAsNull) {
    const auto session = SchemaDatabase();
    EXPECT_EQ(Bound(session, 0)->WriteToDatabase(), true);
    const auto seminar = Bound(session, 1);
    EXPECT_EQ(seminar->SemTitel(), "<neues Seminar>");
    EXPECT_EQ(seminar->Status(), 1);
    EXPECT_EQ(seminar->Stunden(), 8);
    EXPECT_EQ(seminar->Sitzungen(), 1);
    EXPECT_EQ(Value(*session,
                    "SELECT COUNT(*) FROM Sem_Katalog_IT WHERE Sachbearbeiter IS NULL AND KostenProTN IS NULL AND "
                    "FristAbbruch IS NULL AND MDNr = 0 AND SemCode = ''"),
              Variant(1));
}

TEST(CatalogueForReal, AnUpdateChangesTheRowButNotItsKey) {
    const auto session = SampleDatabase();
    const auto seminar = Bound(session, 13);
    EXPECT_EQ(seminar->MDNR(), 1);
    seminar->SemTitel("");
    seminar->Stunden(7.25);
    seminar->Status(0);
    EXPECT_EQ(seminar->UpdateDatabase(), true);
    const auto read = Bound(session, 13);
    EXPECT_EQ(read->SemTitel(), "") << "an update writes no placeholder";
    EXPECT_EQ(read->Stunden(), 7.25);
    EXPECT_EQ(read->Status(), 1);
    EXPECT_EQ(read->SemCode(), seminar->SemCode());
}

TEST(CatalogueForReal, ATitleWithAQuoteIsRefusedByInsertAndUpdate) {
    const auto session = SampleDatabase();
    const auto seminar = Bound(session, 0);
    seminar->SemTitel("Rock'n Roll");
    const auto insert = RaisedBy([&] { return seminar->WriteToDatabase(); });
    ASSERT_TRUE(insert);
    EXPECT_EQ(insert->Number(), 9999);
    EXPECT_EQ(ReadDescription(insert->Description()).text, session->LastErrorText());
    EXPECT_EQ(ReadDescription(insert->Description()).labels,
              (std::vector<std::string>{" LumoSeminar062.clsSeminar.WriteToDatabase"}));
    EXPECT_EQ(seminar->SemID(), 43);

    const auto existing = Bound(session, 1);
    const Text title = existing->SemTitel();
    existing->SemTitel("Rock'n Roll");
    EXPECT_RAISES(9999, existing->UpdateDatabase());
    EXPECT_EQ(Bound(session, 1)->SemTitel(), title);
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Katalog_IT"), Variant(42));
}

TEST(CatalogueForReal, AKeyThatIsThereIsRefused) {
    const auto session = SampleDatabase();
    const auto seminar = Bound(session, 1);
    const auto error = RaisedBy([&] { return seminar->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_NE(error->Description().find("PK_Sem_Katalog_IT"), Text::npos) << error->Description();
}

TEST(CatalogueForReal, UnderADecimalCommaTheInsertOfHoursIsRefusedAndTheUpdateIsMended) {
    const auto session = SampleDatabase();
    const test_support::CommaLocale comma;
    const auto seminar = Bound(session, 0);
    seminar->Stunden(6.5);
    seminar->KostenProTN(Money::FromUnits(1'205'000));
    EXPECT_RAISES(9999, seminar->WriteToDatabase());
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Katalog_IT"), Variant(42));
    const auto existing = Bound(session, 1);
    EXPECT_EQ(existing->MDNR(), -1);
    existing->Stunden(6.5);
    existing->KostenProTN(Money::FromUnits(1'205'000));
    EXPECT_EQ(existing->UpdateDatabase(), true);
    EXPECT_EQ(Bound(session, 1)->Stunden(), 6.5);
    EXPECT_EQ(Bound(session, 1)->KostenProTN(), Money::FromUnits(1'205'000));
}

TEST(CatalogueForReal, AClientSeesItsOwnSeminarsAndTheCommonOnes) {
    const auto session = SampleDatabase();
    const struct {
        Int32 client;
        Int32 count;
    } cases[] = {{1, 35}, {2, 19}, {9, 12}, {-1, 12}};
    for (const auto& c : cases) {
        colSeminare list;
        EXPECT_EQ(list.Init(c.client, session), true);
        EXPECT_EQ(list.Count(), c.count) << c.client;
        for (const auto& seminar : list.NewEnum()) {
            const Int32 client = seminar->MDNR();
            EXPECT_TRUE(client == c.client || client == -1);
        }
    }
}

TEST(CatalogueForReal, RemoveDeletesAReadSeminarOnly) {
    const auto session = SampleDatabase();
    colSeminare list;
    (void)list.Init(2, session);
    const Text key = list.Item(19)->Key();
    EXPECT_EQ(list.Remove(key), false);
    EXPECT_EQ(list.Count(), 19);
    list.Item(key)->Status();
    EXPECT_EQ(list.Remove(key), false);
    EXPECT_EQ(list.Count(), 18);
    EXPECT_RAISES(5, list.Item(key));
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Katalog_IT"), Variant(41));
}

TEST(CatalogueForReal, ASeminarWithADateIsNotRemovedUntilTheDateIsGone) {
    const auto session = SchemaDatabase();
    const auto seminar = Bound(session, 0);
    seminar->SemTitel("Erste Hilfe für Prüfer");
    seminar->WriteToDatabase();
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, SemID) VALUES (17, 0, 1)"));
    for (const Int32 left : {1, 0}) {
        colSeminare list;
        (void)list.Init(0, session);
        EXPECT_EQ(list.Item(1)->colTermine()->Count(), left);
        list.Item(1)->Status();
        list.Remove(1);
        EXPECT_EQ(list.Count(), left);
        EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Katalog_IT"), Variant(left));
        ASSERT_TRUE(session->ExecuteSql("DELETE FROM Sem_Termin_IT"));
    }
}

TEST(CatalogueForReal, TextsOfAllKindsEitherComeBackOrAreRefusedWithoutATrace) {
    const auto session = SchemaDatabase();
    const struct {
        Text title;
        bool accepted;
    } cases[] = {
        {"a\\b", true},
        {"100 % \"sicher\" [x] --kein Kommentar /* auch nicht */", true},
        {"Zeile\r\nZeile", true},
        {Text(255, 'x'), true},
        {Text(256, 'x'), false},
        {Text(100'000, 'x'), false},
        {"'", false},
        {"', 'x", false},
        // ODBC takes no such character.
        {Text("a\0b", 3), test_support::ServerText().empty()},
        {"\xFF\xFE", false},
    };
    Int32 accepted = 0;
    for (const auto& c : cases) {
        const auto seminar = Bound(session, 0);
        seminar->SemTitel(c.title);
        const auto error = RaisedBy([&] { return seminar->WriteToDatabase(); });
        EXPECT_EQ(!error.has_value(), c.accepted) << OneLine(c.title);
        if (c.accepted) {
            ++accepted;
            EXPECT_EQ(seminar->SemTitel(), c.title);
        } else if (error) {
            EXPECT_EQ(error->Number(), 9999);
            EXPECT_NE(ReadDescription(error->Description()).text, "");
        }
        EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Katalog_IT"), Variant(accepted)) << OneLine(c.title);
    }
}

TEST(CatalogueForReal, KeysAtTheEdgesOfTheRange) {
    const auto session = SchemaDatabase();
    for (const Int32 key : {-1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(Bound(session, key)->WriteToDatabase(), true);
        EXPECT_EQ(Bound(session, key)->SemTitel(), "<neues Seminar>");
    }
    EXPECT_RAISES(6, Bound(session, 0)->WriteToDatabase());
    colSeminare list;
    EXPECT_EQ(list.Init(0, session), true);
    EXPECT_EQ(list.Count(), 3);
}

TEST(CommonForReal, ReadsTheActiveClientAndTheOption) {
    const auto session = SampleDatabase();
    EXPECT_EQ(common::GetActMD(session), 1);
    EXPECT_EQ(common::IsMDabhKonst(session), true);
    EXPECT_TRUE(session->ExecuteSql("UPDATE optionen_database_dt SET Wert = '0' WHERE OptionID = 30"));
    EXPECT_EQ(common::IsMDabhKonst(session), false);
    EXPECT_TRUE(session->ExecuteSql("DELETE FROM OpactMD"));
    EXPECT_RAISES(3021, common::GetActMD(session));
    EXPECT_TRUE(session->ExecuteSql("DROP TABLE OpactMD"));
    EXPECT_EQ(common::GetActMD(session), 0);
}

}  // namespace
}  // namespace LumoSeminar
