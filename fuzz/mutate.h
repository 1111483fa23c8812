#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/refusal.h>

/// Changes texts token by token, so that many of them stay statements.
namespace Fuzz {

using Words = std::vector<std::string>;

inline constexpr std::string_view kWords[] = {
    "SELECT",
    "DISTINCT",
    "TOP",
    "FROM",
    "WHERE",
    "GROUP BY",
    "HAVING",
    "ORDER BY",
    "DESC",
    "UNION ALL",
    "INNER JOIN",
    "LEFT JOIN",
    "ON",
    "AS",
    "AND",
    "OR",
    "NOT",
    "IN",
    "EXISTS",
    "LIKE",
    "BETWEEN",
    "IS NULL",
    "CASE",
    "WHEN",
    "THEN",
    "ELSE",
    "END",
    "INSERT INTO",
    "VALUES",
    "UPDATE",
    "SET",
    "DELETE FROM",
    "DECLARE",
    "IF",
    "BEGIN",
    "COMMIT",
    "ROLLBACK",
    "BEGIN TRANSACTION",
    "CREATE TABLE",
    "ALTER TABLE",
    "DROP TABLE",
    "CREATE INDEX",
    "DROP INDEX",
    "DEFAULT",
    "NULL",
    "PRIMARY KEY",
    "UNIQUE",
    "REFERENCES",
    "CHECK",
    "int",
    "smallint",
    "tinyint",
    "bit",
    "money",
    "float",
    "real",
    "datetime",
    "nvarchar(5)",
    "varchar(max)",
    "@a",
    "@b",
    "@@ROWCOUNT",
    "SYSTEM_USER",
    "getdate()",
    "(",
    ")",
    ",",
    "=",
    "<>",
    "<",
    ">=",
    "+",
    "-",
    "*",
    "/",
    "%",
    ";",
    ".",
    "Ort",
    "Termin",
    "Leer",
    "Nr",
    "Name",
    "Preis",
    "Klein",
    "Tag",
    "Art",
    "Wert",
    "Ja",
    "Lang",
    "a",
    "s",
    "r",
    "o",
    "t",
    "Neu",
    "[Ort]",
    "\"Nr\"",
    "0",
    "1",
    "2",
    "-1",
    "255",
    "256",
    "32768",
    "2147483647",
    "2147483648",
    "922337203685477.5807",
    "0.00005",
    "1e308",
    "1e-400",
    "''",
    "'a'",
    "N'Köln'",
    "'01.02.2012'",
    "'31.12.9999 23:59:59.997'",
    "'1752-12-31'",
    "'%'",
    "'[a-z]%'",
    "'12'",
    "'1,5'",
    "COUNT(*)",
};

/// A word of the text takes the place of the #.
inline constexpr std::string_view kFrames[] = {
    "(#)",
    "-#",
    "NOT #",
    "ISNULL(#, 1)",
    "COALESCE(#, NULL, 'x')",
    "NULLIF(#, 1)",
    "CONVERT(int, #)",
    "CONVERT(money, #)",
    "CONVERT(nvarchar(9), #)",
    "CONVERT(datetime, #, 104)",
    "CONVERT(varchar(30), #, 120)",
    "CAST(# AS tinyint)",
    "CAST(# AS real)",
    "CAST(# AS bit)",
    "YEAR(#)",
    "DATEADD(month, #, '31.01.2012')",
    "DATEADD(day, 1, #)",
    "DATEDIFF(year, #, '01.01.2012')",
    "STR(#, 5, 2)",
    "LTRIM(#)",
    "RTRIM(#)",
    "LEFT(#, 2)",
    "RIGHT(#, 2)",
    "LEN(#)",
    "SUBSTRING(#, 2, 3)",
    "UPPER(#)",
    "LOWER(#)",
    "REPLACE(#, 'a', 'bb')",
    "CHARINDEX('a', #)",
    "SPACE(#)",
    "ABS(#)",
    "ROUND(#, 1)",
    "ROUND(#, -1, 1)",
    "FLOOR(#)",
    "CEILING(#)",
    "SIGN(#)",
    "COUNT(#)",
    "COUNT(DISTINCT #)",
    "SUM(#)",
    "AVG(#)",
    "MIN(#)",
    "MAX(#)",
    "(SELECT MAX(#) FROM Ort)",
    "(SELECT # FROM Termin WHERE Nr = 1)",
    "(SELECT TOP 1 # FROM Leer)",
    "# + #",
    "# * #",
    "# / #",
    "# % #",
    "# - #",
    "# + 'x'",
    "# = #",
    "# IN (#, 1)",
    "# IN (SELECT Nr FROM Ort)",
    "# LIKE '%a_'",
    "# BETWEEN # AND 5",
    "# IS NOT NULL",
    "CASE WHEN # = 1 THEN # ELSE NULL END",
    "CASE # WHEN 1 THEN 'a' END",
    "EXISTS (SELECT * FROM Leer WHERE a = #)",
    "o.#",
    "t.#",
    "Ort.#",
    "# AS x",
    "Ort o",
    "Termin t",
    "# DESC",
    "#, #",
    "IF # > 0 SELECT #",
    "BEGIN SELECT # END",
    "DECLARE @a int SET @a = #",
    "DECLARE @b nvarchar(3) = #",
    "SELECT #",
    "SELECT # FROM Ort o LEFT JOIN Termin t ON t.Ort = o.Nr",
    "SELECT Nr, # FROM Termin ORDER BY #",
    "SELECT Ort, COUNT(*) FROM Termin GROUP BY Ort HAVING COUNT(*) > #",
    "UPDATE Ort SET Preis = # WHERE Nr = 2",
    "UPDATE Ort SET Nr = Nr + 1, Name = #",
    "INSERT INTO Ort (Nr, Name) VALUES (9, #)",
    "INSERT INTO Leer SELECT #, 1, 2",
    "DELETE FROM Termin WHERE Nr = #",
    "UPDATE t SET Wert = # FROM Termin t INNER JOIN Ort o ON o.Nr = t.Ort",
    "CREATE TABLE Neu (a int NOT NULL DEFAULT #)",
    "ALTER TABLE Leer ADD b nvarchar(9) NULL DEFAULT #",
};

inline Words Split(std::string_view text) {
    Words words;
    LumoConnection::Embedded::Scanner scanner(text);
    std::size_t last = 0;
    while (last < text.size()) {
        const auto token = scanner.Next();
        const std::size_t end = std::max(scanner.Position(), last + 1);
        if (token.kind == LumoConnection::Embedded::TokenKind::kEnd) break;
        std::string word(text.substr(last, end - last));
        word.erase(0, word.find_first_not_of(" \t\r\n"));
        if (!word.empty()) words.push_back(std::move(word));
        last = end;
    }
    return words;
}

inline std::string Joined(const Words& words) {
    std::string text;
    for (const std::string& word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

inline std::size_t Give(std::string_view text, std::uint8_t* to, std::size_t most) {
    const std::size_t size = std::min(text.size(), most);
    std::copy_n(text.begin(), size, to);
    return size;
}

inline bool IsBatch(std::string_view text) {
    using namespace LumoConnection::Embedded;
    try {
        const Tokens tokens = Tokenise(text);
        ParseBatch(text, tokens);
        return true;
    } catch (const Refusal&) {
        return false;
    }
}

class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    std::size_t Below(std::size_t end) { return end == 0 ? 0 : engine_() % end; }
    template <class List>
    const auto& Pick(const List& list) {
        return list[Below(std::size(list))];
    }

  private:
    std::minstd_rand engine_;
};

inline std::string Framed(std::string_view frame, const std::string& word) {
    std::string text;
    for (const char c : frame) c == '#' ? text += word : text += c;
    return text;
}

inline void Change(Words& words, Dice& dice) {
    const std::size_t at = dice.Below(words.size());
    const auto place = words.begin() + static_cast<std::ptrdiff_t>(at);
    const auto random_word = [&] { return std::string(dice.Pick(kWords)); };
    if (words.empty()) {
        words.push_back(Framed(dice.Pick(kFrames), random_word()));
        return;
    }
    switch (dice.Below(8)) {
        case 0:
            *place = random_word();
            break;
        case 1:
            words.insert(place, random_word());
            break;
        case 2: {
            const std::size_t count = std::min(words.size() - at, 1 + dice.Below(6));
            words.erase(place, place + static_cast<std::ptrdiff_t>(count));
            break;
        }
        case 3:
        case 4:
            *place = Framed(dice.Pick(kFrames), dice.Below(3) != 0 ? *place : random_word());
            break;
        case 5:
            std::swap(*place, words[dice.Below(words.size())]);
            break;
        case 6:
            *place = words[dice.Below(words.size())];
            break;
        default:
            words.push_back(Framed(dice.Pick(kFrames), dice.Pick(words)));
            break;
    }
}

/// What is refused for its grammar tells little: most of what is given can be read.
inline constexpr int kAttempts = 30;

inline std::size_t Mutate(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed,
                          std::size_t (*plain)(std::uint8_t*, std::size_t, std::size_t)) {
    Dice dice(seed);
    if (dice.Below(200) == 0) return plain(data, size, most);
    const Words before = Split({reinterpret_cast<const char*>(data), size});
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        Words words = before;
        for (std::size_t changes = 1 + dice.Below(2); changes > 0; --changes) Change(words, dice);
        const std::string text = Joined(words);
        if (text.size() <= most && IsBatch(text)) return Give(text, data, most);
    }
    return Give(Framed(dice.Pick(kFrames), std::string(dice.Pick(kWords))), data, most);
}

/// One text with a part of another put into it.
inline std::size_t CrossOver(std::string_view a, std::string_view b, std::uint8_t* out, std::size_t most, unsigned seed) {
    Dice dice(seed);
    const Words before = Split(a);
    const Words others = Split(b);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        Words words = before;
        const std::size_t first = dice.Below(others.size());
        const std::size_t count = std::min(others.size() - first, 1 + dice.Below(others.size()));
        const auto from = others.begin() + static_cast<std::ptrdiff_t>(first);
        const auto at = words.begin() + static_cast<std::ptrdiff_t>(dice.Below(words.size() + 1));
        words.insert(at, from, from + static_cast<std::ptrdiff_t>(count));
        const std::string text = Joined(words);
        if (text.size() <= most && IsBatch(text)) return Give(text, out, most);
    }
    return Give(a, out, most);
}

}  // namespace Fuzz
