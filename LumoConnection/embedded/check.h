#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/catalog.h>
#include <LumoConnection/embedded/tree.h>

namespace LumoConnection::Embedded {

/// The variables of a text, in the order of their DECLAREs.
struct Variables {
    struct Variable {
        std::string name;
        Type type;
    };
    std::vector<Variable> all;

    /// -1 for a name that nobody declared.
    int Find(std::string_view name) const;
};

/// Finds the tables, columns and variables that a statement names, works out all types and puts in the conversions that
/// the places ask for. Refuses what the server refuses when it compiles. One for each statement.
class Checker {
  public:
    /// @param fixed literals whose value the check had to look at
    Checker(const Catalog& catalog, Variables& variables, const std::vector<Literal>& literals, std::vector<std::uint32_t>& fixed)
        : catalog_(catalog), variables_(variables), literals_(literals), fixed_(fixed) {}

    void Check(SelectStatement& statement);
    void Check(InsertStatement& insert);
    void Check(UpdateStatement& update);
    void Check(DeleteStatement& statement);
    void Declare(DeclareStatement& statement);
    void Check(SetStatement& statement);
    void CheckCondition(ExpressionPtr& condition);
    /// A value of no table, converted to a type.
    void CheckValue(ExpressionPtr& value, Type to);
    /// A condition on the columns of one table, for its definition. Gives the number of the source.
    int CheckRowCondition(ExpressionPtr& condition, const Table& table);

  private:
    struct SourceInfo {
        int number = 0;
        std::string name;
        const Table* table = nullptr;
        const Select* select = nullptr;
        const std::vector<std::string>* names = nullptr;
        std::size_t place = 0;

        std::size_t ColumnCount() const;
        const std::string& ColumnName(std::size_t column) const;
        Type ColumnType(std::size_t column) const;
        std::string PrintedName(std::size_t column) const;
        int Find(std::string_view column) const;
    };
    struct Scope {
        std::vector<SourceInfo> sources;
        const Scope* outer = nullptr;
    };
    // What may stand where the check is just now.
    struct Context {
        bool aggregates = false;
        bool* aggregated = nullptr;
    };

    // Queries (check_query.cpp).
    void CheckQuery(Select& select, const Scope* outer, bool exists = false);
    void CheckCore(SelectCore& core, Scope& scope, bool exists);
    void CheckGrouping(SelectCore& core, const Scope& scope, const std::vector<OrderItem>* order_by);
    void CheckGrouped(const Expression& expression, const SelectCore& core, const Scope& scope, int number);
    void UnifyTypes(Select& select);
    void CheckOrder(Select& select, Scope& scope);
    bool FindOrderItem(const Select& select, OrderItem& item);
    void ExpandStars(SelectCore& core, const Scope& scope);
    void AddSources(Source& source, Scope& scope);
    void CheckJoinConditions(Source& source, const Scope& scope);
    SourceInfo MakeTableSource(TableSource& source, std::size_t place);
    void CheckTarget(const std::string& name, std::vector<Source>& from, ExpressionPtr& where, Scope& scope,
                     const Table*& known, int& number, bool& joined);
    ExpressionPtr DefaultOf(const Column& column);
    void FillRow(InsertStatement& insert);
    void CheckInsertSelect(InsertStatement& insert);

    // Expressions (check.cpp).
    void CheckExpression(ExpressionPtr& pointer, const Scope* scope);
    void CheckBinary(ExpressionPtr& expression, BinaryNode& node, const Scope* scope);
    void CheckArithmetic(Expression& expression, BinaryNode& node);
    void CheckComparison(ExpressionPtr& left, ExpressionPtr& right);
    void CheckColumn(Expression& expression, ColumnNode& node, const Scope* scope) const;
    void CheckCase(Expression& expression, CaseNode& node, const Scope* scope);
    void CheckIn(InSelectNode& node, const Scope* scope, std::size_t place);
    void CheckLike(LikeNode& node, const Scope* scope);
    void CheckCall(ExpressionPtr& pointer, CallNode& node, const Scope* scope);
    static bool BelongsOutside(const Expression& expression, const Scope* scope);
    void CheckAggregate(Expression& expression, CallNode& node, const Scope* scope);
    void CheckRounding(Expression& expression, CallNode& node);
    void CheckSelectColumns(const Select& select, std::size_t place) const;
    bool Same(const Expression& a, const Expression& b);
    bool SameAll(const std::vector<ExpressionPtr>& a, const std::vector<ExpressionPtr>& b);
    static void Coerce(ExpressionPtr& expression, Type to, Purpose purpose, int style = 0);
    static void CoerceItems(Select& select, Type to);

    const Catalog& catalog_;
    Variables& variables_;
    const std::vector<Literal>& literals_;
    std::vector<std::uint32_t>& fixed_;
    Context context_;
    int sources_ = 0;
};

}  // namespace LumoConnection::Embedded
