// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Numbers.h"
#include "platform/text/TextTools.h"
#include <QLocale>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>
#include <utility>

namespace text {

namespace {

constexpr int kDigits = 15; // that every number of the machine's keeps
constexpr qsizetype kLongestNumber = 400;

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
bool IsSign(QChar c) {
    return c == u'+' || c == u'-';
}
bool IsCurrency(QChar c) {
    return c == u'$' || c.category() == QChar::Symbol_Currency;
}

/// Takes a number apart from front to back, and puts it together in the form that Val reads.
class NumberReader {
public:
    explicit NumberReader(QStringView given) : rest_(given.trimmed()) {}

    std::optional<double> whole() {
        if (rest_.isEmpty() || rest_.size() > kLongestNumber)
            return {};
        signs();
        if (!mantissa() || !exponent())
            return {};
        signs();
        if (!rest_.isEmpty()) // as of a date
            return {};
        const double number = Val(QStringView(plain_.data(), plain_.size()));
        return std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    int digits() const { return digits_; } ///< without zeros in front

private:
    QChar here() const { return rest_.isEmpty() ? QChar() : rest_.front(); }
    QChar take() { return std::exchange(rest_, rest_.sliced(1)).front(); }

    // A sign in front of the digits, once, and a currency's on one side of them.
    void signs() {
        for (; !rest_.isEmpty(); take()) {
            if (plain_.isEmpty() && IsSign(here()))
                plain_.append(here());
            else if (IsCurrency(here()) && !currency_)
                currency_ = true;
            else if (here() != u' ')
                return;
        }
    }
    qsizetype digitsHere() {
        qsizetype count = 0;
        for (; IsDigit(here()); ++count) {
            digits_ += digits_ > 0 || here() != u'0' ? 1 : 0;
            plain_.append(take());
        }
        return count;
    }
    bool mantissa() {
        constexpr int kGroup = 3;
        const qsizetype first = digitsHere();
        while (here() == u',') {
            take();
            if (first == 0 || first > kGroup || digitsHere() != kGroup)
                return false;
        }
        if (here() != u'.')
            return first > 0;
        plain_.append(take());
        return digitsHere() + first > 0;
    }
    bool exponent() {
        if (here() != u'e' && here() != u'E')
            return true;
        plain_.append(take());
        if (IsSign(here()))
            plain_.append(take());
        const int before = digits_;
        const bool any = digitsHere() > 0;
        digits_ = before;
        return any;
    }

    QStringView rest_;
    bool currency_ = false;
    int digits_ = 0;
    QVarLengthArray<QChar, 32> plain_;
};

// Digits with a point at most, which is what most numbers are.
bool IsBareNumber(QStringView text) {
    bool point = false;
    for (const QChar c : text) {
        if (!IsDigit(c) && (c != u'.' || std::exchange(point, true)))
            return false;
    }
    return !text.isEmpty() && text.size() <= kDigits && IsDigit(text.front());
}

double Digits(QStringView digits, int radix) {
    double number = 0;
    for (const QChar c : digits) {
        bool ok = false;
        const int value = QString(c).toInt(&ok, radix);
        if (!ok)
            break;
        number = number * radix + value;
    }
    return number;
}

} // namespace

std::optional<double> ReadNumber(QStringView text) {
    if (IsBareNumber(text))
        return Val(text);
    return NumberReader(text).whole();
}

bool IsPlainAlready(QStringView text) {
    const qsizetype found = text.indexOf(u'.'), point = found < 0 ? text.size() : found;
    const QStringView whole = text.first(point), decimals = text.sliced(point);
    if (whole.isEmpty() || text.size() > kDigits || (whole.front() == u'0' && whole.size() > 1))
        return false;
    const bool trimmed = decimals.isEmpty() || (decimals.size() > 1 && decimals.back() != u'0');
    return trimmed && std::all_of(whole.begin(), whole.end(), IsDigit) &&
           std::all_of(decimals.begin() + (decimals.isEmpty() ? 0 : 1), decimals.end(), IsDigit);
}

std::optional<QString> PlainNumber(QStringView text) {
    constexpr double kSmallest = 1e-15, kLargest = 1e21; // in decimals
    NumberReader reader(text);
    const std::optional<double> number = reader.whole();
    if (!number || reader.digits() > kDigits)
        return {};
    const double size = std::fabs(*number);
    return size >= kSmallest && size < kLargest
               ? QString::number(*number, 'f', QLocale::FloatingPointShortest)
               : Str(*number);
}

double NumericPrefix(QStringView text) {
    constexpr int kHexadecimal = 16, kOctal = 8;
    const QStringView rest = text.trimmed();
    if (rest.startsWith(QLatin1String("&h"), Qt::CaseInsensitive))
        return Digits(rest.sliced(2), kHexadecimal);
    if (rest.startsWith(QLatin1String("&o"), Qt::CaseInsensitive))
        return Digits(rest.sliced(2), kOctal);
    return Val(text);
}

} // namespace text
