#include <QApplication>
#include <map>
#include <sstream>

#include <gmock/gmock.h>

#include "platform/forms/html/Layout.h"
#include "platform/forms/html/Reading.h"
#include "tests/support/Cases.h"

using namespace forms::html;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int Width = 816;  // 800 between the margins

// The words of a document by their texts; of two that read the same, the last.
std::map<std::string, QRect> Boxes(const std::string& document, int width = Width) {
    Layout layout(document, QApplication::font());
    layout.SetWidth(width);
    layout.LayOutAll();
    std::map<std::string, QRect> boxes;
    for (int piece = 0; piece < layout.Pieces(); ++piece)
        for (const Word& word : layout.List(piece).Words)
            boxes[std::string(layout.List(piece).TextOf(word))] = word.Box.translated(0, layout.Top(piece));
    return boxes;
}

std::vector<std::string> Names(const std::map<std::string, QRect>& boxes) {
    std::vector<std::string> names;
    for (const auto& [name, box] : boxes) names.push_back(name);
    return names;
}

int RightOf(const QRect& box) {
    return box.left() + box.width();
}

TEST(Layout, OldAttributesPlaceTexts) {
    auto at = Boxes(
        "<table border = '0' width='100%' style = 'font size = 12' cellspacing = '0' cellpadding =0 ><td "
        "width = '25%'>a</td><td width = '25%' align = 'Right'>b</td><td width=\"25%\"align='lEFT'>c</td><TD "
        "WIDTH='25%' ALIGN=RIGHT>d</td><tr><td colspan = '2' width = '100%' align='CENTER'>e</td><td "
        "colspan=2 height='60'>f</td></tr>");
    EXPECT_EQ(at["a"].left(), 8);
    EXPECT_EQ(RightOf(at["b"]), 408);
    EXPECT_GE(at["c"].left(), 414) << "columns stand apart";
    EXPECT_EQ(RightOf(at["d"]), 808);
    EXPECT_NEAR(at["e"].center().x(), 208, 2);
    EXPECT_NEAR(at["f"].center().y(), at["a"].bottom() + 31, 3) << "in the middle of its height";
}

TEST(Layout, FontsParagraphsAndLines) {
    const std::string document =
        "<p align='center'><font size='5'><b>Big</b></font><hr>low <u>under</u> <ht>odd</ht>";
    auto at = Boxes(document);
    EXPECT_NEAR(at["Big"].center().x(), Width / 2, 2);
    EXPECT_GT(at["Big"].height(), at["low"].height() * 5 / 4);
    EXPECT_GT(at["low"].top(), at["Big"].bottom());
    EXPECT_EQ(at["odd"].top(), at["low"].top()) << "an unknown tag counts for nothing";
    Layout layout(document, QApplication::font());
    layout.SetWidth(Width);
    ASSERT_EQ(layout.List(0).Rules.size(), 1u);
    EXPECT_EQ(layout.List(0).Rules[0].Box.width(), 800);
}

std::string Repeated(int times, const std::string& text) {
    std::string repeated;
    for (int i = 0; i < times; ++i) repeated += text;
    return repeated;
}

// Whatever a narration holds, the text is shown, and nothing runs, is fetched or styles the rest.
TEST(Layout, HostileMarkupIsOnlyText) {
    for (const test::Cells& c : test::Cases("platform/forms/html/content.txt", "Hostile")) {
        const std::string narration = Repeated(std::stoi(c.at(1)), c.at(0));
        const auto boxes = Boxes("<table width='100%'><tr><td>before</td></tr><tr><td>" + narration +
                                 "</td></tr><tr><td>after</td></tr></table>");
        const auto names = Names(boxes);
        std::istringstream words(c.at(2));
        for (std::string word; words >> word;) EXPECT_THAT(names, testing::Contains(word)) << c[0];
        EXPECT_LT(boxes.at("before").height(), 30) << c[0];
        EXPECT_THAT(names, testing::Not(testing::Contains(testing::HasSubstr("alert")))) << c[0];
    }
}

// Rows with texts of all widths, a heading in bold, cells over several columns, and rows of one cell.
std::string LongTable(int rows) {
    std::string table =
        "<table border='0' width='100%' cellspacing='0' cellpadding=0><tr><td width='100%' "
        "colspan='2'><b>The name of a ledger</b></td></tr><td width = '15%' height='31'><b>Date</b></td><td "
        "width = '25%'><b>Particulars</b></td><td width='20%' align='right'><b>Balance</b></td></tr><tr><td "
        "width='100%' height='1' colspan='3'><hr></td></tr>";
    for (int i = 0; i < rows; ++i) {
        const std::string number = std::to_string(i);
        table += "<tr><td>d" + number + "</td><td>" + std::string(static_cast<std::size_t>(i % 37), 'n') +
                 " p" + number + "</td><td align = 'right'>" + std::to_string(i * 7919) + "r</td></tr>";
        if (i % 50 == 7) table += "<tr><td>goes on with a narration of many words c" + number + "</td></tr>";
    }
    return table + "</table>";
}

// The pieces of a long table must look like one: compared with the same table in a block that is not cut.
TEST(Layout, ALongTableLooksAsIfLaidOutAtOnce) {
    const std::string table = LongTable(900);
    auto cut = Boxes("<body>" + table, 700), whole = Boxes("<body><div>" + table + "</div>", 700);
    {
        Layout layout("<body>" + table, QApplication::font());
        layout.SetWidth(700);
        EXPECT_GT(layout.Pieces(), 3);
    }
    ASSERT_EQ(Names(cut), Names(whole));
    const int lead = whole["d0"].top() - cut["d0"].top();
    for (const auto& [word, box] : whole) ASSERT_EQ(cut[word].translated(0, lead), box) << word;
}

TEST(Layout, WhatIsNotSeenIsLaidOutLater) {
    Layout layout(LongTable(2000), QApplication::font());
    layout.SetWidth(Width);
    const int guess = layout.Height();
    EXPECT_EQ(layout.Missing(), 0);
    const Place place = PlaceAt(layout, QPoint(8, guess / 2));
    EXPECT_GT(place.Piece, 0);
    EXPECT_EQ(layout.Missing(), 0) << "only the piece asked for was laid out";
    layout.LayOutAll();
    EXPECT_EQ(layout.Missing(), -1);
    for (int piece = 0; piece + 1 < layout.Pieces(); ++piece)
        EXPECT_EQ(layout.Bottom(piece) - layout.Top(piece), layout.List(piece).Height);
    layout.SetWidth(Width / 2);
    EXPECT_EQ(layout.Missing(), 0);
}

}  // namespace
