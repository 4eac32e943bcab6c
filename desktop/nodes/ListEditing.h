// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/base/ControlEvents.h"
#include <QBasicTimer>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QObject>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

namespace desktop {

/// The text box that is laid over a cell of the list, with the button beside it, and what the list's model
/// has to know of the widget's geometry for it.
class ListEditing : public QObject {
public:
    ListEditing(DocumentWindow& window, QTreeView& report);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void ConnectEditor();
    void ConnectCells();
    void ConnectOffers();
    controls::ComboBox& Offers() const; ///< what the open editor has to choose from
    void ShowOffers(const QString& typed);
    bool OpensOffers(QKeyEvent& event); ///< the key does; then it is used up
    void TellGeometry();
    void ShowEditor();
    void Place();
    void MousePressed(const QPoint& place);
    void MouseReleased(const QPoint& place);

    DocumentWindow& window_;
    QTreeView& report_;
    QLineEdit* editor_; ///< owned by the list's viewport
    QToolButton* button_;
    ControlEvents events_;
    QStringListModel offered_;
    QCompleter offers_;
    QBasicTimer follow_;            ///< while the editor is open
    QBasicTimer cellClick_;         ///< a click that may still become a double click
    QPersistentModelIndex pressed_; ///< cell of the current row that the mouse was pressed on
};

} // namespace desktop
