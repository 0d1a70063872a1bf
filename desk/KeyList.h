#pragma once

class QWidget;

namespace desk {

class Page;

// Shows the keys that work on a page, then those that work on all, until a key closes the list.
void ShowKeys(QWidget& window, Page& page);

}  // namespace desk
