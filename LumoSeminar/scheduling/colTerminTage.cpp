#include <LumoSeminar/scheduling/colTerminTage.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Int32> kSelectKeys =
    "SELECT Termin  FROM Sem_Termin_Termine_IT  WHERE SemTerminID = {SemTerminID} Order By Termin";

}  // namespace

colTerminTage::~colTerminTage() = default;

Ref<clsTerminTag> colTerminTage::Add(const Ref<clsTerminTag>& p_objTempTerminTag) try {
    MakeAll();
    p_colItems->Add(p_objTempTerminTag, p_objTempTerminTag->Key());
    return p_objTempTerminTag;
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Add");
}

Bool colTerminTage::Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData) try {
    if (!p_objData) return false;
    MakeAll();
    session_ = p_objData;
    SemTerminID_ = p_lngSemTerminID;
    return LoadKeysFromDataBase();
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Init");
}

Bool colTerminTage::LoadKeysFromDataBase() try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelectKeys(SemTerminID_));
    listed_.clear();
    made_ = 0;
    listed_for_ = SemTerminID_;
    bool rising = p_colItems->Count() == 0;
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto day = common::FieldOr(rows->Fields().Item(0), DateTime());
        rising = rising && (listed_.empty() || listed_.back().Date() < day.Date());
        listed_.push_back(day);
        // A key that could be there twice is refused before the next row is read.
        if (!rising) MakeAll();
    }
    rows->Close();
    return true;
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.LoadKeysFromDataBase");
}

void colTerminTage::MakeNext() {
    auto day = New<clsTerminTag>(MadeBy<colTerminTage>());
    day->Init(listed_[made_++], listed_for_, session_);
    p_colItems->Add(day, day->Key());
}

void colTerminTage::MakeAll() {
    while (made_ < listed_.size()) MakeNext();
}

void colTerminTage::MakeUpTo(const Variant& vntIndexKey) {
    if (!vntIndexKey.Is<Text>()) return MakeAll();
    while (made_ < listed_.size() && !p_colItems->ItemOrNothing(vntIndexKey)) MakeNext();
}

Ref<clsTerminTag> colTerminTage::Item(const Variant& vntIndexKey) try {
    MakeUpTo(vntIndexKey);
    return p_colItems->ItemOrNothing(vntIndexKey);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Item");
}

Int32 colTerminTage::Count() try {
    return p_colItems->Count() + static_cast<Int32>(listed_.size() - made_);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Count");
}

void colTerminTage::Remove(const Variant& vntIndexKey) try {
    MakeUpTo(vntIndexKey);
    if (p_colItems->Item(vntIndexKey)->RemoveTerminTag()) p_colItems->Remove(vntIndexKey);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Remove");
}

Enumerator<clsTerminTag> colTerminTage::NewEnum() try {
    MakeAll();
    return Enumerator(p_colItems);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.NewEnum");
}

void colTerminTage::NewTerminTag(DateTime p_dtmTermin, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr) try {
    auto day = New<clsTerminTag>(MadeBy<colTerminTage>());
    if (!day->Init(p_dtmTermin, SemTerminID_, session_)) return;
    day->BegUhr(p_dtmBegUhr);
    day->EndUhr(p_dtmEndUhr);
    day->WriteToDatabase();
    Add(day);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.objNewTerminTag");
}

Int32 colTerminTage::SemTerminID() try { return SemTerminID_; } catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.SemTerminID");
}

void colTerminTage::SemTerminID(Int32 value) try { SemTerminID_ = value; } catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.SemTerminID");
}

DateTime colTerminTage::Termin() try { return Termin_; } catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Termin");
}

void colTerminTage::Termin(DateTime value) try { Termin_ = value; } catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.Termin");
}

}  // namespace LumoSeminar
