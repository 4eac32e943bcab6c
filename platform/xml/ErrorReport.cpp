// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ErrorReport.h"
#include <libxml/xmlerror.h>
#include <limits>

namespace xml {

namespace {

constexpr qsizetype kLongestSource = 400; // units of the line that are shown with an error

int Number(qsizetype value) {
    return static_cast<int>(std::min<qsizetype>(value, std::numeric_limits<int>::max()));
}

bool IsLineEnd(QChar c) {
    return c == u'\r' || c == u'\n';
}

/// Number of line ends before `place`, CR LF being one, and the start of the place's line. The character of a
/// line end belongs to the line that it ends.
struct Line {
    qsizetype number = 1;
    qsizetype start = 0;
};

Line LineOf(QStringView text, qsizetype place) {
    Line line;
    for (qsizetype i = 0; i < place; ++i) {
        if (!IsLineEnd(text[i]))
            continue;
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            if (i + 1 == place)
                break;
            ++i;
        }
        ++line.number;
        line.start = i + 1;
    }
    return line;
}

/// The line without its end; of a long one a window around the place.
QString SourceLine(QStringView text, qsizetype start, qsizetype place) {
    qsizetype end = start;
    while (end < text.size() && !IsLineEnd(text[end]))
        ++end;
    if (end - start > kLongestSource) {
        start = std::clamp(place - kLongestSource / 2, start, end - kLongestSource);
        end = start + kLongestSource;
        if (text[start].isLowSurrogate())
            ++start;
        if (text[end - 1].isHighSurrogate())
            --end;
    }
    return text.mid(start, end - start).toString();
}

/// The kind of error by what stands at its place, where that tells more than the parser did.
int CodeAt(QStringView text, const Complaint& complaint, qsizetype place) {
    if (IsForbiddenCharacter(text, place))
        return XML_ERR_INVALID_CHAR;
    return IsSecondMark(text, complaint, place) ? kErrorByteOrderMark : complaint.code;
}

} // namespace

ParseError MakeParseError(QStringView text, const Complaint& complaint, const QString& url) {
    ParseError error;
    const qsizetype place = ErrorPlace(text, complaint);
    error.errorCode = CodeAt(text, complaint, place);
    error.reason = ErrorReason(text, complaint, place) + QStringLiteral("\r\n");
    error.url = url;
    if (place < 0)
        return error;
    const Line line = LineOf(text, place);
    error.filepos = Number(place + 1);
    error.line = Number(line.number);
    error.linepos = Number(place - line.start + 1);
    error.srcText = SourceLine(text, line.start, place);
    return error;
}

} // namespace xml
