// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/KeepCopy.h"
#include "core/edit/CopySlot.h"

namespace nodes {

namespace {

void NoteCopy(DocumentWindow& window, int view, const QString& key, const QString& text,
              const QString& attributes) {
    edit::CopySlot& slot = edit::LastCopy(window.app);
    slot.clipboardSource = &window;
    slot.ClipboardSourceView = view;
    slot.msNodeClip = key;
    slot.copiedText = text;
    slot.copiedAttributes = attributes;
    window.app.services.clipboard.Clear();
}

} // namespace

void KeepCopy(DocumentWindow& window, int view, const QString& key, const QString& text,
              const QString& attributes) {
    NoteCopy(window, view, key, text, attributes);
    window.app.services.clipboard.SetText(text);
}

void KeepCopy(DocumentWindow& window, int view, const QString& key,
              const services::ClipboardContents& contents) {
    NoteCopy(window, view, key, contents.text, {});
    window.app.services.clipboard.SetContents(contents);
}

void SayNothingCopied(Application& app) {
    app.services.prompts.MsgBox(QStringLiteral("This type of data can not copy!"));
}

} // namespace nodes
