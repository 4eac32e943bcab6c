// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"

namespace shell {

/// Section of the options in the settings store.
inline constexpr auto kOptionsSection = "AppInternal";

/// Reads the options in force from the settings store; what is missing or unusable gets its default.
/// A missing `Debug` is written as "0", so that a user who is asked to switch it on finds it in the file.
void ReadSettings(Application& app);

/// Makes the RTF colour strings anew and brings font and colours to both text panes of the active window;
/// other windows keep theirs until they are coloured next. Carets and selections stay.
void SetRTFColorString(Application& app);

} // namespace shell
