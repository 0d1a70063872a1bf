#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/ado/Connection.h"
#include "platform/ado/KeptRows.h"
#include "platform/ado/RowKeys.h"

namespace ado {

// A select that is read by window and not whole, so that a list over a long table shows any part of it at
// once. It is of the fields of one table, by any condition and order. Each call sees the store as it stands
// then, within a Snapshot as of its moment. Raises what the statement raises, and BadArgument for any other
// select.
class RowWindow {
  public:
    RowWindow(ConnectionPtr connection, std::string select);

    std::size_t Count() const;  // all rows that the condition leaves
    // The rows from a place on, from 0, in their order. The deeper, the longer it takes.
    KeptRows From(std::size_t first, std::size_t count) const;
    // All rows in their order, a part of them at a time, of which nothing is kept: for who goes through a
    // whole table. `take` may raise to stop, and runs no statement of this connection.
    void Each(const std::function<void(const KeptRows&)>& take) const;
    RowKeys Keys() const;  // of all rows in their order
    // The rows of the keys, in that order, as they stand now; where one is gone, each of its fields is Null.
    KeptRows Of(const std::vector<RowKey>& keys) const;

  private:
    ConnectionPtr connection_;
    std::string select_;
};

}  // namespace ado
