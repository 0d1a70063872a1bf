#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>

#include "desk/Worker.h"
#include "platform/basic/Error.h"

namespace desk {

class Books;
class Page;

// What a page asks of the window that it stands in.
class Desk {
  public:
    virtual desk::Books& Books() = 0;

    virtual void Go(const QString& page) = 0;  // to one of the list's pages, by its key
    // To a page of its own, such as one ledger's statement, which the desk owns from now on. Back leaves it
    // and deletes it.
    virtual void Push(Page* page) = 0;
    virtual void Back() = 0;

    // Closes the books with all pages, does what needs them closed, and opens those of an address, after the
    // event that asked for it. `meanwhile` runs on a thread of its own; what it gives is told in the bar, and
    // so is its failure, in place of it. Where the address does not open, those before are opened again.
    virtual void Reopen(const std::string& address, const std::function<QString()>& meanwhile = {}) = 0;

    virtual void AskForFolder() = 0;  // of other books, and opens them

    // Runs `then` in a financial year, by its short form: at once, where it is the one in force, else once
    // the user has agreed to switch to it. All pages are new then.
    virtual void InYear(const std::string& year, const std::function<void()>& then) = 0;

    // Opens a screen of the module by its form's name, on a record where one is named, and comes back to the
    // same row, brought up to date.
    virtual void OpenScreen(const std::string& form, const std::string& record = {}) = 0;
    // Brings what is shown up to date at once, where the books have changed.
    virtual void LookForChanges() = 0;
    virtual void CopyVoucher(std::int32_t number) = 0;  // the voucher screen on its lines; posts nothing

    // Runs a job that writes a file, beside all others: it goes on whatever page is shown by then. A line at
    // the window's foot tells `what` and how far it is, with Cancel; the bar tells the end: `done`, or what
    // it raised.
    virtual void WriteFile(const QString& what, std::function<void(queries::Reading&, Worker::Job&)> work,
                           const QString& done) = 0;

    // Runs what an event asks for. What it raises is told in the bar; False then.
    virtual bool Try(const std::function<void()>& work) = 0;
    virtual void Tell(const basic::Error& error) = 0;  // with its cause and cure, if any is known
    virtual void Note(const QString& text) = 0;        // something that went well, such as a file written

  protected:
    ~Desk() = default;
};

}  // namespace desk
