// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/RichTextBox.h"

namespace textview {

/// Where the places of a text stand in the same document written anew: with the same node, behind the same
/// characters of it, whatever became of blanks, line ends, quotes and references. A place whose surroundings
/// are gone stands where they were (quirk 54).
controls::PlaceMap KeptPlaces(const text::LongText& before, const text::LongText& after);

} // namespace textview
