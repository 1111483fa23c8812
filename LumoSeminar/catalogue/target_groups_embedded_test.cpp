#include <gtest/gtest.h>

#include <memory>

#include <LumoSeminar/catalogue/target_groups.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/processes.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using LumoConnection::EmbeddedSession;
using test_support::RaisedBy;
using test_support::Rows;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Value;
using test_support::Write;

/// Seminars 7 and 8 with two groups each, and a goal.
Ref<DataSession> SmallDatabase() {
    const auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO sysIData_Zielgruppen (ID, Kurz, Bezeichnung) VALUES (1, N'FK', N'Führungskräfte'), "
          "(5, N'VW', N'Verwaltung und Büro'), (7, N'AD', N'Außendienst und Kundendienst')");
    Write(*session, "INSERT INTO Sem_Zielgruppen_IT (SemID, ZielGruppeID) VALUES (7, 1), (7, 5), (8, 5), (8, 7)");
    Write(*session, "INSERT INTO Sem_ZielInhalt_IT (ZielInhaltID, Ziel, Inhalt) VALUES (1, N'Überblick', N'Übungen')");
    return session;
}

Ref<colSemZielgruppen> Listed(const Ref<DataSession>& session, Int32 seminar) {
    auto list = New<colSemZielgruppen>();
    EXPECT_EQ(list->Init(seminar, session), true);
    return list;
}

Rows NamesOf(const Ref<colSemZielgruppen>& list) {
    Rows names;
    for (const auto& group : list->NewEnum()) names.push_back({group->BezeichungKurz(), group->Bezeichung()});
    return names;
}

std::vector<std::string> LabelsOf(const Error& error) { return ReadDescription(error.Description()).labels; }

TEST(TargetGroupsForReal, TheGroupsOfTheSampleAreListedAsTheyStand) {
    const auto session = SampleDatabase();
    Int32 listed = 0;
    for (Int32 seminar = 1; seminar <= 42; ++seminar) {
        const Rows names = NamesOf(Listed(session, seminar));
        EXPECT_EQ(names, Select(*session,
                                "SELECT z.Kurz, z.Bezeichnung FROM Sem_Zielgruppen_IT AS s INNER JOIN sysIData_Zielgruppen AS "
                                "z ON s.ZielGruppeID = z.ID WHERE s.SemID = " +
                                    std::to_string(seminar)));
        EXPECT_FALSE(names.empty()) << seminar;
        listed += static_cast<Int32>(names.size());
    }
    EXPECT_EQ(Variant(listed), Value(*session, "SELECT COUNT(*) FROM Sem_Zielgruppen_IT"));
    EXPECT_EQ(NamesOf(Listed(session, 8)),
              (Rows{{"FK", "Führungskräfte"}, {"VW", "Verwaltung und Büro"}, {"AD", "Außendienst und Kundendienst"}}));
}

TEST(TargetGroupsForReal, ASeminarWithoutGroupsHasAnEmptyList) {
    const auto session = SmallDatabase();
    for (const Int32 seminar : {0, 43, -1}) EXPECT_EQ(Listed(session, seminar)->Count(), 0);
}

TEST(TargetGroupsForReal, NamesKeepTheirUmlautsAndQuotesAndNullsAreEmpty) {
    const auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO sysIData_Zielgruppen (ID, Kurz, Bezeichnung) VALUES (1, N'Ä''s', N'Ärztinnen \"Süd\", O''Neill'), "
          "(2, NULL, N'Größe'), (3, N'ß', NULL)");
    Write(*session, "INSERT INTO Sem_Zielgruppen_IT (SemID, ZielGruppeID) VALUES (-5, 1), (-5, 2), (-5, 3)");
    EXPECT_EQ(NamesOf(Listed(session, -5)), (Rows{{"Ä's", "Ärztinnen \"Süd\", O'Neill"}, {"", "Größe"}, {"ß", ""}}));
}

TEST(TargetGroupsForReal, AGroupThatHasNoNamesIsListedWithEmptyTexts) {
    const auto session = SmallDatabase();
    Write(*session, "DELETE FROM sysIData_Zielgruppen WHERE ID = 5");
    EXPECT_EQ(NamesOf(Listed(session, 8)), (Rows{{"", ""}, {"AD", "Außendienst und Kundendienst"}}));
}

TEST(TargetGroupsForReal, AGroupIsReadForItsSeminarOnly) {
    const auto session = SmallDatabase();
    clsSemZielgruppe group;
    EXPECT_EQ(group.Init(8, 5, session), true);
    EXPECT_EQ(group.Bezeichung(), "Verwaltung und Büro");
    clsSemZielgruppe other;
    EXPECT_EQ(other.Init(8, 1, session), true);
    EXPECT_EQ(other.Bezeichung(), "") << "seminar 8 is not for group 1";
}

TEST(TargetGroupsForReal, WhatWasReadAndWhatIsLetStayInTheObject) {
    const auto session = SmallDatabase();
    const auto list = Listed(session, 7);
    Write(*session, "UPDATE sysIData_Zielgruppen SET Bezeichnung = N'Büro' WHERE ID = 5");
    list->Item(1)->Bezeichung("Leitung");
    EXPECT_EQ(NamesOf(list), (Rows{{"FK", "Leitung"}, {"VW", "Verwaltung und Büro"}}));
    EXPECT_EQ(NamesOf(Listed(session, 7)), (Rows{{"FK", "Führungskräfte"}, {"VW", "Büro"}}));
}

