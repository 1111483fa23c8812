#include "frontend/output/sheet.h"

namespace frontend {

using namespace LumoSeminar;

Sheet ReadRows(const Ref<RecordSet>& rows) {
    Sheet sheet;
    const Fields fields = rows->Fields();
    const Int16 count = fields.Count();
    for (Int16 i = 0; i < count; ++i) sheet.columns.push_back(fields.Name(i));
    for (; !rows->Eof(); rows->MoveNext()) {
        auto& row = sheet.rows.emplace_back();
        row.reserve(sheet.columns.size());
        for (Int16 i = 0; i < count; ++i) row.push_back(fields.Item(i).Value());
    }
    return sheet;
}

}  // namespace frontend
