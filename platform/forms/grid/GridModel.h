#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/basic/Value.h"

namespace forms {

// How a cell's text stands. General: figures right, all else left.
enum class Alignment { General, Left, Center, Right };

inline constexpr unsigned NoColor = 0xFFFFFFFF;  // the grid's own colour

// What a cell bears beside its text. Most cells bear nothing, so it is made when first set.
struct CellExtra {
    basic::Value Data;             // the cell's data slot: a key that no user sees
    bool Checked = false;          // the check state
    unsigned ForeColor = NoColor;  // 0xBBGGRR; 255 is red
    unsigned BackColor = NoColor;
    bool Bold = false;
    bool Italic = false;
    Alignment Align = Alignment::General;
    std::string Picture;  // name of an image, such as ":/icons/category.svg"
};

struct GridColumn {
    int Width = -1;  // twips; -1: the default
    bool Hidden = false;
    bool Boolean = false;  // cells are check boxes
    std::string Format;    // a mask of basic::Format; it only paints, the text stays raw
    std::string ComboList;
    Alignment Align = Alignment::General;
    basic::Value Data;
};

// The cells of a grid as they stand in memory: rows of texts, with extras where they were set. Knows no
// toolkit. A row or column that the grid does not have raises 9 "Subscript out of range".
class GridModel {
  public:
    GridModel(int rows, int cols, int fixedRows);

    int Rows() const { return static_cast<int>(rows_.size()); }
    int Cols() const { return static_cast<int>(columns_.size()); }
    int FixedRows() const { return fixedRows_; }
    void SetRows(int rows);  // rows are added and taken away at the end
    void SetCols(int cols);
    void SetFixedRows(int rows);

    const std::string& Text(int row, int col) const;
    void SetText(int row, int col, std::string text);
    const CellExtra& Extra(int row, int col) const;
    CellExtra& Extra(int row, int col);  // makes it

    int RowHeight(int row) const { return At(row).height; }  // twips; -1: the default
    void SetRowHeight(int row, int twips) { At(row).height = twips; }
    bool RowHidden(int row) const { return At(row).hidden; }
    void SetRowHidden(int row, bool hidden) { At(row).hidden = hidden; }
    const GridColumn& Column(int col) const { return columns_[Checked(col)]; }
    GridColumn& Column(int col) { return columns_[Checked(col)]; }

    // Cells are parted by tabs; at == Rows() adds at the end.
    void InsertRow(int at, const std::string& text);
    void RemoveRow(int at);
    void Clear();  // all texts and extras; size and columns stay

    // Sorts the rows below the fixed ones, stable: numbers before texts, texts ignoring case. Extras travel
    // with their row.
    void SortRows(int col, bool descending);

    // The number in a cell: grouped figures are read whole, other texts by their numeric prefix; blank is 0.
    double Value(int row, int col) const;

  private:
    struct Cell {
        std::string text;
        std::unique_ptr<CellExtra> extra;
    };
    struct Row {
        std::vector<Cell> cells;  // as many as were written to
        int height = -1;
        bool hidden = false;
    };
    const Row& At(int row) const;
    Row& At(int row);
    std::size_t Checked(int col) const;
    Cell& CellAt(int row, int col);

    std::vector<Row> rows_;
    std::vector<GridColumn> columns_;
    int fixedRows_;
};

}  // namespace forms
