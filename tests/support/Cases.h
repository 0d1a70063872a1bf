#pragma once

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace test {

using Cells = std::vector<std::string>;

// A cell without the blanks around it. Quotes keep them, and \n, \r and \xHH are characters there.
inline std::string Cell(std::string text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
    std::string read;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] != '\\') {
            read += text[i];
        } else if (const char escape = text[++i]; escape == 'x') {
            read += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            read += escape == 'n' ? '\n' : escape == 'r' ? '\r' : escape;
        }
    }
    return read;
}

// The cases that stand under [section] in a file of tests: a line each, " | " between its cells, # before a
// remark.
inline std::vector<Cells> Cases(const std::string& file, const std::string& section) {
    std::vector<Cells> cases;
    std::ifstream lines(TESTS_FOLDER "/" + file);
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) inside = line == '[' + section + ']';
        if (!inside || line.empty() || line.starts_with('[') || line.starts_with('#')) continue;
        line = ' ' + line + ' ';
        Cells cells;
        for (std::size_t from = 0, to = 0; to != std::string::npos; from = to + 3) {
            to = line.find(" | ", from);
            cells.push_back(Cell(line.substr(from, to == std::string::npos ? to : to - from)));
        }
        cases.push_back(cells);
    }
    EXPECT_FALSE(cases.empty()) << "no [" << section << "] in " << file;
    return cases;
}

// What is given and what is expected of it.
struct Block {
    Cells given, expected;
};

// The blocks of a file of tests, parted by empty lines: "> " before what is given, # before a remark.
inline std::vector<Block> Blocks(const std::string& file) {
    std::vector<Block> blocks(1);
    std::ifstream lines(TESTS_FOLDER "/" + file);
    for (std::string line; std::getline(lines, line);) {
        Block& last = blocks.back();
        if (line.starts_with("> "))
            last.given.push_back(Cell(line.substr(2)));
        else if (line.empty() && !last.given.empty())
            blocks.emplace_back();
        else if (!line.empty() && line.front() != '#')
            last.expected.push_back(Cell(line));
    }
    EXPECT_GT(blocks.size(), 1U) << file;
    return blocks;
}

// What is done, step by step, and what is said at each.
struct Session {
    std::string name;
    std::vector<Block> steps;
    friend void PrintTo(const Session& session, std::ostream* out) { *out << session.name; }
};

// The sessions of a file of tests: [name], then steps as in Blocks, but whole lines as they stand; a step
// begins where something was expected, and an empty line ends nothing.
inline std::vector<Session> Sessions(const std::string& file) {
    std::vector<Session> sessions;
    std::ifstream lines(TESTS_FOLDER "/" + file);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            sessions.push_back({line.substr(1, line.find(']') - 1), {}});
            continue;
        }
        std::vector<Block>& steps = sessions.back().steps;
        if (line.front() != '>') {
            steps.back().expected.push_back(line);
            continue;
        }
        if (steps.empty() || !steps.back().expected.empty()) steps.emplace_back();
        steps.back().given.push_back(line.substr(line.size() > 1 ? 2 : 1));
    }
    return sessions;
}

// Whether a line reads as expected, where "..." at an end of that stands for more.
inline bool Reads(std::string_view line, std::string_view expected) {
    const bool before = expected.starts_with("..."), behind = expected.ends_with("...");
    if (before) expected.remove_prefix(3);
    if (behind) expected.remove_suffix(3);
    const auto at = before && !behind ? line.rfind(expected) : line.find(expected);
    return at != line.npos && (before || at == 0) && (behind || at + expected.size() == line.size());
}

inline void ExpectSaid(const Cells& said, const Block& step) {
    EXPECT_TRUE(std::equal(said.begin(), said.end(), step.expected.begin(), step.expected.end(), Reads))
        << testing::PrintToString(step.given) << " said\n"
        << testing::PrintToString(said) << ", not\n"
        << testing::PrintToString(step.expected);
}

}  // namespace test
