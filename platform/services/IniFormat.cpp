// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/IniFormat.h"
#include "platform/text/TextTools.h"
#include <QIODevice>
#include <QRegularExpression>

namespace services {

namespace {

constexpr int kHexDigits = 4;

QString Unescaped(const QByteArray& bytes) {
    static const QRegularExpression escape(QStringLiteral(R"(\\(?:([nr\\])|u([0-9a-fA-F]{4})))"));
    const QString text = QString::fromUtf8(bytes.trimmed());
    QString plain;
    qsizetype at = 0;
    for (const QRegularExpressionMatch& match : escape.globalMatch(text)) {
        plain += QStringView(text).sliced(at, match.capturedStart() - at);
        const QString letter = match.captured(1);
        if (letter.isEmpty())
            plain += QChar(match.capturedView(2).toUShort(nullptr, 16));
        else
            plain += letter == u"n" ? u"\n" : letter == u"r" ? u"\r" : u"\\";
        at = match.capturedEnd();
    }
    return plain += QStringView(text).sliced(at);
}

/// Whether a unit can't stand as it is at this place.
bool NeedsNumber(const QString& text, qsizetype i, QStringView special) {
    const QChar c = text[i];
    const bool atEdge = i == 0 || i + 1 == text.size();
    return text::IsLoneHalf(text, i) || (atEdge && c.isSpace()) || c < u' ' || c == QChar::ByteOrderMark ||
           special.contains(c);
}

/// `special`: what would end a name or make it something else.
QByteArray Escaped(const QString& text, QStringView special) {
    QString written;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\n' || c == u'\r' || c == u'\\')
            written += c == u'\n' ? u"\\n" : c == u'\r' ? u"\\r" : u"\\\\";
        else if (NeedsNumber(text, i, special))
            written += QStringLiteral("\\u%1").arg(c.unicode(), kHexDigits, 16, QLatin1Char('0'));
        else
            written += c;
    }
    return written.toUtf8();
}

bool Read(QIODevice& file, QSettings::SettingsMap& settings) {
    constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";
    QString group;
    QByteArray bytes = file.readAll();
    if (bytes.startsWith(kByteOrderMark))
        bytes.remove(0, kByteOrderMark.size());
    for (const QByteArray& line : bytes.split('\n')) {
        const QByteArray text = line.trimmed();
        const qsizetype equals = text.indexOf('=');
        if (text.startsWith('[') && text.endsWith(']')) {
            group = Unescaped(text.sliced(1, text.size() - 2)) + u'/';
        } else if (equals > 0 && !text.startsWith(';') && !text.startsWith('#')) {
            const QString key = group + Unescaped(text.first(equals));
            if (!settings.contains(key))
                settings.insert(key, Unescaped(text.sliced(equals + 1)));
        }
    }
    return true;
}

bool Write(QIODevice& file, const QSettings::SettingsMap& settings) {
    QString group;
    QByteArray bytes;
    for (auto it = settings.begin(); it != settings.end(); ++it) { // sorted, so groups stand together
        const qsizetype name = it.key().indexOf(u'/') + 1;
        if (it.key().first(name) != group) {
            group = it.key().first(name);
            bytes += (bytes.isEmpty() ? "[" : "\n[") + Escaped(group.chopped(1), u"[]") + "]\n";
        }
        bytes += Escaped(it.key().sliced(name), u"=[];#") + '=' + Escaped(it->toString(), u"") + '\n';
    }
    return file.write(bytes) == bytes.size();
}

} // namespace

QSettings::Format IniFormat() {
    static const QSettings::Format format = QSettings::registerFormat(QStringLiteral("ini"), Read, Write);
    return format;
}

} // namespace services
