#include "queries/sheets/Totals.h"

#include <algorithm>

#include "queries/sheets/Cell.h"

namespace queries {

Totals::Totals(const Sheet& sheet) : sheet_(sheet), sums_(sheet.Columns().size()) {}

bool Totals::Any() const {
    const auto& columns = sheet_.Columns();
    return std::any_of(columns.begin(), columns.end(), [](const Column& each) { return each.totalled; });
}

void Totals::Add(std::size_t row) {
    if (sheet_.Level(row) > 0) return;
    const auto& columns = sheet_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].totalled) sums_[i] += FigureOf(columns[i].kind, sheet_.At(row, i)).value_or(0);
}

basic::Value Totals::Of(std::size_t column) const {
    if (!sheet_.Columns()[column].totalled) return {};
    return static_cast<double>(sums_[column]);
}

}  // namespace queries
