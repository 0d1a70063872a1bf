#include "desk/VoucherChips.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>
#include <algorithm>

#include "desk/Dates.h"

namespace desk {
namespace {

constexpr int TypingPause = 200;  // milliseconds, until the list follows

// A page of boxes in a chip's menu, with a button that takes what they hold.
template <class Fill>
void AddForm(QMenu& menu, Fill fill) {
    auto* const panel = new QWidget(&menu);
    auto* const form = new QFormLayout(panel);
    form->setContentsMargins(12, 8, 12, 8);
    fill(*panel, *form);
    auto* const action = new QWidgetAction(&menu);
    action->setDefaultWidget(panel);
    menu.addAction(action);
}

std::optional<double> AmountOf(const QLineEdit& box) {
    bool reads = false;
    const double rupees = box.text().remove(',').trimmed().toDouble(&reads);
    return reads ? std::optional(rupees) : std::nullopt;
}

}  // namespace

VoucherChips::VoucherChips(const queries::Range& year, std::function<std::vector<Ledger>()> ledgers,
                           std::function<void()> changed)
    : year_(year), ledgers_(std::move(ledgers)), changed_(std::move(changed)), words_(new QLineEdit(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    words_->setObjectName("words");
    words_->setPlaceholderText(tr("Words in the narration   Ctrl+F"));
    words_->setAccessibleName(tr("Words in the narration"));
    words_->setClearButtonEnabled(true);
    words_->setMinimumWidth(140);
    row->addWidget(words_, 1);
    typed_.setSingleShot(true);
    typed_.setInterval(TypingPause);
    connect(words_, &QLineEdit::textChanged, this, [this] { typed_.start(); });
    connect(&typed_, &QTimer::timeout, this, [this] {
        filter_.words = words_->text().simplified().toStdString();
        Changed();
    });
    period_ = AddChip("period", [this](QMenu& menu) { FillPeriods(menu); });
    type_ = AddChip("type", [this](QMenu& menu) { FillTypes(menu); });
    ledger_ = AddChip("ledger", [this](QMenu& menu) { FillLedgers(menu); });
    amount_ = AddChip("amount", [this](QMenu& menu) { FillAmounts(menu); });
    clear_ = new QToolButton(this);
    clear_->setObjectName("clear");
    clear_->setText(tr("Show &all"));
    connect(clear_, &QToolButton::clicked, this, [this] { Clear(); });
    row->addWidget(clear_);
    Show();
}

QToolButton* VoucherChips::AddChip(const QString& name, std::function<void(QMenu&)> fill) {
    auto* const chip = new QToolButton(this);
    auto* const menu = new QMenu(chip);
    chip->setObjectName("chip");
    menu->setObjectName(name);
    chip->setPopupMode(QToolButton::InstantPopup);
    chip->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [menu, fill = std::move(fill)] {
        menu->clear();
        fill(*menu);
    });
    layout()->addWidget(chip);
    return chip;
}

void VoucherChips::FillPeriods(QMenu& menu) {
    const auto add = [&](const QString& caption, const queries::Range& days) {
        connect(menu.addAction(caption), &QAction::triggered, this, [this, days] {
            filter_.days = days;
            Changed();
        });
    };
    add(tr("Whole year"), {});
    menu.addSeparator();
    for (const queries::Range& month : MonthsOf(year_)) add(MonthText(*month.from), month);
    menu.addSeparator();
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        auto* const from = new QDateEdit(ToQt(filter_.days.from.value_or(*year_.from)), &panel);
        auto* const upto = new QDateEdit(ToQt(filter_.days.upto.value_or(*year_.upto)), &panel);
        for (QDateEdit* const box : {from, upto}) {
            box->setDisplayFormat("dd-MMM-yyyy");
            box->setCalendarPopup(true);
        }
        form.addRow(tr("From"), from);
        form.addRow(tr("Up to"), upto);
        auto* const take = new QPushButton(tr("Show these days"), &panel);
        form.addRow(take);
        connect(take, &QPushButton::clicked, this, [this, from, upto, &menu] {
            filter_.days = {FromQt(from->date()), FromQt(upto->date())};
            menu.close();
            Changed();
        });
    });
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
        connect(
            &menu, &QMenu::aboutToShow, part, [part] { part->setFocus(); }, Qt::QueuedConnection);
        QMetaObject::invokeMethod(
            part, [part] { part->setFocus(); }, Qt::QueuedConnection);
    });
}

