#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/print.h>

namespace LumoConnection::Embedded {

/// Writes one statement. Expressions stand in print.cpp, queries and changes in print_statement.cpp.
class Printer {
  public:
    void Query(const Select& select, bool named);
    void Insert(const InsertStatement& insert);
    void InsertRows(const InsertStatement& insert);
    void Update(const UpdateStatement& update);
    void UpdateRows(const UpdateStatement& update);
    void Delete(const DeleteStatement& statement);
    void DeleteRows(const DeleteStatement& statement);
    void Print(const Expression& expression);
    /// In the condition of a CHECK columns stand without a source.
    void BareColumns() { bare_columns_ = true; }
    void Write(std::string_view text) { out_ += text; }

    Printed Finish() { return {std::move(out_), std::move(parameters_)}; }

  private:
    void Literal(const LiteralNode& literal, Type type);
    void Bound(const Parameter& parameter);
    void Column(int source, std::string_view name);
    void List(const std::vector<ExpressionPtr>& expressions, bool collated);
    void Collated(const Expression& expression);
    void Call(const char* function, std::initializer_list<const Expression*> arguments, std::int64_t last);
    void Logic(const LogicNode& logic, std::size_t first, std::size_t last);
    void Comparison(const BinaryNode& node);
    void Arithmetic(const Expression& expression, const BinaryNode& node);
    void Convert(const Expression& expression, const ConvertNode& node);
    void Case(const CaseNode& node);
    void Aggregate(const Expression& expression, const CallNode& node);
    void Function(const CallNode& node);
    void ScalarQuery(const Select& select);
    void Core(const SelectCore& core, bool named, bool collated);
    void From(const std::vector<Source>& sources);
    void OneSource(const Source& source);
    void TargetColumns(const InsertStatement& insert);
    void TargetValue(const Table& table, int column, const Expression& value);

    std::string out_;
    std::vector<Parameter> parameters_;
    bool bare_columns_ = false;
};

}  // namespace LumoConnection::Embedded
