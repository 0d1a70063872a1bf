#include "host/make/YearTables.h"

#include "host/make/Embedded.h"

namespace host {

const std::vector<YearTable>& YearTables() {
    static const std::vector<YearTable> tables = [] {
        std::vector<YearTable> all;
        for (const CsvRow& row : EmbeddedRows("yeartables.csv"))
            all.push_back({row.fields[0], row.fields[1], row.fields[2] == "yes"});
        return all;
    }();
    return tables;
}

}  // namespace host
