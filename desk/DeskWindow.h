#pragma once

#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "desk/Books.h"
#include "desk/Desk.h"
#include "desk/SearchField.h"
#include "queries/Search.h"

class QStackedWidget;

namespace desk {

class DeskHead;
class JobBar;
class NoticeBar;
class PageList;

// The host's own window: a head, the list of pages at the left, the page that is shown, and the bar that
// tells what went wrong. It looks every second whether the books have changed, and brings the page up to
// date.
class DeskWindow : public QWidget, public Desk {
    Q_DECLARE_TR_FUNCTIONS(desk::DeskWindow)

  public:
    DeskWindow();
    ~DeskWindow() override;

    // Opens the books and goes to the first page. What fails is told in the bar; the books that were open
    // before are opened again then, and where that fails, too, or there were none, the window stays without.
    void OpenBooks(const std::string& address);
    void Run();  // shows the window and returns when it has been closed

    desk::Books& Books() override { return books_; }
    void Go(const QString& page) override;
    void Push(Page* page) override;
    void Back() override;
    void Reopen(const std::string& address, const std::function<QString()>& meanwhile) override;
    void AskForFolder() override;
    void InYear(const std::string& year, const std::function<void()>& then) override;
    void OpenScreen(const std::string& form, const std::string& record) override;
    void LookForChanges() override;
    void CopyVoucher(std::int32_t number) override;
    void WriteFile(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                   const QString& done) override;
    bool Try(const std::function<void()>& work) override;
    void Tell(const basic::Error& error) override;
    void Note(const QString& text) override;

    Page* Shown() const { return shown_; }
    NoticeBar& Notice() const { return *notice_; }

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void AddKeys();
    void FillMenu();
    void TellKeys();
    void Escape();
    void Show(Page* page);
    void ShowNone();
    bool ShowHead();
    void ShowManual();
    void KeepWayBack();
    void Drop(Page* page);
    void DropPages();
    void InScreen(const std::function<void()>& open);
    void Watch();
    void TakeLook(const std::function<bool()>& changed);
    void ShowChanges();
    void TellLost(const basic::Error& error);
    void TellOtherYear();
    void WantYear(const std::string& shortForm, const std::function<void()>& then = {});
    void SwitchYear(const std::string& shortForm, const std::function<void()>& then = {});
    std::vector<Found> FindPages(const QString& words);
    void Find(const QString& words, const SearchField::Take& take);
    Found HitOf(const queries::SearchHit& hit);

    desk::Books books_;
    DeskHead* head_;
    NoticeBar* notice_;
    PageList* list_;
    QStackedWidget* stack_;
    QWidget* empty_;
    std::vector<JobBar*> writing_;    // a line for each file; below the page
    std::map<QString, Page*> pages_;  // of the list, by their keys, once they have been gone to
    std::vector<Page*> history_;      // the page before last; Back goes to the last of them
    Page* shown_ = nullptr;
    std::map<const Page*, int> upToDate_;  // which change of the books a page has seen
    int changes_ = 0;
    QTimer watch_;
    std::weak_ptr<Worker::Job> look_;  // at a server; gone when it has ended
    bool watchFailed_ = false;
    std::string toldYear_;  // another year that the bar has told of
    std::shared_ptr<Worker::Job> search_;
    QEventLoop loop_;
};

}  // namespace desk
