// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Changes of declarations as the compact view makes them. Each is for the inside of an edit; what it can't do
// it tells the user on status panel 1, and then it changes nothing.
namespace schema {

/// A global element, marked as the root of instances. Nothing without a schema node, with a box.
controls::TreeNode AddNewNodeToMainTreeFromCVTree(DocumentWindow& window, const QString& name);
/// An element in the content of a declaration, whose complex type and compositor are made where they are
/// missing. The new declaration; nothing where there is no room for one.
controls::TreeNode AddNewElementAtMainTree(DocumentWindow& window, controls::TreeNode declaration,
                                           const QString& name);
/// An attribute likewise. A simple type that the element has becomes the base of its simple content.
controls::TreeNode AddNewAttrAtMainTree(DocumentWindow& window, controls::TreeNode declaration,
                                        const QString& name);
/// An element without a type becomes one with text. False where it has another one.
bool GiveText(DocumentWindow& window, controls::TreeNode declaration);

/// Gives a declaration, an element's or an attribute's, another name. Where it is global all that refers to
/// it does so under the new name.
/// Whether it may; what is in the way it tells, too.
bool MayRenameDeclaration(DocumentWindow& window, controls::TreeNode declaration, const QString& name);
bool RenameDeclaration(DocumentWindow& window, controls::TreeNode declaration, const QString& name);

} // namespace schema
