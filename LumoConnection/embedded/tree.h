#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <LumoConnection/embedded/moment.h>
#include <LumoConnection/embedded/sql_type.h>
#include <LumoConnection/embedded/value.h>

namespace LumoConnection::Embedded {

struct Table;
struct Expression;
struct Select;
struct Statement;
using ExpressionPtr = std::unique_ptr<Expression>;
using SelectPtr = std::unique_ptr<Select>;
using StatementPtr = std::unique_ptr<Statement>;

// Expressions. What the check adds stands behind "checked".

struct LiteralNode {
    std::uint32_t index = 0;  // which literal of the text
    LiteralClass kind = LiteralClass::kInt;
    bool negative = false;
    /// The text itself, where the literal does not come with the text that is run: in defaults and checks.
    std::optional<std::string> own;
    // checked: the conversion that its place asks for
    bool converted = false;
    Purpose purpose = Purpose::kCast;
    int style = 0;
};

struct NullNode {};

struct ColumnNode {
    std::string table;  // empty where it stands without one
    std::string name;
    // checked
    int source = 0;  // number of the source, unique in the statement
    int column = 0;
    std::string printed;  // the column's name in SQLite
};

struct VariableNode {
    std::string name;
    int slot = -1;  // checked
};

/// getdate(), SYSTEM_USER, @@ROWCOUNT: known before the statement starts.
enum class Ambient : std::uint8_t { kNow, kUser, kRowCount };
struct AmbientNode {
    Ambient what;
};

enum class Operator : std::uint8_t {
    kAdd,
    kSubtract,
    kMultiply,
    kDivide,
    kModulo,
    kEqual,
    kNotEqual,
    kLess,
    kLessEqual,
    kGreater,
    kGreaterEqual,
};

struct NegateNode {
    ExpressionPtr operand;
};
struct BinaryNode {
    Operator op;
    ExpressionPtr left, right;
};
/// AND or OR of two and more.
struct LogicNode {
    bool is_and;
    std::vector<ExpressionPtr> operands;
};
struct NotNode {
    ExpressionPtr operand;
};
struct IsNullNode {
    ExpressionPtr operand;
    bool negated;
};
struct BetweenNode {
    ExpressionPtr operand, low, high;
    bool negated;
};
struct InListNode {
    ExpressionPtr operand;
    std::vector<ExpressionPtr> values;
    bool negated;
};
struct InSelectNode {
    ExpressionPtr operand;
    SelectPtr select;
    bool negated;
};
struct ExistsNode {
    SelectPtr select;
};
struct LikeNode {
    ExpressionPtr operand, pattern, escape;  // escape may be null
    bool negated;
    bool unicode = false;  // checked
};
struct CaseNode {
    struct Branch {
        ExpressionPtr when, then;
    };
    ExpressionPtr operand;  // null where the branches are conditions
    std::vector<Branch> branches;
    ExpressionPtr otherwise;  // may be null
};
struct CastNode {
    ExpressionPtr operand;
    Type to;
    int style = 0;
};
struct SelectNode {
    SelectPtr select;
};

/// The functions of the dialect, in lower case.
enum class Function : std::uint8_t {
    kIsNull,
    kCoalesce,
    kNullIf,
    kYear,
    kMonth,
    kDay,
    kDatePart,
    kDateAdd,
    kDateDiff,
    kStr,
    kLTrim,
    kRTrim,
    kLeft,
    kRight,
    kLen,
    kSubstring,
    kUpper,
    kLower,
    kAbs,
    kSign,
    kFloor,
    kCeiling,
    kRound,
    kCharIndex,
    kReplace,
    kSpace,
    kCount,
    kSum,
    kAvg,
    kMin,
    kMax,
};

struct CallNode {
    Function function;
    std::vector<ExpressionPtr> arguments;
    DatePart part = DatePart::kDay;
    bool star = false;      // COUNT(*)
    bool distinct = false;  // of an aggregate
    Type argument_type;     // checked: of the aggregate's argument
};

/// A conversion that the check puts in.
struct ConvertNode {
    ExpressionPtr operand;
    Purpose purpose;
    int style = 0;
};

struct Expression {
    using Node =
        std::variant<LiteralNode, NullNode, ColumnNode, VariableNode, AmbientNode, NegateNode, BinaryNode, LogicNode, NotNode, IsNullNode,
                     BetweenNode, InListNode, InSelectNode, ExistsNode, LikeNode, CaseNode, CastNode, SelectNode, CallNode, ConvertNode>;

    Node node;
    std::size_t place = 0;
    Type type;  // checked

