#include "desk/SheetView.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desk/Books.h"
#include "desk/EmptyState.h"
#include "desk/Figures.h"
#include "desk/Theme.h"
#include "desk/TotalsStrip.h"
#include "queries/sheets/Totals.h"

namespace desk {
namespace {

constexpr int RowHeight = 30;
constexpr std::size_t Near = 100, OpenAtFirst = 60;
constexpr std::size_t Few = 20'000;  // rows that are sorted and summed within a moment

ShownSheet::Order Ordered(const queries::Sheet& sheet, int column, bool descending, Worker::Job& job) {
    job.Total = sheet.Rows();
    return OrderBy(sheet, static_cast<std::size_t>(column), descending,
                   [&job](std::size_t row) { job.Step(row); });
}

}  // namespace

SheetView::SheetView(Desk& desk, const QString& name, Shape shape)
    : desk_(desk),
      model_(shape,
             [this](std::exception_ptr failure) {
                 // Not while the view paints: the bar changes the window.
                 QMetaObject::invokeMethod(
                     this, [this, failure] { desk_.Try([&] { std::rethrow_exception(failure); }); },
                     Qt::QueuedConnection);
             }),
      stack_(new QStackedWidget(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    MakeView(shape, name);
    column->addWidget(stack_, 1);
    totals_ = new TotalsStrip(*header_, this);
    column->addWidget(totals_);
    jobs_ = new JobBar(this);
    jobs_->Left = [this] { view_->setFocus(); };
    column->addWidget(jobs_);
    unread_ = new EmptyState(tr("This was not read to its end"), tr("F5 asks again."));
    stack_->addWidget(unread_);
    MakeButtons();
    SetEmpty(tr("Nothing here yet"), {});
    setObjectName("sheet");
    setFocusProxy(view_);
}

void SheetView::MakeView(Shape shape, const QString& name) {
    if (shape == Shape::Table) {
        auto* const table = new QTableView(this);
        view_ = table;
        header_ = table->horizontalHeader();
        table->setShowGrid(false);
        table->setWordWrap(false);
        table->verticalHeader()->hide();
        table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        table->verticalHeader()->setDefaultSectionSize(RowHeight);
        table->setCornerButtonEnabled(false);
        table->setTabKeyNavigation(false);
    } else {
        auto* const tree = new QTreeView(this);
        view_ = tree;
        header_ = tree->header();
        tree->setProperty("spaced", true);
        tree->setUniformRowHeights(true);
        tree->setExpandsOnDoubleClick(false);
    }
    view_->setObjectName(name);
    view_->setFont(Theme::Figures(view_->font()));
    view_->setModel(&model_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_->setTextElideMode(Qt::ElideRight);
    view_->installEventFilter(this);
    header_->setHighlightSections(false);
    header_->setSectionsClickable(true);
    header_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header_, &QHeaderView::sectionClicked, this, [this](int section) { Sort(section); });
    connect(header_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QMenu menu(this);
        columns_->FillMenu(menu);
        menu.exec(header_->mapToGlobal(at));
    });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { desk_.Try([this] { RememberRow(); }); });
    connect(view_, &QAbstractItemView::doubleClicked, this, [this] {
        if (const auto row = Current(); row && Activated) desk_.Try([&] { Activated(*row); });
    });
    columns_ = new SheetColumns(*header_, name);
    columns_->setParent(this);
    stack_->addWidget(view_);
}

void SheetView::MakeButtons() {
    buttons_ = new QWidget(this);
    auto* const row = new QHBoxLayout(buttons_);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString& caption, const QString& tip, auto fill) {
        auto* const button = new QToolButton(buttons_);
        auto* const menu = new QMenu(button);
        button->setText(caption + QString::fromUtf8(" \u25BE"));
        button->setToolTip(tip);
        button->setAccessibleName(caption);
        button->setPopupMode(QToolButton::InstantPopup);
        button->setMenu(menu);
        connect(menu, &QMenu::aboutToShow, this, [menu, fill] {
            menu->clear();
            fill(*menu);
        });
        row->addWidget(button);
        return button;
    };
    add(tr("Columns"), tr("Choose the columns; drag a head to move it"),
        [this](QMenu& menu) { columns_->FillMenu(menu); });
    QToolButton* const out =
        add(tr("Hand over"), tr("Copy, write to a file or print (Ctrl+E)"), [this](QMenu& menu) {
            menu.addAction(tr("Copy the chosen rows\tCtrl+C"), this, [this] { Copy(); });
            menu.addSeparator();
            menu.addAction(tr("Print\u2026\tCtrl+P"), this, [this] { Print(); });
            menu.addSeparator();
            menu.addAction(tr("&Spreadsheet\u2026"), this, [this] { AskForFile(SheetFile::Workbook); });
            menu.addAction(tr("&PDF file\u2026"), this, [this] { AskForFile(SheetFile::Pdf); });
            menu.addAction(tr("&CSV file\u2026"), this, [this] { AskForFile(SheetFile::Csv); });
        });
    AddKey(QKeySequence::Print, [this] { Print(); });
    AddKey(QKeySequence(Qt::CTRL | Qt::Key_E), [out] { out->showMenu(); });
}

