#include <LumoConnection/embedded/print.h>

#include <array>
#include <cstdio>

#include <LumoConnection/embedded/printer.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

std::string PrintConstant(const Value& value) {
    switch (value.form) {
        case Value::Form::kNull:
            return "NULL";
        case Value::Form::kInteger:
            return std::to_string(value.integer);
        case Value::Form::kReal: {
            std::array<char, 40> text{};
            std::snprintf(text.data(), text.size(), "%.17e", value.real);
            return text.data();
        }
        case Value::Form::kText:
            break;
    }
    std::string quoted = "'";
    if (value.text.find('\0') != std::string_view::npos) {
        quoted = "CAST(x'";
        for (const char c : value.text) {
            std::array<char, 3> digits{};
            std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
            quoted += digits.data();
        }
        return quoted += "' AS TEXT)";
    }
    for (const char c : value.text) {
        if (c == '\'') quoted += '\'';
        quoted += c;
    }
    return quoted += "'";
}

void Printer::Literal(const LiteralNode& literal, Type type) {
    if (literal.own) {
        std::string buffer;
        const Embedded::Literal own{*literal.own, literal.kind, false};
        out_ += PrintConstant(ReadLiteral(own, literal.negative, type, literal.purpose, literal.style, buffer));
        return;
    }
    Parameter parameter;
    parameter.index = literal.index;
    parameter.negative = literal.negative;
    parameter.purpose = literal.purpose;
    parameter.style = literal.style;
    parameter.type = type;
    Bound(parameter);
}

void Printer::Bound(const Parameter& parameter) {
    parameters_.push_back(parameter);
    out_ += '?';
    out_ += std::to_string(parameters_.size());
}

void Printer::Column(int source, std::string_view name) {
    if (source > 0) {
        out_ += 's';
        out_ += std::to_string(source);
        out_ += '.';
    }
    out_ += QuoteName(name);
}

void Printer::List(const std::vector<ExpressionPtr>& expressions, bool collated) {
    for (std::size_t i = 0; i < expressions.size(); ++i) {
        if (i > 0) out_ += ", ";
        collated ? Collated(*expressions[i]) : Print(*expressions[i]);
    }
}

// A text that is no column carries no collation of its own.
void Printer::Collated(const Expression& expression) {
    Print(expression);
    if (!IsText(expression.type.kind) || expression.If<ColumnNode>()) return;
    out_ += " COLLATE ";
    out_ += kCollation;
}

void Printer::Call(const char* function, std::initializer_list<const Expression*> arguments, std::int64_t last) {
    out_ += function;
    out_ += '(';
    for (const Expression* argument : arguments) {
        Print(*argument);
        out_ += ", ";
    }
    out_ += std::to_string(last);
    out_ += ')';
}

// One more level of brackets halves the list, so that long conditions stay flat.
void Printer::Logic(const LogicNode& logic, std::size_t first, std::size_t last) {
    if (last - first == 1) return Print(*logic.operands[first]);
    const std::size_t middle = first + (last - first) / 2;
    out_ += '(';
    Logic(logic, first, middle);
    out_ += logic.is_and ? " AND " : " OR ";
    Logic(logic, middle, last);
    out_ += ')';
}

void Printer::Comparison(const BinaryNode& node) {
    static constexpr const char* kOperators[] = {" = ", " <> ", " < ", " <= ", " > ", " >= "};
    out_ += '(';
    node.right->If<ColumnNode>() ? Print(*node.left) : Collated(*node.left);
    out_ += kOperators[static_cast<std::size_t>(node.op) - static_cast<std::size_t>(Operator::kEqual)];
    Print(*node.right);
    out_ += ')';
}

void Printer::Arithmetic(const Expression& expression, const BinaryNode& node) {
    const Type type = expression.type;
    if (IsText(type.kind)) {
        out_ += '(';
        Print(*node.left);
        out_ += " || ";
        Print(*node.right);
        out_ += ')';
        return;
    }
    const std::int64_t packed = Pack(type);
    const auto checked = [&](const char* op) {
        out_ += "lumo_fit(";
        Print(*node.left);
        out_ += op;
        Print(*node.right);
        out_ += ", " + std::to_string(packed) + ')';
    };
    switch (node.op) {
        case Operator::kAdd:
            return checked(" + ");
        case Operator::kSubtract:
            return checked(" - ");
        case Operator::kMultiply:
            if (IsFixed(type.kind)) return Call("lumo_times", {node.left.get(), node.right.get()}, packed);
            return checked(" * ");
        case Operator::kDivide:
            return Call("lumo_divide", {node.left.get(), node.right.get()}, packed);
        default:
            return Call("lumo_modulo", {node.left.get(), node.right.get()}, packed);
    }
}

