#include <LumoSeminar/frame/common.h>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar::common {
namespace {

// Field of the one row of a settings table; Empty where the select was refused. A table without rows raises.
Variant ReadSetting(const Ref<DataSession>& session, const Text& sql, std::string_view field) {
    if (!session->OpenSelect(sql)) return {};
    const Ref<RecordSet> rows = session->Recordset();
    return rows->Fields().Item(field).Value();
}

}  // namespace

ModuleState& State() {
    thread_local ModuleState state;
    return state;
}

SessionDefaults& Defaults() {
    auto& defaults = State().g_objSessionDefaults;
    if (!defaults) defaults = MakeSessionDefaults();
    return *defaults;
}

Int32 GetActMD(const Ref<DataSession>& session) try {
    return To<Int32>(ReadSetting(session, "Select * From OpactMD", "MDNR"));
} catch (...) {
    RaiseLabelled("LumoSeminar.common.GetActMD");
}

Bool IsMDabhKonst(const Ref<DataSession>& session) try {
    return To<Bool>(ReadSetting(session, "select Wert from optionen_database_dt where OptionID=30", "Wert"));
} catch (...) {
    RaiseLabelled("LumoSeminar.common.IsMDabhKonst");
}

Variant Nz(const Variant& value, const Variant& replacement) { return value.IsNull() ? replacement : value; }

Variant Nz(const Field& field, const Variant& replacement) { return Nz(ValueOf(field), replacement); }

Variant ValueOf(const Field& field) try { return field.Value(); } catch (...) {
    RaiseLabelled("LumoSeminar.common.Nz");
}

Bool OpenADOConnection(const Ref<Connection>& connection) try {
    if (!connection) return false;
    if (connection->State() == Connection::kOpen) return true;
    connection->Open();
    return connection->State() == Connection::kOpen;
} catch (...) {
    RaiseLabelled("LumoSeminar.common.OpenADOConnection");
}

Text FormatDatum(DateTime date) { return DateText(date); }

Text FormatDatumZeit(DateTime moment) { return MomentText(moment); }

Ref<InfoDispatcher> GetInfoDispatcher(Int32 module_number, Int32 key, Int32 client, Int32 person) {
    auto& cached = State().g_objInfoDispatcher;
    if (cached) {
        const Int32 cached_module = cached->ModulNr();
        const Int32 cached_key = cached->SchluesselID();
        if (cached_module == module_number && cached_key == key) return cached;
    }
    cached = MakeInfoDispatcher();
    ConnectProcessObject(*cached);
    cached->Initialisieren(module_number, key, client, person);
    return cached;
}

}  // namespace LumoSeminar::common
