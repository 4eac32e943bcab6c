// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ThemeIcons.h"
#include "desktop/Glyphs.h"
#include <QApplication>
#include <QDir>
#include <QPalette>

namespace {

bool HasTheme(const QString& name) {
    const QStringList paths = QIcon::themeSearchPaths();
    return std::any_of(paths.begin(), paths.end(), [&name](const QString& path) {
        return QFile::exists(path + QLatin1Char('/') + name + QStringLiteral("/index.theme"));
    });
}

} // namespace

void ChooseIconTheme() {
    const QPalette palette = QApplication::palette();
    const bool dark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    const QString breeze = dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    const QString ours = HasTheme(breeze) ? breeze : QStringLiteral("Adwaita");
    QIcon::setFallbackThemeName(ours);
    const QString desktops = QIcon::themeName();
    // "hicolor" is the bare ground that themes stand on, and no theme of its own.
    if (desktops.isEmpty() || desktops == QLatin1String("hicolor") || !HasTheme(desktops))
        QIcon::setThemeName(ours);
}

QIcon ThemeIcon(const QString& name, const QString& caption) {
    const QIcon icon = name.isEmpty() ? QIcon() : QIcon::fromTheme(name);
    return icon.isNull() ? SignIcon(caption.left(1)) : icon;
}
