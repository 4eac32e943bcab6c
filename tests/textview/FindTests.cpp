// SPDX-License-Identifier: GPL-3.0-or-later
// The find dialog on the text in use.
#include "tests/textview/TextDesk.h"
#include "textview/FindSlot.h"
#include "textview/FindText.h"
#include "textview/ReplaceHits.h"
#include "textview/TextState.h"
#include "textview/dialogs/frmFind.h"

namespace {

using test::TextDesk;

const QString kReached = QStringLiteral("The specified region has been reached.");

/// The colour of each character.
std::vector<std::uint32_t> Colours(const controls::RichTextBox& pane) {
    std::vector<std::uint32_t> colours(static_cast<std::size_t>(pane.Long().size()));
    for (const controls::ColourRun& run : pane.Runs())
        std::fill(colours.begin() + run.start, colours.end(), run.colour);
    return colours;
}

class FindDesk : public TextDesk {
public:
    explicit FindDesk(const QByteArray& document = "<a>ab abc 1ab AB ab</a>") : TextDesk(document) {
        app.prompts.AllowAnyBox();
        app.frame().findShown.connect([this](frmFind& shown) { form_ = &shown; });
        Select(0);
        app.ChooseMenu(QStringLiteral("mnuFindReplace"));
    }
    frmFind& form() { return *form_; }

    void Up() { form().optDU.UserChose(); }
    void Look(const QString& text, const QString& replacement = {}) {
        form().cmbFind.UserTyped(text);
        form().cmbReplace.UserTyped(replacement);
    }
    /// Places that pressing Find leads to, until the box comes.
    QString Finds() {
        QString places;
        for (app.prompts.boxes.clear(); app.prompts.boxes.empty() && places.size() < 200;) {
            form().cmdFind.Click();
            if (app.prompts.boxes.empty())
                places += QString::number(pane().SelStart()) + u' ';
        }
        return places.trimmed();
    }

private:
    frmFind* form_ = nullptr;
};

TEST(Find, GoesDownOrUpByWordAndCaseAndTellsTheEndOfTheRegion) {
    FindDesk desk;
    desk.Look(QStringLiteral("ab"));
    EXPECT_EQ(desk.Finds(), QStringLiteral("3 6 11 14 17"));
    EXPECT_EQ(desk.app.prompts.Texts(), QStringList{kReached});
    EXPECT_EQ(desk.Selection(), QStringLiteral("17+2")) << "the last hit stays selected";
    EXPECT_EQ(desk.app.frame().StatusBar1().Panel(2), QStringLiteral("Ln 1 , Col 18"));
    EXPECT_TRUE(desk.app.frame().Menu(QStringLiteral("mnuEditCopy")).Enabled());
    desk.Up();
    EXPECT_EQ(desk.Finds(), QStringLiteral("14 11 6 3"));

    desk.form().chkWW.UserSet(true);
    desk.Select(desk.Text().size());
    EXPECT_EQ(desk.Finds(), QStringLiteral("17 14 3")) << "neither in abc nor in 1ab";
    desk.form().chkMC.UserSet(true);
    desk.form().optDA.UserChose();
    desk.Select(desk.Text().size());
    EXPECT_EQ(desk.Finds(), QStringLiteral("3 17")) << "from the end it begins at the start";
    desk.Look(QStringLiteral("nothing"));
    desk.Select(4, 2);
    EXPECT_EQ(desk.Finds(), QString());
    EXPECT_EQ(desk.Selection(), QStringLiteral("4+2"));
}

TEST(Find, WithoutHighlightMovesTheCaretAlone) {
    FindDesk desk;
    desk.form().chkHL.UserSet(true);
    desk.Look(QStringLiteral("AB"));
    EXPECT_EQ(desk.Finds(), QStringLiteral("3 6 11 14 17"));
    EXPECT_EQ(desk.pane().SelLength(), 0);
    desk.Select(0);
    desk.Look(QStringLiteral("abc"), QStringLiteral("x"));
    desk.form().cmdReplace.Click();
    desk.form().cmdReplace.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("<a>ab x 1ab AB ab</a>"));
}

