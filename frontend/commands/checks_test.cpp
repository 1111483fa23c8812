#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

// What is looked at before something is written.
class Checks : public Cli {
  protected:
    Checks() { UseSample(); }

    void TearDown() override { EXPECT_EQ(Everything(), before_) << "nothing may have been written"; }

    void NoSuch(const Arguments& arguments, const std::string& told) const {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1) << told;
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, "lumoseminar: " + told + "\n");
    }

    void SetUp() override {
        ASSERT_EQ(
            Run({"sql", "update Sem_Termin_IT set BeginnUhrzeit = null, EndeUhrzeit = null where SemTerminID = 62"}).code, 0);
        before_ = Everything();
    }

    std::string Everything() const {
        std::string all;
        for (const char* table : {"Sem_Katalog_IT", "Sem_Termin_IT", "Sem_Termin_Termine_IT", "Sem_Serien_IT",
                                  "Sem_Teilnehmer_IT", "Sem_Teilnehmer_Kosten_IT"}) {
            all += Run({"sql", std::string("select * from ") + table, "--format", "csv"}).out;
        }
        return all;
    }

  private:
    std::string before_;
};

TEST_F(Checks, LeastAndMostOfASeminar) {
    const char* const above = "TeilnehmerMIN (5) must not be greater than TeilnehmerMAX (3).";
    ExpectUsage(Run({"seminars", "add", "--title", "A", "--min", "5", "--max", "3"}), above, "seminars add");
    ExpectUsage(Run({"seminars", "set", "13", "TeilnehmerMAX=3"}), above, "seminars set");
    ExpectUsage(Run({"seminars", "set", "13", "--min", "13"}),
                "TeilnehmerMIN (13) must not be greater than TeilnehmerMAX (12).", "seminars set");
}

TEST_F(Checks, LeastAndMostOfADate) {
    // The seminar has 5 and 12.
    ExpectUsage(Run({"dates", "add", "--seminar", "13", "--max", "4"}),
                "MinTeil (5) must not be greater than MaxTeil (4).", "dates add");
    ExpectUsage(Run({"dates", "set", "71", "MinTeil=6"}), "MinTeil (6) must not be greater than MaxTeil (5).", "dates set");
}

TEST_F(Checks, KeysThatAreNotThere) {
    NoSuch({"seminars", "add", "--title", "A", "--series", "99"},
           "There is no series 99. \"lumoseminar series list\" tells which there are.");
    NoSuch({"seminars", "set", "5", "SerienID=99"}, "There is no series 99. \"lumoseminar series list\" tells which there are.");
    NoSuch({"seminars", "set", "5", "InhaltZielID=99"}, "There is no goal and content text 99.");
    NoSuch({"dates", "add", "--seminar", "999"}, "There is no seminar 999 of client 1.");
    NoSuch({"dates", "add", "--seminar", "5", "--series", "99", "--begin", "today"},
           "There is no series 99. \"lumoseminar series list\" tells which there are.");
    NoSuch({"dates", "set", "71", "SemID=36"}, "There is no seminar 36 of client 1.");
    NoSuch({"dates", "set", "71", "--organiser", "99"},
           "There is no organiser 99. \"lumoseminar organisers list\" tells which there are.");
    NoSuch({"dates", "set", "71", "--venue", "99"}, "There is no venue 99. \"lumoseminar venues list\" tells which there are.");
    NoSuch({"dates", "set", "71", "--clerk", "99"}, "There is no clerk 99. \"lumoseminar clerks list\" tells which there are.");
    NoSuch({"participants", "set", "505", "SemTerminID=999"}, "There is no date 999 of client 1.");
    NoSuch({"participants", "set", "505", "ANNr=9999"}, "There is no employee 9999 of client 1.");
    NoSuch({"participants", "set", "505", "MDNr=9"}, "There is no employee 174 of client 9.");
    NoSuch({"participants", "set", "505", "BWID=99"},
           "There is no applicant 99. \"lumoseminar persons list --kind applicant\" tells which there are.");
    NoSuch({"participants", "costs", "505", "--add", "1", "--type", "99"},
           "There is no cost type 99. \"lumoseminar costtypes list\" tells which there are.");
}

