#include <LumoConnection/embedded/check.h>

#include <algorithm>

#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

const char* OperatorName(Operator op) {
    switch (op) {
        case Operator::kAdd:
            return "add";
        case Operator::kSubtract:
            return "subtract";
        case Operator::kMultiply:
            return "multiply";
        case Operator::kDivide:
            return "divide";
        default:
            return "modulo";
    }
}

[[noreturn]] void RefuseOperand(Kind kind, const char* op, std::size_t place) {
    Refuse(Refused::kOperandType,
           std::string("Operand data type ") + KindText(kind) + " is invalid for " + op + " operator.", place);
}

bool IsDecimalLiteral(const Expression& expression) {
    const auto* literal = expression.If<LiteralNode>();
    return literal && !literal->converted && (expression.type.kind == Kind::kDecimal || expression.type.kind == Kind::kFloat);
}

}  // namespace

int Variables::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(all, [&](const Variable& variable) { return SameName(variable.name, name); });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

void Checker::Coerce(ExpressionPtr& expression, Type to, Purpose purpose, int style) {
    const Type from = expression->type;
    if (from.kind == Kind::kNull) {
        expression->type = to;
        return;
    }
    if (IsText(from.kind) && IsText(to.kind)) {
        const bool fits = to.length == Type::kNoLimit || (from.length != Type::kNoLimit && from.length <= to.length);
        const bool pads = (to.kind == Kind::kChar || to.kind == Kind::kNchar) && from != to;
        if (fits && !pads) return;
    } else if (from.kind == to.kind) {
        return;
    }
    if (auto* literal = expression->If<LiteralNode>(); literal && !literal->converted) {
        literal->converted = true;
        literal->purpose = purpose;
        literal->style = style;
        expression->type = to;
        return;
    }
    auto outer = std::make_unique<Expression>();
    outer->place = expression->place;
    outer->type = to;
    outer->node = ConvertNode{std::move(expression), purpose, style};
    expression = std::move(outer);
}

void Checker::CheckColumn(Expression& expression, ColumnNode& node, const Scope* scope) const {
    for (const Scope* level = scope; level; level = level->outer) {
        const SourceInfo* found = nullptr;
        int column = -1;
        for (const SourceInfo& source : level->sources) {
            if (!node.table.empty() && !SameName(source.name, node.table)) continue;
            const int at = source.Find(node.name);
            if (at < 0) {
                if (node.table.empty()) continue;
                Refuse(Refused::kUnknownColumn, "Invalid column name '" + node.name + "'.", expression.place);
            }
            if (found) Refuse(Refused::kAmbiguous, "Ambiguous column name '" + node.name + "'.", expression.place);
            found = &source;
            column = at;
        }
        if (!found) continue;
        node.source = found->number;
        node.column = column;
        node.printed = found->PrintedName(static_cast<std::size_t>(column));
        expression.type = found->ColumnType(static_cast<std::size_t>(column));
        return;
    }
    if (!node.table.empty()) {
        Refuse(Refused::kUnbound, "The multi-part identifier \"" + node.table + "." + node.name + "\" could not be bound.",
               expression.place);
    }
    Refuse(Refused::kUnknownColumn, "Invalid column name '" + node.name + "'.", expression.place);
}

