// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"
#include <QString>

// Opening and saving documents.

/// Opens a name (path or address) into `form`, or into a new window when `form` is null; on return `form` is
/// the window that shows the document, null when none came about. What can't be fetched leads to the question
/// whether to make a new document.
void OpenFile(Application& app, const QString& fileName, DocumentWindow*& form);
/// Asks whether a document may be saved over the file of a name one day.
bool MayReplace(Application& app, const QString& name);
/// A window takes what was fetched: the file's form, the text with its colours, the tree.
void TakeFetched(DocumentWindow& window, const FetchedText& fetched);
/// The text as it stands is where the document begins: nothing is left to undo.
void BeginHistory(DocumentWindow& window);

/// Saves the text view's text. `bSaveAs` asks for a name always; a name that isn't a local path leads to the
/// dialog too. `bSkipCheck` leaves out bringing tree and text together. While the window is closing it asks
/// first; Cancel sets bCancelSave.
void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck);
void SaveAs(DocumentWindow& window);
