#include "platform/ado/store/Engine.h"

#include "platform/ado/Errors.h"
#include "platform/ado/store/PostgresEngine.h"
#include "platform/ado/store/ServerAddress.h"
#include "platform/ado/store/SqlCipherEngine.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// "thing://host/books" names a kind of store that nobody knows.
bool IsFilePath(const std::string& source) {
    return !source.empty() && source.find("://") == std::string::npos;
}

}  // namespace

void Engine::SendAhead(EngineStatement& statement, const basic::Error* none) {
    statement.Step();
    if (none != nullptr && Changes() == 0) throw basic::Error(*none);
}

std::unique_ptr<Engine> EngineFor(const std::string& source) {
    if (IsServerAddress(source)) return std::make_unique<PostgresEngine>();
    if (IsFilePath(source)) return std::make_unique<SqlCipherEngine>();
    throw basic::Error(error::BadArgument, "No store is known for the data source '" + source + "'.",
                       "ado.Connection");
}

}  // namespace ado
