#pragma once

#include <QPagedPaintDevice>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/html/Layout.h"
#include "platform/forms/html/PageBreaks.h"
#include "platform/forms/html/Paper.h"

namespace forms::html {

// A document on paper: laid out to the width of the sheet, cut into pages between rows and between lines of
// text, the heads of columns repeated, each with whose figures they are, their period and "page x of y"
// below.
class Pages {
  public:
    static constexpr double PaperScale = 0.9;  // paper is read from nearer than a screen

    // How much is done, from 0 to 1. May raise to end it.
    using Progress = std::function<void(double part)>;

    // `size` is the room for the text in pixels at 96 dots per inch.
    Pages(std::string_view document, const QFont& font, const QSize& size, const Paper& paper = {},
          const Progress& progress = {});

    int Count() const { return static_cast<int>(pages_.size()); }
    const std::vector<Page>& Parts() const { return pages_; }  // from 0 to the document's height
    // Paints the pages `first` to `last`, counted from 1, each on a sheet of its own. Raises 75 "Path/File
    // access error" where they cannot be written.
    void PaintOn(QPagedPaintDevice& device, int first, int last, const Progress& progress = {});

    // The room that a sheet of the device gives, less its margins and the line of the page number.
    static QSize RoomOf(const QPagedPaintDevice& device);
    // A4, upright or on its side, with our margins.
    static void Prepare(QPagedPaintDevice& device, const Paper& paper);

  private:
    void PaintMargin(QPainter& painter, int page) const;
    void PaintBand(QPainter& painter, const Band& band, int at);

    Layout layout_;
    QSize size_;
    Paper paper_;
    double scale_ = 1;  // of the document; what is wider than a sheet is made smaller as a whole
    std::vector<Page> pages_;
};

// Writes the document as a PDF file on A4, in the application's font where none is given; on any thread.
// Raises as PaintOn, and what `progress` raises; the file is half written then.
void WritePdf(std::string_view document, const QFont& font, const Paper& paper, const std::string& path,
              const Pages::Progress& progress = {});
void WritePdf(std::string_view document, const Paper& paper, const std::string& path,
              const Pages::Progress& progress);

}  // namespace forms::html
