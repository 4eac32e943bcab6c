// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <QStringList>

namespace schema {

/// The attributes that the schema language has for an element, by its local name and in the order in which
/// the list shows them; with them those of the extensions that the window has enabled. Empty for a name
/// without any.
QStringList GetSystemAttributes(DocumentWindow& window, const QString& localName);
/// The same by the name as it is written, with its prefix.
QStringList AttributesOffered(DocumentWindow& window, const QString& elementName);

} // namespace schema
