// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextCaret.h"

namespace desktop {

/// The user's edits: each is handed to the model, and none is while the text is locked. The caret stands
/// behind the new text.
class TextEditing {
public:
    TextEditing(TextState& state, TextCaret& caret) : state_(state), caret_(caret) {}
    /// Where a deletion reaches from a position.
    using Step = qsizetype (*)(const text::LongText&, qsizetype);

    void Replace(TextRange range, const QString& text);
    /// A text from elsewhere. An empty one replaces nothing.
    void PutIn(TextRange range, const QString& text);
    /// The selection, or what one step passes.
    void Delete(Step step);
    /// As typed: replaces the selection, or in overwrite mode the next character. The model is asked first.
    void Type(const QString& text);
    void Enter(); ///< the new line has the indentation of the one before
    /// The selection and what lies between it and the position change places: one edit, so that it can be
    /// undone in one step. Everything keeps its colours.
    void MoveSelectionTo(qsizetype position);

    void Cut();
    void Copy() const;
    void Paste();

private:
    QString Indentation(qsizetype position) const; ///< of its line, as far as it stands before the position
    const text::LongText& Text() const { return state_.Text(); }

    TextState& state_;
    TextCaret& caret_;
};

} // namespace desktop
