// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/TreeView.h"
#include <QString>

// Prefixes of names and their declarations: attributes of a table's elements among others, but a document
// can't be read with a prefix that isn't declared, or one that is declared as nothing.
namespace table {

/// Whether an attribute of this name declares a prefix.
bool DeclaresPrefix(QStringView name);
/// Whether all prefixes in an element and below it that were declared are so with another Tag, too, and what
/// that adds.
bool PrefixesStand(controls::TreeNode element, const QString& tag);
/// Tells that they don't.
void SayNoDeclaration(Application& app);

} // namespace table
