// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QIcon>
#include <QString>
#include <QVariant>

// The pictures of nodes and rows, and of buttons that no icon theme knows. They are drawn, sharp at any size,
// in the colours of the palette in force, so that they suit light and dark desktops alike.

/// The icon for a picture key of the tree's image list; an invalid variant for another key.
QVariant NodeIcon(const QString& picture);
/// The icon for a list row's kind, numbered as node types are; an invalid variant for another number.
QVariant RowIcon(int kind);
/// A sign of one or two characters in the text's colour.
QIcon SignIcon(const QString& sign);