void Checker::CheckExpression(ExpressionPtr& pointer, const Scope* scope) {
    Expression& expression = *pointer;
    auto& node = expression.node;
    if (auto* literal = std::get_if<LiteralNode>(&node)) {
        expression.type = NaturalType(literal->kind);
    } else if (auto* column = std::get_if<ColumnNode>(&node)) {
        CheckColumn(expression, *column, scope);
    } else if (auto* variable = std::get_if<VariableNode>(&node)) {
        variable->slot = variables_.Find(variable->name);
        if (variable->slot < 0) {
            Refuse(Refused::kUndeclared, "Must declare the scalar variable \"" + variable->name + "\".", expression.place);
        }
        expression.type = variables_.all[static_cast<std::size_t>(variable->slot)].type;
    } else if (auto* ambient = std::get_if<AmbientNode>(&node)) {
        constexpr std::int32_t kMostName = 128;
        expression.type = ambient->what == Ambient::kNow    ? Type{Kind::kDatetime}
                          : ambient->what == Ambient::kUser ? Type{Kind::kNvarchar, kMostName}
                                                            : Type{Kind::kInt};
    } else if (auto* negate = std::get_if<NegateNode>(&node)) {
        CheckExpression(negate->operand, scope);
        Type type = negate->operand->type;
        if (IsText(type.kind) || type.kind == Kind::kDatetime || type.kind == Kind::kBit) {
            RefuseOperand(type.kind, "minus", expression.place);
        }
        if (type.kind == Kind::kNull) Coerce(negate->operand, type = {Kind::kInt}, Purpose::kCast);
        if (type.kind == Kind::kTinyint) type.kind = Kind::kSmallint;
        expression.type = type;
    } else if (auto* binary = std::get_if<BinaryNode>(&node)) {
        CheckBinary(pointer, *binary, scope);
    } else if (auto* logic = std::get_if<LogicNode>(&node)) {
        for (ExpressionPtr& operand : logic->operands) CheckExpression(operand, scope);
    } else if (auto* negated = std::get_if<NotNode>(&node)) {
        CheckExpression(negated->operand, scope);
    } else if (auto* is_null = std::get_if<IsNullNode>(&node)) {
        CheckExpression(is_null->operand, scope);
    } else if (auto* between = std::get_if<BetweenNode>(&node)) {
        CheckExpression(between->operand, scope);
        CheckExpression(between->low, scope);
        CheckExpression(between->high, scope);
        const Type bounds = CommonType(between->low->type, between->high->type);
        if (!IsText(between->operand->type.kind) || !IsText(bounds.kind)) {
            const Type common = CommonType(between->operand->type, bounds);
            Coerce(between->operand, common, Purpose::kCast);
            Coerce(between->low, common, Purpose::kCast);
            Coerce(between->high, common, Purpose::kCast);
        }
    } else if (auto* in_list = std::get_if<InListNode>(&node)) {
        CheckExpression(in_list->operand, scope);
        Type common = in_list->operand->type;
        for (ExpressionPtr& value : in_list->values) {
            CheckExpression(value, scope);
            common = CommonType(common, value->type);
        }
        if (!IsText(common.kind)) {
            Coerce(in_list->operand, common, Purpose::kCast);
            for (ExpressionPtr& value : in_list->values) Coerce(value, common, Purpose::kCast);
        }
    } else if (auto* in_select = std::get_if<InSelectNode>(&node)) {
        CheckIn(*in_select, scope, expression.place);
    } else if (auto* exists = std::get_if<ExistsNode>(&node)) {
        CheckQuery(*exists->select, scope, true);
    } else if (auto* like = std::get_if<LikeNode>(&node)) {
        CheckLike(*like, scope);
    } else if (auto* choice = std::get_if<CaseNode>(&node)) {
        CheckCase(expression, *choice, scope);
    } else if (auto* cast = std::get_if<CastNode>(&node)) {
        CheckExpression(cast->operand, scope);
        const Type to = cast->to;
        const int style = cast->style;
        Coerce(cast->operand, to, Purpose::kCast, style);
        // The conversion takes the place of the cast.
        const std::size_t place = expression.place;
        ExpressionPtr inner = std::move(cast->operand);
        inner->type = to;
        if (auto* constant = inner->If<LiteralNode>()) constant->converted = true;
        pointer = std::move(inner);
        pointer->place = place;
    } else if (auto* select = std::get_if<SelectNode>(&node)) {
        CheckQuery(*select->select, scope);
        CheckSelectColumns(*select->select, expression.place);
        expression.type = select->select->types.front();
    } else if (auto* call = std::get_if<CallNode>(&node)) {
        CheckCall(pointer, *call, scope);
    }
}

