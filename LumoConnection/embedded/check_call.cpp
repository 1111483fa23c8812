#include <algorithm>

#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

constexpr Type kAnyText{Kind::kVarchar, Type::kNoLimit};

const char* FunctionName(Function function) {
    switch (function) {
        case Function::kSum:
            return "sum";
        case Function::kAvg:
            return "avg";
        case Function::kMin:
            return "min";
        case Function::kMax:
            return "max";
        case Function::kAbs:
            return "abs";
        case Function::kSign:
            return "sign";
        case Function::kFloor:
            return "floor";
        case Function::kCeiling:
            return "ceiling";
        case Function::kRound:
            return "round";
        default:
            return "function";
    }
}

// The type of a text that a function makes from another: without padding.
Type Unpadded(Type type, std::int32_t length) {
    if (type.kind == Kind::kChar) return {Kind::kVarchar, length};
    if (type.kind == Kind::kNchar) return {Kind::kNvarchar, length};
    return {type.kind, length};
}

}  // namespace

void Checker::CheckCall(ExpressionPtr& pointer, CallNode& node, const Scope* scope) {
    Expression& expression = *pointer;
    if (node.function >= Function::kCount) return CheckAggregate(expression, node, scope);
    auto& arguments = node.arguments;
    for (ExpressionPtr& argument : arguments) CheckExpression(argument, scope);
    const auto need_text = [&](std::size_t at) {
        const Type type = arguments[at]->type;
        if (!IsText(type.kind)) Coerce(arguments[at], kAnyText, Purpose::kCast);
    };
    const auto need = [&](std::size_t at, Kind kind) {
        if (arguments.size() > at) Coerce(arguments[at], {kind}, Purpose::kCast);
    };
    switch (node.function) {
        case Function::kIsNull: {
            Type type = arguments[0]->type;
            if (type.kind == Kind::kNull) type = arguments[1]->type;
            if (type.kind == Kind::kNull) type = {Kind::kInt};
            Coerce(arguments[0], type, Purpose::kCast);
            Coerce(arguments[1], type, Purpose::kCast);
            expression.type = type;
            return;
        }
        case Function::kCoalesce: {
            Type type;
            for (const ExpressionPtr& argument : arguments) type = CommonType(type, argument->type);
            if (type.kind == Kind::kNull) {
                Refuse(4127, "At least one of the arguments to COALESCE must be an expression that is not the NULL constant.",
                       expression.place);
            }
            for (ExpressionPtr& argument : arguments) Coerce(argument, type, Purpose::kCast);
            expression.type = type;
            return;
        }
        case Function::kNullIf: {
            // The first argument keeps its type; the comparison may ask for another.
            if (arguments[0]->type.kind == Kind::kNull) {
                Refuse(4151, "The type of the first argument to NULLIF cannot be the NULL constant because the type of the first argument has to be known.",
                       expression.place);
            }
            expression.type = arguments[0]->type;
            if (!IsText(expression.type.kind) || !IsText(arguments[1]->type.kind)) {
                Coerce(arguments[1], expression.type, Purpose::kCast);
            }
            return;
        }
        case Function::kYear:
        case Function::kMonth:
        case Function::kDay:
            node.part = node.function == Function::kYear    ? DatePart::kYear
                        : node.function == Function::kMonth ? DatePart::kMonth
                                                            : DatePart::kDay;
            [[fallthrough]];
        case Function::kDatePart:
            need(0, Kind::kDatetime);
            expression.type = {Kind::kInt};
            return;
        case Function::kDateAdd:
            need(0, Kind::kInt);
            need(1, Kind::kDatetime);
            expression.type = {Kind::kDatetime};
            return;
        case Function::kDateDiff:
            need(0, Kind::kDatetime);
            need(1, Kind::kDatetime);
            expression.type = {Kind::kInt};
            return;
        case Function::kStr:
            need(0, Kind::kFloat);
            need(1, Kind::kInt);
            need(2, Kind::kInt);
            expression.type = kAnyText;
            return;
        case Function::kLTrim:
        case Function::kRTrim:
        case Function::kUpper:
        case Function::kLower:
            need_text(0);
            expression.type = Unpadded(arguments[0]->type, arguments[0]->type.length);
            return;
        case Function::kLeft:
        case Function::kRight:
        case Function::kSubstring:
            need_text(0);
            need(1, Kind::kInt);
            need(2, Kind::kInt);
            expression.type = Unpadded(arguments[0]->type, arguments[0]->type.length);
            return;
        case Function::kReplace:
            for (std::size_t i = 0; i < arguments.size(); ++i) need_text(i);
            expression.type = Unpadded(arguments[0]->type, Type::kNoLimit);
            return;
        case Function::kSpace:
            need(0, Kind::kInt);
            expression.type = kAnyText;
            return;
        case Function::kLen:
            need_text(0);
            expression.type = {Kind::kInt};
            return;
        case Function::kCharIndex:
            need_text(0);
            need_text(1);
            need(2, Kind::kInt);
            expression.type = {Kind::kInt};
            return;
        case Function::kAbs:
        case Function::kSign:
        case Function::kFloor:
        case Function::kCeiling:
        case Function::kRound:
            CheckRounding(expression, node);
            return;
        default:
            return;
    }
}

