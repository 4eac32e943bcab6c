// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringView>

namespace controls {

/// What a control word does. The words that aren't in the table do nothing.
enum class RtfAct {
    Nothing,
    Colour,      ///< \cfN
    Unicode,     ///< \uN and its fallback
    Fallback,    ///< \ucN
    Insert,      ///< stands for a character or a line end
    Plain,       ///< formatting back to the default
    ColourTable, ///< the group is the colour table
    Skip,        ///< the group isn't body text; others that aren't say so by \*
    Red,
    Green,
    Blue
};

struct RtfWord {
    QStringView name;
    RtfAct act;
    QStringView text = {}; ///< for Insert
};

/// The control word of that name; null for one that does nothing.
const RtfWord* FindRtfWord(QStringView name);

/// The character of a code from 0 to 255 of code page 1252; a code without a character stands for itself.
char16_t FromCp1252(int code);

} // namespace controls
