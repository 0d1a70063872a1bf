#include "desk/Cures.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace desk {
namespace {

struct Line {
    QString Number;  // "" where the table has none
    std::vector<QRegularExpression> Texts;
    Cure What;
};

// Words in <...> stand for those of the case at hand, and so do three dots.
QRegularExpression Pattern(const QString& text) {
    static const QRegularExpression open("<[^>]*>|\\.\\.\\.");
    QString pattern;
    qsizetype from = 0;
    for (auto places = open.globalMatch(text); places.hasNext();) {
        const auto place = places.next();
        pattern += QRegularExpression::escape(text.mid(from, place.capturedStart() - from)) + ".*";
        from = place.capturedEnd();
    }
    pattern += QRegularExpression::escape(text.mid(from));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption);
}

// A cell may hold several texts between semicolons, which may also be one text's own.
std::vector<QRegularExpression> Patterns(const QString& cell) {
    std::vector<QRegularExpression> patterns{Pattern(cell)};
    static const QRegularExpression names("<[^>]*>|\\.\\.\\.|\\W");
    const QStringList parts = cell.split("; ");
    for (const QString& part : parts)
        if (parts.size() > 1 && !QString(part).remove(names).isEmpty()) patterns.push_back(Pattern(part));
    return patterns;
}

// Marks of the document's own writing, which no reader of a bar wants to see.
QString Plain(QString text) {
    static const QRegularExpression link("\\[([^\\]]*)\\]\\([^)]*\\)");
    static const QRegularExpression source(" \\(sources? [^)]*\\)");
    return text.replace(link, "\\1").remove(source).remove('`');
}

// Of the tables that have a text, a cause and a cure, with a number before them or without.
std::vector<Line> ReadLines() {
    QFile file(":/desk/errors.md");
    std::vector<Line> lines;
    if (!file.open(QIODevice::ReadOnly)) return lines;
    bool wanted = false, numbered = false;
    for (const QString& row : QString::fromUtf8(file.readAll()).split('\n')) {
        if (!row.startsWith('|')) {
            wanted = false;
            continue;
        }
        QStringList cells = row.mid(1, row.size() - 2).split('|');
        for (QString& cell : cells) cell = cell.trimmed();
        if (cells.mid(cells.size() - 3) == QStringList{"Text", "Cause", "Cure"}) {
            wanted = true;
            numbered = cells.size() == 4;
            continue;
        }
        if (!wanted || cells.size() != (numbered ? 4 : 3) || cells[0].startsWith("--")) continue;
        const QString number = numbered ? cells.takeFirst() : QString();
        lines.push_back({number, Patterns(cells[0]), {Plain(cells[1]), Plain(cells[2])}});
    }
    return lines;
}

}  // namespace

std::optional<Cure> CureOf(const basic::Error& error) {
    static const std::vector<Line> lines = ReadLines();
    const QString number = QString::number(error.Number);
    const QString text = QString::fromStdString(error.Description);
    for (const Line& line : lines)
        if ((line.Number.isEmpty() || line.Number == number) &&
            std::any_of(line.Texts.begin(), line.Texts.end(),
                        [&](const QRegularExpression& each) { return each.match(text).hasMatch(); }))
            return line.What;
    return std::nullopt;
}

}  // namespace desk
