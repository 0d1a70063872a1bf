#include "desk/ListCard.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desk/AtOnce.h"

namespace desk {

ListCard::ListCard(Desk& desk, Contents contents) : view_(new SheetView(desk, contents.Name)) {
    setObjectName("card");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 8);
    auto* const head = new QHBoxLayout;
    auto* const title = new QLabel(contents.Title, this);
    title->setObjectName("cardTitle");
    auto* const all = new AtOnce<QPushButton>(contents.Caption, this);
    all->setAutoDefault(true);  // Enter presses it, as the blank does
    all->setObjectName(contents.Name + "All");
    connect(all, &QPushButton::clicked, this, std::move(contents.All));
    head->addWidget(title, 1);
    head->addWidget(all);
    column->addLayout(head);
    view_->SetEmpty(contents.Empty, contents.EmptyText);
    view_->View().setAccessibleName(contents.Title);
    view_->Activated = [this, act = std::move(contents.Activated)](std::size_t row) {
        act(*view_->Sheet(), row);
    };
    view_->Keeper().KeyOf = [](const queries::Sheet& sheet, std::size_t row) {
        return QVariant(QString::fromStdString(basic::TextOrEmpty(sheet.At(row, 0))));
    };
    view_->Filled = [this] { view_->SetTotals({}, {}); };
    view_->Buttons()->hide();
    column->addWidget(view_, 1);
    setMinimumHeight(220);
    setFocusProxy(view_);
}

void ListCard::Set(std::shared_ptr<const queries::Sheet> sheet) {
    view_->AskAgain([sheet = std::move(sheet)](queries::Reading&) { return sheet; });
}

}  // namespace desk
