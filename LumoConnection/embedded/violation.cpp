#include <algorithm>

#include <LumoConnection/embedded/run.h>

namespace LumoConnection::Embedded {
namespace {

// Takes back everything that was tried, whatever happens.
class Attempt {
  public:
    explicit Attempt(SqliteConnection& connection) : connection_(connection) {
        connection_.Run("SAVEPOINT lumo_attempt");
    }
    ~Attempt() {
        if (!open_) return;
        try {
            connection_.Run("ROLLBACK TO lumo_attempt");
            connection_.Run("RELEASE lumo_attempt");
        } catch (...) {
            // Half of it must not stay.
            connection_.TakeBack();
        }
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    void Keep() {
        connection_.Run("RELEASE lumo_attempt");
        open_ = false;
    }

  private:
    SqliteConnection& connection_;
    bool open_ = true;
};

// While it lives, references are judged at its end.
class LateReferences {
  public:
    explicit LateReferences(SqliteConnection& connection) : connection_(connection) {
        connection_.Run("PRAGMA defer_foreign_keys = ON");
    }
    ~LateReferences() {
        try {
            connection_.Run("PRAGMA defer_foreign_keys = OFF");
        } catch (...) {
            return;
        }
    }
    LateReferences(const LateReferences&) = delete;
    LateReferences& operator=(const LateReferences&) = delete;

  private:
    SqliteConnection& connection_;
};

bool IsKeyFailure(int code) {
    return code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY || code == SQLITE_CONSTRAINT_ROWID;
}

std::string_view Behind(std::string_view words, std::string_view start) {
    return words.starts_with(start) ? words.substr(start.size()) : std::string_view();
}

// The key that SQLite names by its columns or by its index.
const Key* FindKey(const Table& table, std::string_view words) {
    const std::string_view named = Behind(words, "UNIQUE constraint failed: ");
    for (const Key& key : table.keys) {
        if (!key.unique) continue;
        std::string columns;
        for (const int column : key.columns) {
            columns +=
                (columns.empty() ? "" : ", ") + table.name + "." + table.columns[static_cast<std::size_t>(column)].name;
        }
        if (named == columns || named == "index '" + IndexName(table, key.name) + ".null'") return &key;
    }
    return nullptr;
}

}  // namespace

std::vector<Runner::Row> Runner::Collect(const Printed& printed) {
    SqliteStatement statement = database_.connection_.Prepare(printed.sql);
    Bind(statement, printed.parameters);
    std::vector<Row> rows;
    const auto count = static_cast<std::size_t>(sqlite3_column_count(statement.Get()));
    while (statement.Step(database_.connection_)) {
        Row& row = rows.emplace_back(count);
        for (std::size_t i = 0; i < count; ++i) {
            row[i].value = statement.Column(static_cast<int>(i));
            row[i].text.assign(row[i].value.text);
        }
    }
    return rows;
}

// The row: the row's number or Null, then all columns.
void Runner::InsertRow(SqliteStatement& insert, const Table& table, const Row& row, const char* verb) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i == 0 && table.row_number >= 0) continue;
        Value value = row[i].value;
        if (value.form == Value::Form::kText) value.text = row[i].text;
        insert.Bind(static_cast<int>(i + 1), value);
    }
    try {
        insert.Step(database_.connection_);
        insert.Reset();
    } catch (const ConstraintFailure& failure) {
        RefuseViolation(failure, table, &row, verb);
    }
}

void Runner::ExplainInsert(const InsertStatement& insert, const ConstraintFailure& failure) {
    const Table& table = *insert.known;
    if (IsKeyFailure(failure.Code()) || failure.Code() == SQLITE_CONSTRAINT_FOREIGNKEY) {
        const Attempt attempt(database_.connection_);
        SqliteStatement one = database_.connection_.Prepare(PrintInsertRow(table));
        for (Row& values : Collect(PrintInsertRows(insert))) {
            Row row(table.columns.size() + 1);
            for (std::size_t i = 0; i < values.size(); ++i)
                row[static_cast<std::size_t>(insert.targets[i]) + 1] = std::move(values[i]);
            InsertRow(one, table, row, "INSERT");
        }
    }
    RefuseViolation(failure, table, nullptr, "INSERT");
}

