#include "platform/forms/html/DHTMLEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>

#include "platform/forms/controls/Text.h"
#include "platform/forms/html/Content.h"
#include "platform/forms/html/FindBar.h"
#include "platform/forms/html/Pages.h"
#include "platform/forms/html/Paint.h"
#include "platform/forms/html/Printing.h"
#include "platform/forms/window/Application.h"

namespace forms {
namespace {

constexpr int SmallestZoom = 50, LargestZoom = 300, ZoomStep = 10, LineStep = 20, HintGap = 24;

}  // namespace

DHTMLEdit::DHTMLEdit(QWidget* parent)
    : QAbstractScrollArea(parent), Control(this, Focus::Takes), findBar_(new html::FindBar(this)) {
    html::InstallDocumentAccessible();
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setCursor(Qt::IBeamCursor);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // so that the width is known before the height
    findBar_->Next = [this] { FindNext(marked_.To); };
    findBar_->Typed = [this] { FindNext(marked_.From); };
    findBar_->Closed = [this] { setFocus(Qt::OtherFocusReason); };
}
DHTMLEdit::~DHTMLEdit() = default;

void DHTMLEdit::SetDocumentHTML(const std::string& text) {
    text_ = text;
    layout_.reset();
    marked_ = {};
    verticalScrollBar()->setValue(0);
    viewport()->update();
}

std::string DHTMLEdit::BodyInnerText() const {
    return html::InnerText(text_);
}
std::string DHTMLEdit::BodyInnerHTML() const {
    return html::InnerHtml(text_);
}
void DHTMLEdit::SetBodyInnerHTML(const std::string& html) {
    SetDocumentHTML(html::WithBody(text_, html));
}

void DHTMLEdit::PrintDocument(bool withDialog) {
    if (withDialog) {
        html::PrintWithDialog(this, text_, font(), paper_);
    } else {
        const WaitPointer wait;
        html::PrintAtOnce(text_, font(), paper_);
    }
}
void DHTMLEdit::WritePdf(const std::string& path) {
    const WaitPointer wait;
    html::WritePdf(text_, font(), paper_, path);
}

html::Layout& DHTMLEdit::Laid() {
    if (!layout_) {
        const WaitPointer wait;
        layout_ = std::make_unique<html::Layout>(text_, font());
    }
    layout_->SetWidth(std::max(1, viewport()->width() * 100 / zoom_));
    if (layout_->Missing() >= 0 && !idle_.isActive()) idle_.start(0, this);
    return *layout_;
}

int DHTMLEdit::DocumentHeight() {
    Laid().LayOutAll();
    return layout_->Height();
}

void DHTMLEdit::UpdateScrollBars() {
    const auto zoomed = [this](int size) { return static_cast<int>(std::lround(size * zoom_ / 100.0)); };
    const auto set = [](QScrollBar& bar, int size, int seen) {
        bar.setRange(0, std::max(0, size - seen));
        bar.setPageStep(seen);
        bar.setSingleStep(LineStep);
    };
    set(*verticalScrollBar(), zoomed(layout_->Height()), viewport()->height());
    set(*horizontalScrollBar(), zoomed(layout_->Width()), viewport()->width());
}

// What is seen is laid out now, so that its place is final; the rest follows while nothing else is to do.
void DHTMLEdit::paintEvent(QPaintEvent*) {
    html::Layout& layout = Laid();
    const QRect seen(InDocument(QPoint()), viewport()->size() * 100 / zoom_ + QSize(1, 1));
    for (int piece = layout.PieceAt(seen.top());
         piece < layout.Pieces() && layout.Top(piece) <= seen.bottom(); ++piece)
        layout.List(piece);
    UpdateScrollBars();
    QPainter painter(viewport());
    painter.scale(zoom_ / 100.0, zoom_ / 100.0);
    const QRect shown(InDocument(QPoint()), seen.size());
    painter.translate(-shown.topLeft());
    html::Paint(painter, layout, shown, marked_);
    if (!blankHint_.empty()) PaintBlankHint(painter);
}

void DHTMLEdit::PaintBlankHint(QPainter& painter) {
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(QRect(0, layout_->Height() + HintGap, layout_->Width(), 2 * HintGap),
                     Qt::AlignHCenter | Qt::AlignTop, ToQt(blankHint_));
}

void DHTMLEdit::SetBlankHint(const std::string& hint) {
    blankHint_ = hint;
    viewport()->update();
}

// What lies above what is seen may turn out higher or lower than guessed: what is seen stays in its place.
void DHTMLEdit::LayOutOneMore() {
    html::Layout& layout = Laid();
    const int piece = layout.Missing();
    if (piece < 0) return idle_.stop();
    const bool above = layout.Bottom(piece) <= InDocument(QPoint()).y();
    const int before = layout.Bottom(piece);
    layout.List(piece);
    const int moved = (layout.Bottom(piece) - before) * zoom_ / 100;
    UpdateScrollBars();
    if (above) verticalScrollBar()->setValue(verticalScrollBar()->value() + moved);
}

void DHTMLEdit::timerEvent(QTimerEvent* event) {
    if (event->timerId() == idle_.timerId()) {
        LayOutOneMore();
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void DHTMLEdit::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    findBar_->move(width() - findBar_->width() - 2 * verticalScrollBar()->width(), findBar_->y());
}

void DHTMLEdit::scrollContentsBy(int, int) {
    viewport()->update();
}

QPoint DHTMLEdit::InDocument(const QPoint& inViewport) const {
    return (inViewport + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value())) * 100 / zoom_;
}

void DHTMLEdit::SetZoom(int percent) {
    const double place =
        verticalScrollBar()->value() / std::max(1.0, static_cast<double>(verticalScrollBar()->maximum()));
    zoom_ = std::clamp(percent, SmallestZoom, LargestZoom);
    Laid();
    UpdateScrollBars();
    verticalScrollBar()->setValue(static_cast<int>(std::lround(place * verticalScrollBar()->maximum())));
    viewport()->update();
}

void DHTMLEdit::SetMarked(const html::Range& marked) {
    marked_ = marked;
    viewport()->update();
}

void DHTMLEdit::SelectAll() {
    const WaitPointer wait;
    SetMarked(html::Everything(Laid()));
}

html::Range DHTMLEdit::Chosen() {
    return marked_.Empty() ? html::Everything(Laid()) : marked_;
}

std::string DHTMLEdit::SelectedText() {
    return html::TextOf(Laid(), Chosen());
}

void DHTMLEdit::Copy() {
    const WaitPointer wait;
    auto content = std::make_unique<QMimeData>();
    content->setText(ToQt(SelectedText()));
    content->setHtml(ToQt(html::HtmlOf(Laid(), Chosen())));
    QApplication::clipboard()->setMimeData(content.release());
}

bool DHTMLEdit::Find(const std::string& text) {
    const WaitPointer wait;
    const auto found = html::Find(Laid(), ToQt(text), marked_.To);
    if (found) {
        SetMarked(*found);
        UpdateScrollBars();
        ScrollTo(html::BoxOf(*layout_, found->From));
    }
    return found.has_value();
}

void DHTMLEdit::FindNext(const html::Place& from) {
    if (findBar_->Wanted().isEmpty()) return;
    marked_.To = from;
    findBar_->ShowFound(Find(FromQt(findBar_->Wanted())));
}

void DHTMLEdit::ScrollTo(const QRect& box) {
    const QRect seen(InDocument(QPoint()), viewport()->size() * 100 / zoom_);
    if (box.top() < seen.top() || box.bottom() > seen.bottom())
        verticalScrollBar()->setValue((box.top() - seen.height() / 3) * zoom_ / 100);
    if (box.left() < seen.left() || box.right() > seen.right())
        horizontalScrollBar()->setValue(box.left() * zoom_ / 100);
}

bool DHTMLEdit::ScrollByKey(int key) {
    QScrollBar& bar =
        key == Qt::Key_Left || key == Qt::Key_Right ? *horizontalScrollBar() : *verticalScrollBar();
    static constexpr struct {
        int Key;
        QAbstractSlider::SliderAction Action;
    } actions[] = {{Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
                   {Qt::Key_Left, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Right, QAbstractSlider::SliderSingleStepAdd},
                   {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
                   {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
                   {Qt::Key_Space, QAbstractSlider::SliderPageStepAdd},
                   {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
                   {Qt::Key_End, QAbstractSlider::SliderToMaximum}};
    for (const auto& action : actions) {
        if (action.Key != key) continue;
        bar.triggerAction(action.Action);
        return true;
    }
    return false;
}

void DHTMLEdit::keyPressEvent(QKeyEvent* event) {
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    const int key = event->key();
    if (event->matches(QKeySequence::Copy)) {
        Copy();
    } else if (event->matches(QKeySequence::SelectAll)) {
        SelectAll();
    } else if (event->matches(QKeySequence::Find)) {
        findBar_->Open();
    } else if (key == Qt::Key_F3) {
        findBar_->Wanted().isEmpty() ? findBar_->Open() : FindNext(marked_.To);
    } else if (ctrl && (key == Qt::Key_Plus || key == Qt::Key_Equal)) {
        SetZoom(zoom_ + ZoomStep);
    } else if (ctrl && key == Qt::Key_Minus) {
        SetZoom(zoom_ - ZoomStep);
    } else if (ctrl && key == Qt::Key_0) {
        SetZoom(100);
    } else if (!ScrollByKey(key)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void DHTMLEdit::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    SetZoom(zoom_ + (event->angleDelta().y() > 0 ? ZoomStep : -ZoomStep));
    event->accept();
}

void DHTMLEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    anchor_ = html::PlaceAt(Laid(), InDocument(event->position().toPoint()));
    SetMarked({anchor_, anchor_});
}

void DHTMLEdit::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    const QPoint place = event->position().toPoint();
    if (!viewport()->rect().contains(place))
        verticalScrollBar()->setValue(verticalScrollBar()->value() + (place.y() < 0 ? -LineStep : LineStep));
    const html::Place now = html::PlaceAt(Laid(), InDocument(place));
    const auto [from, to] = std::minmax(anchor_, now);
    SetMarked({from, {to.Piece, to.Word + 1}});
}

void DHTMLEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction("&Copy", QKeySequence::Copy, this, [this] { Copy(); });
    menu.addAction("Select &All", QKeySequence::SelectAll, this, [this] { SelectAll(); });
    menu.addAction("&Find", QKeySequence::Find, this, [this] { findBar_->Open(); });
    menu.exec(event->globalPos());
}

}  // namespace forms
