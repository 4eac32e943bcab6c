// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DocumentSubWindow.h"
#include "desktop/Glyphs.h"
#include "desktop/Listen.h"
#include <QAction>
#include <QCloseEvent>
#include <QMenu>

DocumentSubWindow::DocumentSubWindow(DocumentWindow& window)
    : window_(&window), view_(new DocumentView(window, this)) {
    setWidget(view_);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowIcon(NodeIcon(QStringLiteral("xmlroot")).value<QIcon>());
    // The frame's own menu has the keys; two owners of one key would stop it.
    if (systemMenu())
        for (QAction* action : systemMenu()->actions())
            action->setShortcuts(QList<QKeySequence>());
    const auto showCaption = [this] {
        if (!window_)
            return;
        QString title = window_->Caption; // "[*]" means something else to a title
        setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
    };
    showCaption();
    Listen(window.captionChanged, this, showCaption);
}

void DocumentSubWindow::Detach() {
    window_ = nullptr;
    view_->Detach();
}

void DocumentSubWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT closeWanted();
}
