// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/Glyphs.h"
#include "desktop/base/GlyphIcon.h"
#include <QHash>
#include <optional>

namespace desktop {

namespace {

std::optional<Glyph> GlyphOf(const QString& kind) {
    static const QHash<QString, Glyph> glyphs{
        {QStringLiteral("element"), {QStringLiteral("<>"), GlyphFrame::Square, QPalette::Link}},
        {QStringLiteral("attribute"), {QStringLiteral("="), GlyphFrame::Round, QPalette::LinkVisited}},
        {QStringLiteral("text"), {QStringLiteral("T"), GlyphFrame::Square, QPalette::Text}},
        {QStringLiteral("cdatasection"), {QStringLiteral("[ ]"), GlyphFrame::Square, QPalette::Text}},
        {QStringLiteral("entity"), {QStringLiteral("&"), GlyphFrame::Round, QPalette::Text}},
        {QStringLiteral("entityreference"), {QStringLiteral("&;"), GlyphFrame::Round, QPalette::Text}},
        {QStringLiteral("processinginstruction"),
         {QStringLiteral("?"), GlyphFrame::Round, QPalette::LinkVisited}},
        {QStringLiteral("comment"), {QStringLiteral("!"), GlyphFrame::Round, QPalette::Text}},
        {QStringLiteral("document"), {{}, GlyphFrame::Sheet, QPalette::Text}},
        {QStringLiteral("documenttype"), {QStringLiteral("D"), GlyphFrame::Sheet, QPalette::LinkVisited}},
        {QStringLiteral("documentfragment"), {QStringLiteral(".."), GlyphFrame::Sheet, QPalette::Text}},
        {QStringLiteral("xmlroot"), {QStringLiteral("<>"), GlyphFrame::Sheet, QPalette::Link}},
        {QStringLiteral("xmlrootelement"), {QStringLiteral("S"), GlyphFrame::Square, QPalette::Link}},
    };
    const auto found = glyphs.constFind(kind);
    return found == glyphs.constEnd() ? std::nullopt : std::optional(*found);
}

QVariant MakeNodeIcon(const QString& picture) {
    static const QString kOpen = QStringLiteral("open");
    if (const auto glyph = GlyphOf(picture))
        return MakeIcon(*glyph);
    auto glyph = picture.startsWith(kOpen) ? GlyphOf(picture.mid(kOpen.size())) : std::nullopt;
    if (!glyph)
        return {};
    glyph->open = true;
    return MakeIcon(*glyph);
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
    auto glyph = GlyphOf(picture);
    if (!glyph)
        return {};
    glyph->plus = true;
    return MakeIcon(*glyph);
}

QIcon SignIcon(const QString& sign) {
    return MakeIcon({sign, GlyphFrame::None, QPalette::ButtonText});
}

QIcon DocumentIcon() {
    return MakeIcon({QStringLiteral("<>"), GlyphFrame::Sheet, QPalette::Text});
}

QIcon TitleIcon(TitleButton button) {
    switch (button) {
    case TitleButton::Minimise:
        return SignIcon(QStringLiteral("minimise"));
    case TitleButton::Restore:
        return SignIcon(QStringLiteral("restore"));
    case TitleButton::Close:
        break;
    }
    return SignIcon(QStringLiteral("close"));
}

} // namespace desktop
