// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/MdiArrange.h"
#include "shell/frmMDIMain.h"
#include <QMdiArea>
#include <QMdiSubWindow>

namespace desktop {

namespace {

using Windows = QList<QMdiSubWindow*>;

Windows Minimised(const QMdiArea& area, bool minimised) {
    Windows windows;
    for (QMdiSubWindow* window : area.subWindowList(QMdiArea::StackingOrder))
        if (!window->isHidden() && window->isMinimized() == minimised)
            windows.prepend(window); // the front one first
    return windows;
}

/// The strip that minimised windows take at the bottom.
int IconHeight(const QMdiArea& area) {
    const Windows icons = Minimised(area, true);
    return icons.isEmpty() ? 0 : icons.front()->height();
}

/// One above the other, or side by side; each over the whole other length.
void Tile(const QMdiArea& area, bool stacked) {
    const Windows windows = Minimised(area, false);
    const QSize room = area.viewport()->size() - QSize(0, IconHeight(area));
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* window = windows[i];
        if (window->isMaximized())
            window->showNormal();
        const int whole = stacked ? room.height() : room.width();
        const int from = whole * i / count, to = whole * (i + 1) / count;
        window->setGeometry(stacked ? QRect(0, from, room.width(), to - from)
                                    : QRect(from, 0, to - from, room.height()));
    }
}

void ArrangeIcons(const QMdiArea& area) {
    const QSize room = area.viewport()->size();
    QPoint corner(0, room.height());
    for (QMdiSubWindow* icon : Minimised(area, true)) {
        if (corner.x() > 0 && corner.x() + icon->width() > room.width())
            corner = QPoint(0, corner.y() - icon->height());
        icon->move(corner.x(), corner.y() - icon->height());
        corner.rx() += icon->width();
    }
}

} // namespace

void Arrange(QMdiArea& area, int code) {
    switch (code) {
    case vbCascade:
        area.cascadeSubWindows();
        break;
    case vbTileHorizontal:
        Tile(area, true);
        break;
    case vbTileVertical:
        Tile(area, false);
        break;
    case vbArrangeIcons:
        ArrangeIcons(area);
        break;
    default:
        break;
    }
}

} // namespace desktop
