// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "desktop/nodes/TreeModel.h"
#include "platform/controls/TreeView.h"
#include <QObject>
#include <QTreeView>

namespace desktop {

/// A tree widget on a TreeView control: selection and open nodes go both ways.
class TreeAdapter : public QObject {
public:
    TreeAdapter(controls::TreeView& model, QTreeView& widget, QObject* parent);
    ~TreeAdapter() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectRows();
    void ConnectLabels();
    void CurrentChanged(const QModelIndex& current);
    void ExpandedByWidget(const QModelIndex& index, bool expanded);
    void MouseReleased(const QPoint& place);
    void DragEnded();
    void ShowSelected();
    void ShowExpanded(controls::TreeNode node);
    void RestoreExpanded();

    controls::TreeView& model_;
    QTreeView& widget_;
    TreeModel rows_;
    ControlEvents events_;
    int updating_ = 0;   ///< the widget follows the model: its signals aren't the user's
    bool moved_ = false; ///< the mouse selected another node since it was pressed
};

} // namespace desktop
