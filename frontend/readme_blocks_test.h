#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace frontend {

/// A command line of a document, and what the document says that it shows.
struct DocumentedCommand {
    std::size_t line = 0;
    /// As typed in a shell.
    std::string text;
    /// Lines, without blanks at their ends; none where the document does not say.
    std::vector<std::string> shows;
    /// Whether it stands behind "$ ", so that what it shows counts.
    bool is_transcript = false;
    /// Commands of one section work on one database, in order.
    std::size_t section = 0;
    /// In running text, between backquotes.
    bool is_inline = false;
};

/// The command lines of this program in a Markdown text. README.md and docs/*.md are written by these rules:
///
/// - A block is a fenced one (```) without a language or with "sh", "console" or "text", or lines indented by four
///   blanks.
/// - "$ lumoseminar ..." and "$ ./run ..." in a block begin a transcript: what follows, up to the next "$ " or the end of
///   the block, is what the terminal shows, both streams together. Empty lines in front of the next command do not
///   count. Other commands stand without "$".
/// - A line that is only "..." stands for any lines, "..." in a line for any text.
/// - A command ends with 0, or shows a line that begins with "lumoseminar: ". One with findings ends with 1 and gets
///   "; echo $?" behind it.
/// - Each section (a heading begins one) starts with a fresh sample in lumoseminar.db; one whose first command is init
///   starts in an empty folder.
/// - "lumoseminar ..." without "$" in a block says what there is: alternatives between " | ", what may be left out in
///   brackets, values in capitals; a remark stands behind two blanks. All that it names has to exist; an alternative
///   without brackets, capitals and "..." has to run, on a sample of its own, and so has "./run ...".
/// - In running text `--option` and `lumoseminar ...` have to exist.
std::vector<DocumentedCommand> CommandsOfDocument(std::string_view text);

/// Whether the screen is as the document says, "..." taken for what it stands for.
bool IsAsShown(const std::vector<std::string>& shows, const std::vector<std::string>& screen);

/// Lines without blanks at their ends, and without empty ones at the end of the text.
std::vector<std::string> LinesOf(std::string_view text);

/// Words parted by blanks; a quoted one counts as one, with its quotes.
std::vector<std::string> WordsOf(std::string_view line);

/// Parts between " | ".
std::vector<std::string> AlternativesOf(std::string_view line);

}  // namespace frontend
