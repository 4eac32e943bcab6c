// SPDX-License-Identifier: GPL-3.0-or-later
// The one-by-one editor, opened from its menu entry and worked through its controls.
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

constexpr char kShop[] = "<shop><pen colour=\"red\">ink</pen><!--note--><box/></shop>";

struct EditNodes : testing::Test {
    TestApp t;
    DocumentWindow* w = nullptr;
    nodes::frmEditNodes* d = nullptr;
    int closed = 0;

    void Open(const char* node = "pen", const char* text = kShop) {
        w = &t.OpenText(QStringLiteral("shop.xml"), text);
        t.frame().editNodesShown.connect([this](nodes::frmEditNodes& form) { d = &form; });
        t.ClickNode(Named(node));
        t.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
        ASSERT_TRUE(d);
        d->unloaded.connect([this] { ++closed; });
    }
    TreeNode Named(const char* name) {
        for (int i = 1; i <= w->tvXML.Nodes.Count(); ++i)
            if (w->tvXML.Nodes(i).Text() == QLatin1String(name))
                return w->tvXML.Nodes(i);
        return w->tvXML.Nodes(1);
    }
    std::string Text() { return w->rtxtXML.Text().toStdString(); }
    bool Has(const char* part) { return Text().find(part) != std::string::npos; }
};

TEST_F(EditNodes, AWalkSavesEachNodeAndStopsAtTheEnds) {
    Open();
    EXPECT_EQ(d->txtNodeAttrs.Text(), QStringLiteral("colour=\"red\""));
    EXPECT_EQ(d->txtNodeText.Text(), QStringLiteral("ink"));
    EXPECT_EQ(d->txtNodeAttrs.Place().Height, 2775);
    EXPECT_FALSE(d->cmdUp.Enabled());
    d->txtNodeName.UserTyped(QStringLiteral("quill"));
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour='blue'"));
    d->txtNodeText.UserTyped(QStringLiteral("dry"));
    int key = Qt::Key_Down;
    d->Form_KeyDown(key, static_cast<int>(Qt::ControlModifier));
    EXPECT_EQ(key, 0);
    EXPECT_TRUE(Has("<quill colour=\"blue\">dry</quill>")) << Text();
    EXPECT_EQ(textview::StateOf(*w).UndoPos, 1);
    EXPECT_EQ(d->txtNodeAttrs.Text(), QStringLiteral("note"));
    EXPECT_FALSE(d->txtNodeName.Enabled());
    EXPECT_EQ(d->txtNodeAttrs.Place().Height, 5795);
    d->cmdDown.Click();
    EXPECT_FALSE(d->cmdDown.Enabled());
    EXPECT_FALSE(d->cmdRight.Enabled());
    d->txtNodeText.UserTyped(QStringLiteral("full"));
    d->cmdOk.Click();
    EXPECT_TRUE(Has("<box>full</box>")) << Text();
    EXPECT_EQ(closed, 1);
}

TEST_F(EditNodes, WhatTheParserRefusesLeavesTheNodeAndTheTypedText) {
    Open();
    const std::string before = Text();
    t.prompts.AllowAnyBox();
    const struct {
        controls::TextBox& box;
        QString typed;
    } bad[] = {{d->txtNodeName, QStringLiteral("a b")},
               {d->txtNodeAttrs, QStringLiteral("a=\"1\" a=\"2\"")},
               {d->txtNodeText, QStringLiteral("</pen>")},
               {d->txtNodeText, QString(QChar(1))},
               {d->txtNodeText, QString(1 << 20, u'x') + u'<'}};
    std::size_t boxes = 0;
    for (const auto& one : bad) {
        const QString was = one.box.Text();
        one.box.UserTyped(one.typed);
        const QString complaint = t.frame().StatusBar1().Panel(1);
        EXPECT_FALSE(complaint.isEmpty()) << "the parser's complaint while typing";
        if (&one.box == &d->txtNodeAttrs) { // with the place of the error, in lines
            EXPECT_TRUE(complaint.contains(QStringLiteral("\r\nLinePos:"))) << complaint.toStdString();
        }
        d->cmdDown.Click();
        EXPECT_EQ(t.prompts.boxes.size(), ++boxes);
        EXPECT_EQ(one.box.Text(), one.typed);
        EXPECT_EQ(Text(), before);
        one.box.UserTyped(was);
    }
    d->txtNodeText.UserTyped(QStringLiteral("given up"));
    d->cmdCancel.Click();
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(closed, 1);
    t.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_EQ(d->txtNodeText.Text(), QStringLiteral("ink"));
}

