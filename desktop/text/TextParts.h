// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextEditing.h"

namespace desktop {

/// What keys, mouse, drags and input methods work on: a text view without its events.
struct TextParts {
    QAbstractScrollArea& area;
    TextState& state;
    TextPlaces& places;
    TextCaret& caret;
    TextEditing& editing;

    const text::LongText& Text() const { return state.Text(); }
};

} // namespace desktop
