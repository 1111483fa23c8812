#include <LumoConnection/odbc/driver_text.h>

#include <algorithm>
#include <string>
#include <vector>

#include <LumoSeminar/frame/errors.h>

#include <LumoConnection/ascii.h>
#include <LumoConnection/error_numbers.h>

namespace LumoConnection::Odbc {

using LumoSeminar::Text;

namespace {

struct Entry {
    std::string_view whole;  // without the semicolon
    std::string_view key;
    Text value;  // without its braces
};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Behind a value in braces, a closing one being doubled inside; the end of the text where it is not closed.
std::size_t BehindBraces(std::string_view text, std::size_t open, Text& value) {
    for (std::size_t at = open + 1; at < text.size(); ++at) {
        if (text[at] == '}') {
            if (at + 1 >= text.size() || text[at + 1] != '}') return at + 1;
            ++at;
        }
        value += text[at];
    }
    return text.size();
}

std::vector<Entry> ReadEntries(std::string_view text) {
    std::vector<Entry> entries;
    for (std::size_t start = 0; start < text.size();) {
        Entry entry;
        std::size_t end = std::min(text.find(';', start), text.size());
        const auto equal = text.substr(start, end - start).find('=');
        if (equal != std::string_view::npos) {
            entry.key = Trimmed(text.substr(start, equal));
            const auto value = text.find_first_not_of(" \t\r\n", start + equal + 1);
            if (value < text.size() && text[value] == '{') {
                end = std::min(text.find(';', BehindBraces(text, value, entry.value)), text.size());
            } else {
                entry.value = Trimmed(text.substr(start + equal + 1, end - (start + equal + 1)));
            }
        }
        entry.whole = text.substr(start, end - start);
        entries.push_back(std::move(entry));
        start = end + 1;
    }
    return entries;
}

// The first one counts, as it does for drivers.
const Entry* Find(const std::vector<Entry>& entries, std::initializer_list<std::string_view> keys) {
    for (const Entry& entry : entries) {
        for (const std::string_view key : keys) {
            if (SameWithoutCase(entry.key, key)) return &entry;
        }
    }
    return nullptr;
}

bool IsYes(std::string_view value) {
    return SameWithoutCase(value, "yes") || SameWithoutCase(value, "true") || SameWithoutCase(value, "sspi") || value == "1";
}

bool IsIntegrated(const std::vector<Entry>& entries) {
    return std::ranges::any_of(entries, [](const Entry& entry) {
        return (SameWithoutCase(entry.key, "Trusted_Connection") || SameWithoutCase(entry.key, "Integrated Security")) &&
               IsYes(entry.value);
    });
}

Text Quoted(std::string_view value) {
    const bool plain = !value.empty() && value.find_first_of("[]{}(),;?*=!@ \t\r\n'\"") == std::string_view::npos;
    if (plain) return Text(value);
    Text quoted = "{";
    for (const char c : value) {
        quoted += c;
        if (c == '}') quoted += c;
    }
    return quoted + "}";
}

void Add(Text& text, std::string_view key, std::string_view value) {
    if (!text.empty() && !text.ends_with(';')) text += ';';
    text.append(key).append("=").append(Quoted(value));
}

}  // namespace

DriverText MakeDriverText(std::string_view connection_text, std::string_view user, std::string_view password,
                          std::string_view system_user) {
    constexpr std::string_view kDateFormat = "LumoDateFormat";
    DriverText made;
    const std::vector<Entry> entries = ReadEntries(connection_text);
    if (const Entry* own = Find(entries, {kDateFormat})) {
        const bool off = SameWithoutCase(own->value, "off");
        if (!off && !SameWithoutCase(own->value, "on")) {
            LumoSeminar::Raise(Refused::kCannotOpen, "The connection text cannot be used: LumoDateFormat is On or Off, not " +
                                                         LumoSeminar::OneLine(own->value) + ".");
        }
        made.sets_date_format = !off;
        for (const Entry& entry : entries) {
            if (SameWithoutCase(entry.key, kDateFormat)) continue;
            if (!made.text.empty()) made.text += ';';
            made.text += entry.whole;
        }
    } else {
        made.text = connection_text;
    }

    if (IsIntegrated(entries)) return made;
    const Entry* uid = Find(entries, {"UID", "User ID", "User", "Username"});
    const bool nobody = user.empty() || (user == system_user && password.empty());
    if (!uid && !nobody) Add(made.text, "UID", user);
    const bool of_another = uid && !user.empty() && uid->value != user;
    if (!password.empty() && !of_another && !Find(entries, {"PWD", "Password"})) Add(made.text, "PWD", password);
    return made;
}

}  // namespace LumoConnection::Odbc
