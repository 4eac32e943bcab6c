// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/IniText.h"
#include <QByteArrayList>
#include <algorithm>
#include <optional>

namespace services {

namespace {

constexpr qsizetype kHexDigits = 4;
constexpr QByteArrayView kMark = "\xEF\xBB\xBF";

/// The unit that "uXXXX" at `at` stands for.
std::optional<char16_t> UnitAt(const QString& text, qsizetype at) {
    if (text.size() < at + 1 + kHexDigits || text[at] != u'u')
        return std::nullopt;
    char16_t unit = 0;
    for (const QChar c : QStringView(text).sliced(at + 1, kHexDigits)) {
        bool isDigit = false;
        const int digit = QString(c).toInt(&isDigit, 16);
        if (!isDigit)
            return std::nullopt;
        unit = static_cast<char16_t>(unit << 4 | digit);
    }
    return unit;
}

QString Unescaped(const QByteArray& bytes) {
    QString text = QString::fromUtf8(bytes);
    if (!text.contains(u'\\'))
        return text;
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1] : QChar(0);
        if (next == u'n' || next == u'r' || next == u'\\') {
            plain += next == u'n' ? u'\n' : next == u'r' ? u'\r' : u'\\';
            ++i;
        } else if (const std::optional<char16_t> unit = next == u'u' ? UnitAt(text, i + 1) : std::nullopt) {
            plain += QChar(*unit);
            i += 1 + kHexDigits;
        } else {
            plain += text[i]; // also a backslash that somebody typed
        }
    }
    return plain;
}

/// Whether a unit can't stand as it is at this place. `special`: what would end a name or make it something
/// else.
bool NeedsNumber(const QString& text, qsizetype i, QStringView special) {
    const QChar c = text[i];
    const bool atEdge = i == 0 || i + 1 == text.size();
    if (c.isHighSurrogate())
        return i + 1 == text.size() || !text[i + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return i == 0 || !text[i - 1].isHighSurrogate();
    return (atEdge && c.isSpace()) || c < u' ' || c == QChar::ByteOrderMark || special.contains(c);
}

QByteArray Escaped(const QString& text, QStringView special) {
    QString written;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\n')
            written += u"\\n";
        else if (c == u'\r')
            written += u"\\r";
        else if (c == u'\\')
            written += u"\\\\";
        else if (NeedsNumber(text, i, special))
            written += QStringLiteral("\\u%1").arg(c.unicode(), kHexDigits, 16, QLatin1Char('0'));
        else
            written += c;
    }
    return written.toUtf8();
}

QByteArray PairLine(const QString& key, const QString& value) {
    return Escaped(key, u"=[];#") + '=' + Escaped(value, u"");
}

} // namespace

IniText::Line IniText::Parse(const QByteArray& raw, const QString& section) {
    Line line{raw, section, {}, {}, false};
    const QByteArray text = raw.trimmed();
    const qsizetype equals = text.indexOf('=');
    if (text.startsWith('[') && text.endsWith(']')) {
        line.section = Unescaped(text.sliced(1, text.size() - 2).trimmed());
    } else if (equals > 0 && !text.startsWith(';') && !text.startsWith('#')) {
        line.isPair = true;
        line.key = Unescaped(text.first(equals).trimmed());
        line.value = Unescaped(text.sliced(equals + 1).trimmed());
    }
    return line;
}

IniText::IniText(const QByteArray& bytes) {
    QString section;
    mark_ = bytes.startsWith(kMark);
    for (const QByteArray& raw : bytes.sliced(mark_ ? kMark.size() : 0).split('\n')) {
        lines_.push_back(Parse(raw, section));
        section = lines_.back().section;
    }
    if (lines_.back().raw.isEmpty())
        lines_.pop_back(); // what follows the last line end
    if (!lines_.empty() && lines_.front().raw.endsWith('\r'))
        lineEnd_ = QByteArrayLiteral("\r");
}

QByteArray IniText::ToBytes() const {
    QByteArray bytes = mark_ ? QByteArray(kMark.data(), kMark.size()) : QByteArray();
    for (const Line& line : lines_)
        bytes += line.raw + '\n';
    return bytes;
}

const QString* IniText::Find(const QString& section, const QString& key) const {
    for (const Line& line : lines_) {
        if (line.isPair && line.key == key && line.section == section)
            return &line.value;
    }
    return nullptr;
}

void IniText::Set(const QString& section, const QString& key, const QString& value) {
    const Line pair{PairLine(key, value) + lineEnd_, section, key, value, true};
    const auto same = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
        return line.isPair && line.key == key && line.section == section;
    });
    if (same != lines_.end()) {
        *same = pair;
        return;
    }
    // Behind the section's last line that says something; empty lines in front of the next section stay
    // there.
    auto place = lines_.end();
    for (auto it = lines_.begin(); it != lines_.end(); ++it) {
        if (it->section == section && !it->raw.trimmed().isEmpty())
            place = it + 1;
    }
    if (place == lines_.end() && (lines_.empty() || lines_.back().section != section)) {
        if (!lines_.empty())
            lines_.push_back(Line{lineEnd_, lines_.back().section, {}, {}, false});
        lines_.push_back(Line{'[' + Escaped(section, u"[]") + ']' + lineEnd_, section, {}, {}, false});
        place = lines_.end();
    }
    lines_.insert(place, pair);
}

std::vector<std::pair<QString, QString>> IniText::All(const QString& section) const {
    std::vector<std::pair<QString, QString>> pairs;
    for (const Line& line : lines_) {
        if (line.isPair && line.section == section)
            pairs.emplace_back(line.key, line.value);
    }
    return pairs;
}

} // namespace services
