#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ado {

// A value for a server's statement, in the server's own binary form.
struct ServerValue {
    static constexpr unsigned Bool = 16, Int8 = 20, Text = 25,
                              Float8 = 701;  // the server's numbers of the types

    unsigned type = 0;  // 0: Null, of whatever type its place has
    std::string bytes;
};
using ServerValues = std::vector<ServerValue>;

ServerValue WholeValue(std::int64_t value);
ServerValue RealValue(double value);
ServerValue TruthValue(bool value);
ServerValue TextValue(std::string_view text);

}  // namespace ado
