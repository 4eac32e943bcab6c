// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextPlaces.h"

namespace desktop {

/// Paints what a text view shows inside `dirty`, and notes how wide its rows are.
void PaintText(QAbstractScrollArea& area, const TextState& state, TextPlaces& places, const QRect& dirty);

} // namespace desktop
