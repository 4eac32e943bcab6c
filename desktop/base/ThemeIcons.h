// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QIcon>
#include <QString>

namespace desktop {

/// Chooses an icon theme where the desktop names none: one of those the program is installed with, dark or
/// light as the palette is. Also the theme for icons that the desktop's own theme doesn't have.
void ChooseIconTheme();

/// The theme's icon by name, pale where it can't be chosen; null where no theme has it.
QIcon ThemeIcon(const QString& name);

} // namespace desktop
