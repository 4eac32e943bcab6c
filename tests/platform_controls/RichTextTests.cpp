// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/RichTextBox.h"
#include <functional>
#include <gtest/gtest.h>

namespace controls {
void PrintTo(const ColourRun& run, std::ostream* out) {
    *out << run.start << ':' << run.colour;
}
} // namespace controls

namespace {

using namespace controls;
using Runs = std::vector<ColourRun>;

void SetColoured(RichTextBox& box, const QString& text, const Runs& runs) {
    box.SetContent({text::LongText(text), runs});
}

TEST(RichText, WhateverIsWrittenHasWholeLineEnds) {
    RichTextBox box;
    box.SetText(QStringLiteral("<a>\n<b/>\r</a>"));
    EXPECT_EQ(box.Text(), QStringLiteral("<a>\r\n<b/>\r\n</a>"));
    box.SetSelStart(4); // between the two units of a line end
    box.SetSelLength(2);
    box.SetSelText(QStringLiteral("\n"));
    EXPECT_EQ(box.Text(), QStringLiteral("<a>\r\nb/>\r\n</a>"));
    EXPECT_EQ(box.SelStart(), 5);
    box.SetSelStart(4);
    box.Type(QStringLiteral("x"));
    EXPECT_EQ(box.Text(), QStringLiteral("<a>x\r\nb/>\r\n</a>"));
    box.UserReplaced(0, box.Long().size(), QStringLiteral("one\ntwo"));
    EXPECT_EQ(box.Text(), QStringLiteral("one\r\ntwo"));
}

TEST(RichText, ASelectionIsCutToTheText) {
    RichTextBox box;
    box.SetText(QStringLiteral("<a/>"));
    box.SetSelStart(-3);
    EXPECT_EQ(box.SelStart(), 0);
    box.SetSelStart(1);
    box.SetSelLength(99);
    EXPECT_EQ(box.SelText(), QStringLiteral("a/>"));
    box.UserSelected(2, 50);
    EXPECT_EQ(box.SelText(), QStringLiteral("/>"));
    box.UserReplaced(1, 99, QStringLiteral("b"));
    EXPECT_EQ(box.SelStart(), 2);
    box.SetSelText(QStringLiteral("/>"));
    EXPECT_EQ(box.Text(), QStringLiteral("<b/>"));
    EXPECT_EQ(box.SelStart(), 4);
}

TEST(RichText, AnnouncementsFollowWhatReallyChanged) {
    RichTextBox box;
    QStringList log;
    box.contentReplaced.connect([&](const PlaceMap*) { log << QStringLiteral("content"); });
    box.textReplaced.connect([&](qsizetype at, qsizetype removed, const QString& piece) {
        log << QStringLiteral("%1-%2+%3").arg(at).arg(removed).arg(piece);
    });
    box.Change.connect([&] { log << QStringLiteral("change"); });
    box.selectionChanged.connect([&] { log << QStringLiteral("selection"); });
    box.SetText(QStringLiteral("<a/>"));
    box.SetText(QStringLiteral("<a/>"));
    box.SetSelStart(1);
    box.SetSelLength(1);
    box.SetSelText(QStringLiteral("b"));
    SetColoured(box, QStringLiteral("<b/>"), {{0, 0xff}}); // new colours are no new text
    EXPECT_EQ(log.join(u','), QStringLiteral("content,change,selection,selection,1-1+b,change,content"));
}

TEST(RichText, ColoursMoveAlongWithAnEdit) {
    RichTextBox box;
    auto colour = [&] { SetColoured(box, QStringLiteral("<a>text</a>"), {{0, 1}, {1, 2}, {3, 3}, {7, 1}}); };
    colour();
    box.SetSelStart(3);
    box.SetSelText(QStringLiteral("::")); // takes the colour before it
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {5, 3}, {9, 1}}));
    colour();
    box.SetSelStart(3);
    box.SetSelLength(4);
    box.SetSelText(QStringLiteral("longer")); // takes the colour of what it replaces
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {3, 3}, {9, 1}}));
    colour();
    box.SetSelStart(2);
    box.SetSelLength(6);
    box.SetSelText(QString());
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {2, 1}}));
    colour();
    box.UserSelected(3, 0);
    box.SetSelText(QStringLiteral("long "));
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {8, 3}, {12, 1}}));
    // Typed text takes the colour of the character before it, or the one that was chosen for it.
    colour();
    box.UserSelected(2, 0);
    box.Type(QStringLiteral("b"));
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {4, 3}, {8, 1}}));
    box.SetSelColor(7);
    box.Type(QStringLiteral("!"));
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {1, 2}, {3, 7}, {4, 2}, {5, 3}, {9, 1}}));
    box.SetSelStart(0);
    box.SetSelLength(5);
    box.SetSelColor(1);
    EXPECT_EQ(box.SelColor(), 1U);
    EXPECT_EQ(box.Content().runs, (Runs{{0, 1}, {5, 3}, {9, 1}}));
    // Line ends that RTF brings are whole ones, and colours stay with their text.
    const QString rtf = box.TextRTF();
    RichTextBox other;
    other.SetTextRTF(rtf);
    EXPECT_EQ(other.Content().runs, box.Content().runs);
    EXPECT_EQ(other.Text(), box.Text());
}

