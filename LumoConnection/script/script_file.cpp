#include <LumoConnection/script/script_file.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_state.h>
#include <LumoConnection/script/text_difference.h>
#include <LumoConnection/script/value_text.h>
#include <LumoConnection/utf8.h>

namespace LumoConnection::detail {
namespace {

constexpr std::string_view kHead = "LumoScript";
constexpr int kVersion = 1;

struct StepWord {
    std::string_view word;
    CallKind kind;
    std::size_t texts;
    /// Whether a number stands behind the texts.
    bool number;
};

constexpr std::array kStepWords = {
    StepWord{"Connect", CallKind::kConnect, 3, true},
    StepWord{"OpenSelect", CallKind::kOpenSelect, 1, false},
    StepWord{"ExecuteSql", CallKind::kExecuteSql, 1, false},
    StepWord{"LookupValue", CallKind::kLookupValue, 3, false},
    StepWord{"AdoConnection", CallKind::kAdoConnection, 0, false},
    StepWord{"ConnectionState", CallKind::kConnectionState, 0, false},
    StepWord{"ConnectionOpen", CallKind::kConnectionOpen, 3, true},
    StepWord{"ConnectionExecute", CallKind::kConnectionExecute, 1, true},
    StepWord{"CloseRows", CallKind::kCloseRows, 0, true},
    StepWord{"Process", CallKind::kProcess, 1, false},
};

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : OnOneLine(text)) {
        if (c == '"') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

std::string Padded(long number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string MomentText(DateTime moment) {
    const auto parts = PartsOf(moment);
    if (!parts) return "days:" + NumberText(moment.Days());
    std::string text = "moment:" + Padded(static_cast<int>(parts->day.year()), 4) + "-" +
                       Padded(static_cast<unsigned>(parts->day.month()), 2) + "-" +
                       Padded(static_cast<unsigned>(parts->day.day()), 2);
    const auto& time = parts->time;
    if (time.to_duration().count() == 0) return text;
    text += "T" + Padded(time.hours().count(), 2) + ":" + Padded(time.minutes().count(), 2) + ":" +
            Padded(time.seconds().count(), 2);
    if (time.subseconds().count() != 0) text += "." + Padded(time.subseconds().count(), 3);
    return text;
}

std::string MoneyText(Money money) {
    const std::int64_t units = money.Units();
    // Unsigned, as the lowest one has no positive counterpart.
    const std::uint64_t size = units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    const std::string decimals = std::to_string(size % Money::kUnitsPerWhole);
    return (units < 0 ? "money:-" : "money:") + std::to_string(size / Money::kUnitsPerWhole) + "." +
           std::string(4 - decimals.size(), '0') + decimals;
}

std::string ValueText(const Variant& value) {
    return value.Visit([]<class T>(const T& held) -> std::string {
        if constexpr (std::is_same_v<T, Bool>)
            return held ? "true" : "false";
        else if constexpr (std::is_same_v<T, Byte>)
            return "byte:" + std::to_string(held);
        else if constexpr (std::is_same_v<T, Int16>)
            return "int16:" + std::to_string(held);
        else if constexpr (std::is_same_v<T, Int32>)
            return std::to_string(held);
        else if constexpr (std::is_same_v<T, Single>)
            return "single:" + NumberText(held);
        else if constexpr (std::is_same_v<T, Double>)
            return "double:" + NumberText(held);
        else if constexpr (std::is_same_v<T, Money>)
            return MoneyText(held);
        else if constexpr (std::is_same_v<T, DateTime>)
            return MomentText(held);
        else if constexpr (std::is_same_v<T, Text>)
            return Quoted(held);
        else if constexpr (std::is_same_v<T, Variant::NullValue>)
            return "null";
        else
            return "empty";
    });
}

std::string AnswerText(const ScriptStepData& step) {
    if (step.outcome == Outcome::kRefused) return "  refused " + Quoted(step.failure) + "\n";
    if (step.outcome == Outcome::kRaises) {
        const Error error(step.error_number, step.failure, step.error_source);
        return "  raises " + std::to_string(step.error_number) + " " + Quoted(step.failure) + " " +
               Quoted(error.Source()) + "\n";
    }
    switch (step.call.kind) {
        case CallKind::kOpenSelect:
        case CallKind::kConnectionExecute: {
            if (step.columns.empty()) return "";
            std::string text = "  columns";
            for (const std::string& name : step.columns) text += " " + Quoted(name);
            for (const auto& row : step.rows) {
                text += "\n  row";
                for (const Variant& value : row) text += " " + ValueText(value.IsEmpty() ? Variant::Null() : value);
            }
            return text + "\n";
        }
        case CallKind::kLookupValue:
            return step.value.IsNull() ? "" : "  gives " + ValueText(step.value) + "\n";
        case CallKind::kProcess:
            return step.value.IsEmpty() ? "" : "  gives " + ValueText(step.value) + "\n";
        case CallKind::kAdoConnection:
            return step.state == Connection::kOpen ? "" : step.state < 0 ? "  empty\n" : "  closed\n";
        case CallKind::kConnectionState:
            return "  gives " + std::to_string(step.state) + "\n";
        case CallKind::kConnectionOpen:
            return step.state == Connection::kOpen ? "" : "  closed\n";
        default:
            return "";
    }
}

// The words of one line, read from left to right.
class Line {
  public:
    Line(int number, std::string_view text) : number_(number), text_(text) { SkipBlanks(); }

    [[noreturn]] void Refuse(const std::string& why) const {
        Raise(ScriptError::kBadScript, "Line " + std::to_string(number_) + ": " + why);
    }
    bool AtEnd() const { return text_.empty(); }
    bool AtText() const { return text_.starts_with('"'); }

    std::string_view Word() {
        if (AtEnd()) Refuse("something is missing at its end.");
        const auto word = text_.substr(0, text_.find_first_of(" \t"));
        text_.remove_prefix(word.size());
        SkipBlanks();
        return word;
    }

    Text QuotedText() {
        if (!AtText())
            Refuse(AtEnd() ? "a text is missing at its end." : "a text in quotes was expected, not " + Name(Word()) + ".");
        Text text;
        std::size_t at = 1;
        for (; at < text_.size() && text_[at] != '"'; ++at) {
            if (text_[at] != '\\') {
                text += text_[at];
                continue;
            }
            ++at;
            text += Unescaped(at);
        }
        if (at >= text_.size()) Refuse("a text has no closing quote.");
        text_.remove_prefix(at + 1);
        if (!AtEnd() && text_.front() != ' ' && text_.front() != '\t') Refuse("a blank is missing behind a text.");
        SkipBlanks();
        return text;
    }

    template <class T>
    T Number(std::string_view word, std::string_view what) const {
        T number{};
        const auto [end, failed] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (failed != std::errc() || end != word.data() + word.size() || word.empty())
            Refuse(Name(word) + " is no " + std::string(what) + ".");
        return number;
    }
    Int32 Int() { return Number<Int32>(Word(), "number"); }

    Variant Value();

    void End() {
        if (!AtEnd()) Refuse(Name(AtText() ? text_ : Word()) + " is too much.");
    }

    static std::string Name(std::string_view word) { return OneLine(word); }

  private:
    void SkipBlanks() { text_.remove_prefix(std::min(text_.find_first_not_of(" \t"), text_.size())); }
    char Unescaped(std::size_t& at) const;
    Money MoneyOf(std::string_view digits) const;
    DateTime MomentOf(std::string_view digits) const;

    int number_;
    std::string_view text_;
};

char Line::Unescaped(std::size_t& at) const {
    switch (at < text_.size() ? text_[at] : '\0') {
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        case '"':
        case '\\':
            return text_[at];
        case 'x': {
            const auto digits = text_.substr(at + 1, 2);
            unsigned byte = 0;
            const auto [end, failed] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
            if (failed != std::errc() || digits.size() != 2 || end != digits.data() + 2)
                Refuse("\\x wants two hexadecimal digits.");
            at += 2;
            return static_cast<char>(byte);
        }
        default:
            Refuse("in a text a backslash wants \", \\, n, r, t or x behind it.");
    }
}

// "12.5000", all four decimals written.
Money Line::MoneyOf(std::string_view digits) const {
    const auto point = digits.find('.');
    const std::string_view decimals = point == std::string_view::npos ? "" : digits.substr(point + 1);
    std::string all(digits.substr(0, point));
    all += decimals;
    if (decimals.size() != 4) Refuse(Name(digits) + " is no money: four decimals are wanted.");
    return Money::FromUnits(Number<std::int64_t>(all, "money"));
}

// "2010-03-02", "2010-03-02T17:45:09" or "2010-03-02T17:45:09.003"
DateTime Line::MomentOf(std::string_view digits) const {
    constexpr std::string_view kForm = "dddd-dd-ddTdd:dd:dd.ddd";
    bool fits = digits.size() == 10 || digits.size() == 19 || digits.size() == kForm.size();
    for (std::size_t i = 0; fits && i < digits.size(); ++i) {
        fits = kForm[i] == 'd' ? digits[i] >= '0' && digits[i] <= '9' : digits[i] == kForm[i];
    }
    const auto part = [&](std::size_t at, std::size_t size) {
        return at < digits.size() ? Number<int>(digits.substr(at, size), "moment") : 0;
    };
    if (fits) {
        const std::chrono::year_month_day day{std::chrono::year(part(0, 4)),
                                              std::chrono::month(static_cast<unsigned>(part(5, 2))),
                                              std::chrono::day(static_cast<unsigned>(part(8, 2)))};
        const auto time = std::chrono::hours(part(11, 2)) + std::chrono::minutes(part(14, 2)) +
                          std::chrono::seconds(part(17, 2)) + std::chrono::milliseconds(part(20, 3));
        const bool exists = day.ok() && part(11, 2) < 24 && part(14, 2) < 60 && part(17, 2) < 60;
        if (exists && static_cast<int>(day.year()) >= 100) return DateTime(std::chrono::local_days(day), time);
    }
    Refuse(Name(digits) + " is no moment: 2010-03-02 or 2010-03-02T17:45:09.003 is wanted.");
}

Variant Line::Value() {
    if (AtText()) return QuotedText();
    const std::string_view word = Word();
    if (word == "null") return Variant::Null();
    if (word == "empty") return {};
    if (word == "true") return true;
    if (word == "false") return false;
    const auto colon = word.find(':');
    if (colon == std::string_view::npos) return Number<Int32>(word, "value");
    const auto type = word.substr(0, colon);
    const auto digits = word.substr(colon + 1);
    if (type == "int16") return Number<Int16>(digits, "int16");
    if (type == "byte") return Number<Byte>(digits, "byte");
    if (type == "single") return Number<Single>(digits, "single");
    if (type == "double") return Number<Double>(digits, "double");
    if (type == "money") return MoneyOf(digits);
    if (type == "moment") return MomentOf(digits);
    if (type == "days") {
        const auto days = Number<Double>(digits, "number of days");
        try {
            return DateTime(days);
        } catch (const Error&) {
            Refuse(Name(digits) + " is no moment.");
        }
    }
    Refuse(Name(word) + " is no value.");
}

class Reader {
  public:
    std::shared_ptr<ScriptState> Read(std::string_view text) {
        if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
        for (int number = 1; !text.empty(); ++number) {
            auto line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
            if (line.ends_with('\r')) line.remove_suffix(1);
            ReadLine(Line(number, line), line);
        }
        if (!head_) Raise(ScriptError::kBadScript, "Line 1: a script begins with \"LumoScript 1\".");
        return state_;
    }

  private:
    void ReadLine(Line line, std::string_view text) {
        if (line.AtEnd() || text.find_first_not_of(" \t") == text.find('#')) return;
        if (FirstBadByte(text) != std::string_view::npos) line.Refuse("it is no UTF-8.");
        if (!head_) return ReadHead(line);
        const std::string_view word = line.Word();
        for (const StepWord& known : kStepWords) {
            if (known.word == word) return ReadStep(known, line);
        }
        ReadAnswer(word, line);
        line.End();
    }

    void ReadHead(Line& line) {
        if (line.Word() != kHead) line.Refuse("a script begins with \"LumoScript 1\".");
        const Int32 version = line.Int();
        if (version != kVersion)
            line.Refuse("the form of version " + std::to_string(version) + " is not known, only 1.");
        line.End();
        head_ = true;
    }

    void ReadStep(const StepWord& known, Line& line) {
        std::vector<Text> arguments;
        for (std::size_t i = 0; i < known.texts; ++i) arguments.push_back(line.QuotedText());
        if (known.number) arguments.push_back(std::to_string(line.Int()));
        line.End();
        if (known.kind == CallKind::kCloseRows) {
            const Int32 closed = To<Int32>(Variant(arguments[0]));
            if (closed < 1 || closed > state_->StepCount() || !GivesRows(state_->Step(closed)))
                line.Refuse("step " + arguments[0] + " gives no rows.");
        }
        step_ = &state_->Append(known.kind, std::move(arguments));
        if (known.kind == CallKind::kProcess) step_->value = Variant();
        answered_ = false;
    }

    void ReadAnswer(std::string_view word, Line& line) {
        if (word == "row") {
            if (!step_ || step_->columns.empty()) line.Refuse("a row wants columns above it.");
            return ReadRow(line);
        }
        constexpr std::array<std::string_view, 6> kAnswers = {"columns", "refused", "raises",
                                                              "gives",   "closed",  "empty"};
        if (std::ranges::find(kAnswers, word) == kAnswers.end() && word != "open")
            line.Refuse(Line::Name(word) + " is neither a step nor an answer.");
        if (!step_) line.Refuse("an answer wants a step above it.");
        if (std::exchange(answered_, true)) line.Refuse("the step has an answer already.");
        if (!Answer(word, line)) line.Refuse(Line::Name(word) + " is no answer to this step.");
    }

    bool Answer(std::string_view word, Line& line) {
        const CallKind kind = step_->call.kind;
        const bool connection = kind == CallKind::kAdoConnection || kind == CallKind::kConnectionOpen;
        if (word == "raises") {
            step_->outcome = Outcome::kRaises;
            step_->error_number = line.Int();
            step_->failure = line.QuotedText();
            if (!line.AtEnd()) step_->error_source = line.QuotedText();
        } else if (word == "refused") {
            if (kind != CallKind::kConnect && kind != CallKind::kOpenSelect && kind != CallKind::kExecuteSql &&
                kind != CallKind::kLookupValue)
                return false;
            step_->outcome = Outcome::kRefused;
            step_->failure = line.QuotedText();
        } else if (word == "columns") {
            if (!CanGiveRows(kind)) return false;
            do step_->columns.push_back(line.QuotedText());
            while (!line.AtEnd());
        } else if (word == "gives") {
            if (kind == CallKind::kConnectionState) {
                step_->state = line.Int();
            } else if (kind == CallKind::kLookupValue || kind == CallKind::kProcess) {
                step_->value = line.Value();
            } else {
                return false;
            }
        } else if (word == "empty") {
            if (kind != CallKind::kAdoConnection) return false;
            step_->state = -1;
        } else {
            if (!connection) return false;
            step_->state = word == "open" ? Connection::kOpen : 0;
        }
        return true;
    }

    void ReadRow(Line& line) {
        std::vector<Variant> row;
        while (!line.AtEnd()) {
            row.push_back(line.Value());
            if (row.back().IsEmpty()) row.back() = Variant::Null();
        }
        if (row.size() != step_->columns.size()) {
            line.Refuse("the row has " + std::to_string(row.size()) + " values for " +
                        std::to_string(step_->columns.size()) + " columns.");
        }
        step_->rows.push_back(std::move(row));
    }

    std::shared_ptr<ScriptState> state_ = std::make_shared<ScriptState>();
    ScriptStepData* step_ = nullptr;
    bool head_ = false;
    bool answered_ = false;
};

}  // namespace

std::string FileText(const std::deque<ScriptStepData>& steps) {
    std::string text = std::string(kHead) + " " + std::to_string(kVersion) + "\n\n";
    for (const ScriptStepData& step : steps) {
        const auto& known = *std::ranges::find(kStepWords, step.call.kind, &StepWord::kind);
        text.append(known.word);
        for (std::size_t i = 0; i < known.texts; ++i) text += " " + Quoted(step.call.arguments[i]);
        if (known.number) text += " " + step.call.arguments.back();
        text += "\n" + AnswerText(step);
    }
    return text;
}

std::shared_ptr<ScriptState> ReadFileText(std::string_view text) { return Reader().Read(text); }

}  // namespace LumoConnection::detail
