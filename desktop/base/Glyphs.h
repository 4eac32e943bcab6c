// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QIcon>
#include <QString>
#include <QVariant>

namespace desktop {

// The pictures of nodes and rows, and of buttons that no icon theme knows. They are drawn, sharp at any size,
// in the colours of the palette in force, so that they suit light and dark desktops alike.

/// The icon for a picture key of the tree's image list; an invalid variant for another key.
QVariant NodeIcon(const QString& picture);
/// The icon for a list row's kind, numbered as node types are; an invalid variant for another number.
QVariant RowIcon(int kind);
/// The same picture with a plus: a new node of that kind. Null for a key that has no picture.
QIcon NewNodeIcon(const QString& picture);
/// A sign of one to three characters in the text's colour.
QIcon SignIcon(const QString& sign);
/// A document, in the text's colour: it shows on a selection's colour too.
QIcon DocumentIcon();

enum class TitleButton { Minimise, Restore, Close };
/// What stands on a button of a window's title.
QIcon TitleIcon(TitleButton button);

} // namespace desktop
