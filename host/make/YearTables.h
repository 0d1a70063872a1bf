#pragma once

#include <string>
#include <vector>

namespace host {

// A per-year table as data/yeartables.csv has it.
struct YearTable {
    std::string Template;
    std::string Stem;        // the table's name without its year: "tblPO"
    bool Delivered = false;  // stands in delivered books; the vouchers' is left to the first start

    bool Stock() const { return Stem != "tb_Ledger"; }
};

// The tables of one year.
const std::vector<YearTable>& YearTables();

}  // namespace host
