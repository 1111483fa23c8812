#include "frontend/output/sheet.h"
#include "frontend/output/value_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

Text Quoted(const Text& value) {
    if (!value.empty() && value.find_first_of(",\"\r\n") == Text::npos) return value;
    Text quoted = "\"";
    for (const char c : value) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted += '"';
}

struct CsvValue {
    Text operator()(std::monostate) const { return {}; }
    Text operator()(Variant::NullValue) const { return {}; }
    Text operator()(Bool value) const { return value ? "true" : "false"; }
    Text operator()(Byte value) const { return DefaultText(Int32{value}); }
    Text operator()(Int16 value) const { return DefaultText(Int32{value}); }
    Text operator()(Int32 value) const { return DefaultText(value); }
    Text operator()(Single value) const { return ExactText(value); }
    Text operator()(Double value) const { return ExactText(value); }
    Text operator()(Money value) const { return MoneyText(value); }
    Text operator()(DateTime value) const { return IsoText(value); }
    Text operator()(const Text& value) const { return Quoted(value); }
    Text operator()(const Ref<Object>&) const { return {}; }
};

}  // namespace

Text CsvText(const Sheet& sheet) {
    Text to;
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
        if (i > 0) to += ',';
        to += Quoted(sheet.columns[i]);
    }
    to += '\n';
    for (const auto& row : sheet.rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) to += ',';
            to += row[i].Visit(CsvValue{});
        }
        to += '\n';
    }
    return to;
}

}  // namespace frontend
