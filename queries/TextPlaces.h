#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace queries {

// Puts the texts of a long list in an order: each is kept and compared once, however many rows bear it.
class TextPlaces {
  public:
    std::uint32_t NumberOf(const std::string& text) {
        return numbers_.try_emplace(text, static_cast<std::uint32_t>(numbers_.size())).first->second;
    }

    // The place of each number in the order of what `keyOf` makes of a text; equal ones have the same. Leaves
    // no text here.
    template <class KeyOf>
    std::vector<std::uint32_t> Places(const KeyOf& keyOf) {
        std::vector<std::pair<decltype(keyOf(std::string())), std::uint32_t>> order;
        order.reserve(numbers_.size());
        while (!numbers_.empty()) {
            auto text = numbers_.extract(numbers_.begin());
            order.emplace_back(keyOf(std::move(text.key())), text.mapped());
        }
        std::sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        std::vector<std::uint32_t> places(order.size());
        for (std::size_t at = 0; at < order.size(); ++at) {
            const bool equal = at > 0 && !(order[at - 1].first < order[at].first);
            places[order[at].second] = equal ? places[order[at - 1].second] : static_cast<std::uint32_t>(at);
        }
        return places;
    }

  private:
    std::unordered_map<std::string, std::uint32_t> numbers_;
};

}  // namespace queries
