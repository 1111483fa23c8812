#include <LumoConnection/script/rows.h>

#include <algorithm>

#include <LumoConnection/ascii.h>
#include <LumoConnection/script/script_session.h>

namespace LumoConnection {

RowTable& RowTable::Row(ValueRow values) {
    if (values.size() != columns_.size()) {
        Raise(ScriptError::kBadScript, "A row has " + std::to_string(values.size()) + " values for " +
                                           std::to_string(columns_.size()) + " columns.");
    }
    rows_.push_back(std::move(values));
    return *this;
}

RowTable& RowTable::With(const std::vector<std::pair<std::string_view, Variant>>& values) {
    ValueRow row(columns_.size(), Variant::Null());
    for (const auto& [name, value] : values) {
        const auto found = std::ranges::find_if(
            columns_, [&name = name](const std::string& column) { return SameWithoutCase(column, name); });
        if (found == columns_.end())
            Raise(ScriptError::kBadScript, "There is no column " + OneLine(name) + " among those of the row.");
        row[static_cast<std::size_t>(found - columns_.begin())] = value;
    }
    return Row(std::move(row));
}

ValueRows ReadRows(RecordSet& rows) {
    ValueRows all;
    const Int16 count = rows.Fields().Count();
    for (; !rows.Eof(); rows.MoveNext()) {
        ValueRow& row = all.emplace_back();
        for (Int16 i = 0; i < count; ++i) row.push_back(rows.Fields().Item(i).Value());
    }
    return all;
}

ValueRows SelectRows(DataSession& session, const Text& sql) {
    if (!session.OpenSelect(sql)) RaiseRefused(session.LastErrorText());
    const Ref<RecordSet> rows = session.Recordset();
    ValueRows all = ReadRows(*rows);
    rows->Close();
    return all;
}

Variant SelectValue(DataSession& session, const Text& sql) {
    const ValueRows rows = SelectRows(session, sql);
    return rows.empty() || rows[0].empty() ? Variant() : rows[0][0];
}

void ExecuteOrRaise(DataSession& session, const Text& sql) {
    if (!session.ExecuteSql(sql)) RaiseRefused(session.LastErrorText());
}

}  // namespace LumoConnection
