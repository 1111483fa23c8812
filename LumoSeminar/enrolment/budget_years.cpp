#include <LumoSeminar/enrolment/budget_years.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

using Row = SemBudgetJahrRow;

constexpr Column<Row> kColumns[] = {
    {"JahrID", &Row::JahrID},
    {"Von", &Row::Von},
    {"Bis", &Row::Bis},
};

constexpr Statement kSelect(kColumns, "Select JahrID,Von,Bis from Sem_BudgetJahr_IT where JahrID = {JahrID}");

}  // namespace

clsSemBudgetJahr::~clsSemBudgetJahr() = default;

Variant clsSemBudgetJahr::Init(Int32 p_lngJahrID, const Ref<DataSession>& p_objData) {
    row_.JahrID = p_lngJahrID;
    session_ = p_objData;
    return {};
}

Bool clsSemBudgetJahr::IsInitialized() try {
    if (!p_blnInitialized) {
        const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(row_));
        InitPropertiesByRecordset(rows);
        rows->Close();
    }
    return p_blnInitialized;
} catch (...) {
    RaiseInLine(" in LumoSeminar.IsInitialized");
}

void clsSemBudgetJahr::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) {
    if (!p_objRecordset->Eof()) LoadRow<Row>(row_, p_objRecordset, kColumns);
    p_blnInitialized = true;
}

// clang-format off
Int32 clsSemBudgetJahr::JahrID() { return row_.JahrID; }
void clsSemBudgetJahr::JahrID(Int32 value) { row_.JahrID = value; }
DateTime clsSemBudgetJahr::Von() { return IsInitialized() ? row_.Von : DateTime(); }
void clsSemBudgetJahr::Von(DateTime value) { if (IsInitialized()) row_.Von = value; }
DateTime clsSemBudgetJahr::Bis() { return IsInitialized() ? row_.Bis : DateTime(); }
void clsSemBudgetJahr::Bis(DateTime value) { if (IsInitialized()) row_.Bis = value; }
// clang-format on

colSemBudgetJahre::~colSemBudgetJahre() = default;

Ref<clsSemBudgetJahr> colSemBudgetJahre::GetBudgetJahr(DateTime p_dtmDatum) {
    for (const auto& year : *p_colItems) {
        if (year->Von() <= p_dtmDatum && p_dtmDatum <= year->Bis()) return year;
    }
    return nullptr;
}

Ref<clsSemBudgetJahr> colSemBudgetJahre::Add(Int32 p_lngJahrID) {
    auto year = New<clsSemBudgetJahr>();
    year->Init(p_lngJahrID, session_);
    return year;
}

Ref<clsSemBudgetJahr> colSemBudgetJahre::Item(const Variant& vntIndexKey) try {
    return p_colItems->ItemOrNothing(vntIndexKey);
} catch (...) {
    RaiseInLine(" in LumoSeminar.Item");
}

Int32 colSemBudgetJahre::Count() { return p_colItems->Count(); }

void colSemBudgetJahre::Remove(const Variant& vntIndexKey) { p_colItems->Remove(vntIndexKey); }

Enumerator<clsSemBudgetJahr> colSemBudgetJahre::NewEnum() { return Enumerator(p_colItems); }

Variant colSemBudgetJahre::Init(const Ref<DataSession>& p_objData) try {
    session_ = p_objData;
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseInLine(" in LumoSeminar.Init");
}

// The result is false after a good load as well.
Bool colSemBudgetJahre::LoadKeysFromDatabase() try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, "Select JahrID,von,bis from Sem_BudgetJahr_IT Order by Von");
    for (; !rows->Eof(); rows->MoveNext()) {
        auto year = New<clsSemBudgetJahr>();
        year->Init(common::FieldOr(rows->Fields().Item(0), Int32{0}), session_);
        year->InitPropertiesByRecordset(rows);
        p_colItems->Add(year, DefaultText(year->JahrID()));
    }
    rows->Close();
    return false;
} catch (...) {
    RaiseInLine(" in LumoSeminar.LoadKeysFromDataBase");
}

}  // namespace LumoSeminar
