#include <LumoSeminar/needs/clsANWBBedarf.h>

#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/process_objects.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Int32> kSelect =
    "Select WBID,MDNr,ANNr,WBS,erfDat,  erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen  from AN_WBBedarf_IT "
    "WHERE WBID = {WBID}";

// {Status} is StoredStatus of the need here and below.
constexpr Sql<DateTime, DateTime, Int32, Text, Int32, Int32> kUpdate =
    "Update AN_WBBedarf_IT Set Erford = {erford:'dd.mm.yyyy' or Null}, Erfuellt = {Erfuellt:'dd.mm.yyyy' or Null}, "
    "BedarfErfuellt = {Status}, Bemerkungen = {Bemerkungen:'text' or Null}, WBS = {WBS} WHERE WBID = {WBID}";

constexpr Sql<Int32, Int32, Int32, Int32, DateTime, DateTime, DateTime, Text, Int32, Text> kInsert =
    "Insert Into AN_WBBedarf_IT (WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen) values "
    "({WBID},{MDNr},{ANNr},{WBS},'{erfDat:dd.mm.yyyy}',{erford:'dd.mm.yyyy' or Null},{Erfuellt:'dd.mm.yyyy' or Null},"
    "'{erfUser}',{Status},{Bemerkungen:'text' or Null})";

constexpr Sql<Int32> kDelete = "Delete AN_WBBedarf_IT  WHERE WBID = {WBID}";

constexpr Byte kOpen = 0;
constexpr Byte kFulfilled = 1;
constexpr Byte kRejected = 2;
constexpr Int32 kProcessApproved = 2;
constexpr Int32 kProcessRejected = 3;
constexpr Int16 kFromNeed = 1;

Int32 StoredStatus(Byte status) { return status == kFulfilled ? -1 : status; }

}  // namespace

clsANWBBedarf::~clsANWBBedarf() = default;

Text clsANWBBedarf::Key() { return DefaultText(row_.WBID); }

Bool clsANWBBedarf::Init(Int32 p_lngWBID, const Ref<DataSession>& p_objData) {
    row_.WBID = p_lngWBID;
    session_ = p_objData;
    return false;
}

Bool clsANWBBedarf::IsInitialized() try {
    if (p_blnInitialized) return true;
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(row_.WBID));
    if (!rows->Eof()) {
        using common::FieldOr;
        const Fields fields = rows->Fields();
        row_.WBID = FieldOr(fields.Item(0), Int32{0});
        row_.MDNr = FieldOr(fields.Item(1), Int32{0});
        row_.ANNr = FieldOr(fields.Item(2), Int32{0});
        row_.WBS = FieldOr(fields.Item(3), Int32{0});
        row_.erfDat = FieldOr(fields.Item(4), DateTime());
        row_.erford = FieldOr(fields.Item(5), DateTime());
        row_.Erfuellt = FieldOr(fields.Item(6), DateTime());
        row_.erfUser = FieldOr(fields.Item(7), Text());
        row_.BedarfErfuellt = AbsoluteByte(fields.Item(8));
        row_.Bemerkungen = FieldOr(fields.Item(9), Text());
    }
    p_blnInitialized = true;
    rows->Close();
    return p_blnInitialized;
} catch (...) {
    RaiseInLine(" in LumoSeminar.IsInitialized");
}

void clsANWBBedarf::SetIsInitialized(Int16 value) { p_blnInitialized = value != 0; }

Bool clsANWBBedarf::WriteToDatabase(Int32 p_lngUserID) try {
    const bool is_new = row_.WBID == 0;
    ExecuteOrRaise(session_, is_new ? InsertText() : UpdateText());
    if (is_new) SetBedarfStatus(row_.BedarfErfuellt, p_lngUserID);
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.WriteToDatabase");
}

// WBS alone is read through its get, as the last value: what that load brings comes too late for those before it.
Text clsANWBBedarf::UpdateText() {
    const BedarfRow before = row_;
    const Int32 focus_area = WBS();
    return kUpdate(before.erford, before.Erfuellt, StoredStatus(before.BedarfErfuellt), before.Bemerkungen, focus_area,
                   row_.WBID);
}

Text clsANWBBedarf::InsertText() {
    row_.WBID = NextKey(session_, "max(WBID)", "AN_WBBedarf_IT");
    row_.erfDat = Now();
    row_.erfUser = DatabaseLogin(session_);
    return kInsert(row_.WBID, row_.MDNr, row_.ANNr, row_.WBS, row_.erfDat, row_.erford, row_.Erfuellt, row_.erfUser,
                   StoredStatus(row_.BedarfErfuellt), row_.Bemerkungen);
}

Bool clsANWBBedarf::DeleteFromDatabase() try {
    ExecuteOrRaise(session_, kDelete(row_.WBID));
    Dispatcher()->Loeschen();
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.DeleteFromDatabase");
}

