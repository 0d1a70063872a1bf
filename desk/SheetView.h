#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desk/Desk.h"
#include "desk/RowKeeper.h"
#include "desk/SheetColumns.h"
#include "desk/SheetFiles.h"
#include "desk/SheetModel.h"
#include "desk/SheetQuestion.h"
#include "desk/Worker.h"
#include "queries/Reading.h"

class QAbstractItemView;
class QHeaderView;
class QTreeView;

namespace desk {

class HandOver;
class JobBar;
class SheetRoom;
class TotalsStrip;

// A sheet as a table or a tree on a page: sorted by its heads, its columns chosen and moved, handed over as
// it stands; with a line of totals. It comes back to the same row when it is asked for again.
class SheetView : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::SheetView)

  public:
    using Shape = SheetModel::Shape;
    using SheetPtr = SheetQuestion::SheetPtr;
    using Making = SheetQuestion::Making;
    using SlowMaking = SheetQuestion::SlowMaking;

    // What the user chooses about columns is kept under the view's name.
    SheetView(Desk& desk, const QString& name, Shape shape = Shape::Table);

    // How a page's sheet is its own; set before the first Ask, as is what the keeper knows rows by.
    std::function<void(std::size_t row)> Activated;  // Enter, or a double click, on a row of the sheet
    std::function<void()> Filled;                    // the answer stands, and the totals are wanted
    // For sheets whose query sorts: it is asked anew with Ask. Without it the view sorts.
    std::function<void(std::size_t column, bool descending)> SortBy;
    RowKeeper& Keeper() { return keeper_; }
    SheetColumns& Columns() const { return *columns_; }
    void SetEmpty(const QString& title, const QString& text);  // why there may be no rows, and what to do

    // Asks for the sheet and shows it from its first row: at once, or on the worker where the answer takes
    // long. A sheet that reads by window is handed over then, and reads on through the connection that shows.
    void Ask(Making make);
    void AskSlowly(Making make);
    void AskSlowly(SlowMaking make);  // which tells the job how far it is
    void AskAgain(Making make);       // as Ask, but to the same row
    void Refresh();                   // the same question again, to the same row
    // The line below: without a call from Filled the rows are counted and, where they are few, summed.
    void SetTotals(const QString& words, std::vector<QString> totals);
    void KeepTotals() { totalsSet_ = true; }  // those of the answer before stand for now

    const queries::Sheet* Sheet() const;                                      // null before the first answer
    std::optional<std::size_t> Current() const { return keeper_.Current(); }  // of the sheet
    void SetCurrent(std::size_t row) { keeper_.SetCurrent(row); }
    QWidget* Buttons() const { return buttons_; }  // for the page's head: columns, files, paper
    QAbstractItemView& View() const { return view_; }
    void Toggle();  // opens or closes the head of a tree that is chosen
    QString TotalsText() const;
    // Runs a job of the worker under the view, behind one that still runs; see JobBar::RunNext.
    void InBackground(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                      std::function<void()> then, std::function<void()> without = {});

    void Save(SheetFile kind, const QString& file);
    void Print(const queries::Sheet& paper);  // after the preview

  private:
    void Connect();
    void MakeButtons();
    void Begin();
    void TellUnread();
    void Sort(int column);
    void Put(std::shared_ptr<const ShownSheet> shown);
    bool eventFilter(QObject* object, QEvent* event) override;

    Desk& desk_;
    SheetModel model_;
    QAbstractItemView& view_;
    QHeaderView& header_;
    SheetRoom* room_;
    SheetColumns* columns_;
    TotalsStrip* totals_;
    JobBar* jobs_;
    RowKeeper keeper_;
    SheetQuestion question_;
    SheetQuestion::Sorting sorting_;  // as the head shows it
    QWidget* buttons_;
    HandOver* handOver_ = nullptr;
    bool totalsSet_ = false;
    bool isNew_ = true;   // the answer is shown from its first row
    bool isOld_ = false;  // what stands is of the question before
};

}  // namespace desk