TEST_F(Checks, DaysOfADate) {
    const char* const left = "EndeDatum must not lie before BeginnDatum: no day would be left.";
    ExpectUsage(Run({"dates", "add", "--seminar", "5", "--begin", "+7d", "--end", "today"}), left, "dates add");
    ExpectUsage(Run({"dates", "set", "71", "EndeDatum=25.10.2010"}), left, "dates set");
    ExpectUsage(Run({"dates", "add", "--seminar", "5", "--end", "today"}),
                "EndeDatum needs a BeginnDatum: the days go from the one to the other.", "dates add");
}

TEST_F(Checks, TimesOfADate) {
    ExpectUsage(Run({"dates", "add", "--seminar", "5", "--begin", "today", "--from", "9", "--to", "8.30"}),
                "EndeUhrzeit (08:30) must not lie before BeginnUhrzeit (09:00).", "dates add");
    // Series 3 is from 16:30 to 18:00.
    ExpectUsage(Run({"dates", "add", "--seminar", "5", "--series", "3", "--begin", "today", "--from", "18:30"}),
                "EndeUhrzeit (18:00) must not lie before BeginnUhrzeit (18:30).", "dates add");
    ExpectUsage(Run({"dates", "set", "71", "BeginnUhrzeit=23:00"}),
                "EndeUhrzeit (16:00) must not lie before BeginnUhrzeit (23:00).", "dates set");
}

TEST_F(Checks, TimesOfADay) {
    ExpectUsage(Run({"days", "add", "71", "1.11.2010", "--from", "9", "--to", "8"}),
                "--to (08:00) must not lie before --from (09:00).", "days add");
    ExpectUsage(Run({"days", "add", "71", "1.11.2010", "--from", "23:00"}),
                "EndeUhrzeit of the date (16:00) must not lie before --from (23:00).", "days add");
}

TEST_F(Checks, TimesOfASeries) {
    ExpectUsage(Run({"series", "add", "--begin", "17:00", "--end", "9:00", "--daily"}),
                "--end (09:00) must not lie before --begin (17:00).", "series add");
}

TEST_F(Checks, AttendanceOfAParticipant) {
    // From 02.09.2010 to 28.10.2010, as the date.
    ExpectUsage(Run({"participants", "set", "505", "EndeDatum=1.9.2010"}),
                "EndeDatum (01.09.2010) must not lie before BeginnDatum (02.09.2010).", "participants set");
    ExpectUsage(Run({"participants", "set", "505", "BeginnDatum=1.12.2010", "EndeDatum="}),
                "EndeDatum (28.10.2010) must not lie before BeginnDatum (01.12.2010).", "participants set");
    ExpectUsage(Run({"participants", "set", "505", "BegUhrzeit=12", "EndUhrzeit=11"}),
                "EndUhrzeit (11:00) must not lie before BegUhrzeit (12:00).", "participants set");
    ExpectUsage(Run({"participants", "enrol", "78", "130", "--begin", "1.1.2011", "--end", "31.12.2010"}),
                "EndeDatum (31.12.2010) must not lie before BeginnDatum (01.01.2011).", "participants enrol");
}

class StoredOddly : public Cli {
  protected:
    StoredOddly() { UseSample(); }
};

// What others have stored does not stand in the way of a change of something else.
TEST_F(StoredOddly, OnlyWhatIsTypedIsChecked) {
    ASSERT_EQ(Run({"sql",
                   "update Sem_Katalog_IT set TeilnehmerMIN = 9, TeilnehmerMAX = 8, SerienID = 99 where SemID = 13 "
                   "update Sem_Termin_IT set MinTeil = 9, MaxTeil = 8, VeranstalterID = 99, "
                   "BeginnUhrzeit = '30.12.1899 17:00', EndeUhrzeit = '30.12.1899 08:00' where SemTerminID = 71"})
                  .code,
              0);
    EXPECT_EQ(Json({"seminars", "set", "13", "SemCode=X"})["SemCode"], "X");
    EXPECT_EQ(Json({"dates", "set", "71", "Code=X"})["Code"], "X");
    EXPECT_EQ(Json({"seminars", "set", "13", "TeilnehmerMAX=0"})["TeilnehmerMAX"], 0) << "no limit";
    EXPECT_TRUE(Json({"dates", "set", "71", "BeginnUhrzeit=", "SemID=0"})["BeginnUhrzeit"].is_null());
}

}  // namespace
}  // namespace frontend
