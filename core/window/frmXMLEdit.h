// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

/// A window on one XML document.
class frmXMLEdit {
public:
    explicit frmXMLEdit(Application& app); ///< made and loaded, without a document
    static const WindowKind& Kind();
    DocumentWindow window;
};
