// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <functional>

namespace controls {

/// A place where a text was found, with the characters beside it; outside the text these are null.
struct SearchHit {
    qsizetype at;
    QStringView found;
    QChar before, behind;
};

/// Shows `visit` the places of `what` from `from` on. It tells where to go on, or -1 to end. The text is read
/// in blocks, whatever the number of places, so that looking at each of many costs little.
void VisitHits(const text::LongText& text, const QString& what, qsizetype from,
               Qt::CaseSensitivity sensitivity, const std::function<qsizetype(const SearchHit&)>& visit);
/// The same upwards, beginning with the last place that ends at `end` or before it: `visit` tells where the
/// next one may end.
void VisitHitsUp(const text::LongText& text, const QString& what, qsizetype end,
                 Qt::CaseSensitivity sensitivity, const std::function<qsizetype(const SearchHit&)>& visit);

} // namespace controls