void Printer::Convert(const Expression& expression, const ConvertNode& node) {
    const Type from = node.operand->type;
    const Type to = expression.type;
    if ((IsFixed(from.kind) && IsFixed(to.kind)) || (from.kind == Kind::kReal && to.kind == Kind::kFloat) ||
        (IsWhole(from.kind) && IsWhole(to.kind) && from.kind <= to.kind && to.kind != Kind::kBit)) {
        return Print(*node.operand);
    }
    out_ += "lumo_convert(";
    Print(*node.operand);
    out_ += ", " + std::to_string(Pack(from)) + ", " + std::to_string(Pack(to)) + ", " +
            std::to_string(static_cast<int>(node.purpose)) + ", " + std::to_string(node.style) + ')';
}

void Printer::Case(const CaseNode& node) {
    out_ += "CASE";
    if (node.operand) {
        out_ += ' ';
        Collated(*node.operand);
    }
    for (const CaseNode::Branch& branch : node.branches) {
        out_ += " WHEN ";
        Print(*branch.when);
        out_ += " THEN ";
        Print(*branch.then);
    }
    if (node.otherwise) {
        out_ += " ELSE ";
        Print(*node.otherwise);
    }
    out_ += " END";
}

void Printer::Aggregate(const Expression& expression, const CallNode& node) {
    if (node.star) {
        out_ += "count(*)";
        return;
    }
    const Expression& argument = *node.arguments.front();
    const Type from = node.argument_type;
    const auto plain = [&](const char* function) {
        out_ += function;
        out_ += node.distinct ? "(DISTINCT " : "(";
        Collated(argument);
        out_ += ')';
    };
    switch (node.function) {
        case Function::kCount:
            return plain("count");
        case Function::kMin:
            return plain("min");
        case Function::kMax:
            return plain("max");
        case Function::kSum:
            out_ += "lumo_fit(";
            plain("sum");
            out_ += ", " + std::to_string(Pack(expression.type)) + ')';
            return;
        default:
            break;
    }
    if (IsFloating(from.kind)) return plain("avg");
    if (from.kind == Kind::kDecimal) {
        out_ += '(';
        plain("avg");
        out_ += " / 10000.0)";
        return;
    }
    out_ += '(';
    plain("sum");
    out_ += " / ";
    plain("count");
    out_ += ')';
}

void Printer::Function(const CallNode& node) {
    const auto named = [&](const char* function, bool collated = false) {
        out_ += function;
        out_ += '(';
        List(node.arguments, collated);
        out_ += ')';
    };
    const auto with_part = [&](const char* function) {
        out_ += function;
        out_ += '(';
        List(node.arguments, false);
        out_ += ", " + std::to_string(static_cast<int>(node.part)) + ')';
    };
    const auto with_type = [&](const char* function) {
        out_ += function;
        out_ += '(' + std::to_string(Pack(node.argument_type)) + ", ";
        List(node.arguments, false);
        out_ += ')';
    };
    switch (node.function) {
        case Embedded::Function::kIsNull:
            return named("ifnull");
        case Embedded::Function::kCoalesce:
            return named("coalesce");
        case Embedded::Function::kNullIf:
            return named("nullif", true);
        case Embedded::Function::kYear:
        case Embedded::Function::kMonth:
        case Embedded::Function::kDay:
        case Embedded::Function::kDatePart:
            return with_part("lumo_datepart");
        case Embedded::Function::kDateAdd:
            return with_part("lumo_dateadd");
        case Embedded::Function::kDateDiff:
            return with_part("lumo_datediff");
        case Embedded::Function::kStr:
            return named("lumo_str");
        case Embedded::Function::kLTrim:
            return named("lumo_ltrim");
        case Embedded::Function::kRTrim:
            return named("lumo_rtrim");
        case Embedded::Function::kLeft:
            return named("lumo_left");
        case Embedded::Function::kRight:
            return named("lumo_right");
        case Embedded::Function::kLen:
            return named("lumo_len");
        case Embedded::Function::kSubstring:
            return named("lumo_substring");
        case Embedded::Function::kUpper:
            return named("lumo_upper");
        case Embedded::Function::kLower:
            return named("lumo_lower");
        case Embedded::Function::kCharIndex:
            return named("lumo_charindex");
        case Embedded::Function::kReplace:
            return named("lumo_replace");
        case Embedded::Function::kSpace:
            return named("lumo_space");
        case Embedded::Function::kAbs:
            return with_type("lumo_abs");
        case Embedded::Function::kSign:
            return with_type("lumo_sign");
        case Embedded::Function::kFloor:
            return with_type("lumo_floor");
        case Embedded::Function::kCeiling:
            return with_type("lumo_ceiling");
        case Embedded::Function::kRound:
            return with_type("lumo_round");
        default:
            RefuseNotCovered("This function");
    }
}

