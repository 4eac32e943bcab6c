// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The save cycle.
namespace edit {

/// Saves the text. `bSaveAs` asks for a name always; a name that isn't a local path leads to the dialog too.
/// `bSkipCheck` leaves out bringing tree and text together. While the window is closing it asks first, if
/// there is something to be saved; Cancel sets bCancelSave. A file that another program has changed is
/// written over only if the user says so. What was saved is told on status panel 1.
void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck);
void SaveAs(DocumentWindow& window);

} // namespace edit
