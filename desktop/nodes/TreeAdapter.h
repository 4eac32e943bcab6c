// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeAddress.h"
#include "desktop/base/ControlEvents.h"
#include "desktop/nodes/TreeModel.h"
#include "platform/controls/TreeView.h"
#include <QObject>
#include <QTreeView>
#include <optional>

namespace desktop {

/// A tree widget on a TreeView control: selection and open nodes go both ways.
class TreeAdapter : public QObject {
public:
    TreeAdapter(controls::TreeView& model, QTreeView& widget, QObject* parent);
    ~TreeAdapter() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectRows();
    void ConnectSelection();
    void ConnectLabels();
    void CurrentChanged(const QModelIndex& current);
    void ExpandedByWidget(const QModelIndex& index, bool expanded);
    bool MousePressed();
    void MouseReleased(const QPoint& place);
    void DragEnded();
    void KeepPlace();
    void RestorePlace();
    void ShowSelected();
    void ShowExpanded(controls::TreeNode node);
    void RestoreExpanded();

    controls::TreeView& model_;
    QTreeView& widget_;
    TreeModel rows_;
    ControlEvents events_;
    int updating_ = 0;   ///< the widget follows the model: its signals aren't the user's
    bool moved_ = false; ///< the mouse selected another node since it was pressed
    /// What the mouse is being pressed on, while the tree is built anew.
    std::optional<m_tvXML::NodeAddress> pressed_;
    QPoint scrolled_; ///< to there, before that
};

} // namespace desktop
