#pragma once

#include <QString>
#include <functional>
#include <initializer_list>
#include <vector>

#include "desk/Page.h"
#include "desk/SheetView.h"

class QStackedWidget;
class QTabBar;

namespace desk {

// A page of several tables behind tabs, with a row of filters. A table is asked for when it is shown and is
// not up to date. Ctrl+Page Down and Ctrl+Page Up go round the tabs, as their letters with Alt do.
class TabPage : public Page {
  public:
    TabPage(Desk& desk, const QString& title);
    void Refresh() override;  // to the same rows
    void Turn(int tab);       // to a tab, by its place

  protected:
    // `ask` puts the question of the tab to its view.
    SheetView& AddTab(const QString& caption, const QString& name, SheetView::Shape shape,
                      std::function<void(SheetView&)> ask);
    // A filter; it stands at these tabs, at all of them where none is named.
    void AddFilter(QWidget* filter, std::initializer_list<int> tabs = {});
    void Narrowed();  // a filter has changed: all tabs are asked anew
    int Tab() const;
    SheetView& View() const { return *tabs_.at(static_cast<std::size_t>(Tab())).View; }
    virtual void Turned() {}  // another tab is shown

  private:
    enum class State { New, Old, UpToDate };
    struct TabOf {
        SheetView* View;
        std::function<void(SheetView&)> Ask;
        State Is = State::New;
    };
    struct Filter {
        QWidget* Widget;
        std::vector<int> Tabs;
    };
    void Show();
    void Mark(State state);

    QTabBar* bar_;
    QWidget* filterRow_;
    QStackedWidget *views_, *buttons_;
    std::vector<TabOf> tabs_;
    std::vector<Filter> filters_;
};

}  // namespace desk
