#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <vector>

#include <gmock/gmock.h>

#include "tests/support/Cases.h"

// The arrows of the tree, read from its #include lines: screens stand on core, core on the platform.
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

struct Layer {
    std::string folder;
    Names below;  // what it may include beside itself
};

const Names Platform{"platform/basic", "platform/ado", "platform/com"};
const Names BelowShell{"platform/basic", "platform/ado", "platform/com", "platform/forms", "core"};

// Beside what stands below the shell, a subsystem names the shell and only those whose screens it opens or
// whose told routines it calls.
Names Subsystem(const Names& others) {
    Names below = BelowShell;
    below.push_back("shell");
    below.insert(below.end(), others.begin(), others.end());
    return below;
}

const std::vector<Layer>& Layers() {
    static const std::vector<Layer> layers{
        {"platform/basic", {}},
        {"platform/ado/dialect", {"platform/basic", "platform/ado/Errors.h"}},
        {"platform/ado/store", {"platform/basic", "platform/ado/Errors.h", "platform/ado/dialect"}},
        {"platform/ado/rows",
         {"platform/basic", "platform/ado/Errors.h", "platform/ado/dialect", "platform/ado/store"}},
        {"platform/ado", {"platform/basic"}},
        {"platform/com", {"platform/basic"}},
        {"platform/forms/controls", {"platform/basic"}},
        {"platform/forms/grid", {"platform/basic", "platform/forms/controls"}},
        {"platform/forms/window", {"platform/basic", "platform/forms/controls"}},
        {"platform/forms/html", {"platform/basic", "platform/forms/controls", "platform/forms/window"}},
        {"platform/forms", {"platform/basic"}},
        {"core", Platform},
        {"queries", {"platform/basic", "platform/ado", "core"}},
        {"host/make", {"platform/basic", "core/DBCode.h"}},
        {"host/audit", {"platform/basic", "platform/ado", "core", "host/make"}},
        {"host/doors", {"platform/basic", "platform/ado", "core", "queries", "host/make"}},
        {"host", {"platform/basic", "platform/ado", "platform/com", "core", "queries"}},
        {"desk",
         {"platform/basic", "core", "queries", "host/audit", "host/commands", "host/doors", "host/make"}},
        {"shell", BelowShell},
        {"years", Subsystem({})},
        {"vouchers", Subsystem({})},
        {"reports", Subsystem({})},
        {"accounts", Subsystem({"years", "vouchers", "reports"})},
        {"inventory", Subsystem({})},
        {"purchasing", Subsystem({"inventory"})},
        {"screens", Subsystem({"years", "vouchers", "reports", "accounts", "inventory", "purchasing"})},
    };
    return layers;
}

bool Under(const std::string& path, const std::string& folder) {
    return path.starts_with(folder + "/");
}
bool UnderAny(const std::string& path, const Names& folders) {
    return std::any_of(folders.begin(), folders.end(),
                       [&](const auto& folder) { return path == folder || Under(path, folder); });
}

// A library's headers, and the only places that may name them.
struct Library {
    std::regex header;
    Names places;
};

bool MayIncludeLibrary(const std::string& file, const std::string& header) {
    static const std::vector<Library> libraries{
        {std::regex("(sqlcipher/)?sqlite3.*"), {"platform/ado/store", "host/make/BooksStore.cpp"}},
        {std::regex("libpq.*"), {"platform/ado/store"}},
        {std::regex("Q[A-Z].*|Qt.*/.*|litehtml.*|gumbo.*"), {"platform/forms", "desk"}},
        {std::regex("CLI/.*|csv\\.h"), {"host"}},
        {std::regex("xlsxwriter.*"), {"queries/sheets"}},
    };
    return std::all_of(libraries.begin(), libraries.end(), [&](const Library& library) {
        return !std::regex_match(header, library.header) || UnderAny(file, library.places);
    });
}

bool MayIncludeOwn(const std::string& file, const std::string& header) {
    if (header.find('/') == std::string::npos) return true;  // made by the build, in the file's own folder
    for (const Layer& layer : Layers())
        if (Under(file, layer.folder)) return Under(header, layer.folder) || UnderAny(header, layer.below);
    return false;
}

