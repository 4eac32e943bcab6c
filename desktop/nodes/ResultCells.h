// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/base/ControlEvents.h"
#include <QBasicTimer>
#include <QLineEdit>
#include <QObject>
#include <QPersistentModelIndex>
#include <QTreeView>

namespace desktop {

/// The text box over a cell of the compact view's list.
class ResultCells : public QObject {
public:
    ResultCells(DocumentWindow& window, QTreeView& list);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Show();
    void Place();

    DocumentWindow& window_;
    QTreeView& list_;
    QLineEdit* editor_; ///< owned by the list's viewport
    ControlEvents events_;
    QBasicTimer click_;             ///< a click that may still become a double click
    QPersistentModelIndex pressed_; ///< cell of the current row that the mouse was pressed on
};

} // namespace desktop
