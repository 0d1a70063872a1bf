#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace host {

// What is wrong with a file from outside, and where.
struct Fault {
    int line = 0;
    std::string column;
    std::string reason;
};

// The faults of one file: all are counted, the first thousand found are kept.
class Faults {
  public:
    static constexpr std::size_t Most = 1000;

    void Add(int line, std::string column, std::string reason) {
        ++count_;
        if (kept_.size() < Most) kept_.push_back({line, std::move(column), std::move(reason)});
    }
    void SortByLine() {
        std::stable_sort(kept_.begin(), kept_.end(),
                         [](const Fault& a, const Fault& b) { return a.line < b.line; });
    }
    bool empty() const { return count_ == 0; }
    std::size_t Count() const { return count_; }  // of all
    std::size_t size() const { return kept_.size(); }
    auto begin() const { return kept_.begin(); }
    auto end() const { return kept_.end(); }
    const Fault& operator[](std::size_t index) const { return kept_[index]; }

  private:
    std::vector<Fault> kept_;
    std::size_t count_ = 0;
};

}  // namespace host
