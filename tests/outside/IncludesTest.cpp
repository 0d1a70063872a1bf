#include <algorithm>
#include <filesystem>
#include <fstream>
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
        {"platform/forms", {"platform/basic", "platform/ado"}},
        {"core", Platform},
        {"host/make", {"platform/basic"}},
        {"host/audit", {"platform/basic", "platform/ado", "core", "host/make"}},
        {"host", {"platform/basic", "platform/ado", "platform/com", "core"}},
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
        {std::regex("Q[A-Z].*|Qt.*/.*|litehtml.*|gumbo.*"), {"platform/forms"}},
        {std::regex("CLI/.*|csv\\.h"), {"host"}},
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

TEST(Includes, PointDownwardOnly) {
    const fs::path root = SOURCE_FOLDER;
    int read = 0;
    Names upward;
    std::set<fs::path> files;
    for (const Layer& layer : Layers()) {
        if (!fs::exists(root / layer.folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / layer.folder))
            if (const fs::path extension = entry.path().extension(); extension == ".h" || extension == ".cpp")
                files.insert(entry.path());
    }
    for (const fs::path& path : files) {
        const std::string file = path.lexically_relative(root).generic_string();
        for (const std::string& include : IncludesOf(path)) {
            ++read;
            if (!MayInclude(file, include)) upward.push_back(file + " includes " + include);
        }
    }
    EXPECT_GT(read, 500);
    EXPECT_THAT(upward, testing::IsEmpty());
}

TEST(Includes, AnArrowUpwardIsSeen) {
    for (const test::Cells& c : test::Cases("outside/includes.txt", "Includes"))
        EXPECT_EQ(MayInclude(c.at(0), c.at(1).substr(9)), c.at(2) == "allowed") << c[0] << " " << c[1];
}

}  // namespace