    template <class T>
    T* If() {
        return std::get_if<T>(&node);
    }
    template <class T>
    const T* If() const {
        return std::get_if<T>(&node);
    }
};

/// True for what is a condition and no value.
bool IsCondition(const Expression& expression);
/// The expressions directly inside; those of sub-selects are not among them.
std::vector<const Expression*> Children(const Expression& expression);
/// The sub-select directly inside, or null.
const Select* InnerSelect(const Expression& expression);

// Queries.

struct TableSource {
    std::string table;
    std::string alias;             // empty where there is none
    const Table* known = nullptr;  // checked
};
struct DerivedSource {
    SelectPtr select;
    std::string alias;
    std::vector<std::string> columns;  // names given behind the alias
};
struct JoinSource;
struct Source {
    std::variant<TableSource, DerivedSource, std::unique_ptr<JoinSource>> node;
    std::size_t place = 0;
    int number = 0;  // checked: of a table or derived table
};
enum class JoinKind : std::uint8_t { kInner, kLeft, kRight, kFull, kCross };
struct JoinSource {
    JoinKind kind;
    Source left, right;
    ExpressionPtr on;  // null for a cross join
};

struct SelectItem {
    enum class What : std::uint8_t { kValue, kStar, kAssign };
    What what = What::kValue;
    ExpressionPtr value;
    std::string name;      // alias, or the table in front of a star
    std::string variable;  // of an assignment
    int slot = -1;         // checked
    std::size_t place = 0;
};

struct OrderItem {
    ExpressionPtr value;
    bool descending = false;
    int position = 0;  // checked: of the item in the select list, from 1, or 0
};

struct SelectCore {
    bool distinct = false;
    ExpressionPtr top;
    std::vector<SelectItem> items;
    std::vector<Source> from;
    ExpressionPtr where;
    std::vector<ExpressionPtr> group_by;
    ExpressionPtr having;
    bool aggregated = false;  // checked
    std::size_t place = 0;
};

enum class SetOperator : std::uint8_t { kUnion, kUnionAll, kExcept, kIntersect };

/// A query: one core, or several joined by set operators from left to right.
struct Select {
    std::vector<SelectCore> cores;
    std::vector<SetOperator> operators;  // one less than cores
    std::vector<OrderItem> order_by;
    std::size_t place = 0;
    // checked
    std::vector<Type> types;
    std::vector<std::string> names;
};

// Statements.

struct InsertStatement {
    std::string table;
    std::vector<std::string> columns;  // empty: all
    std::vector<std::size_t> column_places;
    std::vector<std::vector<ExpressionPtr>> rows;  // VALUES; a null expression stands for DEFAULT
    SelectPtr select;                              // or this
    bool default_values = false;
    // checked: the columns that get a value, and what fills those that the statement does not name
    const Table* known = nullptr;
    std::vector<int> targets;
    std::size_t given = 0;
    std::vector<ExpressionPtr> fillers;
    bool wrapped = false;  // the select stands in a query of its own
    std::vector<ExpressionPtr> wrapped_items;
};

struct Assignment {
    std::string column;
    ExpressionPtr value;  // null for DEFAULT
    std::size_t place = 0;
    int target = 0;  // checked
};

struct UpdateStatement {
    std::string table;
    std::vector<Assignment> assignments;
    std::vector<Source> from;
    ExpressionPtr where;
    // checked
    const Table* known = nullptr;
    int source = 0;  // number of the occurrence that is changed
    bool joined = false;
};

struct DeleteStatement {
    std::string table;
    std::vector<Source> from;
    ExpressionPtr where;
    // checked
    const Table* known = nullptr;
    int source = 0;
    bool joined = false;
};

struct SelectStatement {
    SelectPtr select;
};

struct KeyDefinition {
    std::string name;  // empty: made up
    std::vector<std::string> columns;
    bool primary = false;
};
struct ForeignKeyDefinition {
    std::string name;
    std::vector<std::string> columns;
    std::string table;
    std::vector<std::string> table_columns;
    bool delete_cascades = false;
    bool update_cascades = false;
};
struct CheckDefinition {
    std::string name;
    ExpressionPtr condition;
};
struct DefaultDefinition {
    std::string name;
    std::string text;  // the expression as it stands
};
struct ColumnDefinition {
    std::string name;
    Type type;
    std::optional<bool> nullable;
    std::optional<DefaultDefinition> default_value;
    std::size_t place = 0;
};
struct TableElements {
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
    std::vector<ForeignKeyDefinition> foreign_keys;
    std::vector<CheckDefinition> checks;
};
struct CreateTableStatement {
    std::string table;
    TableElements elements;
    std::string text;
};
struct AlterTableStatement {
    std::string table;
    TableElements added;
    std::string text;
};
struct CreateIndexStatement {
    std::string name;
    std::string table;
    std::vector<std::string> columns;
    std::vector<bool> descending;
    bool unique = false;
    std::string text;
};
struct DropTableStatement {
    std::vector<std::string> tables;
};
struct DropIndexStatement {
    std::string name;
    std::string table;
};

struct DeclareStatement {
    struct Variable {
        std::string name;
        Type type;
        ExpressionPtr value;  // may be null
        std::size_t place = 0;
        int slot = 0;  // checked
    };
    std::vector<Variable> variables;
};
struct SetStatement {
    std::string variable;
    ExpressionPtr value;
    int slot = -1;  // checked
    Type type;
};
struct IfStatement {
    ExpressionPtr condition;
    StatementPtr then, otherwise;  // otherwise may be null
};
struct BlockStatement {
    std::vector<StatementPtr> statements;
};
enum class TransactionStep : std::uint8_t { kBegin, kCommit, kRollback };
struct TransactionStatement {
    TransactionStep step;
};
/// SET NOCOUNT ON, SET DATEFORMAT dmy: nothing to do.
struct NothingStatement {};

struct CompiledStatement;

struct Statement {
    using Node = std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement, CreateTableStatement,
                              AlterTableStatement, CreateIndexStatement, DropTableStatement, DropIndexStatement, DeclareStatement,
                              SetStatement, IfStatement, BlockStatement, TransactionStatement, NothingStatement>;

    Statement();
    ~Statement();

    Node node;
    std::size_t place = 0;
    /// All tables that the statement itself names.
    std::vector<std::string> tables;
    /// What SQLite runs for it: one for a query or a change; one for the value of a SET or the condition of an IF; one
    /// for each initial value of a DECLARE. Empty until the statement is checked.
    std::vector<std::unique_ptr<CompiledStatement>> compiled;
    bool is_compiled = false;

    template <class T>
    T* If() {
        return std::get_if<T>(&node);
    }
};

/// A whole text.
struct Batch {
    std::vector<StatementPtr> statements;
    /// Literals whose value belongs to the meaning of the text: styles, lengths, positions.
    std::vector<std::uint32_t> fixed_literals;
    bool changes_schema = false;
};

}  // namespace LumoConnection::Embedded
