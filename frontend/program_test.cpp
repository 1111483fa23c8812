#include "frontend/cli_test.h"

#include <cstdlib>
#include <filesystem>

#include <test_support/places.h>

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Cli, VersionAndHelp) {
    const auto version = Run({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_THAT(version.out, testing::MatchesRegex("lumoseminar [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    const auto help = Run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(help.err, "");
    for (const char* word : {"--connect", "--user", "--password", "--client", "--trace", "--format", "init", "seminars",
                             "sql", "tour", "Exit codes: 0 done, 1 refused"}) {
        EXPECT_THAT(help.out, HasSubstr(word));
    }
    EXPECT_THAT(Run({"seminars", "add", "--help"}).out,
                HasSubstr("--cancel-cost X             Costs of a cancellation (StornoKosten)"));
    EXPECT_FALSE(fs::exists(folder_ / "lumoseminar.db"));
}

TEST_F(Cli, WithoutArgumentsThePipeGetsTheHelp) {
    const auto done = Run({});
    EXPECT_EQ(done.code, 2);
    EXPECT_EQ(done.out, Run({"--help"}).out);
    EXPECT_EQ(done.err, "");
}

struct UsageCase {
    Arguments arguments;
    const char* message;
    const char* command;
};

TEST_F(Cli, WrongUsageEndsWithTwoAndTouchesNothing) {
    const UsageCase cases[] = {
        {{"nosuch"}, "There is no command \"nosuch\".", "lumoseminar"},
        {{"seminars"}, "A command is missing: list, show, add, set, remove.", "lumoseminar seminars"},
        {{"seminars", "nosuch"}, "There is no command \"nosuch\".", "lumoseminar seminars"},
        {{"seminars", "list", "extra"}, "\"extra\" is too much: lumoseminar seminars list takes no argument.", "lumoseminar seminars list"},
        {{"seminars", "list", "--nosuch"}, "There is no option --nosuch.", "lumoseminar seminars list"},
        {{"seminars", "list", "--format", "xml"}, "--format: \"xml\" is none of table, json, csv.", "lumoseminar seminars list"},
        {{"--client", "x", "seminars", "list"}, "--client: \"x\" is not a whole number.", "lumoseminar seminars list"},
        {{"seminars", "show"}, "KEY is missing: SemID of the seminar.", "lumoseminar seminars show"},
        {{"seminars", "show", "1.5"}, "KEY: \"1.5\" is not a whole number.", "lumoseminar seminars show"},
        {{"seminars", "show", "4294967296"}, "KEY: \"4294967296\" does not fit: -2147483648 to 2147483647.", "lumoseminar seminars show"},
        {{"seminars", "add"}, "--title is missing: Title (SemTitel).", "lumoseminar seminars add"},
        {{"seminars", "add", "--title", "A", "--cost", "1.234,50"},
         "--cost: \"1.234,50\" has a mark for the thousands; write it without, as in 1234.50 or 1234,50.",
         "lumoseminar seminars add"},
        {{"seminars", "add", "--title", "A", "--hours", "viel"},
         "--hours: \"viel\" is not a number; write it as 7.5 or 7,5.",
         "lumoseminar seminars add"},
        {{"seminars", "set", "1"}, "Nothing to set: name a column and its value.", "lumoseminar seminars set"},
        {{"seminars", "set", "1", "SemTitel"}, "\"SemTitel\" is not of the form column=value.", "lumoseminar seminars set"},
        {{"seminars", "set", "1", "Titel=A"}, "A seminar has no column \"Titel\".", "lumoseminar seminars set"},
        {{"seminars", "set", "1", "SemID=7"}, "SemID is the key and cannot be changed.", "lumoseminar seminars set"},
        {{"seminars", "set", "1", "Status="}, "Status: \"\" is not a whole number.", "lumoseminar seminars set"},
        {{"seminars", "remove"}, "KEY is missing: SemID of each seminar.", "lumoseminar seminars remove"},
        {{"sql"}, "Give a text, --file FILE, or - for standard input.", "lumoseminar sql"},
        {{"sql", "select 1", "--file", "in"}, "Give a text or a file, not both.", "lumoseminar sql"},
        {{"sql", "--file", "nosuch.sql"}, "--file: there is no file \"nosuch.sql\".", "lumoseminar sql"},
        {{"sql", " \nGO\n"}, "There is no statement in the text.", "lumoseminar sql"},
        {{"init", "--schema", "nosuch.sql"}, "--schema: there is no file \"nosuch.sql\".", "lumoseminar init"},
        {{"tour", "--format", "json"}, "The tour is a text to read: it has no other format.", "lumoseminar tour"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.message);
        const auto done = Run(one.arguments);
        EXPECT_EQ(done.code, 2);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, std::string("lumoseminar: ") + one.message + "\nTry \"" + one.command + " --help\".\n");
        EXPECT_FALSE(fs::exists(folder_ / "lumoseminar.db"));
    }
}

TEST_F(Cli, TraceShowsEachStatementWithTimeAndRows) {
    UseSample();
    const auto done = Run({"seminars", "show", "5", "--trace", "--client", "1"});
    EXPECT_EQ(done.out, Run({"seminars", "show", "5"}).out);
    EXPECT_THAT(
        done.err,
        ContainsRegex(
            "^trace +[0-9]+\\.[0-9]{3} ms             Connect           Provider=Embedded;Data Source=lumoseminar\\.db\n"
            "trace +[0-9]+\\.[0-9]{3} ms +[0-9]+ rows  OpenSelect        SELECT SemID FROM Sem_Katalog_IT WHERE \\(MDNr = 1 or MDNR = -1\\)\n"
            "trace +[0-9]+\\.[0-9]{3} ms +1 row  OpenSelect        SELECT MDNr, .* FROM Sem_Katalog_IT WHERE SemID = 5\n$"));
    const auto refused = Run({"seminars", "add", "--title", std::string(256, 'x'), "--trace"});
    EXPECT_THAT(refused.err, ContainsRegex("trace .* refused  ExecuteSql        INSERT INTO Sem_Katalog_IT"));
}

TEST_F(Cli, TheConnectionComesFromOptionEnvironmentOrDefault) {
    UseSample();
    fs::rename(folder_ / "lumoseminar.db", folder_ / "other.db");
    const std::string other = "Provider=Embedded;Data Source=other.db";
    const auto by_option = Run({"--connect", other, "seminars", "show", "1"});
    EXPECT_EQ(by_option.code, 0) << by_option.err;
    EXPECT_EQ(Run({"seminars", "show", "1"}, {}, "LUMOSEMINAR_CONNECT=" + InShellQuotes(other)).out, by_option.out);
}

TEST_F(Cli, APathIsADatabaseFile) {
    UseSample();
    const auto expected = Run({"seminars", "show", "1"}).out;
    for (const char* name : {"other.db", "with blank.db", "a=b;c'\"d.db"}) {
        SCOPED_TRACE(name);
        fs::copy_file(folder_ / "lumoseminar.db", folder_ / name);
        EXPECT_EQ(Run({"--db", name, "seminars", "show", "1"}).out, expected);
        if (std::string(name).find('=') != std::string::npos) continue;
        EXPECT_EQ(Run({"--connect", name, "seminars", "show", "1"}).out, expected);
        EXPECT_EQ(Run({"seminars", "show", "1"}, {}, "LUMOSEMINAR_CONNECT=" + InShellQuotes(name)).out, expected);
    }
    EXPECT_THAT(Run({"--db", "a", "--connect", "b", "tables"}).err, HasSubstr("Give --connect or --db, not both."));
}

TEST_F(Cli, ADatabaseThatIsToBeReadOnlyIsNotWritten) {
    UseSample();
    const std::string text = "Provider=Embedded;Data Source=lumoseminar.db;Mode=ReadOnly";
    EXPECT_EQ(Run({"--connect", text, "seminars", "show", "1"}).code, 0);
    const auto refused = Run({"--connect", text, "seminars", "set", "1", "Status=2"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, HasSubstr("Mode=ReadOnly"));
}

TEST_F(Cli, AProviderThatNobodyKnowsIsNamed) {
    EXPECT_THAT(Run({"--connect", "Provider=Nosuch;Server=a", "tables"}).err,
                StartsWith("lumoseminar: There is no component for the provider \"Nosuch\" of this connection text."));
}

TEST_F(Cli, ADatabaseOfAnotherProgramIsLeftAlone) {
    const std::string made = "import sqlite3; sqlite3.connect('foreign.db').execute('create table a(b)')";
    const std::string command = "cd " + InShellQuotes(folder_) + " && python3 -c " + InShellQuotes(made);
    if (std::system(command.c_str()) != 0) GTEST_SKIP() << "there is no Python to make one";
    for (const Arguments& arguments :
         {Arguments{"--db", "foreign.db", "seminars", "list"}, Arguments{"--db", "foreign.db", "init"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.err,
                  "lumoseminar: The file 'foreign.db' is a database of another program. The command init makes a database in a "
                  "file of its own, which --db names.\n");
    }
}

TEST_F(Cli, OnlyInitMakesADatabaseFile) {
    for (const Arguments& arguments : {Arguments{"seminars", "list"}, Arguments{"sql", "select 1"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.err, "lumoseminar: There is no database file \"lumoseminar.db\"; the command init creates it.\n");
        EXPECT_FALSE(fs::exists(folder_ / "lumoseminar.db"));
    }
}

TEST_F(Cli, ConnectionTextsThatAreNoneAreToldAbout) {
    const auto unknown = Run({"--connect", "Driver=nosuch", "sql", "select 1"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_THAT(unknown.err, StartsWith("lumoseminar: "));
    EXPECT_THAT(unknown.err, HasSubstr("nosuch"));
    const auto bad = Run({"--connect", "Provider=Embedded;Colour=red", "sql", "select 1"});
    EXPECT_EQ(bad.code, 1);
    EXPECT_THAT(bad.err, HasSubstr("colour"));
}

TEST_F(Cli, ADatabaseThatCannotBeOpenedIsToldAbout) {
    fs::create_directory(folder_ / "folder.db");
    WriteAll(folder_ / "text.db", std::string(5000, 'x'));
    for (const char* source : {"nosuch/folder/x.db", "folder.db", "text.db"}) {
        SCOPED_TRACE(source);
        const auto done = Run({"--connect", std::string("Provider=Embedded;Data Source=") + source, "init"});
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_THAT(done.err, StartsWith("lumoseminar: "));
        EXPECT_GT(done.err.size(), std::string("lumoseminar: \n").size());
    }
    EXPECT_EQ(ReadAll(folder_ / "text.db"), std::string(5000, 'x'));
}

TEST_F(Cli, AFullDiskUnderTheOutputIsAFailure) {
    UseSample();
    const std::string command = "cd " + InShellQuotes(folder_) + " && " + InShellQuotes(test_support::Program()) +
                                " seminars list >/dev/full 2>err";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_THAT(ReadAll(folder_ / "err"), HasSubstr("lumoseminar: Standard output could not be written.\n"));
}

}  // namespace
}  // namespace frontend
