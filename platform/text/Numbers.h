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

/// The number at the beginning of a text, behind blanks: sign, digits, decimals and exponent, as far as they
/// go; or digits of base 16 or 8 behind "&H" or "&O". 0 without one.
double NumericPrefix(QStringView text);

/// A number in decimals, 15 digits at most; with an exponent where it has more places than that.
QString NumberText(double number);

/// What the cell shows of a text that is a number: the same number without thousands, exponent, leading and
/// trailing zeros. Nothing where the text stays as it is: it is no number, or one of more than 15 digits,
/// which would become another one.
std::optional<QString> PlainNumber(QStringView text);

} // namespace text
