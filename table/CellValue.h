// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>
#include <optional>

// What is typed or pasted into a cell is taken as it stands, entities among it, as long as the document can
// still be read with it.
namespace table {

/// A value for an attribute as it goes into the Tag. One that would end the attribute, or that no parser
/// takes, is escaped (quirk 66); nothing where that doesn't help: it holds characters that no document can.
std::optional<QString> AttributeValue(Application& app, const QString& typed);
/// The same for a text of an element. Markup that is whole stays markup.
std::optional<QString> TextValue(Application& app, const QString& typed);

/// Tells that a value can't be stored.
void SayNoValue(Application& app);

} // namespace table
