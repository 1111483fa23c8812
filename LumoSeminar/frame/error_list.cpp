#include <LumoSeminar/frame/error_list.h>

#include <utility>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

struct FindingWords {
    Int32 id;
    const char* english;
    const char* german;
};

constexpr FindingWords kFindingWords[] = {
    {FindingNumber::kAlreadyEnrolled, "The person is already enrolled in this date",
     "Die Person ist für diesen Termin schon angemeldet"},
    {FindingNumber::kOverlap, "The person is booked on another date at the same time",
     "Die Person ist zur selben Zeit in einem anderen Termin gebucht"},
    {FindingNumber::kOpenDateOfSeminar, "The person is enrolled in an open date of this seminar",
     "Die Person ist in einem offenen Termin dieses Seminars angemeldet"},
    {FindingNumber::kTakenBefore, "The person has taken this seminar before", "Die Person hat dieses Seminar schon besucht"},
    {FindingNumber::kPrerequisiteMissing, "A prerequisite of the seminar is missing", "Eine Voraussetzung des Seminars fehlt"},
};

}  // namespace

Text FindingText(Int32 id, Language language) {
    const bool german = language == Language::kGerman;
    for (const FindingWords& words : kFindingWords) {
        if (words.id == id) return german ? words.german : words.english;
    }
    return (german ? "Befund " : "Finding ") + DefaultText(id);
}

Ref<clsErrorMsg> colErrorMsg::Add(Int32 p_lngErrID, Text p_strParamName, DateTime p_dtmParamDate) {
    auto finding = New<clsErrorMsg>();
    finding->ParamName(std::move(p_strParamName));
    finding->ParamDate(p_dtmParamDate);
    finding->ErrID(p_lngErrID);
    p_colItems->Add(finding);
    return finding;
}

Ref<clsErrorMsg> colErrorMsg::Item(const Variant& vntIndexKey) { return p_colItems->Item(vntIndexKey); }

Int32 colErrorMsg::Count() { return p_colItems->Count(); }

void colErrorMsg::Remove(const Variant& vntIndexKey) { p_colItems->Remove(vntIndexKey); }

Enumerator<clsErrorMsg> colErrorMsg::NewEnum() { return Enumerator(p_colItems); }

}  // namespace LumoSeminar
