#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include <test_support/places.h>
#include "frontend/cli_test.h"
#include "frontend/program.h"
#include "frontend/readme_blocks_test.h"
#include "frontend/shell_test.h"

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Complaint {
    std::size_t line = 0;
    std::string text;
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += "    " + line + '\n';
    return text;
}

bool IsPlaceholder(const std::string& word) {
    return std::ranges::any_of(word, [](unsigned char c) { return std::isupper(c) != 0; }) &&
           std::ranges::none_of(word, [](unsigned char c) { return std::islower(c) != 0; });
}

// Whether it can be run as it stands.
bool IsConcrete(const std::string& text) {
    const auto words = WordsOf(text);
    return text.find_first_of("[]|") == std::string::npos && text.find("...") == std::string::npos &&
           text.find("Driver=") == std::string::npos && text.find("DSN=") == std::string::npos &&
           std::ranges::none_of(words, [](const auto& word) { return IsPlaceholder(word) || word == "-"; });
}

// What the description of the commands says about a line that says what there is.
class Synopsis {
  public:
    explicit Synopsis(const Command& program) : program_(program) {}

    /// What the line names and there is not.
    std::vector<std::string> Check(const std::string& line) {
        std::vector<std::string> complaints;
        CommandPath path;
        for (const auto& alternative : AlternativesOf(line)) {
            auto words = WordsOf(alternative);
            CommandPath from = {&program_};
            if (path.empty()) {
                words.erase(words.begin());
            } else {
                const bool sibling = !words.empty() && path.size() > 1 && path[path.size() - 2]->Find(words.front()) != nullptr;
                from.assign(path.begin(), path.end() - (sibling ? 1 : 0));
            }
            path = Follow(from, words, complaints);
            lines_.push_back(NameOf(path));
            for (const auto& word : words) lines_.back() += ' ' + word;
            named_.insert(path.back());
        }
        return complaints;
    }

    /// The alternatives of the last lines, whole.
    const std::vector<std::string>& Lines() const { return lines_; }

    /// The commands that no line has named.
    std::vector<std::string> Unnamed() const {
        std::vector<std::string> names;
        FindUnnamed({&program_}, names);
        return names;
    }

    bool HasOption(const std::string& name) const { return HasOption(program_, name); }

  private:
    // Takes the names of commands off the words.
    CommandPath Follow(CommandPath path, std::vector<std::string>& words, std::vector<std::string>& complaints) const {
        std::vector<std::string> left;
        std::size_t arguments = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            auto word = words[i];
            std::erase_if(word, [](char c) { return c == '[' || c == ']'; });
            if (word == "..." || word.empty()) {
                left.push_back(words[i]);
                continue;
            }
            const auto& command = *path.back();
            if (word.starts_with("--")) {
                left.push_back(words[i]);
                word.resize(std::min(word.find('='), word.size()));
                const auto* option = command.FindOption(word);
                if (option == nullptr) option = program_.FindOption(word);
                if (option == nullptr) {
                    complaints.push_back(fmt::format("there is no option {} of \"{}\"", word, NameOf(path)));
                } else if (!option->IsFlag() && i + 1 < words.size() && words[i].find('=') == std::string::npos) {
                    left.push_back(words[++i]);
                }
                continue;
            }
            if (!command.Commands().empty()) {
                const auto* next = command.Find(word);
                if (next == nullptr) {
                    complaints.push_back(fmt::format("there is no command \"{}\" of \"{}\"", word, NameOf(path)));
                    return path;
                }
                path.push_back(next);
                continue;
            }
            left.push_back(words[i]);
            const auto& taken = command.Arguments();
            if (++arguments > taken.size() && (taken.empty() || !taken.back().IsRepeated()))
                complaints.push_back(fmt::format("\"{}\" does not take \"{}\"", NameOf(path), word));
        }
        words = left;
        return path;
    }

    void FindUnnamed(const CommandPath& path, std::vector<std::string>& names) const {
        for (const auto& command : path.back()->Commands()) {
            auto below = path;
            below.push_back(&command);
            if (command.Act() && !command.IsHidden() && !named_.contains(&command)) names.push_back(NameOf(below));
            FindUnnamed(below, names);
        }
    }

    static bool HasOption(const Command& command, const std::string& name) {
        return command.FindOption(name) != nullptr ||
               std::ranges::any_of(command.Commands(), [&](const auto& below) { return HasOption(below, name); });
    }

    const Command& program_;
    std::set<const Command*> named_;
    std::vector<std::string> lines_;
};

