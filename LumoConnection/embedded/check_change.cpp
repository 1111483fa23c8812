#include <algorithm>

#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

[[noreturn]] void RefuseUnknownTable(const std::string& name) {
    Refuse(Refused::kUnknownTable, "Invalid object name '" + name + "'.");
}

int NeedColumn(const Table& table, const std::string& name, std::size_t place) {
    const int column = table.Find(name);
    if (column < 0) Refuse(Refused::kUnknownColumn, "Invalid column name '" + name + "'.", place);
    return column;
}

}  // namespace

int Checker::CheckRowCondition(ExpressionPtr& condition, const Table& table) {
    Scope scope;
    SourceInfo info;
    info.number = ++sources_;
    info.name = table.name;
    info.table = &table;
    scope.sources.push_back(info);
    CheckExpression(condition, &scope);
    return info.number;
}

// What a column gets that the statement does not name; Null where there is no default.
ExpressionPtr Checker::DefaultOf(const Column& column) {
    ExpressionPtr value;
    if (column.default_text.empty()) {
        value = std::make_unique<Expression>();
        value->node = NullNode{};
    } else {
        value = ParseOwnExpression(column.default_text);
    }
    CheckExpression(value, nullptr);
    Coerce(value, column.type, Purpose::kAssign);
    return value;
}

void Checker::Check(InsertStatement& insert) {
    insert.known = catalog_.Find(insert.table);
    if (!insert.known) RefuseUnknownTable(insert.table);
    const Table& table = *insert.known;
    if (insert.columns.empty() && !insert.default_values) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) insert.targets.push_back(static_cast<int>(i));
    }
    for (std::size_t i = 0; i < insert.columns.size(); ++i) {
        const int column = NeedColumn(table, insert.columns[i], insert.column_places[i]);
        if (std::ranges::find(insert.targets, column) != insert.targets.end()) {
            Refuse(Refused::kColumnTwice,
                   "The column name '" + insert.columns[i] +
                       "' is specified more than once in the SET clause or column list of an INSERT.",
                   insert.column_places[i]);
        }
        insert.targets.push_back(column);
    }
    insert.given = insert.targets.size();
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const int column = static_cast<int>(i);
        if (std::ranges::find(insert.targets, column) != insert.targets.end()) continue;
        insert.targets.push_back(column);
        insert.fillers.push_back(DefaultOf(table.columns[i]));
    }
    if (insert.select) {
        CheckInsertSelect(insert);
    } else {
        FillRow(insert);
    }
}

void Checker::FillRow(InsertStatement& insert) {
    const bool all = insert.columns.empty() && !insert.default_values;
    for (auto& row : insert.rows) {
        if (row.size() != insert.given) {
            const std::size_t place = row.empty() || !row.back() ? 0 : row.back()->place;
            if (all)
                Refuse(Refused::kValueCount, "Column name or number of supplied values does not match table definition.", place);
            if (row.size() > insert.given) {
                Refuse(Refused::kMoreValues,
                       "There are fewer columns in the INSERT statement than values specified in the VALUES clause. The number of values in the VALUES clause must match the number of columns specified in the INSERT statement.",
                       place);
            }
            Refuse(Refused::kFewerValues,
                   "There are more columns in the INSERT statement than values specified in the VALUES clause. The number of values in the VALUES clause must match the number of columns specified in the INSERT statement.",
                   place);
        }
        for (std::size_t i = 0; i < row.size(); ++i) {
            const Column& column = insert.known->columns[static_cast<std::size_t>(insert.targets[i])];
            if (!row[i]) {
                row[i] = DefaultOf(column);
                continue;
            }
            CheckExpression(row[i], nullptr);
            Coerce(row[i], column.type, Purpose::kAssign);
        }
    }
}

