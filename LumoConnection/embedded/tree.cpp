#include <LumoConnection/embedded/tree.h>

#include <LumoConnection/embedded/plan.h>

namespace LumoConnection::Embedded {

Statement::Statement() = default;
Statement::~Statement() = default;

bool IsCondition(const Expression& expression) {
    const auto& node = expression.node;
    if (const auto* binary = std::get_if<BinaryNode>(&node)) return binary->op >= Operator::kEqual;
    return std::holds_alternative<LogicNode>(node) || std::holds_alternative<NotNode>(node) ||
           std::holds_alternative<IsNullNode>(node) || std::holds_alternative<BetweenNode>(node) ||
           std::holds_alternative<InListNode>(node) || std::holds_alternative<InSelectNode>(node) ||
           std::holds_alternative<ExistsNode>(node) || std::holds_alternative<LikeNode>(node);
}

std::vector<const Expression*> Children(const Expression& expression) {
    std::vector<const Expression*> children;
    const auto add = [&](const ExpressionPtr& child) {
        if (child) children.push_back(child.get());
    };
    const auto& node = expression.node;
    if (const auto* negate = std::get_if<NegateNode>(&node)) {
        add(negate->operand);
    } else if (const auto* binary = std::get_if<BinaryNode>(&node)) {
        add(binary->left);
        add(binary->right);
    } else if (const auto* logic = std::get_if<LogicNode>(&node)) {
        for (const ExpressionPtr& operand : logic->operands) add(operand);
    } else if (const auto* negated = std::get_if<NotNode>(&node)) {
        add(negated->operand);
    } else if (const auto* is_null = std::get_if<IsNullNode>(&node)) {
        add(is_null->operand);
    } else if (const auto* between = std::get_if<BetweenNode>(&node)) {
        add(between->operand);
        add(between->low);
        add(between->high);
    } else if (const auto* in_list = std::get_if<InListNode>(&node)) {
        add(in_list->operand);
        for (const ExpressionPtr& value : in_list->values) add(value);
    } else if (const auto* in_select = std::get_if<InSelectNode>(&node)) {
        add(in_select->operand);
    } else if (const auto* like = std::get_if<LikeNode>(&node)) {
        add(like->operand);
        add(like->pattern);
        add(like->escape);
    } else if (const auto* choice = std::get_if<CaseNode>(&node)) {
        add(choice->operand);
        for (const CaseNode::Branch& branch : choice->branches) {
            add(branch.when);
            add(branch.then);
        }
        add(choice->otherwise);
    } else if (const auto* cast = std::get_if<CastNode>(&node)) {
        add(cast->operand);
    } else if (const auto* call = std::get_if<CallNode>(&node)) {
        for (const ExpressionPtr& argument : call->arguments) add(argument);
    } else if (const auto* convert = std::get_if<ConvertNode>(&node)) {
        add(convert->operand);
    }
    return children;
}

const Select* InnerSelect(const Expression& expression) {
    if (const auto* in_select = expression.If<InSelectNode>()) return in_select->select.get();
    if (const auto* exists = expression.If<ExistsNode>()) return exists->select.get();
    if (const auto* select = expression.If<SelectNode>()) return select->select.get();
    return nullptr;
}

}  // namespace LumoConnection::Embedded
