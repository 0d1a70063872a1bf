#include "desk/SheetColumns.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "desk/Heads.h"
#include "desk/Settings.h"
#include "desk/Theme.h"

namespace desk {
namespace {

constexpr int Margin = 24, Tight = 16;  // pixels of a cell beside its text

bool IsOneOf(const std::string& name, std::initializer_list<const char*> names) {
    return std::ranges::find(names, name) != names.end();
}

// Names and narrations want more than types do.
int ShareOf(const queries::Column& column) {
    if (column.kind != queries::Kind::Text) return 0;
    if (IsOneOf(column.name, {"type", "unit", "side", "severity", "column"})) return 0;
    return IsOneOf(column.name, {"narration", "finding", "fault"}) ? 3 : 2;
}

// How the columns find room: as they like, with less, or in a table that is scrolled sideways anyhow.
enum class Room { Enough, Little, Scrolled };

// The widest cell of the kind that is usual; of texts the least that tells something.
const char* SampleOf(const queries::Column& column, Room by) {
    switch (column.kind) {
        case queries::Kind::Text:
            if (ShareOf(column) == 0) return "Payment";
            if (by == Room::Little) return "Current";
            if (by == Room::Scrolled) return "Expenditure of the office, other";
            return ShareOf(column) == 3 ? "Notebooks and files for" : "Current Account";
        case queries::Kind::Number:
            return "100000";
        case queries::Kind::Amount:
            return "99,99,999.00";
        case queries::Kind::Quantity:
            return "99,999.5";
        case queries::Kind::Date:
            return "28-Aug-2002";
        case queries::Kind::Flag:
            return "";
    }
    return "";
}

int WidthOf(const queries::Column& column, const QFontMetrics& metrics, Room by) {
    return std::max(metrics.horizontalAdvance(HeadOf(column)),
                    metrics.horizontalAdvance(SampleOf(column, by))) +
           (by == Room::Enough ? Margin : Tight);
}

}  // namespace

SheetColumns::SheetColumns(QHeaderView& header, QString name) : header_(header), name_(std::move(name)) {
    header_.setSectionsMovable(true);
    header_.setStretchLastSection(false);
    const auto touched = [this] {
        if (laying_ || columns_.empty()) return;
        isOwn_ = true;
        Keep();
    };
    connect(&header_, &QHeaderView::sectionResized, this, touched);
    connect(&header_, &QHeaderView::sectionMoved, this, touched);
    connect(&header_, &QHeaderView::geometriesChanged, this, [this] { Fit(); });
}

QString SheetColumns::Key() const {
    QString key = "columns/" + name_;
    for (const queries::Column& column : columns_) key += '-' + QString::fromStdString(column.name);
    return key;
}

void SheetColumns::Lay(const queries::Sheet& sheet) {
    const auto same = [](const queries::Column& a, const queries::Column& b) { return a.name == b.name; };
    const auto& columns = sheet.Columns();
    if (std::equal(columns.begin(), columns.end(), columns_.begin(), columns_.end(), same)) return;
    columns_ = columns;
    least_.assign(columns.size(), 0);
    const QScopedValueRollback quiet(laying_, true);
    isOwn_ = header_.restoreState(Settings().value(Key()).toByteArray());
    for (int section = 0; section < header_.count(); ++section) {
        header_.setSectionResizeMode(section, QHeaderView::Interactive);
        if (!isOwn_) header_.setSectionHidden(section, IsHiddenAtFirst(section));
    }
    Fit();
}

bool SheetColumns::IsHiddenAtFirst(int section) const {
    return std::ranges::count(hidden_, columns_[static_cast<std::size_t>(section)].name) > 0;
}

// What was made room for once keeps it: columns that come and go with each figure could not be read.
void SheetColumns::MakeRoom(const std::vector<QString>& totals) {
    QFont font = Theme::Figures(header_.font());
    font.setBold(true);
    const QFontMetrics metrics(font);
    for (std::size_t column = 0; column < std::min(totals.size(), least_.size()); ++column)
        if (!totals[column].isEmpty())
            least_[column] = std::max(least_[column], metrics.horizontalAdvance(totals[column]) + Margin);
    Fit();
}

void SheetColumns::Fit() {
    if (isOwn_ || columns_.empty() || header_.count() != static_cast<int>(columns_.size())) return;
    const QScopedValueRollback quiet(laying_, true);
    QFont font = Theme::Figures(header_.font());
    font.setWeight(QFont::DemiBold);
    const QFontMetrics metrics(font);
    int room = 0, shares = 0;
    const auto each = [&](auto act) {
        for (int section = 0; section < header_.count(); ++section)
            if (!header_.isSectionHidden(section)) act(section, columns_[static_cast<std::size_t>(section)]);
    };
    const auto width = [&](int section, const queries::Column& column, Room by) {
        return std::max(WidthOf(column, metrics, by), least_[static_cast<std::size_t>(section)]);
    };
    const auto measure = [&](Room by) {
        room = header_.viewport()->width();
        shares = 0;
        each([&](int section, const queries::Column& column) {
            room -= width(section, column, by);
            shares += ShareOf(column);
        });
        return room >= 0;
    };
    const Room by = measure(Room::Enough)   ? Room::Enough
                    : measure(Room::Little) ? Room::Little
                                            : Room::Scrolled;
    each([&](int section, const queries::Column& column) {
        const int more = room <= 0    ? 0
                         : shares > 0 ? room * ShareOf(column) / shares
                                      : room / static_cast<int>(Chosen().size());  // figures alone
        header_.resizeSection(section, width(section, column, by) + more);
    });
}

void SheetColumns::Keep() {
    Settings().setValue(Key(), header_.saveState());
}

void SheetColumns::Forget() {
    Settings().remove(Key());
    const QScopedValueRollback quiet(laying_, true);
    isOwn_ = false;
    for (int section = 0; section < header_.count(); ++section) {
        header_.setSectionHidden(section, IsHiddenAtFirst(section));
        header_.moveSection(header_.visualIndex(section), section);
    }
    Fit();
}

void SheetColumns::FillMenu(QMenu& menu) {
    const std::size_t shown = Chosen().size();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const int section = static_cast<int>(column);
        QAction* const action = menu.addAction(HeadOf(columns_[column]));
        action->setCheckable(true);
        action->setChecked(!header_.isSectionHidden(section));
        action->setEnabled(!action->isChecked() || shown > 1);  // one always stays
        connect(action, &QAction::toggled, this, [this, section](bool on) {
            {
                const QScopedValueRollback quiet(laying_, true);
                header_.setSectionHidden(section, !on);
            }
            Fit();
            Keep();
            if (on && Showed) Showed();
        });
    }
    menu.addSeparator();
    connect(menu.addAction(tr("As at first")), &QAction::triggered, this, [this] { Forget(); });
}

std::vector<std::size_t> SheetColumns::Chosen() const {
    std::vector<std::size_t> chosen;
    for (int place = 0; place < header_.count(); ++place)
        if (const int section = header_.logicalIndex(place); !header_.isSectionHidden(section))
            chosen.push_back(static_cast<std::size_t>(section));
    return chosen;
}

bool SheetColumns::Shows(std::string_view name) const {
    return std::ranges::any_of(Chosen(), [&](std::size_t column) { return columns_[column].name == name; });
}

}  // namespace desk
