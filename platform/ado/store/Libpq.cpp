#include "platform/ado/store/Libpq.h"

#include <dlfcn.h>

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"

namespace ado {

Libpq Libpq::Load() {
    void* library = dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
    Libpq calls{};
    bool whole = library != nullptr;
    const auto find = [&](const char* name) {
        void* call = library == nullptr ? nullptr : dlsym(library, name);
        whole = whole && call != nullptr;
        return call;
    };
#define QM_LIBPQ_CALL(name) calls.name = reinterpret_cast<decltype(calls.name)>(find(#name));
    QM_LIBPQ_CALLS(QM_LIBPQ_CALL)
#undef QM_LIBPQ_CALL
    if (!whole)
        throw basic::Error(error::Unspecified,
                           "Books on a server need the library libpq of version 14 or later, and it is not "
                           "installed on this machine.",
                           "ado.Engine");
    return calls;
}

}  // namespace ado