// Whole words are looked for block by block: none is missed at a border, and refused ones hold nothing up.
TEST(Find, WholeWordsAreFoundWhereverTheyStandInALargeText) {
    const QString word = QStringLiteral("ab"), refused = QStringLiteral("xab").repeated(30'000);
    textview::FindOptions options;
    options.wholeWord = true;
    controls::RichTextBox box;
    for (qsizetype before = 65'530; before < 65'545; ++before) {
        const QString text = refused.left(before) + QStringLiteral("-AB-");
        box.SetText(text + refused);
        EXPECT_EQ(textview::SearchDown(box, word, 0, options), before + 1);
        EXPECT_EQ(textview::SearchDown(box, word, before + 2, options), -1);
        EXPECT_EQ(textview::HitsDown(box, word, 0, {}, options), std::vector{before + 1});
        box.SetText(QStringLiteral("-AB-") + refused.right(before));
        EXPECT_EQ(textview::SearchUp(box, word, box.Long().size(), options), 1);
        EXPECT_EQ(textview::SearchUp(box, word, 2, options), -1);
        EXPECT_EQ(textview::HitsUp(box, word, box.Long().size(), {}, options), std::vector{qsizetype(1)});
    }
    box.SetText(QStringLiteral("ab ").repeated(50'000) + word);
    EXPECT_EQ(textview::HitsDown(box, word, 0, {}, options).size(), 50'001U);
    EXPECT_EQ(textview::HitsUp(box, word, box.Long().size(), {}, options).size(), 50'001U);
}

TEST(Find, AnEmptyTextIsNotLookedFor) {
    FindDesk desk;
    desk.Look({});
    desk.form().cmdFind.Click();
    desk.form().cmdReplaceAll.Click();
    EXPECT_TRUE(desk.app.prompts.boxes.empty());
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
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

TEST(ReplaceAll, ReplacesEachHitAsAStepAndAlwaysEnds) {
    struct Case {
        const char* name;
        QString text, replacement;
        bool up;
        QString after;
        int steps;
    };
    const Case cases[] = {
        {"holds what is looked for", QStringLiteral("ab"), QStringLiteral("xabx"), false,
         QStringLiteral("<a>xabx xabxc 1xabx xabx xabx</a>"), 5},
        {"by itself", QStringLiteral("ab"), QStringLiteral("ab"), false,
         QStringLiteral("<a>ab abc 1ab ab ab</a>"), 1},
        {"by nothing", QStringLiteral("ab "), QString(), false, QStringLiteral("<a>abc 1ab</a>"), 3},
        {"upwards", QStringLiteral("ab"), QStringLiteral("-"), true, QStringLiteral("<a>- -c 1- - -</a>"), 5},
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
        EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, one.steps);
        EXPECT_TRUE(desk.PanesAgree());
        for (int i = 0; i < one.steps; ++i)
            desk.Undo();
        EXPECT_EQ(desk.Text(), before);
        for (int i = 0; i < one.steps; ++i)
            desk.Redo();
        EXPECT_EQ(desk.Text(), one.after);
    }
}

// One by one and all at once come to the same text, the same steps and the same colours.
TEST(ReplaceAll, IsWhatReplacingOneByOneComesTo) {
    FindDesk all, single;
    for (FindDesk* desk : {&all, &single}) {
        desk->Look(QStringLiteral("ab"), QStringLiteral("longer"));
        desk->Select(5);
    }
    all.form().cmdReplaceAll.Click();
    while (single.app.prompts.boxes.empty())
        single.form().cmdReplace.Click();
    EXPECT_EQ(all.Text(), single.Text());
    ASSERT_EQ(textview::StateOf(all.window()).UndoPos, textview::StateOf(single.window()).UndoPos);
    for (std::size_t i = 0; i < textview::StateOf(all.window()).undoStack.size(); ++i) {
        const textview::UndoRecord &a = textview::StateOf(all.window()).undoStack[i],
                                   &b = textview::StateOf(single.window()).undoStack[i];
        EXPECT_EQ(a.DelPos, b.DelPos);
        EXPECT_EQ(a.DelText, b.DelText);
        EXPECT_EQ(a.InsPos, b.InsPos);
        EXPECT_EQ(a.InsText, b.InsText);
    }
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

TEST(ReplaceAll, LeavesThePlaceOfTheOtherPane) {
    FindDesk desk("<a>one one <b>two</b> one</a>");
    controls::RichTextBox& other = desk.window().rtxtXML2;
    other.UserSelected(other.Text().indexOf(QStringLiteral("two")), 3);
    desk.Look(QStringLiteral("one"), QStringLiteral("eleven"));
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(other.SelText(), QStringLiteral("two"));
}

// At the end of the text the search begins again at its start: what is taken away there ends it, too.
TEST(ReplaceAll, BeginsAgainAtTheStartWhenTheTextsEndIsTakenAway) {
    FindDesk desk;
    textview::SetRichText(desk.window(), QStringLiteral("x-1-2-x"));
    desk.Select(3);
    desk.Look(QStringLiteral("x"));
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(desk.Text(), QStringLiteral("-1-2-"));
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 2);
}

TEST(FindHistory, KeepsTheNewestFirstAndEachOnceForTheRun) {
    FindDesk desk;
    desk.Look(QStringLiteral("ab"), QStringLiteral("q"));
    desk.form().cmdFind.Click();
    desk.Look(QStringLiteral("abc"), QStringLiteral("r"));
    desk.form().cmdReplace.Click();
    desk.form().cmbFind.UserTyped(QStringLiteral("ab"));
    desk.form().cmbFind.LostFocus();
    desk.form().cmdCancel.Click();
    EXPECT_EQ(desk.form().cmbFind.Items(), (QStringList{QStringLiteral("abc"), QStringLiteral("ab")}));
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(desk.form().cmbFind.Text(), QStringLiteral("abc"));
    EXPECT_EQ(desk.form().cmbReplace.Items(), QStringList{QStringLiteral("r")});
    desk.form().cmdDelete.Click();
    desk.form().cmdCancel.Click();
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(desk.form().cmbFind.Text().isEmpty());
    EXPECT_TRUE(desk.form().cmbFind.Items().isEmpty());
}

// The search shows where it is: it doesn't work on a text behind another view.
TEST(Find, BringsTheTextToTheFrontWithWhatTheTreeHasNew) {
    for (const bool all : {false, true}) {
        FindDesk desk("<a><b>one</b></a>");
        desk.Look(QStringLiteral("two"), QStringLiteral("three"));
        desk.window().tbsXML.Select(QStringLiteral("listview"));
        desk.window().tvXML.Nodes(1).Child().Child().Child().SetTag(QStringLiteral("two"));
        (all ? desk.form().cmdReplaceAll : desk.form().cmdFind).Click();
        EXPECT_EQ(desk.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
        EXPECT_EQ(desk.pane().SelText(), all ? QStringLiteral("three") : QStringLiteral("two"));
        EXPECT_EQ(desk.app.prompts.boxes.size(), all ? 1U : 0U);
    }
}

TEST(Find, WorksOnTheDocumentInFrontAlsoWhereItShowsItsList) {
    FindDesk desk;
    const QString first = desk.Text();
    desk.Look(QStringLiteral("ab"), QStringLiteral("x"));
    DocumentWindow& behind = desk.window();
    desk.app.OpenText(QStringLiteral("other.xml"), "<a><b>ab</b></a>");
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(behind.rtxtXML.Text(), first);
    EXPECT_EQ(desk.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_TRUE(desk.Text().contains(QStringLiteral("<b>x</b>")));
    // From the list the search goes on behind the last hit, and not at the current node once more.
    DocumentWindow& list = desk.app.OpenText(QStringLiteral("list.xml"), "<a><b>ab</b><c>ab</c></a>");
    for (const char* before : {"<b>", "<c>"}) {
        list.tbsXML.Select(QStringLiteral("listview"));
        desk.form().cmdFind.Click();
        EXPECT_EQ(list.rtxtXML.Text().mid(list.rtxtXML.SelStart() - 3, 3), QLatin1String(before));
    }
}

TEST(Find, FollowsThePaneAndTheDocumentInUseAndOutlivesThem) {
    FindDesk desk;
    desk.Look(QStringLiteral("ab"));
    desk.Enter(desk.window().rtxtXML2);
    desk.Select(0);
    desk.form().cmdFind.Click();
    EXPECT_EQ(desk.window().rtxtXML2.SelText(), QStringLiteral("ab"));
    desk.app.OpenText(QStringLiteral("other.xml"), "<a><b>ab</b></a>");
    desk.window().tbsXML.Select(QStringLiteral("textview"));
    desk.form().cmdFind.Click();
    EXPECT_EQ(desk.window().rtxtXML.SelText(), QStringLiteral("ab"));
    desk.app.frame().RunMenuCommand(QStringLiteral("mnuCloseAll"));
    desk.form().cmdFind.Click();
    desk.form().cmdReplaceAll.Click();
    EXPECT_EQ(textview::Finding(desk.app.app()).findTarget, nullptr);
}

} // namespace
