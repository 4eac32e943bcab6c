// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree, and which entries and buttons can be chosen when.
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "tests/support/TestApp.h"
#include <QSet>
#include <gtest/gtest.h>

namespace {

using controls::TreeNode;
using test::TestApp;

QString Outline(const controls::MenuItem& menu) {
    QStringList captions;
    for (const auto& item : menu.Items)
        captions << (item->separator ? QStringLiteral("-") : item->Caption());
    return menu.Caption() + QStringLiteral(": ") + captions.join(QStringLiteral(", "));
}

TEST(Menus, HaveTheirEntriesInOrder) {
    TestApp t;
    const char* expected[] = {
        "文件(&F): 新建XML文件(&N), 新建Schema文件, 打开(&O)..., 关闭(&C), 关闭所有窗口, -, 保存(&S), "
        "另存为, "
        "保存所有文件(&A), -, 页面设置(&s)..., 打印(&P)..., -, , , , , -, 退出(&X)",
        "编辑(&E): 撤消(&U), 重复(&R), -, 剪切(&u), 复制(&C), 粘贴(&P), 删除, -, 重命名, 编辑值, 上一节点, "
        "下一节点, -, "
        "弹出编辑, 全选(&A), 查找替换(&F)..., 对比编辑, 复制TableView数据到HTML表格",
        "XML(&X): 新建子节点, 新建节点, 新建属性, 新建节点文本, 新建注释, -, 升序排列, 降序排列, -, "
        "打开相应Schema, 应用Schema, "
        "验证XML, 在文本视图中添加节点的结束标记, 生成Schema, 根据数据库Schema导入XML",
        "S&chema: 通过Schema生成XML, -, 启用微软SQL Server Schema扩展, 启用Oracle Schema扩展",
        "&Schema设计",
        "视图(&V): 列表视图, 表格视图, 图表类型, 文本视图, Schema实例图, 浏览器视图, Schema视图",
        "工具(&T): 导入文本文件, 导入数据库数据, 创建数据库Schema, 按Schema创建数据结构, 导出到文本文件, "
        "导出到数据库, "
        "HTML/XML to XML/HTML, -, (&O)选项..., -, 发布到WWW服务器, 版本控制",
        "窗口(&W): 拆分, -, (&C)层叠, (&H)水平平铺, (&V)垂直平铺, (&A)排列图标",
        "帮助(&H): Vantrel 帮助, 在线帮助, -, 关于Vantrel(&A)",
        "Popup: 新建子结点, 新建结点, 新建属性, 新建节点文本, 新建注释, -, 剪切(&u), 复制(&C), 粘贴(&P), "
        "删除, -, 重命名, 编辑值",
    };
    ASSERT_EQ(t.frame().Menus.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(Outline(*t.frame().Menus[i]).left(QString::fromUtf8(expected[i]).size()).toStdString(),
                  expected[i]);
}

TEST(Menus, NoNameAndNoShortcutIsUsedTwice) {
    TestApp t;
    QSet<QString> names, shortcuts;
    for (const controls::MenuItem* item : t.frame().MenuEntries()) {
        const QString name = QStringLiteral("%1 %2").arg(item->Name).arg(item->Index);
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names << name;
        EXPECT_TRUE(item->Shortcut.isEmpty() || !shortcuts.contains(item->Shortcut))
            << item->Shortcut.toStdString();
        shortcuts << item->Shortcut;
    }
    EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuViewChart"), 11).Caption(), QStringLiteral("二维XY"));
    EXPECT_EQ(t.frame().Menu(QStringLiteral("mnuXSD")).Items.size(), 43u); // 42 elements and "(none)"
    EXPECT_THROW(t.frame().Menu(QStringLiteral("mnuViewChart"), 12), text::Fault);
}

TEST(Menus, WithoutAWindowOnlyWhatNeedsNoneIsEnabled) {
    TestApp t;
    const QSet<QString> needsNone = {QStringLiteral("mnuFile"),         QStringLiteral("mnuFileNew"),
                                     QStringLiteral("mnuNewschema"),    QStringLiteral("mnuFileOpen"),
                                     QStringLiteral("mnuFileExit"),     QStringLiteral("mnuFileMRU"),
                                     QStringLiteral("mnuXSD"),          QStringLiteral("mnuEdit"),
                                     QStringLiteral("mnuXML"),          QStringLiteral("mnuWindow"),
                                     QStringLiteral("mnuSchema"),       QStringLiteral("mnuHelp"),
                                     QStringLiteral("mnuHelpContents"), QStringLiteral("mnuShowonlinehelp"),
                                     QStringLiteral("mnuHelpAbout"),    QStringLiteral("mnuTool"),
                                     QStringLiteral("mnuTImpText"),     QStringLiteral("mnuTImpDbData"),
                                     QStringLiteral("mnuSCds"),         QStringLiteral("mnuToolOptions")};
    const auto enabled = [&t] {
        QSet<QString> names;
        for (const controls::MenuItem* item : t.frame().MenuEntries())
            if (item->Enabled())
                names << item->Name;
        return names;
    };
    EXPECT_EQ(enabled(), needsNone);
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    EXPECT_NE(enabled(), needsNone);
    t.ChooseMenu(QStringLiteral("mnuFileClose"));
    EXPECT_EQ(enabled(), needsNone);
    for (const char* key : {"savefile", "listview"})
        EXPECT_FALSE(
            t.frame().ToolbarByName(QStringLiteral("tbFileEdit")).Button(QLatin1String(key)).Enabled());
    EXPECT_TRUE(
        t.frame().ToolbarByName(QStringLiteral("tbFileEdit")).Button(QStringLiteral("openfile")).Usable());
}

TEST(Menus, FollowTheKindOfTheWindowInFront) {
    TestApp t;
    DocumentWindow& xml = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.ChooseMenu(QStringLiteral("mnuNewschema"));
    const auto state = [&t](const char* name) { return t.frame().Menu(QLatin1String(name)).Enabled(); };
    for (const char* name : {"mnuSchema", "mnuXSD", "mnuViewCompact"})
        EXPECT_TRUE(state(name)) << name;
    for (const char* name :
         {"mnuGotoSchema", "mnuGenSchema", "mnuApplySchema", "mnuViewSchema", "mnuTExpToText"})
        EXPECT_FALSE(state(name)) << name;
    t.frame().ActivateForm(&xml);
    for (const char* name : {"mnuSchema", "mnuXSD", "mnuViewCompact", "mnuTCDBSOnSchema", "mnuTHtmlToXml2"})
        EXPECT_FALSE(state(name)) << name;
    for (const char* name :
         {"mnuGotoSchema", "mnuGenSchema", "mnuApplySchema", "mnuViewSchema", "mnuTExpToText"})
        EXPECT_TRUE(state(name)) << name;
}

/// The states of the entries that depend on the node, as letters: sub-node, node, attribute, text, comment,
/// name, value, delete.
QString NodeStates(TestApp& t) {
    QString letters;
    for (const char* name : {"mnuNewCNode", "mnuNewNode", "mnuNewAttr", "mnuNewNodeText", "mnuNewComment",
                             "mnuEditName", "mnuEditValue", "mnuDelete"})
        letters += t.frame().Menu(QLatin1String(name)).Enabled() ? QLatin1Char('E') : QLatin1Char('D');
    return letters;
}

TEST(Menus, OfferWhatTheCurrentNodeAllows) {
    TestApp t;
    const DocumentWindow& w =
        t.OpenText(QStringLiteral("a.xml"), "<!--top--><?style a?><a><b>words</b><!--note--><?page 2?></a>");
    const TreeNode root = w.tvXML.Nodes(1);
    const TreeNode comment = root.Child();
    const TreeNode element = comment.Next().Next();
    const TreeNode child = element.Child();
    struct Case {
        const char* what;
        TreeNode node;
        const char* states;
    };
    const Case cases[] = {
        {"tree root", root, "DDDDEEDD"},
        {"comment at the root", comment, "DDDDEDEE"},
        {"instruction at the root", comment.Next(), "DDDDEDEE"},
        {"root element", element, "EDDDEEEE"},
        {"element", child, "EEEEEEEE"},
        {"text", child.Child(), "DEDDEDEE"},
        {"comment", child.Next(), "DEDDEDEE"},
        {"instruction", child.Next().Next(), "DEDDEDEE"},
    };
    for (const Case& c : cases) {
        t.ClickNode(c.node);
        EXPECT_EQ(NodeStates(t), QLatin1String(c.states)) << c.what;
    }
    // Attributes and text of the root element are within reach of the context menu.
    t.ClickNode(element);
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewAttrP")).Enabled());
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewNodeTextP")).Enabled());
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNewNodeP")).Enabled());
}

TEST(Menus, ADocumentWithoutRootElementOffersOne) {
    TestApp t;
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    t.ClickNode(t.window().tvXML.Nodes(1));
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewCNode")).Enabled());
    EXPECT_TRUE(t.frame().Menu(QStringLiteral("mnuNewCNodeP")).Enabled());
}

TEST(Menus, AViewIsShownOnlyWhereTheWindowHasIt) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    t.ChooseMenu(QStringLiteral("mnuViewText"));
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
    EXPECT_FALSE(t.frame().Menu(QStringLiteral("mnuNewCNode")).Enabled());
    t.frame().Menu(QStringLiteral("mnuViewCompact")).Click(); // an XML window has no compact view
    EXPECT_EQ(t.window().tbsXML.SelectedKey(), QStringLiteral("textview"));
    t.ChooseMenu(QStringLiteral("mnuViewList"));
    EXPECT_EQ(edit::miCurrentView(t.window()), edit::kViewList);
}

TEST(Toolbars, UpOneLevelGoesToTheParentAndStopsAtTheRoot) {
    TestApp t;
    const DocumentWindow& w = t.OpenText(QStringLiteral("a.xml"), "<a><b/></a>");
    const TreeNode element = w.tvXML.Nodes(1).Child();
    t.ClickNode(element.Child());
    for (const TreeNode& parent : {element, w.tvXML.Nodes(1)}) {
        t.PressButton(QStringLiteral("tbListEdit"), QStringLiteral("uponelevel"));
        EXPECT_EQ(w.tvXML.SelectedItem(), parent);
    }
    edit::DoTree(t.window());
    EXPECT_FALSE(
        t.frame().ToolbarByName(QStringLiteral("tbListEdit")).Button(QStringLiteral("uponelevel")).Usable());
}

TEST(Toolbars, TheDropDownSetsTheStyleOfTheList) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    for (const auto& [entry, style] : {std::pair{"icons", controls::lvwIcon},
                                       {"list", controls::lvwList},
                                       {"details", controls::lvwReport}}) {
        t.PressButton(QStringLiteral("tbFileEdit"), QStringLiteral("listview"), QLatin1String(entry));
        EXPECT_EQ(t.window().ListView1.View(), style) << entry;
    }
}

TEST(Windows, ArrangingIsTheSkinsAffairByCode) {
    TestApp t;
    t.OpenText(QStringLiteral("a.xml"), "<a/>");
    std::vector<int> codes;
    t.frame().arranged.connect([&](int code) { codes.push_back(code); });
    for (const char* name :
         {"mnuWindowCascade", "mnuWindowTileHorizontal", "mnuWindowTileVertical", "mnuWindowArrangeIcons"})
        t.ChooseMenu(QLatin1String(name));
    EXPECT_EQ(codes, std::vector<int>({0, 1, 2, 3}));
}

} // namespace
