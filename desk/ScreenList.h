#pragma once

#include <QString>
#include <span>

namespace desk {

// A screen of the module as the desk offers it.
struct Screen {
    const char *Section, *Form;     // "Transactions", "frmVoucher"
    const char *Caption, *Purpose;  // to be translated
    const char* Key;                // opens it wherever the desk is: "F2"

    QString SectionText() const;
    QString CaptionText() const;
    QString PurposeText() const;
};

// All of them, section by section, those to which no row of the module's menu leads among them.
std::span<const Screen> ScreenList();

}  // namespace desk
