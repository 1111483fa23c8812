#include <LumoConnection/connection_text.h>

#include <algorithm>
#include <vector>

#include <LumoSeminar/frame/errors.h>

#include <LumoConnection/ascii.h>
#include <LumoConnection/error_numbers.h>

namespace LumoConnection {
namespace {

struct Entry {
    std::string key;  // lower case, blanks taken out
    std::string value;
};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), LowerAscii);
    return lower;
}

[[noreturn]] void RefuseText(const std::string& why) {
    Raise(Refused::kCannotOpen, "The connection text cannot be used: " + why);
}

std::vector<Entry> ReadEntries(std::string_view text) {
    std::vector<Entry> entries;
    std::size_t at = 0;
    while (at < text.size()) {
        const auto equal = text.find('=', at);
        const auto semicolon = text.find(';', at);
        const std::string_view key = Trimmed(text.substr(at, std::min(equal, semicolon) - at));
        if (key.empty() && semicolon < equal) {
            at = semicolon + 1;
            continue;
        }
        if (key.empty() && equal == std::string_view::npos) break;
        if (key.empty() || equal >= semicolon) RefuseText(OneLine(key) + " has no value.");
        Entry entry;
        entry.key = Lower(key);
        std::erase(entry.key, ' ');
        at = text.find_first_not_of(" \t\r\n", equal + 1);
        if (at != std::string_view::npos && (text[at] == '"' || text[at] == '\'')) {
            const char quote = text[at++];
            while (true) {
                const auto end = text.find(quote, at);
                if (end == std::string_view::npos)
                    RefuseText("the value of " + OneLine(key) + " has no closing quote.");
                entry.value.append(text, at, end - at);
                at = end + 1;
                if (at >= text.size() || text[at] != quote) break;
                entry.value.push_back(quote);
                ++at;
            }
            const auto next = std::min(text.find(';', at), text.size());
            if (!Trimmed(text.substr(at, next - at)).empty())
                RefuseText("something stands behind the quoted value of " + OneLine(key) + ".");
            at = next + 1;
        } else {
            const auto end = std::min(semicolon, text.size());
            const std::size_t start = std::min(at, end);
            entry.value = Trimmed(text.substr(start, end - start));
            at = end + 1;
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace

bool AsksForEmbedded(std::string_view connection_text) {
    // A text of another provider may hold anything; only its beginning of "provider" has to be read.
    const std::string lower = Lower(connection_text);
    std::string packed;
    for (const char c : lower) {
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n' && c != '"' && c != '\'') packed.push_back(c);
    }
    constexpr std::string_view kWanted = "provider=embedded";
    for (std::size_t at = packed.find(kWanted); at != std::string::npos; at = packed.find(kWanted, at + 1)) {
        const std::size_t end = at + kWanted.size();
        if ((at == 0 || packed[at - 1] == ';') && (end == packed.size() || packed[end] == ';')) return true;
    }
    return false;
}

Text UnknownProvider(std::string_view connection_text) {
    Text provider;
    for (std::size_t at = 0; at < connection_text.size();) {
        const auto end = std::min(connection_text.find_first_of("=;", at), connection_text.size());
        if (end == connection_text.size() || connection_text[end] == ';') {
            at = end + 1;
            continue;
        }
        const std::string key = Lower(Trimmed(connection_text.substr(at, end - at)));
        const auto value_end = ValueEnd(connection_text, end + 1);
        if (key == "driver" || key == "dsn" || key == "filedsn") return {};
        if (key == "provider" && provider.empty())
            provider = Trimmed(connection_text.substr(end + 1, value_end - end - 1));
        at = value_end + 1;
    }
    return Lower(provider) == "embedded" ? Text() : provider;
}

std::size_t ValueEnd(std::string_view connection_text, std::size_t from) {
    std::size_t at = connection_text.find_first_not_of(" \t\r\n", from);
    if (at == std::string_view::npos) return connection_text.size();
    const char open = connection_text[at];
    if (open != '{' && open != '"' && open != '\'')
        return std::min(connection_text.find(';', at), connection_text.size());
    const char close = open == '{' ? '}' : open;
    while (true) {
        at = connection_text.find(close, at + 1);
        if (at == std::string_view::npos) return connection_text.size();
        if (at + 1 >= connection_text.size() || connection_text[at + 1] != close) break;
        ++at;
    }
    return std::min(connection_text.find(';', at), connection_text.size());
}

EmbeddedTarget ReadEmbeddedTarget(std::string_view connection_text) {
    EmbeddedTarget target;
    bool provider = false;
    for (const Entry& entry : ReadEntries(connection_text)) {
        if (entry.key == "provider") {
            if (Lower(entry.value) != "embedded")
                RefuseText("the provider " + OneLine(entry.value) + " is not the embedded database.");
            provider = true;
        } else if (entry.key == "datasource") {
            target.file = entry.value;
        } else if (entry.key == "sync") {
            const std::string value = Lower(entry.value);
            if (value != "full" && value != "normal")
                RefuseText("Sync is Full or Normal, not " + OneLine(entry.value) + ".");
            target.sync_full = value == "full";
        } else if (entry.key == "mode") {
            const std::string value = Lower(entry.value);
            if (value != "readwrite" && value != "readonly")
                RefuseText("Mode is ReadWrite or ReadOnly, not " + OneLine(entry.value) + ".");
            target.read_only = value == "readonly";
        } else if (entry.key == "userid" || entry.key == "uid") {
            target.user = entry.value;
        } else {
            RefuseText("the key " + OneLine(entry.key) + " is not known. Known are Provider, Data Source, Mode, Sync and User ID.");
        }
    }
    if (!provider) RefuseText("it has to say Provider=Embedded.");
    if (target.file.empty()) RefuseText("it has to say Data Source=FILE or Data Source=:memory:.");
    if (target.read_only && target.file == ":memory:")
        RefuseText("a database in memory is new and empty, Mode=ReadOnly is for files.");
    if (target.file.find('\0') != std::string::npos) RefuseText("the file name holds a NUL character.");
    return target;
}

}  // namespace LumoConnection
