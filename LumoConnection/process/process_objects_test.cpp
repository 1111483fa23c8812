#include <LumoConnection/process/process_objects.h>

#include <gtest/gtest.h>

#include <LumoConnection/process/process_fixture_test.h>
#include <LumoSeminar/frame/clock.h>
#include <test_support/places.h>

namespace LumoConnection {
namespace {

constexpr const char* kStage1 = "Stufe 1 von 2: Entscheidung durch Vorgesetzte";
constexpr const char* kStage2 = "Stufe 2 von 2: Entscheidung durch Weiterbildung";

// A walk through a process: S starts it, Z consents, A rejects, L drops. All steps are those of a user with all rights.
struct Walk {
    const char* way;
    /// Of a need and of a wait-list entry.
    Int32 need_status;
    Int32 entry_status;
    const char* text;
    const char* steps;
    /// What was decided, "" where nothing is.
    const char* decided = "";
};

constexpr Walk kWalks[] = {
    {"", 0, 0, "Kein Vorgang", ""},
    {"S", 1, 1, kStage1, "Start 1 17"},
    {"SZ", 1, 1, kStage2, "Start 1 17 | Zustimmung 1 17"},
    {"SZZ", 2, 0, "Genehmigt", "Start 1 17 | Zustimmung 1 17 | Zustimmung 2 17", "approved"},
    {"SA", 3, 3, "Abgelehnt", "Start 1 17 | Ablehnung 1 17", "rejected"},
    {"SZA", 3, 3, "Abgelehnt", "Start 1 17 | Zustimmung 1 17 | Ablehnung 2 17", "rejected"},
    // without a process: one at the last stage
    {"Z", 2, 0, "Genehmigt", "Start 2 17 | Zustimmung 2 17", "approved"},
    {"A", 3, 3, "Abgelehnt", "Start 2 17 | Ablehnung 2 17", "rejected"},
    // dropped, from each state
    {"L", 0, 0, "Kein Vorgang", ""},
    {"SL", 0, 0, "Kein Vorgang", "Start 1 17 | Löschung - -"},
    {"SZL", 0, 0, "Kein Vorgang", "Start 1 17 | Zustimmung 1 17 | Löschung - -"},
    {"ZL", 0, 0, "Kein Vorgang", "Start 2 17 | Zustimmung 2 17 | Löschung - -"},
    {"AL", 0, 0, "Kein Vorgang", "Start 2 17 | Ablehnung 2 17 | Löschung - -"},
    {"SLL", 0, 0, "Kein Vorgang", "Start 1 17 | Löschung - -"},
    // begun again, from each state
    {"SLS", 1, 1, kStage1, "Start 1 17 | Löschung - - | Start 1 17"},
    {"SZLSZ", 1, 1, kStage2, "Start 1 17 | Zustimmung 1 17 | Löschung - - | Start 1 17 | Zustimmung 1 17"},
    {"SLZ", 2, 0, "Genehmigt", "Start 1 17 | Löschung - - | Start 2 17 | Zustimmung 2 17", "approved"},
    {"ZS", 1, 1, kStage1, "Start 2 17 | Zustimmung 2 17 | Start 1 17"},
    {"AS", 1, 1, kStage1, "Start 2 17 | Ablehnung 2 17 | Start 1 17"},
    {"SZS", 1, 1, kStage1, "Start 1 17 | Zustimmung 1 17 | Start 1 17"},
};

class ProcessWalks : public ProcessTest {
  protected:
    void Go(InfoDispatcher& process, const char* way) {
        for (; *way; ++way) {
            if (*way == 'S') Start(process.ModulNr(), process.SchluesselID(), kAnna);
            if (*way == 'Z') process.Zustimmen(kAnna, "");
            if (*way == 'A') process.Ablehnen(kAnna, "");
            if (*way == 'L') process.Loeschen();
        }
    }
};

TEST_F(ProcessWalks, EndWhereTheyShould) {
    Int32 key = 0;
    for (const Walk& walk : kWalks) {
        for (const Int32 module : {kNeeds, kWaitList}) {
            SCOPED_TRACE(testing::Message() << "\"" << walk.way << "\", module " << module);
            const auto process = Bound(module, ++key);
            Go(*process, walk.way);
            EXPECT_EQ(process->ProzessStatus(), module == kNeeds ? walk.need_status : walk.entry_status);
            EXPECT_EQ(process->ProzessStatusText(), walk.text);
            EXPECT_EQ(Steps(*session_, module, key), walk.steps);
            const Text decided = walk.decided;
            EXPECT_EQ(process->BenutzerHatRechte(kAnna), decided.empty());
            if (decided.empty()) continue;

            const Text subject = (module == kNeeds ? "training need " : "wait-list entry ") + std::to_string(key);
            const Text refusal = "User 17 may not decide: " + subject + " is " + decided + " already.";
            const bool approved = decided == "approved";
            EXPECT_EQ(Refusal([&] { process->Zustimmen(kAnna, ""); }), approved ? "" : refusal);
            EXPECT_EQ(Refusal([&] { process->Ablehnen(kAnna, ""); }), approved ? refusal : "");
            EXPECT_EQ(Steps(*session_, module, key), walk.steps);
            EXPECT_EQ(process->ProzessStatus(), module == kNeeds ? walk.need_status : walk.entry_status);
        }
    }
}

TEST_F(ProcessWalks, OfAnotherModuleReadAsThoseOfNeeds) {
    for (const Int32 stage : {1, 2}) Grant(*session_, 9, stage, kAnna);
    const auto process = Bound(9, 1);
    Go(*process, "SZ");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kRunning);
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }),
              "User 18 may not decide on subject 1 of module 9 at stage 2 (Weiterbildung).");
    Go(*process, "Z");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);
}

