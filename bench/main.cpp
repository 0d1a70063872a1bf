// Measures every figure as a ratio in one run and prints one line for each.
#include <algorithm>
#include <cstdio>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Figures.h"

namespace bench {
namespace {

std::vector<Figure>& Figures() {
    static std::vector<Figure> figures;
    return figures;
}

std::vector<Amount>& Amounts() {
    static std::vector<Amount> amounts;
    return amounts;
}

std::map<std::string, Errand>& Errands() {
    static std::map<std::string, Errand> errands;
    return errands;
}

struct Times {
    std::vector<double> real, cpu;
};

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Keeps the time of each repetition by the benchmark's name and shows nothing itself.
class Collector : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) failures.push_back(run.benchmark_name() + ": " + run.error_message);
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            Times& times = byName[run.run_name.function_name];
            times.real.push_back(run.GetAdjustedRealTime());
            times.cpu.push_back(run.GetAdjustedCPUTime());
        }
    }
    std::map<std::string, Times> byName;
    std::vector<std::string> failures;
};

void PrintLine(const std::string& name, double ours, double bare, double goal) {
    const double ratio = bare > 0 ? ours / bare : 0;
    std::printf("%-66s %7.2f %7.2f  %s\n", name.c_str(), ratio, goal, ratio <= goal ? "met" : "NOT MET");
}

// Those whose names the filter of the benchmarks holds, as it chooses figures.
bool SeeAmounts() {
    const std::regex wanted(benchmark::GetBenchmarkFilter());
    bool seen = true;
    for (const Amount& amount : Amounts()) {
        if (!std::regex_search(amount.name, wanted)) continue;
        try {
            const double value = amount.value();
            std::printf("%-66s %7.0f %7.0f  %s\n", amount.name.c_str(), value, amount.goal,
                        value <= amount.goal ? "met" : "NOT MET");
        } catch (const std::exception& failure) {
            std::printf("failed: %s: %s\n", amount.name.c_str(), failure.what());
            seen = false;
        }
    }
    return seen;
}

void Print(const Collector& collected) {
    std::printf("%-66s %7s %7s\n", "figure (time, ours / bare library)", "ratio", "goal");
    for (const Figure& figure : Figures()) {
        const auto ours = collected.byName.find(figure.name + " [ours]");
        const auto bare = collected.byName.find(figure.name + " [bare]");
        if (ours == collected.byName.end() || bare == collected.byName.end()) continue;
        PrintLine(figure.name, Median(ours->second.real), Median(bare->second.real), figure.goal);
        if (!figure.cpuName.empty())
            PrintLine(figure.cpuName, Median(ours->second.cpu), Median(bare->second.cpu), figure.cpuGoal);
        if (!figure.timeName.empty())
            PrintLine(figure.timeName, Median(ours->second.real), 1, figure.timeGoal);
    }
    for (const std::string& failure : collected.failures) std::printf("failed: %s\n", failure.c_str());
}

}  // namespace

void AddFigure(Figure figure) {
    Figures().push_back(std::move(figure));
}

void AddAmount(Amount amount) {
    Amounts().push_back(std::move(amount));
}

void AddErrand(const std::string& option, Errand errand) {
    Errands()[option] = errand;
}

}  // namespace bench

int main(int argc, char** argv) {
    if (argc == 3 && bench::Errands().contains(argv[1])) return bench::Errands().at(argv[1])(argv[2]);
    benchmark::Initialize(&argc, argv);
    for (const bench::Figure& figure : bench::Figures()) {
        benchmark::RegisterBenchmark((figure.name + " [ours]").c_str(), figure.ours)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((figure.name + " [bare]").c_str(), figure.bare)
            ->Unit(benchmark::kMillisecond);
    }
    bench::Collector collected;
    benchmark::RunSpecifiedBenchmarks(&collected);
    bench::Print(collected);
    return bench::SeeAmounts() && collected.failures.empty() ? 0 : 1;
}
