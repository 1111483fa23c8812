#include <cstdlib>
#include <filesystem>

#include <test_support/places.h>

#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

bool IsThere(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null 2>&1").c_str()) == 0;
}

class Completion : public Cli {
  protected:
    /// What bash would offer for the last of the words, a candidate a line.
    std::string InBash(const Arguments& words) const {
        WriteAll(folder_ / "completion.bash", Run({"completion", "bash"}).out);
        std::string script = "cd " + InShellQuotes(folder_) + "; source ./completion.bash; lumoseminar() { " +
                             InShellQuotes(test_support::Program()) + " \"$@\"; }; COMP_WORDS=(lumoseminar";
        for (const auto& word : words) script += ' ' + InShellQuotes(word);
        script += "); COMP_CWORD=" + std::to_string(words.size()) +
                  "; _lumoseminar; ((${#COMPREPLY[@]})) && printf '%s\\n' \"${COMPREPLY[@]}\" >offered";
        WriteAll(folder_ / "offered", "");
        const int status =
            std::system(("bash -c " + InShellQuotes(script) + " 2>" + InShellQuotes(folder_ / "err")).c_str());
        EXPECT_NE(status, -1);
        EXPECT_EQ(ReadAll(folder_ / "err"), "");
        return ReadAll(folder_ / "offered");
    }
};

TEST_F(Completion, TellsEachShellWhatAWordMayBecome) {
    UseSample();
    EXPECT_EQ(Run({"complete", "--", "semi"}).out, "seminars\tThe seminar catalogue: list, show, add, set, remove\n");
    EXPECT_EQ(Run({"complete", "--", "seminars", "show", "26"}).out, "26\tFehler-Möglichkeits- und Einfluss-Analyse (FMEA)\n");
    EXPECT_EQ(Run({"complete", "--", "sql", "--file", ""}).out, ":files\n");
    EXPECT_EQ(Lines(Run({"complete", "--", ""}).out), Lines(Run({"complete"}).out));
    EXPECT_THAT(Run({"complete", "--", "--format", "json", "seminars", "list", "--cl"}).out, StartsWith("--client\t"));
}

TEST_F(Completion, IsQuietWhereThereIsNoDatabase) {
    const auto done = Run({"complete", "--", "seminars", "show", ""});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out + done.err, "");
    EXPECT_FALSE(fs::exists(folder_ / "lumoseminar.db"));
}

TEST_F(Completion, AsksTheDatabaseOfTheCommandLine) {
    UseSample();
    fs::rename(folder_ / "lumoseminar.db", folder_ / "other.db");
    EXPECT_EQ(Run({"complete", "--", "seminars", "show", "26"}).out, "");
    EXPECT_THAT(Run({"complete", "--", "--connect=Provider=Embedded;Data Source=other.db", "seminars", "show", "26"}).out,
                StartsWith("26\t"));
}

TEST_F(Completion, WorksInBash) {
    UseSample();
    EXPECT_EQ(InBash({"dat"}), "dates\n");
    EXPECT_EQ(InBash({"dates", "list", "--by", "m"}), "month\n");
    EXPECT_EQ(InBash({"dates", "list", "--by", "=", "m"}), "month\n");
    EXPECT_EQ(InBash({"seminars", "show", "26"}), "26\n");
    EXPECT_THAT(InBash({"seminars", "show", "2"}), HasSubstr("\n26 -- Fehler-Möglichkeits- und Einfluss-Analyse (FMEA)\n"));
    WriteAll(folder_ / "query.sql", "");
    EXPECT_EQ(InBash({"sql", "--file", "que"}), "query.sql\n");
    EXPECT_EQ(InBash({"nosuch", ""}), "");
    EXPECT_THAT(InBash({""}), Not(HasSubstr("complete\n")));
}

TEST_F(Completion, ScriptsAreReadByTheirShells) {
    for (const char* shell : {"bash", "zsh", "fish"}) {
        const auto script = Run({"completion", shell});
        EXPECT_EQ(script.code, 0);
        EXPECT_THAT(script.out, HasSubstr("complete -- "));
        if (!IsThere(shell)) continue;
        WriteAll(folder_ / "script", script.out);
        EXPECT_EQ(std::system((std::string(shell) + " -n " + InShellQuotes(folder_ / "script")).c_str()), 0) << shell;
    }
    ExpectUsage(Run({"completion", "csh"}), "SHELL: \"csh\" is none of bash, zsh, fish. Did you mean \"zsh\"?", "completion");
}

TEST_F(Completion, WorksInFish) {
    if (!IsThere("fish")) GTEST_SKIP() << "there is no fish";
    UseSample();
    WriteAll(folder_ / "script", "function lumoseminar; " + InShellQuotes(test_support::Program()) + " $argv; end\n" +
                                     Run({"completion", "fish"}).out + "\ncomplete -C 'lumoseminar seminars show 26'\n");
    const auto command = "cd " + InShellQuotes(folder_) + " && HOME=. fish --no-config script >offered 2>err";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadAll(folder_ / "offered"), "26\tFehler-Möglichkeits- und Einfluss-Analyse (FMEA)\n")
        << ReadAll(folder_ / "err");
}

TEST_F(Completion, PagesOfTheManualSayWhatTheHelpSays) {
    EXPECT_EQ(Run({"manual", "--folder", "man"}).code, 0);
    const auto page = ReadAll(folder_ / "man" / "lumoseminar-seminars.1");
    EXPECT_EQ(page, Run({"manual", "seminars"}).out);
    EXPECT_THAT(page, HasSubstr("Costs of a cancellation (StornoKosten)."));
    EXPECT_THAT(ReadAll(folder_ / "man" / "lumoseminar.1"), EndsWith("\\fBlumoseminar\\-manual\\fR(1)\n"));
    EXPECT_FALSE(fs::exists(folder_ / "man" / "lumoseminar-complete.1"));
    ExpectUsage(Run({"manual", "seminar"}), "There is no command \"seminar\". Did you mean \"seminars\"?", "manual");
    ExpectUsage(Run({"manual", "sql", "--folder", "x"}), "Give COMMAND or --folder, not both.", "manual");
    EXPECT_EQ(Run({"manual", "--folder", "/dev/null/x"}).code, 1);
}

TEST_F(Completion, ManFindsNothingWrongWithThePages) {
    if (!IsThere("man")) GTEST_SKIP() << "there is no man";
    Run({"manual", "--folder", "man"});
    for (const auto& file : fs::directory_iterator(folder_ / "man")) {
        const auto command =
            "man --warnings -l " + InShellQuotes(file.path()) + " >/dev/null 2>" + InShellQuotes(folder_ / "err");
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_EQ(ReadAll(folder_ / "err"), "") << file.path();
    }
}

}  // namespace
}  // namespace frontend
