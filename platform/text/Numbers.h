// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <optional>

// Numbers as they stand in cells of text. Their form is the same on every machine: a point before the
// decimals, commas between groups of three digits.
namespace text {

/// The number that a whole text is: blanks around it, a sign, a currency sign, commas between thousands,
/// decimals and an exponent may be there. Nothing for any other text, and for a number out of range.
std::optional<double> ReadNumber(QStringView text);

/// What a cell shows of a text that is a number: the same number in decimals, without thousands, exponent,
/// leading and trailing zeros. Nothing where the text stays as it is: it is no number, or has more than 15
/// digits and would become another one.
std::optional<QString> PlainNumber(QStringView text);
/// Whether a text is quickly seen to be a number that PlainNumber would write the same.
bool IsPlainAlready(QStringView text);

/// The number at the beginning of a text as Val reads it, or digits of base 16 or 8 behind "&H" or "&O".
double NumericPrefix(QStringView text);

} // namespace text
