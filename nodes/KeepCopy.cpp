// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/KeepCopy.h"
#include "core/edit/CopySlot.h"

namespace nodes {

void KeepCopy(DocumentWindow& window, int view, const QString& key, const QString& text,
              const QString& attributes) {
    edit::CopySlot& slot = edit::LastCopy(window.app);
    slot.clipboardSource = &window;
    slot.ClipboardSourceView = view;
    slot.msNodeClip = key;
    slot.copiedText = text;
    slot.copiedAttributes = attributes;
    window.app.services.clipboard.Clear();
    window.app.services.clipboard.SetText(text);
}

void SayNothingCopied(Application& app) {
    app.services.prompts.MsgBox(QStringLiteral("This type of data can not copy!"));
}

} // namespace nodes
