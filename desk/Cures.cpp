#include "desk/Cures.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace desk {
namespace {

struct Line {
    bool OfCheck = false;  // a finding, not an error
    QString Number;        // "" where the table has none
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

// A cell may hold several texts between semicolons, which may also be one text's own. That a finding is a
// note does not stand in its text.
std::vector<QRegularExpression> Patterns(QString cell) {
    cell.remove("note: ");
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

// A cell may refer to the one above it.
QString Resolved(const QString& text, const QString& above) {
    static const QRegularExpression same("^the same(?=$|,)");
    return QString(text).replace(same, above);
}

// Of the tables that have a text, a cause and a cure, with a number before them or without.
class Reader {
  public:
    std::vector<Line> Read;

    void Take(const QString& row) {
        if (!row.startsWith('|')) {
            columns_ = 0;
            return;
        }
        QStringList cells = row.mid(1, row.size() - 2).split('|');
        for (QString& cell : cells) cell = cell.trimmed();
        if (IsHead(cells) || cells.size() != columns_ || cells[0].startsWith("--")) return;
        const QString number = columns_ == 4 ? cells.takeFirst() : QString();
        bool isNumber = false;  // or says that there may be several
        number.toLongLong(&isNumber);
        const Cure above = Read.empty() ? Cure() : Read.back().What;
        Read.push_back({ofCheck_,
                        isNumber ? number : QString(),
                        Patterns(cells[0]),
                        {Resolved(Plain(cells[1]), above.Cause), Resolved(Plain(cells[2]), above.Remedy)}});
    }

  private:
    bool IsHead(const QStringList& cells) {
        const QStringList last = cells.mid(cells.size() - 3);
        if (last != QStringList{"Text", "Cause", "Cure"} && last != QStringList{"Finding", "Cause", "Cure"})
            return false;
        columns_ = cells.size();
        ofCheck_ = last.front() == "Finding";
        return true;
    }

    qsizetype columns_ = 0;  // of the table that is being read; 0 for one that is not wanted
    bool ofCheck_ = false;
};

const std::vector<Line>& Lines() {
    static const std::vector<Line> lines = [] {
        Reader reader;
        QFile file(":/desk/errors.md");
        if (file.open(QIODevice::ReadOnly))
            for (const QString& row : QString::fromUtf8(file.readAll()).split('\n')) reader.Take(row);
        return reader.Read;
    }();
    return lines;
}

std::optional<Cure> Find(bool ofCheck, const QString& number, const std::string& said) {
    const QString text = QString::fromStdString(said);
    for (const Line& line : Lines())
        if (line.OfCheck == ofCheck && (line.Number.isEmpty() || line.Number == number) &&
            std::any_of(line.Texts.begin(), line.Texts.end(),
                        [&](const QRegularExpression& each) { return each.match(text).hasMatch(); }))
            return line.What;
    return std::nullopt;
}

}  // namespace

QString Cure::Text() const {
    return tr("Why: %1. What to do: %2.").arg(Cause, Remedy);
}

std::optional<Cure> CureOf(const basic::Error& error) {
    return Find(false, QString::number(error.Number), error.Description);
}

std::optional<Cure> CureOfFinding(const std::string& text) {
    return Find(true, {}, text);
}

}  // namespace desk
