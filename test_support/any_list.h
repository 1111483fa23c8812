#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/budget_years.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/variant.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

/// For tests: a list whose type is left out, and what there is to know about a list to test what all of them have.
namespace LumoSeminar::lists {

inline Text KeyOf(clsSemBudgetJahr& year) { return std::to_string(year.JahrID()); }
inline Text KeyOf(clsTeilnehmerKosten& line) { return std::to_string(line.KostenID()); }
template <class Entry>
Text KeyOf(Entry& entry) {
    return entry.Key();
}

class AnyList {
  public:
    virtual ~AnyList() = default;
    virtual Variant Init(Int32 owner, const Ref<DataSession>& session) = 0;
    virtual Int32 Count() = 0;
    virtual Ref<Object> Item(const Variant& index) = 0;
    virtual Variant Remove(const Variant& index) = 0;  ///< Empty where it gives nothing
    /// Meets the entries one by one; it needs the list no longer.
    using Walk = std::function<void(const std::function<void(const Text& key)>&)>;
    virtual Walk NewWalk() = 0;

    std::vector<Text> Keys() {
        std::vector<Text> keys;
        NewWalk()([&](const Text& key) { keys.push_back(key); });
        return keys;
    }
};

template <class List>
class ListOf final : public AnyList {
  public:
    using InitOf = Variant (*)(List&, Int32 owner, const Ref<DataSession>&);
    explicit ListOf(InitOf init) : init_(init) {}

    Variant Init(Int32 owner, const Ref<DataSession>& session) override { return init_(*list_, owner, session); }
    Int32 Count() override { return list_->Count(); }
    Ref<Object> Item(const Variant& index) override { return list_->Item(index); }
    Variant Remove(const Variant& index) override {
        if constexpr (std::is_void_v<decltype(list_->Remove(index))>) {
            list_->Remove(index);
            return {};
        } else {
            return list_->Remove(index);
        }
    }
    Walk NewWalk() override {
        return [walk = list_->NewEnum()](const auto& meet) {
            for (const auto& entry : walk) meet(KeyOf(*entry));
        };
    }

  private:
    Ref<List> list_ = New<List>();
    InitOf init_;
};

using Row = std::vector<Variant>;
using test_support::Labels;

/// How a list is read, and what it says where something goes wrong.
struct ListKind {
    std::string name;
    std::function<std::unique_ptr<AnyList>()> make;
    /// What Init gives where the list could be read.
    Variant read = true;
    std::function<std::string(Int32 owner)> select;
    std::vector<std::string> columns;
    std::function<Row(Int32 owner, Int32 number)> row;
    std::function<Text(Int32 owner, Int32 number)> key;
    /// What the entries of the list are numbered in the tests, in the order of the server.
    std::vector<Int32> numbers = {3, 1, 2147483647, -1};

    /// Asks for the connection first, opens it, and is false where it stays closed or where the select is refused.
    /// Other lists send the select at once, raise where it is refused, and close the rows.
    bool asks_for_connection = true;
    /// What is sent for an entry while it is listed, and what becomes of the failures of two of them.
    std::function<void(LumoConnection::Script&, Int32 number)> script_entry = [](auto&, Int32) {};
    int row_sets_of_an_entry = 0;
    std::vector<test_support::ExpectedFailure> failures_of_entries = {};

    /// The labels of a load that raises.
    Labels of_load;
    /// Those of an Init without a session; none: it is false.
    Labels without_a_session;
    Labels of_item;
    Labels of_remove;
    /// Item gives nothing for a key that is not there in place of raising 5.
    bool gives_nothing = false;
    /// Remove goes through the member Item.
    bool removes_through_item = false;
    /// Remove sends nothing.
    bool removes_from_list_only = false;
    /// A second Init starts a new list.
    bool starts_anew = false;

    /// Rows that cannot be listed, and what they raise.
    struct Misfit {
        Row row;
        Int32 number;
    };
    std::vector<Misfit> misfits = {};
    /// The key of an entry whose key is Null in the database; empty where that is a misfit or stands elsewhere.
    Text key_of_null = {};

    friend void PrintTo(const ListKind& kind, std::ostream* stream) { *stream << kind.name; }
};

inline Text TenDigits(Int32, Int32 number) {
    const std::string digits = std::to_string(std::abs(std::int64_t{number}));
    return (number < 0 ? "-" : "") + std::string(10 - digits.size(), '0') + digits;
}

inline Text Decimal(Int32, Int32 number) { return std::to_string(number); }

/// The load of a list of these entries.
inline void ScriptList(LumoConnection::Script& script, const ListKind& kind, const std::vector<Int32>& numbers,
                       Int32 owner = 17) {
    std::vector<Row> rows;
    for (const Int32 number : numbers) rows.push_back(kind.row(owner, number));
    if (kind.asks_for_connection) script.AdoConnection();
    const auto select = script.OpenSelect(kind.select(owner)).Rows(kind.columns, rows);
    for (const Int32 number : numbers) kind.script_entry(script, number);
    if (!kind.asks_for_connection) script.CloseRows(select);
}

}  // namespace LumoSeminar::lists
