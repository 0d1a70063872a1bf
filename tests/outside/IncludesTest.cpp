#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <vector>

#include <gmock/gmock.h>

// The arrows of the tree, read from its #include lines: screens stand on core, core on the platform.
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

const Names Screens{"shell", "years", "accounts", "vouchers", "inventory", "purchasing", "reports"};

struct Layer {
    Names folders;
    Names below;  // what they may include beside themselves and each other
};

const std::vector<Layer>& Layers() {
    static const std::vector<Layer> layers{
        {{"platform/basic"}, {}},
        {{"platform/ado"}, {"platform/basic"}},
        {{"platform/com"}, {"platform/basic"}},
        {{"platform/forms"}, {"platform/basic", "platform/ado"}},
        {{"core"}, {"platform/basic", "platform/ado", "platform/com"}},
        {{"host"}, {"platform/basic", "platform/ado", "platform/com", "core"}},
        {Screens, {"platform/basic", "platform/ado", "platform/com", "platform/forms", "core"}},
    };
    return layers;
}

bool Under(const std::string& path, const std::string& folder) {
    return path.starts_with(folder + "/");
}
bool UnderAny(const std::string& path, const Names& folders) {
    return std::any_of(folders.begin(), folders.end(),
                       [&](const auto& folder) { return Under(path, folder); });
}

// A library's headers, and the only places that may name them.
struct Library {
    std::regex header;
    Names places;
};

bool MayIncludeLibrary(const std::string& file, const std::string& header) {
    static const std::vector<Library> libraries{
        {std::regex("(sqlcipher/)?sqlite3.*"), {"platform/ado", "host/BooksStore.cpp"}},
        {std::regex("Q[A-Z].*|Qt.*/.*|litehtml.*|gumbo.*"), {"platform/forms"}},
        {std::regex("CLI/.*|csv\\.h"), {"host"}},
    };
    return std::all_of(libraries.begin(), libraries.end(), [&](const Library& library) {
        return !std::regex_match(header, library.header) || UnderAny(file + "/", library.places);
    });
}

bool MayIncludeOwn(const std::string& file, const std::string& header) {
    if (header.find('/') == std::string::npos) return true;  // made by the build, in the file's own folder
    for (const Layer& layer : Layers())
        if (UnderAny(file, layer.folders))
            return UnderAny(header, layer.folders) || UnderAny(header, layer.below);
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
    for (const Layer& layer : Layers())
        for (const std::string& folder : layer.folders) {
            if (!fs::exists(root / folder)) continue;
            for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
                const std::string extension = entry.path().extension();
                if (extension != ".h" && extension != ".cpp") continue;
                const std::string file = entry.path().lexically_relative(root).generic_string();
                for (const std::string& include : IncludesOf(entry.path())) {
                    ++read;
                    if (!MayInclude(file, include)) upward.push_back(file + " includes " + include);
                }
            }
        }
    EXPECT_GT(read, 500);
    EXPECT_THAT(upward, testing::IsEmpty());
}

// The rule itself, so that a tree without a fault does not hide one in the rule.
TEST(Includes, AnArrowUpwardIsSeen) {
    const struct {
        const char *file, *include;
        bool allowed;
    } cases[] = {
        {"platform/basic/Text.cpp", "\"platform/ado/Field.h\"", false},
        {"platform/ado/Field.cpp", "\"platform/com/Bstr.h\"", false},
        {"platform/com/Bstr.cpp", "\"platform/ado/Field.h\"", false},
        {"platform/com/Bstr.cpp", "\"platform/forms/Form.h\"", false},
        {"platform/forms/Form.cpp", "\"core/MsgBox.h\"", false},
        {"platform/forms/Form.cpp", "<QWidget>", true},
        {"core/clQm.cpp", "\"platform/com/Bstr.h\"", true},
        {"core/clQm.cpp", "\"platform/forms/Form.h\"", false},
        {"core/clQm.cpp", "\"host/Books.h\"", false},
        {"core/clQm.cpp", "<QString>", false},
        {"host/Books.cpp", "\"core/clQm.h\"", true},
        {"host/Books.cpp", "\"vouchers/frmVoucher.h\"", false},
        {"host/Books.cpp", "<sqlite3.h>", false},
        {"host/BooksStore.cpp", "<sqlite3.h>", true},
        {"platform/ado/Engine.cpp", "<sqlcipher/sqlite3.h>", true},
        {"vouchers/frmVoucher.cpp", "\"accounts/Ledger_Master.h\"", true},
        {"vouchers/frmVoucher.cpp", "\"host/Books.h\"", false},
        {"vouchers/frmVoucher.cpp", "\"ui_frmVoucher.h\"", true},
        {"vouchers/frmVoucher.cpp", "<QtWidgets/QWidget>", false},
        {"vouchers/frmVoucher.cpp", "<vector>", true},
    };
    for (const auto& [file, include, allowed] : cases)
        EXPECT_EQ(MayInclude(file, include), allowed) << file << " includes " << include;
}

}  // namespace
