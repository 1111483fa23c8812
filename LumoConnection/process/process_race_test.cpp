#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include <LumoConnection/process/process_fixture_test.h>
#include <LumoConnection/tracing/tracing_session.h>

// Two who act on one subject at the same moment, each with a session of its own.
namespace LumoConnection {
namespace {

class ProcessRace : public testing::Test {
  protected:
    static Ref<InfoDispatcher> Bound(Ref<DataSession> session) {
        auto dispatcher = MakeProcessDispatcher({.session = std::move(session)});
        dispatcher->Initialisieren(kNeeds, 12, 1, 4711);
        return dispatcher;
    }
    void Start() { MakeProcessStarter({.session = second_})->Starten(kNeeds, 12, kNobody); }

    // The first session, in which something else happens, once, right behind the first select on that table.
    Ref<DataSession> WithMeanwhile(const char* table, std::function<void()> happens) {
        return New<TracingSession>(first_, [table, happens = std::move(happens), done = false](const TracedCall& call) mutable {
            if (call.kind != TracedKind::kOpenSelect || call.statement.find(table) == Text::npos) return;
            if (!std::exchange(done, true)) happens();
        });
    }

    const ProcessFile file_;
    const Ref<EmbeddedSession> first_ = file_.Open();
    const Ref<EmbeddedSession> second_ = file_.Open();
};

constexpr const char* kTooLate = "User 17 was too late: training need 12 has been decided by somebody else meanwhile.";

TEST_F(ProcessRace, TheSlowerOfTwoDecidersIsToldAndChangesNothing) {
    struct Case {
        bool consents;
        bool other_consents;
        Int32 status;
        const char* steps;
    };
    constexpr Case kCases[] = {
        {true, true, ProcessStatus::kRunning, "Start 1 20 | Zustimmung 1 18"},
        {true, false, ProcessStatus::kRejected, "Start 1 20 | Ablehnung 1 18"},
        {false, true, ProcessStatus::kRunning, "Start 1 20 | Zustimmung 1 18"},
        {false, false, ProcessStatus::kRejected, "Start 1 20 | Ablehnung 1 18"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << c.consents << c.other_consents);
        Execute(*second_, "DELETE FROM Sem_ProzessSchritt_IT");
        Start();
        const auto other = Bound(second_);
        const auto slower = Bound(WithMeanwhile("Sem_ProzessRecht_IT", [&] {
            if (c.other_consents) {
                other->Zustimmen(kBoris, "");
            } else {
                other->Ablehnen(kBoris, "");
            }
        }));
        EXPECT_EQ(Refusal([&] { c.consents ? slower->Zustimmen(kAnna, "") : slower->Ablehnen(kAnna, ""); }), kTooLate);
        EXPECT_EQ(Steps(*second_, kNeeds, 12), c.steps);
        EXPECT_EQ(slower->ProzessStatus(), c.status);
    }
}

TEST_F(ProcessRace, OfTwoDecidersWithoutAProcessOneOpensIt) {
    const auto other = Bound(second_);
    const auto slower = Bound(WithMeanwhile("Sem_ProzessRecht_IT", [&] { other->Ablehnen(kClara, ""); }));
    EXPECT_EQ(Refusal([&] { slower->Zustimmen(kAnna, ""); }), kTooLate);
    EXPECT_EQ(slower->ProzessStatus(), ProcessStatus::kRejected);
    EXPECT_EQ(Steps(*second_, kNeeds, 12), "Start 2 19 | Ablehnung 2 19");
}

TEST_F(ProcessRace, ADecisionInADroppedProcessDoesNotCount) {
    Start();
    const auto other = Bound(second_);
    const auto slower = Bound(WithMeanwhile("Sem_ProzessRecht_IT", [&] { other->Loeschen(); }));
    EXPECT_EQ(Refusal([&] { slower->Zustimmen(kAnna, ""); }), kTooLate);
    EXPECT_EQ(slower->ProzessStatus(), ProcessStatus::kNone);
}

TEST_F(ProcessRace, DroppingEndsWhatIsDecidedMeanwhile) {
    Start();
    const auto other = Bound(second_);
    const auto process = Bound(WithMeanwhile("Sem_ProzessSchritt_IT", [&] { other->Zustimmen(kBoris, ""); }));
    process->Loeschen();
    EXPECT_EQ(Steps(*second_, kNeeds, 12), "Start 1 20 | Zustimmung 1 18 | Löschung - -");
}

TEST_F(ProcessRace, DroppingTwiceDropsOnce) {
    Start();
    const auto other = Bound(second_);
    const auto process = Bound(WithMeanwhile("Sem_ProzessSchritt_IT", [&] { other->Loeschen(); }));
    process->Loeschen();
    EXPECT_EQ(Steps(*second_, kNeeds, 12), "Start 1 20 | Löschung - -");
}

TEST_F(ProcessRace, StartingBeginsBehindWhatHappensMeanwhile) {
    const auto starter = MakeProcessStarter({.session = WithMeanwhile("Sem_ProzessSchritt_IT", [&] { Start(); })});
    starter->Starten(kNeeds, 12, kAnna);
    EXPECT_EQ(Steps(*second_, kNeeds, 12), "Start 1 20 | Start 1 17");
    EXPECT_EQ(Bound(second_)->ProzessStatusText(), "Stufe 1 von 2: Entscheidung durch Vorgesetzte");
}

TEST_F(ProcessRace, ManyDecidersAtOnceTakeEachStageOnce) {
    constexpr Int32 kSubjects = 6;
    constexpr std::size_t kDeciders = 4;
    std::array<int, kDeciders> counted{};
    std::array<Text, kDeciders> complaints;
    std::array<std::thread, kDeciders> threads;
    for (std::size_t i = 0; i < kDeciders; ++i) {
        threads.at(i) = std::thread([&, i] {
            const auto dispatcher = MakeProcessDispatcher({.session = file_.Open()});
            for (Int32 key = 1; key <= kSubjects; ++key) {
                dispatcher->Initialisieren(kNeeds, key, 1, 4711);
                try {
                    dispatcher->Zustimmen(kAnna, "");
                    ++counted.at(i);
                } catch (const Error& error) {
                    if (error.Number() != ProcessError::kDecisionRefused)
                        complaints.at(i) += error.Description() + "\n";
                }
            }
        });
    }
    for (auto& thread : threads) thread.join();
    int all = 0;
    for (std::size_t i = 0; i < kDeciders; ++i) {
        all += counted.at(i);
        EXPECT_EQ(complaints.at(i), "");
    }
    // Who comes later repeats the decision; who comes at the same moment is told.
    EXPECT_GE(all, kSubjects);
    for (Int32 key = 1; key <= kSubjects; ++key) {
        EXPECT_EQ(Steps(*first_, kNeeds, key), "Start 2 17 | Zustimmung 2 17") << key;
    }
}

}  // namespace
}  // namespace LumoConnection
