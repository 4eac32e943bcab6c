// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextRow.h"
#include "platform/controls/RichTextBox.h"
#include <QColor>

namespace desktop {

/// What a row of the model's text shows, in colours that can be read on `background`.
RowText ContentOf(const controls::RichTextBox& model, const text::LongText::Row& row,
                  const QColor& background);

/// Puts a text into a row, before the unit `at`. Colours move along; inside one the text has it, too.
void InsertInto(RowText& row, int at, const QString& text);

} // namespace desktop
