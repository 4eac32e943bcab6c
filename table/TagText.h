// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

// Attributes of one element as its Tag holds them, changed by a search in that text. The search has no word
// boundary in front: that of x also hits in ax. It never hits inside a value (quirk 74).
namespace table {

/// The first attribute whose name ends so gets the value; where there is none, a new one stands at the end.
QString WithValue(const QString& tag, const QString& name, const QString& value);
/// All attributes whose name ends so and that have this value get the other ending. Where an element would
/// have one name twice then, the attribute of exactly that name alone; it may be twice all the same.
QString WithName(const QString& tag, const QString& oldName, const QString& newName, const QString& value);
/// Without the attribute of exactly that name. The blank in front of it stays.
QString WithoutName(const QString& tag, const QString& name);
/// Whether an attribute stands there twice.
bool HasNameTwice(const QString& tag);

} // namespace table
