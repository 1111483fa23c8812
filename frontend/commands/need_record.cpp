#include "frontend/commands/need_record.h"

#include <fmt/format.h>

#include <string>

#include "frontend/commands/columns.h"

namespace frontend {

using namespace LumoSeminar;

Variant LookUpArea(Context& context, const char* column, Int32 area) {
    return context.Session()->LookupValue(column, "sysIData_WBS", fmt::format("WBS_ID = {}", area));
}

Text StateOf(clsANWBBedarf& need) {
    switch (const Byte state = need.BedarfErfuellt()) {
        case 0:
            return "open";
        case 1:
            return "fulfilled";
        case 2:
            return "rejected";
        default:
            return std::to_string(state);
    }
}

Sheet NeedHead() {
    return {{"WBID", "MDNr", "ANNr", "WBS", "Schwerpunkt", "erfDat", "erford", "Erfuellt", "erfUser", "State",
             "Bemerkungen", "Process"},
            {}};
}

void AddNeedRow(Context& context, Sheet& sheet, clsANWBBedarf& need) {
    const Variant area = LookUpArea(context, "Weiterbildungsschwerpunkt", need.WBS());
    sheet.rows.push_back({need.WBID(), need.MDNR(), need.ANNr(), need.WBS(), area, ShownAs(Form::kDay, need.ErfDat()),
                          ShownAs(Form::kDay, need.Erford()), ShownAs(Form::kDay, need.Erfuellt()), need.ErfUser(),
                          StateOf(need), need.Bemerkungen(), need.StatusText()});
}

}  // namespace frontend
