// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace xml {

/// The sentence for a kind of error by its number alone, where the text around its place does not help: in
/// the replacement text of an entity, and for what is rarely written, such as declarations of a document
/// type. A general one for kinds that are not known.
QString KindReason(int code);

} // namespace xml
