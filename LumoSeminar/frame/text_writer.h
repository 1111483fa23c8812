#pragma once

#include <cstddef>

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/types.h>

/// The text forms of values, written into a buffer with room for them. Each gives the end of what it wrote. Not for
/// front ends.
namespace LumoSeminar::text_writer {

/// No form is longer.
inline constexpr std::size_t kMostCharacters = 24;
inline constexpr std::size_t kMostOfInt32 = 11;

char* WriteNumber(char* to, Int32 value);

// Default text forms.
char* WriteDefault(char* to, Double value);
char* WriteDefault(char* to, Single value);
char* WriteDefault(char* to, Money value);
char* WriteDefault(char* to, DateTime value);

/// "dd.mm.yyyy"
char* WriteDate(char* to, DateTime value);
/// "hh:nn"
char* WriteClock(char* to, DateTime value);
/// "dd.mm.yyyy hh:nn:ss"
char* WriteMoment(char* to, DateTime value);
/// "yyyymmdd"
char* WriteCompactDate(char* to, DateTime value);

}  // namespace LumoSeminar::text_writer
