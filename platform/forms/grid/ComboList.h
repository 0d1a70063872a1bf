#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace forms {

// The list text of a column, read:
//   "Dr.|Cr."                                plain entries;
//   "#12*1;12\tBank\t0Dr|#13;13\tCash\t0Dr"  entries with data (12, 13) and list columns; "*1" at the first
//   entry tells which
//                                            list column goes into the cell;
//   "|Dr.|Cr."                               other texts may be typed too;
//   "..."                                    no list but a button.
class ComboList {
  public:
    struct Entry {
        std::string Data;                  // "" where the entry has none
        std::vector<std::string> Columns;  // never empty
    };

    ComboList() = default;
    explicit ComboList(std::string_view text);

    bool Empty() const { return entries_.empty() && !button_; }
    bool IsButton() const { return button_; }
    bool AllowsTyping() const { return typing_; }
    int Count() const { return static_cast<int>(entries_.size()); }
    const Entry& At(int index) const { return entries_[static_cast<std::size_t>(index)]; }
    const std::string& Shown(int index) const;  // the text that goes into the cell
    int Find(std::string_view shown) const;  // the first entry that shows the text, ignoring case; -1: none
    // The entries in whose shown text the typed one occurs, ignoring case, in list order. The list itself
    // stays as it is.
    std::vector<int> Narrowed(std::string_view typed) const;
    // Of some entries, the one to offer for a typed text: the first that begins with it, else the first; -1:
    // none.
    int Best(const std::vector<int>& entries, std::string_view typed) const;

  private:
    void Add(std::string_view text);

    std::vector<Entry> entries_;
    std::size_t shownColumn_ = 0;
    bool typing_ = false;
    bool button_ = false;
};

}  // namespace forms
