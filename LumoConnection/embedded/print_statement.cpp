#include <LumoConnection/embedded/printer.h>

namespace LumoConnection::Embedded {
namespace {

std::string SourceName(int number) { return Numbered('s', static_cast<std::size_t>(number)); }

// The one table of the sources whose number it is.
const Table* OnlyTable(const std::vector<Source>& from) {
    const auto* table = from.size() == 1 ? std::get_if<TableSource>(&from.front().node) : nullptr;
    return table ? table->known : nullptr;
}

}  // namespace

void Printer::OneSource(const Source& source) {
    if (const auto* table = std::get_if<TableSource>(&source.node)) {
        out_ += QuoteName(table->known->name) + " AS " + SourceName(source.number);
    } else if (const auto* derived = std::get_if<DerivedSource>(&source.node)) {
        out_ += '(';
        Query(*derived->select, true);
        out_ += ") AS " + SourceName(source.number);
    } else {
        static constexpr const char* kJoins[] = {" JOIN ", " LEFT JOIN ", " RIGHT JOIN ", " FULL JOIN ", " JOIN "};
        const JoinSource& join = *std::get<std::unique_ptr<JoinSource>>(source.node);
        OneSource(join.left);
        out_ += kJoins[static_cast<std::size_t>(join.kind)];
        const bool nested = std::holds_alternative<std::unique_ptr<JoinSource>>(join.right.node);
        if (nested) out_ += '(';
        OneSource(join.right);
        if (nested) out_ += ')';
        if (!join.on) return;
        out_ += " ON ";
        Print(*join.on);
    }
}

void Printer::From(const std::vector<Source>& sources) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
        out_ += i == 0 ? " FROM " : ", ";
        const bool nested = i > 0 && std::holds_alternative<std::unique_ptr<JoinSource>>(sources[i].node);
        if (nested) out_ += '(';
        OneSource(sources[i]);
        if (nested) out_ += ')';
    }
}

void Printer::Core(const SelectCore& core, bool named, bool collated) {
    out_ += core.distinct ? "SELECT DISTINCT " : "SELECT ";
    if (core.items.empty()) out_ += '1';
    for (std::size_t i = 0; i < core.items.size(); ++i) {
        if (i > 0) out_ += ", ";
        collated || core.distinct ? Collated(*core.items[i].value) : Print(*core.items[i].value);
        if (named) out_ += " AS " + QuoteName(Numbered('c', i + 1));
    }
    From(core.from);
    if (core.where) {
        out_ += " WHERE ";
        Print(*core.where);
    }
    for (std::size_t i = 0; i < core.group_by.size(); ++i) {
        out_ += i == 0 ? " GROUP BY " : ", ";
        Collated(*core.group_by[i]);
    }
    if (core.having) {
        out_ += " HAVING ";
        Print(*core.having);
    }
}

void Printer::Query(const Select& select, bool named) {
    static constexpr const char* kOperators[] = {" UNION ", " UNION ALL ", " EXCEPT ", " INTERSECT "};
    const bool compound = select.cores.size() > 1;
    for (std::size_t i = 0; i < select.cores.size(); ++i) {
        if (i > 0) out_ += kOperators[static_cast<std::size_t>(select.operators[i - 1])];
        const SelectCore& core = select.cores[i];
        // A part of a compound has no limit of its own in SQLite.
        const bool inside = compound && core.top;
        if (inside) out_ += "SELECT * FROM (";
        Core(core, named, compound || named);
        if (inside) {
            out_ += " LIMIT lumo_top(";
            Print(*core.top);
            out_ += "))";
        }
    }
    for (std::size_t i = 0; i < select.order_by.size(); ++i) {
        const OrderItem& item = select.order_by[i];
        out_ += i == 0 ? " ORDER BY " : ", ";
        if (item.position > 0) {
            out_ += std::to_string(item.position);
            if (IsText(select.types[static_cast<std::size_t>(item.position - 1)].kind)) {
                out_ += " COLLATE ";
                out_ += kCollation;
            }
        } else {
            Collated(*item.value);
        }
        if (item.descending) out_ += " DESC";
    }
    if (!compound && select.cores.front().top) {
        out_ += " LIMIT lumo_top(";
        Print(*select.cores.front().top);
        out_ += ')';
    }
}