std::int64_t Runner::MoveRows(const UpdateStatement& update, const ConstraintFailure& failure) {
    const Table& table = *update.known;
    if (!IsKeyFailure(failure.Code()) && failure.Code() != SQLITE_CONSTRAINT_FOREIGNKEY) {
        RefuseViolation(failure, table, nullptr, "UPDATE");
    }
    if (!Begin(true)) return 0;
    SqliteConnection& connection = database_.connection_;
    const auto references = database_.catalog_.References(table);
    const bool cascades = std::ranges::any_of(references, [](const auto& reference) {
        return reference.second->delete_cascades || reference.second->update_cascades;
    });
    // The rows that point here would follow the deletion.
    if (cascades) RefuseViolation(failure, table, nullptr, "UPDATE");
    const std::vector<Row> rows = Collect(PrintUpdateRows(update));
    const LateReferences late(connection);
    Attempt attempt(connection);
    SqliteStatement erase = connection.Prepare(PrintDeleteRow(table));
    for (const Row& row : rows) {
        erase.Bind(1, row.front().value);
        erase.Step(connection);
        erase.Reset();
    }
    SqliteStatement insert = connection.Prepare(PrintInsertRow(table));
    for (const Row& row : rows) InsertRow(insert, table, row, "UPDATE");
    for (const Row& row : rows) RefuseReference(table, &row, "UPDATE");
    if (!references.empty() && connection.Number("SELECT count(*) FROM pragma_foreign_key_check") > 0) {
        RefuseViolation(failure, table, nullptr, "UPDATE");
    }
    attempt.Keep();
    return static_cast<std::int64_t>(rows.size());
}

void Runner::ExplainDelete(const DeleteStatement& erase, const ConstraintFailure& failure) {
    const Table& table = *erase.known;
    const auto references = database_.catalog_.References(table);
    if (failure.Code() == SQLITE_CONSTRAINT_FOREIGNKEY && references.size() > 1) {
        // The one that still points at a row to be deleted.
        for (const auto& [other, key] : references) {
            if (key->delete_cascades) continue;
            const Printed rows = PrintDeleteRows(erase);
            std::string joined;
            for (std::size_t i = 0; i < key->columns.size(); ++i) {
                joined += (i > 0 ? " AND " : "") + std::string("p.") + QuoteName(key->table_columns[i]) + " = c." +
                          QuoteName(other->columns[static_cast<std::size_t>(key->columns[i])].name);
            }
            const std::string row = std::string("p.") + table.RowId();
            const Printed search{"SELECT 1 FROM " + QuoteName(table.name) + " AS p JOIN " + QuoteName(other->name) +
                                     " AS c ON " + joined + " WHERE " + row + " IN (" + rows.sql + ") LIMIT 1",
                                 rows.parameters};
            if (Collect(search).empty()) continue;
            Refuse(Refused::kConflict, "The DELETE statement conflicted with the REFERENCE constraint \"" + key->name +
                                           "\". The conflict occurred in table \"dbo." + other->name + "\", column '" +
                                           other->columns[static_cast<std::size_t>(key->columns.front())].name + "'.");
        }
    }
    RefuseViolation(failure, table, nullptr, "DELETE");
}

// Refuses if a foreign key of the row points at nothing.
void Runner::RefuseReference(const Table& table, const Row* row, const char* verb) {
    for (const ForeignKey& key : table.foreign_keys) {
        bool missing = row == nullptr;
        if (row) {
            std::string condition;
            for (std::size_t i = 0; i < key.columns.size(); ++i) {
                condition += (i > 0 ? " AND " : "") + QuoteName(key.table_columns[i]) + " = ?" + std::to_string(i + 1);
            }
            SqliteStatement search =
                database_.connection_.Prepare("SELECT 1 FROM " + QuoteName(key.table) + " WHERE " + condition);
            bool has_null = false;
            for (std::size_t i = 0; i < key.columns.size(); ++i) {
                const Variable& cell = (*row)[static_cast<std::size_t>(key.columns[i]) + 1];
                Value value = cell.value;
                if (value.form == Value::Form::kText) value.text = cell.text;
                has_null = has_null || value.form == Value::Form::kNull;
                search.Bind(static_cast<int>(i + 1), value);
            }
            missing = !has_null && !search.Step(database_.connection_);
        }
        if (!missing) continue;
        Refuse(Refused::kConflict, std::string("The ") + verb + " statement conflicted with the FOREIGN KEY constraint \"" +
                                       key.name + "\". The conflict occurred in table \"dbo." + key.table +
                                       "\", column '" + key.table_columns.front() + "'.");
    }
}

