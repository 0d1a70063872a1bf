#include "host/make/PassingFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "host/make/Fail.h"

namespace host {

PassingFolder::PassingFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "qmhost-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        Fail("cannot make a folder for passing use: " + std::string(std::strerror(errno)));
    path_ = name;
}

PassingFolder::~PassingFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace host
