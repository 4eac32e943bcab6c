// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextKeys.h"
#include "desktop/text/TextSteps.h"
#include <QKeyEvent>

namespace desktop {

namespace {

bool IsTyped(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (event.text().isEmpty() || held == Qt::ControlModifier || held == Qt::AltModifier ||
        held == Qt::MetaModifier)
        return false;
    const QChar first = event.text().at(0);
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse || first == u'\t';
}

} // namespace

TextKeys::Act TextKeys::ActFor(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy))
        return [this] { parts_.editing.Copy(); };
    if (event.matches(QKeySequence::SelectAll))
        return [this] { parts_.caret.SelectAll(); };
    Act act = MoveFor(event);
    if (!act && !parts_.state.model->Locked)
        act = EditFor(event);
    return act;
}

// --- moving ------------------------------------------------------------------------------------------------

TextKeys::Act TextKeys::MoveFor(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if ((held & ~(Qt::ShiftModifier | Qt::ControlModifier)) != 0)
        return {};
    const bool shift = held.testFlag(Qt::ShiftModifier), word = held.testFlag(Qt::ControlModifier);
    if (const auto target = TargetOf(event.key(), shift, word))
        return [this, target = *target, shift] { parts_.caret.MoveTo(target, shift); };
    const auto rows = [this, shift, word](qsizetype count) -> Act {
        if (word)
            return [this, count] { parts_.places.ScrollRows(count); };
        return [this, count, shift] { MoveRows(count, shift); };
    };
    const qsizetype page = std::max<qsizetype>(parts_.places.RowsShown() - 1, 1);
    switch (event.key()) {
    case Qt::Key_Up:
        return rows(-1);
    case Qt::Key_Down:
        return rows(1);
    case Qt::Key_PageUp:
        return word ? Act{} : rows(-page);
    case Qt::Key_PageDown:
        return word ? Act{} : rows(page);
    default:
        return {};
    }
}

/// Where a key that moves inside the row or over the whole text goes; nothing for other keys.
std::optional<qsizetype> TextKeys::TargetOf(int key, bool select, bool word) const {
    const qsizetype caret = parts_.state.caret;
    const TextRange selection = parts_.state.Selection();
    const bool collapses = !select && !word && selection.start < selection.end;
    switch (key) {
    case Qt::Key_Left:
        return collapses ? selection.start
               : word    ? PreviousWord(Text(), caret)
                         : PreviousPlace(Text(), caret);
    case Qt::Key_Right:
        return collapses ? selection.end : word ? NextWord(Text(), caret) : NextPlace(Text(), caret);
    case Qt::Key_Home:
        return word ? 0 : Text().row(Text().rowOf(caret)).start;
    case Qt::Key_End:
        return word ? Text().size() : RowEnd(Text(), caret);
    default:
        return std::nullopt;
    }
}

// Up and down aim at where the first of them started, over shorter rows too. A page scrolls the view along.
void TextKeys::MoveRows(qsizetype rows, bool select) {
    const qsizetype caret = parts_.state.caret;
    const double wanted = parts_.state.wantedX.value_or(parts_.places.XAt(caret));
    const bool page = std::abs(rows) > 1;
    const qsizetype row = Text().rowOf(caret) + rows, lastRow = Text().rowCount() - 1;
    qsizetype target = parts_.places.PositionInRow(std::clamp<qsizetype>(row, 0, lastRow), wanted);
    if (page && (row < 0 || row > lastRow))
        target = row < 0 ? 0 : Text().size();
    if (page)
        parts_.places.ScrollRows(rows);
    parts_.caret.MoveTo(target, select);
    parts_.state.wantedX = wanted;
}

// --- editing -----------------------------------------------------------------------------------------------

TextKeys::Act TextKeys::EditFor(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Cut))
        return [this] { parts_.editing.Cut(); };
    if (event.matches(QKeySequence::Paste))
        return [this] { parts_.editing.Paste(); };
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        return DeleteFor(event);
    case Qt::Key_Insert:
        if (event.modifiers() != Qt::NoModifier)
            return {};
        return [this] {
            parts_.state.overwrite = !parts_.state.overwrite;
            parts_.caret.UpdateRow();
        };
    // With Shift too: a line separator would be a character like any other in a document.
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return held == Qt::NoModifier ? Act([this] { parts_.editing.Enter(); }) : Act{};
    default:
        if (!IsTyped(event))
            return {};
        return [this, text = event.text()] { parts_.editing.Type(text); };
    }
}

TextKeys::Act TextKeys::DeleteFor(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const bool word = held == Qt::ControlModifier;
    if (!word && held != Qt::NoModifier)
        return {};
    const TextEditing::Step step = event.key() == Qt::Key_Backspace ? (word ? PreviousWord : PreviousPlace)
                                                                    : (word ? NextWord : NextPlace);
    return [this, step] { parts_.editing.Delete(step); };
}

} // namespace desktop
