#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <thread>
#include <vector>

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

std::string Statement(int ledger, int rows) {
    const std::string number = std::to_string(ledger);
    std::string text =
        "<tr><td colspan=2><b>name" + number +
        "</b></td></tr><tr><td colspan=2><hr></td></tr><tr><td><b>Date</b></td><td><b>Amount</b>"
        "</td></tr><tr><td colspan=2><hr></td></tr>";
    for (int i = 0; i < rows; ++i)
        text += "<tr><td>row</td><td>" + (i % 9 == 8 ? "<p>in</p><p>lines</p>" : number) + "</td></tr>" +
                (i % 7 == 6 ? "<tr><td><b>bold narration</td></tr>" : "");
    return text + "<tr><td></td><td><hr></td></tr>";
}

TEST(Pages, CutNoRowAndNoLine) {
    std::string tall = "<table width='30%'><tr><td>before</td></tr><tr><td>";
    for (int i = 0; i < 400; ++i) tall += "word ";
    const std::string statements = "<table>" + Statement(1, 100) + Statement(2, 3) + Statement(3, 100);
    for (const std::string& text :
         {Report(300), Report(1), tall + "</td></tr></table>", statements, std::string()}) {
        const Pages pages(text, QApplication::font(), Room);
        int top = 0;
        for (const Page& page : pages.Parts()) {
            EXPECT_EQ(page.Body.Top, top);
            EXPECT_GT(page.Body.Height(), 0);
            EXPECT_LE(page.Heads.Height() + page.Body.Height(), Taken.height());
            top = page.Body.Bottom;
        }
        for (const QRect& box : Whole(text, Taken.width()))
            for (const Page& page : pages.Parts())
                ASSERT_FALSE(box.top() < page.Body.Top && page.Body.Top <= box.bottom())
                    << "at " << page.Body.Top << " through " << box.top();
    }
}

// A ledger's name and its column heads would stand alone at the foot of a page, and a page without them is a
// row of figures without a name.
TEST(Pages, HeadingsStayWithWhatFollowsAndAreRepeated) {
    std::string text = "<table width='100%'><tr><td colspan=2><font size=5><b>Title</b></font></td></tr>";
    for (int ledger = 10; ledger < 30; ++ledger) text += Statement(ledger, 2 + ledger * 7 % 40);
    text += "</table>the end";
    const Pages pages(text, QApplication::font(), Room);
    Layout layout(text, QApplication::font());
    layout.SetWidth(Taken.width());
    layout.LayOutAll();
    const auto wordsIn = [&](const Band& band) {
        std::string words;
        for (int piece = 0; piece < layout.Pieces(); ++piece)
            for (const Word& word : layout.List(piece).Words)
                if (const int top = layout.Top(piece) + word.Box.top(); top >= band.Top && top < band.Bottom)
                    words += std::string(layout.List(piece).TextOf(word)) + ' ';
        return words;
    };
    ASSERT_GT(pages.Count(), 8);
    int repeated = 0;
    for (const Page& page : pages.Parts()) {
        const std::string words = wordsIn(page.Body), heads = wordsIn(page.Heads);
        EXPECT_THAT(words, testing::Not(testing::EndsWith("Amount "))) << "heads at the foot";
        if (words.starts_with("name") || words.starts_with("Title") || words.starts_with("the end")) {
            EXPECT_EQ(heads, "");
        } else {
            const std::string own = words.substr(0, words.find("name"));
            const auto number = own.find_first_of("123456789");
            if (number == std::string::npos) continue;
            EXPECT_EQ(heads, "name" + own.substr(number, 2) + " Date Amount ");
            ++repeated;
        }
    }
    EXPECT_GT(repeated, 3);
}

TEST(Pages, APageTooNarrowIsFilledByASmallerPrint) {
    const std::string wide = "<table><tr><td width=2000>left</td><td>right</td></tr></table>";
    const Pages pages(wide, QApplication::font(), Room);
    EXPECT_EQ(pages.Count(), 1);
}

TEST(Pages, APdfHasEachPageAndATitle) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath("report.pdf").toStdString();
    std::vector<double> parts;
    std::thread([&] {  // any will do
        WritePdf(Report(300), {"Stock Ledger", "", ""}, path, [&](double part) { parts.push_back(part); });
    })
        .join();
    EXPECT_THAT(parts, testing::AllOf(testing::SizeIs(testing::Gt(6u)),
                                      testing::WhenSorted(testing::ElementsAreArray(parts)),
                                      testing::Each(testing::Lt(1.0))));
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    const auto sheets = pdf.count("/Type /Page\n");
    EXPECT_GT(sheets, 4);
    EXPECT_TRUE(pdf.contains("/Count " + QByteArray::number(sheets)));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595.0")) << "A4";
    QByteArray title("\xFE\xFF", 2);  // as two bytes a letter
    for (const char c : std::string("Stock Ledger")) title.append('\0').append(c);
    EXPECT_TRUE(pdf.contains("/Title (" + title + ")")) << pdf.left(300).toStdString();
}

// The margin is painted below the text, at its three places.
TEST(Pages, TheMarginTellsWhoseFiguresTheseAre) {
    const auto inkOf = [](const Paper& paper) {
        const QTemporaryDir folder;
        const QString path = folder.filePath("report.pdf");
        QPdfWriter writer(path);
        Pages::Prepare(writer, paper);
        Pages pages("x", QApplication::font(), Pages::RoomOf(writer), paper);
        pages.PaintOn(writer, 1, 1);
        return QFileInfo(path).size();
    };
    const auto plain = inkOf({});
    EXPECT_GT(inkOf({"", "My Firm", ""}), plain);
    EXPECT_GT(inkOf({"", "", "01-Apr-2001"}), plain);
}

// One in no folder, and one on a full disk.
TEST(Pages, APathThatCannotBeWrittenIsToldAndWhoLeavesIsLetGo) {
    for (const char* path : {"/nowhere/report.pdf", "/dev/full"}) try {
            WritePdf("x", QApplication::font(), {}, path);
            ADD_FAILURE() << path;
        } catch (const basic::Error& error) {
            EXPECT_EQ(error.Number, 75);
        }
    const auto leave = [](double part) {
        if (part >= 0.5) throw part;
    };
    EXPECT_THROW(WritePdf("x", {}, "/dev/null", leave), double);
}

}  // namespace
