// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace nodes {

/// Renames the document: its tree root, and with it the window. A local name copies the file first; when that
/// can't be done the user is told and the old name stays. False when nothing was renamed.
bool ChangeTreeRootText(DocumentWindow& window, const QString& name);

} // namespace nodes
