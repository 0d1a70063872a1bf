#pragma once

#include <QPainter>

#include "platform/forms/html/Reading.h"

namespace forms::html {

// Paints what of the document is in `clip`, both in the document's pixels, and lays that out first. The words
// of `marked` stand out.
void Paint(QPainter& painter, Layout& layout, const QRect& clip, const Range& marked = {});

}  // namespace forms::html