void Printer::Print(const Expression& expression) {
    const auto& node = expression.node;
    if (const auto* literal = std::get_if<LiteralNode>(&node)) {
        Literal(*literal, expression.type);
    } else if (std::holds_alternative<NullNode>(node)) {
        out_ += "NULL";
    } else if (const auto* column = std::get_if<ColumnNode>(&node)) {
        Column(bare_columns_ ? 0 : column->source, column->printed);
    } else if (const auto* variable = std::get_if<VariableNode>(&node)) {
        Parameter parameter;
        parameter.from = Parameter::From::kVariable;
        parameter.index = static_cast<std::uint32_t>(variable->slot);
        parameter.type = expression.type;
        Bound(parameter);
    } else if (const auto* ambient = std::get_if<AmbientNode>(&node)) {
        Parameter parameter;
        parameter.from = ambient->what == Ambient::kNow    ? Parameter::From::kNow
                         : ambient->what == Ambient::kUser ? Parameter::From::kUser
                                                           : Parameter::From::kRowCount;
        parameter.type = expression.type;
        Bound(parameter);
    } else if (const auto* negate = std::get_if<NegateNode>(&node)) {
        out_ += "lumo_fit(-";
        Print(*negate->operand);
        out_ += ", " + std::to_string(Pack(expression.type)) + ')';
    } else if (const auto* binary = std::get_if<BinaryNode>(&node)) {
        binary->op >= Operator::kEqual ? Comparison(*binary) : Arithmetic(expression, *binary);
    } else if (const auto* logic = std::get_if<LogicNode>(&node)) {
        Logic(*logic, 0, logic->operands.size());
    } else if (const auto* negated = std::get_if<NotNode>(&node)) {
        out_ += "(NOT ";
        Print(*negated->operand);
        out_ += ')';
    } else if (const auto* is_null = std::get_if<IsNullNode>(&node)) {
        out_ += '(';
        Print(*is_null->operand);
        out_ += is_null->negated ? " IS NOT NULL)" : " IS NULL)";
    } else if (const auto* between = std::get_if<BetweenNode>(&node)) {
        out_ += '(';
        Collated(*between->operand);
        out_ += between->negated ? " NOT BETWEEN " : " BETWEEN ";
        Print(*between->low);
        out_ += " AND ";
        Print(*between->high);
        out_ += ')';
    } else if (const auto* in_list = std::get_if<InListNode>(&node)) {
        out_ += '(';
        Collated(*in_list->operand);
        out_ += in_list->negated ? " NOT IN (" : " IN (";
        List(in_list->values, false);
        out_ += "))";
    } else if (const auto* in_select = std::get_if<InSelectNode>(&node)) {
        out_ += '(';
        Collated(*in_select->operand);
        out_ += in_select->negated ? " NOT IN (" : " IN (";
        Query(*in_select->select, false);
        out_ += "))";
    } else if (const auto* exists = std::get_if<ExistsNode>(&node)) {
        out_ += "EXISTS (";
        Query(*exists->select, false);
        out_ += ')';
    } else if (const auto* like = std::get_if<LikeNode>(&node)) {
        out_ += like->negated ? "(NOT lumo_like(" : "lumo_like(";
        Print(*like->operand);
        out_ += ", ";
        Print(*like->pattern);
        out_ += like->unicode ? ", 1" : ", 0";
        if (like->escape) {
            out_ += ", ";
            Print(*like->escape);
        }
        out_ += like->negated ? "))" : ")";
    } else if (const auto* choice = std::get_if<CaseNode>(&node)) {
        Case(*choice);
    } else if (const auto* cast = std::get_if<CastNode>(&node)) {
        Print(*cast->operand);
    } else if (const auto* select = std::get_if<SelectNode>(&node)) {
        ScalarQuery(*select->select);
    } else if (const auto* call = std::get_if<CallNode>(&node)) {
        call->function >= Embedded::Function::kCount ? Aggregate(expression, *call) : Function(*call);
    } else if (const auto* convert = std::get_if<ConvertNode>(&node)) {
        Convert(expression, *convert);
    }
}

}  // namespace LumoConnection::Embedded
