// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// A first schema for a document, by looking at its tree alone.
namespace schema {

/// The declarations for the elements of a document, with the declaration and the comments that it has at the
/// top, without the schema element around them. A repeated element counts by its first occurrence alone. Each
/// element's children are a sequence, each attribute is a required string; text isn't told.
QString GetTreeNodesXMLAndConvertToSchemaLocal(const controls::TreeView& tree);

/// Opens a schema for the document as a new one, and binds the document to it if the user wants that.
/// Nothing happens without a root element.
void GenerateSchema(DocumentWindow& window);

} // namespace schema
