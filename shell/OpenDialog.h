// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/Windows.h"

namespace shell {

/// Asks for the file to open. `filter`: pairs of name and patterns, to which that of all files is added; may
/// be empty. An empty name when the user cancelled.
QString GetFileNameByFilter(Application& app, const QString& filter);
/// Asks for a document and opens it.
void OpenXMLFile(Application& app, Windows& windows);

} // namespace shell
