#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/ado/Recordset.h"
#include "platform/forms/Controls.h"
#include "ui_frmGrpMain.h"

namespace qm {

// The chart of accounts: the primary groups with their ledgers as a tree, beside it a group's ledgers or a
// ledger's voucher rows, and the way to a voucher. Ledgers are added, renamed and deleted here; the groups of
// the first level stand. Opening it rewrites the totals of the whole year.
class frmGrpMain : public forms::FormOf<Ui::frmGrpMain> {
  protected:
    void Wire() override;
    void Form_Load() override;
    void Form_Activate() override { Form_Resize(); }
    void Form_Unload() override;
    void Form_Resize() override;
    std::vector<Command> CtrlCommands() override;

  private:
    void Form_Refresh();
    void Reread();
    void BuildTree();
    void SizeControls(int split);

    // What a node or a line stands for is told by its key: "R" a primary group, "C" a ledger, "V" a voucher,
    // then the id, which is kept in 16 bits. Kept 31.
    void ShowDetails(std::int16_t id, char kind);
    void ShowDetailsOf(const std::string& key);
    void SetHeads(const char* const (&heads)[5]);
    void ShowLedgers(std::int16_t groupId);
    void ShowVouchers(std::int16_t ledgerId);
    void OpenVoucher(std::int16_t trnNo);

    void tvTreeView_Click(const forms::Node& node);
    void tvTreeView_AfterLabelEdit(bool& cancel, const std::string& newText);
    void lvListView_Click(const std::string& key, const std::string& text);
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdExit_Click() { Unload(); }
    void imgSplitter_MouseDown();
    void imgSplitter_MouseMove(int x);
    void imgSplitter_MouseUp();

    // Both live as long as the form. Ledgers that are marked as deleted are left out.
    ado::RecordsetPtr primaryGroups_, ledgers_;
    bool dragging_ = false;  // the splitter
};

}  // namespace qm
