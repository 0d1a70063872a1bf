#pragma once

class QWidget;

namespace forms {

// The one look of all windows: our own palette over the toolkit's plain style, and the short sheet in
// style.qss.
struct Style {
    static void SetForApplication();        // only for an application that is ours; a host keeps its own
    static void Apply(QWidget& window);     // to one of our windows, whoever made the application
    static void Refresh(QWidget& control);  // once a property has changed that the sheet asks about
};

// The gap that all layouts keep, in pixels at 96 dots per inch.
inline constexpr int Rhythm = 8;

}  // namespace forms
