// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstdint>
#include <string>

// Whether a value without blanks around it is one of a type of the schema language. Stricter than the
// language where that saves work: what isn't told as one is kept as a text.
namespace schema {

bool IsBooleanForm(const std::string& value);
bool IsIntegerForm(const std::string& value);
bool IsDecimalForm(const std::string& value);
bool IsDoubleForm(const std::string& value);
bool IsDateForm(const std::string& value);
bool IsDateTimeForm(const std::string& value);
bool IsTimeForm(const std::string& value);
bool IsYearMonthForm(const std::string& value);
bool IsDurationForm(const std::string& value);
bool IsAddressForm(const std::string& value); ///< one with a scheme and "//"
bool IsNameForm(const std::string& value);    ///< NCName, in ASCII
bool IsLanguageForm(const std::string& value);
bool IsTokenForm(const std::string& value); ///< NMTOKEN, in ASCII

/// The type with the fewest values that has all from `least` to `most`.
QString NarrowestInteger(std::int64_t least, std::int64_t most);

} // namespace schema
