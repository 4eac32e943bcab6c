// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/ValueForms.h"
#include <algorithm>
#include <string_view>

namespace schema {

namespace {

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool IsLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

/// Reads a value from its beginning.
class Reader {
public:
    explicit Reader(std::string_view value) : left_(value) {}

    bool End() const { return left_.empty(); }
    bool Take(char letter) {
        if (left_.empty() || left_.front() != letter)
            return false;
        left_.remove_prefix(1);
        return true;
    }
    std::size_t Digits() {
        std::size_t count = 0;
        while (count < left_.size() && IsDigit(left_[count]))
            ++count;
        left_.remove_prefix(count);
        return count;
    }
    /// Just so many digits, and their number between two others; -1 for anything else.
    int Number(std::size_t digits, int least, int most) {
        if (left_.size() < digits ||
            !std::all_of(left_.begin(), left_.begin() + static_cast<long>(digits), IsDigit))
            return -1;
        int number = 0;
        for (std::size_t i = 0; i < digits; ++i)
            number = number * 10 + (left_[i] - '0');
        left_.remove_prefix(digits);
        return number >= least && number <= most ? number : -1;
    }

    bool YearMonth(int& year, int& month) {
        year = Number(4, 1, 9999);
        if (year < 0 || !Take('-'))
            return false;
        month = Number(2, 1, 12);
        return month > 0;
    }
    bool Date() {
        int year = 0, month = 0;
        if (!YearMonth(year, month) || !Take('-'))
            return false;
        const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        const int days = month == 2                                              ? (leap ? 29 : 28)
                         : month == 4 || month == 6 || month == 9 || month == 11 ? 30
                                                                                 : 31;
        return Number(2, 1, days) > 0;
    }
    bool Time() {
        if (Number(2, 0, 23) < 0 || !Take(':') || Number(2, 0, 59) < 0 || !Take(':') || Number(2, 0, 59) < 0)
            return false;
        return !Take('.') || Digits() > 0;
    }
    bool Zone() {
        if (End() || Take('Z'))
            return End();
        return (Take('+') || Take('-')) && Number(2, 0, 13) >= 0 && Take(':') && Number(2, 0, 59) >= 0 &&
               End();
    }
    /// Digits with these letters behind them, in this order, each at most once; how many there were.
    int Parts(std::string_view letters) {
        int count = 0;
        for (const char letter : letters) {
            Reader ahead(*this);
            if (ahead.Digits() > 0 && ahead.Take(letter)) {
                *this = ahead;
                ++count;
            }
        }
        return count;
    }

private:
    std::string_view left_;
};

bool IsPartOfName(char letter) {
    return IsLetter(letter) || IsDigit(letter) || letter == '_' || letter == '-' || letter == '.';
}

} // namespace

bool IsBooleanForm(const std::string& value) {
    return value == "true" || value == "false" || value == "1" || value == "0";
}

bool IsIntegerForm(const std::string& value) {
    Reader reader(value);
    if (!reader.Take('-'))
        reader.Take('+');
    return reader.Digits() > 0 && reader.End();
}

bool IsDecimalForm(const std::string& value) {
    Reader reader(value);
    if (!reader.Take('-'))
        reader.Take('+');
    const std::size_t whole = reader.Digits();
    const std::size_t behind = reader.Take('.') ? reader.Digits() : 0;
    return whole + behind > 0 && reader.End();
}

bool IsDoubleForm(const std::string& value) {
    if (value == "INF" || value == "-INF" || value == "NaN")
        return true;
    const std::size_t mark = value.find_first_of("eE");
    if (mark == std::string::npos)
        return IsDecimalForm(value);
    return value.size() - mark <= 4 && IsDecimalForm(value.substr(0, mark)) &&
           IsIntegerForm(value.substr(mark + 1));
}

bool IsDateForm(const std::string& value) {
    Reader reader(value);
    return reader.Date() && reader.Zone();
}

bool IsDateTimeForm(const std::string& value) {
    Reader reader(value);
    return reader.Date() && reader.Take('T') && reader.Time() && reader.Zone();
}

bool IsTimeForm(const std::string& value) {
    Reader reader(value);
    return reader.Time() && reader.Zone();
}

bool IsYearMonthForm(const std::string& value) {
    Reader reader(value);
    int year = 0, month = 0;
    return reader.YearMonth(year, month) && reader.End();
}

bool IsDurationForm(const std::string& value) {
    Reader reader(value);
    reader.Take('-');
    if (!reader.Take('P'))
        return false;
    const int dates = reader.Parts("YMD");
    if (!reader.Take('T'))
        return dates > 0 && reader.End();
    return reader.Parts("HMS") > 0 && reader.End();
}

bool IsAddressForm(const std::string& value) {
    const std::size_t colon = value.find("://");
    return colon != std::string::npos && colon > 0 &&
           std::all_of(value.begin(), value.begin() + static_cast<long>(colon), IsLetter) &&
           std::all_of(value.begin(), value.end(),
                       [](char one) {
                           return IsPartOfName(one) ||
                                  std::string_view(":/?#=&;,+~@!$'()*").find(one) != std::string_view::npos;
                       }) &&
           std::count(value.begin(), value.end(), '#') <= 1;
}

bool IsNameForm(const std::string& value) {
    return !value.empty() && (IsLetter(value[0]) || value[0] == '_') &&
           std::all_of(value.begin(), value.end(), IsPartOfName);
}

bool IsLanguageForm(const std::string& value) {
    std::size_t length = 0;
    bool first = true;
    for (const char letter : value) {
        if (letter == '-' && length > 0) {
            length = 0;
            first = false;
        } else if (++length > 8 || !(IsLetter(letter) || (!first && IsDigit(letter)))) {
            return false;
        }
    }
    return length > 0;
}

bool IsTokenForm(const std::string& value) {
    return !value.empty() &&
           std::all_of(value.begin(), value.end(), [](char one) { return one == ':' || IsPartOfName(one); });
}

QString NarrowestInteger(std::int64_t least, std::int64_t most) {
    struct Range {
        const char* name;
        std::int64_t least, most;
    };
    static constexpr Range kRanges[] = {
        {"unsignedByte", 0, 255},       {"byte", -128, 127},
        {"unsignedShort", 0, 65535},    {"short", -32768, 32767},
        {"unsignedInt", 0, 4294967295}, {"int", -2147483648LL, 2147483647},
    };
    for (const Range& range : kRanges) {
        if (least >= range.least && most <= range.most)
            return QLatin1String(range.name);
    }
    return QLatin1String(least >= 0 ? "unsignedLong" : "long");
}

} // namespace schema
