#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <new>
#include <span>
#include <string_view>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/types.h>

/// Statements as whole texts with slots.
///
/// A slot is {Name}, {Name or word}, {Name:form} or {Name:form or word}.
///
/// The name is that of a column (Statement) or of an argument (Sql). The word goes in as it stands in place of the
/// number 0, of an empty text and of the empty date. The form is a text in which one of these stands for the value:
///
///     dd.mm.yyyy hh:nn:ss   dd.mm.yyyy   yyyymmdd   hh:nn   hh:mm   a moment, formatted so
///     text                                                          the default text form
///
/// What surrounds it in the form is left out together with the value where the word goes in:
/// {Erford:'dd.mm.yyyy' or Null}. Without a form, integers go in as decimal text, Bool as -1 or 0, texts as they
/// stand, and Money, Double and Single in the default text form with every comma replaced by a point. A moment needs
/// a form. Slots are checked while compiling; values go in once, from left to right, and are never scanned again.
namespace LumoSeminar {

namespace detail {

enum class Kind : std::uint8_t { kInt32, kInt16, kByte, kDouble, kSingle, kMoney, kDateTime, kBool, kText };

template <class T>
consteval Kind KindOf() {
    if constexpr (std::same_as<T, Int32>) return Kind::kInt32;
    if constexpr (std::same_as<T, Int16>) return Kind::kInt16;
    if constexpr (std::same_as<T, Byte>) return Kind::kByte;
    if constexpr (std::same_as<T, Double>) return Kind::kDouble;
    if constexpr (std::same_as<T, Single>) return Kind::kSingle;
    if constexpr (std::same_as<T, Money>) return Kind::kMoney;
    if constexpr (std::same_as<T, DateTime>) return Kind::kDateTime;
    if constexpr (std::same_as<T, Bool>) return Kind::kBool;
    if constexpr (std::same_as<T, Text>) return Kind::kText;
}

/// A value on its way into a statement. Does not own its text. Not initialised by default.
class SlotValue {
  public:
    SlotValue() = default;
    SlotValue(Int32 value) : kind_(Kind::kInt32), integer_(value) {}
    SlotValue(Int16 value) : kind_(Kind::kInt16), integer_(value) {}
    SlotValue(Byte value) : kind_(Kind::kByte), integer_(value) {}
    SlotValue(Double value) : kind_(Kind::kDouble), real_(value) {}
    SlotValue(Single value) : kind_(Kind::kSingle), single_(value) {}
    SlotValue(Money value) : kind_(Kind::kMoney), integer_(value.Units()) {}
    SlotValue(DateTime value) : kind_(Kind::kDateTime), real_(value.Days()) {}
    SlotValue(Bool value) : kind_(Kind::kBool), integer_(value.Number()) {}
    SlotValue(const Text& value) : kind_(Kind::kText), text_{value.data(), value.size()} {}

  private:
    friend class StatementText;

    struct TextPiece {
        const char* data;
        std::size_t size;
    };

    std::string_view AsText() const { return {text_.data, text_.size}; }

    Kind kind_;
    union {
        std::int64_t integer_;
        Double real_;
        Single single_;
        TextPiece text_;
    };
};

/// A statement cut at its slots.
class StatementText {
  public:
    static constexpr std::size_t kMostSlots = 48;

    /// @param find  gives the position and the kind of a named value
    template <class Find>
    constexpr StatementText(std::string_view text, Find&& find) : text_(text) {
        std::size_t at = 0;
        while (true) {
            const std::size_t open = text.find('{', at);
            const std::size_t close = text.find_first_of("{}", open == text.npos ? at : open + 1);
            if (open == text.npos) {
                if (close != text.npos) throw "a brace closes what none has opened";
                break;
            }
            if (close == text.npos || text[close] != '}') throw "a slot is not closed";
            if (count_ == kMostSlots) throw "too many slots";
            const Slot& slot = slots_[count_++] = ReadSlot(open, close, find);
            if (slot.value >= values_) values_ = slot.value + std::size_t{1};
            at = close + 1;
        }
    }

    constexpr std::string_view Whole() const { return text_; }

    /// How many values the slots ask for, counted up to the last one used.
    constexpr std::size_t ValueCount() const { return values_; }

    /// The text with values in its slots.
    /// @param value_at  gives the value at a position
    template <class ValueAt>
    Text Write(ValueAt value_at) const {
        std::array<SlotValue, kMostSlots> values;
        // Made in place: a copy right behind the making would wait for it.
        for (std::size_t i = 0; i < count_; ++i) new (&values[i]) SlotValue(value_at(slots_[i].value));
        return Fill(values.data());
    }