TEST_F(ProcessWalks, OfSubjectsDoNotMix) {
    const auto need = Bound(kNeeds, 1);
    const auto entry = Bound(kWaitList, 1);
    const auto other = Bound(kNeeds, 2);
    Go(*need, "SZZ");
    Go(*entry, "SA");
    Go(*other, "S");
    EXPECT_EQ(need->ProzessStatusText(), "Genehmigt");
    EXPECT_EQ(entry->ProzessStatusText(), "Abgelehnt");
    EXPECT_EQ(other->ProzessStatusText(), kStage1);
    EXPECT_EQ(Rows(*session_,
                   "SELECT ModulNr, SchluesselID, NaechsteStufe FROM Sem_ProzessSchritt_IT AS s WHERE Status = 1 "
                   "AND SchrittNr = (SELECT MAX(SchrittNr) FROM Sem_ProzessSchritt_IT WHERE ModulNr = s.ModulNr "
                   "AND SchluesselID = s.SchluesselID)"),
              "7 2 1");
}

class ProcessRights : public ProcessTest {};

TEST_F(ProcessRights, AreThoseOfTheStage) {
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    EXPECT_EQ(process->BenutzerHatRechte(kAnna), true);
    EXPECT_EQ(process->BenutzerHatRechte(kBoris), true);
    EXPECT_EQ(process->BenutzerHatRechte(kClara), false);
    EXPECT_EQ(process->BenutzerHatRechte(kNobody), false);
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kClara, ""); }),
              "User 19 may not decide on training need 12 at stage 1 (Vorgesetzte).");
    EXPECT_EQ(Refusal([&] { process->Ablehnen(kNobody, ""); }),
              "User 20 may not decide on training need 12 at stage 1 (Vorgesetzte).");

    process->Zustimmen(kBoris, "");
    EXPECT_EQ(process->BenutzerHatRechte(kBoris), false);
    EXPECT_EQ(process->BenutzerHatRechte(kClara), true);
    EXPECT_EQ(Refusal([&] { process->Ablehnen(kBoris, ""); }),
              "User 18 may not decide on training need 12 at stage 2 (Weiterbildung).");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kRunning);

    process->Zustimmen(kClara, "");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);
    EXPECT_EQ(Steps(*session_, kNeeds, 12), "Start 1 20 | Zustimmung 1 18 | Zustimmung 2 19");
}

