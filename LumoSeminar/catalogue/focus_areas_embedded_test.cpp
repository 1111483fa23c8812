#include <gtest/gtest.h>

#include <algorithm>

#include <LumoSeminar/catalogue/focus_areas.h>
#include <test_support/embedded.h>
#include <test_support/focus_area_removal.h>
#include <test_support/raises.h>

// Focus areas are kept per client, and client 1 is the active one. It sees all of them but Kundendienst, which client 2
// sees; both see Führung.
namespace LumoSeminar {
namespace {

using test_support::RaisedBy;
using test_support::SchemaDatabase;

constexpr Int32 kFocusAreas = 6;
constexpr const char* kRows[] = {
    "INSERT INTO OpactMD (MDNR) VALUES (1)",
    "INSERT INTO optionen_database_dt (OptionID, Wert) VALUES (30, N'-1')",
    "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (1, N'Arbeitssicherheit'), (2, N'Brandschutz')",
    "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (10, N'Qualitätssicherung'), (11, N'Führung')",
    "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (13, N'Kundendienst'), (16, N'Deutsch am Arbeitsplatz')",
    "INSERT INTO sysIData_WBS_Mandant_IT (WBS_ID, MDNr) VALUES (1, 1), (2, 1), (10, 1), (11, 1), (16, 1), (11, 2), (13, 2)",
    "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES (1, 5), (2, 5), (10, 24)",
    "INSERT INTO Sem_Termin_Schwerpunkte_IT (SchwerpunktID, SemTerminID) VALUES (16, 1), (10, 3), (11, 3), (13, 17)",
};

class FocusAreasForReal : public testing::Test {
  protected:
    FocusAreasForReal() { StartAnew(); }

    void StartAnew() {
        session = SchemaDatabase();
        for (const char* rows : kRows) EXPECT_TRUE(session->ExecuteSql(rows)) << session->LastErrorText();
    }

    Variant Value(const Text& sql) {
        EXPECT_TRUE(session->OpenSelect(sql)) << session->LastErrorText();
        return session->Recordset()->Fields().Item(0).Value();
    }
    Int32 FocusAreas() { return To<Int32>(Value("SELECT COUNT(*) FROM sysIData_WBS")); }
    Int32 Clients() { return To<Int32>(Value("SELECT COUNT(*) FROM sysIData_WBS_Mandant_IT")); }
    Int32 DateLinks() { return To<Int32>(Value("SELECT COUNT(*) FROM Sem_Termin_Schwerpunkte_IT")); }
    Int32 SeminarLinks() { return To<Int32>(Value("SELECT COUNT(*) FROM Sem_Schwerpunkte_IT")); }

    void ShareFocusAreas() {
        ASSERT_TRUE(session->ExecuteSql("UPDATE optionen_database_dt SET Wert = N'0' WHERE OptionID = 30"));
    }
    void Activate(Int32 client) {
        ASSERT_TRUE(session->ExecuteSql("UPDATE OpactMD SET MDNR = " + std::to_string(client)));
    }

    Ref<clsSemTerminSchwerpunkt> Named(Int32 date, const Text& name) {
        auto link = New<clsSemTerminSchwerpunkt>();
        EXPECT_EQ(link->Init(0, date, session), true);
        link->WBS(name);
        EXPECT_EQ(link->WBS(), name);
        return link;
    }

    /// In the order of the alphabet: the list has none of its own.
    std::vector<Text> NamesOfDate(Int32 date) {
        colSemTerminSchwerpunkte list;
        EXPECT_EQ(list.Init(date, session), true);
        std::vector<Text> names;
        for (const auto& link : list.NewEnum()) names.push_back(link->WBS());
        std::ranges::sort(names);
        return names;
    }

    Ref<colSemSchwerpunkte> OfSeminar(Int32 seminar) {
        auto list = New<colSemSchwerpunkte>();
        EXPECT_EQ(list->Init(seminar, session), true);
        return list;
    }

