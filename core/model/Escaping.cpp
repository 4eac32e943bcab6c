// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Escaping.h"
#include <QRegularExpression>
#include <algorithm>
#include <cstring>

namespace mXMLEdit {

namespace {

bool Holds(text::CompactView view, char wanted) {
    if (!view.wide)
        return view.length > 0 && std::memchr(view.data, wanted, view.length) != nullptr;
    for (std::uint32_t i = 0; i < view.length; ++i) {
        if (view.at(i) == static_cast<char16_t>(wanted))
            return true;
    }
    return false;
}

/// The character of a reference without its "&" and ";"; 0 for none that is known.
char32_t Referenced(QStringView name) {
    constexpr struct {
        const char16_t* name;
        char16_t character;
    } kEntities[] = {{u"amp", u'&'}, {u"lt", u'<'}, {u"gt", u'>'}, {u"quot", u'"'}, {u"apos", u'\''}};
    for (const auto& entity : kEntities) {
        if (name == QStringView(entity.name))
            return entity.character;
    }
    if (!name.startsWith(u'#'))
        return 0;
    bool good = false;
    const bool hexadecimal = name.startsWith(u"#x");
    const uint code = name.sliced(hexadecimal ? 2 : 1).toUInt(&good, hexadecimal ? 16 : 10);
    return good && code <= QChar::LastValidCodePoint ? code : 0;
}

} // namespace

QString convertStringToXML(const QString& text) {
    text::CompactBuilder plain;
    plain.append(text);
    text::CompactBuilder escaped;
    escaped.appendEscaped(plain.view());
    return escaped.view().toString();
}

QString WithAmpersandsEscaped(QString typed) {
    static const QRegularExpression alone(
        QStringLiteral("&(?!(?:#[0-9]+|#x[0-9A-Fa-f]+|amp|lt|gt|quot|apos);)"));
    return typed.replace(alone, QStringLiteral("&amp;"));
}

void AppendText(text::CompactBuilder& out, text::CompactView value) {
    if (!Holds(value, '\r'))
        return out.appendEscaped(value);
    out.append(convertStringToXML(value.toString()).replace(u'\r', QStringLiteral("&#13;")));
}

void AppendAttributeValue(text::CompactBuilder& out, text::CompactView value) {
    if (!Holds(value, '\n') && !Holds(value, '\t') && !Holds(value, '\r'))
        return out.appendEscaped(value);
    // Behind a parser a carriage return beside a line feed is one of its own.
    out.append(
        WithLineEndReferences(convertStringToXML(value.toString()).replace(u'\r', QStringLiteral("&#13;"))));
}

QString WithoutReferences(const QString& escaped) {
    QString plain;
    qsizetype from = 0;
    for (qsizetype at = escaped.indexOf(u'&'); at >= 0; at = escaped.indexOf(u'&', at + 1)) {
        const qsizetype end = escaped.indexOf(u';', at);
        const char32_t character =
            end < 0 ? 0 : Referenced(QStringView(escaped).sliced(at + 1, end - at - 1));
        if (character == 0)
            continue;
        plain += QStringView(escaped).sliced(from, at - from);
        plain += QStringView(QChar::fromUcs4(character));
        from = end + 1;
    }
    return from == 0 ? escaped : plain.append(QStringView(escaped).sliced(from));
}

QString WithLineEndReferences(QString value) {
    value.replace(QStringLiteral("\r\n"), QStringLiteral("&#10;"));
    value.replace(u'\n', QStringLiteral("&#10;"));
    value.replace(u'\r', QStringLiteral("&#13;"));
    return value.replace(u'\t', QStringLiteral("&#9;"));
}

} // namespace mXMLEdit
