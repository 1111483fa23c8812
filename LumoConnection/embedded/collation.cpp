#include <LumoConnection/embedded/collation.h>

#include <array>
#include <cstdint>

#include <sqlite3.h>
#include <utf8proc.h>

#include <LumoConnection/embedded/print.h>
#include <LumoConnection/embedded/value.h>

namespace LumoConnection::Embedded {
namespace {

// Bytes that are no UTF-8 stand for characters beyond all others.
constexpr char32_t kBadByte = 0x110000;

// What a character counts for: up to two base letters, each with its place in the order, and an accent.
struct Weight {
    std::array<std::uint32_t, 2> base{};
    std::uint32_t accent = 0;
};

constexpr std::uint32_t kIgnored = 0;
constexpr std::uint32_t kFirstDigit = 0x1'0000;
constexpr std::uint32_t kFirstLetter = 0x2'0000;
constexpr std::uint32_t kOtherLetters = 0x3'0000;

// Punctuation in this order, then what stands for arithmetic, then digits, then letters.
constexpr std::string_view kPunctuation = "\t\n\v\f\r !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>";

constexpr std::uint32_t AsciiWeight(char c) {
    if (c >= 'a' && c <= 'z') return kFirstLetter + static_cast<std::uint32_t>(c - 'a');
    if (c >= 'A' && c <= 'Z') return kFirstLetter + static_cast<std::uint32_t>(c - 'A');
    if (c >= '0' && c <= '9') return kFirstDigit + static_cast<std::uint32_t>(c - '0');
    const auto at = kPunctuation.find(c);
    if (at != std::string_view::npos) return static_cast<std::uint32_t>(at) + 0x100;
    // Hyphen and apostrophe count only where all else is equal; control characters sort in front.
    if (c == '-' || c == '\'') return kIgnored;
    return static_cast<std::uint32_t>(static_cast<unsigned char>(c)) + 1;
}

constexpr std::array<std::uint32_t, 128> MakeAsciiWeights() {
    std::array<std::uint32_t, 128> weights{};
    for (std::size_t c = 0; c < weights.size(); ++c) weights[c] = AsciiWeight(static_cast<char>(c));
    return weights;
}

constexpr auto kAscii = MakeAsciiWeights();

Weight Letters(char first, char second, std::uint32_t accent) {
    return {{kAscii[static_cast<unsigned char>(first)], second == '\0' ? kIgnored : kAscii[static_cast<unsigned char>(second)]},
            accent};
}

Weight WorkOut(char32_t character) {
    switch (character) {
        case U'ß':
        case U'ẞ':
            return Letters('s', 's', 0);
        case U'æ':
        case U'Æ':
            return Letters('a', 'e', 0);
        case U'œ':
        case U'Œ':
            return Letters('o', 'e', 0);
        case U'ø':
        case U'Ø':
            return Letters('o', '\0', 0x338);
        case U'đ':
        case U'Đ':
            return Letters('d', '\0', 0x335);
        case U'ð':
        case U'Ð':
            return Letters('d', '\0', 0x336);
        case U'ł':
        case U'Ł':
            return Letters('l', '\0', 0x335);
        case U'þ':
        case U'Þ':
            return Letters('t', 'h', 1);
        default:
            break;
    }
    if (character < kAscii.size()) return {{kAscii[character], kIgnored}, 0};
    if (character >= kBadByte) return {{character, kIgnored}, 0};
    std::array<utf8proc_int32_t, 16> parts{};
    int boundary = 0;
    const auto count =
        utf8proc_decompose_char(static_cast<utf8proc_int32_t>(character), parts.data(), parts.size(),
                                static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD), &boundary);
    if (count <= 0 || count > static_cast<utf8proc_ssize_t>(parts.size()))
        return {{kOtherLetters + character, kIgnored}, 0};
    Weight weight;
    std::size_t letters = 0;
    for (utf8proc_ssize_t i = 0; i < count; ++i) {
        const auto part = static_cast<char32_t>(parts[static_cast<std::size_t>(i)]);
        const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(part));
        if (category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_ME) {
            weight.accent = weight.accent * 31 + part;
        } else if (letters < weight.base.size()) {
            const bool letter = category <= UTF8PROC_CATEGORY_LO;
            weight.base[letters++] = part < kAscii.size() ? kAscii[part]
                                     : letter             ? kOtherLetters + part
                                                          : 0x200 + part % 0xFE00;
        }
    }
    return weight;
}

// The characters of western Europe once, the others as they come.
const Weight& WeightOf(char32_t character, Weight& scratch) {
    constexpr std::size_t kTable = 0x250;
    static const auto& kWeights = *[] {
        auto* table = new std::array<Weight, kTable>;
        for (char32_t c = 0; c < kTable; ++c) (*table)[c] = WorkOut(c);
        return table;
    }();
    if (character < kTable) return kWeights[character];
    return scratch = WorkOut(character);
}

// Gives the base letters of a text one by one, with the accent behind each.
class Letterwise {
  public:
    explicit Letterwise(std::string_view text) : text_(text) {}

    // False at the end.
    bool Next() {
        while (true) {
            if (half_ < 2 && weight_.base[half_] != kIgnored) {
                base = weight_.base[half_];
                accent = half_ == 0 || weight_.base[1] == kIgnored ? weight_.accent : 0;
                if (half_ == 0 && weight_.base[1] == kIgnored) accent = weight_.accent;
                ++half_;
                TakeMarks();
                return true;
            }
            if (at_ >= text_.size()) return false;
            Load();
        }
    }

    std::uint32_t base = 0;
    std::uint32_t accent = 0;

