#include <LumoSeminar/catalogue/clsSeminar.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/colSeminare.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/comma_locale.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>

namespace LumoSeminar {
namespace {

using namespace seminar_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

const std::string kLabel = " LumoSeminar062.clsSeminar.";

Ref<clsSeminar> Bound(const Ref<DataSession>& session, Int32 key) {
    auto seminar = New<clsSeminar>();
    EXPECT_EQ(seminar->Init(key, session), true);
    return seminar;
}

TEST(clsSeminar, InitBindsWithoutAStatement) {
    Script script;
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->SemID(), 5);
    EXPECT_EQ(seminar->Key(), "0000000005");
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
}

TEST(clsSeminar, InitWithAnEmptySessionIsFalseAndKeepsNothing) {
    clsSeminar seminar;
    EXPECT_EQ(seminar.Init(5, nullptr), false);
    EXPECT_EQ(seminar.SemID(), 0);
    EXPECT_EQ(seminar.SemTitel(), "");
}

TEST(clsSeminar, KeyHasTenDigits) {
    Script script;
    EXPECT_EQ(Bound(script.Session(), 0)->Key(), "0000000000");
    EXPECT_EQ(Bound(script.Session(), 2147483647)->Key(), "2147483647");
    EXPECT_EQ(Bound(script.Session(), -1)->Key(), "-0000000001");
}

TEST(clsSeminar, AnUpdateWritesWhatWasLetAfterTheLoad) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    script.ExecuteSql(
        "UPDATE Sem_Katalog_IT SET  MDNr = 5, SemCode = 'BS-01', SemTitel = 'Brandschutz für Führungskräfte', Sachbearbeiter = 12, "
        "Status = 2, InhaltZielID = 3, TeilnehmerMIN = 4, TeilnehmerMAX = 12, TeilnehmerOPT = 8, Stunden = 7.25, Sitzungen = 3, "
        "SerienID = 7, KostenProTN = 120.5, Anzahlung = 20, Stornokosten = 25.5, Abbruchkosten = 99, FristStorno = 14, "
        "FristAbbruch = 15, FristAnmeldung = 16, Wiederholung = 24 WHERE SemID = 5");
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->Stunden(), 6.5);
    seminar->Stunden(7.25);
    EXPECT_EQ(seminar->UpdateDatabase(), true);
    EXPECT_EQ(seminar->Stunden(), 7.25);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, AnUpdateWritesTheWordsForNothingAndAnEmptyTitleAsItIs) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {NullRow()});
    script.ExecuteSql(
        "UPDATE Sem_Katalog_IT SET  MDNr = 0, SemCode = '', SemTitel = '', Sachbearbeiter = NUll, Status = 1, InhaltZielID = NUll, "
        "TeilnehmerMIN = NUll, TeilnehmerMAX = NUll, TeilnehmerOPT = NUll, Stunden = 8, Sitzungen = 1, SerienID = NUll, "
        "KostenProTN = NUll, Anzahlung = NUll, Stornokosten = NUll, Abbruchkosten = NUll, FristStorno = NUll, FristAbbruch = NUll, "
        "FristAnmeldung = NUll, Wiederholung = NUll WHERE SemID = 5");
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->SemTitel(), "<neues Seminar>");
    seminar->SemTitel("");
    seminar->Status(0);
    seminar->Sitzungen(0);
    seminar->Stunden(0);
    EXPECT_EQ(seminar->UpdateDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, AnUpdateOfAnUnreadSeminarDoesNothing) {
    Script script;
    const auto seminar = Bound(script.Session(), 5);
    seminar->SemTitel("A");
    EXPECT_EQ(seminar->UpdateDatabase(), false);
    script.OpenSelect(Select(5)).Rows(kColumns, {});
    EXPECT_EQ(seminar->SemTitel(), "");
    EXPECT_EQ(seminar->UpdateDatabase(), false) << "nor does one of a seminar without a row";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, ANewSeminarGetsTheNextKeyAndIsReadAnewAfterTheWrite) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.LookupValue("max(SemID)", "Sem_Katalog_IT", "").Gives(41);
    script.ExecuteSql(Insert("42,0,'','A',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll"));
    auto row = NullRow();
    row[2] = "A, wie die Datenbank sie hält";
    script.OpenSelect(Select(42)).Rows(kColumns, {row});
    const auto seminar = Bound(script.Session(), 0);
    seminar->SemTitel("A");
    EXPECT_EQ(seminar->SemTitel(), "") << "a get of a seminar without a row gives the empty value and keeps the let";
    EXPECT_EQ(seminar->WriteToDatabase(), true);
    EXPECT_EQ(seminar->SemID(), 42);
    EXPECT_EQ(seminar->SemTitel(), "A, wie die Datenbank sie hält");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, AnInsertWritesAllColumns) {
    Script script;
    script.ExecuteSql(Insert("7,-1,'Ü-1','Müller & Söhne',12,2,3,4,12,8,6.5,3,9,120.5,20,25.5,0.0001,14,15,16,24"));
    const auto seminar = Bound(script.Session(), 7);
    seminar->MDNR(-1);
    seminar->SemCode("Ü-1");
    seminar->SemTitel("Müller & Söhne");
    seminar->Sachbearbeiter(12);
    seminar->Status(2);
    seminar->InhaltZielID(3);
    seminar->TeilnehmerMIN(4);
    seminar->TeilnehmerMAX(12);
    seminar->TeilnehmerOPT(8);
    seminar->Stunden(6.5);
    seminar->Sitzungen(3);
    seminar->SerienID(9);
    seminar->KostenProTN(Money::FromUnits(1'205'000));
    seminar->Anzahlung(Money(20));
    seminar->StornoKosten(Money::FromUnits(255'000));
    seminar->Abbruchkosten(Money::FromUnits(1));
    seminar->FristStorno(14);
    seminar->FristAbbruch(15);
    seminar->FristAnmeldung(16);
    seminar->Wiederholung(24);
    EXPECT_EQ(seminar->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, TheFirstKeyOfAnEmptyTableIsOne) {
    Script script;
    script.LookupValue("max(SemID)", "Sem_Katalog_IT", "").Gives(Variant::Null());
    script.ExecuteSql(
        Insert("1,0,'','<neues Seminar>',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll"));
    EXPECT_EQ(Bound(script.Session(), 0)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, BehindTheLargestKeyThereIsNone) {
    Script script;
    script.LookupValue("max(SemID)", "Sem_Katalog_IT", "").Gives(2147483647);
    const auto seminar = Bound(script.Session(), 0);
    EXPECT_RAISES_UNDER(6, (std::vector<std::string>{kLabel + "WriteToDatabase"}), seminar->WriteToDatabase());
    EXPECT_EQ(seminar->SemID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, ARefusedInsertRaises9999AndKeepsTheKey) {
    Script script;
    script.LookupValue("max(SemID)", "Sem_Katalog_IT", "").Gives(4);
    script
        .ExecuteSql(Insert("5,0,'','Rock'n Roll',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll"))
        .Refused("Falsche Syntax in der Nähe von 'n'.");
    const auto seminar = Bound(script.Session(), 0);
    seminar->SemTitel("Rock'n Roll");
    const auto error = RaisedBy([&] { return seminar->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "Falsche Syntax in der Nähe von 'n'.\r\n LumoSeminar062.clsSeminar.WriteToDatabase");
    EXPECT_EQ(seminar->SemID(), 5);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, WriteAlwaysInsertsAlsoAfterALoad) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    script
        .ExecuteSql(Insert("5,5,'BS-01','Brandschutz für Führungskräfte',12,2,3,4,12,8,6.5,3,7,120.5,20,25.5,99,14,15,16,24"))
        .Refused("Violation of PRIMARY KEY constraint");
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->Status(), 2);
    EXPECT_RAISES(9999, seminar->WriteToDatabase());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, UnderADecimalCommaTheInsertOfHoursShiftsTheStatementAndTheUpdateIsMended) {
    const test_support::CommaLocale comma;
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    script
        .ExecuteSql(Insert("5,5,'BS-01','Brandschutz für Führungskräfte',12,2,3,4,12,8,6,5,3,7,120.5,20,25.5,99,14,15,16,24"))
        .Refused("There are more columns in the VALUES clause.");
    script.ExecuteSql(
        "UPDATE Sem_Katalog_IT SET  MDNr = 5, SemCode = 'BS-01', SemTitel = 'Brandschutz für Führungskräfte', Sachbearbeiter = 12, "
        "Status = 2, InhaltZielID = 3, TeilnehmerMIN = 4, TeilnehmerMAX = 12, TeilnehmerOPT = 8, Stunden = 6.5, Sitzungen = 3, "
        "SerienID = 7, KostenProTN = 120.5, Anzahlung = 20, Stornokosten = 25.5, Abbruchkosten = 99, FristStorno = 14, "
        "FristAbbruch = 15, FristAnmeldung = 16, Wiederholung = 24 WHERE SemID = 5");
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->Stunden(), 6.5);
    EXPECT_RAISES(9999, seminar->WriteToDatabase());
    EXPECT_EQ(seminar->UpdateDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, AnotherKeyOnALoadedSeminarDoesNotLoadAgain) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {NullRow()});
    script.ExecuteSql(
        Insert("6,0,'','<neues Seminar>',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll"));
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->Status(), 1);
    seminar->SemID(6);
    EXPECT_EQ(seminar->SemTitel(), "<neues Seminar>");
    EXPECT_EQ(seminar->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, ASecondInitKeepsALoadedSeminarLoaded) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->Status(), 2);
    EXPECT_EQ(seminar->Init(6, script.Session()), true);
    EXPECT_EQ(seminar->SemID(), 6);
    EXPECT_EQ(seminar->Status(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, OperationsOfAnUnboundSeminarRaise91WithTheirLabel) {
    clsSeminar seminar;
    EXPECT_EQ(seminar.SemTitel(), "");
    EXPECT_RAISES_UNDER(91, (std::vector<std::string>{kLabel + "WriteToDatabase"}), seminar.WriteToDatabase());
    EXPECT_EQ(seminar.UpdateDatabase(), false);
}

TEST(clsSeminar, TextsGoIntoTheStatementAsTheyStand) {
    for (const Text& title :
         {Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"), Text("{SemID} {Status or 1}"), Text(100'000, 'x')}) {
        Script script;
        script.ExecuteSql(
            Insert("3,0,'','" + title + "',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll"));
        const auto seminar = Bound(script.Session(), 3);
        seminar->SemTitel(title);
        EXPECT_EQ(seminar->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSeminar, AWriteFailsAsDocumentedAtEachStep) {
    const std::string insert =
        Insert("42,0,'','<neues Seminar>',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll");
    const std::string insert_as_first =
        Insert("1,0,'','<neues Seminar>',NUll,1,NUll,NUll,NUll,NUll,8,1,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll,NUll");
    ExpectFailures(
        [&](Script& script) {
            script.LookupValue("max(SemID)", "Sem_Katalog_IT").Gives(41);
            script.ExecuteSql(insert);
        },
        [](const Ref<DataSession>& session) { Bound(session, 0)->WriteToDatabase(); },
        {{1, kNotOk, 9999, {kLabel + "WriteToDatabase"}, {"ExecuteSql: " + insert_as_first}},
         {2, kNotOk, 9999, {kLabel + "WriteToDatabase"}},
         {1, kRaises, 7001, {kLabel + "WriteToDatabase"}},
         {2, kRaises, 7001, {kLabel + "WriteToDatabase"}}});
}

TEST(clsSeminar, AnUpdateFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(Select(5)).Rows(kColumns, {NullRow()});
            script.ExecuteSql(
                "UPDATE Sem_Katalog_IT SET  MDNr = 0, SemCode = '', SemTitel = '<neues Seminar>', Sachbearbeiter = NUll, Status = 1, "
                "InhaltZielID = NUll, TeilnehmerMIN = NUll, TeilnehmerMAX = NUll, TeilnehmerOPT = NUll, Stunden = 8, Sitzungen = 1, "
                "SerienID = NUll, KostenProTN = NUll, Anzahlung = NUll, Stornokosten = NUll, Abbruchkosten = NUll, FristStorno = "
                "NUll, FristAbbruch = NUll, FristAnmeldung = NUll, Wiederholung = NUll WHERE SemID = 5");
        },
        [](const Ref<DataSession>& session) {
            const auto seminar = Bound(session, 5);
            seminar->Status();
            (void)seminar->UpdateDatabase();
        },
        {{1, kNotOk},
         {2, kNotOk, 9999, {kLabel + "UpdateDatabase"}},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "Status -> Property GET"}},
         {2, kRaises, 7001, {kLabel + "UpdateDatabase"}}});
}

TEST(clsSeminar, ListsItsDatesOnceBehindTheLoad) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    script.AdoConnection();
    script.OpenSelect(SelectDates(5, 5)).Rows(kDateColumns, {{17, DateTime::Of(2010, 3, 5), "Brandschutz für Führungskräfte", "BS-17"}});
    const auto seminar = Bound(script.Session(), 5);
    const auto dates = seminar->colTermine();
    ASSERT_TRUE(dates);
    EXPECT_EQ(dates->Count(), 1);
    EXPECT_EQ(dates->Item("0000000017")->Titel(false), "Brandschutz für Führungskräfte");
    EXPECT_EQ(seminar->colTermine(), dates);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, HasNoListOfDatesWithoutARow) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {});
    script.OpenSelect(Select(5)).Refused("time-out");
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_FALSE(seminar->colTermine());
    EXPECT_FALSE(seminar->colTermine());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, KeepsAnEmptyListWhereItsDatesCouldNotBeListed) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
    script.AdoConnection();
    script.OpenSelect(SelectDates(5, 5)).Refused("time-out");
    const auto seminar = Bound(script.Session(), 5);
    const auto dates = seminar->colTermine();
    ASSERT_TRUE(dates);
    EXPECT_EQ(dates->Count(), 0);
    EXPECT_EQ(seminar->colTermine(), dates);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, ListingItsDatesFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(Select(5)).Rows(kColumns, {FullRow()});
            script.AdoConnection();
            script.OpenSelect(SelectDates(5, 5)).Rows(kDateColumns, {});
        },
        [](const Ref<DataSession>& session) { Bound(session, 5)->colTermine(); },
        {{1, kNotOk},
         {2, kNotOk, 0, {}, {"Open of the connection"}},
         {3, kNotOk},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "Termine"}},
         {2, kRaises, 7001, {" LumoSeminar062.clsColTermine.Init", kLabel + "Termine"}},
         {3, kRaises, 7001, {" LumoSeminar062.clsColTermine.LoadKeysFromDatabase", " LumoSeminar062.clsColTermine.Init", kLabel + "Termine"}}});
}

}  // namespace
}  // namespace LumoSeminar
