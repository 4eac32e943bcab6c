// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextTools.h"
#include "platform/text/LineEnds.h"
#include <QVarLengthArray>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace text {

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Length of the decimal number that `text` starts with: sign, digits, point, digits, exponent; 0 without a
/// digit.
qsizetype NumberLength(QStringView text) {
    qsizetype at = 0;
    const auto digits = [&] {
        const qsizetype from = at;
        while (at < text.size() && IsDigit(text[at]))
            ++at;
        return at - from;
    };
    const auto sign = [&] {
        if (at < text.size() && (text[at] == u'+' || text[at] == u'-'))
            ++at;
    };
    sign();
    qsizetype count = digits();
    if (at < text.size() && text[at] == u'.') {
        ++at;
        count += digits();
    }
    if (count == 0)
        return 0;
    const qsizetype mantissa = at;
    if (at < text.size() && (text[at] == u'E' || text[at] == u'e')) {
        ++at;
        sign();
        if (digits() == 0)
            return mantissa;
    }
    return at;
}

/// A number that NumberLength has measured; infinite when it is too large.
double ReadPlain(QStringView number) {
    QVarLengthArray<char, 64> plain; // a sign in front isn't for from_chars
    for (const QChar c : number.front() == u'+' ? number.sliced(1) : number)
        plain.append(static_cast<char>(c.unicode()));
    double value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec != std::errc::result_out_of_range)
        return value;
    return number.toString().toDouble(); // tells too large from too small
}

bool IsLineEnd(QChar c) {
    return c == u'\r' || c == u'\n';
}

/// Val rounded to a whole number (halves to the even one), 0 when Integer can't hold it.
template <typename Integer> int ValInteger(QStringView text) {
    const double value = std::nearbyint(Val(text));
    const bool fits =
        value >= std::numeric_limits<Integer>::min() && value <= std::numeric_limits<Integer>::max();
    return fits ? static_cast<int>(value) : 0;
}

const char16_t* Units(const QChar* p) {
    return reinterpret_cast<const char16_t*>(p);
}

/// Number of line ends that lack their CR or their LF.
qsizetype CountHalfLineEnds(QStringView text) {
    qsizetype count = 0;
    for (qsizetype at = text.indexOf(u'\n'); at >= 0; at = text.indexOf(u'\n', at + 1))
        count += at == 0 || text[at - 1] != u'\r';
    for (qsizetype at = text.indexOf(u'\r'); at >= 0; at = text.indexOf(u'\r', at + 1))
        count += at + 1 == text.size() || text[at + 1] != u'\n';
    return count;
}

} // namespace

double Val(QStringView text) {
    qsizetype at = 0;
    while (at < text.size() && (text[at] == u' ' || text[at] == u'\t' || IsLineEnd(text[at])))
        ++at;
    const QStringView rest = text.sliced(at);
    const QStringView number = rest.first(NumberLength(rest));
    if (number.isEmpty())
        return 0;
    return ReadPlain(number);
}

int ValInt16(QStringView text) {
    return ValInteger<std::int16_t>(text);
}

int ValInt32(QStringView text) {
    return ValInteger<std::int32_t>(text);
}

QString Str(double number) {
    if (number == 0)
        return QStringLiteral("0"); // also for the negative zero
    constexpr int kDigits = 15;
    return QString::number(number, 'G', kDigits);
}

QString Trim(const QString& text) {
    qsizetype start = 0, end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    while (start < end && text[start] == u' ')
        ++start;
    return text.mid(start, end - start); // shared when it is all: the text may be a whole document
}

bool IsBlank(QStringView text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c == u' ' || c == u'\t' || IsLineEnd(c); });
}

qsizetype FindLoneHalf(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate())
            continue;
        if (text[i].isLowSurrogate() || i + 1 == text.size() || !text[i + 1].isLowSurrogate())
            return i;
        ++i;
    }
    return -1;
}

bool IsLoneHalf(QStringView text, qsizetype position) {
    if (text[position].isLowSurrogate())
        return position == 0 || !text[position - 1].isHighSurrogate();
    const bool paired = position + 1 < text.size() && text[position + 1].isLowSurrogate();
    return text[position].isHighSurrogate() && !paired;
}

QString WithoutLoneHalves(const QString& text) {
    QString result = text;
    for (qsizetype from = 0;;) {
        const qsizetype lone = FindLoneHalf(QStringView(result).sliced(from));
        if (lone < 0)
            return result;
        result[from + lone] = QChar::ReplacementCharacter;
        from += lone + 1;
    }
}

namespace {

// Whether each LF stands behind a CR and each CR before an LF. Counted in blocks without a branch inside,
// which the compiler turns into vectors: large texts pass through here each time they change hands.
bool HasOnlyCrLf(QStringView text) {
    constexpr qsizetype kBlock = 4096;
    const char16_t* units = text.utf16();
    const qsizetype size = text.size();
    if (size == 0)
        return true;
    if (units[0] == u'\n' || units[size - 1] == u'\r')
        return false;
    for (qsizetype from = 1; from < size; from += kBlock) {
        const qsizetype to = std::min(from + kBlock, size);
        unsigned odd = 0;
        for (qsizetype i = from; i < to; ++i)
            odd |= static_cast<unsigned>((units[i] == u'\n') != (units[i - 1] == u'\r'));
        if (odd != 0)
            return false;
    }
    return true;
}

} // namespace

std::vector<qsizetype> PlacesOf(const QString& what, const QString& text) {
    std::vector<qsizetype> places;
    const auto collect = [&](auto find) {
        for (qsizetype at = find(0); at >= 0; at = find(at + what.size()))
            places.push_back(at);
    };
    if (what.size() == 1) {
        collect([&, unit = what.front()](qsizetype from) { return text.indexOf(unit, from); });
    } else if (!what.isEmpty()) {
        const QStringMatcher matcher(what);
        collect([&](qsizetype from) { return matcher.indexIn(text, from); });
    }
    return places;
}

// Into its final size: moving the rest of the text at each place would cost its square.
QString WithReplacements(const QString& text, const std::vector<qsizetype>& places, qsizetype length,
                         const QString& replacement) {
    if (places.empty())
        return text;
    const qsizetype growth = replacement.size() - length;
    QString result(text.size() + growth * std::ssize(places), Qt::Uninitialized);
    QChar* to = result.data();
    const QChar* from = text.constData();
    for (const qsizetype place : places) {
        to = std::copy(from, text.constData() + place, to);
        to = std::copy(replacement.cbegin(), replacement.cend(), to);
        from = text.constData() + place + length;
    }
    std::copy(from, text.constData() + text.size(), to);
    return result;
}

QString ToCrLf(const QString& text) {
    if (HasOnlyCrLf(text))
        return text;
    const qsizetype missing = CountHalfLineEnds(text);
    QString result(text.size() + missing, Qt::Uninitialized);
    QChar* out = result.data();
    const QChar* p = text.constData();
    const QChar* const end = p + text.size();
    while (p != end) {
        const QChar* stop = p + (FindLineEnd(Units(p), Units(end)) - Units(p));
        out = std::copy(p, stop, out);
        if (stop == end)
            break;
        *out++ = u'\r';
        *out++ = u'\n';
        p = stop + (*stop == u'\r' && stop + 1 != end && stop[1] == u'\n' ? 2 : 1);
    }
    return result;
}

} // namespace text
