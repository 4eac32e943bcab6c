// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ThemeIcons.h"
#include "desktop/Glyphs.h"
#include <QApplication>
#include <QFile>
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
    const bool dark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    const auto suited = [dark](const QString& name) {
        for (const QString& twin : {name + QStringLiteral("-dark"), name + QStringLiteral("-Dark")})
            if (dark && HasTheme(twin))
                return twin;
        return name;
    };
    QString ours = suited(QStringLiteral("breeze"));
    if (!HasTheme(ours))
        ours = QStringLiteral("Adwaita");
    QIcon::setFallbackThemeName(ours);
    // "hicolor" is the bare ground that themes stand on, and no theme of its own.
    const QString given = QIcon::themeName();
    const bool none = given.isEmpty() || given == QLatin1String("hicolor") || !HasTheme(given);
    QIcon::setThemeName(none ? ours : suited(given));
}

QIcon ThemeIcon(const QString& name, const QString& caption) {
    const QIcon icon = name.isEmpty() ? QIcon() : QIcon::fromTheme(name);
    return icon.isNull() ? SignIcon(caption.left(1)) : icon;
}
