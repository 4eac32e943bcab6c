// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/textview/FindDesk.h"
#include "textview/FindSlot.h"
#include "textview/FindText.h"
#include "textview/ReplaceHits.h"
#include "textview/TextState.h"

namespace {

using test::FindDesk;

const QString kReached = QStringLiteral("The specified region has been reached.");

/// The colour of each character.
std::vector<std::uint32_t> Colours(const controls::RichTextBox& pane) {
    std::vector<std::uint32_t> colours(static_cast<std::size_t>(pane.Long().size()));
    for (const controls::ColourRun& run : pane.Runs())
        std::fill(colours.begin() + run.start, colours.end(), run.colour);
    return colours;
}

TEST(Replace, FindsFirstThenReplacesTheSelectedHitAndGoesOnBehindIt) {
    FindDesk desk;
    desk.Look(QStringLiteral("ab"), QStringLiteral("abab"));
    desk.form().cmdReplace.Click();
    EXPECT_EQ(desk.Selection(), QStringLiteral("3+2"));
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
    desk.form().cmdReplace.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>abab abc 1ab AB ab</a>"));
    EXPECT_EQ(desk.Selection(), QStringLiteral("3+4"));
    EXPECT_TRUE(desk.PanesAgree());
    desk.form().cmdReplace.Click();
    EXPECT_EQ(desk.Selection(), QStringLiteral("8+2")) << "not in what was put in";
    desk.Undo();
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>ab abc 1ab AB ab</a>"));
}

TEST(Replace, AllIsOneStepAndAlwaysEnds) {
    struct Case {
        const char* name;
        QString text, replacement;
        bool up;
        QString after;
    };
    const Case cases[] = {
        {"holds what is looked for", QStringLiteral("ab"), QStringLiteral("xabx"), false,
         QStringLiteral("<a>xabx xabxc 1xabx xabx xabx</a>")},
        {"by itself", QStringLiteral("ab"), QStringLiteral("ab"), false,
         QStringLiteral("<a>ab abc 1ab ab ab</a>")},
        {"by nothing", QStringLiteral("ab "), QString(), false, QStringLiteral("<a>abc 1ab</a>")},
        {"upwards", QStringLiteral("ab"), QStringLiteral("-"), true, QStringLiteral("<a>- -c 1- - -</a>")},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        FindDesk desk;
        const QString before = desk.Text();
        if (one.up) {
            desk.Up();
            desk.Select(before.size());
        }
        desk.Look(one.text, one.replacement);
        desk.form().cmdReplaceAll.Click();
        EXPECT_EQ(desk.Text(), one.after);
        EXPECT_EQ(desk.app.prompts.Texts(), QStringList{kReached});
        EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 1);
        EXPECT_TRUE(desk.PanesAgree());
        desk.Undo();
        EXPECT_EQ(desk.Text(), before);
        desk.Redo();
        EXPECT_EQ(desk.Text(), one.after);
    }
}

// With direction all, wherever the caret stands.
TEST(Replace, AllTakesTheWholeTextOnceWithDirectionAll) {
    FindDesk desk;
    desk.form().optDA.UserChose();
    desk.Look(QStringLiteral("ab"), QStringLiteral("abab"));
    desk.Select(12);
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>abab ababc 1abab abab abab</a>"));
    EXPECT_EQ(desk.Steps(), QStringLiteral("u"));
}

// Single replacements go around as well, and none is replaced again.
TEST(Replace, OneByOneGoesOnceAroundTheText) {
    FindDesk desk;
    desk.form().optDA.UserChose();
    desk.Look(QStringLiteral("ab"), QStringLiteral("abab"));
    desk.Select(12);
    for (int i = 0; i < 30 && desk.app.prompts.boxes.empty(); ++i)
        desk.form().cmdReplace.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>abab ababc 1abab abab abab</a>"));
}

// What goes in is coloured like what is pasted, and the same when it is taken back and done again.
TEST(Replace, WhatGoesInHasItsColoursOneByOneAndAllAtOnce) {
    const QByteArray document = "<a><!-- one oneone -->one<b>oneone</b><one x='one'/></a>";
    const QString replacements[] = {QStringLiteral("<c d=\"e\"/>f"), QStringLiteral("plain"), QString(),
                                    QStringLiteral("=x").repeated(300)};
    for (const QString& replacement : replacements) {
        for (const bool up : {false, true}) {
            SCOPED_TRACE(replacement.left(9).toStdString() + (up ? ", up" : ", down"));
            FindDesk all(document), single(document);
            for (FindDesk* desk : {&all, &single}) {
                desk->Look(QStringLiteral("one"), replacement);
                if (up)
                    desk->Up();
                desk->Select(up ? desk->Text().size() : 0);
            }
            all.form().cmdReplaceAll.Click();
            while (single.app.prompts.boxes.empty())
                single.form().cmdReplace.Click();
            ASSERT_EQ(all.Text(), single.Text());
            const std::vector<std::uint32_t> once = Colours(all.pane());
            EXPECT_EQ(once, Colours(single.pane()));
            EXPECT_EQ(once, Colours(all.window().rtxtXML2));
            for (int i = 0, steps = textview::StateOf(all.window()).UndoPos; i < 2 * steps; ++i)
                i < steps ? all.Undo() : all.Redo();
            EXPECT_EQ(once, Colours(all.pane()));
            if (replacement.startsWith(u'<')) {
                const auto place =
                    static_cast<std::size_t>(all.Text().indexOf(replacement + QStringLiteral("<b>")));
                EXPECT_EQ(once[place], 0xff0000U);
                EXPECT_EQ(once[place + 1], 0U);
            }
        }
    }
}

// At the end of the text the search begins again at its start: what is taken away there ends it, too.
TEST(Replace, AllBeginsAgainAtTheStartWhenTheTextsEndIsTakenAway) {
    FindDesk desk;
    textview::SetRichText(desk.window(), QStringLiteral("x-1-2-x"));
    desk.Select(3);
    desk.Look(QStringLiteral("x"));
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("-1-2-"));
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 1);
    desk.Undo();
    EXPECT_EQ(desk.Text(), QStringLiteral("x-1-2-x"));
}

} // namespace
