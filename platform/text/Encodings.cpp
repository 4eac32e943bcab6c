// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Encodings.h"
#include "platform/text/Iconv.h"
#include <algorithm>
#include <array>
#include <langinfo.h>

namespace text {

namespace {

struct Alias {
    const char* label;
    const char* name;
};

// Labels are in upper case. GB2312 and the Shift-JIS labels stand for their supersets, as they do in
// practice.
constexpr std::array kAliases = {
    Alias{"UTF7", "UTF-7"},
    Alias{"UNICODE-1-1-UTF-7", "UTF-7"},
    Alias{"UTF8", "UTF-8"},
    Alias{"UTF16", "UTF-16"},
    Alias{"UCS-2", "UTF-16"},
    Alias{"ISO-10646-UCS-2", "UTF-16"},
    Alias{"UNICODE", "UTF-16"},
    Alias{"UTF16LE", "UTF-16LE"},
    Alias{"UCS-2LE", "UTF-16LE"},
    Alias{"UTF16BE", "UTF-16BE"},
    Alias{"UCS-2BE", "UTF-16BE"},
    Alias{"UTF32", "UTF-32"},
    Alias{"UCS-4", "UTF-32"},
    Alias{"ISO-10646-UCS-4", "UTF-32"},
    Alias{"UCS-4LE", "UTF-32LE"},
    Alias{"UCS-4BE", "UTF-32BE"},
    Alias{"GB2312", "GBK"},
    Alias{"GB_2312-80", "GBK"},
    Alias{"EUC-CN", "GBK"},
    Alias{"X-GBK", "GBK"},
    Alias{"936", "GBK"},
    Alias{"CP936", "GBK"},
    Alias{"LATIN1", "ISO-8859-1"},
    Alias{"L1", "ISO-8859-1"},
    Alias{"ASCII", "US-ASCII"},
    Alias{"ISO-646", "US-ASCII"},
    Alias{"ISO646-US", "US-ASCII"},
    Alias{"ANSI_X3.4-1968", "US-ASCII"},
    Alias{"SHIFT-JIS", "CP932"},
    Alias{"SHIFT_JIS", "CP932"},
    Alias{"SJIS", "CP932"},
    Alias{"X-SJIS", "CP932"},
    Alias{"MS-KANJI", "CP932"},
    Alias{"MS_KANJI", "CP932"},
    Alias{"WINDOWS-31J", "CP932"},
    Alias{"BIG-5", "BIG5"},
    Alias{"950", "BIG5"},
    Alias{"CP950", "BIG5"},
    Alias{"KS_C_5601-1987", "CP949"},
    Alias{"ISO-8859-8-I", "ISO-8859-8"},
    Alias{"ISO-8859-8-E", "ISO-8859-8"},
};

struct OwnEncoding {
    const char* name;
    Encoding::Kind kind;
    bool needsByteOrderMark;
    bool byteCompatible;
};

constexpr std::array kOwnEncodings = {
    OwnEncoding{"UTF-7", Encoding::Kind::Utf7, false, true},
    OwnEncoding{"UTF-8", Encoding::Kind::Utf8, false, true},
    OwnEncoding{"UTF-16", Encoding::Kind::Utf16Le, true, false},
    OwnEncoding{"UTF-16LE", Encoding::Kind::Utf16Le, false, false},
    OwnEncoding{"UTF-16BE", Encoding::Kind::Utf16Be, false, false},
    OwnEncoding{"UTF-32LE", Encoding::Kind::Other, false, false},
    OwnEncoding{"UTF-32BE", Encoding::Kind::Other, false, false},
    OwnEncoding{"ISO-8859-1", Encoding::Kind::Latin1, false, true},
    OwnEncoding{"US-ASCII", Encoding::Kind::Ascii, false, true},
};

/// The one name of an encoding: labels with their prefix left out or written otherwise get the usual one.
QByteArray NameOf(const QByteArray& label) {
    for (const Alias& alias : kAliases) {
        if (label == alias.label)
            return alias.name;
    }
    for (const char* prefix : {"8859-", "ISO8859-", "ISO_8859-"}) {
        if (label.startsWith(prefix))
            return "ISO-8859-" + label.mid(qstrlen(prefix));
    }
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (const char* prefix : {"", "WINDOWS-", "X-CP", "MS", "CP-"}) {
        const QByteArray number = label.startsWith(prefix) ? label.mid(qstrlen(prefix)) : QByteArray();
        if (!number.isEmpty() && std::all_of(number.begin(), number.end(), isDigit))
            return NameOf("CP" + number);
    }
    return label;
}

/// Any other encoding that the system's converter knows, as long as a declaration in it can be read as ASCII.
std::optional<Encoding> SystemEncoding(const QByteArray& name) {
    const auto usual = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.' ||
               c == ':';
    };
    constexpr qsizetype kLongest = 40;
    if (name.isEmpty() || name.size() > kLongest || !std::all_of(name.begin(), name.end(), usual))
        return std::nullopt;
    if (!Iconv(kUtf16Native, name.constData()).IsOpen() ||
        !Iconv(name.constData(), kUtf16Native).ConvertsToItself("<?xml version='1.0'?>"))
        return std::nullopt;
    return Encoding{Encoding::Kind::Other, name};
}

} // namespace

std::optional<Encoding> FindEncoding(const QString& label) {
    const QByteArray name = NameOf(label.trimmed().toUpper().toLatin1());
    if (name == "UTF-32")
        return Encoding{Encoding::Kind::Other, "UTF-32LE", true, false};
    for (const OwnEncoding& own : kOwnEncodings) {
        if (name == own.name)
            return Encoding{own.kind, own.name, own.needsByteOrderMark, own.byteCompatible};
    }
    return SystemEncoding(name);
}

std::optional<Encoding> LocaleEncoding() {
    std::optional<Encoding> encoding = FindEncoding(QString::fromLatin1(nl_langinfo(CODESET)));
    if (!encoding || (encoding->kind != Encoding::Kind::Other && encoding->kind != Encoding::Kind::Latin1))
        return std::nullopt;
    return encoding;
}

QByteArray ByteOrderMarkIn(const Encoding& encoding) {
    if (encoding.kind == Encoding::Kind::Utf16Le)
        return QByteArrayLiteral("\xFF\xFE");
    if (encoding.kind == Encoding::Kind::Utf16Be)
        return QByteArrayLiteral("\xFE\xFF");
    if (encoding.name == "UTF-32LE")
        return QByteArray("\xFF\xFE\0\0", 4);
    if (encoding.name == "UTF-32BE")
        return QByteArray("\0\0\xFE\xFF", 4);
    return QByteArrayLiteral("\xEF\xBB\xBF");
}

bool SameButForByteOrder(const Encoding& a, const Encoding& b) {
    const auto name = [](const Encoding& encoding) {
        return encoding.byteCompatible ? encoding.name : encoding.name.first(qstrlen("UTF-16"));
    };
    return name(a) == name(b);
}

} // namespace text
