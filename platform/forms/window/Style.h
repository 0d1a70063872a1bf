#pragma once

class QWidget;

namespace forms {

// The one look of all windows: our own palette over the toolkit's plain style, and the short sheet in
// style.qss.
struct Style {
    static void SetForApplication();     // only for an application that is ours; a host keeps its own
    static void Apply(QWidget& window);  // to one of our windows, whoever made the application
};

}  // namespace forms
