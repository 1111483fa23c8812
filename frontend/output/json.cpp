#include <nlohmann/json.hpp>

#include <set>

#include <fmt/format.h>

#include "frontend/output/sheet.h"
#include "frontend/output/value_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

Text JsonString(const Text& value) {
    return nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

struct JsonValue {
    Text operator()(std::monostate) const { return "null"; }
    Text operator()(Variant::NullValue) const { return "null"; }
    Text operator()(Bool value) const { return value ? "true" : "false"; }
    Text operator()(Byte value) const { return DefaultText(Int32{value}); }
    Text operator()(Int16 value) const { return DefaultText(Int32{value}); }
    Text operator()(Int32 value) const { return DefaultText(value); }
    Text operator()(Single value) const { return std::isfinite(value) ? ExactText(value) : "null"; }
    Text operator()(Double value) const { return std::isfinite(value) ? ExactText(value) : "null"; }
    Text operator()(Money value) const { return MoneyText(value); }
    Text operator()(DateTime value) const { return '"' + IsoText(value) + '"'; }
    Text operator()(const Text& value) const { return JsonString(value); }
    Text operator()(const Ref<Object>&) const { return "null"; }
};

std::vector<Text> KeyNames(const Sheet& sheet) {
    std::set<Text> taken;
    std::vector<Text> names;
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
        const Text wanted = sheet.columns[i].empty() ? fmt::format("column {}", i + 1) : sheet.columns[i];
        Text name = wanted;
        for (int again = 2; !taken.insert(name).second; ++again) name = fmt::format("{} {}", wanted, again);
        names.push_back(JsonString(name));
    }
    return names;
}

void AppendObject(Text& to, const std::vector<Text>& names, const std::vector<Variant>& row, std::string_view between) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) to.append(",").append(between);
        to.append(names[i]).append(": ").append(row[i].Visit(JsonValue{}));
    }
}

// The lines of an array, each indented; the first stands where it is.
Text Rows(const Sheet& sheet, std::string_view indent) {
    if (sheet.rows.empty()) return "[]";
    const auto names = KeyNames(sheet);
    Text to = "[\n";
    for (std::size_t i = 0; i < sheet.rows.size(); ++i) {
        to.append(indent).append("  {");
        AppendObject(to, names, sheet.rows[i], " ");
        to += i + 1 < sheet.rows.size() ? "},\n" : "}\n";
    }
    return to.append(indent).append("]");
}

}  // namespace

Text JsonText(const Sheet& sheet, Shape shape) {
    if (shape == Shape::kRows || sheet.rows.size() != 1) return Rows(sheet, "") + '\n';
    Text to = "{\n  ";
    AppendObject(to, KeyNames(sheet), sheet.rows.front(), "\n  ");
    return to += "\n}\n";
}

Text JsonText(const Sheet& row, const Part& part) {
    Text to = "{\n  ";
    AppendObject(to, KeyNames(row), row.rows.front(), "\n  ");
    return to.append(",\n  ").append(JsonString(part.name)).append(": ").append(Rows(part.sheet, "  ")).append("\n}\n");
}

Text JsonText(const std::vector<Sheet>& sheets) {
    if (sheets.empty()) return "[]\n";
    Text to = "[\n";
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        to.append("  ").append(Rows(sheets[i], "  ")).append(i + 1 < sheets.size() ? ",\n" : "\n");
    }
    return to += "]\n";
}

}  // namespace frontend
