#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// What the checks of an enrolment find, as numbers of clsErrorMsg::ErrID.
namespace FindingNumber {
/// The person is on this date already.
inline constexpr Int32 kAlreadyEnrolled = 300000001;
/// The person is busy on another date.
inline constexpr Int32 kOverlap = 300000002;
/// The person is on an open date of the seminar.
inline constexpr Int32 kOpenDateOfSeminar = 300000003;
/// The person has taken the seminar.
inline constexpr Int32 kTakenBefore = 300000004;
inline constexpr Int32 kPrerequisiteMissing = 300000005;
}  // namespace FindingNumber

enum class Language { kEnglish, kGerman };

/// What a finding says, in one sentence without a full stop: the ParamName of the finding may follow. "Finding 7" for a
/// number that is none of them.
Text FindingText(Int32 id, Language language = Language::kEnglish);

/// One finding of a check. A finding is no error: nothing is raised for it.
class clsErrorMsg final : public Object {
  public:
    /// Number of the finding: one of FindingNumber, in words by FindingText.
    Int32 ErrID() { return error_id_; }
    void ErrID(Int32 value) { error_id_ = value; }
    DateTime ParamDate() { return date_; }
    void ParamDate(DateTime value) { date_ = value; }
    Text ParamName() { return name_; }
    void ParamName(Text value) { name_ = std::move(value); }
    /// Further information. colErrorMsg::Add leaves it empty.
    Text errZusatzInfo() { return more_; }
    void errZusatzInfo(Text value) { more_ = std::move(value); }

  private:
    Int32 error_id_ = 0;
    DateTime date_;
    Text name_;
    Text more_;
};

/// The findings of a run of checks, in the order in which they were added. Costs no statement.
class colErrorMsg final : public Object {
  public:
    Ref<clsErrorMsg> Add(Int32 p_lngErrID, Text p_strParamName = {}, DateTime p_dtmParamDate = {});

    /// By position from 1. Raises position out of range (9); entries have no key, so that a text raises 5.
    Ref<clsErrorMsg> Item(const Variant& vntIndexKey);
    Int32 Count();
    void Remove(const Variant& vntIndexKey);
    Enumerator<clsErrorMsg> NewEnum();

  private:
    Ref<Collection<clsErrorMsg>> p_colItems = New<Collection<clsErrorMsg>>();
};

}  // namespace LumoSeminar
