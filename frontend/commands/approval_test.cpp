#include "frontend/commands/approval_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Entry 57 is the first that is made: that of employee 130 for date 71, which costs something and has places.
class ApprovalCommands : public ApprovalCli {
  protected:
    static Arguments Step(const char* command, int date, int person, const char* user, const Arguments& more = {}) {
        return With({command, std::to_string(date), std::to_string(person), "--user-id", user}, more);
    }
    static Arguments ForNeed(int date, int need, const char* user) {
        return {"consent", std::to_string(date), "--need", std::to_string(need), "--user-id", user};
    }

    void Consent() const { EXPECT_EQ(Json(Step("consent", 71, 130, kNobody))["SemWartelisteID"], 57); }
    void ConsentAndApproveOnce() const {
        Consent();
        EXPECT_EQ(Json(Step("approve", 71, 130, kFirst))["Process"], kAtSecond);
    }

    nlohmann::json Entry(int key) const {
        return Json({"sql", "select * from Sem_Warteliste_IT where SemWarteListeID = " + std::to_string(key)})[0];
    }
    nlohmann::json Participants(int date, int person) const {
        return Json({"sql", "select TeilnehmerID, MDNr, Teilnahme, Herkunft, BeginnDatum from Sem_Teilnehmer_IT where SemTerminID = " +
                                std::to_string(date) + " and ANNr = " + std::to_string(person)});
    }
    int Entries() const { return Count("Sem_Warteliste_IT"); }
    int AllParticipants() const { return Count("Sem_Teilnehmer_IT"); }
};

// consent

TEST_F(ApprovalCommands, ConsentEntersThePersonAndOpensTheProcess) {
    const auto done = Run(Step("consent", 71, 130, kNobody, {"--user", "lena"}));
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, StartsWith("SemWartelisteID  57\n"
                                     "MDNr             1\n"
                                     "TNID             130\n"
                                     "NameVorname      Kölbl, Norbert\n"
                                     "SemTerminID      71\n"
                                     "Titel            Fünfachsiges Fräsen für Fortgeschrittene\n"
                                     "ErfDat           "));
    EXPECT_THAT(done.out, HasSubstr("\nHerkunft         3\n"
                                    "Wunschtermin     NULL\n"
                                    "Consent          yes\n"));
    EXPECT_THAT(done.out, HasSubstr("\nGeaendertVon     lena\n"
                                    "TeilnehmerID     NULL\n"
                                    "Outcome          entered, process opened\n"
                                    "Process          Stufe 1 von 2: Entscheidung durch Vorgesetzte\n"));
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Steps(8, 57), "Start 1 13");
    EXPECT_EQ(Count("Sem_WartelisteTermin_IT", "SemWarteListeID = 57 and SemTerminID = 71"), 1);
}

TEST_F(ApprovalCommands, ConsentFromElsewhere) {
    EXPECT_EQ(Json(Step("consent", 71, 130, kNobody, {"--elsewhere"}))["Herkunft"], 4);
}

TEST_F(ApprovalCommands, ConsentIsRenewedWhereThereIsAnEntry) {
    Sql("update Sem_Warteliste_IT set Wunschtermin = '20101130' where SemWarteListeID = 42");
    const int before = Entries();
    const auto done = Json(Step("consent", 64, 163, kNobody, {"--elsewhere"}));
    EXPECT_EQ(done["SemWartelisteID"], 42);
    EXPECT_EQ(done["Consent"], true);
    EXPECT_EQ(done["Wunschtermin"], "2010-11-30T00:00:00");
    EXPECT_EQ(done["Herkunft"], 3) << "as it was";
    EXPECT_EQ(done["Outcome"], "consent renewed");
    EXPECT_EQ(done["Process"], kNoProcess);
    EXPECT_EQ(Entry(42)["Status"], -1);
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalCommands, OfTwoEntriesForADateTheOlderOneIsTaken) {
    Sql("update Sem_WartelisteTermin_IT set SemTerminID = 62 where SemWarteListeID = 45");
    EXPECT_EQ(Json(Step("withdraw", 62, 311, kNobody))["SemWartelisteID"], 35);
    EXPECT_EQ(Json(Step("consent", 62, 311, kNobody))["SemWartelisteID"], 35);
}