TEST_F(ProcessRights, AreThoseOfTheLastStageWithoutAProcess) {
    const auto process = Bound(kWaitList, 50);
    EXPECT_EQ(process->BenutzerHatRechte(kBoris), false);
    EXPECT_EQ(process->BenutzerHatRechte(kClara), true);
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }),
              "User 18 may not decide on wait-list entry 50 at stage 2 (Weiterbildung).");
    EXPECT_EQ(Steps(*session_, kWaitList, 50), "");
    process->Zustimmen(kClara, "");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kNone);
    EXPECT_EQ(Steps(*session_, kWaitList, 50), "Start 2 19 | Zustimmung 2 19");
}

TEST_F(ProcessRights, AreThoseOfTheModule) {
    Execute(*session_, "DELETE FROM Sem_ProzessRecht_IT WHERE ModulNr = 7");
    EXPECT_EQ(Bound(kNeeds, 1)->BenutzerHatRechte(kAnna), false);
    EXPECT_EQ(Bound(kWaitList, 1)->BenutzerHatRechte(kAnna), true);
}

TEST_F(ProcessRights, CountFromTheMomentTheyAreGiven) {
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    EXPECT_EQ(process->BenutzerHatRechte(kClara), false);
    Grant(*session_, kNeeds, 1, kClara);
    EXPECT_EQ(process->BenutzerHatRechte(kClara), true);
    Execute(*session_, "DELETE FROM Sem_ProzessRecht_IT WHERE UserID = 19");
    EXPECT_NE(Refusal([&] { process->Zustimmen(kClara, ""); }), "");
    EXPECT_EQ(process->BenutzerHatRechte(kClara), false);
}

TEST_F(ProcessRights, ToRepeatADecisionHasWhoeverDecidesAtAnyStage) {
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    process->Zustimmen(kBoris, "");
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }), "User 18 may not decide on training need 12 at stage 2 (Weiterbildung).")
        << "nothing is decided yet";
    process->Zustimmen(kClara, "");
    const Text steps = "Start 1 20 | Zustimmung 1 18 | Zustimmung 2 19";
    for (const Int32 user : {kAnna, kBoris, kClara}) {
        EXPECT_EQ(Refusal([&] { process->Zustimmen(user, "noch einmal"); }), "") << user;
        EXPECT_EQ(Refusal([&] { process->Ablehnen(user, ""); }),
                  "User " + std::to_string(user) + " may not decide: training need 12 is approved already.");
    }
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kNobody, ""); }), "User 20 may not decide on training need 12 at any stage.");
    EXPECT_EQ(Steps(*session_, kNeeds, 12), steps);
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);

    Execute(*session_, "DELETE FROM Sem_ProzessRecht_IT WHERE ModulNr = 7 AND UserID = 18");
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }), "User 18 may not decide on training need 12 at any stage.")
        << "the rights on the wait-list are others";
}

TEST_F(ProcessRights, ToStartHasEverybody) {
    Execute(*session_, "DELETE FROM Sem_ProzessRecht_IT");
    Start(kNeeds, 12, kNobody);
    EXPECT_EQ(Bound(kNeeds, 12)->ProzessStatus(), ProcessStatus::kRunning);
}

class ProcessStages : public ProcessTest {
  protected:
    void Define(Int32 stage, const Text& name) {
        Execute(*session_, "INSERT INTO Sem_ProzessStufe_IT (ModulNr, Stufe, Bezeichnung) VALUES (7, " +
                               std::to_string(stage) + ", " + name + ")");
    }
};

