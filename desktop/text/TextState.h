// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/TextRange.h"
#include "platform/controls/RichTextBox.h"
#include <QTextLayout>
#include <algorithm>
#include <optional>

namespace desktop {

/// What a text view shows of its model and how the user stands in it. The parts of the view share it.
struct TextState {
    /// Text that an input method is composing, shown at the caret; it isn't in the model.
    struct Preedit {
        QString text;
        int caret = 0;
        bool caretShown = true;
        QList<QTextLayout::FormatRange> formats; ///< count units of `text`
    };

    explicit TextState(controls::RichTextBox& shown) : model(&shown) {}

    controls::RichTextBox* model;    ///< never null
    qsizetype caret = 0, anchor = 0; ///< the anchor is the selection's other end
    std::optional<double> wantedX;   ///< where up and down aim at
    std::optional<Preedit> preedit;
    qsizetype dropAt = -1; ///< where a drop would go; -1 for nowhere
    bool overwrite = false;
    bool caretShown = true; ///< it blinks
    bool editing = false;   ///< the user's edit is on its way through the model
    bool stale = true;      ///< the model changed while the view was hidden
    bool high = false;      ///< the caret is to be shown high when the size is known

    const text::LongText& Text() const { return model->Long(); }
    TextRange Selection() const { return {std::min(anchor, caret), std::max(anchor, caret)}; }
};

} // namespace desktop
