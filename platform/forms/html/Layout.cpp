#include "platform/forms/html/Layout.h"

#include <QFile>
#include <algorithm>

#include <litehtml.h>

#include "platform/forms/html/Recorder.h"

static void RegisterResources() {
    Q_INIT_RESOURCE(forms);
}  // must stand outside of any namespace

namespace forms::html {
namespace {

constexpr int Margin = 8;  // above and below the whole document

std::string Sheet() {
    RegisterResources();
    QFile file(":/forms/html/report.css");
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

std::string Px(int pixels) {
    return std::to_string(pixels) + "px";
}

bool IsTag(const litehtml::element& element, const char* name) {
    return std::string_view(element.get_tagName()) == name;
}

// The rows of the outermost tables, with where their cells begin.
void CollectRows(const litehtml::element::ptr& element, std::vector<Row>& rows) {
    for (int i = 0; i < static_cast<int>(element->get_children_count()); ++i) {
        const litehtml::element::ptr child = element->get_child(i);
        if (!IsTag(*child, "tr")) {
            CollectRows(child, rows);
            continue;
        }
        Row row{0, 0, {}};
        int column = 0;
        for (int c = 0; c < static_cast<int>(child->get_children_count()); ++c) {
            const litehtml::element::ptr cell = child->get_child(c);
            if (!IsTag(*cell, "td") && !IsTag(*cell, "th")) continue;
            const litehtml::position place = cell->get_placement();
            const int top = place.top() - cell->padding_top(),
                      bottom = place.bottom() + cell->padding_bottom();
            row.Top = row.Cells.empty() ? top : std::min(row.Top, top);
            row.Bottom = std::max(row.Bottom, bottom);
            row.Cells.push_back({place.left() - cell->padding_left(), column});
            column += std::max(1, std::atoi(cell->get_attr("colspan", "1")));
        }
        if (row.Bottom > row.Top) rows.push_back(std::move(row));
    }
}

}  // namespace

Layout::Layout(std::string_view document, const QFont& font)
    : fonts_(font), context_(std::make_unique<litehtml::context>()), pieces_(Cut(document, fonts_)) {
    static const std::string sheet = Sheet();
    context_->load_master_stylesheet(sheet.c_str());
    if (pieces_.Parts.empty()) pieces_.Parts.emplace_back();
    pieces_.Parts.shrink_to_fit();
}
Layout::~Layout() = default;

void Layout::SetWidth(int width) {
    if (width == width_) return;
    width_ = width;
    columns_.assign(pieces_.Tables.size(), {});
    lists_.clear();
    lists_.resize(pieces_.Parts.size());
    Guess();
}

void Layout::Guess() {
    const int line = fonts_.MetricsOf(fonts_.Find({.Size = fonts_.DefaultSize()})).Height;
    tops_.assign(1, Margin);
    for (const Piece& piece : pieces_.Parts) tops_.push_back(tops_.back() + std::max(1, piece.Rows) * line);
    tops_.back() += Margin;
}

int Layout::Width() const {
    int widest = width_;
    for (const auto& list : lists_)
        if (list) widest = std::max(widest, list->Width);
    return widest;
}

int Layout::PieceAt(int y) const {
    const auto next = std::upper_bound(tops_.begin(), tops_.end() - 1, y);
    return std::max(0, static_cast<int>(next - tops_.begin()) - 1);
}

const DisplayList& Layout::List(int piece) {
    const auto index = static_cast<std::size_t>(piece);
    if (!lists_[index]) {
        lists_[index] = LayOut(pieces_.Parts[index]);
        const int below = index + 1 == lists_.size() ? Margin : 0;
        const int moved = lists_[index]->Height + below - (tops_[index + 1] - tops_[index]);
        for (std::size_t i = index + 1; i < tops_.size(); ++i) tops_[i] += moved;
    }
    return *lists_[index];
}

int Layout::Missing() const {
    const auto found = std::find(lists_.begin(), lists_.end(), nullptr);
    return found == lists_.end() ? -1 : static_cast<int>(found - lists_.begin());
}

void Layout::LayOutAll() {
    for (int piece = Missing(); piece >= 0; piece = Missing()) List(piece);
}

// As wide as the sample's: a row of empty cells stands in each column.
const Layout::Columns& Layout::ColumnsOf(int table) {
    Columns& columns = columns_[static_cast<std::size_t>(table)];
    if (columns.TableWidth > 0) return columns;
    const LongTable& of = pieces_.Tables[static_cast<std::size_t>(table)];
    std::string markup = "<table style=\"" + of.Width + of.Style + "\">" + of.Sample + "<tr>";
    for (int i = 0; i < of.Columns; ++i) markup += "<td class=probe style=\"padding:0\"></td>";
    markup += "</tr></table>";
    Recorder recorder(fonts_, width_);
    const auto document = litehtml::document::createFromString(markup.c_str(), &recorder, context_.get());
    document->render(width_);
    for (const auto& probe : document->root()->select_all("td.probe"))
        columns.Widths.push_back(probe->get_placement().width);
    columns.TableWidth = std::max(1, document->root()->select_one("table")->get_placement().width);
    return columns;
}

std::string Layout::MarkupOf(const Piece& piece) {
    if (piece.Table < 0) return piece.Markup;
    const Columns& columns = ColumnsOf(piece.Table);
    const LongTable& table = pieces_.Tables[static_cast<std::size_t>(piece.Table)];
    std::string markup = "<table style=\"width:" + Px(columns.TableWidth) + ';' + table.Style + "\"><tr>";
    for (const int width : columns.Widths) markup += "<td style=\"padding:0;width:" + Px(width) + "\"></td>";
    return markup + "</tr>" + piece.Markup + "</table>";
}

std::unique_ptr<DisplayList> Layout::LayOut(const Piece& piece) {
    Recorder recorder(fonts_, width_);
    const auto document =
        litehtml::document::createFromString(MarkupOf(piece).c_str(), &recorder, context_.get());
    document->render(width_);
    auto list = std::make_unique<DisplayList>();
    list->Width = document->width();
    list->Height = document->height();
    recorder.SetTarget(*list);
    const litehtml::position everything(0, 0, list->Width, list->Height);
    document->draw(0, 0, 0, &everything);
    CollectRows(document->root(), list->Rows);
    list->Arrange();
    list->Words.shrink_to_fit();
    list->Text.shrink_to_fit();
    return list;
}

}  // namespace forms::html