TEST_F(ProcessStages, OfTheTableCountInTheirOrderWhateverTheirNumbers) {
    Define(30, "N'Geschäftsführung'");
    Define(10, "N'Meisterin'");
    Define(20, "NULL");
    for (const Int32 stage : {10, 20, 30}) Grant(*session_, kNeeds, stage, kAnna);
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 1 von 3: Entscheidung durch Meisterin");
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }),
              "User 18 may not decide on training need 12 at stage 10 (Meisterin).");
    process->Zustimmen(kAnna, "");
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 2 von 3");
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kBoris, ""); }), "User 18 may not decide on training need 12 at stage 20.");
    process->Zustimmen(kAnna, "");
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 3 von 3: Entscheidung durch Geschäftsführung");
    process->Zustimmen(kAnna, "");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);

    Start(kWaitList, 12);
    EXPECT_EQ(Bound(kWaitList, 12)->ProzessStatusText(), kStage1);
}

TEST_F(ProcessStages, MayBeOneAlone) {
    Define(1, "N'Leitung'");
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 1 von 1: Entscheidung durch Leitung");
    process->Zustimmen(kBoris, "");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);
}

TEST_F(ProcessStages, TakenOutWhileAProcessWaitsThereStayTheOneThatDecides) {
    Define(1, "N'Meisterin'");
    Define(2, "N'Leitung'");
    Start(kNeeds, 12);
    const auto process = Bound(kNeeds, 12);
    process->Zustimmen(kAnna, "");
    Execute(*session_, "DELETE FROM Sem_ProzessStufe_IT WHERE Stufe = 2");
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 1 von 1");
    EXPECT_EQ(process->BenutzerHatRechte(kBoris), false);
    process->Zustimmen(kClara, "");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);
}

TEST_F(ProcessStages, AddedBehindTheLastDoNotReopenWhatIsApproved) {
    const auto process = Bound(kNeeds, 12);
    process->Zustimmen(kAnna, "");
    Define(1, "N'Meisterin'");
    Define(3, "N'Leitung'");
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kApproved);
}

class ProcessSteps : public ProcessTest {
  protected:
    Text Remark(Int32 step) {
        return To<Text>(session_->LookupValue("Bemerkung", "Sem_ProzessSchritt_IT", "SchrittNr = " + std::to_string(step)));
    }
};

TEST_F(ProcessSteps, KeepRemarksAsTheyAre) {
    const Text consent = "Passt für Jürgen's \"Prüfung\", 'ß' & -- {x}\r\nzweite Zeile";
    const Text rejection = "'; DELETE FROM Sem_ProzessRecht_IT --";
    Start(kNeeds, 12);
    Bound(kNeeds, 12)->Zustimmen(kAnna, consent);
    Bound(kNeeds, 12)->Ablehnen(kAnna, rejection);
    EXPECT_TRUE(session_->LookupValue("Bemerkung", "Sem_ProzessSchritt_IT", "SchrittNr = 1").IsNull());
    EXPECT_EQ(Remark(2), consent);
    EXPECT_EQ(Remark(3), rejection);
    EXPECT_EQ(session_->LookupValue("COUNT(*)", "Sem_ProzessRecht_IT", ""), Variant(8));
}

TEST_F(ProcessSteps, KeepNoEmptyRemark) {
    Bound(kNeeds, 12)->Zustimmen(kAnna, "");
    EXPECT_EQ(session_->LookupValue("COUNT(*)", "Sem_ProzessSchritt_IT", "Bemerkung IS NULL"), Variant(2));
}

TEST_F(ProcessSteps, WithTooLongARemarkAreRefusedAsAWhole) {
    Text longest;
    for (int i = 0; i < 255; ++i) longest += "ü";
    const auto process = Bound(kNeeds, 12);
    const auto error = test_support::RaisedBy([&] {
        process->Zustimmen(kAnna, longest + "x");
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), ErrorNumber::kStatementRefused);
    EXPECT_NE(error->Description().find("String or binary data would be truncated"), Text::npos) << error->Description();
    EXPECT_EQ(Steps(*session_, kNeeds, 12), "");
    process->Zustimmen(kAnna, longest);
    EXPECT_EQ(Remark(2), longest);
}

