#include "desk/ImportPage.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>
#include <utility>
#include <vector>

#include "desk/Books.h"
#include "desk/EmptyState.h"
#include "desk/SheetView.h"
#include "host/doors/Counted.h"

namespace desk {
namespace {

std::shared_ptr<const queries::Sheet> FaultsSheet(const std::string& path, const host::Faults& faults) {
    using host::Fault;
    using queries::Kind;
    static const std::vector<queries::Filled<Fault>> columns{
        {{"line", "Line", Kind::Number}, [](const Fault& fault) -> basic::Value { return fault.line; }},
        {{"column", "Column", Kind::Text}, [](const Fault& fault) -> basic::Value { return fault.column; }},
        {{"fault", "What is wrong", Kind::Text},
         [](const Fault& fault) -> basic::Value { return fault.reason; }},
    };
    return std::make_shared<queries::SheetOf<Fault>>("Faults of " + path, columns,
                                                     std::vector<Fault>(faults.begin(), faults.end()));
}

}  // namespace

ImportPage::ImportPage(Desk& desk, const std::string& kind, const std::string& path)
    : Page(desk, tr("Import of %1").arg(QString::fromStdString(kind))),
      kind_(kind),
      file_(host::CheckImport(kind, path, desk.Books().Host(), [](std::size_t, std::size_t) {})) {
    SetSubtitle(QString::fromStdString(path));
    const std::string rows = host::Counted(file_.rows.size(), kind.substr(0, kind.size() - 1));
    if (file_.faults.empty()) {
        auto* const ready = new EmptyState(
            tr("%1, no fault").arg(QString::fromStdString(rows)),
            tr("All of it is written at once, or nothing, into %1.").arg(QString::fromStdString(file_.year)),
            tr("&Import"), [this] { Bring(); });
        bring_ = ready->findChild<QPushButton*>();
        Body().addWidget(ready, 1);
        SetFirstFocus(bring_);
        return;
    }
    auto* const view = new SheetView(desk, "faults");
    view->Ask([sheet = FaultsSheet(path, file_.faults)](queries::Reading&) { return sheet; });
    view->SetTotals(tr("%1; nothing was imported. Mend the file and import it again.")
                        .arg(QString::fromStdString(host::Counted(file_.faults.Count(), "fault"))),
                    {});
    AddToHead(view->Buttons());
    Body().addWidget(view, 1);
    view->View().setAccessibleName(tr("What is wrong"));
    SetFirstFocus(view);
}

void ImportPage::Bring() {
    bring_->setEnabled(false);  // once is enough
    desk().Try([this] {
        if (const auto failure = host::WriteImport(file_, [](std::size_t, std::size_t) {}))
            throw basic::Error(basic::error::InvalidCall,
                               "line " + std::to_string(failure->line) + ": " + failure->reason, "desk");
        Desk& window = desk();
        const QString note = tr("Imported: %1.")
                                 .arg(QString::fromStdString(
                                     host::Counted(file_.rows.size(), kind_.substr(0, kind_.size() - 1))));
        window.Back();
        window.Note(note);
    });
}

}  // namespace desk
