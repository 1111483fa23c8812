#pragma once

#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/output/counted.h"
#include "frontend/tour/page.h"

namespace frontend {

inline std::string Counted(LumoSeminar::Int32 count, std::string_view thing) {
    return Counted(static_cast<std::size_t>(count), thing);
}

/// "1 entry", "2 entries"
inline std::string Entries(LumoSeminar::Int32 count) {
    return count == 1 ? "1 entry" : fmt::format("{} entries", count);
}

/// An employee of the client, of whom the tour tells.
struct TourPerson {
    LumoSeminar::Int32 number = 0;
    /// Among colleagues: "Petra".
    std::string called;
    std::string name;
};

/// What the tour walks on. What a step needs to know for its comparison it asks in calls that the page does not show.
struct TourGround {
    TourPage& page;
    LumoSeminar::Ref<LumoSeminar::DataSession> session;
    LumoSeminar::Int32 client = 0;
    /// Three, once FindPeople has found them.
    std::vector<TourPerson> people;

    /// Raises 9 where the client's catalogue is empty.
    void NeedSeminar() const;
    /// Raises 9 where the client has fewer than three employees.
    void FindPeople();
    const TourPerson& Asking() const { return people.at(0); }
    const TourPerson& Needing() const { return people.at(1); }
    const TourPerson& Enrolled() const { return people.at(2); }

    LumoSeminar::Int32 CountRows(const LumoSeminar::Text& table, const LumoSeminar::Text& where = {}) const {
        return LumoSeminar::To<LumoSeminar::Int32>(session->LookupValue("count(*)", table, where));
    }

    /// 0 in an empty table.
    LumoSeminar::Int32 LargestKey(const LumoSeminar::Text& column, const LumoSeminar::Text& table) const {
        const auto key = session->LookupValue("max(" + column + ")", table, "");
        return key.IsNull() ? 0 : LumoSeminar::To<LumoSeminar::Int32>(key);
    }

    /// Empty for NULL and where there is no row.
    LumoSeminar::Text StoredText(const LumoSeminar::Text& column, const LumoSeminar::Text& table,
                                 const LumoSeminar::Text& where) const {
        const auto text = session->LookupValue(column, table, where);
        return text.IsNull() ? LumoSeminar::Text() : LumoSeminar::To<LumoSeminar::Text>(text);
    }
};

/// Raises 9999 with what the session tells where something was not done.
inline void Demand(LumoSeminar::Bool done, const LumoSeminar::Ref<LumoSeminar::DataSession>& session) {
    if (!done) LumoSeminar::RaiseRefused(session->LastErrorText());
}

/// Takes back what the tour has added, where it breaks off before it has done so itself.
class TakeBack {
  public:
    /// @param what  for the message where that fails: "seminar 43"
    TakeBack(std::string what, std::function<void()> take_back)
        : what_(std::move(what)), take_back_(std::move(take_back)) {}
    TakeBack(const TakeBack&) = delete;
    TakeBack& operator=(const TakeBack&) = delete;
    ~TakeBack() {
        if (!take_back_) return;
        try {
            take_back_();
        } catch (...) {
            fmt::print(stderr, "lumoseminar: {} of the tour could not be removed.\n", what_);
        }
    }

    /// The tour has removed it.
    void Gone() { take_back_ = nullptr; }

  private:
    std::string what_;
    std::function<void()> take_back_;
};

}  // namespace frontend
