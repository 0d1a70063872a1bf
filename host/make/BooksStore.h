#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace host {

// The books file under its password, without the data layer: for making, checking and copying the file as
// such. Statements are the store's own. Raises basic::Error with the store's words.
class BooksStore {
  public:
    explicit BooksStore(const std::filesystem::path& file);  // made if it is missing
    ~BooksStore();
    BooksStore(const BooksStore&) = delete;
    BooksStore& operator=(const BooksStore&) = delete;

    // Runs one statement with texts for ?1, ?2, ...; gives the first column of its rows as texts.
    std::vector<std::string> Run(const std::string& sql, const std::vector<std::string>& texts = {});
    // Runs all statements of a script.
    void RunAll(std::string_view script);
    // Moves what the journal holds into the file and lets go of it. Throws where that fails.
    void Close();

  private:
    void Check(int result);

    std::string name_;
    sqlite3* store_ = nullptr;
};

}  // namespace host
