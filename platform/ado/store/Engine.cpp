#include "platform/ado/store/Engine.h"

#include "platform/ado/Errors.h"
#include "platform/ado/store/SqlCipherEngine.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// "server://host/books" and the like name another kind of store.
bool IsFilePath(const std::string& source) {
    return !source.empty() && source.find("://") == std::string::npos;
}

}  // namespace

std::unique_ptr<Engine> EngineFor(const std::string& source) {
    if (IsFilePath(source)) return std::make_unique<SqlCipherEngine>();
    throw basic::Error(error::BadArgument, "No store is known for the data source '" + source + "'.",
                       "ado.Connection");
}

}  // namespace ado
