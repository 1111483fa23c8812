#include <LumoSeminar/frame/statement.h>

#include <algorithm>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar::detail {
namespace {

// The default text form with every comma replaced by a point.
template <class T>
void AppendWithPoint(Text& to, T value) {
    const std::size_t start = to.size();
    AppendDefault(to, value);
    std::replace(to.begin() + static_cast<std::ptrdiff_t>(start), to.end(), ',', '.');
}

}  // namespace

bool StatementText::IsNothing(const SlotValue& value) {
    switch (value.kind_) {
        case Kind::kDouble:
            return value.real_ == 0;
        case Kind::kSingle:
            return value.single_ == 0;
        case Kind::kDateTime:
            return !value.moment_;
        case Kind::kText:
            return value.text_.empty();
        default:
            return value.integer_ == 0;
    }
}

void StatementText::AppendValue(Text& to, Form form, const SlotValue& value) {
    switch (value.kind_) {
        case Kind::kInt32:
        case Kind::kInt16:
        case Kind::kByte:
        case Kind::kBool:
            AppendNumber(to, value.integer_);
            return;
        case Kind::kText:
            to += value.text_;
            return;
        case Kind::kDouble:
            return form == Form::kText ? AppendDefault(to, value.real_) : AppendWithPoint(to, value.real_);
        case Kind::kSingle:
            return form == Form::kText ? AppendDefault(to, value.single_) : AppendWithPoint(to, value.single_);
        case Kind::kMoney: {
            const Money money = Money::FromUnits(value.integer_);
            return form == Form::kText ? AppendDefault(to, money) : AppendWithPoint(to, money);
        }
        case Kind::kDateTime:
            switch (form) {
                case Form::kMoment:
                    return AppendMoment(to, value.moment_);
                case Form::kDate:
                    return AppendDate(to, value.moment_);
                case Form::kCompactDate:
                    return AppendCompactDate(to, value.moment_);
                case Form::kClock:
                    return AppendClock(to, value.moment_);
                case Form::kText:
                case Form::kByType:
                    return AppendDefault(to, value.moment_);
            }
    }
}

Text StatementText::Write(const SlotValue* values) const {
    constexpr std::size_t kRoomForANumber = 12;
    std::size_t room = text_.size() + count_ * kRoomForANumber;
    for (std::size_t i = 0; i < count_; ++i) {
        const SlotValue& value = values[slots_[i].value];
        if (value.kind_ == Kind::kText) room += value.text_.size();
    }
    Text statement;
    statement.reserve(room);
    std::size_t at = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        const Slot& slot = slots_[i];
        const SlotValue& value = values[slot.value];
        statement.append(text_, at, slot.whole.from - at);
        at = slot.whole.to;
        if (slot.has_word && IsNothing(value)) {
            statement.append(Cut(slot.word));
            continue;
        }
        statement.append(Cut(slot.before));
        AppendValue(statement, slot.form, value);
        statement.append(Cut(slot.after));
    }
    return statement.append(text_, at);
}

}  // namespace LumoSeminar::detail