  private:
    enum class Form : std::uint8_t { kByType, kText, kMoment, kDate, kCompactDate, kClock };
    struct Part {
        std::uint16_t from = 0;
        std::uint16_t to = 0;
    };
    struct Slot {
        Part whole;
        Part before;  // of the form, in front of the value
        Part after;   // of the form, behind the value
        Part word;
        std::uint8_t value = 0;
        Form form = Form::kByType;
        bool has_word = false;
    };
    struct Placeholder {
        std::string_view text;
        Form form;
    };
    static constexpr Placeholder kPlaceholders[] = {
        {"dd.mm.yyyy hh:nn:ss", Form::kMoment},
        {"dd.mm.yyyy", Form::kDate},
        {"yyyymmdd", Form::kCompactDate},
        {"hh:nn", Form::kClock},
        {"hh:mm", Form::kClock},
        {"text", Form::kText},
    };

    static constexpr Part MakePart(std::size_t from, std::size_t to) {
        if (to > 0xFFFF) throw "the statement is too long";
        return {static_cast<std::uint16_t>(from), static_cast<std::uint16_t>(to)};
    }

    template <class Find>
    constexpr Slot ReadSlot(std::size_t open, std::size_t close, Find& find) const {
        Slot slot;
        slot.whole = MakePart(open, close + 1);
        std::string_view inside = text_.substr(open + 1, close - open - 1);
        if (const std::size_t word = inside.rfind(" or "); word != inside.npos) {
            slot.has_word = true;
            slot.word = MakePart(open + 1 + word + 4, close);
            inside = inside.substr(0, word);
        }
        const std::size_t colon = inside.find(':');
        const auto [position, kind] = find(inside.substr(0, colon));
        slot.value = static_cast<std::uint8_t>(position);
        if (colon != inside.npos) {
            const std::string_view form = inside.substr(colon + 1);
            const std::size_t form_start = open + 1 + colon + 1;
            for (const Placeholder& placeholder : kPlaceholders) {
                const std::size_t at = form.find(placeholder.text);
                if (at == form.npos) continue;
                slot.form = placeholder.form;
                slot.before = MakePart(form_start, form_start + at);
                slot.after = MakePart(form_start + at + placeholder.text.size(), form_start + form.size());
                break;
            }
            if (slot.form == Form::kByType) throw "the form of a slot names no value";
        }
        const bool needs_moment = slot.form != Form::kByType && slot.form != Form::kText;
        if (needs_moment && kind != Kind::kDateTime) throw "a date form on a value that is no moment";
        if (kind == Kind::kDateTime && slot.form == Form::kByType) throw "a moment needs a form";
        return slot;
    }

    constexpr std::string_view Cut(Part part) const { return text_.substr(part.from, part.to - part.from); }
    /// @param values  one for each slot
    Text Fill(const SlotValue* values) const;
    static std::size_t MostCharacters(const SlotValue& value);
    static bool IsNothing(const SlotValue& value);
    static char* WriteValue(char* to, Form form, const SlotValue& value);

    std::string_view text_;
    std::array<Slot, kMostSlots> slots_{};
    std::size_t count_ = 0;
    std::size_t values_ = 0;
};

struct NamedValue {
    std::size_t position;
    Kind kind;
};

}  // namespace detail

/// A column of a class: its name in the table, the field that holds it, and what stands in for a database Null.
template <class Row>
class Column {
  public:
    template <class T>
    constexpr Column(std::string_view name, T Row::*field, Int32 at_null = 0)
        : name_(name), kind_(detail::KindOf<T>()), field_(field), number_at_null_(at_null) {}
    constexpr Column(std::string_view name, Text Row::*field, std::string_view at_null = {})
        : name_(name), field_(field), text_at_null_(at_null) {}

    constexpr std::string_view Name() const { return name_; }
    constexpr detail::Kind Kind() const { return kind_; }

    detail::SlotValue Value(const Row& row) const {
        using detail::Kind;
        switch (kind_) {
            case Kind::kInt32:
                return row.*field_.int32;
            case Kind::kInt16:
                return row.*field_.int16;
            case Kind::kByte:
                return row.*field_.byte;
            case Kind::kDouble:
                return row.*field_.real;
            case Kind::kSingle:
                return row.*field_.single;
            case Kind::kMoney:
                return row.*field_.money;
            case Kind::kDateTime:
                return row.*field_.moment;
            case Kind::kBool:
                return row.*field_.boolean;
            case Kind::kText:
                return row.*field_.text;
        }
        return {};
    }

    /// Copies a field of a row set, its replacement for a Null, converted to the type of the column.
    void Load(Row& row, Variant value) const {
        using detail::Kind;
        switch (kind_) {
            case Kind::kInt32:
                return LoadNumber(row.*field_.int32, value);
            case Kind::kInt16:
                return LoadNumber(row.*field_.int16, value);
            case Kind::kByte:
                return LoadNumber(row.*field_.byte, value);
            case Kind::kDouble:
                return LoadNumber(row.*field_.real, value);
            case Kind::kSingle:
                return LoadNumber(row.*field_.single, value);
            case Kind::kMoney:
                return LoadNumber(row.*field_.money, value);
            case Kind::kDateTime:
                return LoadNumber(row.*field_.moment, value);
            case Kind::kBool:
                return LoadNumber(row.*field_.boolean, value);
            case Kind::kText:
                if (value.IsNull()) {
                    row.*field_.text = text_at_null_;
                } else if (Text* text = value.If<Text>()) {
                    row.*field_.text = std::move(*text);
                } else {
                    row.*field_.text = To<Text>(value);
                }
        }
    }

