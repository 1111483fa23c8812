#pragma once

#include <utility>

#include <LumoSeminar/frame/components.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

/// Shared functions and module state of the library. Not for front ends.
namespace LumoSeminar::common {

/// Module state of the calling thread, empty at first. The library never clears it.
struct ModuleState {
    /// Connection text of the process objects.
    Text g_strConnectionString;
    Ref<InfoDispatcher> g_objInfoDispatcher;
    Ref<SessionDefaults> g_objSessionDefaults;
};
ModuleState& State();

/// The index at which the session defaults are asked.
inline constexpr Int32 kDefaultsIndex = 2;

/// The session defaults of the thread, created at the first use.
SessionDefaults& Defaults();

/// Gives a new process object its connection: the connection text where one is set, otherwise the two texts of the
/// session defaults.
template <class ProcessObject>
void ConnectProcessObject(ProcessObject& object) {
    const ModuleState& state = State();
    if (!state.g_strConnectionString.empty()) {
        object.ConnectionString(state.g_strConnectionString);
        return;
    }
    SessionDefaults& defaults = Defaults();
    const Text first = defaults.FirstText(kDefaultsIndex);
    const Text second = defaults.SecondText(kDefaultsIndex);
    object.Verbinden(kDefaultsIndex, first, second);
}

/// The active client. One statement; 0 where it is refused.
Int32 GetActMD(const Ref<DataSession>& session);

/// Whether the constants tables are kept per client. One statement; false where it is refused.
Bool IsMDabhKonst(const Ref<DataSession>& session);

/// The value, or the replacement where it is Null.
Variant Nz(const Variant& value, const Variant& replacement);
Variant Nz(const Field& field, const Variant& replacement);

/// The value of a field, read as Nz reads it: a failure carries the label of Nz.
Variant ValueOf(const Field& field);

/// The value of a field, or the replacement where it is Null, converted to its type. As Nz, in one step.
template <class T>
T FieldOr(const Field& field, T replacement) {
    Variant value = ValueOf(field);
    if (T* same = value.If<T>()) return std::move(*same);
    return value.IsNull() ? std::move(replacement) : To<T>(value);
}

/// Whether the connection is open; one that is closed is opened again first.
[[nodiscard]] Bool OpenADOConnection(const Ref<Connection>& connection);

/// "dd.mm.yyyy"
Text FormatDatum(DateTime date);
/// "dd.mm.yyyy hh:nn:ss"
Text FormatDatumZeit(DateTime moment);

/// The one dispatcher of the thread, bound to module and key. Another client or person alone does not bind it anew.
Ref<InfoDispatcher> GetInfoDispatcher(Int32 module_number, Int32 key, Int32 client, Int32 person);

}  // namespace LumoSeminar::common
