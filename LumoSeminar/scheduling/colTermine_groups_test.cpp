#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/date_list_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace date_list_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kLabel = "LumoSeminar.colTermine.Gruppen";

const std::string kYearsOfClient =
    "SELECT DISTINCT YEAR(ISNULL(EndeDatum,getdate())) As Jahr FROM Sem_Termin_IT WHERE (MDNr = 5 OR MDNr = -1)  ORDER BY "
    "Jahr DESC ";

void ScriptList(Script& script) {
    script.AdoConnection();
    script.OpenSelect(SelectOfClient(5)).Rows(kListColumns);
}

/// All dates of client 5.
Ref<colTermine> Listed(const Ref<DataSession>& session) {
    auto list = New<colTermine>();
    (void)list->Init(-1, 5, session);
    return list;
}

TEST(colTermineGruppen, YearsMonthsAndBudgetPeriodsHaveAStatementEach) {
    const struct {
        Int32 kind;
        const char* of_client;
        const char* of_seminar_with_filter;
        std::vector<std::string> columns;
        std::vector<Variant> row;
    } cases[] = {
        {1,
         "SELECT DISTINCT YEAR(ISNULL(EndeDatum,getdate())) As Jahr FROM Sem_Termin_IT WHERE (MDNr = 5 OR MDNr = -1) "
         " ORDER BY Jahr DESC ",
         "SELECT DISTINCT YEAR(ISNULL(EndeDatum,getdate())) As Jahr FROM Sem_Termin_IT WHERE (SemID = 3) AND "
         "(MDNr = 6 OR MDNr = -1)  AND Titel = 'Löten' ORDER BY Jahr DESC ",
         {"Jahr"},
         {2010}},
        {2,
         "SELECT DISTINCT CONVERT(datetime,'01.'+Str(Month(ISNULL(EndeDatum,getdate())))+'.'+Str(YEAR(ISNULL(EndeDatum,"
         "getdate()))),104) As JahrMonat FROM Sem_Termin_IT WHERE (MDNr = 5 OR MDNr = -1)  ORDER BY JahrMonat DESC ",
         "SELECT DISTINCT CONVERT(datetime,'01.'+Str(Month(ISNULL(EndeDatum,getdate())))+'.'+Str(YEAR(ISNULL(EndeDatum,"
         "getdate()))),104) As JahrMonat FROM Sem_Termin_IT WHERE (SemID = 3) AND (MDNr = 6 OR MDNr = -1) "
         " AND Titel = 'Löten' ORDER BY JahrMonat DESC ",
         {"JahrMonat"},
         {DateTime::Of(2010, 3, 1)}},
        {3,
         "SELECT DISTINCT ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.von,0))))+'/'+ ltrim(Str(YEAR(ISNULL("
         "Sem_BudgetJahr_IT.von,0)))) + ' - ' +  ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.bis,0))))+'/'  + "
         "ltrim(Str(YEAR(ISNULL(Sem_BudgetJahr_IT.bis,0)))) As JahrMonat  ,Sem_BudgetJahr_IT.von,Sem_BudgetJahr_IT.bis  "
         "FROM Sem_Termin_IT inner join Sem_BudgetJahr_IT on   Sem_Termin_IT.EndeDatum < Sem_BudgetJahr_IT.bis and "
         "Sem_Termin_IT.EndeDatum > Sem_BudgetJahr_IT.von WHERE (MDNr = 5 OR MDNr = -1)  ORDER BY JahrMonat DESC ",
         "SELECT DISTINCT ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.von,0))))+'/'+ ltrim(Str(YEAR(ISNULL("
         "Sem_BudgetJahr_IT.von,0)))) + ' - ' +  ltrim(Str(Month(ISNULL(Sem_BudgetJahr_IT.bis,0))))+'/'  + "
         "ltrim(Str(YEAR(ISNULL(Sem_BudgetJahr_IT.bis,0)))) As JahrMonat  ,Sem_BudgetJahr_IT.von,Sem_BudgetJahr_IT.bis  "
         "FROM Sem_Termin_IT inner join Sem_BudgetJahr_IT on   Sem_Termin_IT.EndeDatum < Sem_BudgetJahr_IT.bis and "
         "Sem_Termin_IT.EndeDatum > Sem_BudgetJahr_IT.von WHERE (SemID = 3) AND (MDNr = 6 OR MDNr = -1) "
         " AND Titel = 'Löten' ORDER BY JahrMonat DESC ",
         {"JahrMonat", "von", "bis"},
         {"1/2009 - 12/2009", DateTime::Of(2009, 1, 1), DateTime::Of(2009, 12, 31)}},
    };
    for (const auto& c : cases) {
        Script script;
        ScriptList(script);
        script.OpenSelect(c.of_client).Rows(c.columns, {c.row});
        script.AdoConnection();
        script.OpenSelect(SelectOfSeminar(3, 6, " AND Titel = 'Löten'")).Rows(kListColumns);
        script.OpenSelect(c.of_seminar_with_filter).Rows(c.columns);
        const auto list = Listed(script.Session());
        const auto rows = list->Gruppen(c.kind);
        ASSERT_TRUE(rows);
        for (std::size_t i = 0; i < c.columns.size(); ++i) {
            EXPECT_EQ(rows->Fields().Item(c.columns[i]).Value(), c.row[i]);
        }
        (void)list->Init(3, 6, script.Session(), " AND Titel = 'Löten'");
        const auto none = list->Gruppen(c.kind);
        ASSERT_TRUE(none);
        EXPECT_EQ(none->Eof(), true);
        EXPECT_EQ(script.Report(), "") << "nothing is closed here";
    }
}

