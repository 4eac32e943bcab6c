// SPDX-License-Identifier: GPL-3.0-or-later
// The find dialog on the text in use.
#include "tests/textview/FindDesk.h"
#include "textview/FindSlot.h"
#include "textview/FindText.h"
#include "textview/ReplaceHits.h"
#include "textview/TextState.h"

namespace {

using test::FindDesk;

const QString kReached = QStringLiteral("The specified region has been reached.");

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

// At the end of the region it begins anew, and does so again until the user goes elsewhere.
TEST(Find, ASearchThatCameToItsEndBeginsAnew) {
    FindDesk desk;
    desk.Look(QStringLiteral("ab"));
    desk.Select(12);
    EXPECT_EQ(desk.Finds(), QStringLiteral("14 17"));
    EXPECT_EQ(desk.Finds(), QStringLiteral("3 6 11 14 17"));
    EXPECT_EQ(desk.Finds(), QStringLiteral("3 6 11 14 17"));
    desk.Up();
    EXPECT_EQ(desk.Finds(), QStringLiteral("14 11 6 3"));
    EXPECT_EQ(desk.Finds(), QStringLiteral("17 14 11 6 3"));
    desk.form().optDA.UserChose();
    desk.Select(12);
    EXPECT_EQ(desk.Finds(), QStringLiteral("14 17 3 6 11")) << "once around";
    EXPECT_EQ(desk.Finds(), QStringLiteral("14 17 3 6 11"));
    EXPECT_EQ(desk.app.prompts.Texts(), QStringList{kReached});
}

TEST(Find, TreeAndPathGoAlong) {
    FindDesk desk("<a><b>one</b><c>two</c></a>");
    desk.app.ClickNode(desk.window().tvXML.Nodes(1).Child().Child()); // the tree has the attention
    desk.Look(QStringLiteral("two"));
    desk.form().cmdFind.Click();
    EXPECT_EQ(desk.window().tvXML.SelectedItem().Text(), QStringLiteral("c"));
    EXPECT_EQ(desk.window().txtXPath.Text(), QStringLiteral("/a[1]/c[1]"));
    EXPECT_EQ(desk.pane().SelText(), QStringLiteral("two"));
}

TEST(Find, GoesOnWithoutTheDialogAndTakesTheSelectedWord) {
    FindDesk desk;
    desk.form().cmdCancel.Click();
    desk.SelectText(QStringLiteral("abc"));
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(desk.form().cmbFind.Text(), QStringLiteral("abc"));
    desk.Look(QStringLiteral("ab"));
    desk.Select(0);
    desk.form().cmdCancel.Click();
    for (const bool up : {false, false, false, true})
        desk.app.frame().FindNext(up);
    EXPECT_EQ(desk.Selection(), QStringLiteral("6+2"));
    EXPECT_FALSE(desk.form().Loaded());
    desk.app.ClickNode(desk.window().tvXML.Nodes(1).Child());
    desk.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(desk.form().cmbFind.Text(), QStringLiteral("ab")) << "the mark of a node is no word";
}

TEST(Find, AnEmptyTextIsNotLookedFor) {
    FindDesk desk;
    desk.Look({});
    desk.form().cmdFind.Click();
    desk.form().cmdReplaceAll.Click();
    EXPECT_TRUE(desk.app.prompts.boxes.empty());
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
}

TEST(Find, KeepsTheNewestFirstAndEachOnceForTheRun) {
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
    desk.Select(0);
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

TEST(Find, TextsThatCannotBeFoundAreToldAndChangeNothing) {
    FindDesk desk;
    const QString before = desk.Text();
    for (const QString& wanted : {before + u'x', QStringLiteral("\\"), QString(QChar(0)),
                                  QString(QChar(0xd800)), QStringLiteral("z").repeated(1'000'000)}) {
        desk.Look(wanted);
        for (controls::OptionButton* direction :
             {&desk.form().optDU, &desk.form().optDD, &desk.form().optDA}) {
            direction->UserChose();
            desk.app.prompts.boxes.clear();
            for (auto* button : {&desk.form().cmdFind, &desk.form().cmdReplace, &desk.form().cmdReplaceAll})
                button->Click();
            EXPECT_EQ(desk.app.prompts.boxes.size(), 3u);
            EXPECT_EQ(desk.Selection(), QStringLiteral("0+0"));
        }
    }
    EXPECT_EQ(desk.Text(), before);
    EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 0);
}

} // namespace