  private:
    void Load() {
        const char32_t character = NextCharacter(text_, at_);
        Weight scratch;
        weight_ = WeightOf(character, scratch);
        half_ = 0;
    }

    // Accents that are characters of their own.
    void TakeMarks() {
        if (half_ < 2 && weight_.base[half_] != kIgnored) return;
        while (at_ < text_.size() && static_cast<unsigned char>(text_[at_]) >= 0xCC) {
            std::size_t ahead = at_;
            const char32_t character = NextCharacter(text_, ahead);
            Weight scratch;
            const Weight& weight = WeightOf(character, scratch);
            if (weight.base[0] != kIgnored || weight.accent == 0) return;
            accent = accent * 31 + weight.accent;
            at_ = ahead;
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t half_ = 2;
    Weight weight_;
};

std::uint32_t CountIgnored(std::string_view text, std::uint32_t& where) {
    std::uint32_t count = 0;
    std::uint32_t position = 0;
    for (const char c : text) {
        ++position;
        if (c != '-' && c != '\'') continue;
        ++count;
        where = where * 31 + position * 2 + (c == '-' ? 1 : 0);
    }
    return count;
}

int CompareSlowly(std::string_view a, std::string_view b) {
    Letterwise left(a);
    Letterwise right(b);
    int accents = 0;
    while (true) {
        const bool more_left = left.Next();
        const bool more_right = right.Next();
        if (!more_left || !more_right) {
            if (more_left != more_right) return more_left ? 1 : -1;
            break;
        }
        if (left.base != right.base) return left.base < right.base ? -1 : 1;
        if (accents == 0 && left.accent != right.accent) accents = left.accent < right.accent ? -1 : 1;
    }
    if (accents != 0) return accents;
    std::uint32_t where_left = 0;
    std::uint32_t where_right = 0;
    const std::uint32_t count_left = CountIgnored(a, where_left);
    const std::uint32_t count_right = CountIgnored(b, where_right);
    if (count_left != count_right) return count_left < count_right ? -1 : 1;
    if (where_left != where_right) return where_left < where_right ? -1 : 1;
    return 0;
}

int Collate(void*, int length_a, const void* a, int length_b, const void* b) {
    return CompareTexts({static_cast<const char*>(a), static_cast<std::size_t>(length_a)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(length_b)});
}

template <class Change>
std::string Changed(std::string_view text, Change change) {
    std::string result;
    result.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t character = NextCharacter(text, at);
        if (character >= kBadByte) {
            result.push_back(text[at - 1]);
        } else {
            AppendCharacter(result, static_cast<char32_t>(change(static_cast<utf8proc_int32_t>(character))));
        }
    }
    return result;
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& at) {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        ++at;
        return first;
    }
    utf8proc_int32_t character = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at,
                                         static_cast<utf8proc_ssize_t>(text.size() - at), &character);
    if (length <= 0) {
        ++at;
        return kBadByte + first;
    }
    at += static_cast<std::size_t>(length);
    return static_cast<char32_t>(character);
}

void AppendCharacter(std::string& to, char32_t character) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(character), bytes.data());
    to.append(bytes.begin(), bytes.begin() + length);
}

int CompareTexts(std::string_view whole_a, std::string_view whole_b) {
    const std::string_view a = WithoutTrailingBlanks(whole_a);
    const std::string_view b = WithoutTrailingBlanks(whole_b);
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    int order = 0;
    std::size_t i = 0;
    for (; i < common; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if (((x | y) & 0x80) != 0) {
            if (x == y) continue;
            return CompareSlowly(a, b);
        }
        const std::uint32_t left = kAscii[x];
        const std::uint32_t right = kAscii[y];
        if (left == right) continue;
        if (left == kIgnored || right == kIgnored) return CompareSlowly(a, b);
        order = left < right ? -1 : 1;
        break;
    }
    // A difference of base letters decides, whatever follows.
    if (order != 0) return order;
    if (a.size() == b.size())
        return a == b || a.find_first_of("-'") == std::string_view::npos ? 0 : CompareSlowly(a, b);
    const auto next = static_cast<unsigned char>(a.size() > b.size() ? a[i] : b[i]);
    if (next >= kAscii.size() || kAscii[next] == kIgnored) return CompareSlowly(a, b);
    return a.size() > b.size() ? 1 : -1;
}

bool SameCharacter(char32_t a, char32_t b) {
    if (a == b) return true;
    Weight scratch_a;
    Weight scratch_b;
    const Weight x = WeightOf(a, scratch_a);
    const Weight y = WeightOf(b, scratch_b);
    return x.base[0] != kIgnored && x.base == y.base && x.accent == y.accent;
}

bool InRange(char32_t character, char32_t low, char32_t high) {
    std::string texts[3];
    const char32_t characters[] = {character, low, high};
    for (std::size_t i = 0; i < 3; ++i)
        AppendCharacter(texts[i], characters[i] >= kBadByte ? U'\uFFFD' : characters[i]);
    return CompareTexts(texts[1], texts[0]) <= 0 && CompareTexts(texts[0], texts[2]) <= 0;
}

std::string UpperText(std::string_view text) { return Changed(text, utf8proc_toupper); }
std::string LowerText(std::string_view text) { return Changed(text, utf8proc_tolower); }

int AddCollation(sqlite3* database) {
    // The table of weights is made here: within SQLite there is no way to say that memory ran out.
    Weight scratch;
    WeightOf(U'a', scratch);
    return sqlite3_create_collation(database, kCollation, SQLITE_UTF8, nullptr, Collate);
}

}  // namespace LumoConnection::Embedded
