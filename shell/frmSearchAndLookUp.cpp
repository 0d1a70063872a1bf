#include "shell/frmSearchAndLookUp.h"

#include <algorithm>
#include <vector>

#include "core/modGeneral.h"
#include "platform/basic/Text.h"
#include "platform/forms/window/Application.h"
#include "shell/modSearch.h"

namespace qm {
namespace {

constexpr int RowStep = 100;  // rows that the grid grows by while a dynamic record set is read
constexpr int WidthAllowance = 200;

std::vector<ado::Field> FieldsOf(ado::Recordset& rows) {
    std::vector<ado::Field> fields;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) fields.push_back(rows.Fields(i));
    return fields;
}

// Writes the current record into row `row`, its number in column 0.
void WriteRecord(const std::vector<ado::Field>& fields, forms::MSFlexGrid& grid, int row) {
    grid.SetTextMatrix(row, 0, std::to_string(row));
    for (std::size_t i = 0; i < fields.size(); ++i)
        grid.SetTextMatrix(row, static_cast<int>(i) + 1, basic::TextOrEmpty(fields[i].Value()));
}

void WriteHeadings(ado::Recordset& rows, forms::MSFlexGrid& grid) {
    grid.SetCols(static_cast<int>(rows.FieldCount()) + 1);
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
        const int col = static_cast<int>(i) + 1;
        grid.SetTextMatrix(0, col, rows.Fields(i).Name());
        grid.SetColData(col, basic::Value(rows.Fields(i).Type()));
    }
}

}  // namespace

void frmSearchAndLookUp::Wire() {
    ui().txtsearch->Change = [this] { txtsearch_Change(); };
    ui().txtsearch->KeyDown = [this](int& keyCode, int shift) { txtsearch_KeyDown(keyCode, shift); };
    ui().cmdget->Click = [this] { cmdget_Click(); };
    ui().grd->DblClick = [this] { grd_DblClick(); };
    ui().chkAutosizeColumns->Click = [this] { chkAutosizeColumns_Click(); };
    ui().chkHighlightFirstRow->Click = [this] { chkHighlightFirstRow_Click(); };
}

// The grid and cmdget are not enabled again while the form stays loaded, also when rows are found later.
// Kept 82.
void frmSearchAndLookUp::Form_Load() {
    Initialize(BaseQuery);
    ui().grd->SetColWidth(0, 500);
    ui().grd->SetColWidth(1, 10000);
    ShowCount();
    if (ui().grd->Rows() == 1) {
        ui().grd->SetEnabled(false);
        ui().cmdget->SetEnabled(false);
    }
    ui().grd->Refresh();
}

// What was typed for the last search still stands, over the whole list; typing replaces it. Kept 83.
void frmSearchAndLookUp::Form_Activate() {
    Initialize(BaseQuery);
    ShowCount();
    ui().txtsearch->SetFocus();
    ui().txtsearch->SelectText();
}

// As the close box: the results stay as they were.
void frmSearchAndLookUp::Form_Escape() {
    Unload();
}

void frmSearchAndLookUp::ShowCount() {
    ui().lblstatus->SetCaption("(" + std::to_string(ui().grd->Rows() - 1) + ")  Records Found !");
}

void frmSearchAndLookUp::Initialize(const std::string& query) {
    try {
        ado::Recordset rows;
        rows.SetSource(query);
        rows.SetCursorLocation(ado::adUseClient);
        rows.Open({}, shared().Connection, ado::adOpenForwardOnly, ado::adLockReadOnly, -1);
        forms::SetMousePointer(forms::vbHourglass);
        LoadRecordsetIntoGrid(rows, *ui().grd, ui().chkAutosizeColumns->Value() != 0,
                              ui().chkHighlightFirstRow->Value() != 0);
    } catch (const basic::Error&) {
    }
    forms::SetMousePointer(forms::vbDefault);
}

