// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Declaration.h"

namespace text {

namespace {

constexpr qsizetype kSearched = 1024; // units in which the declaration must be complete

/// Where things stand in the XML declaration; all -1 in a text without one.
struct Declaration {
    qsizetype labelStart = -1;
    qsizetype labelEnd = -1;
    qsizetype insertAt = -1; ///< behind the version, where an encoding belongs
};

bool IsSpace(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

qsizetype SkipSpaces(QStringView text, qsizetype at) {
    while (at < text.size() && IsSpace(text[at]))
        ++at;
    return at;
}

Declaration FindDeclaration(QStringView whole) {
    const QStringView text = whole.first(std::min(whole.size(), kSearched));
    Declaration found;
    qsizetype at = qsizetype{5};
    if (!text.startsWith(u"<?xml") || at == text.size() || !(IsSpace(text[at]) || text[at] == u'?'))
        return found;
    found.insertAt = at;
    for (;;) {
        const qsizetype nameStart = at = SkipSpaces(text, at);
        while (at < text.size() && text[at] >= u'a' && text[at] <= u'z')
            ++at;
        const QStringView name = text.sliced(nameStart, at - nameStart);
        at = SkipSpaces(text, at);
        if (name.isEmpty() || at == text.size() || text[at] != u'=')
            return found;
        at = SkipSpaces(text, at + 1);
        if (at == text.size() || (text[at] != u'"' && text[at] != u'\''))
            return found;
        const qsizetype close = text.indexOf(text[at], at + 1);
        if (close < 0)
            return found;
        if (name == u"encoding") {
            found.labelStart = at + 1;
            found.labelEnd = close;
            return found;
        }
        at = close + 1;
        if (name == u"version")
            found.insertAt = at;
    }
}

} // namespace

QString DeclaredEncoding(QStringView text) {
    const Declaration found = FindDeclaration(text);
    if (found.labelStart < 0)
        return {};
    return text.sliced(found.labelStart, found.labelEnd - found.labelStart).toString();
}

QString DeclaredEncoding(const LongText& text) {
    return DeclaredEncoding(text.mid(0, kSearched));
}

QString WithDeclaredEncoding(const QString& text, const QString& label) {
    const Declaration found = FindDeclaration(text);
    if (found.labelStart >= 0)
        return QString(text).replace(found.labelStart, found.labelEnd - found.labelStart, label);
    if (found.insertAt >= 0)
        return QString(text).insert(found.insertAt, QStringLiteral(" encoding=\"") + label + u'"');
    return text;
}

} // namespace text
