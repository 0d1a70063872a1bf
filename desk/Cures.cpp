#include "desk/Cures.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <vector>

namespace desk {
namespace {

struct Line {
    QString Number;
    QRegularExpression Text;
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

// Marks of the document's own writing, which no reader of a bar wants to see.
QString Plain(QString text) {
    static const QRegularExpression link("\\[([^\\]]*)\\]\\([^)]*\\)");
    return text.replace(link, "\\1").remove('`');
}

// A cell of a table without numbers lists texts that are alike; one with a semicolon in it stands alone.
void AddWithoutNumber(std::vector<Line>& lines, const QStringList& cells) {
    const Cure what{Plain(cells[1]), Plain(cells[2])};
    const QString number = QString::number(basic::error::InvalidCall);
    lines.push_back({number, Pattern(cells[0]), what});
    for (const QString& text : cells[0].split("; "))
        if (text != cells[0] && text.contains(' ') && !text.startsWith("..."))
            lines.push_back({number, Pattern(text), what});
}

// Of the tables that have a text, a cause and a cure, and mostly a number.
std::vector<Line> ReadLines() {
    QFile file(":/desk/errors.md");
    std::vector<Line> lines;
    if (!file.open(QIODevice::ReadOnly)) return lines;
    const QStringList numbered{"Number", "Text", "Cause", "Cure"};
    QStringList head;
    for (const QString& row : QString::fromUtf8(file.readAll()).split('\n')) {
        if (!row.startsWith('|')) {
            head.clear();
            continue;
        }
        QStringList cells = row.mid(1, row.size() - 2).split('|');
        for (QString& cell : cells) cell = cell.trimmed();
        if (head.isEmpty())
            head = cells;
        else if (cells.size() != head.size() || cells[0].startsWith("--"))
            continue;
        else if (head == numbered)
            lines.push_back({cells[0], Pattern(cells[1]), {Plain(cells[2]), Plain(cells[3])}});
        else if (head == numbered.mid(1))
            AddWithoutNumber(lines, cells);
    }
    return lines;
}

}  // namespace

std::optional<Cure> CureOf(const basic::Error& error) {
    static const std::vector<Line> lines = ReadLines();
    const QString number = QString::number(error.Number);
    const QString text = QString::fromStdString(error.Description);
    for (const Line& line : lines)
        if (line.Number == number && line.Text.match(text).hasMatch()) return line.What;
    return std::nullopt;
}

}  // namespace desk
