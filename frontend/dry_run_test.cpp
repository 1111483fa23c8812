#include "frontend/dry_run.h"

#include "frontend/cli_test.h"

namespace frontend {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Changes, LooksForWordsOutsideOfTextsNamesAndComments) {
    for (const char* text : {"INSERT INTO T VALUES (1)", "declare @a int if @a = 1 update T set a = 1", "SELECT a INTO U FROM T",
                             "SELECT 1 -- a remark\nDELETE FROM T", "drop table T", "SELECT 'it''s' DELETE T"}) {
        EXPECT_TRUE(Changes(text)) << text;
    }
    for (const char* text : {"SELECT 'delete' FROM T", "SELECT [update], \"insert\" FROM T", "SELECT 1 /* drop */ -- delete",
                             "SELECT updated, @insert, delete_ FROM T", "SELECT 'it''s delete'", "", "'delete", "/* delete"}) {
        EXPECT_FALSE(Changes(text)) << text;
    }
}

class DryRunOfCommands : public Cli {
  protected:
    DryRunOfCommands() { UseSample(); }

    std::string Everything() const {
        std::string all;
        for (const auto& table : Json({"tables"})) {
            const std::string name = table["Table"];
            all += name + Json({"sql", "select * from " + name}).dump();
        }
        return all;
    }

    std::vector<std::string> Statements(Arguments arguments, int code = 0) const {
        arguments.insert(arguments.end(), {"--dry-run", "--format", "json"});
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, code) << arguments[0] << " " << arguments[1] << ": " << done.err;
        std::vector<std::string> statements;
        for (const auto& row : nlohmann::json::parse(done.out, nullptr, false)) statements.push_back(row["Statement"]);
        return statements;
    }
};

struct Rehearsed {
    Arguments arguments;
    const char* statement;
};

