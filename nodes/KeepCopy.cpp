// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/KeepCopy.h"
#include "core/edit/CopySlot.h"
#include "core/model/NodeKind.h"
#include "platform/controls/TreeCursor.h"

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

bool TellWhatCopyLacks(Application& app, const std::vector<controls::TreeNode>& copied) {
    int sections = 0;
    for (const controls::TreeNode node : copied) {
        const controls::TreeCursor top(node);
        for (controls::TreeCursor below = top; below; below = below.nextBelow(top))
            sections += below.kind() == m_tvXML::kCData ? 1 : 0;
    }
    if (sections == 0)
        return true;
    app.services.prompts.MsgBox(QStringLiteral("The copy lacks %1 CDATA section(s), with the text in them: "
                                               "they can only be copied in the text view.")
                                    .arg(sections),
                                services::Buttons::Ok, services::Icon::Exclamation);
    return false;
}

void SayNothingCopied(Application& app) {
    app.services.prompts.MsgBox(QStringLiteral("This type of data can not copy!"));
}

} // namespace nodes
