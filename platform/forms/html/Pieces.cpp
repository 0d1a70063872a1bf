#include "platform/forms/html/Pieces.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/forms/html/Cleaner.h"
#include "platform/forms/html/Fonts.h"

namespace forms::html {
namespace {

constexpr int RowsPerPiece = 200;
constexpr std::size_t LargestPiece = 200000;            // bytes of markup
constexpr std::size_t LongestWhole = 2 * RowsPerPiece;  // a shorter table is laid out whole
constexpr Bounds ForLayout{.Tables = 1, .Text = 20000};
constexpr std::size_t LargestSample = 1000;
constexpr int MostBetween = 1000;  // nodes of the body and rows of its short tables in one piece

using Rows = std::vector<const GumboNode*>;

bool IsCell(const GumboNode& node) {
    return Is(node, GUMBO_TAG_TD) || Is(node, GUMBO_TAG_TH);
}

// The rows of a table, its captions among them.
Rows RowsOf(const GumboNode& table) {
    Rows rows;
    for (const GumboNode* group : ChildrenOf(table)) {
        if (Is(*group, GUMBO_TAG_CAPTION)) rows.push_back(group);
        for (const GumboNode* row : ChildrenOf(*group))
            if (Is(*row, GUMBO_TAG_TR) && !ChildrenOf(*row).empty()) rows.push_back(row);
    }
    return rows;
}

// How a cell is built (its tags) and how wide its text and its widest word are.
struct Extent {
    std::string Tags;
    int Text = 0, Word = 0;
};

class Measure {
  public:
    explicit Measure(Fonts& fonts)
        : fonts_(fonts),
          plain_(fonts.Find({.Size = fonts.DefaultSize()})),
          bold_(fonts.Find({.Size = fonts.DefaultSize(), .Bold = true})) {}

    void Add(const GumboNode& node, Extent& extent, bool bold = false) {
        if (IsText(node)) return AddText(node.v.text.text, extent, bold);
        for (const GumboNode* child : ChildrenOf(node)) {
            const bool isBold = bold || Is(*child, GUMBO_TAG_B) || Is(*child, GUMBO_TAG_STRONG);
            if (child->type == GUMBO_NODE_ELEMENT) {
                extent.Tags += std::to_string(TagOf(*child)) + '/';
                if (const char* size = Attribute(*child, "size")) extent.Tags += size;
            }
            Add(*child, extent, isBold);
        }
    }

  private:
    void AddText(std::string_view text, Extent& extent, bool bold) {
        const Fonts::Index font = bold ? bold_ : plain_;
        extent.Text += fonts_.Width(font, text);
        while (!text.empty()) {
            const std::size_t end = std::min(text.find(' '), text.size());
            extent.Word = std::max(extent.Word, fonts_.Width(font, text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    Fonts& fonts_;
    Fonts::Index plain_, bold_;
};

// Keeps, for each way in which cells ask for room, the row with the widest text and the one with the widest
// word.
class Sample {
  public:
    explicit Sample(Fonts& fonts) : measure_(fonts) {}

    void Add(const GumboNode& row) {
        int column = 0;
        for (const GumboNode* cell : ChildrenOf(row)) {
            if (!IsCell(*cell)) continue;
            const int span = SpanOf(*cell);
            Extent extent;
            measure_.Add(*cell, extent);
            const char* const width = Attribute(*cell, "width");
            const std::string key = std::to_string(column) + ',' + std::to_string(span) + ',' +
                                    (width ? width : "") + ',' + std::to_string(TagOf(*cell)) + extent.Tags;
            Widest& widest = widest_[key];
            widest.Text.Offer(extent.Text, row);
            widest.Word.Offer(extent.Word, row);
            column += span;
        }
        columns_ = std::max(columns_, column);
    }

    int Columns() const { return columns_; }
    std::string Markup(const Rows& all) const {
        std::set<const GumboNode*> chosen;
        for (const auto& [key, widest] : widest_) {
            if (chosen.size() >= LargestSample) break;
            chosen.insert({widest.Text.Row, widest.Word.Row});
        }
        std::string markup;
        for (const GumboNode* row : all)
            if (chosen.contains(row) && markup.size() < LargestPiece)
                markup += Cleaner::Node(*row, Widths::Own);
        return markup;
    }

  private:
    struct Best {
        int Width = -1;
        const GumboNode* Row = nullptr;
        void Offer(int width, const GumboNode& row) {
            if (width <= Width) return;
            Width = width;
            Row = &row;
        }
    };
    struct Widest {
        Best Text, Word;
    };

    Measure measure_;
    std::map<std::string, Widest> widest_;
    int columns_ = 0;
};

void CutTable(const GumboNode& table, const Rows& rows, Fonts& fonts, Pieces& pieces) {
    Sample sample(fonts);
    for (const GumboNode* row : rows) sample.Add(*row);
    const std::string style = Cleaner::TableStyle(table, Widths::Columns);
    const std::string both = Cleaner::TableStyle(table, Widths::Own);
    const int index = static_cast<int>(pieces.Tables.size());
    pieces.Tables.push_back(
        {style, both.substr(0, both.size() - style.size()), sample.Markup(rows), sample.Columns()});
    for (std::size_t next = 0; next < rows.size();) {
        Piece piece{.Markup = {}, .Table = index, .Rows = 0};
        for (; next < rows.size() && piece.Rows < RowsPerPiece && piece.Markup.size() < LargestPiece;
             ++next, ++piece.Rows)
            piece.Markup += Cleaner::Node(*rows[next], Widths::Columns);
        pieces.Parts.push_back(std::move(piece));
    }
}

bool IsFull(const Piece& piece) {
    return piece.Rows > MostBetween || piece.Markup.size() > LargestPiece;
}

}  // namespace

Pieces Cut(std::string_view document, Fonts& fonts) {
    const Tree tree(document, ForLayout);
    Pieces pieces;
    if (!tree.Body()) return pieces;
    bool between = false;  // whether the last piece still takes what comes next
    for (const GumboNode* node : ChildrenOf(*tree.Body())) {
        const Rows rows = Is(*node, GUMBO_TAG_TABLE) ? RowsOf(*node) : Rows();
        std::string markup = rows.size() > LongestWhole ? "" : Cleaner::Node(*node, Widths::Own);
        if (rows.size() > LongestWhole || (rows.size() > 1 && markup.size() > LargestPiece)) {
            CutTable(*node, rows, fonts, pieces);
            between = false;
            continue;
        }
        if (!between || IsFull(pieces.Parts.back())) pieces.Parts.emplace_back();
        between = true;
        pieces.Parts.back().Markup += markup;
        pieces.Parts.back().Rows += static_cast<int>(rows.size()) + 1;
    }
    return pieces;
}

}  // namespace forms::html
