// SPDX-License-Identifier: GPL-3.0-or-later
// The one-by-one editor, opened from its menu entry and worked through its controls.
#include "core/model/m_tvXML.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

constexpr char kShop[] = "<shop><pen colour=\"red\">ink</pen><!--note--><box/></shop>";

struct EditNodes : testing::Test {
    TestApp t;
    DocumentWindow* w = nullptr;
    frmEditNodes* d = nullptr;
    int closed = 0;

    void Open(const char* node = "pen", const char* text = kShop) {
        w = &t.OpenText(QStringLiteral("shop.xml"), text);
        t.frame().editNodesShown.connect([this](frmEditNodes& form) { d = &form; });
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
    EXPECT_EQ(w->UndoPos, 1);
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

// OK closes whatever becomes of the node; what could not be written isn't lost with the dialog.
TEST_F(EditNodes, WhatOkCouldNotWriteComesBackWithItsNode) {
    Open();
    const std::string before = Text();
    t.prompts.AllowAnyBox();
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\" size=5"));
    d->cmdOk.Click();
    EXPECT_EQ(t.prompts.boxes.size(), 1U);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Text(), before);
    t.ClickNode(Named("box"));
    t.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_EQ(d->txtNodeAttrs.Text(), QString()) << "another node";
    d->cmdOk.Click();
    t.ClickNode(Named("pen"));
    t.frame().RunMenuCommand(QStringLiteral("mnuEditPopupEditNode"));
    EXPECT_EQ(d->txtNodeAttrs.Text(), QStringLiteral("colour=\"red\" size=5"));
    d->txtNodeAttrs.UserTyped(QStringLiteral("colour=\"red\" size=\"5\""));
    d->cmdOk.Click();
    EXPECT_TRUE(Has("<pen colour=\"red\" size=\"5\">")) << Text();
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

} // namespace
