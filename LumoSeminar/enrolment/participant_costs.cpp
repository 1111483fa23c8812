#include <LumoSeminar/enrolment/participant_costs.h>

#include <LumoSeminar/enrolment/cost_type.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

using Row = TeilnehmerKostenRow;

constexpr Column<Row> kColumns[] = {
    {"TeilnehmerID", &Row::TeilnehmerID}, {"KostenID", &Row::KostenID}, {"KostenArtID", &Row::KostenArtID},
    {"Kostenbetrag", &Row::Kostenbetrag}, {"Kost", &Row::Kost},
};

constexpr Statement kSelect(kColumns,
                            "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT "
                            "where TeilnehmerID = {TeilnehmerID} AND KostenID = {KostenID}");

constexpr Sql<Int32> kSelectList =
    "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT "
    "Where TeilnehmerID = {TeilnehmerID}";

constexpr Statement kUpdate(kColumns,
                            " UPDATE Sem_Teilnehmer_Kosten_IT  SET Kost  = {Kost}, KostenArtID = {KostenArtID or NULL}, "
                            "Kostenbetrag = {Kostenbetrag or NULL} WHERE TeilnehmerID = {TeilnehmerID} AND KostenID = {KostenID}");

constexpr Sql<Int32, Int32, Int32, Single, Int32> kInsert =
    " INSERT INTO Sem_Teilnehmer_kosten_IT (TeilnehmerID, KostenID,KostenArtID,Kostenbetrag, Kost)   "
    "Values ({TeilnehmerID},{KostenID},{KostenArtID},{Kostenbetrag or NULL},{Kost})";

constexpr Statement kDelete(kColumns,
                            "Delete Sem_Teilnehmer_kosten_IT WHERE TeilnehmerID = {TeilnehmerID} AND KostenID = {KostenID}");

constexpr Sql<Int32> kOfParticipant = "TeilnehmerID ={TeilnehmerID}";

}  // namespace

clsTeilnehmerKosten::~clsTeilnehmerKosten() = default;

Variant clsTeilnehmerKosten::Init(Int32 p_lngTeilnehmerID, Int32 p_lngKostenID, const Ref<DataSession>& p_objData) try {
    row_.TeilnehmerID = p_lngTeilnehmerID;
    row_.KostenID = p_lngKostenID;
    session_ = p_objData;
    return {};
} catch (...) {
    RaiseInLine(" in LumoSeminar.Init");
}

Bool clsTeilnehmerKosten::IsInitialized() try {
    if (!p_blnInitialized) {
        const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(row_));
        InitPropertiesByRecordset(rows);
        rows->Close();
    }
    return p_blnInitialized;
} catch (...) {
    RaiseInLine(" in LumoSeminar.IsInitialized");
}

void clsTeilnehmerKosten::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) {
    if (!p_objRecordset->Eof()) LoadRow<Row>(row_, p_objRecordset, kColumns);
    p_blnInitialized = true;
}

Bool clsTeilnehmerKosten::WriteToDatabase() try {
    if (row_.KostenID != 0) {
        Update();
    } else {
        Insert();
    }
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.WriteToDatabase");
}

void clsTeilnehmerKosten::Update() {
    // The cost centre alone is read through its get: an update loads, an insert does not.
    row_.Kost = Kost();
    ExecuteOrRaise(session_, kUpdate(row_));
}

void clsTeilnehmerKosten::Insert() {
    const Int32 default_cost_type = DefaultCostType(session_);
    const Int32 cost_type = row_.KostenArtID != 0 ? row_.KostenArtID : default_cost_type;
    const Int32 key = NextKey(session_, "max(KostenID)", "Sem_Teilnehmer_Kosten_IT", kOfParticipant(row_.TeilnehmerID));
    ExecuteOrRaise(session_, kInsert(row_.TeilnehmerID, key, cost_type, row_.Kostenbetrag, row_.Kost));
    row_.KostenID = key;
}

Bool clsTeilnehmerKosten::DeleteFromDatabase() try { return ExecuteOrRaise(session_, kDelete(row_)); } catch (...) {
    RaiseInLine(" in LumoSeminar.DeleteFromDatabase");
}

// clang-format off
Int32 clsTeilnehmerKosten::TeilnehmerID() { return row_.TeilnehmerID; }
void clsTeilnehmerKosten::TeilnehmerID(Int32 value) { row_.TeilnehmerID = value; }
Int32 clsTeilnehmerKosten::KostenID() { return row_.KostenID; }
void clsTeilnehmerKosten::KostenID(Int32 value) { row_.KostenID = value; }
Int32 clsTeilnehmerKosten::KostenArtID() { return IsInitialized() ? row_.KostenArtID : 0; }
void clsTeilnehmerKosten::KostenArtID(Int32 value) { if (IsInitialized()) row_.KostenArtID = value; }
Single clsTeilnehmerKosten::Kostenbetrag() { return IsInitialized() ? row_.Kostenbetrag : 0; }
void clsTeilnehmerKosten::Kostenbetrag(Single value) { if (IsInitialized()) row_.Kostenbetrag = value; }
Int32 clsTeilnehmerKosten::Kost() { return IsInitialized() ? row_.Kost : 0; }
void clsTeilnehmerKosten::Kost(Int32 value) { if (IsInitialized()) row_.Kost = value; }
// clang-format on

colTeilnehmerKosten::~colTeilnehmerKosten() = default;

Ref<clsTeilnehmerKosten> colTeilnehmerKosten::Add(Int32 p_lngKostenID) {
    auto line = New<clsTeilnehmerKosten>();
    line->Init(p_lngTeilnehmerID_, p_lngKostenID, session_);
    p_colItems->Add(line, DefaultText(line->KostenID()));
    return line;
}

Ref<clsTeilnehmerKosten> colTeilnehmerKosten::Item(const Variant& vntIndexKey) try {
    return p_colItems->ItemOrNothing(vntIndexKey);
} catch (...) {
    RaiseInLine(" in LumoSeminar.Item");
}

Int32 colTeilnehmerKosten::Count() { return p_colItems->Count(); }

void colTeilnehmerKosten::Remove(const Variant& vntIndexKey) { p_colItems->Remove(vntIndexKey); }

Enumerator<clsTeilnehmerKosten> colTeilnehmerKosten::NewEnum() { return Enumerator(p_colItems); }

Variant colTeilnehmerKosten::Init(Int32 p_lngTeilnehmerID, const Ref<DataSession>& p_objData) try {
    session_ = p_objData;
    p_lngTeilnehmerID_ = p_lngTeilnehmerID;
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseInLine(" in LumoSeminar.Init");
}

Bool colTeilnehmerKosten::LoadKeysFromDatabase() try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelectList(p_lngTeilnehmerID_));
    for (; !rows->Eof(); rows->MoveNext()) {
        auto line = New<clsTeilnehmerKosten>();
        const auto participant = common::FieldOr(rows->Fields().Item(0), Int32{0});
        line->Init(participant, common::FieldOr(rows->Fields().Item(1), Int32{0}), session_);
        line->InitPropertiesByRecordset(rows);
        p_colItems->Add(line, DefaultText(line->KostenID()));
    }
    rows->Close();
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.LoadKeysFromDataBase");
}

}  // namespace LumoSeminar
