// SPDX-License-Identifier: GPL-3.0-or-later
// Times the tree's widget on a document with everything open: bench_tree FILE. Each act ends when the tree is
// painted again. Without a screen: QT_QPA_PLATFORM=offscreen.
#include "bench/Quiet.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeNumbers.h"
#include "desktop/nodes/TreeAdapter.h"
#include "nodes/DeleteNodes.h"
#include "nodes/MoveNodes.h"
#include "textview/Undo.h"
#include <QApplication>

namespace {

using controls::TreeNode;

void Paint(desktop::TreeWidget& view) {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    view.viewport()->repaint();
}

template <typename Act> void Time(desktop::TreeWidget& view, const char* what, Act act) {
    const double took = bench::Milliseconds([&] {
        act();
        Paint(view);
    });
    std::printf("%s: %.0f ms\n", what, took);
    std::fflush(stdout);
}

/// The middle child of the root element.
TreeNode Middle(DocumentWindow& window) {
    TreeNode node = m_tvXML::FirstElement(window.tvXML.Nodes(1).Child()).Child();
    TreeNode ahead = node;
    while (ahead.Next() && ahead.Next().Next()) {
        ahead = ahead.Next().Next();
        node = node.Next();
    }
    return node;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    bench::Quiet quiet(argc, argv, "bench_tree FILE");
    DocumentWindow& window = quiet.window();
    desktop::TreeWidget view;
    view.resize(400, 700);
    const desktop::TreeAdapter adapter(window.tvXML, view, nullptr);
    view.expandRecursively(view.model()->index(0, 0));
    Time(view, "show", [&] { view.show(); });
    Time(view, "select", [&] { edit::SelectNode(window, Middle(window)); });
    Time(view, "move down", [&] { nodes::MoveUpDownOneNodeAtTree(window, false); });
    Time(view, "move up", [&] { nodes::MoveUpDownOneNodeAtTree(window, true); });
    Time(view, "delete", [&] { nodes::DeleteTreeNode(window); });
    Time(view, "delete", [&] { nodes::DeleteTreeNode(window); });
    Time(view, "undo, and the tree from it", [&] {
        textview::rUndo(window);
        textview::FollowSteps(window);
    });
    return 0;
}
