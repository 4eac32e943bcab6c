// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// A plain document and its schema: the location that the root element names.
namespace schema {

controls::TreeNode GetXMLRootNode(const controls::TreeView& tree); ///< the root element; nothing without one

/// Binds the document to a schema; without a name the user chooses a file. Where it is bound already the user
/// is asked first. The namespace of the old location stays.
void ApplySchema(DocumentWindow& window, QString schemaFile = {});

/// A file's name as it stands in a list of locations, where blanks part the entries; not escaped.
QString AsListEntry(QString name);

/// Fills txtSchema with the schema that the root element names, which a relative location looks for in the
/// document's folder. From an address only where the user allows it. What can't be had leaves txtSchema as
/// it was.
void ShowSchemaOrDTD(DocumentWindow& window);
void ShowSchema(DocumentWindow& window); ///< brings the schema's tab to the front

} // namespace schema
