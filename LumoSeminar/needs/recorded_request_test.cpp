// A program of business objects, recorded once on the embedded database and played back from a file without one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <LumoConnection/install.h>
#include <LumoConnection/script/recording_session.h>
#include <LumoConnection/script/script_processes.h>
#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/colSeminare.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/embedded.h>
#include <test_support/processes.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;

/// A new seminar, a date of it with days, a request through both stages, and a cancellation. Gives what it saw.
std::string Program(Ref<DataSession> session, Int32 department = 12) {
    std::ostringstream seen;
    const auto seminar = New<clsSeminar>();
    seminar->Init(0, session);
    seminar->MDNR(1);
    seminar->SemTitel("Führen mit \"Herz\"");
    seminar->Stunden(6.5);
    seminar->KostenProTN(Money::FromUnits(1'205'000));
    seminar->WriteToDatabase();
    const auto catalogue = New<colSeminare>();
    (void)catalogue->Init(1, session);
    for (const auto& entry : catalogue->NewEnum())
        seen << entry->SemTitel() << " " << DefaultText(entry->Stunden()) << "\n";

    const auto date = New<clsTermin>();
    date->Init(0, session);
    date->SemID(seminar->SemID());
    (void)date->WriteToDatabase();
    date->Sitzungen(3);
    date->BeginnDatum(DateTime::Of(2010, 11, 2));
    (void)date->WriteToDatabase();
    seen << date->colTerminTage()->Count() << " days up to " << DefaultText(date->EndeDatum()) << "\n";

    const auto person = New<clsWBPerson>();
    person->Init(1, 101, 2, session);
    seen << person->Vorname() << " " << person->Nachname() << " " << person->TeilnahmePruefen(60)->Count() << "\n";
    person->TeilnahmeZustimmen(60, 101);
    seen << (person->TeilnahmeGenehmigen(60, 11) ? "first " : "none ");
    seen << (person->TeilnahmeGenehmigen(60, department) ? "second" : "none") << "\n";

    const auto again = New<clsTermin>();
    again->Init(60, session);
    for (const auto& participant : again->clscolTeilnehmer()->NewEnum()) {
        seen << participant->ANNr() << " " << DefaultText(participant->ErfDatum()) << " ";
        if (participant->ANNr() != 101) continue;
        participant->Teilnahme(0);
        participant->storniertam(Today());
        seen << (participant->WriteToDatabase(0) ? "cancelled" : "not cancelled");
    }
    return seen.str();
}

class RecordedRequest : public testing::Test {
  protected:
    RecordedRequest() { common::State() = {}; }
    ~RecordedRequest() override {
        common::State() = {};
        SetComponents({});
    }

    PinnedNow now_{DateTime::Of(2010, 8, 16, 9, 30, 5)};
};

TEST_F(RecordedRequest, IsPlayedBackFromAFile) {
    const test_support::Folder folder;
    const std::string file = folder.File("request.script");
    std::string seen;
    {
        const auto database = test_support::EmbeddedSchemaDatabase();
        for (const char* name : {"process.sql", "sample.sql", "process_sample.sql"})
            test_support::RunSchemaFile(*database, name);
        const auto recording = Script::Record(database);
        LumoConnection::Install({.user = "lena", .session = database});
        SetComponents(recording->RecordedComponents({
            .data_session = {},
            .info_dispatcher = [database] { return LumoConnection::MakeProcessDispatcher({.session = database}); },
            .info_starter = [database] { return LumoConnection::MakeProcessStarter({.session = database}); },
            .session_defaults = [] { return New<LumoConnection::LoginDefaults>("lena"); },
        }));
        seen = Program(recording);
        std::ofstream(file, std::ios::binary) << recording->Recorded().FileText();
    }
    EXPECT_THAT(seen, testing::HasSubstr("Führen mit \"Herz\" 6.5\n3 days up to "));
    EXPECT_THAT(seen, testing::HasSubstr("first second\n"));
    EXPECT_THAT(seen, testing::EndsWith(" cancelled"));

    common::State() = {};
    Script script = Script::ReadFile(file);
    EXPECT_GT(script.StepCount(), 150);
    SetComponents(LumoConnection::ScriptComponents(script.Session()));
    EXPECT_EQ(Program(script.Session()), seen);
    EXPECT_EQ(script.Report(), "");

    // Another program is found out, at the call that differs.
    common::State() = {};
    Script other = Script::ReadFile(file);
    SetComponents(LumoConnection::ScriptComponents(other.Session()));
    EXPECT_THROW(Program(other.Session(), 13), Error);
    EXPECT_THAT(other.Report(), testing::HasSubstr("differs: Process, call, at character 27"));
    EXPECT_THAT(other.Report(), testing::HasSubstr("InfoDispatcher.Zustimmen 12, ''"));
}

}  // namespace
}  // namespace LumoSeminar
