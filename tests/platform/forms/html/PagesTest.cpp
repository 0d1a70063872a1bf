#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include "platform/basic/Error.h"
#include "platform/forms/html/Pages.h"

using namespace forms::html;

namespace {

constexpr QSize Room(720, 450);
// What a page takes of the document, which is made smaller on paper.
const QSize Taken = Room / Pages::PaperScale;

std::string Report(int rows) {
    std::string text = "<p><font size=5>Heading</font><table width='100%'>";
    for (int i = 0; i < rows; ++i)
        text += "<tr><td width='20%'>" + std::to_string(i) + "</td><td width='30%'>" +
                (i % 3 == 0 ? "a narration that takes more than one line of its narrow cell" : "short") +
                "</td><td><hr></td></tr>";
    return text + "</table>end";
}

// What must stand on one page, in the document's pixels.
std::vector<QRect> Whole(const std::string& text, int width) {
    Layout layout(text, QApplication::font());
    layout.SetWidth(width);
    layout.LayOutAll();
    std::vector<QRect> boxes;
    for (int piece = 0; piece < layout.Pieces(); ++piece) {
        for (const Word& word : layout.List(piece).Words)
            boxes.push_back(word.Box.translated(0, layout.Top(piece)));
        for (const Row& row : layout.List(piece).Rows)
            if (row.Bottom - row.Top <= Taken.height())
                boxes.emplace_back(0, layout.Top(piece) + row.Top, width, row.Bottom - row.Top);
    }
    return boxes;
}

TEST(Pages, CutNoRowAndNoLine) {
    std::string tall = "<table width='30%'><tr><td>before</td></tr><tr><td>";
    for (int i = 0; i < 400; ++i) tall += "word ";
    for (const std::string& text : {Report(300), Report(1), tall + "</td></tr></table>", std::string()}) {
        const Pages pages(text, QApplication::font(), Room);
        const std::vector<int>& breaks = pages.Breaks();
        for (std::size_t i = 1; i < breaks.size(); ++i) {
            EXPECT_GT(breaks[i], breaks[i - 1]);
            EXPECT_LE(breaks[i] - breaks[i - 1], Taken.height());
        }
        for (const QRect& box : Whole(text, Taken.width()))
            for (const int cut : breaks)
                ASSERT_FALSE(box.top() < cut && cut <= box.bottom())
                    << "at " << cut << " through " << box.top();
    }
}

// A ledger's name and its column heads at the foot of a page would stand alone.
TEST(Pages, HeadingsStayWithWhatFollows) {
    std::string text = "<table width='100%'>";
    for (int ledger = 0; ledger < 40; ++ledger) {
        text +=
            "<tr><td><b>name</b></td></tr><tr><td><hr></td></tr><tr><td><b>Date</b></td></tr><tr><td><hr></"
            "td></tr>";
        for (int i = 0; i < 7 + ledger % 3; ++i) text += "<tr><td>row</td></tr>";
        text += "<tr><td><hr></td></tr>";
    }
    text += "</table>";
    const Pages pages(text, QApplication::font(), Room);
    Layout layout(text, QApplication::font());
    layout.SetWidth(Taken.width());
    layout.LayOutAll();
    ASSERT_GT(pages.Count(), 5);
    for (const int cut : pages.Breaks()) {
        std::string last = "row";
        for (int piece = 0; piece < layout.Pieces(); ++piece)
            for (const Word& word : layout.List(piece).Words)
                if (layout.Top(piece) + word.Box.bottom() < cut) last = layout.List(piece).TextOf(word);
        EXPECT_EQ(last, "row") << cut;
    }
}

TEST(Pages, APageTooNarrowIsFilledByASmallerPrint) {
    const std::string wide = "<table><tr><td width=2000>left</td><td>right</td></tr></table>";
    const Pages pages(wide, QApplication::font(), Room);
    EXPECT_EQ(pages.Count(), 1);
}

TEST(Pages, APdfHasEachPage) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath("report.pdf").toStdString();
    WritePdf(Report(300), QApplication::font(), path);
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    const auto sheets = pdf.count("/Type /Page\n");
    EXPECT_GT(sheets, 4);
    EXPECT_TRUE(pdf.contains("/Count " + QByteArray::number(sheets)));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595.0")) << "A4";
}

TEST(Pages, APathThatCannotBeWrittenIsTold) {
    try {
        WritePdf("x", QApplication::font(), "/nowhere/report.pdf");
        FAIL();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, 75);
    }
}

}  // namespace
