#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "core/clQm.h"
#include "desk/BooksCheck.h"
#include "desk/Worker.h"
#include "host/audit/YearList.h"
#include "queries/Reading.h"

namespace desk {

// The books that the desk shows: the class on them, by which everything is changed, and a connection that
// only reads, for what is shown. Used on the main thread alone.
class Books {
  public:
    // A folder or a server's address, as the class takes it. What was open is closed before. Raises what
    // opening raises; none are open then.
    void Open(const std::string& address);
    void Close();
    bool AreOpen() const { return reading_ != nullptr; }

    QString Name() const;                // "firm": the folder's last part, or the server's database
    QString Place() const;               // the whole address
    const std::string& Address() const;  // as the class has it
    qm::clQm& Host() { return *host_; }  // for what changes the books
    bool OnServer() const { return IsServer(address_); }
    static bool IsServer(const std::string& address);  // not a folder
    queries::Reading& Reading() { return *reading_; }
    Worker& Background();  // for what takes longer than a moment
    Worker& Writer();      // for files, so that nothing that is looked at waits for them
    Worker& Watcher();     // to see whether a server answers
    BooksCheck& Check();   // has a thread of its own: it may take minutes

    // Whether the file that was opened still stands in its place. What is written into one that was taken
    // away is lost. RequireFile raises where it does not.
    bool IsFileThere() const;
    void RequireFile() const;

    std::vector<host::Year> Years();         // as they stand in the books now
    std::string YearInForce() const;         // "2001", in which screens and pages work; "" for none
    std::optional<std::string> OtherYear();  // the books' current one, where that is another by now
    static QString LongForm(const std::string& shortForm);  // "2001-2002"
    // Makes a known year, by its short form, the current one of the books, for every program, and works in it
    // from now on. Raises where the flag cannot be moved.
    void SwitchYear(const std::string& shortForm);

    // Whether anybody, this program's own class and screens too, has written since this was last asked. Not
    // in the middle of a transaction of the class: nobody sees what it has written yet.
    bool Changed();

  private:
    void Read();
    Worker& Started(std::shared_ptr<Worker>& worker, int keptKb);

    std::unique_ptr<qm::clQm> host_;
    std::unique_ptr<queries::Reading> reading_;
    std::shared_ptr<Worker> worker_, writer_, watcher_;
    std::unique_ptr<BooksCheck> check_;
    std::string address_;
    std::optional<std::pair<dev_t, ino_t>> file_;  // as the system knows it
};

}  // namespace desk
