#include "platform/forms/html/Bounds.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <utility>
#include <vector>

#include "platform/forms/html/Mark.h"

namespace forms::html {
namespace {

constexpr int MostAttributes = 50;
constexpr std::size_t LongestWord = 1000;

// Their content is no markup.
constexpr GumboTag Raw[] = {GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE,   GUMBO_TAG_TITLE,
                            GUMBO_TAG_IFRAME, GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES};
// These have rules of their own for what is in them, in which the bounds could not be told.
constexpr GumboTag Ignored[] = {
    GUMBO_TAG_SVG,      GUMBO_TAG_MATH,   GUMBO_TAG_TEMPLATE, GUMBO_TAG_SELECT,  GUMBO_TAG_FRAMESET,
    GUMBO_TAG_FRAME,    GUMBO_TAG_OBJECT, GUMBO_TAG_APPLET,   GUMBO_TAG_MARQUEE, GUMBO_TAG_BUTTON,
    GUMBO_TAG_TEXTAREA, GUMBO_TAG_XMP,    GUMBO_TAG_NOSCRIPT, GUMBO_TAG_ISINDEX, GUMBO_TAG_PLAINTEXT,
    GUMBO_TAG_OPTGROUP, GUMBO_TAG_OPTION};
constexpr GumboTag Document[] = {GUMBO_TAG_HTML, GUMBO_TAG_HEAD, GUMBO_TAG_BODY};
constexpr GumboTag CellTags[] = {GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_CAPTION};
constexpr GumboTag RowTags[] = {GUMBO_TAG_TR,    GUMBO_TAG_TBODY,    GUMBO_TAG_THEAD,
                                GUMBO_TAG_TFOOT, GUMBO_TAG_COLGROUP, GUMBO_TAG_COL};
constexpr GumboTag Void[] = {GUMBO_TAG_AREA,     GUMBO_TAG_BASE,  GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND,
                             GUMBO_TAG_BR,       GUMBO_TAG_EMBED, GUMBO_TAG_HR,       GUMBO_TAG_IMAGE,
                             GUMBO_TAG_IMG,      GUMBO_TAG_INPUT, GUMBO_TAG_KEYGEN,   GUMBO_TAG_LINK,
                             GUMBO_TAG_MENUITEM, GUMBO_TAG_META,  GUMBO_TAG_PARAM,    GUMBO_TAG_SOURCE,
                             GUMBO_TAG_TRACK,    GUMBO_TAG_WBR};
constexpr GumboTag Formats[] = {GUMBO_TAG_A,  GUMBO_TAG_B,     GUMBO_TAG_BIG,    GUMBO_TAG_CODE,
                                GUMBO_TAG_EM, GUMBO_TAG_FONT,  GUMBO_TAG_I,      GUMBO_TAG_NOBR,
                                GUMBO_TAG_S,  GUMBO_TAG_SMALL, GUMBO_TAG_STRIKE, GUMBO_TAG_STRONG,
                                GUMBO_TAG_TT, GUMBO_TAG_U};
// One ends the one before it.
constexpr GumboTag Following[] = {GUMBO_TAG_P, GUMBO_TAG_LI, GUMBO_TAG_DD, GUMBO_TAG_DT};

template <std::size_t Count>
bool In(const GumboTag (&tags)[Count], GumboTag tag) {
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

class Writer {
  public:
    Writer(std::string_view text, const Bounds& bounds)
        : text_(text),
          bounds_(bounds),
          size_(text.size()),
          lastEnd_(text.rfind('>')),
          lastCommentEnd_(text.rfind("-->")) {
        out_.reserve(text.size());
    }

    std::string Write() {
        while (!text_.empty()) {
            CopyText(std::min(text_.find('<'), text_.size()));
            if (!text_.empty()) AddMarkup();
        }
        return std::move(out_);
    }

  private:
    // The body, or a table with its row and its cell.
    struct Level {
        bool InCell = false;
        int Cells = 0, Tags = 0;
        std::size_t Text = 0;
        std::vector<GumboTag> Open;
    };

    void Copy(std::size_t count) {
        out_ += text_.substr(0, count);
        text_.remove_prefix(count);
    }
    void CopyText(std::size_t count) {
        if (count > 0 && Now().Text >= bounds_.Text) GoOn();
        while (Now().Text + count > bounds_.Text) {
            const std::size_t room = PlaceToPart(bounds_.Text - std::min(Now().Text, bounds_.Text));
            if (room >= count) break;
            Copy(room);
            count -= room;
            GoOn();
        }
        Now().Text += count;
        Copy(count);
    }
    // The first place at or behind `at` where a text can be parted: at a blank, or in a word that is too long
    // between two letters.
    std::size_t PlaceToPart(std::size_t at) const {
        const std::size_t blank = text_.find_first_of(" <&", at);
        if (blank != std::string_view::npos && blank < at + LongestWord) return blank;
        while (at < text_.size() && (At(at) & 0xC0) == 0x80) ++at;
        return at;
    }
    void GoOn() {
        Now().Text = 0;
        if (InBody()) {
            out_ += "<wbr>";
        } else if (Now().InCell) {
            const int cells = std::max(1, Now().Cells);
            out_ += "<tr>";
            for (int cell = 0; cell < cells; ++cell) out_ += "<td>";
            Now() = {.InCell = true, .Cells = cells, .Tags = 0, .Text = 0, .Open = {}};
        }
    }
    void Skip(std::size_t count) { text_.remove_prefix(count); }
    void CopyAsText() {  // the "<" at the front
        out_ += "&lt;";
        Skip(1);
    }
    // How far a place of the whole document lies ahead; nothing if it is behind, or nowhere.
    std::size_t Left(std::size_t place) const {
        const std::size_t written = size_ - text_.size();
        return place == std::string_view::npos || place < written ? 0 : place - written;
    }
    char At(std::size_t index) const { return index < text_.size() ? text_[index] : '\0'; }

    void AddMarkup() {
        const bool ends = At(1) == '/';
        if (!IsLetter(At(ends ? 2 : 1))) {
            if (At(1) == '!' || At(1) == '?' || ends) return AddComment();
            return Copy(1);
        }
        const auto mark = Left(lastEnd_) > 0 ? ReadMark(text_) : std::nullopt;
        if (!mark) return CopyAsText();
        if (!mark->Ends && In(Raw, mark->Tag)) return AddRaw(*mark);
        if (!Takes(*mark)) return Skip(mark->Text.size());
        if (mark->Attributes > MostAttributes) {
            out_ += (mark->Ends ? "</" : "<") + std::string(mark->Name) + '>';
            return Skip(mark->Text.size());
        }
        Copy(mark->Text.size());
    }

    // A comment may hold what looks like its end: such a one is left out.
    void AddComment() {
        const bool dashes = text_.starts_with("<!--");
        if (Left(dashes ? lastCommentEnd_ : lastEnd_) < 2) return CopyAsText();
        const std::size_t end = dashes ? text_.find("-->", 2) : text_.find('>');
        const std::size_t length = end + (dashes ? 3 : 1);
        text_.find('>') == length - 1 ? Copy(length) : Skip(length);
    }

    // A script without its end hides nothing: what follows is text.
    void AddRaw(const Mark& mark) {
        const std::size_t begin = mark.Text.size(), end = EndOf(mark);
        if (end == std::string_view::npos) return Skip(begin);
        const std::string_view content = text_.substr(begin, end - begin);
        const bool plain =
            content.find("</") == std::string_view::npos && content.find("<!") == std::string_view::npos;
        const std::string name(mark.Name);
        if (TakesTag()) out_ += '<' + name + '>' + std::string(plain ? content : "") + "</" + name + '>';
        Skip(end);
        Skip(std::min(text_.find('>'), text_.size() - 1) + 1);
    }
    std::size_t EndOf(const Mark& mark) {
        if (endless_.contains(mark.Tag)) return std::string_view::npos;
        const auto same = [](char a, char b) {
            return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
        };
        for (std::size_t at = text_.find("</"); at != std::string_view::npos; at = text_.find("</", at + 1)) {
            const std::string_view name = text_.substr(at + 2, mark.Name.size());
            const char next = At(at + 2 + mark.Name.size());
            if (std::equal(name.begin(), name.end(), mark.Name.begin(), mark.Name.end(), same) &&
                (next == '>' || next == '/' || IsBlank(next)))
                return at;
        }
        endless_.insert(mark.Tag);
        return std::string_view::npos;
    }

    bool Takes(const Mark& mark) {
        const GumboTag tag = mark.Tag;
        if (In(Ignored, tag)) return false;
        if (In(Document, tag)) return mark.Ends || TakesOnce(tag);
        if (tag == GUMBO_TAG_TABLE) return mark.Ends ? EndTable() : BeginTable();
        if (In(CellTags, tag)) return mark.Ends ? EndCell() : BeginCell();
        if (In(RowTags, tag)) return EndRow();
        if (!TakesTag()) return false;
        if (In(Void, tag)) return true;
        return mark.Ends ? End(tag) : Begin(tag);
    }

    bool TakesOnce(GumboTag tag) {
        bool& taken = taken_[std::find(std::begin(Document), std::end(Document), tag) - std::begin(Document)];
        return !std::exchange(taken, true);
    }

    Level& Now() { return levels_.back(); }
    bool InBody() const { return levels_.size() == 1; }

    // What stands between the cells of a table would come before it.
    bool TakesTag() {
        if (!InBody() && !Now().InCell) return false;
        return ++Now().Tags <= (InBody() ? Bounds::BodyTags : Bounds::CellTags);
    }

    // A table between the cells of another ends that one.
    bool BeginTable() {
        if (!InBody() && !Now().InCell) {
            Now() = {};
            return true;
        }
        if (static_cast<int>(levels_.size()) > bounds_.Tables) {
            ++ignoredTables_;
            return false;
        }
        levels_.emplace_back();
        return true;
    }
    bool EndTable() {
        if (ignoredTables_ > 0) {
            --ignoredTables_;
            return false;
        }
        if (!InBody()) levels_.pop_back();
        return true;
    }
    bool EndRow() {
        if (!InBody()) Now() = {};
        return true;
    }
    // The cells beyond those of a row are written into its last one.
    bool BeginCell() {
        if (InBody()) return true;
        if (Now().Cells == Bounds::Cells) {
            out_ += ' ';
            return false;
        }
        Now() = {.InCell = true, .Cells = Now().Cells + 1, .Tags = 0, .Text = 0, .Open = {}};
        return true;
    }
    bool EndCell() {
        if (InBody()) return true;
        if (Now().Cells == Bounds::Cells) return false;
        Now().InCell = false;
        return true;
    }

    bool Begin(GumboTag tag) {
        auto& open = Now().Open;
        if (In(Following, tag)) End(tag);
        const auto formats =
            std::count_if(open.begin(), open.end(), [](GumboTag one) { return In(Formats, one); });
        if (open.size() >= Bounds::Open || (In(Formats, tag) && formats >= Bounds::Formats)) return false;
        open.push_back(tag);
        return true;
    }
    bool End(GumboTag tag) {
        auto& open = Now().Open;
        const auto last = std::find(open.rbegin(), open.rend(), tag);
        if (last != open.rend()) open.erase(std::next(last).base());
        return true;
    }

    std::string_view text_;  // what is not written yet
    const Bounds bounds_;
    std::string out_;
    std::vector<Level> levels_{1};
    int ignoredTables_ = 0;
    const std::size_t size_, lastEnd_, lastCommentEnd_;  // of the document, its last ">" and its last "-->"
    std::set<GumboTag> endless_;                         // scripts and such whose end does not come any more
    bool taken_[std::size(Document)] = {};
};

}  // namespace

std::string Bounded(std::string_view document, const Bounds& bounds) {
    return Writer(document, bounds).Write();
}

}  // namespace forms::html
