#include "frontend/tour/page.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"
#include "frontend/tour/interruption.h"

namespace frontend {

using LumoConnection::TracedCall;
using LumoConnection::TracedKind;

namespace {

constexpr int kWidth = 80;
constexpr int kMargin = 3;
constexpr int kLabel = 11;

}  // namespace

TourPage::~TourPage() {
    try {
        Release();
    } catch (...) {
        // A reader that has gone away has been told of already.
    }
}

void TourPage::Put(std::string_view text) {
    if (held_) {
        held_->append(text);
    } else {
        fmt::print("{}", text);
    }
}

void TourPage::Hold() { held_.emplace(); }

void TourPage::Release() {
    if (!held_) return;
    const std::string text = std::move(*held_);
    held_.reset();
    fmt::print("{}", text);
}

void TourPage::Open(std::string_view title, std::string_view who_wants_what) {
    const std::string later = std::exchange(held_, std::nullopt).value_or("");
    Title(title);
    Paragraph(who_wants_what);
    Put(later);
}

TourPage::TourPage() {
    if (TerminalOf(stdout).colour) {
        bold_ = "\x1b[1m";
        plain_ = "\x1b[0m";
    }
}

void TourPage::Title(std::string_view text) {
    Put(fmt::format("{}{}{}{}\n", titled_ ? "\n" : "", bold_, text, plain_));
    titled_ = true;
}

void TourPage::Paragraph(std::string_view text) {
    for (const auto& line : Wrap(text, kWidth - kMargin)) Put(fmt::format("{:{}}{}\n", "", kMargin, line));
}

void TourPage::Chapter(std::string_view title, std::string_view who_wants_what) {
    Title(title);
    Paragraph(who_wants_what);
}

void TourPage::Step(std::string_view title, std::string_view text) {
    CheckInterruption();
    Put(fmt::format("\n{}{}. {}{}\n", bold_, ++steps_, title, plain_));
    Paragraph(text);
    Put("\n");
}

void TourPage::Call(std::string_view code, const std::function<void()>& act) {
    Entry("call", code);
    WatchWhile(act);
    Statements();
}

void TourPage::Call(std::string_view code, const std::function<void()>& act, const std::function<std::string()>& note) {
    Entry("call", code);
    WatchWhile(act);
    Entry("statements", note());
}

LumoSeminar::Int32 TourPage::FailingCall(std::string_view code, const std::function<void()>& act) {
    Entry("call", code);
    try {
        WatchWhile(act);
    } catch (const LumoSeminar::Error& error) {
        Statements();
        const auto parts = LumoSeminar::ReadDescription(error.Description());
        Entry("raised", fmt::format("error {}: {}", error.Number(), Visible(parts.text)));
        for (const auto& label : parts.labels)
            Entry("", label.substr(std::min(label.find_first_not_of(' '), label.size())), 2);
        return error.Number();
    }
    Statements();
    return 0;
}

void TourPage::Outcome(bool as_told, std::string_view text) {
    Entry("outcome", text);
    if (as_told) return;
    ++untold_;
    Entry("", fmt::format("{}THIS IS NOT AS TOLD.{}", bold_, plain_));
}

void TourPage::Picture(std::string_view text) {
    Put("\n");
    while (text.ends_with('\n')) text.remove_suffix(1);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        Put(fmt::format("{:{}}{}\n", "", text[at] == '\n' ? 0 : kMargin, text.substr(at, end - at)));
        at = end + 1;
    }
    Put("\n");
}

void TourPage::End(bool left_out) {
    if (untold_ == 0) {
        Put(fmt::format("\n{}All {} steps{} came out as told.{}\n", bold_, steps_, left_out ? " so far" : "", plain_));
    } else {
        Put(fmt::format("\n{}{} {} not as told.{}\n", bold_, untold_, untold_ == 1 ? "outcome is" : "outcomes are", plain_));
    }
}

void TourPage::Commands(std::string_view introduction, const std::vector<std::string>& lines) {
    Put(fmt::format("\n{}{}{}\n", bold_, introduction, plain_));
    for (const auto& line : lines) Put(fmt::format("{:{}}{}\n", "", kMargin, line));
}

void TourPage::Entry(std::string_view label, std::string_view text, int indent) {
    bool first = true;
    for (const auto& line : Wrap(text, kWidth - kMargin - kLabel - indent)) {
        Put(fmt::format("{:{}}{:{}}{:{}}{}\n", "", kMargin, first ? label : "", kLabel, "", indent, line));
        first = false;
    }
}

void TourPage::WatchWhile(const std::function<void()>& act) {
    CheckInterruption();
    sent_.clear();
    watching_ = true;
    try {
        act();
    } catch (...) {
        watching_ = false;
        throw;
    }
    watching_ = false;
}

void TourPage::Statements() {
    for (const auto& call : sent_) {
        Entry(call.kind == TracedKind::kLookupValue ? "lookup" : "statement", WithoutKnownColumns(Visible(call.statement)));
        if (!call.ok) {
            Entry("", "-> refused");
        } else if (call.rows != TracedCall::kNoRows) {
            Entry("", fmt::format("-> {} row{}", call.rows, call.rows == 1 ? "" : "s"));
        }
    }
    if (sent_.empty()) Entry("statement", "none");
}

std::string TourPage::WithoutKnownColumns(const std::string& statement) {
    constexpr std::size_t kLong = 60;
    const auto from = statement.find(" FROM ");
    if (!statement.starts_with("SELECT ") || from == std::string::npos || from < kLong) return statement;
    if (known_columns_.insert(statement.substr(0, from)).second) return statement;
    return statement.substr(0, statement.find(',')) + ", …" + statement.substr(from);
}

}  // namespace frontend
