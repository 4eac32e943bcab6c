// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/GlobalDeclarations.h"
#include "schema/SampleValues.h"
#include <QString>

namespace schema {

/// The attributes of a declaration with sample values: a run of name="value" pairs with a blank behind each.
/// They are written whatever their use, default or fixed value. One that the declaration has several times,
/// by its base type as well, stands there once: the instance couldn't be read with both (quirk 149). Its
/// place is that of the first, its value that of the last, which narrows it.
QString GetRealXMLNodeAttributesString(controls::TreeNode node, const GlobalDeclarations& declarations,
                                       SampleValues& values);

/// Where an attribute of an instance comes from: its declaration, and what brings that into the element,
/// which is a reference or the declaration itself. Nothing for a name that isn't declared.
struct AttributeOrigin {
    controls::TreeNode declaration, particle;
};
AttributeOrigin FindAttribute(controls::TreeNode node, const QString& name,
                              const GlobalDeclarations& declarations);

} // namespace schema
