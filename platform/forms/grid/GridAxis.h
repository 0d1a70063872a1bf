#pragma once

#include <vector>

namespace forms {

// Where the rows (or columns) of a grid stand along one direction, in pixels. The first `fixed` ones stay in
// view; the rest move by the scroll offset. Hidden ones have the size 0.
class GridAxis {
  public:
    void Set(std::vector<int> sizes, int fixed);
    void SetUniform(int count, int size, int fixed);  // a million lines without a million sizes

    int Count() const { return count_; }
    int Fixed() const { return fixed_; }
    int Size(int index) const;
    int Total() const { return Start(count_); }
    int FixedSize() const { return Start(fixed_); }
    int Start(int index) const;                  // in the whole, unscrolled
    int ViewStart(int index, int offset) const;  // on the screen
    int At(int position) const;                  // who covers a place in the whole; -1: none
    int AtView(int position, int offset) const;  // who covers a place on the screen; -1: none
    // The offset nearest to `offset` at which `index` is wholly in a view of this many pixels.
    int OffsetToShow(int index, int offset, int view) const;
    // The nearest index from `from` on, walking by `step`, that has a size and is not fixed; -1: none.
    int NextShown(int from, int step) const;

  private:
    int count_ = 0;
    int fixed_ = 0;
    int uniform_ = 0;          // the size of all, if `starts_` is empty
    std::vector<int> starts_;  // count + 1 places
};

}  // namespace forms
