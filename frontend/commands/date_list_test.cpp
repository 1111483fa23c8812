#include "frontend/cli_test.h"
#include "frontend/output/value_text.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class DateList : public Cli {
  protected:
    DateList() { UseSample(); }

    void Sql(const std::string& text) const { ASSERT_EQ(Run({"sql", text}).code, 0) << text; }

    // The keys of the dates in each group, in the order of both.
    static std::vector<std::pair<nlohmann::json, std::vector<int>>> Tree(const nlohmann::json& rows) {
        std::vector<std::pair<nlohmann::json, std::vector<int>>> tree;
        for (const auto& row : rows) {
            if (tree.empty() || tree.back().first != row["Group"]) tree.push_back({row["Group"], {}});
            tree.back().second.push_back(row["SemTerminID"]);
        }
        return tree;
    }

    const LumoSeminar::DateTime today_ = LumoSeminar::Today();
};

TEST_F(DateList, ShowsKeyEndTitleAndCodeTheLatestFirst) {
    const auto done = Run({"dates", "list", "--seminar", "3"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "SemTerminID  EndeDatum   Titel                         Code\n"
              "-----------  ----------  ----------------------------  ----------\n"
              "         64  2010-09-21  Erste Hilfe: Grundausbildung  AS-10/10-2\n"
              "         45  2010-03-16  Erste Hilfe: Grundausbildung  AS-10/10-1\n"
              "         28  2009-09-22  Erste Hilfe: Grundausbildung  AS-10/09-2\n"
              "          5  2009-02-10  Erste Hilfe: Grundausbildung  AS-10/09-1\n");
    EXPECT_EQ(done.err, "4 dates\n");
}

TEST_F(DateList, CostsOneStatement) {
    const auto done = Run({"dates", "list", "--client", "1", "--trace", "--filter", "messmittel"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.err, ContainsRegex("^trace .* Connect  .*\n"
                                        "trace .* 69 rows  OpenSelect        SELECT SemTerminID, EndeDatum, Titel, Code  FROM [^\n]*\n"
                                        "4 of 69 dates\n$"));
    EXPECT_EQ(Lines(done.err), 3U);
}

TEST_F(DateList, IsThatOfTheClientAndOfAll) {
    const auto one = Json({"dates", "list"});
    const auto two = Json({"dates", "list", "--client", "2"});
    const auto Has = [](const nlohmann::json& list, int key) {
        return std::ranges::any_of(list, [&](const auto& row) { return row["SemTerminID"] == key; });
    };
    EXPECT_TRUE(Has(one, 61) && !Has(one, 67) && Has(one, 58));
    EXPECT_TRUE(!Has(two, 61) && Has(two, 67) && Has(two, 58));
    EXPECT_EQ(Run({"dates", "list", "--seminar", "999", "--format", "json"}).out, "[]\n");
}

TEST_F(DateList, FiltersByTextInTitleOrCodeWithoutRegardToCapitals) {
    const auto done = Run({"dates", "list", "--filter", "LÖSCHÜB", "--format", "csv"});
    EXPECT_EQ(done.out,
              "SemTerminID,EndeDatum,Titel,Code\n"
              "54,2010-06-15T00:00:00,Brandschutzhelfer mit Löschübung,AS-20/10-1\n"
              "20,2009-06-16T00:00:00,Brandschutzhelfer mit Löschübung,AS-20/09-1\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Json({"dates", "list", "--filter", "as-20/09"}).size(), 1U);
    EXPECT_THAT(Run({"dates", "list", "--filter", "nosuch"}).err, EndsWith("0 of 69 dates\n"));
}

TEST_F(DateList, AnOpenDateIsShownAsEndingTodayUnlessAllColumnsAreRead) {
    const auto open = Json({"dates", "list", "--seminar", "34"});
    const auto all = Json({"dates", "list", "--seminar", "34", "--all-columns"});
    if (LumoSeminar::Today() != today_) GTEST_SKIP() << "midnight has passed";
    ASSERT_EQ(open.size(), 1U);
    EXPECT_EQ(open[0]["EndeDatum"], IsoText(today_));
    ASSERT_EQ(all.size(), 1U);
    EXPECT_TRUE(all[0]["EndeDatum"].is_null());
    EXPECT_EQ(all[0]["Bemerkung"], "Planung: Dozent und Tage noch offen");
}

TEST_F(DateList, AllColumnsAsCsv) {
    const auto done = Run({"dates", "list", "--all-columns", "--filter", "FK-301/10-1", "--format", "csv"});
    EXPECT_EQ(done.out,
              "SemTerminID,MDNr,Status,Code,Titel,SemID,InhaltZielID,SelfService,Sachbearbeiter,BeginnDatum,EndeDatum,"
              "BeginnUhrzeit,EndeUhrzeit,MinTeil,MaxTeil,OptTeil,Stunden,Sitzungen,SerienID,KostenProTN,StornoDatum,"
              "StornoKosten,AbbruchDatum,AbbruchKosten,AnmeldefristDatum,BeurteilungID,VeranstalterID,"
              "VeranstaltungsOrtID,Bemerkung\n"
              "60,1,1,FK-301/10-1,Vom Kollegen zum Vorgesetzten,31,15,false,11,2010-09-02T00:00:00,2010-10-28T00:00:00,09:00,"
              "16:00,6,12,10,21,3,6,870.00,2010-08-05T00:00:00,250.00,2010-08-19T00:00:00,870.00,2010-07-22T00:00:00,0,9,"
              "7,Drei Module im Abstand von vier Wochen\n");
}

TEST_F(DateList, ByYear) {
    const auto done = Run({"dates", "list", "--by", "year", "--filter", "erste hilfe"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "  SemTerminID  EndeDatum   Titel                         Code\n"
              "  -----------  ----------  ----------------------------  ----------\n"
              "2010 (4 dates)\n"
              "           76  2010-11-16  Erste Hilfe: Auffrischung     AS-11/10-2\n"
              "           64  2010-09-21  Erste Hilfe: Grundausbildung  AS-10/10-2\n"
              "           50  2010-05-18  Erste Hilfe: Auffrischung     AS-11/10-1\n"
              "           45  2010-03-16  Erste Hilfe: Grundausbildung  AS-10/10-1\n"
              "2009 (3 dates)\n"
              "           28  2009-09-22  Erste Hilfe: Grundausbildung  AS-10/09-2\n"
              "           16  2009-05-12  Erste Hilfe: Auffrischung     AS-11/09-1\n"
              "            5  2009-02-10  Erste Hilfe: Grundausbildung  AS-10/09-1\n");
    EXPECT_EQ(done.err, "7 of 69 dates\n");
    EXPECT_EQ(Run({"dates", "list", "--by", "year", "--seminar", "7", "--format", "csv"}).out,
              "Group,SemTerminID,EndeDatum,Titel,Code\n"
              "2010,49,2010-04-22T00:00:00,Datenschutz am Arbeitsplatz,DS-01/10-1\n"
              "2009,10,2009-03-19T00:00:00,Datenschutz am Arbeitsplatz,DS-01/09-1\n");
}

TEST_F(DateList, ByYearAnOpenDateIsOfThisYear) {
    const auto done = Json({"dates", "list", "--by", "year", "--seminar", "34"});
    const auto all = Json({"dates", "list", "--by", "year", "--seminar", "34", "--all-columns"});
    if (LumoSeminar::Today() != today_) GTEST_SKIP() << "midnight has passed";
    const int year = std::stoi(IsoText(today_).substr(0, 4));
    EXPECT_EQ(Tree(done), (std::vector<std::pair<nlohmann::json, std::vector<int>>>{{year, {79}}}));
    EXPECT_EQ(Tree(all), Tree(done));
    EXPECT_TRUE(all[0]["EndeDatum"].is_null());
}

TEST_F(DateList, ByMonth) {
    const auto done = Run({"dates", "list", "--by", "month", "--filter", "FT-11"});
    EXPECT_THAT(done.out, HasSubstr("October 2010 (1 date)\n"
                                    "           71  2010-10-28  Fünfachsiges Fräsen für Fortgeschrittene  FT-112/10-1\n"
                                    "September 2010 (1 date)\n"
                                    "           61  2010-09-10  CNC-Drehen: Programmieren und Einrichten  FT-110/10-2\n"
                                    "June 2010 (1 date)\n"));
    const auto tree = Tree(Json({"dates", "list", "--by", "month", "--seminar", "15"}));
    ASSERT_GE(tree.size(), 2U);
    EXPECT_EQ(tree[0].first, "2010-09-01T00:00:00");
    EXPECT_EQ(tree[0].second, std::vector<int>{61});
}

TEST_F(DateList, ByBudgetPeriodADateOnTheLastOrFirstDayIsInNone) {
    Sql("update Sem_Termin_IT set EndeDatum = '31.03.2010' where SemTerminID = 64");
    Sql("update Sem_Termin_IT set EndeDatum = '01.04.2010' where SemTerminID = 45");
    const auto done = Run({"dates", "list", "--by", "budget", "--filter", "AS-1"});
    EXPECT_EQ(done.out,
              "  SemTerminID  EndeDatum   Titel                         Code\n"
              "  -----------  ----------  ----------------------------  ----------\n"
              "4/2010 - 3/2011 (2 dates)\n"
              "           76  2010-11-16  Erste Hilfe: Auffrischung     AS-11/10-2\n"
              "           50  2010-05-18  Erste Hilfe: Auffrischung     AS-11/10-1\n"
              "4/2009 - 3/2010 (2 dates)\n"
              "           28  2009-09-22  Erste Hilfe: Grundausbildung  AS-10/09-2\n"
              "           16  2009-05-12  Erste Hilfe: Auffrischung     AS-11/09-1\n"
              "4/2008 - 3/2009 (1 date)\n"
              "            5  2009-02-10  Erste Hilfe: Grundausbildung  AS-10/09-1\n"
              "In no budget period: without an end, or not between the first and the last day of one (2 dates)\n"
              "           45  2010-04-01  Erste Hilfe: Grundausbildung  AS-10/10-1\n"
              "           64  2010-03-31  Erste Hilfe: Grundausbildung  AS-10/10-2\n");
    const auto tree = Tree(Json({"dates", "list", "--by", "budget", "--seminar", "3"}));
    EXPECT_EQ(tree, (std::vector<std::pair<nlohmann::json, std::vector<int>>>{
                        {"4/2009 - 3/2010", {28}}, {"4/2008 - 3/2009", {5}}, {nullptr, {45, 64}}}));
}

TEST_F(DateList, ByBudgetPeriodAnOpenDateIsInNoneAndOneThatEndsTodayIs) {
    Sql("insert into Sem_BudgetJahr_IT (JahrID, Von, Bis) values (9, '01.01.2020', '31.12.2999')");
    Sql("update Sem_Termin_IT set EndeDatum = convert(datetime,'" + ScreenText(today_) + "',120) where SemTerminID = 81");
    const auto rows = Json({"dates", "list", "--by", "budget", "--filter", "/1"});
    if (LumoSeminar::Today() != today_) GTEST_SKIP() << "midnight has passed";
    const auto tree = Tree(rows);
    const auto Keys = [&](const nlohmann::json& group) {
        for (const auto& [name, keys] : tree) {
            if (name == group) return keys;
        }
        return std::vector<int>{};
    };
    EXPECT_EQ(Keys("1/2020 - 12/2999"), std::vector<int>{81});
    EXPECT_EQ(Keys(nullptr), (std::vector<int>{79, 80}));
    for (const auto& row : rows)
        EXPECT_EQ(row["EndeDatum"].is_null(), row["SemTerminID"] == 79 || row["SemTerminID"] == 80);
}

TEST_F(DateList, ADateStandsInEachOfTwoPeriodsThatItFallsInto) {
    Sql("insert into Sem_BudgetJahr_IT (JahrID, Von, Bis) values (9, '01.01.2009', '31.12.2009')");
    const auto done = Run({"dates", "list", "--by", "budget", "--filter", "AS-10/09-1"});
    EXPECT_THAT(done.out, HasSubstr("4/2008 - 3/2009 (1 date)\n            5  "));
    EXPECT_THAT(done.out, HasSubstr("1/2009 - 12/2009 (1 date)\n            5  "));
    EXPECT_EQ(done.err, "1 of 69 dates\n");
}

TEST_F(DateList, TreesFitATerminalAndAreColouredThere) {
    const auto shown = RunOnTerminal({"dates", "list", "--by", "year"});
    EXPECT_THAT(shown, HasSubstr("\x1b[1m2010 (36 dates)\x1b[0m\r\n"));
    EXPECT_THAT(shown, HasSubstr("Informationssicherheit: Passwörter, Phi…  DS-02/10-1\r\n"));
    EXPECT_THAT(RunOnTerminal({"dates", "list", "--by", "year"}, "1"), Not(HasSubstr("\x1b[")));
}

TEST_F(DateList, WrongUsage) {
    ExpectUsage(Run({"dates", "list", "--by", "week"}), "--by: \"week\" is none of year, month, budget.", "dates list");
    ExpectUsage(Run({"dates", "list", "--seminar", "x"}), "--seminar: \"x\" is not a whole number.", "dates list");
    ExpectUsage(Run({"dates"}), "A command is missing: list, show, add, set, remove.", "dates");
}

TEST_F(DateList, HelpTellsHowOpenDatesAreShown) {
    const auto help = Run({"dates", "list", "--help"});
    EXPECT_THAT(
        help.out,
        StartsWith("Usage: lumoseminar dates list [OPTIONS]\n\nList the dates of the client and those common to all, the latest first.\n"));
    EXPECT_THAT(help.out, HasSubstr("A date without an end stands as of today"));
}

TEST_F(DateList, ARefusedStatementIsToldAbout) {
    Sql("drop table Sem_BudgetJahr_IT");
    const auto groups = Run({"dates", "list", "--by", "budget"});
    EXPECT_EQ(groups.code, 1);
    EXPECT_EQ(groups.out, "");
    EXPECT_THAT(groups.err, HasSubstr("The database refused it: Invalid object name 'Sem_BudgetJahr_IT'."));
    Sql("drop table Sem_Termin_IT");
    const auto list = Run({"dates", "list"});
    EXPECT_EQ(list.code, 1);
    EXPECT_THAT(list.err, HasSubstr("The database refused it: Invalid object name 'Sem_Termin_IT'."));
}

}  // namespace
}  // namespace frontend
