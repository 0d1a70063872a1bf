#pragma once

#include <QString>
#include <optional>

#include "platform/basic/Value.h"
#include "queries/Sheet.h"

namespace desk {

// Rupees with two decimals, in the groups and signs of the user's locale: 12,34,567.00 for en_IN.
QString AmountText(double rupees);

// A cell as the desk shows it: figures by the locale, the rest as every list has it.
QString CellText(queries::Kind kind, const basic::Value& value);

// What a user typed as an amount, with the locale's signs or with a point; none for what is no figure.
std::optional<double> ReadAmount(QString text);

}  // namespace desk
