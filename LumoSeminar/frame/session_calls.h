#pragma once

#include <LumoSeminar/frame/data_session.h>

/// What the classes do with a session again and again. Not for front ends.
namespace LumoSeminar {

/// Whether the session's connection is open; one that is closed is opened again first.
[[nodiscard]] Bool ConnectionIsOpen(const Ref<DataSession>& session);

/// Runs a statement without rows and returns true. A refused one raises 9999 with the LastErrorText.
Bool ExecuteOrRaise(const Ref<DataSession>& session, const Text& sql);

/// Runs a statement and returns its rows. A refused one raises 9999 with the LastErrorText.
Ref<RecordSet> SelectOrRaise(const Ref<DataSession>& session, const Text& sql);

/// The largest key of a table plus one; 1 where there is none. One lookup. Raises overflow (6) behind the largest
/// Int32.
Int32 NextKey(const Ref<DataSession>& session, const Text& expression, const Text& table, const Text& where = {});

}  // namespace LumoSeminar
