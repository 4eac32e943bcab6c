// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeFiller.h"
#include "platform/text/Fault.h"
#include <gtest/gtest.h>

namespace {

using namespace controls;

template <typename Act> int FaultOf(Act act) {
    try {
        act();
    } catch (const text::Fault& fault) {
        return fault.Number;
    }
    return 0;
}

struct Tree : ::testing::Test {
    Tree() {
        tree.ImageList = QStringList{QStringLiteral("element"), QStringLiteral("openelement")};
        root =
            tree.Nodes.Add({}, 0, QStringLiteral("/home/u/books.xml"), QStringLiteral("/home/u/books.xml"));
    }
    TreeNode add(TreeNode parent, const QString& key, const QString& text = QStringLiteral("book")) {
        return tree.Nodes.Add(parent, tvwChild, key, text);
    }
    TreeView tree;
    TreeNode root;
};

TEST_F(Tree, KeysOfAnyShapeAreFoundAndComeBackAsTheyWereGiven) {
    const QStringList keys =
        QStringLiteral(
            "<1>42|<3>42|<8>42|<01>42|<1>042|<1> 42|<1>|<>42|<1>0|"
            "<254>1|<255>1|<300>1|<1>4294967295|<1>4294967296|<1>99999999999999999999|<1>42/id| |<1>٤٢|<")
            .split(u'|');
    for (const QString& key : keys)
        add(root, key, key);
    for (const QString& key : keys) {
        EXPECT_EQ(tree.Nodes(key).Text(), key);
        EXPECT_EQ(tree.Nodes(key).Key(), key);
        EXPECT_EQ(FaultOf([&] { add(root, key); }), text::kFaultKeyNotUnique) << qPrintable(key);
    }
    EXPECT_EQ(tree.Nodes(QStringLiteral("<8>42")).KeyKind(), 8);
    EXPECT_EQ(tree.Nodes(QStringLiteral("<01>42")).KeyKind(), -1);
    EXPECT_TRUE(tree.Nodes.Find(QStringLiteral("<4>42")).IsNothing());
}

TEST_F(Tree, AKeyIsFreeAgainAfterItsNodeWasRemovedOrRenamed) {
    for (const QString& key : {QStringLiteral("<1>7"), QStringLiteral("<3>7"), QStringLiteral("c:\\a.xml")})
        add(root, key);
    tree.Nodes.Remove(QStringLiteral("<3>7"));
    EXPECT_FALSE(tree.Nodes.Find(QStringLiteral("<3>7")));
    add(root, QStringLiteral("<3>7"));
    tree.Nodes.Remove(QStringLiteral("<1>7")); // its serial stays in use by the other kind
    EXPECT_FALSE(tree.Nodes.Find(QStringLiteral("<1>7")));
    EXPECT_EQ(tree.Nodes(QStringLiteral("<3>7")).Key(), QStringLiteral("<3>7"));
    add(root, QStringLiteral("<1>7"), QStringLiteral("again"));
    EXPECT_EQ(tree.Nodes(QStringLiteral("<1>7")).Text(), QStringLiteral("again"));

    tree.Nodes(QStringLiteral("c:\\a.xml")).SetKey(QStringLiteral("<1>8"));
    EXPECT_FALSE(tree.Nodes.Find(QStringLiteral("c:\\a.xml")));
    EXPECT_EQ(FaultOf([&] { tree.Nodes(QStringLiteral("<3>7")).SetKey(QStringLiteral("<1>8")); }),
              text::kFaultKeyNotUnique);
    tree.Nodes(QStringLiteral("<1>8")).SetKey(QStringLiteral("c:\\b.xml"));
    EXPECT_EQ(tree.Nodes(QStringLiteral("c:\\b.xml")).Row(), 0);
}

TEST_F(Tree, MisuseThrowsTheFaultTheCommandsExpectAndAddsNothing) {
    TreeNode node = add(root, QStringLiteral("<1>1"));
    TreeView other;
    EXPECT_EQ(FaultOf([&] { add(root, QString()); }), text::kFaultInvalidKey);
    EXPECT_EQ(FaultOf([&] { node.SetKey(QString()); }), text::kFaultInvalidKey);
    EXPECT_EQ(FaultOf([&] {
                  tree.Nodes.Add(root, tvwChild, QStringLiteral("<5>2"), QStringLiteral("x"),
                                 QStringLiteral("openentity"));
              }),
              text::kFaultNotFound);
    EXPECT_EQ(FaultOf([&] { tree.Nodes(QStringLiteral("<1>2")); }), text::kFaultNotFound);
    EXPECT_EQ(FaultOf([&] { tree.Nodes(0); }), text::kFaultOutOfBounds);
    EXPECT_EQ(FaultOf([&] { tree.Nodes(3); }), text::kFaultOutOfBounds);
    EXPECT_EQ(FaultOf([&] { tree.Nodes.Remove(TreeNode()); }), text::kFaultNothing);
    EXPECT_EQ(FaultOf([&] { other.SetSelectedItem(node); }), text::kFaultBadCall);
    EXPECT_EQ(FaultOf([&] { TreeFiller(tree, root); }), text::kFaultBadCall) << "outside an update";
    EXPECT_EQ(tree.Nodes.Count(), 2);
}

TEST_F(Tree, AHandleOfARemovedNodeIsNothingForEver) {
    const TreeNode parent = add(root, QStringLiteral("<1>1")), child = add(parent, QStringLiteral("<1>2"));
    tree.Nodes.Remove(parent);
    EXPECT_TRUE(child.IsNothing());
    EXPECT_EQ(child.Data(), nullptr);
    EXPECT_EQ(FaultOf([&] { (void)child.Text(); }), text::kFaultNothing);
    EXPECT_EQ(FaultOf([&] { tree.Nodes.Add(child, tvwNext, QStringLiteral("<1>3"), QString()); }),
              text::kFaultNothing);
    tree.Nodes.Remove(1);
    tree.Nodes.Add({}, 0, QStringLiteral("/new.xml"), QString());
    EXPECT_TRUE(root.IsNothing()) << "a new tree reuses the place of the old root";
}

TEST_F(Tree, SelectionGoesToNextThenPreviousThenParentWhenItsNodeGoes) {
    const TreeNode parent = add(root, QStringLiteral("<1>1"));
    const TreeNode a = add(parent, QStringLiteral("<1>2")), b = add(parent, QStringLiteral("<1>3")),
                   c = add(parent, QStringLiteral("<1>4"));
    std::vector<TreeNode> told;
    tree.selectionChanged.connect([&](TreeNode node) { told.push_back(node); });
    tree.SetSelectedItem(add(b, QStringLiteral("<1>5"))); // a descendant of what goes
    tree.SetSelectedItem(tree.SelectedItem());
    tree.Nodes.Remove(b);
    EXPECT_EQ(tree.SelectedItem(), c);
    EXPECT_TRUE(c.Selected());
    tree.Nodes.Remove(c);
    EXPECT_EQ(tree.SelectedItem(), a);
    tree.Nodes.Remove(a);
    EXPECT_EQ(tree.SelectedItem(), parent);
    tree.Nodes.Remove(1);
    EXPECT_TRUE(tree.SelectedItem().IsNothing());
    ASSERT_EQ(told.size(), 5u) << "one for each change, none for the same node again";
    EXPECT_EQ(told[1], c);
    EXPECT_TRUE(told[4].IsNothing());
}

TEST_F(Tree, EachChangeIsAnnouncedOnceAndASetterThatChangesNothingIsSilent) {
    QStringList log;
    auto name = [](TreeNode node) { return node ? node.Key() : QStringLiteral("-"); };
    auto rows = [&](const char* what) {
        return [&log, what, name](TreeNode parent, int first, int) {
            log << QStringLiteral("%1 %2 %3").arg(QLatin1String(what), name(parent)).arg(first);
        };
    };
    auto one = [&](const char* what) {
        return [&log, what, name](TreeNode node) { log << QLatin1String(what) + u' ' + name(node); };
    };
    tree.aboutToInsert.connect(rows("insert"));
    tree.inserted.connect(rows("inserted"));
    tree.aboutToRemove.connect(rows("remove"));
    tree.removed.connect(rows("removed"));
    tree.changed.connect(one("changed"));
    tree.expandedChanged.connect(one("expanded"));
    tree.ensureVisible.connect(one("show"));
    tree.aboutToReset.connect([&] { log << QStringLiteral("reset"); });
    tree.reset.connect([&] { log << QStringLiteral("done"); });
    auto expect = [&](const QStringList& expected) {
        EXPECT_EQ(log.join(u','), expected.join(u','));
        log.clear();
    };
    root.SetKey(QStringLiteral("r"));
    TreeNode a = add(root, QStringLiteral("a")), b = add(a, QStringLiteral("b"));
    tree.Nodes.Add(b, tvwPrevious, QStringLiteral("c"), QStringLiteral("c"));
    expect({QStringLiteral("insert r 0"), QStringLiteral("inserted r 0"), QStringLiteral("insert a 0"),
            QStringLiteral("inserted a 0"), QStringLiteral("insert a 0"), QStringLiteral("inserted a 0")});
    for (int twice = 0; twice < 2; ++twice) {
        b.SetText(QStringLiteral("title"));
        b.SetTag(QStringLiteral("lang=\"de\""));
        b.SetImage(QStringLiteral("element"));
        tree.SetTextFromTag(b, 4);
        b.SetText(QStringLiteral("lang..."));
        b.EnsureVisible();
        if (twice == 0)
            expect({QStringLiteral("changed b"), QStringLiteral("changed b"), QStringLiteral("changed b"),
                    QStringLiteral("changed b"), QStringLiteral("expanded a"), QStringLiteral("expanded r"),
                    QStringLiteral("show b")});
        else // the text goes to and fro, the rest stays
            expect({QStringLiteral("changed b"), QStringLiteral("changed b"), QStringLiteral("show b")});
    }
    tree.Nodes.Remove(b);
    expect({QStringLiteral("remove a 1"), QStringLiteral("removed a 1")});
    {
        const TreeUpdate outer(tree), inner(tree);
        TreeFiller filler(tree, root);
        filler.append(filler.top(), 1, 9, tree.InternText(QStringLiteral("book")), 1, 2);
        a.SetText(QStringLiteral("x"));
        a.SetExpanded(false);
        tree.SetSelectedItem(a);
        tree.Nodes.Remove(a);
    }
    expect({QStringLiteral("reset"), QStringLiteral("done")});
    EXPECT_EQ(tree.Nodes(QStringLiteral("<1>9")).SelectedImage(), QStringLiteral("openelement"));
    tree.Nodes.Clear();
    tree.Nodes.Clear();
    expect({QStringLiteral("reset"), QStringLiteral("done")});
}

TEST_F(Tree, ATextMadeOfTheTagIsCutBehindTheLengthOnly) {
    TreeNode node = add(root, QStringLiteral("<3>1"));
    node.SetTag(QStringLiteral("Größe"));
    tree.SetTextFromTag(node, 5);
    EXPECT_EQ(node.Text(), QStringLiteral("Größe"));
    tree.SetTextFromTag(node, 4);
    EXPECT_EQ(node.Text(), QStringLiteral("Größ..."));
    node.SetTag(QStringLiteral("名称 und Wert"));
    tree.SetTextFromTag(node, 2);
    EXPECT_EQ(node.Text(), QStringLiteral("名称..."));
    tree.SetTextFromTag(node, 50);
    node.SetTag(QStringLiteral("other"));
    EXPECT_EQ(node.Text(), QStringLiteral("名称 und Wert"))
        << "a text that shared the tag's storage keeps its own value";
}

TEST_F(Tree, NamesThatWereInternedAreToldApartByNumber) {
    const TreeUpdate update(tree);
    const auto book = tree.InternText(QStringLiteral("book")),
               title = tree.InternText(QStringLiteral("title"));
    TreeFiller filler(tree, root);
    const TreeFiller::Slot shelf = filler.append(filler.top(), 1, 1, book, 1, 2);
    filler.append(shelf, 1, 2, title, 1, 2);
    filler.append(filler.top(), 1, 3, tree.InternText(QStringLiteral("book")), 1, 2);
    const TreeNode first = tree.Nodes(2), second = tree.Nodes(3), third = tree.Nodes(4);
    EXPECT_EQ(second.Parent(), first);
    EXPECT_EQ(first.Next(), third);
    EXPECT_EQ(first.TextId(), third.TextId());
    EXPECT_NE(first.TextId(), second.TextId());
    EXPECT_EQ(third.Text(), QStringLiteral("book"));
    EXPECT_EQ(FaultOf([&] { filler.append(shelf, 1, 3, book, 1, 2); }), text::kFaultKeyNotUnique);
    EXPECT_EQ(FaultOf([&] { filler.append(shelf, 1, 4, book, 3, 2); }), text::kFaultNotFound);
    EXPECT_EQ(tree.Nodes.Count(), 4);
}

} // namespace