void VoucherChips::FillAmounts(QMenu& menu) {
    AddForm(menu, [&](QWidget& panel, QFormLayout& form) {
        const auto box = [&](const QString& caption, const std::optional<double>& value) {
            auto* const edit = new QLineEdit(value ? QString::number(*value, 'f', 2) : QString(), &panel);
            form.addRow(caption, edit);
            return edit;
        };
        auto* const least = box(tr("At least"), filter_.least);
        auto* const most = box(tr("At most"), filter_.most);
        auto* const button = new QPushButton(tr("Show these amounts"), &panel);
        form.addRow(button);
        const auto take = [this, least, most, &menu] {
            filter_.least = AmountOf(*least);
            filter_.most = AmountOf(*most);
            menu.close();
            Changed();
        };
        for (QLineEdit* const edit : {least, most}) connect(edit, &QLineEdit::returnPressed, this, take);
        connect(button, &QPushButton::clicked, this, take);
        QMetaObject::invokeMethod(
            least, [least] { least->setFocus(); }, Qt::QueuedConnection);
    });
}

void VoucherChips::Set(const queries::VoucherFilter& filter, const QString& ledger) {
    filter_ = filter;
    ledgerName_ = ledger.isEmpty() ? QString::fromStdString(filter.group) : ledger;
    const QSignalBlocker quiet(words_);
    words_->setText(QString::fromStdString(filter.words));
    Changed();
}

void VoucherChips::Clear() {
    Set({});
}

bool VoucherChips::Any() const {
    return !Text().isEmpty();
}

QString VoucherChips::Text() const {
    QStringList parts;
    for (const QString& part : {PeriodText(), filter_.type ? QString(qm::WordOf(*filter_.type)) : QString(),
                                ledgerName_, AmountText(), QString::fromStdString(filter_.words)})
        if (!part.isEmpty()) parts << part;
    return parts.join(", ");
}

void VoucherChips::Changed() {
    typed_.stop();
    Show();
    changed_();
}

QString VoucherChips::PeriodText() const {
    if (!filter_.days.from && !filter_.days.upto) return {};
    return RangeText(filter_.days, year_);
}

QString VoucherChips::AmountText() const {
    const auto figure = [](double rupees) { return QLocale().toString(rupees, 'f', 2); };
    if (filter_.least && filter_.most)
        return tr("%1 to %2").arg(figure(*filter_.least), figure(*filter_.most));
    if (filter_.least) return tr("from %1").arg(figure(*filter_.least));
    if (filter_.most) return tr("up to %1").arg(figure(*filter_.most));
    return {};
}

void VoucherChips::Show() {
    const auto set = [](QToolButton& chip, const QString& caption, const QString& value) {
        chip.setText(value.isEmpty() ? caption + QString::fromUtf8(" \u25BE")
                                     : value + QString::fromUtf8(" \u25BE"));
        chip.setAccessibleName(value.isEmpty() ? QString(caption).remove('&')
                                               : QString(caption).remove('&') + ": " + value);
        chip.setProperty("set", !value.isEmpty());
        chip.style()->unpolish(&chip);
        chip.style()->polish(&chip);
        // The letter goes on working where the caption has given way to the value.
        chip.setShortcut(QKeySequence::mnemonic(caption));
    };
    set(*period_, tr("&Period"), PeriodText());
    set(*type_, tr("&Type"), filter_.type ? QString(qm::WordOf(*filter_.type)) : QString());
    set(*ledger_, tr("&Ledger"), ledgerName_);
    set(*amount_, tr("A&mount"), AmountText());
    clear_->setVisible(Any());
}

}  // namespace desk
