// SPDX-License-Identifier: GPL-3.0-or-later
// What is painted instead of the style: pale pictures, title buttons.
#include "desktop/base/Glyphs.h"
#include "desktop/base/ThemeIcons.h"
#include "desktop/frame/FrameStyle.h"
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionTitleBar>
#include <gtest/gtest.h>

namespace {

using desktop::ChooseIconTheme;
using desktop::FrameStyle;
using desktop::NewNodeIcon;
using desktop::SignIcon;
using desktop::ThemeIcon;
/// How much ink a picture has: the sum of the opacity of its points.
double Ink(const QIcon& icon, QIcon::Mode mode) {
    const QImage image = icon.pixmap(QSize(16, 16), 1, mode).toImage();
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum;
}

// Greying alone doesn't tell them apart: on a dark desktop enabled pictures are grey, too.
TEST(Skin, PicturesAreFarPalerWhereTheyCannotBeChosen) {
    ChooseIconTheme();
    QIcon theme = ThemeIcon(QStringLiteral("edit-cut"));
    if (theme.isNull())
        theme = SignIcon(QStringLiteral("&")); // a machine without an icon theme
    for (const QIcon& icon :
         {theme, NewNodeIcon(QStringLiteral("element")), SignIcon(QStringLiteral("</>"))}) {
        const double enabled = Ink(icon, QIcon::Normal), disabled = Ink(icon, QIcon::Disabled);
        EXPECT_GT(enabled, 5);
        EXPECT_GT(disabled, 1);
        EXPECT_LT(disabled, enabled * 0.6);
    }
}

/// The lightest point of the close button on the title of an inner window that isn't in front.
int LightestOfCloseButton(const QPalette& palette) {
    const FrameStyle style(QStyleFactory::create(QStringLiteral("fusion")));
    QStyleOptionTitleBar title;
    title.rect = QRect(0, 0, 300, 24);
    title.palette = palette;
    title.subControls = QStyle::SC_TitleBarLabel | QStyle::SC_TitleBarCloseButton;
    title.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    title.text = QStringLiteral("orders.xml");
    QImage image(title.rect.size(), QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    style.drawComplexControl(QStyle::CC_TitleBar, &title, &painter, nullptr);
    const QRect button =
        style.subControlRect(QStyle::CC_TitleBar, &title, QStyle::SC_TitleBarCloseButton, nullptr)
            .adjusted(5, 5, -5, -5);
    int lightest = 0;
    for (int y = button.top(); y <= button.bottom(); ++y)
        for (int x = button.left(); x <= button.right(); ++x)
            lightest = std::max(lightest, image.pixelColor(x, y).lightness());
    return lightest;
}

TEST(Skin, TitleButtonsOfAWindowInTheBackShowOnADarkPalette) {
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::WindowText, QColor(239, 240, 241));
    EXPECT_GT(LightestOfCloseButton(dark), 180);
}

} // namespace
