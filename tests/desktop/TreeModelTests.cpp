// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeWidget.h"
#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::TreeNode;
using controls::TreeUpdate;
using controls::TreeView;

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

struct TreeModel : ::testing::Test {
    TreeModel() {
        tree.ImageList = QStringList{QStringLiteral("element"), QStringLiteral("openelement")};
        root = add({}, 0);
    }
    TreeNode add(TreeNode relative, int relationship) {
        const QString key = QStringLiteral("<1>%1").arg(++serial);
        return tree.Nodes.Add(relative, relationship, key, QStringLiteral("item ") + key,
                              QStringLiteral("element"), QStringLiteral("openelement"));
    }
    TreeNode any() {
        return tree.Nodes(1 + static_cast<int>(random() % static_cast<unsigned>(tree.Nodes.Count())));
    }
    // Moves a node without its children, as the commands do: away with it, and a new one elsewhere.
    void move(TreeNode node) {
        const QString text = node.Text();
        tree.Nodes.Remove(node);
        add(any(), 1 + static_cast<int>(random() % 4)).SetText(text);
    }
    TreeView tree;
    TreeNode root;
    int serial = 0;
    std::mt19937 random{17};
};

// What a view shows: all texts in order, indented by depth.
void Texts(const QAbstractItemModel& model, const QModelIndex& parent, int depth, QStringList& out) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        out << QString(depth, u' ') + index.data().toString();
        Texts(model, index, depth + 1, out);
    }
}

void Texts(TreeNode node, int depth, QStringList& out) {
    for (; node; node = node.Next()) {
        out << QString(depth, u' ') + node.Text();
        Texts(node.Child(), depth + 1, out);
    }
}

void ExpectOpenRows(const desktop::TreeWidget& view) {
    QList<QModelIndex> open;
    const std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
        for (int row = 0; row < view.model()->rowCount(parent); ++row) {
            open << view.model()->index(row, 0, parent);
            if (view.isExpanded(open.constLast()))
                walk(view.model()->index(row, 0, parent));
        }
    };
    walk({});
    ASSERT_EQ(view.rowCount(), open.size());
    for (int row = 0; row < view.rowCount(); ++row)
        ASSERT_EQ(view.indexAtRow(row), open[row]);
}

TEST_F(TreeModel, StaysSoundThroughRandomEditsUnderAView) {
    desktop::TreeModel model(tree);
    const QAbstractItemModelTester tester(&model, kFatal);
    desktop::TreeWidget view;
    view.setModel(&model);
    view.show();
    for (int step = 0; step < 600; ++step) {
        TreeNode node = any();
        switch (random() % 8) {
        case 0:
            if (node != root)
                tree.Nodes.Remove(node);
            break;
        case 1:
            if (node != root)
                move(node);
            break;
        case 2:
            node.SetText(QStringLiteral("renamed %1").arg(step));
            break;
        case 3:
            tree.SetSelectedItem(node);
            break;
        case 4:
            node.SetExpanded(!node.Expanded());
            break;
        default:
            add(node, 1 + static_cast<int>(random() % 4));
        }
        if (step % 150 == 149) { // the whole document is read again
            const TreeUpdate update(tree);
            tree.Nodes.Clear();
            root = add({}, 0);
            for (int i = 0; i < 20; ++i)
                add(any(), 4);
        }
        if (step % 25 == 0) {
            QStringList shown, wanted;
            Texts(model, {}, 0, shown);
            Texts(root.Root(), 0, wanted);
            ASSERT_EQ(shown, wanted) << "after step " << step;
            ExpectOpenRows(view);
            QCoreApplication::processEvents(); // it is painted
        }
    }
    while (tree.Nodes.Count() > 0)
        tree.Nodes.Remove(1);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(TreeModel, PersistentIndexesFollowTheirNode) {
    desktop::TreeModel model(tree);
    add(root, 4);
    const TreeNode node = add(root, 4), child = add(node, 4);
    const QPersistentModelIndex ofNode(model.IndexOf(node)), ofChild(model.IndexOf(child));
    add(node, 3);
    tree.Nodes.Remove(root.Child());
    tree.Nodes.Remove(root.Child());
    EXPECT_EQ(ofNode.row(), 0);
    EXPECT_EQ(model.NodeAt(ofChild), child);
    EXPECT_EQ(ofChild.parent(), ofNode);
    tree.Nodes.Remove(node);
    EXPECT_FALSE(ofChild.isValid());
}

TEST_F(TreeModel, OnlyTheSelectedNodeShowsItsSelectedPicture) {
    desktop::TreeModel model(tree, [](const QString& picture) { return QVariant(picture); });
    const TreeNode first = add(root, 4), second = add(root, 4);
    auto picture = [&](TreeNode node) { return model.IndexOf(node).data(Qt::DecorationRole).toString(); };
    tree.SetSelectedItem(first);
    QSignalSpy repaints(&model, &QAbstractItemModel::dataChanged);
    tree.SetSelectedItem(second);
    EXPECT_EQ(picture(first), QStringLiteral("element"));
    EXPECT_EQ(picture(second), QStringLiteral("openelement"));
    QList<QModelIndex> repainted;
    for (const auto& repaint : repaints)
        repainted << repaint[0].toModelIndex();
    EXPECT_TRUE(repainted.contains(model.IndexOf(first)) && repainted.contains(model.IndexOf(second)));
    tree.Nodes.Remove(second); // the selection moves on, and the picture with it
    EXPECT_EQ(picture(first), QStringLiteral("openelement"));
}

TEST_F(TreeModel, ACaptionIsOneShortLine) {
    const desktop::TreeModel model(tree);
    root.SetText(QStringLiteral("a\r\n\tb\u2028c"));
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("a   b c"));
    root.SetText(QString(299, u'x') + QStringLiteral("\U0001F600 and more"));
    EXPECT_EQ(model.index(0, 0).data().toString(), QString(299, u'x')) << "no half of a character at the cut";
}

// A progress bar lets windows repaint while a document is being replaced: the old rows must not be looked up
// then.
TEST_F(TreeModel, OldIndexesAreHarmlessWhileTheTreeIsReplaced) {
    desktop::TreeModel model(tree);
    const QModelIndex old = model.IndexOf(add(root, 4));
    const TreeUpdate update(tree);
    tree.Nodes.Clear();
    add({}, 0);
    EXPECT_FALSE(old.data().isValid());
    EXPECT_FALSE(old.parent().isValid());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(TreeModel, AModelMayGoBeforeItsTree) {
    { const desktop::TreeModel model(tree); }
    add(root, 4);
    tree.Nodes.Clear();
    EXPECT_EQ(tree.Nodes.Count(), 0);
}

} // namespace
