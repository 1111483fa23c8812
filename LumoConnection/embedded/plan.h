#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/print.h>
#include <LumoConnection/embedded/sqlite.h>
#include <LumoConnection/embedded/tree.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection::Embedded {

/// What SQLite runs for one statement.
struct CompiledStatement {
    SqliteStatement statement;
    std::vector<Parameter> parameters;
    std::vector<Type> types;
    std::shared_ptr<const StoredRows::Names> names;
};

/// A text that was read, checked and printed once, for all texts of its shape.
struct Plan {
    struct Fixed {
        std::uint32_t literal;
        std::string text;
    };

    std::string shape;
    /// Literals that have to be as they were when the plan was made.
    std::vector<Fixed> fixed;
    Batch batch;
    Variables variables;
    /// Tables that the text itself changes.
    std::set<std::string> changed_tables;
    /// Every statement is compiled.
    bool whole = true;

    bool Fits(const std::vector<Literal>& literals) const;
};

/// The plans of a connection, found by the shape of a text: at most kMostPlans, those used last; a text whose shape is
/// longer than kMostShape bytes is not kept.
class PlanStore {
  public:
    static constexpr std::size_t kMostPlans = 500;
    static constexpr std::size_t kMostShape = 32 * 1024;

    /// Empty where there is none.
    std::shared_ptr<Plan> Find(std::string_view shape, const std::vector<Literal>& literals);
    void Keep(std::shared_ptr<Plan> plan);
    void Clear();

    std::size_t Size() const { return plans_.size(); }
    /// How often Find gave a plan.
    std::uint64_t Hits() const { return hits_; }

  private:
    using Plans = std::list<std::shared_ptr<Plan>>;
    using Variants = std::vector<Plans::iterator>;

    void Remove(Plans::iterator plan);

    Plans plans_;  // the one used last in front
    std::unordered_map<std::string_view, Variants> by_shape_;
    std::uint64_t hits_ = 0;
};

}  // namespace LumoConnection::Embedded
