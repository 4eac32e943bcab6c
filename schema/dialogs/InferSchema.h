// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QStringList>

// A schema that fits the documents it is made from.
namespace schema {

/// Makes a schema of the window's document and of further files, checks all of them by it and opens it in a
/// schema window. One for several namespaces stands in several files, which refer to each other: the user
/// says where, and they are written there before the first is opened; files that are there stay as they are.
/// Then the user is asked whether to bind the document to it. Nothing comes of it, and the user is told why,
/// where a file can't be read, or no schema was found that all documents pass.
void InferSchema(DocumentWindow& window, const QStringList& furtherFiles);

} // namespace schema
