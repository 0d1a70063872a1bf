#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/forms/grid/ComboList.h"
#include "platform/forms/grid/GridView.h"

namespace forms {

// The list that drops from a cell. It never takes the focus: the cell's editor keeps it and moves the choice.
class DropList : public GridView {
  public:
    DropList(QWidget* grid, const ComboList& list, std::function<void(int)> chosen);

    void DropFrom(const QRect& cell);  // in the coordinates of the screen
    // Shows only the entries in which the typed text occurs and offers the best of them.
    void Narrow(const std::string& typed);
    void SetChoice(int entry);  // an index of the whole list; -1: none
    int Choice() const { return choice_; }
    void StepChoice(int step);
    int Page() const;
    CellShown Shown(int row, int col) const override;
    bool Active() const override { return true; }

  protected:
    void MeasureRows(GridAxis& rows) const override;
    void MeasureCols(GridAxis& cols) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    int EntryAt(const QPoint& place) const;
    void MeasureColumns();
    void FitHeight();

    const ComboList& list_;
    std::function<void(int)> chosen_;
    std::vector<int> entries_;   // those in view, in list order
    std::vector<int> widths_;    // pixels, of the list columns
    std::vector<bool> figures_;  // list columns that stand right
    QRect cell_;
    int choice_ = -1;
};

}  // namespace forms