TEST(colTermineGruppen, TheRowsAreTheCallersToClose) {
    Script script;
    ScriptList(script);
    script.OpenSelect(kYearsOfClient).Rows({"Jahr"}, {{2010}, {2009}});
    script.CloseRows();
    const auto rows = Listed(script.Session())->Gruppen(1);
    std::vector<Variant> years;
    for (; !rows->Eof(); rows->MoveNext()) years.push_back(rows->Fields().Item(0).Value());
    rows->Close();
    EXPECT_EQ(years, (std::vector<Variant>{2010, 2009}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTermineGruppen, TheJoinOfAListOverParticipantsIsLeftOutSoThatItsFilterFails) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectOfParticipants(5, " AND ANNR = 100")).Rows(kListColumns);
    script
        .OpenSelect(
            "SELECT DISTINCT YEAR(ISNULL(EndeDatum,getdate())) As Jahr FROM Sem_Termin_IT WHERE (MDNr = 5 OR MDNr = -1) "
            " AND ANNR = 100 ORDER BY Jahr DESC ")
        .Refused("Ungültiger Spaltenname 'ANNR'.");
    colTermine list;
    EXPECT_EQ(list.Init(-1, 5, script.Session(), " AND ANNR = 100", true), true);
    EXPECT_FALSE(list.Gruppen(1));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTermineGruppen, AnyOtherNumberSendsAnEmptyTextAndTheSessionDecides) {
    for (const Int32 kind : {4, 0, -1, 2147483647}) {
        Script script;
        ScriptList(script);
        script.OpenSelect("").Refused("Die Anweisung ist leer.");
        script.OpenSelect("").Rows({"Jahr"}, {{1999}});
        const auto list = Listed(script.Session());
        EXPECT_FALSE(list->Gruppen(kind));
        const auto rows = list->Gruppen(kind);
        ASSERT_TRUE(rows);
        EXPECT_EQ(rows->Fields().Item("Jahr").Value(), Variant(1999));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colTermineGruppen, ARefusedSelectGivesAnEmptyReferenceSilently) {
    Script script;
    ScriptList(script);
    script.OpenSelect(kYearsOfClient).Refused("time-out");
    EXPECT_FALSE(Listed(script.Session())->Gruppen(1));
    EXPECT_EQ(script.RecordsetCalls(), 1) << "the list's";
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTermineGruppen, AListThatCouldNotBeReadCanBeGrouped) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectOfClient(5)).Refused("time-out");
    script.OpenSelect(kYearsOfClient).Rows({"Jahr"}, {{2010}});
    colTermine list;
    EXPECT_EQ(list.Init(-1, 5, script.Session()), false);
    EXPECT_TRUE(list.Gruppen(1));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTermineGruppen, AListWithoutASessionRaises91WithItsLabel) {
    for (const Int32 kind : {1, 2, 3, 4}) {
        const auto error = RaisedBy([&] { return colTermine().Gruppen(kind); });
        ASSERT_TRUE(error) << kind;
        EXPECT_EQ(error->Number(), 91);
        EXPECT_EQ(ReadDescription(error->Description()).labels, Labels{kLabel});
    }
}

TEST(colTermineGruppen, FailAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptList(script);
            script.OpenSelect(kYearsOfClient).Rows({"Jahr"}, {{2010}});
        },
        [](const Ref<DataSession>& session) {
            colTermine list;
            if (list.Init(-1, 5, session)) list.Gruppen(1);
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk},
         {1, kRaises, 7001, {" LumoSeminar062.clsColTermine.Init"}},
         {2, kRaises, 7001, {" LumoSeminar062.clsColTermine.LoadKeysFromDatabase", " LumoSeminar062.clsColTermine.Init"}},
         {3, kRaises, 7001, {kLabel}}});
}

}  // namespace
}  // namespace LumoSeminar
