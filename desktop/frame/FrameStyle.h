// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QProxyStyle>

namespace desktop {

/// The desktop's own style, with the buttons of inner windows readable on dark palettes too: styles draw
/// these in black whatever the palette is.
class FrameStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace desktop
