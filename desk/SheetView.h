#pragma once

#include <QSet>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desk/Desk.h"
#include "desk/JobBar.h"
#include "desk/SheetColumns.h"
#include "desk/SheetFiles.h"
#include "desk/SheetModel.h"
#include "desk/Worker.h"
#include "queries/Reading.h"

class QAbstractItemView;
class QHeaderView;
class QStackedWidget;
class QTreeView;

namespace desk {

class TotalsStrip;

// A sheet as a table or a tree on a page: sorted by its heads, its columns chosen and moved, copied, written
// to files and printed as it stands; with a line of totals. It comes back to the same row when it is asked
// for again.
class SheetView : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(desk::SheetView)

  public:
    using Shape = SheetModel::Shape;
    using SheetPtr = std::shared_ptr<const queries::Sheet>;
    using Making = std::function<SheetPtr(queries::Reading&)>;
    using SlowMaking = std::function<SheetPtr(queries::Reading&, Worker::Job&)>;

    // What the user chooses about columns is kept under the view's name.
    SheetView(Desk& desk, const QString& name, Shape shape = Shape::Table);

    // How a page's sheet is its own; set before the first Ask.
    std::function<void(std::size_t row)> Activated;  // Enter, or a double click, on a row of the sheet
    std::function<void()> Filled;                    // the answer stands, and the totals are wanted
    // What names a row, so that it is found again in a later answer; and, where the sheet can tell, where it
    // stands there. Without them a row keeps its number.
    std::function<QVariant(const queries::Sheet&, std::size_t row)> KeyOf;
    std::function<std::optional<std::size_t>(const queries::Sheet&, const QVariant& key)> PlaceOf;
    // For sheets whose query sorts: it is asked anew with Ask. Without it the view sorts.
    std::function<void(std::size_t column, bool descending)> SortBy;

    // Asks for the sheet and shows it from its first row: at once, or on the worker where the answer takes
    // long. A sheet that reads by window is handed over then, and reads on through the connection that shows.
    void Ask(Making make);
    void AskSlowly(Making make);
    void AskSlowly(SlowMaking make);  // which tells the job how far it is
    void AskAgain(Making make);       // as Ask, but to the same row
    void Refresh();                   // the same question again, to the same row
    // The line below: without a call from Filled the rows are counted and, where they are few, summed.
    void SetTotals(const QString& words, std::vector<QString> totals);
    void SetEmpty(const QString& title, const QString& text);  // why there may be no rows, and what to do

    const queries::Sheet* Sheet() const;         // null before the first answer
    std::optional<std::size_t> Current() const;  // of the sheet, whatever the order
    void SetCurrent(std::size_t row);
    SheetColumns& Columns() const { return *columns_; }
    QWidget* Buttons() const { return buttons_; }  // for the page's head: columns, files, paper
    QAbstractItemView& View() const { return *view_; }
    QTreeView* Tree() const;  // null for a table
    void Toggle();            // opens or closes the head of a tree that is chosen
    QString TotalsText() const;
    JobBar& Jobs() const { return *jobs_; }
    // Runs a job of the worker under the view, instead of one that still runs; `then` on the main thread.
    // What the job raises is told in the bar; `without` is called where it failed or the user ended it.
    void InBackground(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                      std::function<void()> then, std::function<void()> without = {});

    void Copy();  // the chosen rows
    void Save(SheetFile kind, const QString& file);
    void Print();  // after the preview
    void Print(const queries::Sheet& paper);

  private:
    struct Place {
        QVariant Key;
        std::size_t Row = 0;
        int Above = 0;       // lines of the window over it
        QSet<QString> Open;  // heads of a tree
    };

    void MakeView(Shape shape, const QString& name);
    void MakeButtons();
    void AddKey(const QKeySequence& key, const std::function<void()>& act);
    void Turn(QWidget* to);  // to the rows or to why there are none
    void Answer();
    void TellUnread();
    void Take(SheetPtr sheet);
    void Sort(int column);
    void SortShown(SheetPtr sheet);
    void Put(std::shared_ptr<const ShownSheet> shown);
    void RememberRow();
    Place Where() const;
    void Return(const Place& place);
    QSet<QString> OpenHeads() const;
    void OpenAgain(const Place& place);
    std::optional<std::size_t> Find(const Place& place) const;
    void ShowTotals();
    void AskForFile(SheetFile kind);
    ShownSheet Paper() const;  // what stands on the screen
    bool eventFilter(QObject* object, QEvent* event) override;

    Desk& desk_;
    SheetModel model_;
    SlowMaking make_;
    bool slowly_ = false, totalsSet_ = false, isFirst_ = true, isNew_ = true;
    bool isOld_ = false;  // what stands is of the question before
    QStackedWidget* stack_;
    QWidget *empty_ = nullptr, *unread_ = nullptr, *buttons_ = nullptr;
    QAbstractItemView* view_ = nullptr;
    QHeaderView* header_ = nullptr;
    SheetColumns* columns_ = nullptr;
    TotalsStrip* totals_ = nullptr;
    JobBar* jobs_;
    QVariant key_;  // of the row that is chosen, as it was when it was chosen
    int sortColumn_ = -1;
    bool descending_ = false;
};

}  // namespace desk
