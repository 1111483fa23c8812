#include "frontend/cli_test.h"

namespace frontend {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(Cli, ListShowsTheSeminarsOfTheActiveClientAndTheCommonOnes) {
    UseSample();
    const auto done = Run({"seminars", "list"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out, StartsWith("SemID  MDNr  SemCode  SemTitel  "));
    EXPECT_THAT(
        done.out,
        HasSubstr("\n    5    -1  AS-20    Brandschutzhelfer mit Löschübung                                      4        79.90\n"));
    EXPECT_EQ(done.err, std::to_string(Lines(done.out) - 2) + " seminars\n");
    for (const auto& seminar : Json({"seminars", "list"})) {
        EXPECT_TRUE(seminar["MDNr"] == 1 || seminar["MDNr"] == -1) << seminar;
    }
}

TEST_F(Cli, ListOfAnotherClient) {
    UseSample();
    const auto in_front = Json({"--client", "2", "seminars", "list"});
    EXPECT_EQ(Json({"seminars", "list", "--client", "2"}), in_front);
    int own = 0;
    for (const auto& seminar : in_front) own += seminar["MDNr"] == 2 ? 1 : 0;
    EXPECT_GT(own, 0);
    EXPECT_GT(in_front.size(), static_cast<std::size_t>(own));
}

TEST_F(Cli, ListFiltersWithoutRegardToCapitals) {
    UseSample();
    const auto done = Run({"seminars", "list", "--filter", "LÖSCHÜB"});
    EXPECT_EQ(done.out,
              "SemID  MDNr  SemCode  SemTitel                          Stunden  KostenProTN\n"
              "-----  ----  -------  --------------------------------  -------  -----------\n"
              "    5    -1  AS-20    Brandschutzhelfer mit Löschübung        4        79.90\n");
    EXPECT_THAT(done.err, testing::MatchesRegex("1 of [0-9]+ seminars\n"));
    EXPECT_EQ(Json({"seminars", "list", "--filter", "as-20"}).size(), 1U);
    EXPECT_EQ(Run({"seminars", "list", "--filter", "nosuch", "--format", "json"}).out, "[]\n");
}

TEST_F(Cli, ListWithAllColumnsAsCsv) {
    UseSample();
    const auto done = Run({"seminars", "list", "--all-columns", "--filter", "AS-20", "--format", "csv"});
    EXPECT_EQ(done.out,
              "SemID,MDNr,SemCode,SemTitel,Sachbearbeiter,Status,InhaltZielID,TeilnehmerMIN,TeilnehmerMAX,TeilnehmerOPT,"
              "Stunden,Sitzungen,SerienID,KostenProTN,Anzahlung,StornoKosten,Abbruchkosten,FristStorno,FristAbbruch,"
              "FristAnmeldung,Wiederholung\n"
              "5,-1,AS-20,Brandschutzhelfer mit Löschübung,12,1,0,6,14,10,4,1,0,79.90,0.00,30.00,79.90,10,3,14,36\n");
    EXPECT_EQ(done.err, "");
}

TEST_F(Cli, TablesFitATerminalAndAreColouredThere) {
    UseSample();
    const auto shown = RunOnTerminal({"seminars", "list", "--filter", "AS-01"});
    EXPECT_THAT(shown, HasSubstr("\x1b[1mSemTitel\x1b[0m"));
    EXPECT_THAT(shown, HasSubstr("Sicherheitsunterweisung für neue Be…"));
    EXPECT_THAT(RunOnTerminal({"seminars", "list"}, "1"), Not(HasSubstr("\x1b[")));
}

TEST_F(Cli, ShowPrintsEveryColumn) {
    UseSample();
    const auto done = Run({"seminars", "show", "5"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(Lines(done.out), 21U);
    EXPECT_THAT(done.out, HasSubstr("SemTitel        Brandschutzhelfer mit Löschübung\n"));
    EXPECT_THAT(done.out, HasSubstr("KostenProTN     79.90\n"));
    EXPECT_THAT(Run({"seminars", "show", "5", "--format", "json"}).out, HasSubstr("\n  \"KostenProTN\": 79.90,\n"));
    EXPECT_EQ(Seminar(5)["SemCode"], "AS-20");
}

TEST_F(Cli, UnknownKeysAreRefusedInASentence) {
    UseSample();
    const char* const expected = "lumoseminar: There is no seminar 999 of client 1.\n";
    for (const Arguments& arguments : {Arguments{"seminars", "show", "999"}, Arguments{"seminars", "set", "999", "Status=2"},
                                       Arguments{"seminars", "remove", "--yes", "999"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, expected);
    }
    EXPECT_EQ(Run({"seminars", "show", "36"}).code, 1) << "a seminar of client 2";
    EXPECT_EQ(Run({"seminars", "show", "36", "--client", "2"}).code, 0);
}

TEST_F(Cli, AddStoresAndShowsTheSeminar) {
    UseSample();
    const int greatest = Json({"sql", "select max(SemID) as n from Sem_Katalog_IT"})[0]["n"];
    const auto added = Json({"seminars", "add",     "--title", "Größe & \"Maß\"", "--code",    "ÜB-1",  "--status",
                             "0",        "--hours", "7.5",     "--min",           "3",         "--max", "9",
                             "--opt",    "6",       "--cost",  "1149.1234",       "--deposit", "50",    "--cancel-days",
                             "14"});
    EXPECT_EQ(added["SemID"], greatest + 1);
    EXPECT_EQ(added["MDNr"], 1);
    EXPECT_EQ(added["SemTitel"], "Größe & \"Maß\"");
    EXPECT_EQ(added["SemCode"], "ÜB-1");
    EXPECT_EQ(added["Status"], 1) << "0 is stored as 1";
    EXPECT_EQ(added["Stunden"], 7.5);
    EXPECT_EQ(added["Sitzungen"], 1);
    EXPECT_EQ(added["TeilnehmerMIN"], 3);
    EXPECT_EQ(added["TeilnehmerMAX"], 9);
    EXPECT_EQ(added["TeilnehmerOPT"], 6);
    EXPECT_EQ(added["KostenProTN"], 1149.1234);
    EXPECT_EQ(added["Anzahlung"], 50);
    EXPECT_EQ(added["FristStorno"], 14);
    EXPECT_EQ(Seminar(greatest + 1), added);
    EXPECT_EQ(Json({"seminars", "add", "--title", "Für alle", "--mdnr", "-1"})["MDNr"], -1);
    EXPECT_EQ(Json({"seminars", "add", "--title", "Zwei", "--client", "2"})["MDNr"], 2);
}

TEST_F(Cli, ATitleThatIsTooLongIsRefused) {
    UseSample();
    const int before = RowCount();
    const auto done = Run({"seminars", "add", "--title", std::string(256, 'x'), "--verbose"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_THAT(done.err,
                HasSubstr("\n    LumoSeminar062.clsSeminar.WriteToDatabase\n    in the statement INSERT INTO Sem_Katalog_IT "));
    EXPECT_EQ(RowCount(), before);
}

TEST_F(Cli, SetChangesByColumnAndByOption) {
    UseSample();
    auto expected = Seminar(5);
    const auto set =
        Json({"seminars", "set", "5", "semtitel=Löschen = Üben", "KostenProTN=81.5", "--status", "3", "--hours", "4.25"});
    expected["SemTitel"] = "Löschen = Üben";
    expected["KostenProTN"] = 81.5;
    expected["Status"] = 3;
    expected["Stunden"] = 4.25;
    EXPECT_EQ(set, expected);
    EXPECT_EQ(Seminar(5), expected);
    EXPECT_EQ(Json({"seminars", "set", "5", "Status=0"})["Status"], 1);
}

TEST_F(Cli, SetWithABadValueChangesNothing) {
    UseSample();
    const auto before = Seminar(5);
    EXPECT_EQ(Run({"seminars", "set", "5", "SemTitel=Neu", "Status=x"}).code, 2);
    EXPECT_EQ(Run({"seminars", "set", "5", "SemTitel=" + std::string(256, 'x')}).code, 1);
    EXPECT_EQ(Seminar(5), before);
}

TEST_F(Cli, RemoveTellsWhatHappened) {
    UseSample();
    const int before = RowCount();
    const auto done = Run({"seminars", "remove", "--yes", "42", "42", "--client", "2"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "SemID  SemTitel                           Outcome\n"
              "-----  ---------------------------------  -------\n"
              "   42  Büroorganisation für kleine Teams  removed\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(RowCount(), before - 1);
}

TEST_F(Cli, RemoveKeepsASeminarThatHasDatesAndRemovesTheOthers) {
    UseSample();
    const int before = RowCount();
    const auto done = Run({"seminars", "remove", "--yes", "36", "42", "--client", "2"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out,
              "SemID  SemTitel                                                   Outcome\n"
              "-----  ---------------------------------------------------------  ---------\n"
              "   36  Am Telefon überzeugen: Gespräche mit Kundinnen und Kunden  has dates\n"
              "   42  Büroorganisation für kleine Teams                          removed\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(RowCount(), before - 1);
    const auto again = Run({"seminars", "remove", "--yes", "36", "--client", "2", "--trace"});
    EXPECT_EQ(again.code, 1);
    EXPECT_THAT(again.err, HasSubstr(" FROM Sem_Termin_IT  WHERE (SemID = 36) AND (MDNr = 2 OR MDNr = -1) "));
    EXPECT_EQ(Lines(again.err), 4U) << "the login, the catalogue, the seminar, its dates: " << again.err;
}

TEST_F(Cli, RemoveWithAnUnknownKeyRemovesNothing) {
    UseSample();
    const int before = RowCount();
    EXPECT_EQ(Run({"seminars", "remove", "--yes", "42", "999", "--client", "2"}).code, 1);
    EXPECT_EQ(RowCount(), before);
}

}  // namespace
}  // namespace frontend
