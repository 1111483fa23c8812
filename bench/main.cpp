#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "ratios.h"

namespace bench {

std::vector<Ratio>& Ratios() {
    static std::vector<Ratio> ratios;
    return ratios;
}

std::vector<Measure>& Figures() {
    static std::vector<Measure> figures;
    return figures;
}

namespace {

// Prints median and spread as the console does, and keeps the time of each repetition.
class Reporter final : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            if (run.error_occurred) failed_ = true;
            if (run.run_type == Run::RT_Iteration) times_[run.benchmark_name()].push_back(run.GetAdjustedCPUTime());
            if (run.error_occurred || run.aggregate_name == "median" || run.aggregate_name == "cv")
                shown.push_back(run);
        }
        ConsoleReporter::ReportRuns(shown);
    }

    bool Failed() const { return failed_; }

    /// Of the repetitions the fastest: what disturbs a run can only make it slower. 0 where there is none.
    double Time(const std::string& name) const {
        for (const auto& [full_name, times] : times_) {
            if (full_name == name || full_name.starts_with(name + "/repeats:")) return std::ranges::min(times);
        }
        return 0;
    }

  private:
    std::map<std::string, std::vector<double>> times_;
    bool failed_ = false;
};

bool PrintLine(const std::string& what, double value, double at_most, const char* unit) {
    const bool holds = value <= at_most;
    std::printf("%-86s %8.2f%-6s at most %8.2f  %s\n", what.c_str(), value, unit, at_most, holds ? "holds" : "MISSED");
    return holds;
}

}  // namespace
}  // namespace bench

/// Runs the benchmarks and ends with a table of the ratios within this run. Ends with 1 where one of them is missed.
int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data()});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

    std::vector<bench::Figure> figures;
    for (const auto measure : bench::Figures()) figures.push_back(measure());
    bench::Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    bool all_hold = !reporter.Failed();
    std::printf("\n");
    for (const auto& ratio : bench::Ratios()) {
        const double measured = reporter.Time(ratio.measured);
        const double against = reporter.Time(ratio.against);
        if (measured == 0 || against == 0) continue;
        all_hold = bench::PrintLine(ratio.what, measured / against, ratio.at_most, " x") && all_hold;
    }
    for (const auto& figure : figures) {
        all_hold = bench::PrintLine(figure.what, figure.value, figure.at_most, (" " + figure.unit).c_str()) && all_hold;
    }
    return all_hold ? 0 : 1;
}