TEST_F(EditNodes, OkStaysWithWhatIsRefused) {
    Open();
    const std::string before = Text();
    t.prompts.AllowAnyBox();
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\" size=5"));
    d->cmdOk.Click();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Text(), before);
    EXPECT_EQ(d->txtNodeAttrs.Text(), QStringLiteral("colour=\"red\" size=5"));
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\" size=\"5\""));
    d->cmdOk.Click();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(Has("<pen colour=\"red\" size=\"5\">")) << Text();
}

// One answer for each box that wants it, and the dialog shows what was written.
TEST_F(EditNodes, WhatOnlyWantsEscapingCanBeWrittenSo) {
    Open();
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red & blue\""));
    d->txtNodeText.UserTyped(QStringLiteral("1 < 2"));
    t.prompts.Answer({services::Answer::Yes, services::Answer::No});
    d->cmdDown.Click();
    EXPECT_FALSE(Has("blue")) << "all or nothing: " << Text();
    t.prompts.Answer({services::Answer::Yes, services::Answer::Yes});
    d->cmdDown.Click();
    EXPECT_TRUE(Has("<pen colour=\"red &amp; blue\">1 &lt; 2</pen>")) << Text();
    d->cmdUp.Click();
    EXPECT_EQ(d->txtNodeText.Text(), QStringLiteral("1 &lt; 2"));
    d->optList.UserChose();
    d->cmdRight.Click();
    d->cmdDown.Click();
    d->txtNodeAttrs.UserTyped(QStringLiteral("\"so\""));
    t.prompts.Answer(services::Answer::Yes);
    d->cmdOk.Click();
    EXPECT_TRUE(Has("colour=\"&quot;so&quot;\"")) << Text();
}

// Nothing would end the questions: each of them would be about the same value.
TEST_F(EditNodes, ARefusedValueKeepsItsWindowOpenWhenAllAreClosed) {
    Open();
    d->txtNodeText.UserTyped(QStringLiteral("</pen>"));
    t.prompts.Answer(services::Answer::Ok);
    t.ChooseMenu(QStringLiteral("mnuCloseAll"));
    EXPECT_EQ(t.frame().FormCount(), 1);
    EXPECT_EQ(d->txtNodeText.Text(), QStringLiteral("</pen>"));
}

TEST_F(EditNodes, TheListIsWalkedByRowsAndBackUp) {
    Open("shop");
    d->optList.UserChose();
    EXPECT_FALSE(d->optTree.Value());
    EXPECT_EQ(w->miPopupContext, kContextList);
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("pen"));
    d->cmdRight.Click();
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("pen"));
    d->cmdDown.Click();
    EXPECT_EQ(d->lNodeName.Caption(), QStringLiteral("Attribute Name:"));
    EXPECT_EQ(d->txtNodeAttrs.Text(), QStringLiteral("red"));
    EXPECT_FALSE(d->cmdDown.Enabled());
    d->txtNodeName.UserTyped(QStringLiteral("ink"));
    d->txtNodeAttrs.UserTyped(QStringLiteral("&lt;b&gt;"));
    d->cmdUp.Click();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("Node Text")) << "the row above the renamed one";
    d->cmdDown.Click();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("ink"));
    d->cmdLeft.Click();
    EXPECT_TRUE(Has("<pen ink=\"&lt;b&gt;\">")) << Text();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("pen"));
    EXPECT_EQ(w->tvXML.SelectedItem().Text(), QStringLiteral("shop"));
}

TEST_F(EditNodes, TheDialogEndsWithItsWindowAndSavesBeforeTheQuestion) {
    Open();
    d->txtNodeText.UserTyped(QStringLiteral("last"));
    t.prompts.Answer(services::Answer::Yes);
    EXPECT_TRUE(t.frame().CloseForm(w));
    EXPECT_TRUE(t.folder.Read(QStringLiteral("shop.xml")).contains(">last<"));
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(d->Window(), nullptr);
}

