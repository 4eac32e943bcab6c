// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <vector>

namespace nodes {

/// Puts a text on the clipboard and keeps it as the last copy (see core/edit/CopySlot.h): of the view with a
/// number, at the node with a key. `attributes` go along.
void KeepCopy(DocumentWindow& window, int view, const QString& key, const QString& text,
              const QString& attributes);
/// The same with other forms of it, for programs that take them.
void KeepCopy(DocumentWindow& window, int view, const QString& key,
              const services::ClipboardContents& contents);
/// Whether a node's text form has all that stands below it. Where it hasn't, a CDATA section being left out,
/// the user is told that the copy lacks it, and false says so (quirk 82).
bool TellWhatCopyLacks(Application& app, const std::vector<controls::TreeNode>& copied);
/// Tells that what is selected has no text form: a CDATA section, a document type, a text that is empty.
void SayNothingCopied(Application& app);

} // namespace nodes
