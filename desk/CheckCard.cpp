#include "desk/CheckCard.h"

#include <QPushButton>
#include <exception>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/FindingsPage.h"

namespace desk {

CheckCard::CheckCard(Desk& desk, const QString& again)
    : StatusCard(tr("Check of the books")),
      desk_(desk),
      findings_(&AddButton(tr("&Findings"), [this] { FindingsPage::Open(desk_); })) {
    findings_->setObjectName("findings");
    AddButton(again, [this] { Run(); });
    desk_.Books().Check().Listen(*this, [this] { Tell(); });
}

void CheckCard::Run() {
    desk_.Books().Check().Run(*this, [this](std::exception_ptr failure) {
        if (failure) desk_.Try([&] { std::rethrow_exception(failure); });
    });
}

void CheckCard::Tell() {
    const BooksCheck& check = desk_.Books().Check();
    findings_->setEnabled(check.Last() && !check.Last()->Findings.empty());
    Say(check.Text(), check.Last() && check.Last()->Errors > 0);
}

}  // namespace desk