void Runner::RefuseViolation(const ConstraintFailure& failure, const Table& table, const Row* row, const char* verb) {
    const std::string_view words = failure.Text();
    if (failure.Code() == SQLITE_CONSTRAINT_NOTNULL) {
        const auto name = Behind(words, "NOT NULL constraint failed: ");
        const std::string_view column = name.size() > table.name.size() ? name.substr(table.name.size() + 1) : name;
        Refuse(Refused::kNull, "Cannot insert the value NULL into column '" + std::string(column) + "', table 'dbo." +
                                   table.name + "'; column does not allow nulls. " + verb + " fails.");
    }
    if (failure.Code() == SQLITE_CONSTRAINT_CHECK) {
        Refuse(Refused::kConflict, std::string("The ") + verb + " statement conflicted with the CHECK constraint \"" +
                                       std::string(Behind(words, "CHECK constraint failed: ")) +
                                       "\". The conflict occurred in table \"dbo." + table.name + "\".");
    }
    if (IsKeyFailure(failure.Code())) {
        const Key* key = FindKey(table, words);
        if (!key) Refuse(Refused::kDuplicateKey, "Cannot insert duplicate key in object 'dbo." + table.name + "'.");
        std::string shown;
        if (row) {
            for (const int column : key->columns) {
                const Variable& cell = (*row)[static_cast<std::size_t>(column) + 1];
                Value value = cell.value;
                if (value.form == Value::Form::kText) value.text = cell.text;
                std::string buffer;
                const Value text = ConvertValue(value, table.columns[static_cast<std::size_t>(column)].type,
                                                {Kind::kNvarchar, Type::kNoLimit}, Purpose::kCast, 0, buffer);
                shown += (shown.empty() ? "" : ", ") + (text.form == Value::Form::kNull ? "<NULL>" : std::string(text.text));
            }
            shown = " The duplicate key value is (" + shown + ").";
        }
        if (key->is_index) {
            Refuse(Refused::kDuplicateInIndex, "Cannot insert duplicate key row in object 'dbo." + table.name +
                                                   "' with unique index '" + key->name + "'." + shown);
        }
        Refuse(Refused::kDuplicateKey, std::string("Violation of ") + (key->primary ? "PRIMARY KEY" : "UNIQUE KEY") +
                                           " constraint '" + key->name +
                                           "'. Cannot insert duplicate key in object 'dbo." + table.name + "'." + shown);
    }
    if (failure.Code() == SQLITE_CONSTRAINT_FOREIGNKEY) {
        const bool inserts = std::string_view(verb) != "DELETE";
        if (inserts && row) RefuseReference(table, row, verb);
        if (inserts && table.foreign_keys.size() == 1) RefuseReference(table, nullptr, verb);
        for (const auto& [other, key] : database_.catalog_.References(table)) {
            Refuse(Refused::kConflict, std::string("The ") + verb +
                                           " statement conflicted with the REFERENCE constraint \"" + key->name +
                                           "\". The conflict occurred in table \"dbo." + other->name + "\", column '" +
                                           other->columns[static_cast<std::size_t>(key->columns.front())].name + "'.");
        }
        Refuse(Refused::kConflict, std::string("The ") + verb +
                                       " statement conflicted with a FOREIGN KEY constraint of table \"dbo." +
                                       table.name + "\".");
    }
    throw failure;
}

}  // namespace LumoConnection::Embedded
