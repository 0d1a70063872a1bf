#include "tools/gallery/frmGrids.h"

#include <QApplication>

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/forms/controls/Text.h"

using namespace forms;

namespace {

// A million lines that exist nowhere: each is made when it is drawn.
class ManyLines : public RowSource {
  public:
    int Count() const override { return 1'000'000; }
    std::string Text(int row, int column) const override {
        switch (column) {
            case 0:
                return "0" + std::to_string(row % 9 + 1) + "-Apr-2001";
            case 1:
                return row % 2 ? "Cash In Hand" : "Sharma & Sons";
            case 2:
                return std::to_string(row / 2 + 1);
            case 3:
                return "Receipt";
            default:
                return row % 2 == column % 2 ? std::to_string(row % 977 + 1) + ".00" : "";
        }
    }
    std::string Key(int row) const override {
        return std::to_string(row % 2 + 1) + "vD" + Text(row, 2) + "S1";
    }
};

std::string Ledgers(int count) {
    std::string list;
    for (int id = 1; id <= count; ++id) {
        const std::string key = std::to_string(id);
        const std::string name = (id % 3 == 0   ? "State Bank "
                                  : id % 3 == 1 ? "Sharma & Sons "
                                                : "Cash Counter ") +
                                 key;
        list += (id == 1 ? "#1*1;1" : "|#" + key + ";" + key) + "\t" + name + "\t " +
                std::to_string(id * 137 % 9000) + "Dr";
    }
    return list;
}

}  // namespace

void frmGrids::Log(const std::string& what) {
    ui().lstLog->AddItem(what);
    ui().lstLog->scrollToBottom();
}

void frmGrids::LogEvents(VSFlexGrid& grid) {
    const std::string name = grid.Name();
    const auto cell = [](int row, int col) { return " " + std::to_string(row) + "," + std::to_string(col); };
    grid.GotFocus = [=, this] { Log(name + "_GotFocus"); };
    grid.LostFocus = [=, this] { Log(name + "_LostFocus"); };
    grid.Click = [=, this] { Log(name + "_Click"); };
    grid.KeyDown = [=, this](int& code, int) { Log(name + "_KeyDown " + std::to_string(code)); };
    grid.KeyPress = [=, this](int& ascii) { Log(name + "_KeyPress " + std::to_string(ascii)); };
    grid.BeforeEdit = [=, this](int row, int col, bool&) { Log(name + "_BeforeEdit" + cell(row, col)); };
    grid.StartEdit = [=, this](int row, int col, bool&) { Log(name + "_StartEdit" + cell(row, col)); };
    grid.KeyPressEdit = [=, this](int row, int col, int&) { Log(name + "_KeyPressEdit" + cell(row, col)); };
    grid.ValidateEdit = [=, this](int row, int col, bool&) { Log(name + "_ValidateEdit" + cell(row, col)); };
    grid.AfterEdit = [=, this](int row, int col) { Log(name + "_AfterEdit" + cell(row, col)); };
    grid.BeforeRowColChange = [=, this](int, int, int row, int col, bool&) {
        Log(name + "_BeforeRowColChange" + cell(row, col));
    };
    grid.AfterRowColChange = [=, this](int, int, int row, int col) {
        Log(name + "_AfterRowColChange" + cell(row, col));
    };
    grid.CellButtonClick = [=, this](int row, int col) { Log(name + "_CellButtonClick" + cell(row, col)); };
}

