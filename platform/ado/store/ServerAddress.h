#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ado {

// Where a server's books are and how they are reached: settings of the connection by their names.
struct ServerAddress {
    std::string shown;  // for messages
    std::vector<std::pair<std::string, std::string>> settings;
    bool isElsewhere = false;  // another machine, so no password goes out without encryption
};

// Whether a data source names a server: "postgresql://" or "postgres://".
bool IsServerAddress(const std::string& source);

// Reads "postgresql://host/firm/QmAccount.mdb": what stands behind the last "/" is the name of a books file,
// which a server does not need. Several hosts, a service and other settings may stand in it as the library
// takes them. To another machine encryption is asked for unless the address says otherwise, and then no
// password is sent. Raises BadArgument for an address that does not read and for a password in it: hosts show
// and log it.
ServerAddress ReadServerAddress(const std::string& source);

}  // namespace ado
