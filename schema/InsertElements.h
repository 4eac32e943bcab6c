// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace schema {

/// Inserts an element of the schema language, by its local name: into the current row's element where the
/// list has the user's attention, else into the current node. Nothing happens in other views.
void NewSchemaStuff(DocumentWindow& window, const QString& name);

/// The same in the tree: as last child of the selected node, which it takes the place of. Its key; empty
/// without a selected node.
QString AddNewTreeElementByXSDName(DocumentWindow& window, const QString& name);
/// The same in the list, which goes to where the new element is.
void AddNewListViewElementByXSDName(DocumentWindow& window, const QString& name);

} // namespace schema
