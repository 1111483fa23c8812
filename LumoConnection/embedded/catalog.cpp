#include <LumoConnection/embedded/catalog.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include <utf8proc.h>

#include <LumoConnection/ascii.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

// A name for a constraint that was given none, the same whenever the definition is read.
std::string MadeUpName(std::string_view kind, const Table& table, std::string_view rest, std::size_t ordinal) {
    std::uint32_t hash = 2166136261U;
    const auto mix = [&hash](std::string_view text) {
        for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    };
    mix(table.name);
    mix(rest);
    mix(std::to_string(ordinal));
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%08X", hash);
    std::string name(kind);
    name.append("__").append(table.name);
    if (!rest.empty()) name.append("__").append(rest);
    return name.append("__").append(digits.data());
}

int NeedColumn(const Table& table, const std::string& name) {
    const int column = table.Find(name);
    if (column < 0) {
        Refuse(Refused::kUnknownKeyColumn, "Column name '" + name + "' does not exist in the target table or view.");
    }
    return column;
}

void CheckConstraintName(const Table& table, const std::string& name) {
    const auto same = [&](const auto& other) { return SameName(other.name, name); };
    if (std::ranges::any_of(table.keys, same) || std::ranges::any_of(table.foreign_keys, same)) {
        Refuse(Refused::kExists, "There is already an object named '" + name + "' in the database.");
    }
}

}  // namespace

std::string FoldName(std::string_view name) {
    std::string folded;
    folded.reserve(name.size());
    const auto plain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(name, plain)) {
        for (const char c : name) folded.push_back(LowerAscii(c));
        return folded;
    }
    std::size_t at = 0;
    while (at < name.size()) {
        utf8proc_int32_t code = 0;
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(name.data()) + at;
        const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(name.size() - at), &code);
        if (length <= 0) {
            folded.push_back(name[at++]);
            continue;
        }
        std::array<utf8proc_uint8_t, 4> lower{};
        const auto written = utf8proc_encode_char(utf8proc_tolower(code), lower.data());
        folded.append(lower.begin(), lower.begin() + written);
        at += static_cast<std::size_t>(length);
    }
    return folded;
}

bool SameName(std::string_view a, std::string_view b) {
    unsigned all = 0;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        all |= static_cast<unsigned char>(a[i]) | static_cast<unsigned char>(b[i]);
        if (all < 0x80 && LowerAscii(a[i]) != LowerAscii(b[i])) return false;
    }
    if (all < 0x80 && a.size() != b.size()) return false;
    return all < 0x80 || a == b || FoldName(a) == FoldName(b);
}

std::string QuoteName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"') quoted.push_back('"');
        quoted.push_back(c);
    }
    return quoted += '"';
}

std::string Numbered(char letter, std::size_t number) {
    std::string name(1, letter);
    name += std::to_string(number);
    return name;
}

std::string IndexName(const Table& table, std::string_view index) { return table.name + "." + std::string(index); }

int Table::Find(std::string_view column) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (SameName(columns[i].name, column)) return static_cast<int>(i);
    }
    return -1;
}

const Key* Table::PrimaryKey() const {
    const auto found = std::ranges::find_if(keys, &Key::primary);
    return found == keys.end() ? nullptr : &*found;
}

const char* Table::RowId() const {
    for (const char* candidate : {"rowid", "_rowid_"}) {
        if (Find(candidate) < 0) return candidate;
    }
    return "oid";
}

const Table* Catalog::Find(std::string_view name) const {
    const auto found = tables_.find(FoldName(name));
    return found == tables_.end() ? nullptr : found->second.get();
}

void Catalog::Put(std::unique_ptr<Table> table) {
    former_.reserve(former_.size() + 1);
    std::unique_ptr<Table>& place = tables_[FoldName(table->name)];
    std::swap(place, table);
    if (table) former_.push_back(std::move(table));
}

void Catalog::Drop(std::string_view name) {
    former_.reserve(former_.size() + 1);
    const auto found = tables_.find(FoldName(name));
    if (found == tables_.end()) return;
    former_.push_back(std::move(found->second));
    tables_.erase(found);
}

void Catalog::Replace(Catalog other) {
    former_.reserve(former_.size() + tables_.size());
    for (auto& [name, table] : tables_) former_.push_back(std::move(table));
    tables_ = std::move(other.tables_);
}

std::vector<std::pair<const Table*, const ForeignKey*>> Catalog::References(const Table& table) const {
    std::vector<std::pair<const Table*, const ForeignKey*>> found;
    for (const Table* other : All()) {
        for (const ForeignKey& key : other->foreign_keys) {
            if (SameName(key.table, table.name)) found.emplace_back(other, &key);
        }
    }
    return found;
}

std::vector<const Table*> Catalog::All() const {
    std::vector<const Table*> all;
    for (const auto& [name, table] : tables_) all.push_back(table.get());
    std::ranges::sort(all, {}, [](const Table* table) { return FoldName(table->name); });
    return all;
}

