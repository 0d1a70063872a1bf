#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "ui_ucOPtSelective.h"

namespace qm {

// A list of records with two choices, all or selected. It fills itself from its record set when the focus
// first comes to it, keeps its rows and marks for the form's life, and tells its form by two events.
class ucOPtSelective : public forms::UserControlOf<Ui::ucOPtSelective> {
  public:
    explicit ucOPtSelective(QWidget* parent);

    void SetADORecordset(ado::RecordsetPtr rows) { rows_ = std::move(rows); }
    void SetSelFldName(std::string field) { shownField_ = std::move(field); }
    void SetSelpkFld(std::string field) { keyField_ = std::move(field); }

    // The keys that were selected at the last OK, in the order of the list, and one slot more, 0: callers go
    // to the upper bound less 1.
    const std::vector<std::int16_t>& itemSel() const { return selected_; }

    void optAll_Click();

    forms::Event<> OkClick, CancelClick;

  private:
    void UserControl_EnterFocus();
    void optSel_Click();
    void cmdCancel_Click() { CancelClick.Fire(); }
    void cmdOk_Click();  // raises 6 "Overflow" for a key beyond 16 bits

    ado::RecordsetPtr rows_;
    std::string shownField_, keyField_;
    std::vector<std::int16_t> selected_;
};

}  // namespace qm
