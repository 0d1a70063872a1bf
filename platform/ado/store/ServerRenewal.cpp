#include "platform/ado/store/ServerRenewal.h"

#include "platform/ado/Errors.h"
#include "platform/ado/store/PostgresEngine.h"
#include "platform/ado/store/PostgresFunctions.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/basic/Error.h"

namespace ado {

bool RenewServer(const std::string& source) {
    PostgresEngine server;
    server.Connect(ReadServerAddress(source));
    server.Begin();  // who writes meanwhile waits
    const int version = server.FunctionsVersion();
    if (version > ServerFunctionsVersion)
        throw basic::Error(error::NotABooksFile, "A newer program has made these books: use that.",
                           "ado.Engine");
    if (version < ServerFunctionsVersion) server.Script(ServerFunctions());
    server.Commit();
    server.Close();
    return version < ServerFunctionsVersion;
}

}  // namespace ado
