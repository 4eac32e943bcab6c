// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <vector>

// The few text helpers whose exact manner the commands rely on.
namespace text {

/// The number at the front of a text: leading blanks are passed over, reading stops at the first character
/// that can't belong to a decimal number; nothing readable gives 0.
double Val(QStringView text);
/// Val as a 16-bit or 32-bit integer; a value outside the range gives 0.
int ValInt16(QStringView text);
int ValInt32(QStringView text);
/// General decimal text of a number, without a leading blank: "3", "0.5", "1E+20".
QString Str(double number);
/// Without blanks (U+0020 only) at both ends.
QString Trim(const QString& text);
/// Whether a text holds nothing but blanks, tabs and line ends.
bool IsBlank(QStringView text);
/// 0-based place of the first half of a surrogate pair that lacks its other half; -1 without one.
qsizetype FindLoneHalf(QStringView text);
/// Whether such a half stands at the 0-based `position`, which must be in the text.
bool IsLoneHalf(QStringView text, qsizetype position);
/// Each half of a pair that lacks its other half as U+FFFD. A text without one comes back shared.
QString WithoutLoneHalves(const QString& text);
/// The 0-based places of a text in another one, each behind the end of the one before. An empty `what` has
/// none.
std::vector<qsizetype> PlacesOf(const QString& what, const QString& text);
/// The text with other units at such places, `length` of them each. However many there are, it is written
/// once.
QString WithReplacements(const QString& text, const std::vector<qsizetype>& places, qsizetype length,
                         const QString& replacement);
/// Every line end (CR LF, CR alone, LF alone) as CR LF. A text that has only CR LF comes back shared, not
/// copied.
QString ToCrLf(const QString& text);

} // namespace text
