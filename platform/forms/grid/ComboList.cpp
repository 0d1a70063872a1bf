#include "platform/forms/grid/ComboList.h"

#include <algorithm>

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

namespace forms {

ComboList::ComboList(std::string_view text) {
    if (text == "...") {
        button_ = true;
        return;
    }
    if (text.starts_with('|')) {
        typing_ = true;
        text.remove_prefix(1);
    }
    while (!text.empty()) {
        const std::size_t bar = text.find('|');
        Add(text.substr(0, bar));
        text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
    }
}

void ComboList::Add(std::string_view text) {
    Entry entry;
    if (const std::size_t end = text.find(';'); text.starts_with('#') && end != std::string_view::npos) {
        std::string_view data = text.substr(1, end - 1);
        if (const std::size_t star = data.find('*'); star != std::string_view::npos) {
            shownColumn_ = static_cast<std::size_t>(std::max(0.0, basic::PrefixValue(data.substr(star + 1))));
            data = data.substr(0, star);
        }
        entry.Data = data;
        text.remove_prefix(end + 1);
    }
    for (;;) {
        const std::size_t tab = text.find('\t');
        entry.Columns.emplace_back(text.substr(0, tab));
        if (tab == std::string_view::npos) break;
        text.remove_prefix(tab + 1);
    }
    entries_.push_back(std::move(entry));
}

const std::string& ComboList::Shown(int index) const {
    const auto& columns = At(index).Columns;
    return columns[std::min(shownColumn_, columns.size() - 1)];
}

int ComboList::Find(std::string_view shown) const {
    for (int i = 0; i < Count(); ++i)
        if (basic::EqualText(Shown(i), shown)) return i;
    return -1;
}

std::vector<int> ComboList::Narrowed(std::string_view typed) const {
    const std::string wanted = basic::FoldCase(typed);
    std::vector<int> found;
    for (int i = 0; i < Count(); ++i)
        if (wanted.empty() || basic::FoldCase(Shown(i)).find(wanted) != std::string::npos) found.push_back(i);
    return found;
}

int ComboList::Best(const std::vector<int>& entries, std::string_view typed) const {
    const std::string wanted = basic::FoldCase(typed);
    for (const int i : entries)
        if (basic::FoldCase(Shown(i)).starts_with(wanted)) return i;
    return entries.empty() ? -1 : entries.front();
}

}  // namespace forms
