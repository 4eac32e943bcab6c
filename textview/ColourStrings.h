// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>
#include <cstdint>

namespace textview {

/// A colour (0x00BBGGRR) as an entry of an RTF colour table: "\red0\green0\blue255". Of a number with more
/// than six hexadecimal digits the first two count as blue, the next two as green and the last two as red.
QString ColorToRTFString(std::uint32_t colour);

/// Makes the four RTF colour strings of the colours in force.
void MakeRTFColorStrings(Options& options);

} // namespace textview
