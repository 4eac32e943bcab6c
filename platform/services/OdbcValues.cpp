// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/OdbcValues.h"
#include <QLocale>
#include <QStringDecoder>
#include <cmath>

namespace services::odbc {

namespace {

constexpr SQLLEN kPiece = 1 << 12;   // bytes of a long value that are fetched at first
constexpr SQLLEN kLargest = 1 << 26; // and at once

QString FromBytes(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

QString FloatText(double value) {
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("INF") : QStringLiteral("-INF");
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// What a driver's word for a value that isn't a number becomes; empty for a number.
QString WordOfReal(QStringView value) {
    constexpr std::pair<const char*, const char*> kWords[] = {
        {"infinity", "INF"}, {"inf", "INF"}, {"-infinity", "-INF"}, {"-inf", "-INF"}, {"nan", "NaN"}};
    for (const auto& [word, written] : kWords) {
        if (value.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return QLatin1String(written);
    }
    return {};
}

/// Writes a value, which stands behind `from`, as XML Schema does; what isn't of its type's form stays.
void Rewrite(QString& text, qsizetype from, Reading reading) {
    constexpr qsizetype kDate = 10; // characters of a date
    const qsizetype length = text.size() - from;
    switch (reading) {
    case Reading::Bit: // the text of a zero may be as short as nothing
        if (length == 0)
            text += QStringLiteral("false");
        [[fallthrough]];
    case Reading::Boolean:
        if (length == 1 && QStringView(u"1tT\x01").contains(text[from]))
            text.replace(from, 1, QStringLiteral("true"));
        else if (length == 1 && QStringView(u"0fF").contains(text[from]))
            text.replace(from, 1, QStringLiteral("false"));
        break;
    case Reading::Timestamp:
        if (length > kDate && text[from + kDate] == u' ' && text[from + 4] == u'-')
            text[from + kDate] = u'T';
        break;
    case Reading::Decimal:
        if (length > 0 && text[from] == u'.')
            text.insert(from, u'0');
        else if (length > 1 && text[from] == u'-' && text[from + 1] == u'.')
            text.insert(from + 1, u'0');
        break;
    case Reading::Real:
        if (const QString word = WordOfReal(QStringView(text).sliced(from)); !word.isEmpty())
            text.replace(from, length, word);
        break;
    default:
        break;
    }
}

} // namespace

Reading ReadingOf(const DatabaseColumn& column, const Session& session) {
    const bool boolean = column.typeName.compare(QStringLiteral("bool"), Qt::CaseInsensitive) == 0;
    switch (column.type) {
    case SQL_BIT: // SQLite may have a text there
        return session.sqlite ? Reading::Boolean : Reading::Bit;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return Reading::Decimal;
    case SQL_REAL: // as the driver writes it: as a double it would get digits that it hasn't
        return session.sqlite ? Reading::Text : Reading::Real;
    case SQL_FLOAT:
    case SQL_DOUBLE: // SQLite may have a text there
        return session.sqlite ? Reading::Text : Reading::Float;
    case SQL_TIMESTAMP:
    case SQL_TYPE_TIMESTAMP:
        return Reading::Timestamp;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY: // MariaDB's word for what it gives as a text
        return column.typeName.compare(QStringLiteral("uuid"), Qt::CaseInsensitive) == 0 ? Reading::Text
                                                                                         : Reading::Binary;
    default:
        return boolean ? Reading::Boolean : Reading::Text;
    }
}

void ColumnReader::Bind(SQLHSTMT handle) {
    if (reading_ != Reading::Binary && reading_ != Reading::Float)
        bound_ = Good(SQLBindCol(handle, number_, SQL_C_WCHAR, buffer_, sizeof buffer_, &length_));
}

bool ColumnReader::Read(SQLHSTMT handle, QString& out, bool& isNull) {
    isNull = false;
    if (reading_ == Reading::Binary)
        return ReadBinary(handle, out, isNull);
    if (reading_ == Reading::Float)
        return ReadFloat(handle, out, isNull);
    const qsizetype from = out.size();
    if (!(bound_ && ReadBound(out, isNull)) && !ReadText(handle, out, isNull))
        return false;
    if (!isNull)
        Rewrite(out, from, reading_);
    return true;
}

// False where the value is longer than the buffer.
bool ColumnReader::ReadBound(QString& out, bool& isNull) const {
    isNull = length_ == SQL_NULL_DATA;
    if (isNull)
        return true;
    constexpr auto kRoom = static_cast<SQLLEN>(sizeof(SQLWCHAR) * (kUnits - 1));
    if (length_ == SQL_NO_TOTAL || length_ > kRoom)
        return false;
    out += QStringView(reinterpret_cast<const QChar*>(buffer_), length_ / SQLLEN(sizeof(SQLWCHAR)));
    return true;
}

// What the first piece tells of the length is fetched in one piece more: drivers convert a value anew for
// each.
bool ColumnReader::ReadText(SQLHSTMT handle, QString& out, bool& isNull) {
    if (narrow_)
        return ReadNarrow(handle, out, isNull);
    constexpr auto kUnit = static_cast<SQLLEN>(sizeof(SQLWCHAR));
    SQLLEN room =
        bound_ && length_ > 0 ? std::min(length_ + kUnit, kLargest) : kPiece; // with the null at its end
    for (bool first = true;; first = false) {
        const qsizetype from = out.size();
        out.resize(from + room / kUnit);
        SQLLEN length = 0;
        const SQLRETURN code = SQLGetData(handle, number_, SQL_C_WCHAR, out.data() + from, room, &length);
        isNull = Good(code) && length == SQL_NULL_DATA;
        const SQLLEN whole = room - kUnit;
        const bool cut = Good(code) && (length == SQL_NO_TOTAL || length > whole);
        out.resize(from + (!Good(code) || isNull ? 0 : cut ? whole : length) / kUnit);
        if (code != SQL_NO_DATA && !Good(code)) {
            narrow_ = first;
            return first && ReadNarrow(handle, out, isNull);
        }
        if (!cut)
            return true;
        room = length == SQL_NO_TOTAL ? std::min(room * 2, kLargest)
                                      : std::min(length - whole + kUnit, kLargest);
    }
}

bool ColumnReader::ReadNarrow(SQLHSTMT handle, QString& out, bool& isNull) {
    QByteArray bytes;
    char piece[kPiece];
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN code = SQLGetData(handle, number_, SQL_C_CHAR, piece, kPiece, &length);
        if (code != SQL_NO_DATA && !Good(code))
            return false;
        isNull = length == SQL_NULL_DATA;
        const bool cut = code != SQL_NO_DATA && !isNull && (length == SQL_NO_TOTAL || length > kPiece - 1);
        if (code != SQL_NO_DATA && !isNull)
            bytes.append(piece, cut ? kPiece - 1 : length);
        if (!cut)
            break;
    }
    out += FromBytes(bytes);
    return true;
}

bool ColumnReader::ReadBinary(SQLHSTMT handle, QString& out, bool& isNull) const {
    char piece[kPiece];
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN code = SQLGetData(handle, number_, SQL_C_BINARY, piece, kPiece, &length);
        if (code == SQL_NO_DATA)
            return true;
        if (!Good(code))
            return false;
        isNull = length == SQL_NULL_DATA;
        if (isNull)
            return true;
        const bool cut = length == SQL_NO_TOTAL || length > kPiece;
        out += QString::fromLatin1(QByteArray::fromRawData(piece, cut ? kPiece : length).toHex().toUpper());
        if (!cut)
            return true;
    }
}

bool ColumnReader::ReadFloat(SQLHSTMT handle, QString& out, bool& isNull) const {
    double value = 0;
    SQLLEN length = 0;
    if (!Good(SQLGetData(handle, number_, SQL_C_DOUBLE, &value, sizeof value, &length)))
        return false;
    isNull = length == SQL_NULL_DATA;
    if (!isNull)
        out += FloatText(value);
    return true;
}

} // namespace services::odbc
