// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/GlyphIcon.h"
#include <QApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace desktop {

namespace {

/// Signs that are drawn by lines instead of letters.
const QHash<QString, QList<QPolygonF>>& Lines() {
    static const QHash<QString, QList<QPolygonF>> lines{
        {QStringLiteral("<>"), {{{6.7, 5.5}, {4.2, 8}, {6.7, 10.5}}, {{9.3, 5.5}, {11.8, 8}, {9.3, 10.5}}}},
        {QStringLiteral("</>"),
         {{{4.5, 4.5}, {1.2, 8}, {4.5, 11.5}},
          {{11.5, 4.5}, {14.8, 8}, {11.5, 11.5}},
          {{9.4, 3.5}, {6.6, 12.5}}}},
        {QStringLiteral("minimise"), {{{4, 11.5}, {12, 11.5}}}},
        {QStringLiteral("restore"),
         {{{6.5, 6}, {6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}, {10, 9.5}},
          {{3.5, 6.5}, {9.5, 6.5}, {9.5, 12.5}, {3.5, 12.5}, {3.5, 6.5}}}},
        {QStringLiteral("close"), {{{4, 4}, {12, 12}}, {{12, 4}, {4, 12}}}},
    };
    return lines;
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(const Glyph& glyph) : glyph_(glyph) {}
    QIconEngine* clone() const override { return new GlyphEngine(*this); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QApplication::palette();
        const QColor ink = mode == QIcon::Selected
                               ? palette.color(QPalette::Active, QPalette::HighlightedText)
                               : Muted(palette);
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(kDisabledOpacity);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        if (glyph_.plus)
            PaintPlus(*painter, ink);
        PaintFrame(*painter, ink);
        PaintSign(*painter, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

private:
    // A palette's own link colours are loud on so small a thing.
    QColor Muted(const QPalette& palette) const {
        const QColor text = palette.color(QPalette::Active, QPalette::Text),
                     own = palette.color(QPalette::Active, glyph_.role);
        const auto mean = [](int a, int b) { return (2 * a + 3 * b) / 5; };
        return QColor(mean(text.red(), own.red()), mean(text.green(), own.green()),
                      mean(text.blue(), own.blue()));
    }

    // All in a square of 16 by 16.
    void PaintFrame(QPainter& painter, const QColor& ink) const {
        QColor fill = ink;
        fill.setAlphaF(glyph_.open ? 0.3F : 0.06F);
        painter.setPen(QPen(ink, 1));
        painter.setBrush(fill);
        const QRectF box(1.5, 2.5, 13, 11);
        switch (glyph_.frame) {
        case GlyphFrame::Square:
            painter.drawRoundedRect(box, 2, 2);
            break;
        case GlyphFrame::Round:
            painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
            break;
        case GlyphFrame::Sheet: {
            QPainterPath sheet(QPointF(2.5, 1.5));
            sheet.lineTo(10.5, 1.5);
            sheet.lineTo(13.5, 4.5);
            sheet.lineTo(13.5, 14.5);
            sheet.lineTo(2.5, 14.5);
            sheet.closeSubpath();
            painter.drawPath(sheet);
            break;
        }
        case GlyphFrame::None:
            break;
        }
    }

    void PaintSign(QPainter& painter, const QColor& ink) const {
        painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        if (const auto lines = Lines().constFind(glyph_.sign); lines != Lines().constEnd()) {
            for (const QPolygonF& line : *lines)
                painter.drawPolyline(line);
            return;
        }
        QFont font = QApplication::font();
        font.setBold(true);
        font.setPixelSize(glyph_.frame == GlyphFrame::None ? 13 : glyph_.sign.size() > 1 ? 8 : 10);
        painter.setFont(font);
        painter.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, glyph_.sign);
    }

    // In the lower right corner, with some air around it; what comes behind it stays out of there.
    static void PaintPlus(QPainter& painter, const QColor& ink) {
        painter.setPen(QPen(ink, 1.6));
        painter.drawLine(QPointF(13, 10.2), QPointF(13, 15.8));
        painter.drawLine(QPointF(10.2, 13), QPointF(15.8, 13));
        QPainterPath rest, corner;
        rest.addRect(0, 0, 16, 16);
        corner.addRect(9.2, 9.2, 7, 7);
        painter.setClipPath(rest.subtracted(corner));
    }

    Glyph glyph_;
};

} // namespace

QIcon MakeIcon(const Glyph& glyph) {
    return QIcon(new GlyphEngine(glyph));
}

} // namespace desktop
