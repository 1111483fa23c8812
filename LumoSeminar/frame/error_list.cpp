#include <LumoSeminar/frame/error_list.h>

#include <utility>

namespace LumoSeminar {

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
