#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class LookUps : public Cli {
  protected:
    LookUps() { UseSample(); }

    int Shown(const std::string& typed, const std::string& kind = "employee") const {
        return Json({"persons", "show", typed, "--kind", kind})["PersonID"];
    }

    void Sql(const std::string& text) const { ASSERT_EQ(Run({"sql", text}).code, 0); }
};

constexpr const char* kThreeOfOneName =
    "    241  Kölbl, Hans-Jürgen\n"
    "    259  Kölbl, Heinz\n"
    "    130  Kölbl, Norbert\n";

TEST_F(LookUps, APersonIsNamedInAnyWay) {
    for (const char* typed : {"130", "Kölbl, Norbert", "Norbert Kölbl", "Kölbl Norbert", "kölbl,norbert", "KÖLBL, NORB",
                              "  n   köl  ", "Kölbl, N"}) {
        EXPECT_EQ(Shown(typed), 130) << typed;
    }
    EXPECT_EQ(Shown("Müller"), 248);
    EXPECT_EQ(Shown("Löffler", "worker"), 9);
    EXPECT_EQ(Shown("von stein", "worker"), 13);
    EXPECT_EQ(Shown("Matthias von Stein", "worker"), 13);
    EXPECT_EQ(Shown("Çelik", "applicant"), 3);
    EXPECT_EQ(Shown("B-2009-017", "applicant"), 3);
}

