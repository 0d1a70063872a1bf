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

}  // namespace bench
