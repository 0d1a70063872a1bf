#include "host/make/Embedded.h"

#include <cstdlib>

#include "host/make/EmbeddedTable.h"

namespace host {

std::string_view Embedded(std::string_view name) {
    for (std::size_t i = 0; i < EmbeddedCount; ++i)
        if (name == EmbeddedFiles[i].name)
            return {reinterpret_cast<const char*>(EmbeddedFiles[i].bytes), EmbeddedFiles[i].size};
    std::abort();
}

std::vector<CsvRow> EmbeddedRows(std::string_view name) {
    auto rows = ParseCsv(Embedded(name));
    rows.erase(rows.begin());
    return rows;
}

}  // namespace host