void frmSearchAndLookUp::LoadRecordsetIntoGrid(ado::Recordset& rows, forms::MSFlexGrid& grid, bool autosize,
                                               bool highlight) {
    grid.SetRedraw(false);
    grid.Clear();
    grid.SetRows(2);
    grid.SetFixedRows(1);
    grid.SetRow(0);
    WriteHeadings(rows, grid);
    const std::vector<ado::Field> fields = FieldsOf(rows);
    if (rows.CursorType() == ado::adOpenStatic) {
        grid.SetRows(static_cast<int>(rows.RecordCount()) + 1);
        for (int row = 1; row < grid.Rows(); ++row, rows.MoveNext()) WriteRecord(fields, grid, row);
    } else if (rows.CursorType() == ado::adOpenDynamic) {
        int row = 1;
        for (; !rows.Eof(); ++row, rows.MoveNext()) {
            if (row == grid.Rows()) grid.SetRows(grid.Rows() + RowStep);
            WriteRecord(fields, grid, row);
        }
        grid.SetRows(row);
    }
    if (autosize) SetGridColumnWidth();
    if (highlight && grid.Rows() >= 2) HighlightGridRow(1);
    grid.SetRedraw(true);
}

// Longest by its count of characters, the first of equals: the widest on the screen may be another. Kept 85.
void frmSearchAndLookUp::SetGridColumnWidth() {
    forms::MSFlexGrid& grid = *ui().grd;
    struct Longest {
        int Row = 0;
        std::size_t Length = 0;
    };
    std::vector<Longest> longest(static_cast<std::size_t>(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row)
        for (int col = 0; col < grid.Cols(); ++col) {
            Longest& most = longest[static_cast<std::size_t>(col)];
            const std::string& text = grid.TextMatrix(row, col);
            if (text.size() <= most.Length) continue;  // nor has it more characters than bytes
            if (const std::size_t length = basic::Len(text); length > most.Length) most = {row, length};
        }
    for (int col = 0; col < grid.Cols(); ++col) {
        const Longest& most = longest[static_cast<std::size_t>(col)];
        grid.SetColWidth(col, TextWidth(grid.TextMatrix(most.Row, col)) + WidthAllowance);
    }
}

void frmSearchAndLookUp::HighlightGridRow(int row) {
    forms::MSFlexGrid& grid = *ui().grd;
    if (grid.Rows() < 2) return;
    grid.SetRow(row);
    grid.SetCol(1);
    grid.SetColSel(grid.Cols() - 1);
}

// A character that has a meaning in the query empties the box; that fires this again, for the whole list.
// Kept 83.
void frmSearchAndLookUp::txtsearch_Change() {
    const std::string typed = ui().txtsearch->Text();
    if (typed.find_first_of("/*\"|['") != std::string::npos) {
        ui().txtsearch->SetText("");
        return;
    }
    Initialize(SearchLikePrefix + "'" + basic::Trim(typed) + "%'");
    ShowCount();
}

// Up and Down mark another row while the typing goes on.
void frmSearchAndLookUp::txtsearch_KeyDown(int& keyCode, int shift) {
    const int step = keyCode == forms::vbKeyUp ? -1 : keyCode == forms::vbKeyDown ? 1 : 0;
    if (step == 0 || shift != 0) return;
    keyCode = 0;
    const forms::MSFlexGrid& grid = *ui().grd;
    HighlightGridRow(std::max(1, std::min(grid.Row() + step, grid.Rows() - 1)));
}

void frmSearchAndLookUp::cmdget_Click() {
    SearchResultKey.clear();
    SearchResultName.clear();
    const forms::MSFlexGrid& grid = *ui().grd;
    int index = grid.Row() * grid.Cols() + 1;
    SearchResultKey = grid.Rows() > 1 ? grid.TextArray(index) : "0";
    ++index;
    SearchResultName = grid.TextArray(index);
    Hide();
}

void frmSearchAndLookUp::grd_DblClick() {
    const forms::MSFlexGrid& grid = *ui().grd;
    const int row = grid.MouseRow();
    if (row < 1) return;
    SearchResultKey = grid.TextMatrix(row, 1);
    SearchResultName = grid.TextMatrix(row, 2);
    Hide();
}

}  // namespace qm