Ref<InfoDispatcher> clsANWBBedarf::Dispatcher() {
    const Int32 key = WBID();
    const Int32 client = MDNR();
    const Int32 employee = ANNr();
    return common::GetInfoDispatcher(ProcessModule::kTrainingNeed, key, client, employee);
}

Variant clsANWBBedarf::TeilnahmeZustimmen(Int32 p_lngSemTerminID, Int32 p_lngUserID) try {
    const Ref<InfoDispatcher> process = Dispatcher();
    process->Zustimmen(p_lngUserID, "");
    if (process->ProzessStatus() != kProcessApproved) return {};
    if (EntryForDate(session_, row_.MDNr, row_.ANNr, p_lngSemTerminID)) return {};
    const auto entry = New<clsSemWarteliste>();
    entry->Init(0, session_);
    FillEntry(entry, row_.MDNr, row_.ANNr, kFromNeed, p_lngSemTerminID);
    return entry->WriteToDatabase(p_lngUserID) ? Variant(true) : Variant();
} catch (...) {
    RaiseInLine(" in LumoSeminar.BedarfZustimmen");
}

Bool clsANWBBedarf::BedarfAblehnen(Int32 p_lngUserID) {
    const Ref<InfoDispatcher> process = Dispatcher();
    process->Ablehnen(p_lngUserID, "");
    if (process->ProzessStatus() == kProcessRejected) SetBedarfStatus(kRejected, p_lngUserID);
    return false;
}

Bool clsANWBBedarf::SetBedarfStatus(Byte status, Int32 p_lngUserID) {
    BedarfErfuellt(status);
    if (status > kFulfilled) Erfuellt(Now());
    if (status == kOpen) StartProcess(ProcessModule::kTrainingNeed, WBID(), p_lngUserID);
    return WriteToDatabase(p_lngUserID);
}

Bool clsANWBBedarf::BenutzerHatGenehmigungsrechte(Int32 p_lngUserID) {
    return Dispatcher()->BenutzerHatRechte(p_lngUserID);
}

Text clsANWBBedarf::StatusText() { return Dispatcher()->ProzessStatusText(); }

Text clsANWBBedarf::ConnectionString() { return common::State().g_strConnectionString; }
void clsANWBBedarf::ConnectionString(Text value) { common::State().g_strConnectionString = std::move(value); }

// clang-format off
Int32 clsANWBBedarf::WBID() { return row_.WBID; }
void clsANWBBedarf::WBID(Int32 value) { row_.WBID = value; }
Int32 clsANWBBedarf::MDNR() { return IsInitialized() ? row_.MDNr : 0; }
void clsANWBBedarf::MDNR(Int32 value) { if (IsInitialized()) row_.MDNr = value; }
Int32 clsANWBBedarf::ANNr() { return IsInitialized() ? row_.ANNr : 0; }
void clsANWBBedarf::ANNr(Int32 value) { if (IsInitialized()) row_.ANNr = value; }
Int32 clsANWBBedarf::WBS() { return IsInitialized() ? row_.WBS : 0; }
void clsANWBBedarf::WBS(Int32 value) { if (IsInitialized()) row_.WBS = value; }
DateTime clsANWBBedarf::ErfDat() { return IsInitialized() ? row_.erfDat : DateTime(); }
void clsANWBBedarf::ErfDat(DateTime value) { if (IsInitialized()) row_.erfDat = value; }
DateTime clsANWBBedarf::Erford() { return IsInitialized() ? row_.erford : DateTime(); }
void clsANWBBedarf::Erford(DateTime value) { if (IsInitialized()) row_.erford = value; }
DateTime clsANWBBedarf::Erfuellt() { return IsInitialized() ? row_.Erfuellt : DateTime(); }
void clsANWBBedarf::Erfuellt(DateTime value) { if (IsInitialized()) row_.Erfuellt = value; }
Text clsANWBBedarf::ErfUser() { return IsInitialized() ? row_.erfUser : Text(); }
void clsANWBBedarf::ErfUser(Text value) { if (IsInitialized()) row_.erfUser = std::move(value); }
Byte clsANWBBedarf::BedarfErfuellt() { return IsInitialized() ? row_.BedarfErfuellt : Byte{0}; }
void clsANWBBedarf::BedarfErfuellt(Byte value) { if (IsInitialized()) row_.BedarfErfuellt = value; }
Text clsANWBBedarf::Bemerkungen() { return IsInitialized() ? row_.Bemerkungen : Text(); }
void clsANWBBedarf::Bemerkungen(Text value) { if (IsInitialized()) row_.Bemerkungen = std::move(value); }
Bool clsANWBBedarf::DoSendInfos() { return DoSendInfos_; }
void clsANWBBedarf::DoSendInfos(Bool value) { DoSendInfos_ = value; }
// clang-format on

}  // namespace LumoSeminar
