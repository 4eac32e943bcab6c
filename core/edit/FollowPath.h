// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>

// The way back from a path to the node.
namespace edit {

/// Selects the node at a path: what Enter in txtXPath does. A path that selects nothing gets a message.
void SelectTreeNodeByPath(DocumentWindow& window, const QString& path);
/// The same in a document that the text was parsed into, without a message. False when there is no such node.
bool SelectTreeNodeByXPath(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path);

} // namespace edit