// A box's end makes the dialog active again: one that opened a box then would never let the user go.
TEST_F(EditNodes, ComingBackKeepsWhatIsTypedWithItsNodeAndOpensNoBox) {
    Open();
    const QString typed = QStringLiteral("colour=\"red\" bad");
    for (const bool list : {false, true}) {
        d->txtNodeAttrs.UserTyped(typed);
        for (int times = 0; times < 2; ++times) {
            d->Form_Deactivate();
            t.ClickNode(Named("box"));
            d->Form_Activate();
            EXPECT_EQ(d->txtNodeAttrs.Text(), typed);
            EXPECT_EQ(nodes::GetNodeInHand(*w, list ? kContextList : kContextTree).key, Named("pen").Key());
        }
        d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\""));
        t.ClickNode(Named("shop"));
        d->Form_Activate();
        d->optList.UserChose();
    }
    EXPECT_EQ(w->ListView1.SelectedItem(), 1);
}

TEST_F(EditNodes, WhatWasChangedInTheWindowIsNotWrittenOver) {
    Open();
    d->txtNodeText.UserTyped(QStringLiteral("dry"));
    d->Form_Deactivate();
    Named("pen").SetText(QStringLiteral("quill"));
    d->Form_Activate();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("quill"));
    d->cmdOk.Click();
    EXPECT_TRUE(Has("<quill colour=\"red\">dry</quill>")) << Text();
    // Also where the dialog isn't gone back to first.
    t.ClickNode(Named("quill"));
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    d->txtNodeText.UserTyped(QStringLiteral("wet"));
    d->Form_Deactivate();
    Named("quill").SetTag(QStringLiteral("colour=\"blue\""));
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_TRUE(Has("<quill colour=\"blue\">wet</quill>")) << Text();
}

// The name in hand, the address and the menus belong to the document in front.
TEST_F(EditNodes, TheDialogBringsItsOwnDocumentToTheFront) {
    Open("shop.xml");
    const QString other = t.folder.Write(QStringLiteral("other.xml"), "<other><a/></other>");
    const QString copy = t.folder.Path(QStringLiteral("copy.xml"));
    t.frame().OpenNamed(other);
    d->txtNodeName.UserTyped(copy);
    d->cmdOk.Click();
    EXPECT_EQ(t.frame().ActiveForm(), w);
    EXPECT_EQ(w->Caption, copy);
    EXPECT_EQ(t.frame().cmbAddress().Text(), copy);
    t.ClickNode(Named("pen"));
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    t.frame().OpenNamed(other);
    EXPECT_EQ(t.app().CurrentFileName, other);
    d->Form_Activate();
    EXPECT_EQ(t.frame().ActiveForm(), w);
    EXPECT_EQ(t.app().CurrentFileName, copy);
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("pen")) << "and goes on with its node";
    EXPECT_EQ(w->tvXML.SelectedItem(), Named("pen"));
    EXPECT_EQ(t.folder.Read(QStringLiteral("other.xml")), "<other><a/></other>");
}

TEST_F(EditNodes, TheViewThatHadTheAttentionHasItAgain) {
    Open();
    d->cmdCancel.Click();
    w->tbsXML.Select(QStringLiteral("textview"));
    for (const bool ended : {true, false}) {
        w->rtxtXML.GotFocus();
        w->rtxtXML.UserSelected(w->rtxtXML.Text().indexOf(QStringLiteral("red")), 3);
        t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
        d->Form_Activate();
        if (ended)
            d->cmdCancel.Click();
        else // its window is in front again, and nothing else has happened
            d->Form_Deactivate();
        t.PressButton(QStringLiteral("tbCommonEdit"), QStringLiteral("cut"));
        EXPECT_TRUE(Has("<pen colour=\"\">ink</pen>")) << Text();
        t.ChooseMenu(QStringLiteral("mnuEditUndo"));
        EXPECT_TRUE(Has("<pen colour=\"red\">ink</pen>")) << Text();
    }
}

TEST_F(EditNodes, ATreeThatWasBuiltAnewKeepsTheNodeInHand) {
    Open("box");
    d->txtNodeText.UserTyped(QStringLiteral("full"));
    d->Form_Deactivate();
    t.EditText(QStringLiteral("<shop><lid/><pen colour=\"red\">dry</pen><!--note--><box/></shop>"));
    d->Form_Activate();
    EXPECT_EQ(d->txtNodeText.Text(), QStringLiteral("full"));
    EXPECT_EQ(w->tvXML.SelectedItem(), Named("box"));
    d->cmdUp.Click();
    EXPECT_TRUE(Has("<box>full</box>")) << Text();
    EXPECT_TRUE(Has("dry")) << Text();
    d->optList.UserChose();
    d->Form_Deactivate();
    t.EditText(QStringLiteral("<shop><lid>tin</lid></shop>"));
    d->Form_Activate();
    EXPECT_FALSE(d->txtNodeName.Text().isEmpty()) << "the list was filled anew";
}

