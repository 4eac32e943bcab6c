// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Glyphs.h"
#include <QApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace desktop {

namespace {

const QString kMinimise = QStringLiteral("minimise");
const QString kRestore = QStringLiteral("restore");
const QString kClose = QStringLiteral("close");

enum class Frame { Square, Round, Sheet, None };

/// What is drawn for one picture.
struct Drawing {
    QString sign;
    Frame frame = Frame::Square;
    QPalette::ColorRole role = QPalette::Text; ///< colour of frame and sign
    bool open = false;                         ///< the frame is filled
    bool plus = false;                         ///< with a plus: what makes a new one
    bool operator==(const Drawing&) const = default;
};

/// Signs that are drawn by lines instead of letters.
const QHash<QString, QList<QPolygonF>>& Lines() {
    static const QHash<QString, QList<QPolygonF>> lines{
        {QStringLiteral("<>"), {{{6.7, 5.5}, {4.2, 8}, {6.7, 10.5}}, {{9.3, 5.5}, {11.8, 8}, {9.3, 10.5}}}},
        {QStringLiteral("</>"),
         {{{4.5, 4.5}, {1.2, 8}, {4.5, 11.5}},
          {{11.5, 4.5}, {14.8, 8}, {11.5, 11.5}},
          {{9.4, 3.5}, {6.6, 12.5}}}},
        {kMinimise, {{{4, 11.5}, {12, 11.5}}}},
        {kRestore,
         {{{6.5, 6}, {6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}, {10, 9.5}},
          {{3.5, 6.5}, {9.5, 6.5}, {9.5, 12.5}, {3.5, 12.5}, {3.5, 6.5}}}},
        {kClose, {{{4, 4}, {12, 12}}, {{12, 4}, {4, 12}}}},
    };
    return lines;
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(const Drawing& drawing) : drawing_(drawing) {}
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
        if (drawing_.plus)
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
                     own = palette.color(QPalette::Active, drawing_.role);
        const auto mean = [](int a, int b) { return (2 * a + 3 * b) / 5; };
        return QColor(mean(text.red(), own.red()), mean(text.green(), own.green()),
                      mean(text.blue(), own.blue()));
    }

    // All in a square of 16 by 16.
    void PaintFrame(QPainter& painter, const QColor& ink) const {
        QColor fill = ink;
        fill.setAlphaF(drawing_.open ? 0.3F : 0.06F);
        painter.setPen(QPen(ink, 1));
        painter.setBrush(fill);
        const QRectF box(1.5, 2.5, 13, 11);
        switch (drawing_.frame) {
        case Frame::Square:
            painter.drawRoundedRect(box, 2, 2);
            break;
        case Frame::Round:
            painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
            break;
        case Frame::Sheet: {
            QPainterPath sheet(QPointF(2.5, 1.5));
            sheet.lineTo(10.5, 1.5);
            sheet.lineTo(13.5, 4.5);
            sheet.lineTo(13.5, 14.5);
            sheet.lineTo(2.5, 14.5);
            sheet.closeSubpath();
            painter.drawPath(sheet);
            break;
        }
        case Frame::None:
            break;
        }
    }

    void PaintSign(QPainter& painter, const QColor& ink) const {
        painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        if (const auto lines = Lines().constFind(drawing_.sign); lines != Lines().constEnd()) {
            for (const QPolygonF& line : *lines)
                painter.drawPolyline(line);
            return;
        }
        QFont font = QApplication::font();
        font.setBold(true);
        font.setPixelSize(drawing_.frame == Frame::None ? 13 : drawing_.sign.size() > 1 ? 8 : 10);
        painter.setFont(font);
        painter.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, drawing_.sign);
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

    Drawing drawing_;
};

QIcon MakeIcon(const Drawing& drawing) {
    return QIcon(new GlyphEngine(drawing));
}

std::optional<Drawing> DrawingOf(const QString& kind) {
    static const QHash<QString, Drawing> drawings{
        {QStringLiteral("element"), {QStringLiteral("<>"), Frame::Square, QPalette::Link}},
        {QStringLiteral("attribute"), {QStringLiteral("="), Frame::Round, QPalette::LinkVisited}},
        {QStringLiteral("text"), {QStringLiteral("T"), Frame::Square, QPalette::Text}},
        {QStringLiteral("cdatasection"), {QStringLiteral("[ ]"), Frame::Square, QPalette::Text}},
        {QStringLiteral("entity"), {QStringLiteral("&"), Frame::Round, QPalette::Text}},
        {QStringLiteral("entityreference"), {QStringLiteral("&;"), Frame::Round, QPalette::Text}},
        {QStringLiteral("processinginstruction"), {QStringLiteral("?"), Frame::Round, QPalette::LinkVisited}},
        {QStringLiteral("comment"), {QStringLiteral("!"), Frame::Round, QPalette::Text}},
        {QStringLiteral("document"), {{}, Frame::Sheet, QPalette::Text}},
        {QStringLiteral("documenttype"), {QStringLiteral("D"), Frame::Sheet, QPalette::LinkVisited}},
        {QStringLiteral("documentfragment"), {QStringLiteral(".."), Frame::Sheet, QPalette::Text}},
        {QStringLiteral("xmlroot"), {QStringLiteral("<>"), Frame::Sheet, QPalette::Link}},
        {QStringLiteral("xmlrootelement"), {QStringLiteral("S"), Frame::Square, QPalette::Link}},
    };
    const auto found = drawings.constFind(kind);
    return found == drawings.constEnd() ? std::nullopt : std::optional(*found);
}

QVariant MakeNodeIcon(const QString& picture) {
    static const QString kOpen = QStringLiteral("open");
    if (const auto drawing = DrawingOf(picture))
        return MakeIcon(*drawing);
    auto drawing = picture.startsWith(kOpen) ? DrawingOf(picture.mid(kOpen.size())) : std::nullopt;
    if (!drawing)
        return {};
    drawing->open = true;
    return MakeIcon(*drawing);
}

} // namespace

// A view asks for these at each repaint of each row.
QVariant NodeIcon(const QString& picture) {
    static QHash<QString, QVariant> made;
    const auto found = made.constFind(picture);
    return found != made.constEnd() ? *found : *made.insert(picture, MakeNodeIcon(picture));
}

QVariant RowIcon(int kind) {
    switch (kind) {
    case 1:
        return NodeIcon(QStringLiteral("element"));
    case 2:
        return NodeIcon(QStringLiteral("attribute"));
    case 3:
        return NodeIcon(QStringLiteral("text"));
    case 4:
        return NodeIcon(QStringLiteral("cdatasection"));
    case 7:
        return NodeIcon(QStringLiteral("processinginstruction"));
    case 8:
        return NodeIcon(QStringLiteral("comment"));
    case 10:
        return NodeIcon(QStringLiteral("documenttype"));
    default:
        return {};
    }
}

QIcon NewNodeIcon(const QString& picture) {
    auto drawing = DrawingOf(picture);
    if (!drawing)
        return {};
    drawing->plus = true;
    return MakeIcon(*drawing);
}

QIcon SignIcon(const QString& sign) {
    return MakeIcon({sign, Frame::None, QPalette::ButtonText});
}

QIcon DocumentIcon() {
    return MakeIcon({QStringLiteral("<>"), Frame::Sheet, QPalette::Text});
}

QIcon TitleIcon(TitleButton button) {
    switch (button) {
    case TitleButton::Minimise:
        return SignIcon(kMinimise);
    case TitleButton::Restore:
        return SignIcon(kRestore);
    case TitleButton::Close:
        break;
    }
    return SignIcon(kClose);
}

} // namespace desktop
