// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/table/SheetBase.h"
#include <memory>

namespace desktop {

class SheetEditors;
class SheetKeys;
class SheetMouse;

/// The window on the sheet that the grids of a level lie on. It paints what can be seen of them; its child
/// widgets are the editors that are laid over cells. Keys go to the grid that the user touched last, whether
/// it can be seen or not.
class SheetView : public SheetBase {
    Q_OBJECT
public:
    explicit SheetView(QWidget* parent = nullptr);
    ~SheetView() override;

    /// Shows the grids of a window, which must live as long as they are shown; null: none.
    void SetWindow(DocumentWindow* window);

Q_SIGNALS:
    void scrolled(); ///< the sheet has moved, or its size is another one
    void contextMenuWanted(const QPoint& globalPlace);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void Follow();
    void TellSize();
    void ShowTip(const QPoint& place, const QPoint& globalPlace);

    std::unique_ptr<QObject> bond_; ///< what follows the window ends with it
    std::unique_ptr<SheetMouse> mouse_;
    std::unique_ptr<SheetKeys> keys_;
    std::unique_ptr<SheetEditors> editors_;
    QPoint wheel_; ///< turned, and too little for a pixel so far
};

} // namespace desktop
