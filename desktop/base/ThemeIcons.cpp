// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/ThemeIcons.h"
#include "desktop/base/GlyphIcon.h"
#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace desktop {

namespace {

bool HasTheme(const QString& name) {
    const QStringList paths = QIcon::themeSearchPaths();
    return std::any_of(paths.begin(), paths.end(), [&name](const QString& path) {
        return QFile::exists(path + QLatin1Char('/') + name + QStringLiteral("/index.theme"));
    });
}

/// A theme's icon that is pale where it can't be chosen.
class PalingEngine : public QIconEngine {
public:
    explicit PalingEngine(QIcon icon) : icon_(std::move(icon)) {}
    QIconEngine* clone() const override { return new PalingEngine(*this); }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State state) override {
        return icon_.actualSize(size, QIcon::Normal, state);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double before = painter->opacity();
        if (mode == QIcon::Disabled)
            painter->setOpacity(before * kDisabledOpacity);
        icon_.paint(painter, rect, Qt::AlignCenter, mode == QIcon::Disabled ? QIcon::Normal : mode, state);
        painter->setOpacity(before);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    /// `size` in the screen's own pixels, `scale` of them to a pixel of the program's.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        QPixmap pixmap(size);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), (QSizeF(size) / scale).toSize()), mode, state);
        return pixmap;
    }

private:
    QIcon icon_;
};

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

QIcon ThemeIcon(const QString& name) {
    const QIcon icon = name.isEmpty() ? QIcon() : QIcon::fromTheme(name);
    return icon.isNull() ? QIcon() : QIcon(new PalingEngine(icon));
}

} // namespace desktop
