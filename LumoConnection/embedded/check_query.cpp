#include <algorithm>

#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

std::size_t Checker::SourceInfo::ColumnCount() const { return table ? table->columns.size() : select->types.size(); }

const std::string& Checker::SourceInfo::ColumnName(std::size_t column) const {
    return table ? table->columns[column].name : (*names)[column];
}

Type Checker::SourceInfo::ColumnType(std::size_t column) const {
    return table ? table->columns[column].type : select->types[column];
}

std::string Checker::SourceInfo::PrintedName(std::size_t column) const {
    return table ? table->columns[column].name : Numbered('c', column + 1);
}

int Checker::SourceInfo::Find(std::string_view column) const {
    if (table) return table->Find(column);
    for (std::size_t i = 0; i < names->size(); ++i) {
        if (SameName((*names)[i], column)) return static_cast<int>(i);
    }
    return -1;
}

void Checker::Check(SelectStatement& statement) { CheckQuery(*statement.select, nullptr); }

Checker::SourceInfo Checker::MakeTableSource(TableSource& source, std::size_t place) {
    source.known = catalog_.Find(source.table);
    if (!source.known) Refuse(Refused::kUnknownTable, "Invalid object name '" + source.table + "'.", place);
    SourceInfo info;
    info.table = source.known;
    info.name = source.alias.empty() ? source.table : source.alias;
    info.place = place;
    return info;
}

void Checker::AddSources(Source& source, Scope& scope) {
    if (auto* join = std::get_if<std::unique_ptr<JoinSource>>(&source.node)) {
        AddSources((*join)->left, scope);
        AddSources((*join)->right, scope);
        return;
    }
    SourceInfo info;
    if (auto* table = std::get_if<TableSource>(&source.node)) {
        info = MakeTableSource(*table, source.place);
    } else {
        auto& derived = std::get<DerivedSource>(source.node);
        const Context context = context_;
        CheckQuery(*derived.select, scope.outer);
        context_ = context;
        auto& names = derived.select->names;
        if (!derived.columns.empty()) {
            if (derived.columns.size() != names.size()) {
                Refuse(8158, "'" + derived.alias + "' has more or fewer columns than were specified in the column list.",
                       source.place);
            }
            names = derived.columns;
        }
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (names[i].empty()) {
                Refuse(Refused::kColumnNameNeeded,
                       "No column name was specified for column " + std::to_string(i + 1) + " of '" + derived.alias + "'.",
                       source.place);
            }
        }
        info.select = derived.select.get();
        info.names = &names;
        info.name = derived.alias;
        info.place = source.place;
    }
    for (const SourceInfo& other : scope.sources) {
        if (SameName(other.name, info.name)) {
            Refuse(Refused::kTwiceInFrom,
                   "The objects \"" + info.name + "\" and \"" + other.name +
                       "\" in the FROM clause have the same exposed names. Use correlation names to distinguish them.",
                   source.place);
        }
    }
    info.number = source.number = ++sources_;
    scope.sources.push_back(std::move(info));
}

void Checker::CheckJoinConditions(Source& source, const Scope& scope) {
    auto* join = std::get_if<std::unique_ptr<JoinSource>>(&source.node);
    if (!join) return;
    CheckJoinConditions((*join)->left, scope);
    CheckJoinConditions((*join)->right, scope);
    if ((*join)->on) CheckExpression((*join)->on, &scope);
}

void Checker::ExpandStars(SelectCore& core, const Scope& scope) {
    std::vector<SelectItem> items;
    for (SelectItem& item : core.items) {
        if (item.what != SelectItem::What::kStar) {
            items.push_back(std::move(item));
            continue;
        }
        bool found = false;
        for (const SourceInfo& source : scope.sources) {
            if (!item.name.empty() && !SameName(source.name, item.name)) continue;
            found = true;
            for (std::size_t i = 0; i < source.ColumnCount(); ++i) {
                ColumnNode column;
                column.table = source.name;
                column.name = source.ColumnName(i);
                SelectItem& expanded = items.emplace_back();
                expanded.place = item.place;
                expanded.value = std::make_unique<Expression>();
                expanded.value->place = item.place;
                expanded.value->node = std::move(column);
            }
        }
        if (found) continue;
        if (item.name.empty()) Refuse(263, "Must specify table to select from.", item.place);
        Refuse(107, "The column prefix '" + item.name + "' does not match with a table name or alias name used in the query.",
               item.place);
    }
    core.items = std::move(items);
}

