// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/TextRange.h"
#include "platform/text/LongText.h"
#include <QMimeData>
#include <memory>

namespace desktop {

/// The text with every line's end replaced.
QString WithLineEnds(QString text, QStringView lineEnd);

/// A stretch of a text for other programs, with "\n" line ends. A large one is copied
/// when it is asked for; until then the text as it is now is kept.
std::unique_ptr<QMimeData> MakeTextMime(const text::LongText& text, TextRange range);

/// Whether an editor takes it: text, and no files, which the window around the editor opens.
bool IsTextMime(const QMimeData& mime);

} // namespace desktop