void frmGrids::Wire() {
    vsCombo_ = new VSFlexGrid(Window());
    vsCombo_->setObjectName("vsCombo");
    for (VSFlexGrid* grid : {ui().vsVoucher, ui().vsItems, vsCombo_}) LogEvents(*grid);
    ui().vsVoucher->BeforeEdit = [this](int, int col, bool& cancel) {
        cancel = col == 4;
        ui().vsVoucher->SetEditMaxLength(col == 7 ? 99 : 9);
    };
    ui().vsVoucher->StartEdit = [this](int row, int col, bool& cancel) {
        vsVoucher_StartEdit(row, col, cancel);
    };
    ui().vsVoucher->KeyPressEdit = [](int, int col, int& ascii) {
        const bool figure = (ascii >= '0' && ascii <= '9') || ascii == '.' || ascii == vbKeyBack;
        if ((col == 5 || col == 6) && !figure) ascii = 0;
    };
    ui().vsVoucher->BeforeRowColChange = [this](int, int, int row, int, bool& cancel) {
        cancel = row >= ui().vsVoucher->Rows() - 4;
    };
    vsCombo_->AfterEdit = [this](int, int) { vsCombo_AfterEdit(); };
    vsCombo_->LostFocus = [this] { vsCombo_->SetVisible(false); };
    ui().vsItems->BeforeEdit = [](int, int col, bool& cancel) { cancel = col == 1; };
    ui().vsItems->MouseMove = [this](int, int, int, int) {
        ui().vsItems->SetToolTipText(ui().vsItems->MouseRow() == 0 ? "Click on the headers to sort" : "");
    };
    ui().txtsearch->Change = [this] { FillSearch(ui().txtsearch->Text()); };
    ui().grd->DblClick = [this] { Log("grd_DblClick " + std::to_string(ui().grd->MouseRow())); };
    ui().tvTreeView->NodeClick = [this](Node& node) { Log("tvTreeView_NodeClick " + node.FullPath()); };
    ui().tvTreeView->AfterLabelEdit = [this](bool&, const std::string& text) {
        Log("tvTreeView_AfterLabelEdit " + text);
    };
    ui().lvwDayBook->ColumnClick = [this](int column) {
        Log("lvwDayBook_ColumnClick " + std::to_string(column));
        const bool again = ui().lvwDayBook->SortKey() == column - 1 && ui().lvwDayBook->SortOrder() == 0;
        ui().lvwDayBook->SetSorted(true);
        ui().lvwDayBook->SetSortOrder(again ? 1 : 0);
        ui().lvwDayBook->SetSortKey(column - 1);
    };
    ui().lvwDayBook->ItemClick = [this](const ListLine& line) { Log("lvwDayBook_ItemClick " + line.Key); };
}

void frmGrids::Form_Load() {
    FillVoucher();
    FillItems();
    FillSearch("");
    FillGroups();
    FillDayBook();
}

void frmGrids::FillVoucher() {
    VSFlexGrid& grid = *ui().vsVoucher;
    grid.SetCols(8);
    const char* const headings[] = {"", "", "Txn.", "Ledger", "Balance", "Dr.", "Cr.", "Particulars"};
    for (int col = 0; col < 8; ++col) grid.SetTextMatrix(0, col, headings[col]);
    const int widths[] = {0, 0, 900, 2600, 1600, 1450, 1450, 3500};
    for (int col = 2; col < 8; ++col) grid.SetColWidth(col, widths[col]);
    for (const int col : {0, 1}) grid.SetColHidden(col, true);
    grid.SetColBoolean(0, true);
    grid.SetColComboList(2, "Dr.|Cr.");
    grid.SetColComboList(3, "Dummy");
    for (const int col : {4, 5, 6}) grid.SetColFormat(col, "#,##,###.00");
    grid.SetEditable(true);
    grid.SetRows(1);
    grid.AddItem("\t\tDr.\tSharma & Sons\t 12500Dr\t1234567.5\t\tBeing the bill of April, paid in full");
    grid.AddItem("\t\tCr.\tState Bank\t 980.25Cr\t\t1234567.5\tBeing the bill of April, paid in full");
    grid.AddItem("");
    grid.SetRows(grid.Rows() + 4);
    const int last = grid.Rows() - 1;
    grid.SetRowHeight(last - 2, 50);
    grid.SetCellBackColor(last - 2, 2, last - 2, 7, vbRed);
    grid.SetTextMatrix(last - 1, 5, "Total Dr.");
    grid.SetTextMatrix(last - 1, 6, "Total Cr.");
    grid.SetTextMatrix(last, 4, "Total Balance = ");
    for (const int col : {5, 6}) grid.SetTextMatrix(last, col, "Rs.1,234,567.50");
    grid.SetCellForeColor(last - 1, 4, last, 6, vbRed);
    grid.SetCellFontBold(last - 1, 4, last, 6, true);
    grid.SetCellFontItalic(last - 1, 4, last, 6, true);
    grid.AutoSize(5, 6);
    grid.Select(1, 2);
    vsCombo_->SetFixedRows(0);
    vsCombo_->SetRows(1);
    vsCombo_->SetCols(1);
    vsCombo_->SetEditable(true);
    vsCombo_->SetColComboList(0, Ledgers(5000));
    vsCombo_->SetContainer(grid);
    vsCombo_->SetVisible(false);
}

