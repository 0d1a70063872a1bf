#include "desk/VoucherChips.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desk/Figures.h"
#include "desk/PeriodChip.h"

namespace desk {
namespace {

constexpr int TypingPause = 200;  // milliseconds, until the list follows

}  // namespace

VoucherChips::VoucherChips(const queries::Range& year, std::function<std::vector<Ledger>()> ledgers,
                           std::function<void()> changed)
    : ledgers_(std::move(ledgers)), changed_(std::move(changed)), words_(new QLineEdit(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    words_->setObjectName("words");
    words_->setPlaceholderText(tr("Words in the narration   Ctrl+F"));
    words_->setAccessibleName(tr("Words in the narration"));
    words_->setClearButtonEnabled(true);
    words_->setMinimumWidth(80);
    row->addWidget(words_, 1);
    typed_.setSingleShot(true);
    typed_.setInterval(TypingPause);
    connect(words_, &QLineEdit::textChanged, this, [this] { typed_.start(); });
    connect(&typed_, &QTimer::timeout, this, [this] { Changed(); });
    period_ = new PeriodChip(year, [this] {
        filter_.days = period_->Days();
        Changed();
    });
    type_ = new Chip("type", tr("&Type"), [this](QMenu& menu) { FillTypes(menu); });
    ledger_ = new Chip("ledger", tr("&Ledger"), [this](QMenu& menu) { FillLedgers(menu); });
    amount_ = new Chip("amount", tr("Amou&nt"), [this](QMenu& menu) { FillAmounts(menu); });
    for (Chip* const chip : std::initializer_list<Chip*>{period_, type_, ledger_, amount_})
        row->addWidget(chip);
    clear_ = new AtOnce<QToolButton>(this);
    clear_->setObjectName("clear");
    clear_->setText(tr("Show &all"));
    connect(clear_, &QToolButton::clicked, this, [this] { Clear(); });
    row->addWidget(clear_);
    Show();
}

void VoucherChips::FillTypes(QMenu& menu) {
    const auto add = [&](const QString& caption, std::optional<qm::VoucherType> type) {
        connect(menu.addAction(caption), &QAction::triggered, this, [this, type] {
            filter_.type = type;
            Changed();
        });
    };
    add(tr("All types"), {});
    menu.addSeparator();
    for (const std::string& word : qm::VoucherTypeWords())
        add('&' + QString::fromStdString(word), qm::TypeOfWord(word));
}

// Typing narrows the list; Enter takes its first line.
void VoucherChips::FillLedgers(QMenu& menu) {
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        auto* const part = new QLineEdit(&panel);
        auto* const list = new QListWidget(&panel);
        part->setPlaceholderText(tr("Part of the name"));
        part->setAccessibleName(tr("Part of the ledger's name"));
        list->setAccessibleName(tr("Ledgers"));
        list->setMinimumSize(280, 240);
        list->setProperty("spaced", true);
        list->ensurePolished();  // lines measured before would stay too low
        auto* const first = new QListWidgetItem(tr("All ledgers"), list);
        first->setData(Qt::UserRole, 0);
        for (const auto& [id, name] : ledgers_()) {
            auto* const item = new QListWidgetItem(QString::fromStdString(name), list);
            item->setData(Qt::UserRole, id);
        }
        list->setCurrentRow(0);
        form.addRow(part);
        form.addRow(list);
        connect(part, &QLineEdit::textChanged, list, [list](const QString& text) {
            QListWidgetItem* found = nullptr;
            for (int row = 0; row < list->count(); ++row) {
                QListWidgetItem* const item = list->item(row);
                item->setHidden(!item->text().contains(text.trimmed(), Qt::CaseInsensitive));
                if (!found && !item->isHidden()) found = item;
            }
            list->setCurrentItem(found);
        });
        const auto take = [this, list, &menu] {
            const QListWidgetItem* const item = list->currentItem();
            if (!item) return;
            const int id = item->data(Qt::UserRole).toInt();
            filter_.ledger = id > 0 ? std::optional(id) : std::nullopt;
            ledgerName_ = id > 0 ? item->text() : QString();
            filter_.group.clear();
            menu.close();
            Changed();
        };
        connect(part, &QLineEdit::returnPressed, this, take);
        connect(list, &QListWidget::itemActivated, this, take);
        connect(list, &QListWidget::itemClicked, this, take);
    });
}

void VoucherChips::FillAmounts(QMenu& menu) {
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        const auto box = [&](const QString& caption, const std::optional<double>& value) {
            auto* const edit = new QLineEdit(value ? desk::AmountText(*value) : QString(), &panel);
            form.addRow(caption, edit);
            return edit;
        };
        auto* const least = box(tr("At least"), filter_.least);
        auto* const most = box(tr("At most"), filter_.most);
        auto* const button = new QPushButton(tr("Show these amounts"), &panel);
        form.addRow(button);
        const auto take = [this, least, most, &menu] {
            filter_.least = ReadAmount(least->text());
            filter_.most = ReadAmount(most->text());
            menu.close();
            Changed();
        };
        for (QLineEdit* const edit : {least, most}) connect(edit, &QLineEdit::returnPressed, this, take);
        connect(button, &QPushButton::clicked, this, take);
    });
}

void VoucherChips::Set(const queries::VoucherFilter& filter, const QString& ledger) {
    filter_ = filter;
    ledgerName_ = ledger.isEmpty() ? QString::fromStdString(filter.group) : ledger;
    words_->setText(QString::fromStdString(filter.words));
    Changed();  // at once, whatever was just typed
}

void VoucherChips::Clear() {
    Set({});
}

bool VoucherChips::Any() const {
    return !Text().isEmpty();
}

QString VoucherChips::Text() const {
    QStringList parts;
    for (const QString& part :
         {period_->Text(), filter_.type ? QString(qm::WordOf(*filter_.type)) : QString(), ledgerName_,
          AmountText(), QString::fromStdString(filter_.words)})
        if (!part.isEmpty()) parts << part;
    return parts.join(", ");
}

// Words that were typed a moment ago count, whichever filter was changed behind them.
void VoucherChips::Changed() {
    typed_.stop();
    filter_.words = words_->text().simplified().toStdString();
    Show();
    changed_();
}

QString VoucherChips::AmountText() const {
    if (filter_.least && filter_.most)
        return tr("%1 to %2").arg(desk::AmountText(*filter_.least), desk::AmountText(*filter_.most));
    if (filter_.least) return tr("from %1").arg(desk::AmountText(*filter_.least));
    if (filter_.most) return tr("up to %1").arg(desk::AmountText(*filter_.most));
    return {};
}

void VoucherChips::Show() {
    period_->Set(filter_.days);
    type_->SetValue(filter_.type ? QString(qm::WordOf(*filter_.type)) : QString());
    ledger_->SetValue(ledgerName_);
    amount_->SetValue(AmountText());
    clear_->setVisible(Any());
}

}  // namespace desk
