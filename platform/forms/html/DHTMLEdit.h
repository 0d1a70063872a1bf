#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <memory>

#include "platform/forms/controls/Control.h"
#include "platform/forms/html/DocumentAccessible.h"
#include "platform/forms/html/Paper.h"
#include "platform/forms/html/Reading.h"

namespace forms {

namespace html {
class FindBar;
}

// Shows a whole document text as a browser does, for reading. No script in it runs, and nothing is fetched.
// Keys: arrows and pages scroll, Ctrl+A marks all, Ctrl+C copies, Ctrl+F finds, F3 finds the next, Ctrl+plus,
// Ctrl+minus and Ctrl+0 zoom, as Ctrl and the wheel do.
class DHTMLEdit : public QAbstractScrollArea, public Control, public html::ReadableDocument {
  public:
    explicit DHTMLEdit(QWidget* parent);
    ~DHTMLEdit() override;

    std::string TypeName() const override { return "DHTMLEdit"; }

    std::string DocumentHTML() const { return text_; }  // as it was set, with the body that was set last
    void SetDocumentHTML(const std::string& text);
    // A switch that is only kept: the document is shown for reading either way.
    bool BrowseMode() const { return browseMode_; }
    void SetBrowseMode(bool on) { browseMode_ = on; }

    std::string BodyInnerText() const override;
    std::string BodyInnerHTML() const;  // the markup of the body as it was understood
    void SetBodyInnerHTML(const std::string& html);

    // With the dialog it shows the pages first and returns when that window has closed; without, it prints on
    // the standard printer, and raises 482 "Printer error" where there is none.
    void PrintDocument(bool withDialog);
    // The pages as a PDF file on A4. Raises 75 "Path/File access error" where it cannot be written.
    void WritePdf(const std::string& path);
    // What paper and PDF files tell beside the document, from the next printing on.
    void SetPaper(const html::Paper& paper) { paper_ = paper; }
    const html::Paper& PaperUsed() const { return paper_; }
    // What is painted in grey below the document, if anything: that nothing is in it. It is no part of the
    // document, of its texts or of its pages.
    void SetBlankHint(const std::string& hint);
    const std::string& BlankHint() const { return blankHint_; }

    void SelectAll();
    std::string SelectedText();  // lines parted by "\n", cells by tabs; all if nothing is marked
    // Puts what is marked, or all, on the clipboard, as text and as a table.
    void Copy();
    // Marks the next place behind what is marked where the text stands, in any case, and scrolls there. False
    // if there is none.
    bool Find(const std::string& text);
    int Zoom() const { return zoom_; }
    void SetZoom(int percent);  // 50 to 300
    int DocumentHeight();       // pixels unzoomed, with all of it laid out

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    html::Layout& Laid();  // in the width of the window
    html::Range Chosen();
    void UpdateScrollBars();
    void PaintBlankHint(QPainter& painter);
    void LayOutOneMore();
    void ScrollTo(const QRect& box);
    bool ScrollByKey(int key);
    QPoint InDocument(const QPoint& inViewport) const;
    void FindNext(const html::Place& from);
    void SetMarked(const html::Range& marked);

    std::string text_, blankHint_;
    html::Paper paper_;
    bool browseMode_ = false;
    int zoom_ = 100;
    std::unique_ptr<html::Layout> layout_;
    html::Range marked_;
    html::Place anchor_;  // where marking by mouse began
    html::FindBar* findBar_;
    QBasicTimer idle_;  // lays out what is not seen yet
};

}  // namespace forms