TEST_F(EditNodes, WhatWasTypedOutlivesItsNodeUntilCancel) {
    Open();
    const QString typed = QStringLiteral("a long text");
    d->txtNodeText.UserTyped(typed);
    d->Form_Deactivate();
    t.ClickNode(Named("pen"));
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    const std::string before = Text();
    d->Form_Activate();
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());
    t.prompts.Answer(services::Answer::Ok);
    d->cmdDown.Click();
    t.prompts.Answer(services::Answer::Ok);
    d->cmdOk.Click();
    EXPECT_EQ(d->txtNodeText.Text(), typed);
    EXPECT_EQ(closed, 0);
    d->Form_Deactivate();
    t.ChooseMenu(QStringLiteral("mnuEditUndo"));
    d->Form_Activate();
    d->cmdDown.Click();
    EXPECT_TRUE(Has(">a long text</pen>")) << Text();
    EXPECT_FALSE(before.find("pen") != std::string::npos) << before;
    // Cancel ends it, and nothing comes back.
    t.ClickNode(Named("pen"));
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    d->txtNodeText.UserTyped(QStringLiteral("given up"));
    t.ChooseMenu(QStringLiteral("mnuDelete"));
    d->cmdCancel.Click();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(Has("given up"));
}

TEST_F(EditNodes, AnEmptiedTextLeavesTheWalkWhereItIs) {
    Open("z", "<b><z>ink<cap/></z><q>full</q></b>");
    d->txtNodeText.UserTyped({});
    d->cmdDown.Click();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("q"));
    EXPECT_TRUE(Has("<cap>") && !Has("ink")) << Text();
    d->cmdRight.Click();
    d->txtNodeAttrs.UserTyped({});
    d->cmdLeft.Click();
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("q"));
    EXPECT_FALSE(Has("full")) << Text();
}

TEST_F(EditNodes, AMistypedPathStaysWithTheComplaint) {
    Open();
    t.prompts.Answer(services::Answer::Ok);
    const QString typed = QStringLiteral("/shop[1/box");
    d->txtXPath.UserTyped(typed);
    int key = Qt::Key_Return;
    d->txtXPath.KeyDown(key, 0);
    d->Form_Activate();
    EXPECT_EQ(d->txtXPath.Text(), typed);
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());
    d->txtXPath.UserTyped(QStringLiteral("/shop[1]/box"));
    key = Qt::Key_Return;
    d->txtXPath.KeyDown(key, 0);
    EXPECT_EQ(d->txtNodeName.Text(), QStringLiteral("box"));
    EXPECT_EQ(d->txtXPath.Text(), QStringLiteral("/shop[1]/box[1]"));
}

// Nothing of it is in the document: closing must not ask for it, and the caret stands where it stood.
TEST_F(EditNodes, AHalfTypedAttributeThatIsGivenUpLeavesNoMark) {
    Open();
    w->tbsXML.Select(QStringLiteral("textview"));
    w->rtxtXML.GotFocus();
    w->rtxtXML.UserSelected(2, 3);
    t.ChooseMenu(QStringLiteral("mnuEditPopupEditNode"));
    for (const char* ending : {"colour=\"red\"", "colour=\"red\" b=\"1\"", ""}) {
        d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\" b"));
        EXPECT_NE(t.frame().StatusBar1().Panel(1), QString()) << "the complaint";
        EXPECT_FALSE(t.app().lastParseError) << "it is in no document";
        EXPECT_EQ(w->rtxtXML.SelStart(), 2);
        if (*ending)
            d->txtNodeAttrs.UserTyped(QLatin1String(ending));
        else
            d->cmdCancel.Click();
        EXPECT_FALSE(t.app().lastParseError) << ending;
        EXPECT_EQ(w->rtxtXML.SelStart(), 2) << ending;
        EXPECT_EQ(w->rtxtXML.SelLength(), 3) << ending;
    }
    EXPECT_TRUE(t.frame().CloseForm(w));
}

} // namespace