void Checker::CheckCore(SelectCore& core, Scope& scope, bool exists) {
    const Context outer = context_;
    context_ = {};
    for (Source& source : core.from) AddSources(source, scope);
    for (Source& source : core.from) CheckJoinConditions(source, scope);
    if (core.where) CheckExpression(core.where, &scope);
    for (ExpressionPtr& group : core.group_by) CheckExpression(group, &scope);
    if (exists && core.items.size() == 1 && core.items.front().what == SelectItem::What::kStar &&
        core.items.front().name.empty()) {
        core.items.clear();
    }
    ExpandStars(core, scope);
    if (core.top) {
        CheckExpression(core.top, nullptr);
        Coerce(core.top, {Kind::kInt}, Purpose::kCast);
    }
    context_ = {true, &core.aggregated};
    for (SelectItem& item : core.items) {
        CheckExpression(item.value, &scope);
        if (item.what != SelectItem::What::kAssign) continue;
        item.slot = variables_.Find(item.variable);
        if (item.slot < 0) {
            Refuse(Refused::kUndeclared, "Must declare the scalar variable \"" + item.variable + "\".", item.place);
        }
        Coerce(item.value, variables_.all[static_cast<std::size_t>(item.slot)].type, Purpose::kCast);
    }
    if (core.having) {
        if (!core.aggregated && core.group_by.empty()) {
            RefuseNotCovered("HAVING without GROUP BY and without an aggregate function in the select list", core.having->place);
        }
        CheckExpression(core.having, &scope);
    }
    context_ = outer;
}

void Checker::CheckQuery(Select& select, const Scope* outer, bool exists) {
    const bool single = select.cores.size() == 1;
    Scope last;
    for (SelectCore& core : select.cores) {
        Scope scope;
        scope.outer = outer;
        CheckCore(core, scope, exists);
        const auto assigns = std::ranges::count(core.items, SelectItem::What::kAssign, &SelectItem::what);
        if (assigns != 0 && assigns != static_cast<std::ptrdiff_t>(core.items.size())) {
            Refuse(Refused::kMixedAssignment,
                   "A SELECT statement that assigns a value to a variable must not be combined with data-retrieval operations.",
                   core.place);
        }
        CheckGrouping(core, scope, nullptr);
        if (single) last = std::move(scope);
    }
    for (const SelectItem& item : select.cores.front().items) {
        const auto* column = item.value->If<ColumnNode>();
        select.names.push_back(!item.name.empty() ? item.name : column ? column->name : std::string());
    }
    UnifyTypes(select);
    CheckOrder(select, last);
}

void Checker::UnifyTypes(Select& select) {
    const std::size_t count = select.cores.front().items.size();
    select.types.assign(count, Type{});
    for (const SelectCore& core : select.cores) {
        if (core.items.size() != count) {
            Refuse(Refused::kUnionCount,
                   "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of expressions in their target lists.",
                   core.place);
        }
        for (std::size_t i = 0; i < count; ++i)
            select.types[i] = CommonType(select.types[i], core.items[i].value->type);
    }
    for (Type& type : select.types) {
        if (type.kind == Kind::kNull) type = {Kind::kInt};
    }
    if (select.cores.size() == 1) return;
    for (SelectCore& core : select.cores) {
        for (std::size_t i = 0; i < count; ++i) Coerce(core.items[i].value, select.types[i], Purpose::kCast);
    }
}

bool Checker::FindOrderItem(const Select& select, OrderItem& item) {
    const auto& items = select.cores.front().items;
    if (const auto* literal = item.value->If<LiteralNode>()) {
        const std::int64_t position = literals_.empty() || literal->kind != LiteralClass::kInt || literal->negative
                                          ? 0
                                          : std::stoll(std::string(literals_[literal->index].text));
        if (position < 1 || position > static_cast<std::int64_t>(items.size())) {
            Refuse(Refused::kPosition,
                   "The ORDER BY position number " + std::to_string(position) +
                       " is out of range of the number of items in the select list.",
                   item.value->place);
        }
        item.position = static_cast<int>(position);
        return true;
    }
    const auto* column = item.value->If<ColumnNode>();
    if (!column || !column->table.empty()) return false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].what == SelectItem::What::kAssign || select.names[i].empty() || !SameName(select.names[i], column->name))
            continue;
        // A bare column of that name in the list is the column itself.
        if (items[i].name.empty() && select.cores.size() == 1 && !select.cores.front().distinct) continue;
        item.position = static_cast<int>(i + 1);
        return true;
    }
    return false;
}

void Checker::CheckOrder(Select& select, Scope& scope) {
    if (select.order_by.empty()) return;
    SelectCore& core = select.cores.front();
    for (OrderItem& item : select.order_by) {
        if (FindOrderItem(select, item)) continue;
        if (select.cores.size() > 1) {
            Refuse(104, "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or EXCEPT operator.",
                   item.value->place);
        }
        const Context outer = context_;
        const bool was_aggregated = core.aggregated;
        context_ = {true, &core.aggregated};
        CheckExpression(item.value, &scope);
        context_ = outer;
        if (core.aggregated && !was_aggregated && core.group_by.empty()) {
            CheckGrouping(core, scope, nullptr);
            RefuseNotCovered("ORDER BY an aggregate function without GROUP BY and without one in the select list",
                             item.value->place);
        }
        const auto same =
            std::ranges::find_if(core.items, [&](const SelectItem& other) { return Same(*other.value, *item.value); });
        if (same != core.items.end()) {
            item.position = static_cast<int>(same - core.items.begin() + 1);
        } else if (core.distinct) {
            Refuse(Refused::kDistinctOrder,
                   "ORDER BY items must appear in the select list if SELECT DISTINCT is specified.", item.value->place);
        }
    }
    CheckGrouping(core, scope, &select.order_by);
}