// The functions on one number keep its type; the short ones become int, real becomes float.
void Checker::CheckRounding(Expression& expression, CallNode& node) {
    auto& arguments = node.arguments;
    Type type = arguments[0]->type;
    if (type.kind == Kind::kDatetime) {
        Refuse(Refused::kArgumentType,
               std::string("Argument data type datetime is invalid for argument 1 of ") + FunctionName(node.function) + " function.",
               expression.place);
    }
    if (type.kind == Kind::kNull) type = {Kind::kInt};
    if (IsWhole(type.kind)) type = {Kind::kInt};
    if (IsText(type.kind) || type.kind == Kind::kReal) type = {Kind::kFloat};
    const bool whole = node.function == Function::kFloor || node.function == Function::kCeiling;
    if (whole && type.kind == Kind::kDecimal) type.length = 0;
    if (type.kind == Kind::kDecimal) {
        // The digits are kept as they are; only the result counts them anew.
        if (arguments[0]->type.kind != Kind::kDecimal) Coerce(arguments[0], type, Purpose::kCast);
    } else {
        Coerce(arguments[0], type, Purpose::kCast);
    }
    for (std::size_t i = 1; i < arguments.size(); ++i) Coerce(arguments[i], {Kind::kInt}, Purpose::kCast);
    node.argument_type = type;
    expression.type = type;
}

// True where an expression names columns, but none of this query.
bool Checker::BelongsOutside(const Expression& expression, const Scope* scope) {
    bool names_columns = false;
    std::vector<const Expression*> left{&expression};
    while (!left.empty()) {
        const Expression* next = left.back();
        left.pop_back();
        if (const auto* column = next->If<ColumnNode>()) {
            names_columns = true;
            const auto own = [&](const SourceInfo& source) { return source.number == column->source; };
            if (scope && std::ranges::any_of(scope->sources, own)) return false;
        }
        for (const Expression* child : Children(*next)) left.push_back(child);
    }
    return names_columns;
}

void Checker::CheckAggregate(Expression& expression, CallNode& node, const Scope* scope) {
    if (!context_.aggregates) {
        if (context_.aggregated) {
            Refuse(Refused::kNestedAggregate,
                   "Cannot perform an aggregate function on an expression containing an aggregate or a subquery.",
                   expression.place);
        }
        Refuse(Refused::kAggregateInWhere,
               "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a HAVING clause or a select list, and the column being aggregated is an outer reference.",
               expression.place);
    }
    *context_.aggregated = true;
    if (node.star) {
        expression.type = {Kind::kInt};
        return;
    }
    ExpressionPtr& argument = node.arguments.front();
    const Context outer = context_;
    context_.aggregates = false;
    CheckExpression(argument, scope);
    context_ = outer;
    if (BelongsOutside(*argument, scope)) {
        RefuseNotCovered("An aggregate over columns of an outer query alone", expression.place);
    }
    Type type = argument->type;
    if (type.kind == Kind::kNull && node.function != Function::kCount) type = {Kind::kInt};
    node.argument_type = type;
    switch (node.function) {
        case Function::kCount:
            expression.type = {Kind::kInt};
            return;
        case Function::kMin:
        case Function::kMax:
            if (type.kind == Kind::kBit) break;
            expression.type = type;
            return;
        default:
            if (type.kind == Kind::kBit || !IsNumber(type.kind)) break;
            if (IsWhole(type.kind)) type = {Kind::kInt};
            if (type.kind == Kind::kReal) type = {Kind::kFloat};
            if (type.kind == Kind::kDecimal && node.function == Function::kAvg) type = {Kind::kFloat};
            expression.type = type;
            return;
    }
    Refuse(Refused::kOperandType,
           std::string("Operand data type ") + KindText(type.kind) + " is invalid for " + FunctionName(node.function) + " operator.",
           expression.place);
}

}  // namespace LumoConnection::Embedded
