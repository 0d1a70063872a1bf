#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include <gmock/gmock.h>

#include "tests/support/TempFolder.h"

// The page of what is kept on purpose, the comments that cite it and the tests that it names tell the same.
namespace {

namespace fs = std::filesystem;
using Numbers = std::set<int>;
using Names = std::set<std::string>;

// The texts of a folder's sources, each run of comment lines as one.
std::string SourcesBelow(const fs::path& folder) {
    static const std::regex continued(R"(\n[ ]*// ?)");
    std::string text;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (const fs::path extension = entry.path().extension(); extension == ".h" || extension == ".cpp")
            text += std::regex_replace(test::Bytes(entry.path()), continued, " ");
    return text;
}

template <class Use>
void ForEachMatch(const std::string& text, const std::regex& form, const Use& use) {
    for (std::sregex_iterator match(text.begin(), text.end(), form), end; match != end; ++match) use(*match);
}

Numbers NumbersIn(const std::string& text) {
    static const std::regex number(R"(\d+)");
    Numbers numbers;
    ForEachMatch(text, number, [&](const std::smatch& match) { numbers.insert(std::stoi(match.str())); });
    return numbers;
}

// "Kept 12", "kept 3, 14" of the module's own sources.
Numbers Cited() {
    static const std::regex form(R"(\b[Kk]ept (\d+(, \d+)*))");
    Numbers cited;
    for (const char* folder : {"core", "years", "accounts", "vouchers", "inventory", "purchasing", "reports",
                               "shell", "screens", "host", "platform"})
        ForEachMatch(SourcesBelow(fs::path(SOURCE_FOLDER) / folder), form,
                     [&](const std::smatch& match) { cited.merge(NumbersIn(match[1])); });
    return cited;
}

// The page's points by their numbers, each with the tests that it names. No number is given twice.
std::map<int, Names> Points() {
    static const std::regex head(R"((\d+)\. .*)"), test("`([A-Za-z_]+\\.\\w+)`");
    std::map<int, Names> points;
    std::ifstream page(fs::path(SOURCE_FOLDER) / "docs/kept.md");
    Names* names = nullptr;
    std::smatch parts;
    for (std::string line; std::getline(page, line);) {
        if (std::regex_match(line, parts, head)) {
            const auto [point, isNew] = points.try_emplace(std::stoi(parts[1]));
            EXPECT_TRUE(isNew) << line;
            names = &point->second;
        }
        if (names) ForEachMatch(line, test, [&](const std::smatch& match) { names->insert(match[1]); });
    }
    return points;
}

Names Tests() {
    static const std::regex form(R"(\bTEST(_F)?\((\w+),\s*(\w+)\))");
    Names tests;
    ForEachMatch(SourcesBelow(fs::path(SOURCE_FOLDER) / "tests"), form,
                 [&](const std::smatch& match) { tests.insert(match.str(2) + "." + match.str(3)); });
    static const std::regex session(R"(\n\[(\w+\.\w+)\])");
    ForEachMatch(test::Bytes(fs::path(SOURCE_FOLDER) / "tests/core/calls.txt"), session,
                 [&](const std::smatch& match) { tests.insert(match[1]); });
    return tests;
}

TEST(Kept, PageCommentsAndTestsTellTheSame) {
    const std::map<int, Names> points = Points();
    const Names tests = Tests();
    Numbers told;
    for (const auto& [number, names] : points) {
        told.insert(number);
        EXPECT_FALSE(names.empty()) << number << " names no test";
        for (const std::string& name : names)
            EXPECT_TRUE(tests.contains(name)) << number << " names " << name << ", which is no test";
    }
    EXPECT_EQ(told, Cited());
    EXPECT_GT(told.size(), 50U);
}

}  // namespace