void frmGrids::vsVoucher_StartEdit(int, int col, bool& cancel) {
    if (col != 3) return;
    cancel = true;
    VSFlexGrid& grid = *ui().vsVoucher;
    vsCombo_->SetTextMatrix(0, 0, grid.TextMatrix(grid.Row(), 3));
    vsCombo_->Move(grid.CellLeft(), grid.CellTop(), grid.ColWidth(3), grid.CellHeight() + 20);
    vsCombo_->SetVisible(true);
    vsCombo_->SetFocus();
    vsCombo_->EditCell();
}

void frmGrids::vsCombo_AfterEdit() {
    VSFlexGrid& grid = *ui().vsVoucher;
    if (!vsCombo_->ComboData().empty()) {
        grid.SetTextMatrix(grid.Row(), 3, vsCombo_->ComboItem());
        grid.SetCellData(grid.Row(), 3, vsCombo_->ComboData());
    }
    vsCombo_->SetVisible(false);
    grid.SetFocus();
}

void frmGrids::FillItems() {
    VSFlexGrid& grid = *ui().vsItems;
    grid.SetCols(6);
    const char* const headings[] = {"Select",       "Item\r\nCode",           "Item\r\nName",
                                    "Unit\r\nRate", "Qty. Prev.\r\nReceived", "Remarks"};
    for (int col = 0; col < 6; ++col) grid.SetTextMatrix(0, col, headings[col]);
    grid.SetRowHeight(0, 500);
    grid.SetRows(1);
    for (int item = 1; item <= 20'000; ++item)
        grid.AddItem("\t" + std::to_string(item) + "\tItem number " + std::to_string(item * 7919 % 20'011) +
                     "\t" + basic::NumberText(item * 1.25) + "\t" + std::to_string(item % 90));
    grid.SetColBoolean(0, true);
    grid.SetColFormat(3, "#,##,###.00");
    grid.SetColComboList(2, "...");
    grid.SetCellButtonPicture(":/forms/icons/ellipsis.svg");
    grid.SetEditable(true);
    grid.SetExplorerSort(true);
    grid.AutoSize(0, 4);
    grid.SetCellChecked(1, 0, true);
    grid.SetCellChecked(3, 0, true);
    grid.Select(2, 2);
}

void frmGrids::FillSearch(const std::string& typed) {
    MSFlexGrid& grid = *ui().grd;
    grid.SetRedraw(false);
    grid.Clear();
    grid.SetRows(1);
    grid.SetCols(3);
    for (int id = 1; id <= 30'000; ++id) {
        const std::string name = (id % 2 ? "Ledger " : "Party ") + std::to_string(id);
        if (!basic::LikeText(name, typed + "%")) continue;
        grid.AddItem(std::to_string(grid.Rows()) + "\t" + std::to_string(id) + "\t" + name);
    }
    grid.SetTextMatrix(0, 1, "Ledger Id");
    grid.SetTextMatrix(0, 2, "Name");
    grid.SetColWidth(0, 800);
    grid.SetColWidth(1, 1400);
    if (grid.Rows() > 1) grid.Select(1, 1);
    grid.SetColSel(2);
    grid.SetRedraw(true);
}

void frmGrids::FillGroups() {
    TreeView& tree = *ui().tvTreeView;
    imgList_.Add("Received", ":/forms/icons/received.svg");
    tree.SetImageList(&imgList_);
    tree.SetSorted(true);
    tree.Add("", 0, "R1", "Suppliers");
    tree.Add("", 0, "R2", "Bank");
    tree.Add("R1", tvwChild, "C11", "Sharma & Sons", "Received");
    tree.Add("R1", tvwChild, "C12", "Anand Traders");
    tree.Add("R2", tvwChild, "C13", "State Bank");
    tree.expandAll();
    tree.Item("C12").SetSelected(true);
}

void frmGrids::FillDayBook() {
    ListView& list = *ui().lvwDayBook;
    list.AddColumn("Date", 1400);
    list.AddColumn("Ledger", 1800);
    list.AddColumn("No", 900, Alignment::Right);
    list.AddColumn("Type", 1000);
    list.AddColumn("Dr Amount", 1300, Alignment::Right);
    list.AddColumn("Cr Amount", 1300, Alignment::Right);
    list.SetRowSource(std::make_shared<ManyLines>());
}

bool frmGrids::WritePicture(const std::string& path) {
    Show();
    Window()->resize(1000, 720);  // as on a screen of usual size
    ui().vsVoucher->SetFocus();
    ui().vsVoucher->Select(2, 3);
    QApplication::processEvents();
    const bool written = Window()->grab().save(ToQt(path));
    Unload();
    return written;
}
