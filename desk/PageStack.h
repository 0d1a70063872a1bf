#pragma once

#include <QStackedWidget>
#include <QString>
#include <functional>
#include <map>
#include <vector>

namespace desk {

class Desk;
class Page;

// The pages of the desk, one of which is shown, and the way back from each to the one before.
class PageStack : public QStackedWidget {
  public:
    // `none` stands where there is no page, as where no books are open.
    PageStack(Desk& desk, QWidget* none, QWidget* parent);

    std::function<void(const QString& key)> Turned;  // a page of the list is shown

    Page* Shown() const { return shown_; }  // null for none
    void Go(const QString& key);  // to a page of the list; the first time it is made. Raises what that raises
    void Push(Page* page);        // to one of its own, which Back leaves and deletes
    void Back();                  // stays where there is no way back
    void ShowNone();
    void Clear();        // all pages are gone
    void ShowChanges();  // brings what is shown up to date at once, any other page when it is gone to
    void KeepFocus();    // of the page that is shown, before something else takes it
    void TakeFocus();

  private:
    void Show(Page* page);
    void KeepWayBack();
    void Drop(Page* page);

    Desk& desk_;
    QWidget* none_;
    std::map<QString, Page*> pages_;  // of the list, by their keys, once they have been gone to
    std::vector<Page*> history_;      // the page before last; Back goes to the last of them
    Page* shown_ = nullptr;
    std::map<const Page*, int> upToDate_;  // which change of the books a page has seen
    int changes_ = 0;
};

}  // namespace desk
