#include "desk/Figures.h"

#include <QLocale>

#include "queries/sheets/Cell.h"

namespace desk {

QString AmountText(double rupees) {
    return QLocale().toString(queries::FigureOf(queries::Kind::Amount, rupees).value_or(0), 'f', 2);
}

QString CellText(queries::Kind kind, const basic::Value& value) {
    if (kind != queries::Kind::Amount) return QString::fromStdString(queries::Shown(kind, value));
    const auto rupees = queries::FigureOf(kind, value);
    return rupees ? AmountText(*rupees) : QString();
}

// The locale's reading first: to a German 1.234,50 is one figure, and 1234.50 is, too.
std::optional<double> ReadAmount(QString text) {
    bool reads = false;
    double rupees = QLocale().toDouble(text.trimmed(), &reads);
    if (!reads) rupees = text.remove(',').trimmed().toDouble(&reads);
    return reads ? std::optional(rupees) : std::nullopt;
}

}  // namespace desk