/// Documents, and what is not as they say.
class Readme : public Cli {
  protected:
    Readme() {
        DescribeProgram(program_, options_);
        fs::create_directory(folder_ / "bin");
        fs::create_symlink(test_support::Program(), folder_ / "bin" / "lumoseminar");
    }

    static std::map<std::string, std::string> Documents() {
        const fs::path source = fs::path(test_support::SourceDir());
        std::map<std::string, std::string> documents = {{"README.md", ReadAll(source / "README.md")}};
        for (const auto& file : fs::directory_iterator(source / "docs")) {
            if (file.path().extension() == ".md") documents["docs/" + file.path().filename().string()] = ReadAll(file);
        }
        return documents;
    }

    // A folder for the commands of a section, with a sample in it unless they begin with making one.
    fs::path Place(const std::string& first_command) {
        if (!fs::exists(folder_ / "lumoseminar.db")) UseSample();
        const auto place = folder_ / std::to_string(++places_);
        fs::create_directory(place);
        fs::create_symlink(test_support::Program(), place / "run");
        const auto words = WordsOf(first_command);
        if (std::ranges::find(words, "init") != words.end()) return place;
        for (const auto& file : fs::directory_iterator(folder_)) {
            if (file.path().filename().string().starts_with("lumoseminar.db")) {
                fs::copy_file(file, place / file.path().filename());
            }
        }
        return place;
    }

    ShellResult RunIn(const fs::path& place, const std::string& line) const {
        return RunShell({place, "PATH=" + InShellQuotes(folder_ / "bin") + ":$PATH; " + line});
    }

    std::vector<Complaint> CheckTranscripts(const std::string& text) {
        std::vector<Complaint> complaints;
        std::map<std::size_t, fs::path> places;
        for (const auto& command : CommandsOfDocument(text)) {
            if (!command.is_transcript) continue;
            const auto words = WordsOf(command.text);
            if (words.empty() || (words.front() != "lumoseminar" && words.front() != "./run")) {
                complaints.push_back({command.line, fmt::format("\"$ {}\" is no command of this program: write it without \"$\".",
                                                                command.text)});
                continue;
            }
            auto& place = places[command.section];
            if (place.empty()) place = Place(command.text);
            const auto done = RunIn(place, command.text);
            const auto screen = LinesOf(done.screen);
            if (!IsAsShown(command.shows, screen)) {
                complaints.push_back({command.line, fmt::format("$ {}\nis to show\n{}but shows\n{}", command.text,
                                                                Joined(command.shows), Joined(screen))});
            }
            const bool refused =
                std::ranges::any_of(screen, [](const auto& line) { return line.starts_with("lumoseminar: "); });
            if ((done.code == 0) == refused && command.text.find("echo $?") == std::string::npos) {
                complaints.push_back({command.line, fmt::format("$ {}\nends with {}{}.", command.text, done.code,
                                                                refused ? "" : "; write \"; echo $?\" behind it")});
            }
        }
        return complaints;
    }

    std::vector<Complaint> CheckNames(const std::string& text) {
        std::vector<Complaint> complaints;
        for (const auto& command : CommandsOfDocument(text)) {
            if (command.is_transcript) continue;
            if (command.text.starts_with("--")) {
                const auto name = WordsOf(command.text).front();
                if (!synopsis_.HasOption(name.substr(0, name.find('='))))
                    complaints.push_back({command.line, "there is no option " + name});
                continue;
            }
            for (const auto& complaint : synopsis_.Check(command.text)) complaints.push_back({command.line, complaint});
        }
        return complaints;
    }

    std::vector<Complaint> CheckLinesToRun(const std::string& text) {
        std::vector<Complaint> complaints;
        for (const auto& command : CommandsOfDocument(text)) {
            if (command.is_transcript || command.is_inline) continue;
            Synopsis of_line(program_);
            if (!of_line.Check(command.text).empty()) continue;
            for (const auto& line : of_line.Lines()) {
                if (!IsConcrete(line)) continue;
                const auto done = RunIn(Place(line), line);
                if (done.code != 0) {
                    complaints.push_back({command.line, fmt::format("{}\nends with {} and shows\n{}", line, done.code,
                                                                    Joined(LinesOf(done.screen)))});
                }
            }
        }
        return complaints;
    }

    template <typename Check>
    void CheckDocuments(Check check) {
        for (const auto& [name, text] : Documents()) {
            for (const auto& complaint : check(text))
                ADD_FAILURE_AT(name.c_str(), static_cast<int>(complaint.line)) << complaint.text;
        }
    }

