// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/ValueFacts.h"
#include "core/model/Escaping.h"
#include "schema/infer/ValueForms.h"
#include <algorithm>
#include <charconv>

namespace schema {

namespace {

constexpr std::size_t kMostDifferent = 12, kLongest = 40; // of values that make an enumeration
constexpr std::uint64_t kTimes = 4;                       // that each of them comes on the average

bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

bool HasOddBlanks(const std::string& value) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool last = i + 1 == value.size();
        if (IsBlank(value[i]) && (value[i] != ' ' || i == 0 || last || value[i + 1] == ' '))
            return true;
    }
    return false;
}

std::string Trimmed(const std::string& value) {
    std::size_t start = 0, end = value.size();
    while (start < end && IsBlank(value[start]))
        ++start;
    while (end > start && IsBlank(value[end - 1]))
        --end;
    return value.substr(start, end - start);
}

bool IsAscii(text::CompactView view) {
    return !view.wide && text::IsAscii(reinterpret_cast<const char*>(view.data), view.length);
}

} // namespace

void ValueFacts::AddEmpty() {
    ++count_;
    kinds_ &= kLanguage;
    small_ = false;
    different_.clear();
}

void ValueFacts::Add(text::CompactView written) {
    ++count_;
    if (kinds_ == 0 && !small_)
        return;
    std::string value;
    if (IsAscii(written))
        value.assign(reinterpret_cast<const char*>(written.data), written.length);
    else
        value = written.toString().toUtf8().toStdString();
    if (value.find('&') != std::string::npos)
        value = mXMLEdit::WithoutReferences(QString::fromStdString(value)).toUtf8().toStdString();
    const bool odd = HasOddBlanks(value);
    small_ = small_ && !odd;
    Judge(odd ? Trimmed(value) : value);
    if (small_)
        Remember(value);
}

// All but strings take the blanks around a value away.
void ValueFacts::Judge(const std::string& plain) {
    if (kinds_ == 0)
        return;
    const auto keep = [&](std::uint32_t kind, auto holds) {
        if ((kinds_ & kind) != 0 && !holds(plain))
            kinds_ &= ~kind;
    };
    keep(kBoolean, IsBooleanForm);
    keep(kInteger, IsIntegerForm);
    keep(kDecimal, IsDecimalForm);
    keep(kDouble, IsDoubleForm);
    keep(kDate, IsDateForm);
    keep(kDateTime, IsDateTimeForm);
    keep(kTime, IsTimeForm);
    keep(kYearMonth, IsYearMonthForm);
    keep(kDuration, IsDurationForm);
    keep(kAddress, IsAddressForm);
    keep(kName, IsNameForm);
    keep(kToken, IsTokenForm);
    keep(kLanguage, IsLanguageForm);
    words_ = words_ || plain == "true" || plain == "false";
    if ((kinds_ & kInteger) != 0)
        TakeNumber(plain);
}

void ValueFacts::TakeNumber(const std::string& plain) {
    std::int64_t number = 0;
    const char* const begin = plain.data() + (plain[0] == '+' ? 1 : 0);
    const auto [end, error] = std::from_chars(begin, plain.data() + plain.size(), number);
    huge_ = huge_ || error != std::errc();
    least_ = std::min(least_, number);
    most_ = std::max(most_, number);
}

void ValueFacts::Remember(const std::string& plain) {
    if (std::find(different_.begin(), different_.end(), plain) != different_.end())
        return;
    different_.push_back(plain);
    if (different_.size() <= kMostDifferent && plain.size() <= kLongest && !plain.empty())
        return;
    small_ = false;
    different_.clear();
}

QString ValueFacts::BuiltIn() const {
    if (count_ == 0 || kinds_ == 0)
        return QStringLiteral("string");
    if ((kinds_ & kBoolean) != 0 && words_)
        return QStringLiteral("boolean");
    if ((kinds_ & kInteger) != 0)
        return huge_ ? QStringLiteral("integer") : NarrowestInteger(least_, most_);
    static constexpr std::pair<Kind, const char*> kNames[] = {
        {kDecimal, "decimal"}, {kDouble, "double"},        {kDate, "date"},         {kDateTime, "dateTime"},
        {kTime, "time"},       {kYearMonth, "gYearMonth"}, {kDuration, "duration"}, {kAddress, "anyURI"},
        {kName, "NCName"},     {kToken, "NMTOKEN"}};
    for (const auto& [kind, name] : kNames) {
        if ((kinds_ & kind) != 0)
            return QLatin1String(name);
    }
    return QStringLiteral("string");
}

QStringList ValueFacts::Enumeration() const {
    const bool words = (kinds_ & ~(kName | kToken | kLanguage)) == 0;
    if (!small_ || !words || count_ < kTimes * different_.size() || count_ < 2 * kTimes)
        return {};
    QStringList all;
    for (const std::string& one : different_)
        all << QString::fromStdString(one);
    return all;
}

} // namespace schema
