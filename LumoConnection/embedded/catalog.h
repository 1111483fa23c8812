#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <LumoConnection/embedded/tree.h>

namespace LumoConnection::Embedded {

struct Column {
    std::string name;
    Type type;
    bool nullable = true;
    /// The default as it stands in the definition; empty where there is none.
    std::string default_text;
};

/// A primary key, a unique constraint or a unique index.
struct Key {
    std::string name;
    std::vector<int> columns;
    bool primary = false;
    bool is_index = false;
    bool unique = true;
};

struct ForeignKey {
    std::string name;
    std::vector<int> columns;
    std::string table;
    std::vector<std::string> table_columns;
    bool delete_cascades = false;
    bool update_cascades = false;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
    std::vector<Key> keys;
    std::vector<ForeignKey> foreign_keys;
    std::vector<std::string> checks;
    /// The int column that is the primary key alone, which SQLite keeps as the row's number; -1 where there is none.
    int row_number = -1;

    /// -1 for a name that is not there.
    int Find(std::string_view column) const;
    const Key* PrimaryKey() const;
    /// A name of SQLite for the row's number that no column hides.
    const char* RowId() const;
};

/// Names are told apart without regard to case.
std::string FoldName(std::string_view name);
bool SameName(std::string_view a, std::string_view b);

/// The tables of a database. What is applied to it are the definitions in the order in which they were run.
class Catalog {
  public:
    /// Null for a name that is not there. Pointers live until Forget(), even where the table is changed or dropped.
    const Table* Find(std::string_view name) const;

    /// What a definition makes, with all names made up that it leaves out. Refuses what the server refuses.
    std::unique_ptr<Table> Define(const CreateTableStatement& create) const;
    std::unique_ptr<Table> Define(const AlterTableStatement& alter) const;
    std::unique_ptr<Table> Define(const CreateIndexStatement& create) const;

    /// Adds a table or puts it in the place of the one of its name.
    void Put(std::unique_ptr<Table> table);
    void Drop(std::string_view name);
    /// Takes over the tables of another catalogue.
    void Replace(Catalog other);
    /// Lets go of tables that were changed or dropped.
    void Forget() { former_.clear(); }

    /// Foreign keys of other tables that point at this one.
    std::vector<std::pair<const Table*, const ForeignKey*>> References(const Table& table) const;

    /// In the order of their names.
    std::vector<const Table*> All() const;

  private:
    void AddElements(Table& table, const TableElements& elements) const;

    std::unordered_map<std::string, std::unique_ptr<Table>> tables_;
    std::vector<std::unique_ptr<Table>> former_;
};

/// The letter and the number: what sources and nameless columns are called in printed statements.
std::string Numbered(char letter, std::size_t number);

/// A name in double quotes, as SQLite reads it.
std::string QuoteName(std::string_view name);
/// The name of an index in SQLite, where index names are unique in the whole file.
std::string IndexName(const Table& table, std::string_view index);

}  // namespace LumoConnection::Embedded
