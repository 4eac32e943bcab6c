// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"
#include <QString>

// Opening documents.
namespace edit {

/// Opens a name (path or address) into `form`, or into a new window when `form` is null. A window that has
/// this very document stays where it is in it, and the reload is a step of its history; on return `form` is
/// the window that shows the document, null when none came about. What can't be fetched leads to the question
/// whether to make a new document.
void OpenFile(Application& app, const QString& fileName, DocumentWindow*& form);
/// A window takes what was fetched, or a new document for an empty text: the file's form, the text, the tree.
void FillWindow(DocumentWindow& window, const FetchedText& fetched);

} // namespace edit
