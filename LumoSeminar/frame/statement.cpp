#include <LumoSeminar/frame/statement.h>

#include <algorithm>

#include <LumoSeminar/frame/text_writer.h>

namespace LumoSeminar::detail {
namespace {

char* Put(char* to, std::string_view text) {
    // Most pieces are a comma or a word, which is not worth a call.
    constexpr std::size_t kFewCharacters = 4;
    if (text.size() <= kFewCharacters) {
        for (const char c : text) *to++ = c;
        return to;
    }
    text.copy(to, text.size());
    return to + text.size();
}

// The default text form with every comma replaced by a point, or as it comes.
template <class T>
char* PutDecimal(char* to, T value, bool as_it_comes) {
    char* const end = text_writer::WriteDefault(to, value);
    if (!as_it_comes) std::replace(to, end, ',', '.');
    return end;
}

}  // namespace

std::size_t StatementText::MostCharacters(const SlotValue& value) {
    switch (value.kind_) {
        case Kind::kInt32:
        case Kind::kInt16:
        case Kind::kByte:
        case Kind::kBool:
            return text_writer::kMostOfInt32;
        case Kind::kText:
            return value.text_.size;
        default:
            return text_writer::kMostCharacters;
    }
}

bool StatementText::IsNothing(const SlotValue& value) {
    switch (value.kind_) {
        case Kind::kDouble:
        case Kind::kDateTime:
            return value.real_ == 0;
        case Kind::kSingle:
            return value.single_ == 0;
        case Kind::kText:
            return value.text_.size == 0;
        default:
            return value.integer_ == 0;
    }
}

char* StatementText::WriteValue(char* to, Form form, const SlotValue& value) {
    switch (value.kind_) {
        case Kind::kInt32:
        case Kind::kInt16:
        case Kind::kByte:
        case Kind::kBool:
            return text_writer::WriteNumber(to, static_cast<Int32>(value.integer_));
        case Kind::kText:
            return Put(to, value.AsText());
        case Kind::kDouble:
            return PutDecimal(to, value.real_, form == Form::kText);
        case Kind::kSingle:
            return PutDecimal(to, value.single_, form == Form::kText);
        case Kind::kMoney:
            return PutDecimal(to, Money::FromUnits(value.integer_), form == Form::kText);
        case Kind::kDateTime:
            break;
    }
    const DateTime moment(value.real_);
    switch (form) {
        case Form::kMoment:
            return text_writer::WriteMoment(to, moment);
        case Form::kDate:
            return text_writer::WriteDate(to, moment);
        case Form::kCompactDate:
            return text_writer::WriteCompactDate(to, moment);
        case Form::kClock:
            return text_writer::WriteClock(to, moment);
        case Form::kText:
        case Form::kByType:
            break;
    }
    return text_writer::WriteDefault(to, moment);
}

Text StatementText::Fill(const SlotValue* values) const {
    // Room for everything, so that each piece is only copied.
    std::size_t room = text_.size();
    for (std::size_t i = 0; i < count_; ++i) room += MostCharacters(values[i]);
    Text statement(room, '\0');
    char* to = statement.data();
    std::size_t at = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        const Slot& slot = slots_[i];
        const SlotValue& value = values[i];
        to = Put(to, text_.substr(at, slot.whole.from - at));
        at = slot.whole.to;
        if (slot.has_word && IsNothing(value)) {
            to = Put(to, Cut(slot.word));
        } else if (slot.form == Form::kByType) {
            to = WriteValue(to, slot.form, value);
        } else {
            to = Put(to, Cut(slot.before));
            to = WriteValue(to, slot.form, value);
            to = Put(to, Cut(slot.after));
        }
    }
    to = Put(to, text_.substr(at));
    statement.resize(static_cast<std::size_t>(to - statement.data()));
    return statement;
}

}  // namespace LumoSeminar::detail
