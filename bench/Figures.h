#pragma once

#include <functional>
#include <string>

#include <benchmark/benchmark.h>

namespace bench {

// One line of the table: what we do and what the bare library does, measured in turn in one run. The figure
// is the median of the runs' times, ours over the bare one's, so 1 is as fast and lower is faster.
struct Figure {
    std::string name;
    std::function<void(benchmark::State&)> ours;
    std::function<void(benchmark::State&)> bare;
    double goal = 1;           // the ratio not to exceed
    std::string cpuName = {};  // "" or the name of a second line: the same by processor time
    double cpuGoal = 1;
    std::string timeName = {};  // "" or the name of a third line: the time of ours alone
    double timeGoal = 1;        // milliseconds
};

void AddFigure(Figure figure);

// A line of the table that is no ratio: seen once, by itself.
struct Amount {
    std::string name;               // with its unit
    std::function<double()> value;  // may raise
    double goal = 1;                // not to exceed
};

void AddAmount(Amount amount);

// What this program does in a process of its own, started with the option and one argument; gives its exit
// code.
using Errand = int (*)(const std::string& argument);
void AddErrand(const std::string& option, Errand errand);

}  // namespace bench
