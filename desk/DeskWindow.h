#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QWidget>
#include <exception>
#include <string>

#include "desk/Books.h"
#include "desk/BooksWatch.h"
#include "desk/Desk.h"
#include "desk/Finder.h"
#include "desk/NoticeBar.h"
#include "desk/PageStack.h"

namespace desk {

class DeskHead;
class FileJobs;
class PageList;
class YearSwitch;

// The host's own window: a head, the list of pages at the left, the page that is shown, and the bar that
// tells what went wrong. It follows what other programs write into the books.
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
    void Push(Page* page) override { pages_->Push(page); }
    void Back() override { pages_->Back(); }
    void Reopen(const std::string& address, const std::function<QString()>& meanwhile) override;
    void AskForFolder() override;
    void InYear(const std::string& year, const std::function<void()>& then) override;
    void OpenScreen(const std::string& form, const std::string& record) override;
    void LookForChanges() override { watch_.LookNow(); }
    void CopyVoucher(std::int32_t number) override;
    void WriteFile(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                   const QString& done) override;
    bool Try(const std::function<void()>& work) override { return notice_->Try(work); }
    void Tell(const basic::Error& error) override { notice_->Tell(error); }
    void Note(const QString& text) override { notice_->Note(text); }

    Page* Shown() const { return pages_->Shown(); }  // null where no books are open
    NoticeBar& Notice() const { return *notice_; }

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void LayOut();
    void AddCommands();
    void TellKeys();
    void ShowManual();
    void Escape();
    bool ShowHead();
    void ShowBooks();
    void DropPages();
    void InScreen(const std::function<void()>& open);
    void TellLost(const basic::Error& error);
    void TellFailed(const std::exception_ptr& failure, const std::string& address);
    void ShowChanges();
    void SwitchYear(const std::string& shortForm, const std::function<void()>& then);

    desk::Books books_;
    Finder finder_{*this};
    BooksWatch watch_;
    DeskHead* head_;
    NoticeBar* notice_;
    PageList* list_;
    PageStack* pages_;
    FileJobs* writing_;
    std::unique_ptr<YearSwitch> year_;
    QEventLoop loop_;
};

}  // namespace desk