// Wherever the focus is on the page; of several views there the one that has it.
void SheetView::AddKey(const QKeySequence& key, const std::function<void()>& act) {
    auto* const shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, this, act);
    connect(shortcut, &QShortcut::activatedAmbiguously, this, [this, act] {
        if (isAncestorOf(QApplication::focusWidget())) act();
    });
}

void SheetView::SetEmpty(const QString& title, const QString& text) {
    QWidget* const before = std::exchange(empty_, new EmptyState(title, text));
    stack_->addWidget(empty_);
    if (before && stack_->currentWidget() == before) Turn(empty_);
    delete before;
}

// The keys stay with the list, also while it is empty.
void SheetView::Turn(QWidget* to) {
    const QWidget* const at = window()->focusWidget();
    const bool hadFocus = at == stack_->currentWidget() || stack_->currentWidget()->isAncestorOf(at);
    stack_->setCurrentWidget(to);
    if (hadFocus) to->setFocus();
}

void SheetView::Ask(Making make) {
    make_ = [make = std::move(make)](queries::Reading& books, Worker::Job&) { return make(books); };
    slowly_ = false;
    isNew_ = isOld_ = true;
    Answer();
}

void SheetView::AskSlowly(Making make) {
    AskSlowly([make = std::move(make)](queries::Reading& books, Worker::Job&) { return make(books); });
}

void SheetView::AskSlowly(SlowMaking make) {
    make_ = std::move(make);
    slowly_ = true;
    isNew_ = isOld_ = true;
    Answer();
}

void SheetView::AskAgain(Making make) {
    make_ = [make = std::move(make)](queries::Reading& books, Worker::Job&) { return make(books); };
    slowly_ = false;
    Answer();
}

void SheetView::Refresh() {
    if (make_) Answer();
}

void SheetView::Answer() {
    if (!slowly_) {
        Worker::Job job;
        if (!desk_.Try([&] { Take(make_(desk_.Books().Reading(), job)); })) TellUnread();
        return;
    }
    struct Made {
        SheetPtr Sheet;
        std::optional<ShownSheet::Order> Order;
    };
    const auto made = std::make_shared<Made>();
    const int column = SortBy ? -1 : sortColumn_;
    InBackground(
        tr("Adding up\u2026"),
        [make = make_, made, column, down = descending_](queries::Reading& books, Worker::Job& job) {
            const queries::Reading::Moment moment(books);
            made->Sheet = make(books, job);
            if (column >= 0) made->Order = Ordered(*made->Sheet, column, down, job);
        },
        [this, made] {
            made->Sheet->ReadBy(desk_.Books().Reading());
            Put(std::make_shared<ShownSheet>(made->Sheet, std::move(made->Order)));
        },
        [this] { TellUnread(); });
}

// The rows of the question before would stand below the words of the new one.
void SheetView::TellUnread() {
    if (!isOld_) return;
    columns_->Drop();
    model_.Set(nullptr);
    totals_->hide();
    Turn(unread_);
}

void SheetView::Take(SheetPtr sheet) {
    if (sortColumn_ >= 0 && !SortBy)
        SortShown(std::move(sheet));
    else
        Put(std::make_shared<ShownSheet>(std::move(sheet)));
}