void Checker::CheckGrouping(SelectCore& core, const Scope& scope, const std::vector<OrderItem>* order_by) {
    if (!core.aggregated && core.group_by.empty() && !core.having) return;
    if (order_by) {
        for (const OrderItem& item : *order_by) {
            if (item.position == 0) CheckGrouped(*item.value, core, scope, 8127);
        }
        return;
    }
    for (const SelectItem& item : core.items) CheckGrouped(*item.value, core, scope, Refused::kNotGrouped);
    if (core.having) CheckGrouped(*core.having, core, scope, Refused::kHavingNotGrouped);
}

void Checker::CheckGrouped(const Expression& expression, const SelectCore& core, const Scope& scope, int number) {
    for (const ExpressionPtr& group : core.group_by) {
        if (Same(*group, expression)) return;
    }
    if (const auto* column = expression.If<ColumnNode>()) {
        for (const SourceInfo& source : scope.sources) {
            if (source.number != column->source) continue;
            const char* where = number == Refused::kNotGrouped         ? "select list"
                                : number == Refused::kHavingNotGrouped ? "HAVING clause"
                                                                       : "ORDER BY clause";
            Refuse(number,
                   "Column '" + source.name + "." + source.ColumnName(static_cast<std::size_t>(column->column)) +
                       "' is invalid in the " + where +
                       " because it is not contained in either an aggregate function or the GROUP BY clause.",
                   expression.place);
        }
        return;
    }
    if (const auto* call = expression.If<CallNode>(); call && call->function >= Function::kCount) return;
    for (const Expression* child : Children(expression)) CheckGrouped(*child, core, scope, number);
    if (const Select* select = InnerSelect(expression)) {
        for (const SelectCore& inner : select->cores) {
            for (const SelectItem& item : inner.items) CheckGrouped(*item.value, core, scope, number);
            if (inner.where) CheckGrouped(*inner.where, core, scope, number);
        }
    }
}

bool Checker::SameAll(const std::vector<ExpressionPtr>& a, const std::vector<ExpressionPtr>& b) {
    return std::ranges::equal(a, b, [this](const ExpressionPtr& x, const ExpressionPtr& y) { return Same(*x, *y); });
}

bool Checker::Same(const Expression& a, const Expression& b) {
    if (a.node.index() != b.node.index() || a.type.kind != b.type.kind) return false;
    if (const auto* literal = a.If<LiteralNode>()) {
        const auto* other = b.If<LiteralNode>();
        if (literal->kind != other->kind || literal->negative != other->negative || literal->own || other->own)
            return false;
        // Whether they are the same is part of the meaning.
        fixed_.push_back(literal->index);
        fixed_.push_back(other->index);
        return literals_[literal->index].text == literals_[other->index].text;
    }
    if (const auto* column = a.If<ColumnNode>()) {
        return column->source == b.If<ColumnNode>()->source && column->column == b.If<ColumnNode>()->column;
    }
    if (const auto* variable = a.If<VariableNode>()) return variable->slot == b.If<VariableNode>()->slot;
    if (const auto* ambient = a.If<AmbientNode>()) return ambient->what == b.If<AmbientNode>()->what;
    if (const auto* binary = a.If<BinaryNode>(); binary && binary->op != b.If<BinaryNode>()->op) return false;
    if (const auto* logic = a.If<LogicNode>(); logic && logic->is_and != b.If<LogicNode>()->is_and) return false;
    if (const auto* is_null = a.If<IsNullNode>(); is_null && is_null->negated != b.If<IsNullNode>()->negated)
        return false;
    if (const auto* between = a.If<BetweenNode>(); between && between->negated != b.If<BetweenNode>()->negated)
        return false;
    if (const auto* in_list = a.If<InListNode>(); in_list && in_list->negated != b.If<InListNode>()->negated)
        return false;
    if (const auto* like = a.If<LikeNode>();
        like && (like->negated != b.If<LikeNode>()->negated || like->escape || b.If<LikeNode>()->escape))
        return false;
    if (const auto* convert = a.If<ConvertNode>(); convert && convert->style != b.If<ConvertNode>()->style)
        return false;
    if (const auto* choice = a.If<CaseNode>()) {
        const auto* other = b.If<CaseNode>();
        if (!choice->operand != !other->operand || !choice->otherwise != !other->otherwise) return false;
    }
    if (const auto* call = a.If<CallNode>()) {
        const auto* other = b.If<CallNode>();
        if (call->function != other->function || call->part != other->part || call->star != other->star ||
            call->distinct != other->distinct)
            return false;
    }
    if (InnerSelect(a)) return false;
    const auto children = Children(a);
    const auto others = Children(b);
    if (children.size() != others.size()) return false;
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (!Same(*children[i], *others[i])) return false;
    }
    return true;
}

}  // namespace LumoConnection::Embedded
