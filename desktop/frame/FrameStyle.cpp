// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/FrameStyle.h"
#include "desktop/base/Glyphs.h"
#include <QStyleOptionTitleBar>

namespace desktop {

namespace {

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

// In the menu bar, beside the menus, for a document that fills the frame.
QIcon FrameStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (which) {
    case SP_TitleBarMinButton:
        return TitleIcon(TitleButton::Minimise);
    case SP_TitleBarNormalButton:
        return TitleIcon(TitleButton::Restore);
    case SP_TitleBarCloseButton:
        return TitleIcon(TitleButton::Close);
    default:
        return QProxyStyle::standardIcon(which, option, widget);
    }
}

// On the title of a window that isn't in front: there the style knows black buttons alone, on the front
// window's title white ones. So on a dark palette it draws a front window's title in the background's colour.
void FrameStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* title =
        control == CC_TitleBar ? qstyleoption_cast<const QStyleOptionTitleBar*>(option) : nullptr;
    if (!title || (title->titleBarState & State_Active) != 0 || !IsDark(title->palette))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionTitleBar shown(*title);
    shown.titleBarState |= State_Active;
    const QPalette& palette = title->palette;
    shown.palette.setColor(QPalette::Highlight, palette.color(QPalette::Window));
    shown.palette.setColor(QPalette::HighlightedText, palette.color(QPalette::WindowText));
    QProxyStyle::drawComplexControl(control, &shown, painter, widget);
}

} // namespace desktop
