#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace LumoConnection::Embedded {

/// Offset of a failure that belongs to no place of the text.
inline constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);

/// What the database refuses, with the server's number and words. The place is an offset in the text.
class Refusal : public std::exception {
  public:
    Refusal(int number, std::string text, std::size_t place = kNoPlace)
        : number_(number), text_(std::move(text)), place_(place) {}

    int Number() const { return number_; }
    const std::string& Text() const { return text_; }
    std::size_t Place() const { return place_; }
    void SetPlace(std::size_t place) { place_ = place; }

    const char* what() const noexcept override { return text_.c_str(); }

  private:
    int number_;
    std::string text_;
    std::size_t place_;
};

/// The server's error numbers that the engine reports.
namespace Refused {
inline constexpr int kSyntax = 102;
inline constexpr int kUnclosedQuote = 105;
inline constexpr int kFewerValues = 109;
inline constexpr int kMoreValues = 110;
inline constexpr int kOneExpressionOnly = 116;
inline constexpr int kSelectListShort = 120;
inline constexpr int kSelectListLong = 121;
inline constexpr int kAlreadyDeclared = 134;
inline constexpr int kUndeclared = 137;
inline constexpr int kMixedAssignment = 141;
inline constexpr int kDistinctOrder = 145;
inline constexpr int kAggregateInWhere = 147;
inline constexpr int kKeyword = 156;
inline constexpr int kArgumentCount = 174;
inline constexpr int kTooDeep = 191;
inline constexpr int kUnknownFunction = 195;
inline constexpr int kUnionCount = 205;
inline constexpr int kUnknownColumn = 207;
inline constexpr int kUnknownTable = 208;
inline constexpr int kAmbiguous = 209;
inline constexpr int kValueCount = 213;
inline constexpr int kSmallOverflow = 220;
inline constexpr int kFloatOverflow = 232;
inline constexpr int kNoMoney = 235;
inline constexpr int kNoMoment = 241;
inline constexpr int kMomentRange = 242;
inline constexpr int kTextOverflowsSmall = 244;
inline constexpr int kNoNumber = 245;
inline constexpr int kTextOverflowsInt = 248;
inline constexpr int kColumnTwice = 264;
inline constexpr int kPosition = 108;
inline constexpr int kIncompatible = 402;
inline constexpr int kManyRows = 512;
inline constexpr int kNull = 515;
inline constexpr int kMomentOverflow = 517;
inline constexpr int kConflict = 547;
inline constexpr int kNestedAggregate = 130;
inline constexpr int kTooLongName = 103;
inline constexpr int kOutOfMemory = 701;
inline constexpr int kReadFailed = 823;
inline constexpr int kDamaged = 824;
inline constexpr int kTwiceInFrom = 1013;
inline constexpr int kFull = 1105;
inline constexpr int kTooBig = 7119;
inline constexpr int kLockTimeout = 1222;
inline constexpr int kNoKeyThere = 1776;
inline constexpr int kUnknownKeyColumn = 1911;
inline constexpr int kIndexExists = 1913;
inline constexpr int kDuplicateInIndex = 2601;
inline constexpr int kDuplicateKey = 2627;
inline constexpr int kColumnNameTwice = 2705;
inline constexpr int kExists = 2714;
inline constexpr int kUnknownType = 2715;
inline constexpr int kCannotDrop = 3701;
inline constexpr int kReferenced = 3726;
inline constexpr int kCommitWithout = 3902;
inline constexpr int kRollbackWithout = 3903;
inline constexpr int kReadOnly = 3906;
inline constexpr int kUnbound = 4104;
inline constexpr int kNoCondition = 4145;
inline constexpr int kAlterNeedsDefault = 4901;
inline constexpr int kAlterUnknown = 4902;
inline constexpr int kNullableKey = 8111;
inline constexpr int kTwoPrimaryKeys = 8110;
inline constexpr int kNoFloat = 8114;
inline constexpr int kOverflow = 8115;
inline constexpr int kOperandType = 8117;
inline constexpr int kArgumentType = 8116;
inline constexpr int kNotGrouped = 8120;
inline constexpr int kHavingNotGrouped = 8121;
inline constexpr int kDivisionByZero = 8134;
inline constexpr int kTruncated = 8152;
inline constexpr int kColumnNameNeeded = 8155;
/// What the embedded database does not cover.
inline constexpr int kNotCovered = 40000;
/// What SQLite reports and the server has no number for.
inline constexpr int kStorage = 40001;
/// The session is not open.
inline constexpr int kNotOpen = 40002;
/// A connection text or a file that cannot be used.
inline constexpr int kCannotOpen = 40003;
}  // namespace Refused

[[noreturn]] inline void Refuse(int number, std::string text, std::size_t place = kNoPlace) {
    throw Refusal(number, std::move(text), place);
}

/// A thing of the language that the embedded database does not do.
[[noreturn]] inline void RefuseNotCovered(std::string_view what, std::size_t place = kNoPlace) {
    throw Refusal(Refused::kNotCovered, std::string(what) + " is not covered by the embedded database.", place);
}

/// True where the server ends the whole text after this failure, false where it goes on with the next statement.
bool StopsText(int number);

/// True where the server also takes back the open transaction.
bool EndsTransaction(int number);

}  // namespace LumoConnection::Embedded