TEST_F(ProcessSteps, TellWhoseSubjectItIsAndWhen) {
    const DateTime before = Now();
    Start(kNeeds, 12);
    Bound(kNeeds, 12, 2, 300)->Zustimmen(kAnna, "");
    Bound(kNeeds, 12, 0, 0)->Loeschen();
    EXPECT_EQ(Rows(*session_, "SELECT SchrittNr, MDNr, PersonID FROM Sem_ProzessSchritt_IT ORDER BY SchrittNr"),
              "1 - - | 2 2 300 | 3 - -");
    // The server rounds to 1/300 seconds.
    constexpr Double kSecond = 1.0 / 86'400;
    for (const char* which : {"MIN(Zeitpunkt)", "MAX(Zeitpunkt)"}) {
        const Double moment = To<DateTime>(session_->LookupValue(which, "Sem_ProzessSchritt_IT", "")).Days();
        EXPECT_GE(moment, before.Days() - kSecond);
        EXPECT_LE(moment, Now().Days() + kSecond);
    }
}

TEST_F(ProcessSteps, OfAKeyThatIsGivenOutAgainAreNotThoseOfItsNewOwner) {
    Start(kWaitList, 50);
    Bound(kWaitList, 50, 1, 300)->Zustimmen(kAnna, "");
    const auto other_person = Bound(kWaitList, 50, 1, 301);
    const auto other_client = Bound(kWaitList, 50, 2, 300);
    EXPECT_EQ(other_person->ProzessStatusText(), "Kein Vorgang");
    EXPECT_EQ(other_client->ProzessStatusText(), "Kein Vorgang");
    other_person->Loeschen();
    EXPECT_EQ(Bound(kWaitList, 50, 1, 300)->ProzessStatusText(), kStage2);
    EXPECT_EQ(Bound(kWaitList, 50, 0, 0)->ProzessStatusText(), kStage2);

    other_person->Ablehnen(kClara, "");
    EXPECT_EQ(other_person->ProzessStatus(), ProcessStatus::kRejected);
    EXPECT_EQ(Rows(*session_, "SELECT SchrittNr, Art, Stufe, PersonID FROM Sem_ProzessSchritt_IT ORDER BY SchrittNr"),
              "1 Start 1 - | 2 Zustimmung 1 300 | 3 Start 2 301 | 4 Ablehnung 2 301");
}

class ProcessOfAPerson : public ProcessTest {
  protected:
    ProcessOfAPerson() {
        Execute(*session_, "INSERT INTO AN_WBBedarf_IT (WBID, MDNr, ANNr) VALUES (12, 1, 300), (13, 1, NULL)");
        Execute(*session_, "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID) VALUES (50, 2, 1, 300)");
    }
    Text Persons() {
        return Rows(*session_, "SELECT SchrittNr, Art, Stufe, MDNr, PersonID FROM Sem_ProzessSchritt_IT ORDER BY SchrittNr");
    }
};

TEST_F(ProcessOfAPerson, KeepsItFromTheStartOn) {
    Start(kNeeds, 12);
    Start(kWaitList, 50);
    EXPECT_EQ(Persons(), "1 Start 1 1 300 | 1 Start 1 1 300");
    Execute(*session_, "DELETE FROM Sem_ProzessSchritt_IT");
    Start(kNeeds, 13);
    Start(kWaitList, 51);
    EXPECT_EQ(Persons(), "1 Start 1 1 - | 1 Start 1 - -") << "a row without an employee, and no row";
}

TEST_F(ProcessOfAPerson, IsNotThatOfAnotherWhoGotTheSameKey) {
    for (const Int32 module : {kNeeds, kWaitList}) {
        const Int32 key = module == kNeeds ? 12 : 50;
        SCOPED_TRACE(module);
        Execute(*session_, "DELETE FROM Sem_ProzessSchritt_IT");
        Start(module, key);
        const auto other_person = Bound(module, key, 1, 301);
        const auto other_client = Bound(module, key, 2, 300);
        EXPECT_EQ(other_person->ProzessStatusText(), "Kein Vorgang");
        EXPECT_EQ(other_client->ProzessStatusText(), "Kein Vorgang");
        EXPECT_EQ(other_person->BenutzerHatRechte(kBoris), false) << "without a process the last stage decides";
        EXPECT_EQ(Bound(module, key, 1, 300)->ProzessStatusText(), kStage1);
        EXPECT_EQ(Bound(module, key, 0, 0)->ProzessStatusText(), kStage1);

        other_person->Zustimmen(kClara, "");
        EXPECT_EQ(Persons(), "1 Start 1 1 300 | 2 Start 2 1 301 | 3 Zustimmung 2 1 301");
        EXPECT_EQ(Bound(module, key, 1, 300)->ProzessStatusText(), "Kein Vorgang");
    }
}

