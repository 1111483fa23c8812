#pragma once

#include <cstddef>
#include <vector>

#include "frontend/output/sheet.h"

namespace frontend {

/// So many rows of a sheet under a heading.
struct Branch {
    LumoSeminar::Text heading;
    std::size_t rows = 0;
};

/// A table as TableText gives it, indented, with a heading in front of the rows of each branch. The branches hold all
/// rows between them, in order.
LumoSeminar::Text TreeText(const Sheet& sheet, const std::vector<Branch>& branches, const TableStyle& style);

}  // namespace frontend
