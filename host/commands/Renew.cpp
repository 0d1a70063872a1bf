#include <iostream>

#include "host/commands/CommandLine.h"
#include "host/commands/Exit.h"
#include "host/make/Fail.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/ado/store/ServerRenewal.h"

namespace host {
namespace {

int Renew(const std::string& uri) {
    if (!ado::IsServerAddress(uri)) Fail("only books on a server have functions to renew");
    const bool renewed = ado::RenewServer(uri.ends_with("/") ? uri : uri + "/");
    std::cout << uri << (renewed ? ": renewed" : ": nothing to renew") << "\n";
    return ExitOk;
}

}  // namespace

void AddRenew(CommandLine& line) {
    line.Add("renew", "Bring books on a server to this version of the program")
        .Footer(
            "Puts this program's functions in the place of an older one's, in one transaction; no row is "
            "touched. By one who\n"
            "owns the books. Programs of the older version refuse them from then on.\n"
            "Example: qmhost renew postgresql://host/firm/")
        .Does("URI", "Their server's URI", Renew);
}

}  // namespace host
