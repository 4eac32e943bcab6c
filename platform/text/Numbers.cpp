// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Numbers.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

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
    return c.unicode() == u'$' || c.category() == QChar::Symbol_Currency;
}

/// Reads a number from front to back into plain form.
class NumberReader {
public:
    explicit NumberReader(QStringView given) : text_(given.trimmed()) {}

    std::optional<double> whole() {
        if (text_.isEmpty() || text_.size() > kLongestNumber)
            return {};
        signAndCurrency();
        if (!mantissa())
            return {};
        exponent();
        skip(u' ');
        if (at_ < text_.size() && !currency_ && IsCurrency(text_[at_]))
            ++at_;
        return at_ == text_.size() ? value() : std::nullopt;
    }
    int digits() const { return digits_; } ///< those that say something

private:
    QChar here() const { return at_ < text_.size() ? text_[at_] : QChar(); }
    void skip(char16_t c) {
        while (here() == c)
            ++at_;
    }
    void put(QChar c) { plain_.push_back(static_cast<char>(c.unicode())); }
    void digit() {
        const QChar c = text_[at_++];
        digits_ += digits_ > 0 || c != u'0' ? 1 : 0;
        put(c);
    }

    void signAndCurrency() {
        for (bool signedAlready = false; at_ < text_.size(); ++at_) {
            if (IsSign(here()) && !signedAlready) {
                signedAlready = true;
                if (here() == u'-')
                    put(u'-');
            } else if (IsCurrency(here()) && !currency_) {
                currency_ = true;
            } else if (here() != u' ') {
                return;
            }
        }
    }
    // Groups of three behind the first comma.
    bool mantissa() {
        const qsizetype start = at_;
        while (IsDigit(here()))
            digit();
        const qsizetype first = at_ - start;
        while (here() == u',' && first > 0 && first <= 3) {
            ++at_;
            for (int i = 0; i < 3; ++i) {
                if (!IsDigit(here()))
                    return false;
                digit();
            }
            if (IsDigit(here()))
                return false;
        }
        if (here() != u'.')
            return first > 0;
        put(text_[at_++]);
        const qsizetype point = at_;
        while (IsDigit(here()))
            digit();
        return first > 0 || at_ > point;
    }
    void exponent() {
        if (here() != u'e' && here() != u'E')
            return;
        qsizetype end = at_ + 1;
        if (end < text_.size() && IsSign(text_[end]))
            ++end;
        if (end >= text_.size() || !IsDigit(text_[end]))
            return;
        put(u'e');
        for (++at_; at_ < text_.size() && (at_ < end || IsDigit(here())); ++at_) {
            if (here() != u'+')
                put(here());
        }
    }
    std::optional<double> value() const {
        const std::optional<double> number = FromChars(plain_);
        return number && std::isfinite(*number) ? number : std::nullopt;
    }

public:
    static std::optional<double> FromChars(const std::string& plain) {
        double number = 0;
        const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
        if (error == std::errc::result_out_of_range) // too large, or so small that it is 0
            return std::strtod(plain.c_str(), nullptr);
        if (error != std::errc())
            return {};
        return number;
    }

private:
    QStringView text_;
    qsizetype at_ = 0;
    bool currency_ = false;
    int digits_ = 0;
    std::string plain_;
};

double RadixPrefix(QStringView digits, int radix) {
    double number = 0;
    for (const QChar c : digits) {
        const int value = IsDigit(c)               ? c.unicode() - u'0'
                          : c >= u'a' && c <= u'f' ? c.unicode() - u'a' + 10
                          : c >= u'A' && c <= u'F' ? c.unicode() - u'A' + 10
                                                   : radix;
        if (value >= radix)
            break;
        number = number * radix + value;
    }
    return number;
}

} // namespace

std::optional<double> ReadNumber(QStringView text) {
    return NumberReader(text).whole();
}

double NumericPrefix(QStringView text) {
    while (!text.isEmpty() && text[0].isSpace())
        text = text.sliced(1);
    if (text.size() > 2 && text[0] == u'&') {
        const QChar letter = text[1].toUpper();
        return letter == u'H'   ? RadixPrefix(text.sliced(2), 16)
               : letter == u'O' ? RadixPrefix(text.sliced(2), 8)
                                : 0;
    }
    std::string plain;
    const qsizetype length = std::min(text.size(), kLongestNumber);
    qsizetype i = 0;
    const auto digits = [&] {
        const qsizetype start = i;
        while (i < length && IsDigit(text[i]))
            plain.push_back(static_cast<char>(text[i++].unicode()));
        return i > start;
    };
    if (i < length && IsSign(text[i])) {
        if (text[i++] == u'-')
            plain.push_back('-');
    }
    bool any = digits();
    if (i < length && text[i] == u'.') {
        plain.push_back('.');
        ++i;
        any = digits() || any;
    }
    if (!any)
        return 0;
    if (i + 1 < length && (text[i] == u'e' || text[i] == u'E')) {
        const bool sign = IsSign(text[i + 1]);
        if (i + (sign ? 2 : 1) < length && IsDigit(text[i + (sign ? 2 : 1)])) {
            plain.push_back('e');
            if (sign && text[i + 1] == u'-')
                plain.push_back('-');
            i += sign ? 2 : 1;
            digits();
        }
    }
    return NumberReader::FromChars(plain).value_or(0);
}

QString NumberText(double number) {
    if (number == 0)
        return QStringLiteral("0"); // without the sign that it may have
    const int places =
        std::isfinite(number) ? static_cast<int>(std::floor(std::log10(std::fabs(number)))) : 0;
    if (std::abs(places) >= kDigits)
        return QString::number(number, 'G', kDigits);
    QString text = QString::number(number, 'f', std::clamp(kDigits - 1 - places, 0, 2 * kDigits));
    if (text.contains(u'.')) {
        while (text.endsWith(u'0'))
            text.chop(1);
        if (text.endsWith(u'.'))
            text.chop(1);
    }
    return text;
}

std::optional<QString> PlainNumber(QStringView text) {
    NumberReader reader(text);
    const std::optional<double> number = reader.whole();
    if (!number || reader.digits() > kDigits)
        return {};
    return NumberText(*number);
}

} // namespace text
