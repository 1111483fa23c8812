#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace LumoConnection {

/// One text for the database.
struct Batch {
    std::string text;
    /// Of its first line in the file, from 1.
    int line = 1;
};

/// Parts a text at its lines "GO" (in any capitals), those inside of quotes, brackets and comments not counted. Batches
/// of blanks are left out; a byte order mark at the very front is dropped.
std::vector<Batch> SplitBatches(std::string_view text);

}  // namespace LumoConnection
