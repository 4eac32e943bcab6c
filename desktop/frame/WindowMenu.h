// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QMenu>
#include <QObject>

class frmMDIMain;

namespace desktop {

/// The open windows at the end of a menu, made anew each time it opens: the one in front is checked, and one
/// that is chosen comes to the front.
class WindowMenu : public QObject {
public:
    WindowMenu(frmMDIMain& frame, QMenu& menu, QObject* parent);

private:
    void Fill();
    frmMDIMain& frame_;
    QMenu& menu_;
    QList<QAction*> actions_; ///< the separator among them
};

} // namespace desktop
