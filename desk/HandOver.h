#pragma once

#include <QCoreApplication>
#include <QToolButton>
#include <functional>

#include "desk/SheetFiles.h"
#include "desk/SheetModel.h"

class QAbstractItemView;
class QKeySequence;

namespace desk {

class Desk;
class SheetColumns;
class SheetQuestion;

// The button that hands a view's rows over as they stand on the screen: to the clipboard, into a file, onto
// paper.
class HandOver : public QToolButton {
    Q_DECLARE_TR_FUNCTIONS(desk::HandOver)

  public:
    // What is handed over.
    struct Source {
        QAbstractItemView& View;
        const SheetModel& Model;
        const SheetColumns& Columns;
        const SheetQuestion& Question;
    };

    // Ctrl+P and Ctrl+E work wherever the focus is on the page; of several sheets there on the one with it.
    HandOver(Desk& desk, QWidget& sheet, Source source);

    void Copy();  // the chosen rows
    void Save(SheetFile kind, const QString& file);
    void Print();  // after the preview
    void Print(const queries::Sheet& paper);

  private:
    void AddKey(const QKeySequence& key, const std::function<void()>& act);
    void AskForFile(SheetFile kind);

    Desk& desk_;
    QWidget& sheet_;
    Source from_;
};

}  // namespace desk
