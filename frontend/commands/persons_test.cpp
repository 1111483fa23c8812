#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;

class PersonsCommand : public Cli {
  protected:
    PersonsCommand() { UseSample(); }
};

TEST_F(PersonsCommand, ShowOfAnEmployee) {
    const auto done = Run({"persons", "show", "130"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "MDNR      1\n"
              "PersonID  130\n"
              "Kind      employee\n"
              "PersGr    AN\n"
              "PersNr    130\n"
              "Nachname  Kölbl\n"
              "Vorname   Norbert\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Json({"persons", "show", "130", "--kind", "employee"})["Nachname"], "Kölbl");
    EXPECT_EQ(Json({"persons", "show", "130", "--client", "2"})["Nachname"], "Vößing");
}

TEST_F(PersonsCommand, ShowOfApplicantsAndTemporaryWorkers) {
    EXPECT_EQ(Json({"persons", "show", "3", "--kind", "applicant"}),
              nlohmann::json::parse(R"({"MDNR": 1, "PersonID": 3, "Kind": "applicant", "PersGr": "BW",
                                        "PersNr": "B-2009-017", "Nachname": "Çelik", "Vorname": "Hüseyin"})"));
    EXPECT_EQ(Run({"persons", "show", "9", "--kind", "worker", "--format", "csv"}).out,
              "MDNR,PersonID,Kind,PersGr,PersNr,Nachname,Vorname\n1,9,worker,LA,9,Löffler,Jan\n");
}

TEST_F(PersonsCommand, HistoryShowsTheEnrolmentsBelow) {
    const auto done = Run({"persons", "show", "174", "--history"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(
        done.out,
        "MDNR      1\n"
        "PersonID  174\n"
        "Kind      employee\n"
        "PersGr    AN\n"
        "PersNr    174\n"
        "Nachname  Lorenz\n"
        "Vorname   Sandra\n"
        "\n"
        "TeilnehmerID  SemTerminID  Titel                                            BeginnDatum  EndeDatum   State      TeilnehmerKosten\n"
        "------------  -----------  -----------------------------------------------  -----------  ----------  ---------  ----------------\n"
        "         107           14  Kühlschmierstoffe prüfen und pflegen             2009-04-28   2009-04-28  enrolled              45.00\n"
        "         308           38  Messmittel richtig anwenden                      2010-01-26   2010-01-26  cancelled              0.00\n"
        "         505           60  Vom Kollegen zum Vorgesetzten                    2010-09-02   2010-10-28  enrolled             907.80\n"
        "         629           70  Zeichnungen lesen: Maße, Passungen, Oberflächen  2010-10-19   2010-10-20  cancelled              0.00\n");
    EXPECT_EQ(done.err, "4 enrolments\n");
}

TEST_F(PersonsCommand, HistoryForPrograms) {
    const auto json = Run({"persons", "show", "9", "--kind", "worker", "--history", "--format", "json"});
    const auto person = nlohmann::json::parse(json.out);
    EXPECT_EQ(person["Vorname"], "Jan");
    const auto& history = person["Enrolments"];
    ASSERT_EQ(history.size(), 2U);
    EXPECT_EQ(history[1], nlohmann::json::parse(R"({"TeilnehmerID": 79, "SemTerminID": 11,
        "Titel": "Flurförderzeuge: jährliche Unterweisung", "BeginnDatum": "2009-03-24T00:00:00",
        "EndeDatum": "2009-03-24T00:00:00", "State": "enrolled", "TeilnehmerKosten": 0})"));
    EXPECT_EQ(json.err, "");
    EXPECT_THAT(Run({"persons", "show", "9", "--kind", "worker", "--history", "--format", "csv"}).out,
                HasSubstr("1,9,worker,LA,9,Löffler,Jan\n\nTeilnehmerID,SemTerminID,Titel,"));
}

TEST_F(PersonsCommand, HistoryTakesDaysThatAreNotSetFromTheDate) {
    ASSERT_EQ(Run({"sql", "update Sem_Teilnehmer_IT set BeginnDatum = null where TeilnehmerID = 505"}).code, 0);
    EXPECT_THAT(Run({"persons", "show", "174", "--history"}).out,
                HasSubstr("  Vom Kollegen zum Vorgesetzten                    2010-09-02   2010-10-28  enrolled  "));
}

TEST_F(PersonsCommand, HistoryWithoutEnrolments) {
    ASSERT_EQ(Run({"sql", "delete from Sem_Teilnehmer_IT where BWID = 3"}).code, 0);
    const auto done = Run({"persons", "show", "3", "--kind", "applicant", "--history"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.err, "0 enrolments\n");
    EXPECT_EQ(Json({"persons", "show", "3", "--kind", "applicant", "--history"})["Enrolments"], nlohmann::json::array());
}

TEST_F(PersonsCommand, PersonsWithoutARowAreTold) {
    struct Unknown {
        const char* key;
        const char* kind;
        const char* told;
    };
    for (const auto& [key, kind, told] : {Unknown{"9999", "employee", "There is no employee 9999 of client 1."},
                                          {"0", "employee", "There is no employee 0 of client 1."},
                                          {"99", "applicant", "There is no applicant 99."},
                                          {"99", "worker", "There is no worker 99."}}) {
        const auto done = Run({"persons", "show", key, "--kind", kind, "--history"});
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, std::string("lumoseminar: ") + told + "\n");
    }
}

TEST_F(PersonsCommand, ARefusedSelectIsToldWithItsLabel) {
    ASSERT_EQ(Run({"sql", "drop table BW"}).code, 0);
    const auto done = Run({"persons", "show", "3", "--kind", "applicant", "--verbose"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, testing::StartsWith("lumoseminar: The database refused it: Invalid object name 'BW'.\n"
                                              "    error 9999, LumoSeminar\n"
                                              "    in LumoSeminar.IsInitializedPerson\n"
                                              "    in the statement Select Nachname,Vornamem,BWNr from BW where BWID = 3\n"));
}

TEST_F(PersonsCommand, WrongUsage) {
    ExpectUsage(Run({"persons"}), "A command is missing: list, find, show.", "persons");
    ExpectUsage(Run({"persons", "show"}),
                "PERSON is missing: Number or name of the employee, key or name of the applicant or temporary worker.",
                "persons show");
    ExpectUsage(Run({"persons", "show", "%"}), "PERSON: \"%\" is neither a number nor a name.", "persons show");
    ExpectUsage(Run({"persons", "show", "4294967296"}),
                "PERSON: \"4294967296\" does not fit: -2147483648 to 2147483647.", "persons show");
    ExpectUsage(Run({"persons", "find"}),
                "TEXT is missing: Parts of name, first name or number, as in Köl or \"Norbert Kölbl\".", "persons find");
    ExpectUsage(Run({"persons", "show", "1", "--kind", "AN"}), "--kind: \"AN\" is none of employee, applicant, worker.",
                "persons show");
}

}  // namespace
}  // namespace frontend