    Ref<LumoConnection::AnySession> session;
};

using Texts = std::vector<Text>;

TEST_F(FocusAreasForReal, TheFocusAreasOfASeminarAreListedWithTheirNames) {
    const auto list = OfSeminar(5);
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->Item("0000000001")->WBS(), "Arbeitssicherheit");
    EXPECT_EQ(list->Item("0000000002")->WBS(), "Brandschutz");
    EXPECT_EQ(list->Item("0000000002")->SemID(), 5);
    EXPECT_EQ(OfSeminar(24)->Item(1)->WBS(), "Qualitätssicherung");
    EXPECT_EQ(OfSeminar(4711)->Count(), 0);
}

TEST_F(FocusAreasForReal, RemoveUntiesAReadFocusAreaFromItsSeminarAndLeavesTheFocusArea) {
    const Int32 links = SeminarLinks();
    const auto list = OfSeminar(5);
    EXPECT_EQ(list->Remove("0000000002"), false);
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(SeminarLinks(), links);
    list->Item("0000000002")->WBS();
    EXPECT_EQ(list->Remove("0000000002"), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(SeminarLinks(), links - 1);
    EXPECT_EQ(OfSeminar(5)->Count(), 1);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
}

TEST_F(FocusAreasForReal, AWriteOfAReadFocusAreaOfASeminarHitsKeysThatAreThere) {
    const Int32 links = SeminarLinks();
    const auto focus_area = OfSeminar(5)->Item("0000000002");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    focus_area->WBS();
    focus_area->WBS("Löschen und Bergen");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    EXPECT_EQ(SeminarLinks(), links);
    EXPECT_EQ(OfSeminar(5)->Item("0000000002")->WBS(), "Brandschutz");
}

TEST_F(FocusAreasForReal, UnderAnotherSeminarTheWriteTiesItAndIsFalseAllTheSame) {
    const auto focus_area = OfSeminar(5)->Item("0000000002");
    focus_area->WBS();
    focus_area->SemID(24);
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    EXPECT_EQ(OfSeminar(24)->Item("0000000002")->WBS(), "Brandschutz");
}

TEST_F(FocusAreasForReal, UnderAFreeKeyTheWriteMakesAFocusAreaOfTheSeminar) {
    const auto focus_area = OfSeminar(5)->Item("0000000002");
    focus_area->WBS();
    focus_area->SchwerpunktID(17);
    focus_area->WBS("Löschübung \"Fettbrand\"");
    EXPECT_EQ(focus_area->WriteToDatabase(), true);
    EXPECT_EQ(OfSeminar(5)->Count(), 3);
    EXPECT_EQ(OfSeminar(5)->Item("0000000017")->WBS(), "Löschübung \"Fettbrand\"");
    EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
}

TEST_F(FocusAreasForReal, ANameWithAQuoteLeavesTheLinkOfASeminarWithoutAFocusArea) {
    const Int32 links = SeminarLinks();
    const auto focus_area = OfSeminar(5)->Item("0000000002");
    focus_area->WBS();
    focus_area->SchwerpunktID(17);
    focus_area->WBS("Rock'n Roll");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    EXPECT_EQ(SeminarLinks(), links + 1);
    EXPECT_EQ(OfSeminar(5)->Item("0000000017")->WBS(), "");
}

TEST_F(FocusAreasForReal, AddOfASeminarGivesTheNextKeyOnceAndWritesNothing) {
    const auto list = OfSeminar(5);
    const auto added = list->Add();
    EXPECT_EQ(added->Key(), "0000000017");
    EXPECT_RAISES(457, list->Add());
    EXPECT_EQ(list->Count(), 3);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (17, N'Höhenrettung')"));
    EXPECT_EQ(list->Add()->Key(), "0000000018");
}

TEST_F(FocusAreasForReal, TheFocusAreasOfADateAreListedWithTheirNames) {
    EXPECT_EQ(NamesOfDate(17), Texts{"Kundendienst"});
    EXPECT_EQ(NamesOfDate(1), Texts{"Deutsch am Arbeitsplatz"});
    EXPECT_EQ(NamesOfDate(3), (Texts{"Führung", "Qualitätssicherung"}));
    EXPECT_EQ(NamesOfDate(4711), Texts{});
}

TEST_F(FocusAreasForReal, EveryFocusAreaOfTheSampleCompanyHasItsName) {
    session = test_support::SampleDatabase();
    Int32 of_seminars = 0;
    for (Int32 seminar = 1; seminar <= 42; ++seminar) {
        for (const auto& focus_area : OfSeminar(seminar)->NewEnum()) of_seminars += focus_area->WBS().empty() ? 0 : 1;
    }
    EXPECT_EQ(of_seminars, SeminarLinks());
    EXPECT_EQ(NamesOfDate(20), (Texts{"Arbeitssicherheit", "Brandschutz"}));
    EXPECT_EQ(NamesOfDate(36), Texts{"Qualitätssicherung"});
}

TEST_F(FocusAreasForReal, AKnownNameIsTiedToTheDateWithoutANewFocusArea) {
    const Int32 links = DateLinks();
    const auto link = Named(1, "Qualitätssicherung");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 10);
    EXPECT_EQ(NamesOfDate(1), (Texts{"Deutsch am Arbeitsplatz", "Qualitätssicherung"}));
    EXPECT_EQ(DateLinks(), links + 1);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
}

TEST_F(FocusAreasForReal, NamesAreComparedWithoutCase) {
    for (const Text& name : {Text("QUALITÄTSSICHERUNG"), Text("qualitätssicherung"), Text("qUALITätsSicherung")}) {
        const auto link = Named(1, name);
        EXPECT_EQ(link->WriteToDatabase(), true);
    }
    EXPECT_EQ(NamesOfDate(1), (Texts{"Deutsch am Arbeitsplatz", "Qualitätssicherung"}));
    EXPECT_EQ(FocusAreas(), kFocusAreas);
}

TEST_F(FocusAreasForReal, ANewNameIsMadeForTheActiveClient) {
    const Int32 clients = Clients();
    Activate(2);
    const auto link = Named(1, "Höhenrettung \"Süd\"");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 17);
    EXPECT_EQ(link->Key(), "0000000017");
    EXPECT_EQ(NamesOfDate(1), (Texts{"Deutsch am Arbeitsplatz", "Höhenrettung \"Süd\""}));
    EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
    EXPECT_EQ(Clients(), clients + 1);
    EXPECT_EQ(Value("SELECT MDNr FROM sysIData_WBS_Mandant_IT WHERE WBS_ID = 17"), Variant(2));
}

