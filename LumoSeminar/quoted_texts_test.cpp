// Texts that come from people, on their way through a statement into the database.

#include <gtest/gtest.h>

#include <LumoSeminar/LumoSeminar.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>

namespace LumoSeminar {
namespace {

using test_support::SampleDatabase;
using Session = Ref<DataSession>;

constexpr Int32 kUserID = 11;
constexpr const char* kSaid = "Rock'n'Roll für O'Neil";

class QuotedText : public participant_statements::ParticipantTest {};

Text KeyIs(const Text& column, Int32 key) { return column + " = " + DefaultText(key); }

/// A new date of the sample company, written.
Ref<clsTermin> NewDate(const Session& session, const Text& text) {
    const auto date = New<clsTermin>();
    date->Init(0, session);
    date->MDNR(1);
    date->Code(Quoted("A'1"));
    date->Titel(text);
    date->Bemerkung(text);
    EXPECT_TRUE(date->WriteToDatabase());
    return date;
}

TEST_F(QuotedText, OfASeminarIsStoredAsItWasSaid) {
    const Session session = SampleDatabase();
    const auto seminar = New<clsSeminar>();
    seminar->Init(0, session);
    seminar->SemCode(Quoted("'"));
    seminar->SemTitel(Quoted(kSaid));
    seminar->WriteToDatabase();
    EXPECT_EQ(seminar->SemTitel(), kSaid);
    EXPECT_EQ(seminar->SemCode(), "'");

    // What was read is quoted again before it goes back.
    seminar->SemCode(Quoted(seminar->SemCode()));
    seminar->SemTitel(Quoted(seminar->SemTitel()));
    EXPECT_TRUE(seminar->UpdateDatabase());
    EXPECT_EQ(session->LookupValue("SemTitel", "Sem_Katalog_IT", KeyIs("SemID", seminar->SemID())), Variant(kSaid));
}

TEST_F(QuotedText, OfADateIsStoredAsItWasSaid) {
    const Session session = SampleDatabase();
    const Int32 key = NewDate(session, Quoted(kSaid))->SemTerminID();
    for (const char* column : {"Titel", "Bemerkung"}) {
        EXPECT_EQ(session->LookupValue(column, "Sem_Termin_IT", KeyIs("SemTerminID", key)), Variant(kSaid)) << column;
    }
    EXPECT_EQ(session->LookupValue("Code", "Sem_Termin_IT", KeyIs("SemTerminID", key)), Variant("A'1"));
}

TEST_F(QuotedText, OfAParticipantIsStoredAsItWasSaid) {
    const Session session = SampleDatabase();
    const auto record = NewDate(session, "")->clscolTeilnehmer()->Add(0);
    record->MDNR(1);
    record->ErfUser(Quoted(kSaid));
    record->Bemerkung(Quoted(kSaid));
    ASSERT_TRUE(record->WriteToDatabase(kUserID));
    for (const char* column : {"ErfUser", "Bemerkung"}) {
        EXPECT_EQ(session->LookupValue(column, "Sem_Teilnehmer_IT", KeyIs("TeilnehmerID", record->TeilnehmerID())), Variant(kSaid))
            << column;
    }
}

TEST_F(QuotedText, OfANeedIsStoredAsItWasSaid) {
    const Session session = SampleDatabase();
    const auto need = New<clsANWBBedarf>();
    need->Init(0, session);
    need->MDNR(1);
    need->BedarfErfuellt(1);
    need->Bemerkungen(Quoted(kSaid));
    need->WriteToDatabase(kUserID);
    EXPECT_EQ(session->LookupValue("Bemerkungen", "AN_WBBedarf_IT", KeyIs("WBID", need->WBID())), Variant(kSaid));
}

TEST_F(QuotedText, OfAFocusAreaIsFoundUnderTheNameThatWasSaid) {
    const Session session = SampleDatabase();
    Int32 first = 0;
    for (int time = 0; time < 2; ++time) {
        const auto area = New<clsSemTerminSchwerpunkt>();
        ASSERT_TRUE(area->Init(0, NewDate(session, "")->SemTerminID(), session));
        area->WBS(Quoted(kSaid));
        ASSERT_TRUE(area->WriteToDatabase());
        if (time == 0) first = area->SchwerpunktID();
        EXPECT_EQ(area->SchwerpunktID(), first);
    }
    EXPECT_EQ(session->LookupValue("Weiterbildungsschwerpunkt", "sysIData_WBS", KeyIs("WBS_ID", first)), Variant(kSaid));
}

TEST_F(QuotedText, StandsInAFilter) {
    const Session session = SampleDatabase();
    const Int32 key = NewDate(session, Quoted(kSaid))->SemTerminID();
    colTermine dates;
    ASSERT_TRUE(dates.Init(-1, 1, session, " AND Titel = '" + Quoted(kSaid) + "'"));
    ASSERT_EQ(dates.Count(), 1);
    EXPECT_EQ(dates.Item(1)->SemTerminID(), key);
}

}  // namespace
}  // namespace LumoSeminar
