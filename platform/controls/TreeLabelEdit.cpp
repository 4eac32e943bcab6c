// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/TreeView.h"
#include <utility>

namespace controls {

bool TreeView::StartLabelEdit() {
    const TreeNode node = SelectedItem();
    if (!node || labelEdit_)
        return false;
    bool cancel = false;
    BeforeLabelEdit(cancel);
    if (cancel || !node)
        return false;
    TreeNode shown = node;
    shown.EnsureVisible();
    labelEdit_ = node;
    labelEditStarted(node);
    return true;
}

void TreeView::EndLabelEdit(const QString& text) {
    TreeNode node = std::exchange(labelEdit_, {});
    labelKept_ = false;
    labelEditEnded();
    if (!node)
        return;
    bool cancel = false;
    QString newText = text;
    if (text.isEmpty() || !(node.TextView() == QStringView(text)))
        AfterLabelEdit(node, cancel, newText);
    if (!node) // the answer to a message may have closed the document's node
        return;
    if (labelKept_)
        labelEdit_ = node;
    if (cancel)
        return;
    node.SetText(newText);
    LabelEdited();
}

void TreeView::CancelLabelEdit() {
    const TreeNode node = std::exchange(labelEdit_, {});
    labelKept_ = false;
    labelEditEnded();
    LabelGivenUp(node ? node : TreeNode());
}

} // namespace controls
