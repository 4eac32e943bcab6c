// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QObject>

namespace Ui {
class frmXMLEdit;
}

namespace desktop {

/// Dragging out of the tree and the list of a document, and onto its tree, list and text.
class DocumentDragging : public QObject {
public:
    DocumentDragging(DocumentWindow& window, const Ui::frmXMLEdit& ui);
};

} // namespace desktop
