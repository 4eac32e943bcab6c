// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The save cycle.
namespace edit {

/// Saves the text. `bSaveAs` asks for a name always; a name that isn't a local path leads to the dialog too.
/// `bSkipCheck` leaves out bringing tree and text together. While the window is closing it asks first; Cancel
/// sets bCancelSave.
void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck);
void SaveAs(DocumentWindow& window);
/// Asks whether a document may be saved over the file of a name one day.
bool MayReplace(Application& app, const QString& name);

} // namespace edit