TEST_F(ProcessOfAPerson, StaysItsOwnWhenADeciderDoesNotNameIt) {
    Start(kWaitList, 50);
    Bound(kWaitList, 50, 0, 0)->Zustimmen(kAnna, "");
    EXPECT_EQ(Persons(), "1 Start 1 1 300 | 2 Zustimmung 1 1 300");
    EXPECT_EQ(Bound(kWaitList, 50, 1, 301)->ProzessStatusText(), "Kein Vorgang");
}

TEST_F(ProcessOfAPerson, IsAnybodysWhereItsStartNamesNobody) {
    Execute(*session_,
            "INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Status, "
            "NaechsteStufe) VALUES (8, 50, 1, N'Start', 1, 17, GetDate(), 1, 1)");
    EXPECT_EQ(Bound(kWaitList, 50, 1, 301)->ProzessStatusText(), kStage1);
}

TEST(ProcessesAlone, NeedNoTablesOfTheLibrary) {
    const auto session = test_support::EmptyDatabase();
    test_support::RunSchemaFile(*session, "process.sql");
    GrantAll(*session);
    MakeProcessStarter({.session = session})->Starten(kNeeds, 12, kAnna);
    EXPECT_EQ(Steps(*session, kNeeds, 12), "Start 1 17");
}

class ProcessWithoutASubject : public ProcessTest {};

TEST_F(ProcessWithoutASubject, StartsNothing) {
    Start(kWaitList, 0);
    EXPECT_EQ(session_->LookupValue("COUNT(*)", "Sem_ProzessSchritt_IT", ""), Variant(0));
}

TEST_F(ProcessWithoutASubject, DecidesNothing) {
    const auto process = Bound(kWaitList, 0);
    EXPECT_EQ(Refusal([&] { process->Zustimmen(kAnna, ""); }),
              "User 17 has nothing to decide on: there is no wait-list entry 0.");
    EXPECT_EQ(Refusal([&] { process->Ablehnen(kAnna, ""); }), "User 17 has nothing to decide on: there is no wait-list entry 0.");
    EXPECT_EQ(process->BenutzerHatRechte(kAnna), false);
    EXPECT_EQ(process->ProzessStatus(), ProcessStatus::kNone);
    EXPECT_EQ(process->ProzessStatusText(), "Kein Vorgang");
    process->Loeschen();
    EXPECT_EQ(session_->LookupValue("COUNT(*)", "Sem_ProzessSchritt_IT", ""), Variant(0));
}

TEST(ProcessSchema, IsRefusedAsAWholeTheSecondTime) {
    const auto session = test_support::EmptyDatabase();
    test_support::RunSchemaFile(*session, "process.sql");
    Grant(*session, kNeeds, 1, kAnna);
    std::ifstream file(test_support::SourceDir() + "/schema/process.sql");
    std::ostringstream text;
    text << file.rdbuf();
    const auto batches = SplitBatches(text.str());
    EXPECT_EQ(batches.size(), 3u);
    for (const Batch& batch : batches) {
        EXPECT_FALSE(session->ExecuteSql(batch.text)) << "line " << batch.line;
        EXPECT_TRUE(session->LastErrorText().starts_with("There is already an object named 'Sem_Prozess"))
            << session->LastErrorText();
    }
    EXPECT_EQ(session->LookupValue("COUNT(*)", "Sem_ProzessRecht_IT", ""), Variant(1));
}

}  // namespace
}  // namespace LumoConnection
