// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/drag/DragViews.h"
#include "desktop/nodes/TreeRowsView.h"
#include <QElapsedTimer>

namespace desktop {

/// The widget of a tree of nodes: what a user does with keys and mouse. Nodes are opened and closed by a
/// click on their mark, by a double click, by Left and Right, by minus and plus, and by an asterisk with all
/// that is below them. Letters go to the next row that begins with them.
class TreeWidget : public DragView<TreeRowsView> {
    Q_OBJECT
public:
    explicit TreeWidget(QWidget* parent = nullptr);

    /// The user opens or closes a node. Nothing happens where it is so already or has no children.
    void setExpanded(const QModelIndex& index, bool open);
    void expandRecursively(const QModelIndex& index); ///< the user opens it with all that is below it
    void keyboardSearch(const QString& typed) override;

Q_SIGNALS:
    void toggled(const QModelIndex& index, bool open); ///< by the user

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int CurrentRow() const;
    int RowBy(CursorAction action, int row) const;
    int RowLeftOf(int row);
    int RowRightOf(int row);
    bool ScrollAcross(int steps);
    void Toggle(int row);
    bool IsClickOnMark(const QMouseEvent& event);
    int FindFrom(int row, const QString& text) const;

    bool onMark_ = false;  ///< the button was pressed on a mark
    bool acted_ = false;   ///< the key did something without making another row current
    bool doubled_ = false; ///< the double click was one
    QString typed_;        ///< letters without a pause
    QElapsedTimer pause_;
};

} // namespace desktop
