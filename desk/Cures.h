#pragma once

#include <QString>
#include <optional>

#include "platform/basic/Error.h"

namespace desk {

// What the list of errors says about one.
struct Cure {
    QString Cause, Remedy;
};

// By its number and its text, from docs/errors.md, which the library bears; none for an error not listed.
std::optional<Cure> CureOf(const basic::Error& error);

}  // namespace desk
