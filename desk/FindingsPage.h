#pragma once

namespace desk {

class Desk;

// Opens the list of what the check of the books found last; Enter opens the record that a line names.
void OpenFindings(Desk& desk);

}  // namespace desk