TEST_F(DryRunOfCommands, TellsWhatIsSentAndLeavesTheDatabaseAsItIs) {
    const Rehearsed cases[] = {
        {{"seminars", "add", "--title", "A"}, "INSERT INTO Sem_Katalog_IT "},
        {{"seminars", "set", "5", "Status=2"}, "UPDATE Sem_Katalog_IT "},
        {{"seminars", "remove", "42", "--client", "2"}, "DELETE FROM Sem_Katalog_IT WHERE SemID = 42"},
        {{"dates", "add", "--seminar", "9", "--begin", "03.03.2010"}, "Insert Into Sem_Termin_Termine_IT "},
        {{"dates", "set", "60", "Titel=A"}, "UPDATE Sem_Termin_IT "},
        {{"dates", "remove", "60"}, "DELETE FROM Sem_Termin_IT WHERE SemTerminID = 60"},
        {{"days", "add", "60", "01.10.2010"}, "Insert Into Sem_Termin_Termine_IT "},
        {{"days", "remove", "60", "30.09.2010"}, "Delete From Sem_Termin_Termine_IT "},
        {{"series", "add", "--daily", "--begin", "09:00", "--end", "10:00"}, "Insert Into Sem_Serien_IT "},
        {{"participants", "enrol", "78", "130"}, "INSERT INTO Sem_Teilnehmer_IT "},
        {{"participants", "enrol", "61", "130"}, "INSERT INTO Sem_Teilnehmer_IT "},
        {{"participants", "set", "505", "Ergebnis=2"}, "UPDATE Sem_Teilnehmer_IT "},
        {{"participants", "cancel", "505", "--to-waitlist"}, "\r\nInsert Into Sem_WartelisteSem_IT"},
        {{"participants", "remove", "505"}, "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 505"},
        {{"participants", "costs", "505", "--add", "12"}, " INSERT INTO Sem_Teilnehmer_kosten_IT "},
        {{"consent", "71", "130", "--user-id", "13"}, "INSERT INTO Sem_ProzessSchritt_IT "},
        {{"approve", "64", "163", "--user-id", "11", "--without-process"}, "INSERT INTO Sem_Teilnehmer_IT "},
        {{"withdraw", "64", "163", "--user-id", "11"}, " UPDATE Sem_Warteliste_IT "},
        {{"needs", "add", "130", "8", "--user-id", "11"}, "Insert Into AN_WBBedarf_IT "},
        {{"needs", "reject", "31", "--user-id", "12"}, "INSERT INTO Sem_ProzessSchritt_IT "},
        {{"needs", "remove", "31"}, "Delete AN_WBBedarf_IT "},
        {{"focus", "tie", "60", "Messtechnik"}, "INSERT INTO Sem_Termin_Schwerpunkte_IT "},
        {{"focus", "untie", "60", "11"}, "DELETE FROM Sem_Termin_Schwerpunkte_IT "},
    };
    const auto before = Everything();
    for (const auto& [arguments, statement] : cases) {
        SCOPED_TRACE(arguments[0] + " " + arguments[1]);
        const auto statements = Statements(arguments);
        EXPECT_THAT(statements, Contains(HasSubstr(statement)));
        EXPECT_THAT(statements, Not(Contains(StartsWith("SELECT"))));
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(DryRunOfCommands, ForPeopleEachStatementStandsWholeOnALine) {
    const auto done = Run({"participants", "remove", "505", "--dry-run"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out,
                StartsWith("DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 505\nDelete Sem_Teilnehmer_kosten_IT "));
    EXPECT_THAT(done.err, HasSubstr(" go with it.\n"));
    EXPECT_THAT(done.err, EndsWith("3 statements; nothing of it stays in the database\n"));
    const auto shown = Sit({"seminars", "add", "--title", "A", "--dry-run"}, {.columns = 40});
    EXPECT_EQ(shown.code, 0) << shown.screen;
    EXPECT_THAT(shown.screen,
                AllOf(HasSubstr("INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, "), Not(HasSubstr("…"))));
}

TEST_F(DryRunOfCommands, EndsAtTheStatementThatIsRefused) {
    const auto before = Everything();
    const auto done = Run({"dates", "remove", "60", "--dry-run", "--verbose"}, {}, {});
    ASSERT_EQ(done.code, 0) << done.err;
    const auto refused = Run({"participants", "set", "505", "Bemerkung=" + std::string(300, 'x'), "--dry-run", "--verbose"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.out, StartsWith("UPDATE Sem_Teilnehmer_IT "));
    EXPECT_THAT(refused.err, HasSubstr("\nlumoseminar: The database refused it: "));
    EXPECT_THAT(refused.err, HasSubstr("\n    in the statement UPDATE Sem_Teilnehmer_IT "));
    EXPECT_EQ(Everything(), before);
}

// What the database refuses because of a value takes back the whole transaction at once.
TEST_F(DryRunOfCommands, ARefusalThatEndsTheTransactionWritesNothingEither) {
    ASSERT_EQ(Run({"sql",
                   "DROP TABLE Sem_Teilnehmer_Kosten_IT CREATE TABLE Sem_Teilnehmer_Kosten_IT (KostenID int NULL, "
                   "TeilnehmerID nvarchar(20) NULL, KostenArtID int NULL, Kostenbetrag money NULL, Kost int NULL) "
                   "INSERT INTO Sem_Teilnehmer_Kosten_IT VALUES (1, 'keine Zahl', 1, 1, 1)"})
                  .code,
              0);
    const auto before = Everything();
    const auto done = Run({"participants", "enrol", "78", "130", "--dry-run"});
    EXPECT_EQ(done.code, 1) << done.out;
    EXPECT_THAT(done.err, HasSubstr("lumoseminar: The database refused it: Conversion failed"));
    EXPECT_EQ(Everything(), before);
}

TEST_F(DryRunOfCommands, ACommandThatWouldFailSaysSo) {
    const auto done = Run({"seminars", "remove", "5", "--dry-run"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, HasSubstr("lumoseminar: The command would end with the exit code 1.\n"));
    const auto unknown = Run({"dates", "set", "999", "Titel=A", "--dry-run"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_THAT(unknown.err, EndsWith("lumoseminar: There is no date 999 of client 1.\n"));
}

TEST_F(DryRunOfCommands, CommandsThatReadHaveNone) {
    const auto done = Run({"seminars", "list", "--dry-run"});
    EXPECT_EQ(done.code, 2);
    EXPECT_THAT(
        done.err,
        StartsWith("lumoseminar: There is no --dry-run to \"lumoseminar seminars list\": it is for commands that write.\n"));
}

TEST_F(DryRunOfCommands, SqlShowsItsBatches) {
    EXPECT_EQ(Statements({"sql", "DELETE FROM OpactMD\nGO\nSELECT 1"}),
              (std::vector<std::string>{"DELETE FROM OpactMD\n", "SELECT 1"}));
    EXPECT_EQ(Json({"sql", "SELECT count(*) AS n FROM OpactMD"})[0]["n"], 1);
    EXPECT_EQ(Run({"sql", "SELECT\n1", "--dry-run"}).out, "SELECT\n1\nGO\n");
}

TEST_F(DryRunOfCommands, InitShowsItsBatchesAndMakesNoFile) {
    const auto statements = Statements({"--db", "other.db", "init"});
    EXPECT_THAT(statements, Contains(HasSubstr("CREATE TABLE Sem_Katalog_IT ")));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "other.db"));
    EXPECT_THAT(Statements({"init", "--reset"}), Contains("DROP TABLE Sem_Katalog_IT"));
    EXPECT_GT(RowCount(), 0);
}

}  // namespace
}  // namespace frontend
