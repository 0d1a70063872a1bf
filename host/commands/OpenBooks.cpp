#include "host/commands/OpenBooks.h"

namespace host {

OpenBooks::OpenBooks(const std::string& folder) {
    host_.dataPath(folder.ends_with("/") ? folder : folder + "/");
    host_.StartDataConn();
}

}  // namespace host