TEST_F(LookUps, ANameOfSeveralPersonsIsTold) {
    const auto done = Run({"persons", "show", "Kölbl"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, std::string("lumoseminar: PERSON: \"Kölbl\" is not unambiguous: 3 employees.\n") + kThreeOfOneName);
    EXPECT_THAT(Run({"persons", "show", "Kölbl, H"}).err, HasSubstr("is not unambiguous: 2 employees.\n    241"));
}

TEST_F(LookUps, ALongListOfNamesIsCut) {
    const auto done = Run({"persons", "show", "s"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(Lines(done.err), 22U);
    EXPECT_THAT(done.err, testing::ContainsRegex("\n    and [0-9]+ more\n$"));
}

TEST_F(LookUps, ANameInFullCountsMoreThanTheFrontOfOthers) {
    Sql("insert into arbeitnehmer (MDNR, ANNR, Name, Vorname) values (1, 900, N'Müllerschön', N'Ida'), (1, 901, N'Ö', N'Ida')");
    EXPECT_EQ(Shown("Müller"), 248);
    EXPECT_EQ(Shown("Müllers"), 900);
    EXPECT_EQ(Shown("Ö"), 901);
}

TEST_F(LookUps, SignsOfAStatementAreLetters) {
    Sql("insert into arbeitnehmer (MDNR, ANNR, Name, Vorname) values (1, 900, N'O''Neill', N'D''Arcy'), (1, 901, N'X_[1]%', N'Y'), "
        "(1, 902, N'Xa1b', N'Y')");
    EXPECT_EQ(Shown("o'neill"), 900);
    EXPECT_EQ(Shown("d'arcy O'N"), 900);
    EXPECT_EQ(Shown("X_[1]%"), 901);
    EXPECT_EQ(Run({"persons", "show", "X%"}).code, 1);
    EXPECT_EQ(Run({"persons", "show", "X_1"}).code, 1);
}

TEST_F(LookUps, NobodyOfThatNameIsTold) {
    const auto none = Run({"persons", "show", "Zyx"});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.err, "lumoseminar: There is no employee \"Zyx\" of client 1.\n");
    EXPECT_EQ(Run({"persons", "show", "Çelik"}).err,
              "lumoseminar: There is no employee \"Çelik\" of client 1. Çelik, Hüseyin is applicant 3.\n");
    EXPECT_EQ(Run({"persons", "show", "Norbert Kölbl", "--client", "2"}).err,
              "lumoseminar: There is no employee \"Norbert Kölbl\" of client 2.\n");
}

TEST_F(LookUps, EachCommandTakesTheName) {
    const std::string name = "Kölbl, Norbert";
    EXPECT_EQ(Json({"participants", "enrol", "78", name, "--force"})["ANNr"], 130);
    EXPECT_EQ(Run({"check", "78", name}).out, Run({"check", "78", "130"}).out);
    EXPECT_EQ(Json({"consent", "71", name, "--user-id", "11"})["TNID"], 130);
    EXPECT_EQ(Json({"waitlist", "--person", name}), Json({"waitlist", "--person", "130"}));
    EXPECT_EQ(Json({"waitlist", "--person", name}).back()["SemTerminID"], 71);
    EXPECT_EQ(Json({"interest", "--person", name}), Json({"interest", "--person", "130"}));
    EXPECT_EQ(Json({"approve", "71", name, "--user-id", "11"})["TNID"], 130);
    EXPECT_EQ(Json({"withdraw", "71", name, "--user-id", "11"})["Consent"], false);
    EXPECT_EQ(Json({"needs", "list", name}), Json({"needs", "list", "130"}));
    for (const Arguments& arguments :
         {Arguments{"participants", "enrol", "78", "Kölbl"}, Arguments{"check", "78", "Kölbl"},
          Arguments{"consent", "71", "Kölbl", "--user-id", "11"}, Arguments{"waitlist", "--person", "Kölbl"},
          Arguments{"interest", "--person", "Kölbl"}, Arguments{"approve", "71", "Kölbl", "--user-id", "11"},
          Arguments{"withdraw", "71", "Kölbl", "--user-id", "11"}, Arguments{"needs", "list", "Kölbl"},
          Arguments{"needs", "add", "Kölbl", "8", "--user-id", "11"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1) << arguments[0];
        EXPECT_EQ(done.out, "");
        EXPECT_THAT(done.err, EndsWith(std::string("\"Kölbl\" is not unambiguous: 3 employees.\n") + kThreeOfOneName));
    }
}

TEST_F(LookUps, PersonsAreListed) {
    const auto done = Run({"persons", "list", "--kind", "worker", "--filter", "jan"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "MDNR  PersonID  Kind    PersGr  PersNr  Nachname  Vorname\n"
              "----  --------  ------  ------  ------  --------  -------\n"
              "   1         9  worker  LA      9       Löffler   Jan\n");
    EXPECT_EQ(done.err, "1 person\n");
    const int employees = Json({"sql", "select count(*) as n from arbeitnehmer where MDNR = 2"})[0]["n"];
    EXPECT_EQ(static_cast<int>(Json({"persons", "list", "--kind", "employee", "--client", "2"}).size()), employees);
    const int applicants = Json({"sql", "select count(*) as n from BW"})[0]["n"];
    const int workers = Json({"sql", "select count(*) as n from LA"})[0]["n"];
    EXPECT_EQ(static_cast<int>(Json({"persons", "list", "--client", "2"}).size()), employees + applicants + workers);
}

TEST_F(LookUps, PersonsAreFoundByPartsOfNameAndNumber) {
    EXPECT_THAT(Run({"persons", "find", "Köl"}).out, StartsWith("MDNR  PersonID  Kind "));
    EXPECT_EQ(Json({"persons", "find", "norb köl"})[0]["PersonID"], 130);
    EXPECT_EQ(Json({"persons", "find", "Kölbl, Norbert"}).size(), 1U);
    EXPECT_EQ(Json({"persons", "find", "2009-017"})[0], nlohmann::json::parse(R"({"MDNR": 1, "PersonID": 3, "Kind": "applicant", "PersGr": "BW",
                                        "PersNr": "B-2009-017", "Nachname": "Çelik", "Vorname": "Hüseyin"})"));
    EXPECT_EQ(Json({"persons", "find", "130"})[0]["Nachname"], "Kölbl");
    const auto nobody = Run({"persons", "find", "O'Zyx", "--kind", "employee"});
    EXPECT_EQ(nobody.code, 0);
    EXPECT_EQ(nobody.err, "0 persons\n");
    ExpectUsage(Run({"persons", "find", "A", "--kind", "x"}), "--kind: \"x\" is none of employee, applicant, worker.",
                "persons find");
}

TEST_F(LookUps, MasterDataIsListed) {
    EXPECT_EQ(Run({"costtypes", "list"}).out,
              "KostenArten_ID  KostenArten\n"
              "--------------  ----------------\n"
              "             1  Teilnehmerkosten\n"
              "             2  Reisekosten\n"
              "             3  Übernachtung\n"
              "             4  Verpflegung\n"
              "             5  Lehrmaterial\n");
    const auto organisers = Run({"organisers", "list", "--filter", "KÖLN"});
    EXPECT_EQ(organisers.err, "8 of 11 organisers\n");
    EXPECT_EQ(Json({"organisers", "list", "--all-columns"})[0]["EMail"], "akademie@zerspanung.example");
    EXPECT_TRUE(Json({"organisers", "list", "--all-columns"})[0].contains("Bemerkungen"));
    EXPECT_EQ(Json({"venues", "list", "--filter", "halle 3"})[0]["Name"], "Lehrwerkstatt");
    EXPECT_EQ(Run({"venues", "list"}).err, "9 venues\n");
    EXPECT_EQ(Run({"targets", "list"}).err, "10 target groups\n");
    EXPECT_EQ(Run({"targets", "list", "--seminar", "3", "--format", "csv"}).out,
              "Kurz,Bezeichnung\nFA,Facharbeiterinnen und Facharbeiter\nSB,Sicherheitsbeauftragte\n");
    EXPECT_EQ(Run({"targets", "list", "--seminar", "999"}).code, 1);
    EXPECT_EQ(Json({"clerks", "list"})[0],
              nlohmann::json::parse(R"({"Sachbearbeiter": 22, "MDNR": 2, "ANNr": 108, "Nachname": "Busch", "Vorname": "Dominik"})"));
}

TEST_F(LookUps, UsersAreListedWithTheStagesAtWhichTheyDecide) {
    EXPECT_EQ(Run({"users", "list"}).out,
              "UserID  ModulNr  Module              Stufe  Bezeichnung\n"
              "------  -------  ------------------  -----  -------------\n"
              "    11        7  training needs          1  Vorgesetzte\n"
              "    11        8  requests for dates      1  Vorgesetzte\n"
              "    12        7  training needs          2  Weiterbildung\n"
              "    12        8  requests for dates      2  Weiterbildung\n");
    // Without stages of its own a module has two, which the process objects name.
    Sql("delete from Sem_ProzessStufe_IT where ModulNr = 7");
    const auto users = Json({"users", "list", "--filter", "needs"});
    ASSERT_EQ(users.size(), 2U);
    EXPECT_EQ(users[0]["Bezeichnung"], "Vorgesetzte");
    EXPECT_EQ(users[1]["Bezeichnung"], "Weiterbildung");
}

TEST_F(LookUps, AFirstNameAloneDoesWhereNobodyIsCalledSo) {
    const auto two = Run({"persons", "show", "Petra"});
    EXPECT_EQ(two.code, 1);
    EXPECT_EQ(two.err,
              "lumoseminar: PERSON: \"Petra\" is not unambiguous: 2 employees.\n"
              "    101  Kühn, Petra\n"
              "    238  Lützenkirchen, Petra\n");
    EXPECT_EQ(Json({"persons", "show", "BÄRBEL"})["PersonID"], 321);
}

TEST_F(LookUps, ATableThatIsNotThereIsTold) {
    Sql("drop table arbeitnehmer drop table sysIData_VOrte");
    EXPECT_EQ(Run({"persons", "show", "Kölbl"}).err,
              "lumoseminar: The database refused it: Invalid object name 'arbeitnehmer'.\n");
    EXPECT_EQ(Run({"venues", "list"}).err, "lumoseminar: The database refused it: Invalid object name 'sysIData_VOrte'.\n");
    EXPECT_EQ(Run({"dates", "set", "71", "--venue", "1"}).err,
              "lumoseminar: The database refused it: Invalid object name 'sysIData_VOrte'.\n");
}

}  // namespace
}  // namespace frontend