void Checker::CheckSelectColumns(const Select& select, std::size_t place) const {
    if (select.types.size() == 1) return;
    Refuse(Refused::kOneExpressionOnly,
           "Only one expression can be specified in the select list when the subquery is not introduced with EXISTS.", place);
}

void Checker::CheckBinary(ExpressionPtr& expression, BinaryNode& node, const Scope* scope) {
    CheckExpression(node.left, scope);
    CheckExpression(node.right, scope);
    if (node.op >= Operator::kEqual) return CheckComparison(node.left, node.right);
    CheckArithmetic(*expression, node);
}

void Checker::CheckComparison(ExpressionPtr& left, ExpressionPtr& right) {
    if (IsText(left->type.kind) && IsText(right->type.kind)) return;
    // SQLite compares whole numbers and floating ones exactly; so an index on the column stays of use.
    if (IsWhole(left->type.kind) && IsDecimalLiteral(*right)) return Coerce(right, {Kind::kFloat}, Purpose::kCast);
    if (IsWhole(right->type.kind) && IsDecimalLiteral(*left)) return Coerce(left, {Kind::kFloat}, Purpose::kCast);
    const auto real = [](Kind kind) { return IsWhole(kind) || IsFloating(kind); };
    const bool literal = left->If<LiteralNode>() || right->If<LiteralNode>();
    if (!literal && real(left->type.kind) && real(right->type.kind)) return;
    const Type common = CommonType(left->type, right->type);
    Coerce(left, common, Purpose::kCast);
    Coerce(right, common, Purpose::kCast);
}

void Checker::CheckArithmetic(Expression& expression, BinaryNode& node) {
    const Type left = node.left->type;
    const Type right = node.right->type;
    const char* name = OperatorName(node.op);
    const bool texts = (IsText(left.kind) || left.kind == Kind::kNull) &&
                       (IsText(right.kind) || right.kind == Kind::kNull) && (IsText(left.kind) || IsText(right.kind));
    if (texts) {
        if (node.op != Operator::kAdd)
            RefuseOperand(IsText(left.kind) ? left.kind : right.kind, name, expression.place);
        Type type = CommonType(left, right);
        if (type.kind == Kind::kChar) type.kind = Kind::kVarchar;
        if (type.kind == Kind::kNchar) type.kind = Kind::kNvarchar;
        const bool open = left.length == Type::kNoLimit || right.length == Type::kNoLimit;
        type.length = open ? Type::kNoLimit : left.length + right.length;
        Coerce(node.left, type, Purpose::kCast);
        Coerce(node.right, type, Purpose::kCast);
        expression.type = type;
        return;
    }
    Type type = CommonType(left, right);
    if (type.kind == Kind::kNull) type = {Kind::kInt};
    if (type.kind == Kind::kDatetime && node.op != Operator::kAdd && node.op != Operator::kSubtract) {
        RefuseOperand(type.kind, name, expression.place);
    }
    if (type.kind == Kind::kBit || (IsFloating(type.kind) && node.op == Operator::kModulo)) {
        Refuse(Refused::kIncompatible,
               std::string("The data types ") + KindText(left.kind) + " and " + KindText(right.kind) +
                   " are incompatible in the " + name + " operator.",
               expression.place);
    }
    const bool decimals = left.kind == Kind::kDecimal || right.kind == Kind::kDecimal;
    if (decimals && IsFixed(type.kind)) {
        const auto count = [](Type operand) { return operand.kind == Kind::kDecimal ? operand.length : 0; };
        if (node.op == Operator::kDivide) {
            type = {Kind::kFloat};
        } else if (type.kind == Kind::kDecimal) {
            constexpr std::int32_t kMostDecimals = 4;
            type.length = node.op == Operator::kMultiply ? count(left) + count(right) : std::max(count(left), count(right));
            if (type.length > kMostDecimals) type = {Kind::kFloat};
        }
    }
    Coerce(node.left, type, Purpose::kCast);
    Coerce(node.right, type, Purpose::kCast);
    expression.type = type;
}

