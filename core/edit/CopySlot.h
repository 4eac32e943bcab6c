// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace edit {

/// What was copied last from tree or list. The clipboard's text alone wouldn't tell attributes beside nodes.
struct CopySlot {
    explicit CopySlot(Application& app);

    DocumentWindow* clipboardSource = nullptr; ///< null: nothing was copied, or its window is gone
    QString msNodeClip;                        ///< key of the node in that window that was copied, or shown
    int ClipboardSourceView = 0;               ///< number of the view; 0: none yet
    QString copiedText;                        ///< as it went to the clipboard
    QString copiedAttributes;                  ///< the attributes in it or beside it, as a Tag holds them
};

CopySlot& LastCopy(Application& app);

/// Whether the clipboard's text is still what was copied here last. It may have come back with other line
/// ends.
bool IsLastCopy(Application& app, const QString& text);

} // namespace edit