TEST(TargetGroupsForReal, WithoutATableTheListRaisesWhatTheDatabaseSays) {
    const auto session = SmallDatabase();
    Write(*session, "DROP TABLE sysIData_Zielgruppen");
    colSemZielgruppen list;
    const auto names = RaisedBy([&] { return list.Init(8, session); });
    ASSERT_TRUE(names);
    EXPECT_EQ(names->Number(), 208);
    EXPECT_NE(names->Description().find("sysIData_Zielgruppen"), Text::npos) << names->Description();
    EXPECT_EQ(LabelsOf(*names),
              (std::vector<std::string>{" LumoSeminar.clsSemZielgruppe.Init", " LumoSeminar.colSemZielgruppen.Init"}));
    EXPECT_EQ(list.Count(), 0);

    Write(*session, "DROP TABLE Sem_Zielgruppen_IT");
    const auto groups = RaisedBy([&] { return list.Init(8, session); });
    ASSERT_TRUE(groups);
    EXPECT_EQ(groups->Number(), 208);
    EXPECT_EQ(LabelsOf(*groups), (std::vector<std::string>{" LumoSeminar.colSemZielgruppen.Init"}));
}

TEST(TargetGroupsForReal, AClosedDatabaseIsOpenedAgainAndOneThatIsGoneRaises) {
    auto folder = std::make_unique<test_support::Folder>();
    const auto session = New<EmbeddedSession>();
    ASSERT_TRUE(session->Connect("Provider=Embedded;Data Source=" + folder->File("lumo.db") + ";Sync=Normal", "sa", "", 30));
    test_support::RunSchemaFile(*session, "schema.sql");
    Write(*session, "INSERT INTO sysIData_Zielgruppen (ID, Kurz, Bezeichnung) VALUES (1, N'AZ', N'Auszubildende')");
    Write(*session, "INSERT INTO Sem_Zielgruppen_IT (SemID, ZielGruppeID) VALUES (3, 1)");
    session->Close();
    EXPECT_EQ(NamesOf(Listed(session, 3)), (Rows{{"AZ", "Auszubildende"}}));
    EXPECT_TRUE(session->IsOpen());

    session->Close();
    folder.reset();
    colSemZielgruppen list;
    const auto error = RaisedBy([&] { return list.Init(3, session); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), session->LastErrorNumber());
    EXPECT_NE(error->Number(), 0);
    EXPECT_EQ(LabelsOf(*error),
              (std::vector<std::string>{"LumoSeminar.common.OpenADOConnection", " LumoSeminar.colSemZielgruppen.Init"}));
}

TEST(GoalsForReal, TheGoalsOfTheSampleAreReadAsTheyStand) {
    const auto session = SampleDatabase();
    const Rows stored = Select(*session, "SELECT ZielInhaltID, Ziel, Inhalt FROM Sem_ZielInhalt_IT");
    EXPECT_EQ(stored.size(), 20u);
    for (const auto& row : stored) {
        clsSemZielInhalt goal;
        EXPECT_EQ(goal.Init(To<Int32>(row[0]), session), true);
        EXPECT_EQ((std::vector<Variant>{goal.ZielInhaltID(), goal.Ziel(), goal.Inhalt()}), row);
    }
    clsSemZielInhalt goal;
    goal.Init(5, session);
    EXPECT_EQ(goal.Inhalt(), "Begrüßung, Telefon, E-Mail, Zahlen und Maße, Höflichkeit. Niveau A2.");
}

TEST(GoalsForReal, WithoutARowEverythingIsEmptyAndTheKey0) {
    const auto session = SmallDatabase();
    for (const Int32 key : {0, 99, -1}) {
        clsSemZielInhalt goal;
        EXPECT_EQ(goal.Init(key, session), true);
        EXPECT_EQ(goal.ZielInhaltID(), 0);
        EXPECT_EQ(goal.Ziel(), "");
        EXPECT_EQ(goal.Inhalt(), "");
    }
}

TEST(GoalsForReal, TextsOfAllSizesKeepTheirUmlautsAndQuotesAndNullsAreEmpty) {
    const auto session = SchemaDatabase();
    Text long_text;
    for (int i = 0; i < 500; ++i) long_text += "äß\"x";
    Write(*session,
          "INSERT INTO Sem_ZielInhalt_IT (ZielInhaltID, Ziel, Inhalt) VALUES (1, N'Ein \"Ziel\" für O''Neill', NULL), "
          "(2, NULL, N'" +
              long_text + "')");
    clsSemZielInhalt goal;
    goal.Init(1, session);
    EXPECT_EQ(goal.Ziel(), "Ein \"Ziel\" für O'Neill");
    EXPECT_EQ(goal.Inhalt(), "");
    goal.Init(2, session);
    EXPECT_EQ(goal.Ziel(), "");
    EXPECT_EQ(goal.Inhalt(), long_text);
    EXPECT_EQ(goal.ZielInhaltID(), 2);
}

TEST(GoalsForReal, WithoutTheTableInitRaisesWhatTheDatabaseSays) {
    const auto session = SchemaDatabase();
    Write(*session, "DROP TABLE Sem_ZielInhalt_IT");
    clsSemZielInhalt goal;
    const auto error = RaisedBy([&] { return goal.Init(1, session); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 208);
    EXPECT_EQ(LabelsOf(*error), (std::vector<std::string>{" LumoSeminar.clsSemZielInhalt.Init"}));
}

}  // namespace
}  // namespace LumoSeminar
