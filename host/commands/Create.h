#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace host {

// Lays new books down in a server's database ("postgresql://host/firm/"), which is made, or stands and is
// empty. `year`, `fill` and what stands after a failure as with CreateBooks; `roles`: see ado::CopyBooks.
// Raises basic::Error.
void CreateBooksOnServer(const std::string& server, std::optional<int> year, bool roles = false,
                         const std::function<void(const std::filesystem::path& folder)>& fill = {});

}  // namespace host
