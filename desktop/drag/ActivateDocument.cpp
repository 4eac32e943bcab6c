// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/ActivateDocument.h"
#include <QMdiArea>
#include <QMdiSubWindow>

namespace desktop {

void ActivateDocumentOf(const QWidget& part) {
    for (QWidget* parent = part.parentWidget(); parent; parent = parent->parentWidget())
        if (auto* document = qobject_cast<QMdiSubWindow*>(parent); document && document->mdiArea())
            document->mdiArea()->setActiveSubWindow(document);
}

} // namespace desktop
