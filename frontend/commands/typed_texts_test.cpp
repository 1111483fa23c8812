#include "frontend/cli_test.h"

namespace frontend {
namespace {

using nlohmann::json;

// Texts that people type, with what a statement would take for its own.
constexpr const char* kTexts[] = {"Don't panic",           "L'eau", "''", "'", "Rock 'n' Roll", "';--",
                                  "Größe \"Maß\" für 5 €", "a''b"};

class TypedTexts : public Cli {
  protected:
    TypedTexts() { UseSample(); }

    json Participant(int key) const {
        return Json({"sql", "select ErfUser, Bemerkung, StornoGrund, Ergebnis from Sem_Teilnehmer_IT where TeilnehmerID = " +
                                std::to_string(key)})[0];
    }
};

TEST_F(TypedTexts, OfASeminarAreStoredAsMeant) {
    for (const std::string text : kTexts) {
        const auto added = Json({"seminars", "add", "--title", text, "--code", text});
        EXPECT_EQ(added["SemTitel"], text);
        const auto key = std::to_string(added["SemID"].get<int>());
        auto expected = added;
        for (const int status : {2, 3, 4}) {
            expected["Status"] = status;
            EXPECT_EQ(Json({"seminars", "set", key, "--status", std::to_string(status)}), expected) << text;
        }
        expected["SemCode"] = "it's";
        EXPECT_EQ(Json({"seminars", "set", key, "SemCode=it's"}), expected) << "the other text stays";
        EXPECT_EQ(Json({"seminars", "set", key, "SemTitel=" + text + text})["SemTitel"], text + text);
    }
    EXPECT_EQ(Run({"seminars", "list", "--filter", "don't"}).err, "1 of 43 seminars\n");
}

TEST_F(TypedTexts, OfADateAreStoredAsMeant) {
    for (const std::string text : kTexts) {
        const auto seminar = std::to_string(Json({"seminars", "add", "--title", text})["SemID"].get<int>());
        const auto added =
            Json({"dates", "add", "--seminar", seminar, "--code", text, "--remark", text, "--begin", "6.9.2010"});
        EXPECT_EQ(added["Titel"], text) << "that of the seminar";
        EXPECT_EQ(added["Code"], text);
        EXPECT_EQ(added["Bemerkung"], text);
        const auto key = std::to_string(added["SemTerminID"].get<int>());
        auto expected = added;
        for (const int min : {2, 3}) {
            expected["MinTeil"] = min;
            EXPECT_EQ(Json({"dates", "set", key, "--min", std::to_string(min)}), expected) << text;
        }
        expected["Titel"] = "l'autre";
        EXPECT_EQ(Json({"dates", "set", key, "Titel=l'autre"}), expected);
    }
}

TEST_F(TypedTexts, OfADateStayWhereItsDaysAreMadeAnew) {
    ASSERT_EQ(Run({"dates", "set", "60", "Bemerkung=d'accord"}).code, 0);
    const auto moved = Json({"dates", "set", "60", "BeginnDatum=3.9.2010"});
    EXPECT_EQ(moved["BeginnDatum"], "2010-09-03T00:00:00");
    EXPECT_EQ(moved["Bemerkung"], "d'accord");
}

TEST_F(TypedTexts, OfAParticipantAreStoredAsMeant) {
    for (const std::string text : kTexts) {
        const auto set = Json({"participants", "set", "505", "Bemerkung=" + text, "ErfUser=" + text});
        EXPECT_EQ(set["Bemerkung"], text);
        EXPECT_EQ(set["ErfUser"], text);
        EXPECT_EQ(Json({"participants", "set", "505", "Ergebnis=2"}), Json({"participants", "set", "505", "Ergebnis=2"}));
        EXPECT_EQ(Participant(505), (json{{"ErfUser", text}, {"Bemerkung", text}, {"StornoGrund", 0}, {"Ergebnis", 2}}));
    }
}

TEST_F(TypedTexts, OfAParticipantOutliveTheCancellation) {
    const auto enrolled =
        Json({"participants", "enrol", "78", "130", "--force", "--remark", "Don't panic", "--entered-by", "O'Neill"});
    EXPECT_EQ(enrolled["Bemerkung"], "Don't panic");
    const int key = enrolled["TeilnehmerID"];
    ASSERT_EQ(Run({"participants", "cancel", std::to_string(key), "--reason", "1"}).code, 0);
    EXPECT_EQ(Participant(key),
              (json{{"ErfUser", "O'Neill"}, {"Bemerkung", "Don't panic"}, {"StornoGrund", 1}, {"Ergebnis", 1}}));
}

}  // namespace
}  // namespace frontend
