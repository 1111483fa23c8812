#pragma once

#include <span>
#include <string_view>

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/types.h>

#include <LumoConnection/odbc/handle.h>

namespace LumoConnection::Odbc {

using namespace LumoSeminar;

/// To the nearest millisecond. Raises type mismatch (13) for a moment that does not exist, overflow (6) for a year that
/// DateTime does not hold.
DateTime MomentOf(const SQL_TIMESTAMP_STRUCT& moment);
/// The same of the time alone, on day 0.
DateTime TimeOfDayOf(const SQL_TIMESTAMP_STRUCT& moment);

/// Exact. Reads "-12.5", ".5000", "12"; a "$" in front and "," between thousands are skipped. Raises type mismatch (13)
/// for anything else and for more than four decimals, overflow (6).
Money ReadMoney(std::string_view text);

/// The nearest double. Raises type mismatch (13), overflow (6).
Double ReadDecimal(std::string_view text);

/// "0x00FF".
Text HexText(std::span<const unsigned char> bytes);

}  // namespace LumoConnection::Odbc
