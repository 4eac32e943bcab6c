// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace textview {

/// The end tag of the element that the caret stands in. Empty, after a message where there is something to
/// say, when there is none or its name can't be read.
QString GetCloseTag(DocumentWindow& window);
/// Puts that end tag in while the text view shows. A text that has become wrong by it is kept only when the
/// user says so; the tree follows the text.
void CloseTag(DocumentWindow& window);

} // namespace textview
