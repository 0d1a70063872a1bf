#include "queries/Server.h"

#include "platform/ado/Errors.h"
#include "platform/ado/store/ServerAddress.h"

namespace queries {

bool IsOnServer(const std::string& dataPath) {
    return ado::IsServerAddress(dataPath);
}

bool IsLost(const basic::Error& error) {
    return error.Number == ado::error::ConnectionLost;
}

}  // namespace queries
