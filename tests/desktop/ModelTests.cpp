// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ListModel.h"
#include "desktop/nodes/TreeModel.h"
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTreeView>
#include <gtest/gtest.h>
#include <random>

namespace {

using controls::ListView;
using controls::TreeNode;
using controls::TreeUpdate;
using controls::TreeView;
using desktop::ListModel;
using desktop::TreeModel;

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

struct Document : ::testing::Test {
    Document() {
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

TEST_F(Document, tree_model_stays_sound_through_random_edits_under_a_view) {
    TreeModel model(tree);
    const QAbstractItemModelTester tester(&model, kFatal);
    QTreeView view;
    view.setModel(&model);
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
            view.expand(model.IndexOf(node));
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
        }
    }
    while (tree.Nodes.Count() > 0)
        tree.Nodes.Remove(1);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(Document, persistent_indexes_follow_their_node) {
    TreeModel model(tree);
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

TEST_F(Document, only_the_selected_node_shows_its_selected_picture) {
    TreeModel model(tree, [](const QString& picture) { return QVariant(picture); });
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

TEST_F(Document, a_caption_is_one_short_line) {
    const TreeModel model(tree);
    root.SetText(QStringLiteral("a\r\n\tb\u2028c"));
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("a   b c"));
    root.SetText(QString(299, u'x') + QStringLiteral("\U0001F600 and more"));
    EXPECT_EQ(model.index(0, 0).data().toString(), QString(299, u'x')) << "no half of a character at the cut";
}

// A progress bar lets windows repaint while a document is being replaced: the old rows must not be looked up
// then.
TEST_F(Document, old_indexes_are_harmless_while_the_tree_is_replaced) {
    TreeModel model(tree);
    const QModelIndex old = model.IndexOf(add(root, 4));
    const TreeUpdate update(tree);
    tree.Nodes.Clear();
    add({}, 0);
    EXPECT_FALSE(old.data().isValid());
    EXPECT_FALSE(old.parent().isValid());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(Document, a_model_may_go_before_its_tree) {
    { const TreeModel model(tree); }
    add(root, 4);
    tree.Nodes.Clear();
    EXPECT_EQ(tree.Nodes.Count(), 0);
}

TEST(ListModelTest, stays_sound_through_random_edits_under_a_view) {
    ListView list;
    list.ColumnHeaders = QStringList{QStringLiteral("Name"), QStringLiteral("Value"), QStringLiteral("Text")};
    ListModel model(list, [](int kind) { return QVariant(kind); });
    const QAbstractItemModelTester tester(&model, kFatal);
    QTreeView view;
    view.setModel(&model);
    std::mt19937 random(23);
    for (int step = 0; step < 500; ++step) {
        const int row =
            list.Count() == 0 ? 0 : 1 + static_cast<int>(random() % static_cast<unsigned>(list.Count()));
        const auto act = random() % 6;
        if (row > 0 && act < 2)
            list.Remove(row);
        else if (row > 0 && act == 2)
            list.SetSubItem(row, 1 + step % 2, QStringLiteral("line\n%1").arg(step));
        else
            list.Add(row, QString::number(step), QStringLiteral("id%1").arg(step), 2, QStringLiteral("v"));
        if (step % 100 == 99) {
            list.BeginUpdate();
            list.Clear();
            list.Add(0, QStringLiteral("k"), QStringLiteral("only"), 1);
            list.EndUpdate();
        }
        ASSERT_EQ(model.rowCount(), list.Count());
        for (int i = 0; i < list.Count(); ++i) {
            ASSERT_EQ(model.index(i, 0).data().toString(), list.Item(i + 1).Text);
            ASSERT_EQ(model.index(i, 1).data().toString(),
                      QString(list.Item(i + 1).Sub[0]).replace(u'\n', u' '));
            ASSERT_EQ(model.index(i, 0).data(Qt::DecorationRole).toInt(), list.Item(i + 1).SmallIcon);
        }
    }
    EXPECT_EQ(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Text"));
}

// Typed letters that match nothing would make a million rows otherwise.
TEST(ListModelTest, searching_by_letters_makes_no_rows) {
    const QStringList names{QStringLiteral("Tee"), QStringLiteral("pen\nred"), QStringLiteral("Teapot")};
    int made = 0;
    ListView list;
    list.Fill(
        300,
        [&](std::uint32_t i) {
            ++made;
            return controls::ListItem{QString::number(i), names[i % 3], 1, 1, {}, {}};
        },
        [](const QString&) { return -1; },
        [&](std::uint32_t i, int) {
            const QString& name = names[i % 3];
            return text::CompactView{reinterpret_cast<const unsigned char*>(name.utf16()),
                                     static_cast<std::uint32_t>(name.size()), true};
        });
    const ListModel model(list);
    const auto find = [&](int from, const char* typed) {
        const QModelIndexList found =
            model.match(model.index(from, 0), Qt::DisplayRole, QString::fromLatin1(typed));
        return found.isEmpty() ? -1 : found.front().row();
    };
    EXPECT_EQ(find(5, "x"), -1);
    EXPECT_EQ(find(0, "TEA"), 2);
    EXPECT_EQ(find(299, "pen R"), 1) << "goes on at the top; a line end is shown as a blank";
    EXPECT_EQ(find(4, "pen red pen"), -1) << "longer than the name";
    EXPECT_EQ(made, 0);
    list.Item(5); // "pen\nred" is looked at
    EXPECT_EQ(find(4, "Pen"), 4);
}

} // namespace
