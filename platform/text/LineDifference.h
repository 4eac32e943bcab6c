// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QStringList>

namespace text {

/// What differs between two texts, line by line, to be read: lines of the first alone begin with "- ", those
/// of the second alone with "+ ", and three lines of both around them with blanks. Each stretch begins with
/// "@@ " and its first line's number in both texts. Empty for texts with equal lines. Stretches that differ
/// in very many lines are told as replaced whole, and after some thousand lines it ends with "...".
QStringList LineDifference(const LongText& before, const LongText& after);

} // namespace text