// More than one row has to be refused; SQLite would take the first.
void Printer::ScalarQuery(const Select& select) {
    const SelectCore& core = select.cores.front();
    const bool plain = select.cores.size() == 1 && !core.distinct && !core.top && core.group_by.empty() && !core.having;
    out_ += '(';
    if (plain && (core.aggregated || core.from.empty())) {
        Query(select, false);
    } else {
        // An aggregate straight over a column of an outer query would belong to that query.
        out_ += "SELECT lumo_only(\"c1\") FROM (";
        Query(select, true);
        out_ += ')';
    }
    out_ += ')';
}

void Printer::TargetColumns(const InsertStatement& insert) {
    out_ += '(';
    for (std::size_t i = 0; i < insert.targets.size(); ++i) {
        if (i > 0) out_ += ", ";
        out_ += QuoteName(insert.known->columns[static_cast<std::size_t>(insert.targets[i])].name);
    }
    out_ += ')';
}

// Where SQLite keeps a column as the row's number, it would make one up for a Null.
void Printer::TargetValue(const Table& table, int column, const Expression& value) {
    const bool may_be_null = column == table.row_number && !value.If<LiteralNode>();
    if (may_be_null) out_ += "ifnull(";
    Print(value);
    if (!may_be_null) return;
    const Value names = Value::Text(table.name);
    out_ += ", lumo_no_null(" + PrintConstant(names) + ", " +
            PrintConstant(Value::Text(table.columns[static_cast<std::size_t>(column)].name)) + "))";
}

void Printer::InsertRows(const InsertStatement& insert) {
    const Table& table = *insert.known;
    const auto fillers = [&](bool first) {
        for (std::size_t i = 0; i < insert.fillers.size(); ++i) {
            if (!first || i > 0) out_ += ", ";
            TargetValue(table, insert.targets[insert.given + i], *insert.fillers[i]);
        }
    };
    if (!insert.select) {
        out_ += "VALUES ";
        for (std::size_t r = 0; r < insert.rows.size(); ++r) {
            out_ += r == 0 ? "(" : ", (";
            for (std::size_t i = 0; i < insert.rows[r].size(); ++i) {
                if (i > 0) out_ += ", ";
                TargetValue(table, insert.targets[i], *insert.rows[r][i]);
            }
            fillers(insert.rows[r].empty());
            out_ += ')';
        }
        return;
    }
    if (insert.wrapped) {
        out_ += "SELECT ";
        for (std::size_t i = 0; i < insert.wrapped_items.size(); ++i) {
            if (i > 0) out_ += ", ";
            TargetValue(table, insert.targets[i], *insert.wrapped_items[i]);
        }
        fillers(false);
        out_ += " FROM (";
        Query(*insert.select, true);
        out_ += ')';
        return;
    }
    const SelectCore& core = insert.select->cores.front();
    out_ += "SELECT ";
    for (std::size_t i = 0; i < core.items.size(); ++i) {
        if (i > 0) out_ += ", ";
        TargetValue(table, insert.targets[i], *core.items[i].value);
    }
    fillers(false);
    From(core.from);
    if (core.where) {
        out_ += " WHERE ";
        Print(*core.where);
    }
    for (std::size_t i = 0; i < core.group_by.size(); ++i) {
        out_ += i == 0 ? " GROUP BY " : ", ";
        Collated(*core.group_by[i]);
    }
    if (core.having) {
        out_ += " HAVING ";
        Print(*core.having);
    }
}

void Printer::Insert(const InsertStatement& insert) {
    out_ += "INSERT INTO " + QuoteName(insert.known->name);
    TargetColumns(insert);
    out_ += ' ';
    InsertRows(insert);
}

