#pragma once

#include <QString>

#include "queries/Sheet.h"

namespace desk {

// What stands above a column, in the user's language.
QString HeadOf(const queries::Column& column);

}  // namespace desk
