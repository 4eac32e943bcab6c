// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "desktop/nodes/ListModel.h"
#include "platform/controls/ListView.h"
#include <QListView>
#include <QObject>
#include <QStackedWidget>
#include <QTreeView>

namespace desktop {

class LabelDelegate;

/// The list's widgets: a table with columns for the report view, another view for icons and names. Both share
/// one selection.
struct ListWidgets {
    QStackedWidget& pages;
    QTreeView& report;
    QListView& icons;
};

/// Widgets on a ListView control: selection goes both ways, the view's style follows the control.
class ListAdapter : public QObject {
public:
    ListAdapter(controls::ListView& model, const ListWidgets& widgets, QObject* parent);
    ~ListAdapter() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractItemView& Shown() const;
    void ConnectView(QAbstractItemView& view);
    void UserSelected(const QItemSelection& selected, const QItemSelection& deselected);
    void KeyPressed(const QKeyEvent& event);
    void MouseReleased(const QPoint& place);
    void ConnectLabels();
    void ShowSelected();
    void ShowView();
    void ShowCurrent();
    void ShowColumns();

    controls::ListView& model_;
    ListWidgets widgets_;
    ListModel rows_;
    QItemSelectionModel selection_;
    ControlEvents reportEvents_, iconEvents_;
    LabelDelegate* iconLabels_ = nullptr;
    int updating_ = 0; ///< the widgets follow the model: their signals aren't the user's
};

} // namespace desktop
