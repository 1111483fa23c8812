#pragma once

#include <string_view>

#include <LumoSeminar/frame/types.h>

/// The kinds of person, by number and by letters. Not for front ends.
namespace LumoSeminar::PersonKind {

inline constexpr Byte kEmployeeID = 2;
inline constexpr Byte kApplicantID = 3;
inline constexpr Byte kWorkerID = 4;

inline constexpr std::string_view kEmployee = "AN";
inline constexpr std::string_view kApplicant = "BW";
inline constexpr std::string_view kWorker = "LA";

}  // namespace LumoSeminar::PersonKind