void Printer::Update(const UpdateStatement& update) {
    const std::string own = update.joined ? "s0" : SourceName(update.source);
    const std::string row = update.known->RowId();
    const auto target = [&](const Assignment& assignment) {
        return QuoteName(update.known->columns[static_cast<std::size_t>(assignment.target)].name) + " = ";
    };
    out_ += "UPDATE " + QuoteName(update.known->name) + " AS " + own + " SET ";
    for (std::size_t i = 0; i < update.assignments.size(); ++i) {
        const Assignment& assignment = update.assignments[i];
        if (i > 0) out_ += ", ";
        out_ += target(assignment);
        if (update.joined) {
            out_ += "q." + Numbered('c', i + 1);
        } else {
            TargetValue(*update.known, assignment.target, *assignment.value);
        }
    }
    if (!update.joined) {
        if (!update.where) return;
        out_ += " WHERE ";
        Print(*update.where);
        return;
    }
    // The sources stand in a query of their own: beside an UPDATE, SQLite hides the row numbers of joined tables.
    out_ += " FROM (SELECT " + SourceName(update.source) + "." + row + " AS r";
    for (std::size_t i = 0; i < update.assignments.size(); ++i) {
        out_ += ", ";
        TargetValue(*update.known, update.assignments[i].target, *update.assignments[i].value);
        out_ += " AS " + Numbered('c', i + 1);
    }
    From(update.from);
    if (update.where) {
        out_ += " WHERE ";
        Print(*update.where);
    }
    out_ += ") AS q WHERE s0." + row + " = q.r";
}

void Printer::UpdateRows(const UpdateStatement& update) {
    const std::string own = SourceName(update.source) + ".";
    const std::string row = own + update.known->RowId();
    out_ += "SELECT " + row;
    for (std::size_t i = 0; i < update.known->columns.size(); ++i) {
        out_ += ", ";
        const Assignment* changed = nullptr;
        for (const Assignment& assignment : update.assignments) {
            if (assignment.target == static_cast<int>(i)) changed = &assignment;
        }
        if (changed) {
            TargetValue(*update.known, changed->target, *changed->value);
        } else {
            out_ += own + QuoteName(update.known->columns[i].name);
        }
    }
    From(update.from);
    if (update.where) {
        out_ += " WHERE ";
        Print(*update.where);
    }
    if (update.joined) out_ += " GROUP BY " + row;
}

void Printer::Delete(const DeleteStatement& statement) {
    out_ += "DELETE FROM " + QuoteName(statement.known->name);
    if (!statement.joined && OnlyTable(statement.from)) {
        out_ += " AS " + SourceName(statement.source);
        if (!statement.where) return;
        out_ += " WHERE ";
        Print(*statement.where);
        return;
    }
    out_ += " WHERE " + std::string(statement.known->RowId()) + " IN (";
    DeleteRows(statement);
    out_ += ')';
}

void Printer::DeleteRows(const DeleteStatement& statement) {
    out_ += "SELECT " + SourceName(statement.source) + "." + statement.known->RowId();
    From(statement.from);
    if (!statement.where) return;
    out_ += " WHERE ";
    Print(*statement.where);
}

Printed PrintSelect(const Select& select) {
    Printer printer;
    printer.Query(select, false);
    return printer.Finish();
}

Printed PrintInsert(const InsertStatement& insert) {
    Printer printer;
    printer.Insert(insert);
    return printer.Finish();
}

Printed PrintInsertRows(const InsertStatement& insert) {
    Printer printer;
    printer.InsertRows(insert);
    return printer.Finish();
}

Printed PrintUpdate(const UpdateStatement& update) {
    Printer printer;
    printer.Update(update);
    return printer.Finish();
}

Printed PrintUpdateRows(const UpdateStatement& update) {
    Printer printer;
    printer.UpdateRows(update);
    return printer.Finish();
}

Printed PrintDelete(const DeleteStatement& statement) {
    Printer printer;
    printer.Delete(statement);
    return printer.Finish();
}

Printed PrintDeleteRows(const DeleteStatement& statement) {
    Printer printer;
    printer.DeleteRows(statement);
    return printer.Finish();
}

Printed PrintValue(const Expression& value) {
    Printer printer;
    printer.Write("SELECT ");
    printer.Print(value);
    return printer.Finish();
}

}  // namespace LumoConnection::Embedded
