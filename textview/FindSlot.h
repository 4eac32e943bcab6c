// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QStringList>

namespace textview {

/// What the find dialog works on.
struct FindSlot {
    explicit FindSlot(Application& app);

    DocumentWindow* findWindow = nullptr;        ///< whose text is searched; null once it has closed
    controls::RichTextBox* findTarget = nullptr; ///< the pane of it that was in use
    QStringList findHistory, replaceHistory;     ///< newest first; kept for this run only
};

FindSlot& Finding(Application& app);

} // namespace textview
