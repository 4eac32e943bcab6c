// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

/// A window that designs one XML Schema.
class frmSXMLEdit {
public:
    explicit frmSXMLEdit(Application& app); ///< made and loaded, without a document
    static const WindowKind& Kind();
    DocumentWindow window;
};
