#include "desk/SheetView.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "desk/Figures.h"
#include "desk/HandOver.h"
#include "desk/JobBar.h"
#include "desk/RowsView.h"
#include "desk/SheetRoom.h"
#include "desk/TotalsStrip.h"
#include "queries/sheets/Totals.h"

namespace desk {
namespace {

// A text for each column; a long sheet is not summed here.
std::vector<QString> SumsOf(const queries::Sheet& sheet) {
    std::vector<QString> texts(sheet.Columns().size());
    if (sheet.Rows() > FewRows) return texts;
    queries::Totals totals(sheet);
    for (std::size_t row = 0; row < sheet.Rows(); ++row) totals.Add(row);
    for (std::size_t column = 0; column < texts.size(); ++column)
        texts[column] = CellText(sheet.Columns()[column].kind, totals.Of(column));
    return texts;
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
      view_(*MakeRowsView(shape, this)),
      header_(HeaderOf(view_)),
      room_(new SheetRoom(&view_, this)),
      columns_(new SheetColumns(header_, name)),
      totals_(new TotalsStrip(header_, this)),
      jobs_(new JobBar(this)),
      keeper_(view_, model_),
      question_(desk, *jobs_,
                {.Answered = [this](std::shared_ptr<const ShownSheet> shown) { Put(std::move(shown)); },
                 .Unanswered = [this] { TellUnread(); }}),
      buttons_(new QWidget(this)) {
    setObjectName("sheet");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(room_, 1);
    column->addWidget(totals_);
    column->addWidget(jobs_);
    view_.setObjectName(name);
    view_.setModel(&model_);
    view_.installEventFilter(this);
    columns_->setParent(this);
    jobs_->Left = [this] { view_.setFocus(); };
    MakeButtons();
    Connect();
    setFocusProxy(room_);
}

void SheetView::Connect() {
    connect(&header_, &QHeaderView::sectionClicked, this, [this](int section) { Sort(section); });
    connect(&header_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QMenu menu(this);
        columns_->FillMenu(menu);
        menu.exec(header_.mapToGlobal(at));
    });
    connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { desk_.Try([this] { keeper_.Remember(); }); });
    connect(&view_, &QAbstractItemView::doubleClicked, this, [this] {
        if (const auto row = Current(); row && Activated) desk_.Try([&] { Activated(*row); });
    });
}

void SheetView::MakeButtons() {
    auto* const row = new QHBoxLayout(buttons_);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](QToolButton* button, const QString& caption, const QString& tip) {
        button->setText(caption + QString::fromUtf8(" \u25BE"));
        button->setToolTip(tip);
        button->setAccessibleName(caption);
        button->setPopupMode(QToolButton::InstantPopup);
        row->addWidget(button);
    };
    auto* const choose = new QToolButton(buttons_);
    auto* const menu = new QMenu(choose);
    choose->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        columns_->FillMenu(*menu);
    });
    add(choose, tr("Columns"), tr("Choose the columns; drag a head to move it"));
    handOver_ = new HandOver(desk_, *this, {view_, model_, *columns_, question_});
    add(handOver_, tr("Hand over"), tr("Copy, write to a file or print (Ctrl+E)"));
}

void SheetView::SetEmpty(const QString& title, const QString& text) {
    room_->SetEmpty(title, text);
}

void SheetView::Ask(Making make) {
    question_.Set(std::move(make));
    Begin();
}

void SheetView::AskSlowly(Making make) {
    AskSlowly([make = std::move(make)](queries::Reading& books, Worker::Job&) { return make(books); });
}

void SheetView::AskSlowly(SlowMaking make) {
    question_.SetSlow(std::move(make));
    Begin();
}

void SheetView::AskAgain(Making make) {
    question_.Set(std::move(make));
    question_.Ask();
}

void SheetView::Refresh() {
    question_.Ask();
}

void SheetView::Begin() {
    isNew_ = isOld_ = true;
    question_.Ask();
}

// The rows of the question before would stand below the words of the new one.
void SheetView::TellUnread() {
    if (!isOld_) return;
    columns_->Drop();
    model_.Set(nullptr);
    totals_->hide();
    room_->ShowUnread();
}

void SheetView::Sort(int column) {
    sorting_ = {column, column == sorting_.Column && !sorting_.Descending};
    header_.setSortIndicatorShown(true);
    header_.setSortIndicator(column, sorting_.Descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (SortBy)
        return (void)desk_.Try([&] { SortBy(static_cast<std::size_t>(column), sorting_.Descending); });
    isNew_ = true;
    question_.SortBy(sorting_);
    question_.Ask();
}

// The user may have moved on while the answer was on its way: the row is that of now. The rows are counted
// first: what cannot be read must not stand behind a view, which asks for them as it paints.
void SheetView::Put(std::shared_ptr<const ShownSheet> shown) {
    const std::size_t rows = shown->Rows();
    RowKeeper::Place back = keeper_.Where();
    if (std::exchange(isNew_, false)) {
        back.Key = {};
        back.Row = rows > 0 ? shown->RowOf(0) : 0;
        back.Above = 0;
    }
    isOld_ = false;
    model_.Set(std::move(shown));
    columns_->Lay(*model_.Sheet());
    rows > 0 ? room_->ShowRows() : room_->ShowEmpty();
    totals_->setVisible(rows > 0);
    totalsSet_ = false;
    if (Filled) Filled();
    if (!totalsSet_) SetTotals(tr("%Ln row(s)", nullptr, static_cast<int>(rows)), SumsOf(*model_.Sheet()));
    keeper_.Return(back);
}

void SheetView::SetTotals(const QString& words, std::vector<QString> totals) {
    totalsSet_ = true;
    columns_->MakeRoom(totals);
    totals_->Set(words, std::move(totals));
}

QString SheetView::TotalsText() const {
    return totals_->Text();
}

const queries::Sheet* SheetView::Sheet() const {
    return model_.Sheet() ? &model_.Sheet()->Of() : nullptr;
}

void SheetView::Toggle() {
    if (auto* const tree = qobject_cast<QTreeView*>(&view_))
        tree->setExpanded(tree->currentIndex(), !tree->isExpanded(tree->currentIndex()));
}

void SheetView::Save(SheetFile kind, const QString& file) {
    handOver_->Save(kind, file);
}

void SheetView::Print(const queries::Sheet& paper) {
    handOver_->Print(paper);
}

void SheetView::InBackground(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                             std::function<void()> then, std::function<void()> without) {
    jobs_->RunNext(desk_, what, std::move(work), std::move(then), std::move(without));
}

bool SheetView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        const auto row = Current();
        if (key.matches(QKeySequence::Copy)) {
            handOver_->Copy();
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