TEST(RichText, TypedTextTakesTheColourOfItsPlaceWhateverStoodThereBefore) {
    RichTextBox box;
    const auto reset = [&] {
        SetColoured(box, QStringLiteral("<a>text</a>"), {{0, 1}, {1, 2}, {3, 3}, {7, 1}});
    };
    const auto colourOf = [&](const QString& typed) {
        box.Type(typed);
        box.UserSelected(box.SelStart() - 1, 1);
        return box.SelColor();
    };
    reset();
    box.UserSelected(3, 4);
    EXPECT_EQ(colourOf(QStringLiteral("x")), 3U) << "of what it replaces";
    reset();
    box.UserSelected(3, 4);
    box.SetSelColor(7);
    EXPECT_EQ(colourOf(QStringLiteral("x")), 7U) << "or the one chosen for it";

    reset();
    box.SelectAll();
    EXPECT_EQ(colourOf(QStringLiteral("x")), 0U) << "at the text's start nothing has said one";

    // What is taken away takes its colour along.
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Backspace", [&] { box.UserReplaced(7, 1, {}); }},
        {"a command", [&] { box.UserSelected(7, 1), box.SetSelText({}); }},
        {"a command that knows colours", [&] { box.UserSelected(7, 1), box.SetSelContent({}, {}); }},
    };
    for (const auto& [name, takeAway] : ways) {
        reset();
        box.UserSelected(8, 0);
        takeAway();
        EXPECT_EQ(colourOf(QStringLiteral("x")), 3U) << name;
    }
    reset();
    box.UserSelected(5, 0);
    box.SetColours(3, 2, {{0, 9}});
    EXPECT_EQ(colourOf(QStringLiteral("x")), 9U) << "new colours in front of the caret";
}

TEST(RichText, PastingNothingChangesNothing) {
    RichTextBox box;
    box.SetText(QStringLiteral("<a>text</a>"));
    box.UserSelected(3, 4);
    box.Paste({});
    EXPECT_EQ(box.Text(), QStringLiteral("<a>text</a>"));
    EXPECT_EQ(box.SelText(), QStringLiteral("text"));
}

TEST(RichText, APieceWithColoursOfItsOwnLeavesThoseAroundIt) {
    RichTextBox box;
    const auto put = [&](qsizetype start, qsizetype length, const QString& text, const Runs& runs) {
        SetColoured(box, QStringLiteral("<a>text</a>"), {{0, 1}, {1, 2}, {3, 3}, {7, 1}});
        box.SetSelStart(start);
        box.SetSelLength(length);
        box.SetSelContent(text, runs);
        return box.Runs();
    };
    EXPECT_EQ(put(3, 4, QStringLiteral("abc"), {{1, 9}}), (Runs{{0, 1}, {1, 2}, {3, 0}, {4, 9}, {6, 1}}));
    EXPECT_EQ(put(4, 1, QStringLiteral("xy"), {{0, 3}}), (Runs{{0, 1}, {1, 2}, {3, 3}, {8, 1}}));
    EXPECT_EQ(put(2, 6, {}, {}), (Runs{{0, 1}, {1, 2}, {2, 1}}));
    EXPECT_EQ(put(11, 0, QStringLiteral("z"), {}), (Runs{{0, 1}, {1, 2}, {3, 3}, {7, 1}, {11, 0}}));
    EXPECT_EQ(box.SelStart(), 12);
    box.SetColours(2, 3, {{0, 5}, {2, 6}});
    EXPECT_EQ(box.Runs(), (Runs{{0, 1}, {1, 2}, {2, 5}, {4, 6}, {5, 3}, {7, 1}, {11, 0}}));
}

} // namespace