void Checker::CheckCase(Expression& expression, CaseNode& node, const Scope* scope) {
    if (node.operand) CheckExpression(node.operand, scope);
    Type common;
    Type compared = node.operand ? node.operand->type : Type{};
    for (CaseNode::Branch& branch : node.branches) {
        CheckExpression(branch.when, scope);
        if (node.operand) compared = CommonType(compared, branch.when->type);
        CheckExpression(branch.then, scope);
        common = CommonType(common, branch.then->type);
    }
    if (node.otherwise) {
        CheckExpression(node.otherwise, scope);
        common = CommonType(common, node.otherwise->type);
    }
    if (common.kind == Kind::kNull) {
        Refuse(8133, "At least one of the result expressions in a CASE specification must be an expression other than the NULL constant.",
               expression.place);
    }
    for (CaseNode::Branch& branch : node.branches) {
        Coerce(branch.then, common, Purpose::kCast);
        if (node.operand && !IsText(compared.kind)) Coerce(branch.when, compared, Purpose::kCast);
    }
    if (node.otherwise) Coerce(node.otherwise, common, Purpose::kCast);
    if (node.operand && !IsText(compared.kind)) Coerce(node.operand, compared, Purpose::kCast);
    expression.type = common;
}

void Checker::CheckIn(InSelectNode& node, const Scope* scope, std::size_t place) {
    CheckExpression(node.operand, scope);
    CheckQuery(*node.select, scope);
    CheckSelectColumns(*node.select, place);
    const Type found = node.select->types.front();
    if (IsText(node.operand->type.kind) && IsText(found.kind)) return;
    const Type common = CommonType(node.operand->type, found);
    Coerce(node.operand, common, Purpose::kCast);
    if (found.kind != common.kind) CoerceItems(*node.select, common);
}

void Checker::CoerceItems(Select& select, Type to) {
    for (SelectCore& core : select.cores) Coerce(core.items.front().value, to, Purpose::kCast);
    select.types.front() = to;
}

void Checker::CheckLike(LikeNode& node, const Scope* scope) {
    constexpr Type kText{Kind::kVarchar, Type::kNoLimit};
    for (ExpressionPtr* part : {&node.operand, &node.pattern, &node.escape}) {
        if (!*part) continue;
        CheckExpression(*part, scope);
        if (!IsText((*part)->type.kind)) Coerce(*part, kText, Purpose::kCast);
        node.unicode = node.unicode || IsUnicode((*part)->type.kind);
    }
}

void Checker::CheckCondition(ExpressionPtr& condition) { CheckExpression(condition, nullptr); }

void Checker::CheckValue(ExpressionPtr& value, Type to) {
    CheckExpression(value, nullptr);
    Coerce(value, to, Purpose::kCast);
}

void Checker::Declare(DeclareStatement& statement) {
    for (auto& variable : statement.variables) {
        if (variables_.Find(variable.name) >= 0) {
            Refuse(Refused::kAlreadyDeclared,
                   "The variable name '" + variable.name +
                       "' has already been declared. Variable names must be unique within a query batch.",
                   variable.place);
        }
        if (variable.value) CheckValue(variable.value, variable.type);
        variable.slot = static_cast<int>(variables_.all.size());
        variables_.all.push_back({variable.name, variable.type});
    }
}

void Checker::Check(SetStatement& statement) {
    statement.slot = variables_.Find(statement.variable);
    if (statement.slot < 0) {
        Refuse(Refused::kUndeclared, "Must declare the scalar variable \"" + statement.variable + "\".",
               statement.value->place);
    }
    statement.type = variables_.all[static_cast<std::size_t>(statement.slot)].type;
    CheckValue(statement.value, statement.type);
}

}  // namespace LumoConnection::Embedded
