#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/forms/html/DisplayList.h"
#include "platform/forms/html/Fonts.h"
#include "platform/forms/html/Pieces.h"

namespace litehtml {
class context;
}

namespace forms::html {

// A document laid out in a width, piece after piece and not before it is asked for. The height of a piece
// that is not laid out yet is a guess; when it is laid out, what stands below moves.
class Layout {
  public:
    Layout(std::string_view document, const QFont& font);
    ~Layout();

    void SetWidth(int width);  // pixels at 96 dots per inch; drops what was laid out in another one
    int Width() const;         // of the widest piece laid out, at least the width given
    int Height() const { return tops_.back(); }

    int Pieces() const { return static_cast<int>(lists_.size()); }
    int Top(int piece) const { return tops_[static_cast<std::size_t>(piece)]; }
    int Bottom(int piece) const { return tops_[static_cast<std::size_t>(piece) + 1]; }
    int PieceAt(int y) const;            // the last one that begins above or at y
    const DisplayList& List(int piece);  // lays it out if it is not
    // The first piece that is not laid out yet; -1 if all are.
    int Missing() const;
    void LayOutAll();

    const Fonts& FontsUsed() const { return fonts_; }

  private:
    struct Columns {
        int TableWidth = 0;
        std::vector<int> Widths;
    };
    const Columns& ColumnsOf(int table);
    std::string MarkupOf(const Piece& piece);
    std::unique_ptr<DisplayList> LayOut(const Piece& piece);
    void Guess();

    Fonts fonts_;
    std::unique_ptr<litehtml::context> context_;
    html::Pieces pieces_;
    int width_ = 0;
    std::vector<Columns> columns_;
    std::vector<std::unique_ptr<DisplayList>> lists_;
    std::vector<int> tops_{0};
};

}  // namespace forms::html
