#pragma once

#include <string>
#include <vector>

namespace bench {

/// Two benchmarks of one run, and how much the first may cost in terms of the second.
struct Ratio {
    std::string what;
    std::string measured;
    std::string against;
    double at_most;
};

/// A figure that is not a time, and its limit.
struct Figure {
    std::string what;
    double value;
    double at_most;
    std::string unit;
};

/// What the table at the end shows. Benchmarks add to it while they are registered.
std::vector<Ratio>& Ratios();

/// Adds a figure, measured once before the benchmarks run.
using Measure = Figure (*)();
std::vector<Measure>& Figures();

/// For static initialisation: registers once.
struct Add {
    explicit Add(Ratio ratio) { Ratios().push_back(std::move(ratio)); }
    explicit Add(Measure measure) { Figures().push_back(measure); }
};

}  // namespace bench