TEST_F(FocusAreasForReal, ANameOfAnotherClientIsMadeASecondTime) {
    const Int32 clients = Clients();
    const auto link = Named(1, "Kundendienst");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 17);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM sysIData_WBS WHERE Weiterbildungsschwerpunkt = N'Kundendienst'"), Variant(2));
    EXPECT_EQ(Clients(), clients + 1);
    EXPECT_EQ(Value("SELECT MDNr FROM sysIData_WBS_Mandant_IT WHERE WBS_ID = 17"), Variant(1));
    Activate(2);
    const auto own = Named(1, "Kundendienst");
    EXPECT_EQ(own->WriteToDatabase(), true);
    EXPECT_EQ(own->SchwerpunktID(), 13) << "each client has its own";
    EXPECT_EQ(NamesOfDate(1), (Texts{"Deutsch am Arbeitsplatz", "Kundendienst", "Kundendienst"}));
    EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
}

TEST_F(FocusAreasForReal, SharedNamesAreFoundWhateverClientSeesThem) {
    ShareFocusAreas();
    const Int32 clients = Clients();
    const auto link = Named(1, "Kundendienst");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 13);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    EXPECT_EQ(Clients(), clients);
}

TEST_F(FocusAreasForReal, ANewSharedNameIsTiedToNoClient) {
    ShareFocusAreas();
    const Int32 clients = Clients();
    const auto link = Named(1, "Höhenrettung");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 17);
    EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
    EXPECT_EQ(Clients(), clients);
}

TEST_F(FocusAreasForReal, TheSameNameTwiceMakesOneFocusAreaAndOneLink) {
    for (const bool shared : {false, true}) {
        StartAnew();
        if (shared) ShareFocusAreas();
        const Int32 links = DateLinks();
        const auto first = Named(1, "Höhenrettung");
        EXPECT_EQ(first->WriteToDatabase(), true);
        EXPECT_EQ(first->WriteToDatabase(), true);
        const auto second = Named(1, "Höhenrettung");
        EXPECT_EQ(second->WriteToDatabase(), true);
        EXPECT_EQ(first->SchwerpunktID(), 17);
        EXPECT_EQ(second->SchwerpunktID(), 0) << "the link was there";
        EXPECT_EQ(Named(2, "Höhenrettung")->WriteToDatabase(), true);
        EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
        EXPECT_EQ(DateLinks(), links + 2);
    }
}

TEST_F(FocusAreasForReal, TheFirstFocusAreaOfAllGetsTheKey1) {
    session = SchemaDatabase();
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO optionen_database_dt (OptionID, Wert) VALUES (30, N'-1')"));
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO OpactMD (MDNR) VALUES (3)"));
    const auto link = Named(1, "Führung");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 1);
    EXPECT_EQ(NamesOfDate(1), Texts{"Führung"});
}

TEST_F(FocusAreasForReal, ANameWithAQuoteRaises91AndWritesNothing) {
    for (const bool shared : {false, true}) {
        StartAnew();
        if (shared) ShareFocusAreas();
        const Int32 links = DateLinks();
        const Int32 clients = Clients();
        for (const Text& name : {Text("Rock'n Roll"), Text("'"), Text("Führung', N'x")}) {
            const auto link = Named(1, name);
            const auto error = RaisedBy([&] { return link->WriteToDatabase(); });
            ASSERT_TRUE(error) << name;
            EXPECT_EQ(error->Number(), 91);
            ASSERT_NE(session->LastErrorText(), "");
            EXPECT_EQ(error->Description(),
                      "An empty reference was used as an object.\r\n LumoSeminar062.clsSemTerminSchwerpunkt.WriteToDatabase\r\n"
                      "ADO-Fehlermeldung: " +
                          session->LastErrorText());
            EXPECT_EQ(link->SchwerpunktID(), 0);
        }
        EXPECT_EQ(FocusAreas(), kFocusAreas);
        EXPECT_EQ(Clients(), clients);
        EXPECT_EQ(DateLinks(), links);
    }
}

