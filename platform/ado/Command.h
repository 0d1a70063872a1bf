#pragma once

#include <string>

#include "platform/ado/Connection.h"

namespace ado {

// A statement kept ready on a connection.
struct Command {
    int CommandType = -1;  // adCmdText
    ConnectionPtr ActiveConnection;
    std::string CommandText;

    // Raises ObjectClosed without a connection.
    RecordsetPtr Execute(std::int64_t* recordsAffected = nullptr) const;
};

}  // namespace ado
