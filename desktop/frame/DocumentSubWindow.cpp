// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/DocumentSubWindow.h"
#include "core/model/FileNames.h"
#include "desktop/base/Glyphs.h"
#include "desktop/base/Listen.h"
#include "desktop/base/OneLine.h"
#include <QAction>
#include <QCloseEvent>
#include <QMenu>

namespace desktop {

DocumentSubWindow::DocumentSubWindow(DocumentWindow& window)
    : window_(&window), view_(new DocumentView(window, this)) {
    setWidget(view_);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowIcon(DocumentIcon());
    // The frame's own menu has the keys; two owners of one key would stop it.
    if (systemMenu())
        for (QAction* action : systemMenu()->actions())
            action->setShortcuts(QList<QKeySequence>());
    ShowCaption();
    Listen(window.captionChanged, this, [this] { ShowCaption(); });
}

// A minimised window has room for the file's name alone.
void DocumentSubWindow::ShowCaption() {
    if (!window_)
        return;
    const QString& name = window_->Caption;
    QString title = OneLineName(window_->ShownAs(isMinimized() ? mXMLEdit::GetFSFileName(name) : name));
    // "[*]" means something else to a title.
    setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void DocumentSubWindow::changeEvent(QEvent* event) {
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        ShowCaption();
}

// A window that changes its shape is hidden for a moment and would give the focus away: what has it would
// hear that it is left, and the next key would go elsewhere.
bool DocumentSubWindow::focusNextPrevChild(bool next) {
    const bool changesShape = window_ && isHidden();
    return changesShape || QMdiSubWindow::focusNextPrevChild(next);
}

void DocumentSubWindow::Detach() {
    window_ = nullptr;
    view_->Detach();
}

void DocumentSubWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT closeWanted();
}

} // namespace desktop