TEST_F(FocusAreasForReal, ANameThatIsTooLongLeavesALinkWithoutAFocusArea) {
    const Int32 links = DateLinks();
    const auto link = Named(1, Text(101, 'x'));
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 17);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    EXPECT_EQ(DateLinks(), links + 1);
    EXPECT_EQ(NamesOfDate(1), (Texts{"", "Deutsch am Arbeitsplatz"}));
    EXPECT_EQ(Named(2, Text(100, 'x'))->WriteToDatabase(), true);
    EXPECT_EQ(NamesOfDate(1), (Texts{"Deutsch am Arbeitsplatz", Text(100, 'x')})) << "the key is taken by the next";
}

TEST_F(FocusAreasForReal, WithoutATableOfLinksTheFocusAreaStaysAnd91IsRaised) {
    const auto link = Named(1, "Höhenrettung");
    ASSERT_TRUE(session->ExecuteSql("DROP TABLE Sem_Termin_Schwerpunkte_IT"));
    EXPECT_RAISES(91, link->WriteToDatabase());
    EXPECT_EQ(FocusAreas(), kFocusAreas + 1);
}

TEST_F(FocusAreasForReal, WithoutAnActiveClientTheWriteRaisesAndWritesNothing) {
    const Int32 links = DateLinks();
    ASSERT_TRUE(session->ExecuteSql("DELETE FROM OpactMD"));
    const auto link = Named(1, "Höhenrettung");
    EXPECT_RAISES(3021, link->WriteToDatabase());
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    EXPECT_EQ(DateLinks(), links);
}

TEST_F(FocusAreasForReal, DeleteUntiesTheFocusAreaFromItsDateAndLeavesIt) {
    const Int32 links = DateLinks();
    clsSemTerminSchwerpunkt link;
    EXPECT_EQ(link.Init("13", 17, session), true);
    EXPECT_EQ(link.DeleteFromDatabase(), true);
    EXPECT_EQ(NamesOfDate(17), Texts{});
    EXPECT_EQ(DateLinks(), links - 1);
    EXPECT_EQ(FocusAreas(), kFocusAreas);
    EXPECT_EQ(link.DeleteFromDatabase(), true);
    EXPECT_EQ(link.WBS(), "Kundendienst") << "read before the delete";
}

TEST_F(FocusAreasForReal, RemoveUntiesAFocusAreaFromItsDateAndIsFalse) {
    colSemTerminSchwerpunkte list;
    ASSERT_EQ(list.Init(3, session), true);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Remove("0000000011"), false);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_RAISES(5, list.Remove("0000000011"));
    EXPECT_EQ(NamesOfDate(3), Texts{"Qualitätssicherung"});
}

TEST_F(FocusAreasForReal, RemoveAllUntiesAllFocusAreasOfOneDate) {
    const Int32 links = DateLinks();
    colSemTerminSchwerpunkte list;
    ASSERT_EQ(list.Init(3, session), true);
    EXPECT_EQ(RemoveAllOf(list), true);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(DateLinks(), links - 2);
    EXPECT_EQ(NamesOfDate(3), Texts{});
    EXPECT_EQ(FocusAreas(), kFocusAreas);
}

TEST_F(FocusAreasForReal, ANewOneIsFiledUnderItsKeyOnceItIsWritten) {
    colSemTerminSchwerpunkte list;
    ASSERT_EQ(list.Init(1, session), true);
    const auto link = Named(1, "Höhenrettung");
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(list.Add(link), false);
    EXPECT_EQ(list.Item("0000000017"), link);
    EXPECT_EQ(RemoveAllOf(list), true);
    EXPECT_EQ(NamesOfDate(1), Texts{});
}

TEST_F(FocusAreasForReal, OneThatIsFiledBeforeItsWriteIsNotFoundUnderItsKeyWhenAllAreRemoved) {
    colSemTerminSchwerpunkte list;
    ASSERT_EQ(list.Init(4711, session), true);
    const auto link = Named(4711, "Höhenrettung");
    list.Add(link);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(list.Item("0000000000"), link);
    EXPECT_RAISES(5, RemoveAllOf(list));
    EXPECT_EQ(NamesOfDate(4711), Texts{}) << "its link is gone";
}

}  // namespace
}  // namespace LumoSeminar