void SheetView::Sort(int column) {
    descending_ = column == sortColumn_ && !descending_;
    sortColumn_ = column;
    header_->setSortIndicatorShown(true);
    header_->setSortIndicator(column, descending_ ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (SortBy) return (void)desk_.Try([&] { SortBy(static_cast<std::size_t>(column), descending_); });
    isNew_ = true;
    if (make_) Answer();
}

// A long sheet is made once more on the worker, and only the order comes back.
void SheetView::SortShown(SheetPtr sheet) {
    if (sheet->Rows() <= Few) {
        Worker::Job job;
        ShownSheet::Order order = Ordered(*sheet, sortColumn_, descending_, job);
        return Put(std::make_shared<ShownSheet>(std::move(sheet), std::move(order)));
    }
    const auto order = std::make_shared<ShownSheet::Order>();
    InBackground(
        tr("Sorting %1 rows\u2026").arg(QLocale().toString(qulonglong(sheet->Rows()))),
        [make = make_, order, column = sortColumn_, down = descending_](queries::Reading& books,
                                                                        Worker::Job& job) {
            const queries::Reading::Moment moment(books);
            *order = Ordered(*make(books, job), column, down, job);
        },
        [this, sheet, order] {
            if (order->size() == sheet->Rows()) Put(std::make_shared<ShownSheet>(sheet, std::move(*order)));
        });
}

// The user may have moved on while the answer was on its way: the row is that of now. The rows are counted
// first: what cannot be read must not stand behind a view, which asks for them as it paints.
void SheetView::Put(std::shared_ptr<const ShownSheet> shown) {
    const std::size_t rows = shown->Rows();
    Place back = Where();
    if (std::exchange(isNew_, false)) {
        back.Key = {};
        back.Row = rows > 0 ? shown->RowOf(0) : 0;
        back.Above = 0;
    }
    isOld_ = false;
    model_.Set(std::move(shown));
    columns_->Lay(*model_.Sheet());
    Turn(rows > 0 ? static_cast<QWidget*>(view_) : empty_);
    totals_->setVisible(rows > 0);
    totalsSet_ = false;
    if (Filled) Filled();
    if (!totalsSet_) ShowTotals();
    Return(back);
}

// At once: a sheet that reads by window may tell other rows when the books have changed.
void SheetView::RememberRow() {
    if (const auto row = Current(); row && KeyOf) key_ = KeyOf(*Sheet(), *row);
}

SheetView::Place SheetView::Where() const {
    Place place;
    place.Open = OpenHeads();
    const auto row = Current();
    if (!row) return place;
    place.Row = *row;
    place.Key = key_;
    const int height = std::max(1, view_->visualRect(view_->currentIndex()).height());
    place.Above = view_->visualRect(view_->currentIndex()).top() / height;
    return place;
}

std::optional<std::size_t> SheetView::Find(const Place& place) const {
    const std::size_t rows = Sheet()->Rows();
    if (!KeyOf || !place.Key.isValid())
        return rows == 0 ? std::nullopt : std::optional(std::min(place.Row, rows - 1));
    // Near where it was, as a rule: a sheet that reads by window would have to look through all its rows.
    for (std::size_t row = place.Row - std::min(place.Row, Near); row < std::min(rows, place.Row + Near);
         ++row)
        if (KeyOf(*Sheet(), row) == place.Key) return row;
    if (PlaceOf) return PlaceOf(*Sheet(), place.Key);
    for (std::size_t row = 0; row < rows; ++row)
        if (KeyOf(*Sheet(), row) == place.Key) return row;
    return std::nullopt;
}

void SheetView::Return(const Place& place) {
    const std::size_t rows = Sheet()->Rows();
    if (rows == 0) return;
    OpenAgain(place);
    SetCurrent(Find(place).value_or(std::min(place.Row, rows - 1)));
    const QRect now = view_->visualRect(view_->currentIndex());
    const int moved = now.top() / std::max(1, now.height()) - place.Above;
    view_->verticalScrollBar()->setValue(view_->verticalScrollBar()->value() + moved);
}

QSet<QString> SheetView::OpenHeads() const {
    QSet<QString> open;
    if (!Tree() || !KeyOf || !Sheet()) return open;
    for (std::size_t row = 0; row < Sheet()->Rows(); ++row)
        if (Tree()->isExpanded(model_.IndexOf(model_.Sheet()->ShownRow(row))))
            open += KeyOf(*Sheet(), row).toString();
    return open;
}

// At first a short tree is open, and a long one shows its heads.
void SheetView::OpenAgain(const Place& place) {
    if (!Tree()) return;
    if (std::exchange(isFirst_, false)) {
        if (Sheet()->Rows() <= OpenAtFirst) Tree()->expandAll();
        return;
    }
    if (!KeyOf) return;
    for (std::size_t row = 0; row < Sheet()->Rows(); ++row)
        if (place.Open.contains(KeyOf(*Sheet(), row).toString()))
            Tree()->setExpanded(model_.IndexOf(model_.Sheet()->ShownRow(row)), true);
}

void SheetView::SetTotals(const QString& words, std::vector<QString> totals) {
    totalsSet_ = true;
    columns_->MakeRoom(totals);
    totals_->Set(words, std::move(totals));
}

void SheetView::ShowTotals() {
    const queries::Sheet& sheet = *model_.Sheet();
    const QString words = tr("%Ln row(s)", nullptr, static_cast<int>(sheet.Rows()));
    std::vector<QString> texts(sheet.Columns().size());
    if (sheet.Rows() <= Few) {
        queries::Totals totals(sheet);
        for (std::size_t row = 0; row < sheet.Rows(); ++row) totals.Add(row);
        for (std::size_t column = 0; column < texts.size(); ++column)
            texts[column] = CellText(sheet.Columns()[column].kind, totals.Of(column));
    }
    columns_->MakeRoom(texts);
    totals_->Set(words, std::move(texts));
}

QString SheetView::TotalsText() const {
    return totals_->Text();
}

const queries::Sheet* SheetView::Sheet() const {
    return model_.Sheet() ? &model_.Sheet()->Of() : nullptr;
}

std::optional<std::size_t> SheetView::Current() const {
    const QModelIndex index = view_->currentIndex();
    if (!index.isValid() || !model_.Sheet()) return std::nullopt;
    return model_.Sheet()->RowOf(model_.RowOf(index));
}

void SheetView::SetCurrent(std::size_t row) {
    const QModelIndex index = model_.IndexOf(model_.Sheet()->ShownRow(row));
    view_->setCurrentIndex(index);
    view_->scrollTo(index);
}

QTreeView* SheetView::Tree() const {
    return qobject_cast<QTreeView*>(view_);
}

void SheetView::Toggle() {
    if (QTreeView* const tree = Tree())
        tree->setExpanded(tree->currentIndex(), !tree->isExpanded(tree->currentIndex()));
}

void SheetView::Copy() {
    if (!model_.Sheet()) return;
    desk_.Try([&] {
        std::vector<std::size_t> rows;
        for (const QModelIndex& index : view_->selectionModel()->selectedRows())
            rows.push_back(model_.RowOf(index));
        std::sort(rows.begin(), rows.end());
        const SheetPtr sheet(std::shared_ptr<void>(), model_.Sheet());
        const ShownSheet shown(sheet, {}, columns_->Chosen());
        QApplication::clipboard()->setText(ClipboardText(shown, rows));
    });
}

void SheetView::AskForFile(SheetFile kind) {
    if (!model_.Sheet()) return;
    QString file = QFileDialog::getSaveFileName(this, tr("Write to"), FileNameOf(Sheet()->Title(), kind),
                                                FilterOf(kind));
    if (file.isEmpty()) return;
    if (!file.endsWith(ExtensionOf(kind), Qt::CaseInsensitive)) file += ExtensionOf(kind);
    Save(kind, file);
}

// From a sheet of its own, of one moment.
void SheetView::Save(SheetFile kind, const QString& file) {
    const auto write = [kind, make = make_, path = file.toStdString(), order = model_.Sheet()->RowOrder(),
                        columns = columns_->Chosen(), place = desk_.Books().Place().toStdString()](
                           queries::Reading& books, Worker::Job& job) {
        const queries::Reading::Moment moment(books);
        const SheetPtr sheet = make(books, job);
        const std::size_t rows = sheet->Rows();
        job.Total = kind == SheetFile::Pdf ? 2 * rows : rows;
        const bool fits = order && order->size() == rows;
        ShownSheet shown(sheet, fits ? order : std::nullopt, columns);
        shown.Watch = [&job](std::size_t row) { job.Step(row); };
        Write(shown, kind, path, place, [&job, rows](double part) {
            job.Step(rows + static_cast<std::size_t>(part * static_cast<double>(rows)));
        });
    };
    desk_.WriteFile(tr("Writing %1\u2026").arg(file), write, tr("Written: %1").arg(file));
}

ShownSheet SheetView::Paper() const {
    const SheetPtr sheet(std::shared_ptr<void>(), Sheet());  // the model keeps it
    return ShownSheet(sheet, model_.Sheet()->RowOrder(), columns_->Chosen());
}

void SheetView::Print() {
    if (model_.Sheet()) Print(Paper());
}

void SheetView::Print(const queries::Sheet& paper) {
    desk_.Try([&] { desk::Print(paper, desk_.Books().Place().toStdString()); });
    window()->activateWindow();  // not every system gives the focus back
}

void SheetView::InBackground(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                             std::function<void()> then, std::function<void()> without) {
    const auto end = [this, then = std::move(then), without](std::exception_ptr failure) {
        const bool went = desk_.Try([&] {
            if (failure) std::rethrow_exception(failure);
            then();
        });
        if (!went && without) without();
    };
    jobs_->Run(desk_.Books().Background(), what, std::move(work), end, without);
}

bool SheetView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        const auto row = Current();
        if (key.matches(QKeySequence::Copy)) {
            Copy();
            return true;
        }
        if ((key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && row && Activated) {
            desk_.Try([&] { Activated(*row); });
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}

}  // namespace desk