    GeneralOptions options_;
    Command program_{"lumoseminar", ""};
    Synopsis synopsis_{program_};

  private:
    int places_ = 0;
};

TEST_F(Readme, TranscriptsAreWhatTheProgramShows) {
    CheckDocuments([this](const std::string& text) { return CheckTranscripts(text); });
}

TEST_F(Readme, WhatIsNamedExists) {
    CheckDocuments([this](const std::string& text) { return CheckNames(text); });
}

TEST_F(Readme, CommandLinesRun) {
    CheckDocuments([this](const std::string& text) { return CheckLinesToRun(text); });
}

TEST_F(Readme, EveryCommandIsNamed) {
    CheckNames(Documents().at("README.md"));
    EXPECT_THAT(synopsis_.Unnamed(), IsEmpty()) << "commands that README.md does not name";
}

TEST_F(Readme, ATranscriptThatIsNotTrueIsFound) {
    const auto complaints = CheckTranscripts(
        "# One\n"
        "    $ lumoseminar seminars set 35 SemCode=FK-99 --format csv | tail -1 | cut -c1-10\n"
        "    35,1,FK-98\n"
        "\n"
        "    $ lumoseminar seminars show 999\n"
        "    lumoseminar: ...999...\n"
        "    ...\n"
        "\n"
        "```console\n"
        "$ lumoseminar sql \"select SemCode from Sem_Katalog_IT where SemID = 35\"\n"
        "SemCode\n"
        "...\n"
        "FK-99\n"
        "...\n"
        "```\n"
        "## Two\n"
        "    $ lumoseminar sql \"select SemCode from Sem_Katalog_IT where SemID = 35\" --format csv\n"
        "    SemCode\n"
        "    FK-99\n"
        "\n"
        "    $ cmake --build build\n"
        "\n"
        "    $ lumoseminar nosuch 2>/dev/null\n");
    ASSERT_EQ(complaints.size(), 4U) << complaints.front().text << complaints.back().text;
    EXPECT_EQ(complaints[0].line, 2U);
    EXPECT_EQ(complaints[1].line, 17U);
    EXPECT_THAT(complaints[1].text, HasSubstr("is to show\n    SemCode\n    FK-99\nbut shows\n    SemCode\n"));
    EXPECT_EQ(complaints[2].line, 21U);
    EXPECT_EQ(complaints[3].line, 23U);
    EXPECT_THAT(complaints[3].text, HasSubstr("ends with 2; write"));
}

TEST_F(Readme, ANameThatThereIsNotIsFound) {
    const auto complaints = CheckNames(
        "    lumoseminar seminars list [--by code] | shwo KEY | show KEY\n"
        "    lumoseminar focus list | tie DATE NAME | untie DATE KEY    a remark\n"
        "    lumoseminar nosuch\n"
        "\n"
        "Take `--nosuch`, or `--format FORMAT` and `lumoseminar tables`.\n");
    std::vector<std::string> texts;
    for (const auto& complaint : complaints) texts.push_back(fmt::format("{}: {}", complaint.line, complaint.text));
    EXPECT_THAT(texts, ElementsAre("1: there is no option --by of \"lumoseminar seminars list\"",
                                   "1: \"lumoseminar seminars list\" does not take \"code\"",
                                   "1: \"lumoseminar seminars list\" does not take \"shwo\"",
                                   "1: \"lumoseminar seminars list\" does not take \"KEY\"",
                                   "3: there is no command \"nosuch\" of \"lumoseminar\"", "5: there is no option --nosuch"));
    EXPECT_THAT(synopsis_.Unnamed(), testing::Contains("lumoseminar seminars add"));
    EXPECT_THAT(synopsis_.Unnamed(), testing::Not(testing::Contains("lumoseminar focus untie")));
}

TEST_F(Readme, ALineThatDoesNotRunIsFound) {
    const auto complaints = CheckLinesToRun(
        "    lumoseminar series list | add --begin nine --end 16:30 | show KEY\n"
        "    ./run        a remark\n"
        "    ./run --connect \"Provider=Embedded;Data Source=new.db\" init --sample\n");
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_EQ(complaints[0].line, 1U);
    EXPECT_THAT(complaints[0].text, HasSubstr("lumoseminar series add --begin nine --end 16:30\nends with 2 and shows\n"));
}

}  // namespace
}  // namespace frontend
