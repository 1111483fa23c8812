#include <LumoSeminar/frame/text_form.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <locale>

#include <LumoSeminar/frame/decimal.h>
#include <LumoSeminar/frame/text_writer.h>

namespace LumoSeminar {
namespace {

template <class Write>
Text Written(Write write) {
    std::array<char, text_writer::kMostCharacters> buffer;
    return {buffer.data(), write(buffer.data())};
}

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// [sign] digits [separator digits] [E [sign] digits], at least one digit before the exponent; rewritten with a point.
bool ReadNumber(std::string_view text, Text& plain) {
    const char separator = DecimalSeparator();
    std::size_t at = 0;
    std::size_t digits = 0;
    const auto Sign = [&](std::size_t& position) {
        if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
            if (text[position] == '-') plain += '-';
            ++position;
        }
    };
    const auto Digits = [&] {
        std::size_t count = 0;
        for (; at < text.size() && IsDigit(text[at]); ++at, ++count) plain += text[at];
        return count;
    };
    Sign(at);
    digits += Digits();
    if (at < text.size() && text[at] == separator) {
        plain += '.';
        ++at;
        digits += Digits();
    }
    if (digits == 0) return false;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        plain += 'e';
        ++at;
        Sign(at);
        if (Digits() == 0) return false;
    }
    return at == text.size();
}

// Takes up to `most` digits off the front.
bool TakeNumber(std::string_view& text, std::size_t least, std::size_t most, int& value) {
    std::size_t length = 0;
    while (length < text.size() && length < most && IsDigit(text[length])) ++length;
    if (length < least) return false;
    std::from_chars(text.data(), text.data() + length, value);
    text.remove_prefix(length);
    return true;
}

bool Take(std::string_view& text, char c) {
    if (!text.starts_with(c)) return false;
    text.remove_prefix(1);
    return true;
}

bool EqualsWithoutCase(std::string_view text, std::string_view lower) {
    return std::ranges::equal(text, lower,
                              [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; });
}

[[noreturn]] void RaiseNo(std::string_view type) { RaiseTypeMismatch("the text", type); }

}  // namespace

char DecimalSeparator() {
    // Looking a facet up costs more than the number it is for; locales are compared by address.
    thread_local std::locale known = std::locale::classic();
    thread_local char separator = '.';
    if (const std::locale current; !(current == known)) {
        separator = std::use_facet<std::numpunct<char>>(current).decimal_point();
        known = current;
    }
    return separator;
}

Text DefaultText(Int32 value) {
    return Written([=](char* to) { return text_writer::WriteNumber(to, value); });
}

Text DefaultText(Double value) {
    return Written([=](char* to) { return text_writer::WriteDefault(to, value); });
}

Text DefaultText(Single value) {
    return Written([=](char* to) { return text_writer::WriteDefault(to, value); });
}

Text DefaultText(Money value) {
    return Written([=](char* to) { return text_writer::WriteDefault(to, value); });
}

Text DefaultText(DateTime value) {
    return Written([=](char* to) { return text_writer::WriteDefault(to, value); });
}

Text DefaultText(Bool value) { return value ? "True" : "False"; }

Text DateText(DateTime value) {
    return Written([=](char* to) { return text_writer::WriteDate(to, value); });
}

Text ClockText(DateTime value) {
    return Written([=](char* to) { return text_writer::WriteClock(to, value); });
}

Text MomentText(DateTime value) {
    return Written([=](char* to) { return text_writer::WriteMoment(to, value); });
}

Text CompactDateText(DateTime value) {
    return Written([=](char* to) { return text_writer::WriteCompactDate(to, value); });
}

Text Quoted(std::string_view text) {
    Text doubled;
    doubled.reserve(text.size());
    for (const char c : text) doubled.append(c == '\'' ? 2 : 1, c);
    return doubled;
}

Text KeyText(Int32 key) {
    Text text = DefaultText(key);
    const std::size_t sign = key < 0 ? 1 : 0;
    const std::size_t digits = text.size() - sign;
    if (digits < 10) text.insert(sign, 10 - digits, '0');
    return text;
}

Double ToDouble(std::string_view text) {
    Text plain;
    if (!ReadNumber(Trim(text), plain)) RaiseNo("Double");
    Double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const auto power = plain.find("e-");
        if (power == Text::npos && plain.find_first_of("123456789") < plain.find('.')) RaiseOverflow();
        return 0;
    }
    return value;
}

Money ToMoney(std::string_view text) {
    Text plain;
    if (!ReadNumber(Trim(text), plain)) RaiseNo("Money");
    if (plain.find('e') != Text::npos) return Money::FromDouble(ToDouble(text));
    return MoneyOfDecimal(plain);
}

DateTime ToDateTime(std::string_view text) {
    std::string_view rest = Trim(text);
    int day = 30;
    int month = 12;
    int year = 1899;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool valid = !rest.empty();
    if (rest.find('.') != std::string_view::npos) {
        valid = TakeNumber(rest, 1, 2, day) && Take(rest, '.') && TakeNumber(rest, 1, 2, month) && Take(rest, '.') &&
                TakeNumber(rest, 4, 4, year) && (rest.empty() || Take(rest, ' '));
    }
    if (valid && !rest.empty()) {
        valid = TakeNumber(rest, 1, 2, hour) && Take(rest, ':') && TakeNumber(rest, 2, 2, minute) &&
                (rest.empty() || (Take(rest, ':') && TakeNumber(rest, 2, 2, second) && rest.empty()));
    }
    if (!valid) RaiseNo("DateTime");
    return DateTime::Of(year, static_cast<unsigned>(month), static_cast<unsigned>(day), hour, minute, second);
}

Bool ToBool(std::string_view text) {
    const auto word = Trim(text);
    if (EqualsWithoutCase(word, "true")) return true;
    if (EqualsWithoutCase(word, "false")) return false;
    Text plain;
    if (!ReadNumber(word, plain)) RaiseNo("Bool");
    return ToDouble(word) != 0;
}

}  // namespace LumoSeminar
