#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// One finding of a check. A finding is no error: nothing is raised for it.
class clsErrorMsg final : public Object {
  public:
    /// Number of the finding, 300000001 to 300000005.
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
