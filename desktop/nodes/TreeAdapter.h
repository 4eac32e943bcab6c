// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeAddress.h"
#include "desktop/base/ControlEvents.h"
#include "desktop/nodes/TreeModel.h"
#include "desktop/nodes/TreeWidget.h"
#include "platform/controls/TreeView.h"
#include <QObject>
#include <optional>

namespace desktop {

/// A tree widget on a TreeView control: the selection goes both ways. What is open is the control's alone.
class TreeAdapter : public QObject {
public:
    TreeAdapter(controls::TreeView& model, TreeWidget& widget, QObject* parent);
    ~TreeAdapter() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectRows();
    void ConnectSelection();
    void ConnectLabels();
    void CurrentChanged(const QModelIndex& current);
    void Toggled(const QModelIndex& index, bool open);
    bool MousePressed();
    void MouseReleased(const QPoint& place);
    void DragEnded();
    void KeepPlace();
    void RestorePlace();
    void ShowSelected();

    controls::TreeView& model_;
    TreeWidget& widget_;
    TreeModel rows_;
    ControlEvents events_;
    int updating_ = 0;   ///< the widget follows the model: its signals aren't the user's
    bool moved_ = false; ///< the mouse selected another node since it was pressed
    /// What the mouse is being pressed on, while the tree is built anew.
    std::optional<m_tvXML::NodeAddress> pressed_;
    QPoint scrolled_; ///< to there, before that
};

} // namespace desktop
