#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/store/Flight.h"
#include "platform/ado/store/ServerValue.h"
#include "platform/basic/Error.h"

namespace ado {

// The statements that go out with the next packet, in their order. What stands behind one that fails does not
// run.
class Outbox {
  public:
    struct Item {
        std::string sql;
        ServerValues values = {};
        bool main = false;     // its rows are handed out
        bool guarded = false;  // a savepoint stands around it, to which its failure can go back
        std::optional<basic::Error> none = {};  // raised where it matches no row
        std::size_t place = 0;                  // in the packet
    };

    bool Empty() const { return items_.empty(); }
    std::size_t Size() const { return items_.size(); }
    bool HoldsGuarded() const;
    void Put(Item item) { items_.push_back(std::move(item)); }
    void Put(std::string sql) { Put(Item{std::move(sql)}); }
    // Takes out the statement and all behind it; false where it does not wait here.
    bool TakeBack(std::string_view sql);
    void Clear() { items_.clear(); }

    // Puts all into the flight's packet; the box is empty then.
    void PutInto(Flight& flight);
    // Of what was put into it last: the one that failed, or null.
    const Item* Failed(const Flight& flight) const;
    // Goes back to the guard of an item that failed.
    static void Undo(Flight& flight);
    // What is raised for the failure of an item.
    static basic::Error Told(const Item& item, const basic::Error& failure);

  private:
    std::vector<Item> items_, out_;
};

}  // namespace ado