void Catalog::AddElements(Table& table, const TableElements& elements) const {
    for (const ColumnDefinition& definition : elements.columns) {
        if (table.Find(definition.name) >= 0) {
            Refuse(Refused::kColumnNameTwice,
                   "Column names in each table must be unique. Column name '" + definition.name + "' in table '" +
                       table.name + "' is specified more than once.",
                   definition.place);
        }
        Column column;
        column.name = definition.name;
        column.type = definition.type;
        column.nullable = definition.nullable.value_or(true);
        if (definition.default_value) column.default_text = definition.default_value->text;
        table.columns.push_back(std::move(column));
    }
    for (const KeyDefinition& definition : elements.keys) {
        Key key;
        key.primary = definition.primary;
        for (const std::string& name : definition.columns) {
            const int at = NeedColumn(table, name);
            key.columns.push_back(at);
            if (!key.primary) continue;
            Column& column = table.columns[static_cast<std::size_t>(at)];
            const auto told =
                std::ranges::find_if(elements.columns, [&](const auto& other) { return SameName(other.name, name); });
            const bool told_null = told == elements.columns.end() ? column.nullable : told->nullable.value_or(false);
            if (told_null) {
                Refuse(Refused::kNullableKey,
                       "Cannot define PRIMARY KEY constraint on nullable column in table '" + table.name + "'.");
            }
            column.nullable = false;
        }
        if (key.primary && table.PrimaryKey()) {
            Refuse(Refused::kTwoPrimaryKeys, "Cannot add multiple PRIMARY KEY constraints to table '" + table.name + "'.");
        }
        key.name = definition.name.empty() ? MadeUpName(key.primary ? "PK" : "UQ", table,
                                                        key.primary ? "" : definition.columns.front(), table.keys.size())
                                           : definition.name;
        CheckConstraintName(table, key.name);
        table.keys.push_back(std::move(key));
    }
    for (const ForeignKeyDefinition& definition : elements.foreign_keys) {
        ForeignKey key;
        for (const std::string& name : definition.columns) key.columns.push_back(NeedColumn(table, name));
        key.name = definition.name.empty() ? MadeUpName("FK", table, definition.columns.front(), table.foreign_keys.size())
                                           : definition.name;
        CheckConstraintName(table, key.name);
        const Table* parent = SameName(definition.table, table.name) ? &table : Find(definition.table);
        if (!parent) {
            Refuse(1767, "Foreign key '" + key.name + "' references invalid table '" + definition.table + "'.");
        }
        key.table = parent->name;
        key.delete_cascades = definition.delete_cascades;
        key.update_cascades = definition.update_cascades;
        std::vector<int> parent_columns;
        if (definition.table_columns.empty()) {
            if (const Key* primary = parent->PrimaryKey()) parent_columns = primary->columns;
        }
        for (const std::string& name : definition.table_columns) parent_columns.push_back(NeedColumn(*parent, name));
        const bool is_key = std::ranges::any_of(parent->keys, [&](const Key& other) {
            return other.unique && std::ranges::is_permutation(other.columns, parent_columns);
        });
        if (!is_key || parent_columns.size() != key.columns.size()) {
            Refuse(Refused::kNoKeyThere, "There are no primary or candidate keys in the referenced table '" + parent->name +
                                             "' that match the referencing column list in the foreign key '" + key.name + "'.");
        }
        for (const int at : parent_columns)
            key.table_columns.push_back(parent->columns[static_cast<std::size_t>(at)].name);
        table.foreign_keys.push_back(std::move(key));
    }
    for (const CheckDefinition& definition : elements.checks) {
        table.checks.push_back(definition.name.empty() ? MadeUpName("CK", table, "", table.checks.size()) : definition.name);
    }
}

std::unique_ptr<Table> Catalog::Define(const CreateTableStatement& create) const {
    if (Find(create.table)) {
        Refuse(Refused::kExists, "There is already an object named '" + create.table + "' in the database.");
    }
    const std::string folded = FoldName(create.table);
    if (folded.starts_with("sqlite_") || folded.starts_with("lumo$")) {
        RefuseNotCovered("A table name that starts like '" + create.table + "'");
    }
    auto table = std::make_unique<Table>();
    table->name = create.table;
    AddElements(*table, create.elements);
    if (const Key* primary = table->PrimaryKey(); primary && primary->columns.size() == 1) {
        const int column = primary->columns.front();
        if (table->columns[static_cast<std::size_t>(column)].type.kind == Kind::kInt) table->row_number = column;
    }
    return table;
}

std::unique_ptr<Table> Catalog::Define(const AlterTableStatement& alter) const {
    const Table* known = Find(alter.table);
    if (!known) {
        Refuse(Refused::kAlterUnknown,
               "Cannot find the object \"" + alter.table + "\" because it does not exist or you do not have permissions.");
    }
    auto table = std::make_unique<Table>(*known);
    AddElements(*table, alter.added);
    return table;
}

std::unique_ptr<Table> Catalog::Define(const CreateIndexStatement& create) const {
    const Table* known = Find(create.table);
    if (!known) {
        Refuse(1088, "Cannot find the object \"" + create.table + "\" because it does not exist or you do not have permissions.");
    }
    auto table = std::make_unique<Table>(*known);
    if (std::ranges::any_of(table->keys, [&](const Key& key) { return SameName(key.name, create.name); })) {
        Refuse(Refused::kIndexExists, "The operation failed because an index or statistics with name '" + create.name +
                                          "' already exists on table '" + table->name + "'.");
    }
    Key key;
    key.name = create.name;
    key.is_index = true;
    key.unique = create.unique;
    for (const std::string& name : create.columns) key.columns.push_back(NeedColumn(*table, name));
    table->keys.push_back(std::move(key));
    return table;
}

}  // namespace LumoConnection::Embedded
