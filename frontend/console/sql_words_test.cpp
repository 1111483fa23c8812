#include "frontend/console/sql_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Texts(std::string_view text) {
    std::vector<std::string> texts;
    for (const auto& one : CompleteSql(text, {{"Sem_Katalog_IT", {{"SemID", "int"}, {"SemTitel", "nvarchar(255)"}}},
                                              {"Sem_Termin_IT", {{"SemTerminID", "int"}, {"Titel", "nvarchar(255)"}}}})) {
        texts.push_back(one.text);
    }
    return texts;
}

TEST(CompleteSql, OffersTablesWhereOneIsWanted) {
    EXPECT_THAT(Texts("SELECT * FROM "), ElementsAre("Sem_Katalog_IT", "Sem_Termin_IT"));
    EXPECT_THAT(Texts("UPDATE sem_t"), ElementsAre("Sem_Termin_IT"));
}

TEST(CompleteSql, OffersColumnsOfTheTablesThatAreNamed) {
    EXPECT_THAT(Texts("SELECT * FROM Sem_Katalog_IT WHERE semt"), ElementsAre("SemTitel"));
    EXPECT_THAT(Texts("SELECT Sem_Termin_IT."), ElementsAre("SemTerminID", "Titel"));
    EXPECT_THAT(Texts("SELECT * FROM Sem_Katalog_IT k INNER JOIN Sem_Termin_IT t ON k.SemI"), ElementsAre("SemID"));
}

TEST(CompleteSql, OffersAllColumnsWhereNoTableIsNamedYet) {
    EXPECT_THAT(Texts("SELECT Sem"), ElementsAre("SemID", "SemTitel", "SemTerminID", "Sem_Katalog_IT", "Sem_Termin_IT"));
    EXPECT_THAT(Texts("SELECT "), IsEmpty());
}

TEST(CompleteSql, OffersWordsOfTheLanguage) {
    EXPECT_THAT(Texts("sel"), ElementsAre("SELECT"));
    EXPECT_THAT(Texts("SELECT 1 FROM Sem_Termin_IT wh"), ElementsAre("WHEN", "WHERE"));
    EXPECT_THAT(Texts(""), IsEmpty());
}

}  // namespace
}  // namespace frontend