TEST_F(ApprovalCommands, ConsentTellsThatTheProcessIsMissing) {
    Sql("drop table Sem_ProzessSchritt_IT");
    const auto done = Run(Step("consent", 71, 130, kNobody));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err,
              "lumoseminar: The entry was made, but its process was not opened.\n"
              "lumoseminar: The database refused it: Invalid object name 'Sem_ProzessSchritt_IT'.\n");
    EXPECT_EQ(Count("Sem_WartelisteTermin_IT", "SemWarteListeID = 57 and SemTerminID = 71"), 1);
}

TEST_F(ApprovalCommands, ConsentThatIsRefusedEntersNobody) {
    const int before = Entries();
    const auto done = Run(Step("consent", 71, 130, kNobody, {"--user", "O'Neill", "--verbose"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_THAT(done.err, HasSubstr("    in LumoSeminar.BedarfZustimmen\n"));
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalCommands, TheProcessIsTracedOnTheOneSession) {
    const auto done = Run(Step("consent", 71, 130, kNobody, {"--trace"}));
    EXPECT_THAT(done.err, HasSubstr("INSERT INTO Sem_ProzessSchritt_IT "));
    const auto first = done.err.find(" Connect ");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(done.err.find(" Connect ", first + 1), std::string::npos);
}

// consent to a need

TEST_F(ApprovalCommands, ConsentToANeedGoesByTheStages) {
    ASSERT_EQ(Json({"needs", "add", "130", "8", "--user-id", kNobody})["WBID"], 37);
    const int before = Entries();
    const auto pending = Run(ForNeed(71, 37, kFirst));
    EXPECT_EQ(pending.code, 0) << pending.err;
    EXPECT_THAT(pending.out, StartsWith("WBID             37\n"));
    EXPECT_THAT(pending.out, HasSubstr("\nState            open\n"
                                       "Bemerkungen\n"
                                       "Process          Stufe 2 von 2: Entscheidung durch Weiterbildung\n"
                                       "SemTerminID      71\n"
                                       "SemWartelisteID  NULL\n"
                                       "Outcome          consent recorded, more is pending\n"));
    EXPECT_EQ(Entries(), before);

    const auto approved = Json(ForNeed(71, 37, kSecond));
    EXPECT_EQ(approved["Process"], kApproved);
    EXPECT_EQ(approved["SemWartelisteID"], 57);
    EXPECT_EQ(approved["Outcome"], "approved, put on the wait-list");
    EXPECT_EQ(approved["State"], "open");
    EXPECT_EQ(Entry(57)["Herkunft"], 1);
    EXPECT_EQ(Steps(7, 37), "Start 1 13 | Zustimmung 1 11 | Zustimmung 2 12");
    EXPECT_EQ(Json({"waitlist", "--person", "130", "--state"})[0]["Process"], kNoProcess);

    EXPECT_EQ(Json(ForNeed(71, 37, kSecond))["Outcome"], "approved, on the wait-list already") << "given once more";
    ExpectRefused(Run({"needs", "reject", "37", "--user-id", kSecond}),
                  "User 12 may not decide: training need 37 is approved already. Nothing was changed.");
    EXPECT_EQ(Steps(7, 37), "Start 1 13 | Zustimmung 1 11 | Zustimmung 2 12");
}

TEST_F(ApprovalCommands, ConsentToANeedOfSomebodyWhoWaitsAlready) {
    Sql("update AN_WBBedarf_IT set ANNr = 163 where WBID = 31");
    const auto done = Json(ForNeed(64, 31, kSecond));
    EXPECT_EQ(done["Process"], kApproved);
    EXPECT_EQ(done["SemWartelisteID"], 42);
    EXPECT_EQ(done["Outcome"], "approved, on the wait-list already");
    EXPECT_EQ(Entry(42)["Status"], 0) << "the entry stays as it was";
}

TEST_F(ApprovalCommands, ConsentToANeedThatDoesNotCount) {
    const int before = Entries();
    ExpectRefused(Run(ForNeed(71, 31, kFirst)),
                  "User 11 may not decide on training need 31 at stage 2 (Weiterbildung). Nothing was changed.");
    ExpectRefused(Run(ForNeed(71, 5, kSecond)), "There is no training need 5 of client 1.");
    ExpectRefused(Run(ForNeed(67, 31, kSecond)), "There is no date 67 of client 1.");
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalCommands, ConsentToANeedTellsTheStateWhereTheEntryIsRefused) {
    const int before = Entries();
    const auto done = Run(With(ForNeed(71, 31, kSecond), {"--user", "O'Neill"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err,
                StartsWith("lumoseminar: The process is in the state \"Genehmigt\".\nlumoseminar: The database refused it: "));
    EXPECT_EQ(Entries(), before);
}

// approve

TEST_F(ApprovalCommands, ApproveGoesByTheStages) {
    Consent();
    const auto pending = Json(Step("approve", 71, 130, kFirst));
    EXPECT_EQ(pending["Outcome"], "approval recorded, more is pending");
    EXPECT_EQ(pending["Process"], kAtSecond);
    EXPECT_EQ(pending["TeilnehmerID"], nullptr);
    EXPECT_EQ(Participants(71, 130).size(), 0U);

    const auto made = Json(Step("approve", 71, 130, kSecond));
    EXPECT_EQ(made["Outcome"], "participant made");
    EXPECT_EQ(made["Process"], kApproved);
    EXPECT_EQ(made["TeilnehmerID"], 642);
    EXPECT_EQ(made["SemWartelisteID"], 57) << "the entry stays";
    EXPECT_EQ(Participants(71, 130), nlohmann::json::parse(R"([{"TeilnehmerID": 642, "MDNr": 1, "Teilnahme": -1,
        "Herkunft": 3, "BeginnDatum": "2010-10-26T00:00:00"}])"));
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 642 and Kostenbetrag = 1480.5"), 1);
    EXPECT_EQ(Steps(8, 57), "Start 1 13 | Zustimmung 1 11 | Zustimmung 2 12");
}

TEST_F(ApprovalCommands, ApproveFromElsewhere) {
    ConsentAndApproveOnce();
    EXPECT_EQ(Json(Step("approve", 71, 130, kSecond, {"--elsewhere"}))["TeilnehmerID"], 642);
    EXPECT_EQ(Participants(71, 130)[0]["Herkunft"], 4);
}

TEST_F(ApprovalCommands, ApproveOfAnEntryWithoutAProcessTakesTheLastStage) {
    const auto made = Json(Step("approve", 62, 311, kSecond));
    EXPECT_EQ(made["Outcome"], "participant made");
    EXPECT_EQ(Steps(8, 35), "Start 2 12 | Zustimmung 2 12");
}

TEST_F(ApprovalCommands, ApprovalThatDoesNotCountChangesNothing) {
    Consent();
    const int before = AllParticipants();
    for (const char* user : {kSecond, kNobody}) {
        ExpectRefused(Run(Step("approve", 71, 130, user)),
                      std::string("User ") + user +
                          " may not decide on wait-list entry 57 at stage 1 (Vorgesetzte). Nothing was changed.");
    }
    EXPECT_EQ(Steps(8, 57), "Start 1 13");
    ASSERT_EQ(Run(Step("approve", 71, 130, kFirst)).code, 0);
    ASSERT_EQ(Run(Step("approve", 71, 130, kSecond)).code, 0);
    const auto again = Run(Step("approve", 71, 130, kSecond, {"--format", "json"}));
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(nlohmann::json::parse(again.out)["Process"], kApproved);
    EXPECT_THAT(again.err, testing::ContainsRegex("^lumoseminar: Kölbl, Norbert is participant [0-9]+ of date 71 already; nobody was "
                                                  "enrolled.\n$"));
    EXPECT_EQ(Steps(8, 57), "Start 1 13 | Zustimmung 1 11 | Zustimmung 2 12");
    EXPECT_EQ(AllParticipants(), before + 1);
}

TEST_F(ApprovalCommands, ApproveOfAParticipantIsRecordedAllTheSame) {
    ConsentAndApproveOnce();
    Sql("insert into Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, Teilnahme) values (700, 71, 1, 130, 0)");
    const auto done = Run(Step("approve", 71, 130, kSecond));
    EXPECT_EQ(done.code, 1);
    EXPECT_THAT(done.out, HasSubstr("\nTeilnehmerID     700\n"
                                    "Outcome          approval recorded, already a participant\n"
                                    "Process          Genehmigt\n"));
    EXPECT_EQ(done.err, "lumoseminar: Kölbl, Norbert is participant 700 of date 71 already; nobody was enrolled.\n");
    EXPECT_EQ(Participants(71, 130).size(), 1U);
    EXPECT_EQ(Steps(8, 57), "Start 1 13 | Zustimmung 1 11 | Zustimmung 2 12");
}

TEST_F(ApprovalCommands, ApproveOfAParticipantIsPendingAtTheFirstStage) {
    Consent();
    Sql("insert into Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, Teilnahme) values (700, 71, 1, 130, -1)");
    EXPECT_EQ(Json(Step("approve", 71, 130, kFirst))["Outcome"], "approval recorded, more is pending");
}

TEST_F(ApprovalCommands, ApproveTellsTheStateWhereTheParticipantIsRefused) {
    ConsentAndApproveOnce();
    const int before = AllParticipants();
    const auto done = Run(Step("approve", 71, 130, kSecond, {"--user", "O'Neill"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err,
                StartsWith("lumoseminar: The process is in the state \"Genehmigt\".\nlumoseminar: The database refused it: "));
    EXPECT_GT(done.err.find('\n', done.err.find("9999: ")), done.err.find("9999: ") + 6) << "the refusal has a text";
    EXPECT_EQ(AllParticipants(), before);
}

TEST_F(ApprovalCommands, ApproveWithoutTheProcess) {
    Consent();
    const auto made = Json(Step("approve", 71, 130, kNobody, {"--without-process"}));
    EXPECT_EQ(made["Outcome"], "participant made");
    EXPECT_EQ(made["TeilnehmerID"], 642);
    EXPECT_EQ(made["Process"], kAtFirst) << "it is not told";
    EXPECT_EQ(Participants(71, 130)[0]["Herkunft"], 5);
    EXPECT_EQ(Entry(57)["Status"], -1);

    const auto again = Run(Step("approve", 71, 130, kNobody, {"--without-process", "--remove-entry"}));
    EXPECT_EQ(again.code, 1);
    EXPECT_THAT(again.out, HasSubstr("\nOutcome          already a participant\n"));
    EXPECT_EQ(again.err, "lumoseminar: Kölbl, Norbert is participant 642 of date 71 already; nobody was enrolled.\n");
    EXPECT_EQ(Count("Sem_Warteliste_IT", "SemWarteListeID = 57"), 1) << "the entry stays";
    EXPECT_EQ(Participants(71, 130).size(), 1U);
}

TEST_F(ApprovalCommands, ApproveWithoutTheProcessRemovesTheEntryIfWanted) {
    Consent();
    const auto made = Json(Step("approve", 71, 130, kNobody, {"--without-process", "--remove-entry"}));
    EXPECT_EQ(made["Outcome"], "participant made, entry removed");
    EXPECT_EQ(made["SemWartelisteID"], 57);
    EXPECT_EQ(Count("Sem_Warteliste_IT", "SemWarteListeID = 57"), 0);
    EXPECT_EQ(Count("Sem_WartelisteTermin_IT", "SemWarteListeID = 57"), 0);
}

TEST_F(ApprovalCommands, ApproveWithoutTheProcessThatIsRefusedKeepsTheEntry) {
    Consent();
    const int before = AllParticipants();
    const auto done = Run(Step("approve", 71, 130, kNobody, {"--without-process", "--remove-entry", "--user", "O'Neill"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, HasSubstr("\nlumoseminar: The database refused it: "));
    EXPECT_EQ(AllParticipants(), before);
    EXPECT_EQ(Count("Sem_Warteliste_IT", "SemWarteListeID = 57"), 1);
}

// withdraw

TEST_F(ApprovalCommands, WithdrawTakesTheConsentBackAndNothingElse) {
    Consent();
    Sql("update Sem_Warteliste_IT set Wunschtermin = '20101130' where SemWarteListeID = 57");
    const auto done = Json(Step("withdraw", 71, 130, kNobody, {"--user", "lena"}));
    EXPECT_EQ(done["Consent"], false);
    EXPECT_EQ(done["Wunschtermin"], "2010-11-30T00:00:00");
    EXPECT_EQ(done["GeaendertVon"], "lena");
    EXPECT_EQ(done["Outcome"], "consent withdrawn");
    EXPECT_EQ(done["Process"], kAtFirst);
    EXPECT_EQ(Entry(57)["Wunschtermin"], "2010-11-30T00:00:00");
    EXPECT_EQ(Entry(57)["Status"], 0);
    EXPECT_EQ(Json(Step("withdraw", 71, 130, kNobody))["Outcome"], "there was no consent to withdraw");
    EXPECT_EQ(Json(Step("approve", 71, 130, kFirst))["Process"], kAtSecond) << "a consent is not asked for";
}

TEST_F(ApprovalCommands, WithdrawThatIsRefused) {
    Consent();
    const auto done = Run(Step("withdraw", 71, 130, kNobody, {"--user", "O'Neill"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_EQ(Entry(57)["Status"], -1);
}

// all of them

TEST_F(ApprovalCommands, RequestsThatAreNotThere) {
    for (const char* command : {"approve", "withdraw"}) {
        ExpectRefused(Run(Step(command, 71, 130, kFirst)), "Kölbl, Norbert is not on the wait-list of date 71.");
        ExpectRefused(Run(Step(command, 71, 131, kFirst, {"--format", "json"})),
                      "Pütz, Stefan is not on the wait-list of date 71.");
    }
    for (const char* command : {"approve", "withdraw", "consent"}) {
        ExpectRefused(Run(Step(command, 0, 130, kFirst)), "There is no date 0 of client 1.");
        ExpectRefused(Run(Step(command, 71, 9999, kFirst)), "There is no employee 9999 of client 1.");
    }
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalCommands, RequestsOfTemporaryWorkersAreNotThoseOfEmployees) {
    Sql("update Sem_Warteliste_IT set TNID = 130 where SemWarteListeID = 47");
    ExpectRefused(Run(Step("approve", 66, 130, kSecond, {"--without-process"})),
                  "Kölbl, Norbert is not on the wait-list of date 66.");
}

TEST_F(ApprovalCommands, ForPrograms) {
    const auto done = Run(Step("withdraw", 64, 163, kNobody, {"--format", "csv"}));
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.err, "");
    EXPECT_THAT(done.out,
                StartsWith("SemWartelisteID,MDNr,TNID,NameVorname,SemTerminID,Titel,ErfDat,Herkunft,Wunschtermin,"
                           "Consent,GeaendertAm,GeaendertVon,TeilnehmerID,Outcome,Process\n"
                           "42,1,163,\"Engels, Jörg\",64,Erste Hilfe: Grundausbildung,2010-08-25T08:28:31,3,,false,"));
    EXPECT_THAT(done.out, HasSubstr(",,there was no consent to withdraw,Kein Vorgang\n"));
}

TEST_F(ApprovalCommands, WrongUsageChangesNothing) {
    const int before = Entries();
    ExpectUsage(Run({"consent"}), "DATE is missing: SemTerminID of the date.", "consent");
    ExpectUsage(Run({"consent", "71", "130"}), "--user-id is missing: Number of the user who consents.", "consent");
    ExpectUsage(Run({"consent", "71", "--user-id", "1"}), "Give one of PERSON and --need KEY.", "consent");
    ExpectUsage(Run({"consent", "71", "130", "--need", "1", "--user-id", "1"}), "Give one of PERSON and --need KEY.", "consent");
    ExpectUsage(Run({"consent", "71", "--need", "x", "--user-id", "1"}), "--need: \"x\" is not a whole number.", "consent");
    ExpectUsage(Run({"consent", "71", "!", "--user-id", "1"}), "PERSON: \"!\" is neither a number nor a name.", "consent");
    ExpectUsage(Run(With(ForNeed(71, 31, kFirst), {"--elsewhere"})), "Give --need or --elsewhere, not both.", "consent");
    for (const auto& [command, user] : {std::pair<std::string, std::string>{"approve", "Number of the user who decides"},
                                        {"withdraw", "Number of the user who withdraws it"}}) {
        ExpectUsage(Run({command, "71", "--user-id", "1"}), "PERSON is missing: Number or name of the employee.", command);
        ExpectUsage(Run({command, "71", "130"}), "--user-id is missing: " + user + ".", command);
        ExpectUsage(Run({command, "x", "130", "--user-id", "1"}), "DATE: \"x\" is not a whole number.", command);
        ExpectUsage(Run({command, "71", "130", "--user-id", "lena"}), "--user-id: \"lena\" is not a whole number.", command);
    }
    ExpectUsage(Run(Step("approve", 71, 130, kFirst, {"--remove-entry"})),
                "--remove-entry goes with --without-process only.", "approve");
    ExpectUsage(Run(Step("approve", 71, 130, kFirst, {"--without-process", "--elsewhere"})),
                "Give --elsewhere or --without-process, not both.", "approve");
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

}  // namespace
}  // namespace frontend
