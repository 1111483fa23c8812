#include "frontend/asking.h"

#include <csignal>

#include "frontend/cli_test.h"

namespace frontend {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(SentenceOn, TellsWhatThereIs) {
    EXPECT_EQ(SentenceOn({{17, "participant"}}, "goes with it", "go with it"), " 17 participants go with it.");
    EXPECT_EQ(SentenceOn({{0, "day"}, {1, "request"}}, "stays", "stay"), " 1 request stays.");
    EXPECT_EQ(SentenceOn({{1, "a"}, {1, "b"}, {2, "c"}}, "goes", "go"), " 1 a, 1 b and 2 cs go.");
    EXPECT_EQ(SentenceOn({{0, "day"}}, "goes", "go"), "");
}

class Removing : public Cli {
  protected:
    Removing() { UseSample(); }
    int Count(const std::string& table, const std::string& where) const {
        return Json({"sql", "select count(*) as n from " + table + " where " + where})[0]["n"];
    }
};

struct Removal {
    Arguments arguments;
    const char* facts;
    const char* question;
    const char* table;
    const char* where;
};

TEST_F(Removing, AsksOnATerminalAndTellsWhatGoesWithIt) {
    const Removal cases[] = {
        {{"participants", "remove", "505", "469"},
         "Participant 505, Lorenz, Sandra, of date 60: 2 cost lines go with it.\r\n",
         "Remove 2 participants? [y/N] ",
         "Sem_Teilnehmer_IT",
         "TeilnehmerID IN (505, 469)"},
        {{"dates", "remove", "60"},
         "Date 60, Vom Kollegen zum Vorgesetzten: 12 participants and 1 focus area go with it. 3 days stay behind.\r\n",
         "Remove 1 date? [y/N] ",
         "Sem_Termin_IT",
         "SemTerminID = 60"},
        {{"days", "remove", "61", "06.09.2010"}, "", "Remove 1 day? [y/N] ", "Sem_Termin_Termine_IT", "SemTerminID = 61 AND Termin = '06.09.2010'"},
        {{"needs", "remove", "31"},
         "Training need 31 of employee 190, Büro und Verwaltung: its process goes with it (\"Stufe 2 von 2: Entscheidung durch "
         "Weiterbildung\").\r\n",
         "Remove 1 training need? [y/N] ",
         "AN_WBBedarf_IT",
         "WBID = 31"},
        {{"seminars", "remove", "42", "--client", "2"},
         "Seminar 42, Büroorganisation für kleine Teams: 1 focus area stays behind.\r\n",
         "Remove 1 seminar? [y/N] ",
         "Sem_Katalog_IT",
         "SemID = 42"},
    };
    for (const auto& [arguments, facts, question, table, where] : cases) {
        SCOPED_TRACE(arguments[0]);
        const int before = Count(table, where);
        ASSERT_NE(before, 0);
        for (const char* no : {"\n", "no\n", "\x04"}) {
            const auto kept = Sit(arguments, {.acts = {{question, no}}});
            EXPECT_EQ(kept.code, 1);
            EXPECT_THAT(kept.screen, AllOf(HasSubstr(facts), HasSubstr("lumoseminar: Nothing was removed.\r\n")));
        }
        EXPECT_EQ(Sit(arguments, {.acts = {{question, "\x03"}}}).code, 128 + SIGINT);
        const auto refused = Run(arguments, "y\n");
        EXPECT_EQ(refused.code, 1);
        EXPECT_EQ(refused.out, "");
        EXPECT_THAT(refused.err,
                    HasSubstr("lumoseminar: Nothing was removed: nobody can be asked here, and --yes was not given.\n"));
        EXPECT_EQ(Count(table, where), before);
        EXPECT_EQ(Sit(arguments, {.acts = {{question, "y\n"}}}).code, 0);
        EXPECT_EQ(Count(table, where), 0);
    }
}

TEST_F(Removing, ASeminarWithDatesIsSaidToStay) {
    const auto kept = Sit({"seminars", "remove", "5"}, {.acts = {{"Remove 1 seminar? [y/N] ", "y\n"}}});
    EXPECT_EQ(kept.code, 1);
    EXPECT_THAT(kept.screen, testing::ContainsRegex("Seminar 5, .*: it has [0-9]+ dates? and stays"));
    EXPECT_EQ(Count("Sem_Katalog_IT", "SemID = 5"), 1);
}

TEST_F(Removing, YesAnswersBeforehandAndNothingIsAsked) {
    const auto done = Run({"participants", "remove", "505", "--yes"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID = 505"), 0);
}

}  // namespace
}  // namespace frontend