  private:
    template <class T>
    static T FromNumber(Int32 number) {
        if constexpr (std::same_as<T, Bool>) {
            return number != 0;
        } else if constexpr (std::same_as<T, DateTime>) {
            return DateTime(static_cast<Double>(number));
        } else {
            return static_cast<T>(number);
        }
    }

    template <class T>
    void LoadNumber(T& field, const Variant& value) const {
        if (const T* same = value.If<T>()) {
            field = *same;
        } else if (value.IsNull()) {
            field = FromNumber<T>(number_at_null_);
        } else {
            field = To<T>(value);
        }
    }

    union Field {
        constexpr Field(Int32 Row::*field) : int32(field) {}
        constexpr Field(Int16 Row::*field) : int16(field) {}
        constexpr Field(Byte Row::*field) : byte(field) {}
        constexpr Field(Double Row::*field) : real(field) {}
        constexpr Field(Single Row::*field) : single(field) {}
        constexpr Field(Money Row::*field) : money(field) {}
        constexpr Field(DateTime Row::*field) : moment(field) {}
        constexpr Field(Bool Row::*field) : boolean(field) {}
        constexpr Field(Text Row::*field) : text(field) {}

        Int32 Row::*int32;
        Int16 Row::*int16;
        Byte Row::*byte;
        Double Row::*real;
        Single Row::*single;
        Money Row::*money;
        DateTime Row::*moment;
        Bool Row::*boolean;
        Text Row::*text;
    };

    std::string_view name_;
    detail::Kind kind_ = detail::Kind::kText;
    Field field_;
    Int32 number_at_null_ = 0;
    std::string_view text_at_null_;
};

/// A statement whose slots name columns of a class.
template <class Row>
class Statement {
  public:
    template <std::size_t N>
    consteval Statement(const Column<Row> (&columns)[N], std::string_view text)
        : columns_(columns), text_(text, [&columns](std::string_view name) {
              for (std::size_t i = 0; i < N; ++i) {
                  if (columns[i].Name() == name) return detail::NamedValue{i, columns[i].Kind()};
              }
              throw "a slot names no column";
          }) {}

    Text operator()(const Row& row) const {
        return text_.Write([&](std::size_t position) { return columns_[position].Value(row); });
    }

    /// The text with its slots.
    constexpr std::string_view Whole() const { return text_.Whole(); }

  private:
    std::span<const Column<Row>> columns_;
    detail::StatementText text_;
};

/// A statement whose slots name arguments, which are given in the order in which they first appear.
template <class... Args>
class Sql {
  public:
    consteval Sql(std::string_view text) : text_(text, Names{}) {
        if (text_.ValueCount() != sizeof...(Args)) throw "a statement needs as many arguments as it has names";
    }
    template <std::size_t N>
    consteval Sql(const char (&text)[N]) : Sql(std::string_view(text, N - 1)) {}

    Text operator()(const Args&... args) const {
        const std::array<detail::SlotValue, sizeof...(Args)> values{detail::SlotValue(args)...};
        return text_.Write([&](std::size_t position) { return values[position]; });
    }

    constexpr std::string_view Whole() const { return text_.Whole(); }

  private:
    // Numbers the names by their first appearance.
    struct Names {
        std::array<std::string_view, sizeof...(Args)> known{};
        std::size_t count = 0;

        constexpr detail::NamedValue operator()(std::string_view name) {
            constexpr std::array<detail::Kind, sizeof...(Args)> kinds{detail::KindOf<Args>()...};
            for (std::size_t i = 0; i < count; ++i) {
                if (known[i] == name) return {i, kinds[i]};
            }
            if (count == sizeof...(Args)) throw "a statement has more names than arguments";
            known[count] = name;
            return {count, kinds[count++]};
        }
    };

    detail::StatementText text_;
};

/// Copies the fields of the current row into the columns, in their order, from position 0 on.
template <class Row>
void LoadRow(Row& row, const Ref<RecordSet>& rows, std::span<const Column<Row>> columns) {
    const Fields fields = rows->Fields();
    Int16 position = 0;
    for (const Column<Row>& column : columns) column.Load(row, common::ValueOf(fields.Item(position++)));
}

/// Gives the columns what stands in for a database Null.
template <class Row>
void LoadDefaults(Row& row, std::span<const Column<Row>> columns) {
    for (const Column<Row>& column : columns) column.Load(row, Variant::Null());
}

}  // namespace LumoSeminar
