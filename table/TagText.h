// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <span>

// Attributes of one element as its Tag holds them, changed by a search in that text. The search has no word
// boundary in front: that of x also hits in ax, where there is no x. It never hits inside a value, nor in the
// declaration of a prefix (quirk 74).
namespace table {

/// What a cell is to hold, as the Tag holds it; by the name of its column.
struct NewCell {
    QString name;
    QString value;
    bool isNew = false; ///< the table has no such column: no attribute of another name is meant
};

/// The attributes of these names get their values. For a name that the element lacks it is the first
/// attribute whose name ends so; where there is none, or another of the cells is for it, a new one stands at
/// the end.
QString WithValues(const QString& tag, std::span<const NewCell> cells);
/// All attributes whose name ends so and that have this value get the other ending. Where an element would
/// have one name twice then, the attribute of exactly that name alone; it may be twice all the same.
QString WithName(const QString& tag, const QString& oldName, const QString& newName, const QString& value);
/// Without the attribute of exactly that name. The blank in front of it stays.
QString WithoutName(const QString& tag, const QString& name);
/// Whether an attribute stands there twice.
bool HasNameTwice(const QString& tag);

} // namespace table