void Checker::CheckInsertSelect(InsertStatement& insert) {
    Select& select = *insert.select;
    CheckQuery(select, nullptr);
    const std::size_t count = select.types.size();
    if (count != insert.given) {
        if (insert.columns.empty()) {
            Refuse(Refused::kValueCount, "Column name or number of supplied values does not match table definition.",
                   select.place);
        }
        if (count > insert.given) {
            Refuse(Refused::kSelectListLong,
                   "The select list for the INSERT statement contains more items than the insert list. The number of SELECT values must match the number of INSERT columns.",
                   select.place);
        }
        Refuse(Refused::kSelectListShort,
               "The select list for the INSERT statement contains fewer items than the insert list. The number of SELECT values must match the number of INSERT columns.",
               select.place);
    }
    const auto type_of = [&](std::size_t i) {
        return insert.known->columns[static_cast<std::size_t>(insert.targets[i])].type;
    };
    insert.wrapped =
        select.cores.size() > 1 || select.cores.front().distinct || select.cores.front().top || !select.order_by.empty();
    if (!insert.wrapped) {
        for (std::size_t i = 0; i < count; ++i)
            Coerce(select.cores.front().items[i].value, type_of(i), Purpose::kAssign);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        ColumnNode column;
        column.printed = Numbered('c', i + 1);
        auto item = std::make_unique<Expression>();
        item->type = select.types[i];
        item->node = std::move(column);
        Coerce(item, type_of(i), Purpose::kAssign);
        insert.wrapped_items.push_back(std::move(item));
    }
}

// Finds the table that is changed among the sources, or makes it the only source.
void Checker::CheckTarget(const std::string& name, std::vector<Source>& from, ExpressionPtr& where, Scope& scope,
                          const Table*& known, int& number, bool& joined) {
    if (from.empty()) {
        TableSource table{name, "", nullptr};
        Source source;
        source.node = std::move(table);
        from.push_back(std::move(source));
    }
    for (Source& source : from) AddSources(source, scope);
    for (Source& source : from) CheckJoinConditions(source, scope);
    const SourceInfo* target = nullptr;
    for (const SourceInfo& source : scope.sources) {
        if (source.table && SameName(source.name, name)) target = &source;
    }
    if (!target) {
        for (const SourceInfo& source : scope.sources) {
            if (!source.table || !SameName(source.table->name, name)) continue;
            if (target) Refuse(8154, "The table '" + name + "' is ambiguous.");
            target = &source;
        }
    }
    joined = scope.sources.size() > 1;
    if (!target) {
        // The table stands beside the sources, joined by nothing but the condition.
        if (!catalog_.Find(name)) RefuseUnknownTable(name);
        RefuseNotCovered("A change of a table that its FROM does not name");
    }
    known = target->table;
    number = target->number;
    if (where) CheckExpression(where, &scope);
}

void Checker::Check(UpdateStatement& update) {
    Scope scope;
    CheckTarget(update.table, update.from, update.where, scope, update.known, update.source, update.joined);
    std::vector<int> targets;
    for (Assignment& assignment : update.assignments) {
        assignment.target = NeedColumn(*update.known, assignment.column, assignment.place);
        if (std::ranges::find(targets, assignment.target) != targets.end()) {
            Refuse(Refused::kColumnTwice,
                   "The column name '" + assignment.column +
                       "' is specified more than once in the SET clause or column list of an INSERT.",
                   assignment.place);
        }
        targets.push_back(assignment.target);
        const Column& column = update.known->columns[static_cast<std::size_t>(assignment.target)];
        if (!assignment.value) {
            assignment.value = DefaultOf(column);
            continue;
        }
        context_ = {};
        CheckExpression(assignment.value, &scope);
        Coerce(assignment.value, column.type, Purpose::kAssign);
    }
}

void Checker::Check(DeleteStatement& statement) {
    Scope scope;
    CheckTarget(statement.table, statement.from, statement.where, scope, statement.known, statement.source, statement.joined);
}

}  // namespace LumoConnection::Embedded
