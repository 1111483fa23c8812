#pragma once

/// The numbers that sessions report of themselves (LastErrorNumber): the server's, but for the last ones.
namespace LumoConnection::Refused {
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
/// What a storage or a driver reports and the server has no number for.
inline constexpr int kStorage = 40001;
/// The session is not open.
inline constexpr int kNotOpen = 40002;
/// A connection text or a file that cannot be used.
inline constexpr int kCannotOpen = 40003;
}  // namespace LumoConnection::Refused
