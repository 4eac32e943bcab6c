// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The attributes of the instance's elements, for the inside of an edit.
namespace schema {

/// Whether an attribute speaks of the instance and its schema, which no schema declares.
bool IsAboutTheInstance(const QString& attribute);

/// Takes the declaration of an attribute out of the schema, or the reference to it.
void DeletePropNameValueByKeyAtCV(DocumentWindow& window, controls::TreeNode compactNode,
                                  const QString& name);

/// An element's attributes have been edited as a list: what is new, gone or renamed is so in the schema.
/// Values are samples; a changed one is told to be so. False where the list can't be taken.
bool ChangeMainTreeAttributesByAttrString(DocumentWindow& window, controls::TreeNode compactNode,
                                          const QString& attributes);

/// Tells that what was to be changed is a sample (quirk 153).
void SayItIsASample(DocumentWindow& window);
/// Tells that an attribute is there already.
void SayAttributeIsThere(DocumentWindow& window);

} // namespace schema