bool MayInclude(const std::string& file, const std::string& include) {
    const std::string header = include.substr(1, include.size() - 2);
    return include.front() == '<' ? MayIncludeLibrary(file, header) : MayIncludeOwn(file, header);
}

// A header with its sources: the path without an extension; a source that has no header of its own goes with
// the header whose name it continues (VSFlexGridEdit.cpp with VSFlexGrid.h).
std::string UnitOf(const std::string& file, const std::set<std::string>& headers) {
    for (std::string unit = file.substr(0, file.rfind('.')); !unit.ends_with('/'); unit.pop_back())
        if (headers.contains(unit + ".h")) return unit;
    return file;
}

using Units = std::map<std::string, std::set<std::string>>;  // each with those that it includes

// What is left when all is taken away that includes none of the rest, or that none of the rest includes.
Names InCycles(Units units) {
    const auto stands = [&](const auto& unit) {
        const auto includes = [&](const auto& other) { return other.second.contains(unit.first); };
        return std::any_of(units.begin(), units.end(), includes) &&
               std::any_of(unit.second.begin(), unit.second.end(),
                           [&](const auto& below) { return units.contains(below); });
    };
    while (std::erase_if(units, [&](const auto& unit) { return !stands(unit); }) > 0) {
    }
    Names names;
    for (const auto& unit : units) names.push_back(unit.first);
    return names;
}

// "<vector>" or "\"core/clQm.h\"", of each include line of a file.
Names IncludesOf(const fs::path& file) {
    static const std::regex form(R"(\s*#\s*include\s*(<[^>]*>|"[^"]*").*)");
    Names includes;
    std::ifstream lines(file);
    std::smatch parts;
    for (std::string line; std::getline(lines, line);)
        if (std::regex_match(line, parts, form)) includes.push_back(parts[1]);
    return includes;
}

// Each source of the tree with its include lines.
const std::map<std::string, Names>& Tree() {
    static const auto tree = [] {
        std::map<std::string, Names> files;
        const fs::path root = SOURCE_FOLDER;
        for (const Layer& layer : Layers()) {
            if (!fs::exists(root / layer.folder)) continue;
            for (const auto& entry : fs::recursive_directory_iterator(root / layer.folder))
                if (const auto kind = entry.path().extension(); kind == ".h" || kind == ".cpp")
                    files[entry.path().lexically_relative(root).generic_string()] = IncludesOf(entry.path());
        }
        return files;
    }();
    return tree;
}

TEST(Includes, PointDownwardOnly) {
    std::size_t read = 0;
    Names upward;
    for (const auto& [file, includes] : Tree()) {
        read += includes.size();
        for (const std::string& include : includes)
            if (!MayInclude(file, include)) upward.push_back(file + " includes " + include);
    }
    EXPECT_GT(read, 500u);
    EXPECT_THAT(upward, testing::IsEmpty());
}

TEST(Includes, NoControlOrFormStandsOnItself) {
    std::set<std::string> headers;
    for (const auto& [file, includes] : Tree())
        if (Under(file, "platform/forms") && file.ends_with(".h")) headers.insert(file);
    Units units;
    for (const auto& [file, includes] : Tree())
        for (const std::string& include : includes)
            if (const std::string header = include.substr(1, include.size() - 2); headers.contains(header))
                if (Under(file, "platform/forms") && UnitOf(header, headers) != UnitOf(file, headers))
                    units[UnitOf(file, headers)].insert(UnitOf(header, headers));
    EXPECT_GT(units.size(), 40u);
    EXPECT_THAT(InCycles(units), testing::IsEmpty());
    EXPECT_THAT(InCycles({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b", "d"}}, {"d", {}}}),
                testing::ElementsAre("b", "c"));
}

TEST(Includes, AnArrowUpwardIsSeen) {
    for (const test::Cells& c : test::Cases("outside/includes.txt", "Includes"))
        EXPECT_EQ(MayInclude(c.at(0), c.at(1).substr(9)), c.at(2) == "allowed") << c[0] << " " << c[1];
}

}  // namespace
