#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/tracing/tracing_session.h>
#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// What the tour prints on standard output, in 80 columns: steps, calls, the statements they sent, outcomes. It counts
/// the outcomes that were not as told.
class TourPage {
  public:
    TourPage();
    /// Prints what is still held back.
    ~TourPage();
    TourPage(const TourPage&) = delete;
    TourPage& operator=(const TourPage&) = delete;

    /// From here on nothing is printed until the page is opened: who wants what is known only behind the first step.
    void Hold();

    /// The title, what it is about, and what was held back.
    void Open(std::string_view title, std::string_view who_wants_what);

    /// The head of a chapter, and who wants what in it.
    void Chapter(std::string_view title, std::string_view who_wants_what);

    void Step(std::string_view title, std::string_view text);

    /// Prints the call as C++, carries it out, then prints the statements that were sent meanwhile.
    void Call(std::string_view code, const std::function<void()>& act);

    /// As Call, for a call of many statements: the note stands in their place.
    void Call(std::string_view code, const std::function<void()>& act, const std::function<std::string()>& note);

    /// As Call, for one that is to fail; the failure is printed.
    /// @return its number, 0 where nothing was raised
    LumoSeminar::Int32 FailingCall(std::string_view code, const std::function<void()>& act);

    /// Statements of the last call.
    std::size_t Sent() const { return sent_.size(); }

    void Outcome(bool as_told, std::string_view text);

    /// Lines to look at, printed as they stand.
    void Picture(std::string_view text);

    /// What it came to.
    /// @param left_out  whether there was more to see
    void End(bool left_out);

    /// Lines to type, below a line that introduces them.
    void Commands(std::string_view introduction, const std::vector<std::string>& lines);

    int Untold() const { return untold_; }

    /// To be called by the session's watcher. Counts during a call only.
    void Watch(const LumoConnection::TracedCall& call) {
        if (watching_) sent_.push_back(call);
    }

  private:
    void Put(std::string_view text);
    void Release();
    void Title(std::string_view text);
    void Paragraph(std::string_view text);
    void Entry(std::string_view label, std::string_view text, int indent = 0);
    void Statements();
    // A long list of columns is shown once.
    std::string WithoutKnownColumns(const std::string& statement);
    void WatchWhile(const std::function<void()>& act);

    std::vector<LumoConnection::TracedCall> sent_;
    std::set<std::string> known_columns_;
    std::optional<std::string> held_;
    std::string bold_;
    std::string plain_;
    bool titled_ = false;
    bool watching_ = false;
    int steps_ = 0;
    int untold_ = 0;
};

}  // namespace frontend
