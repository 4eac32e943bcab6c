// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/History.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include <QScopedValueRollback>
#include <algorithm>

namespace textview {

namespace {

// The oldest steps beyond the limit go, and those that could be done again.
void MakeRoom(DocumentWindow& window) {
    TextState& state = StateOf(window);
    const int steps = std::max(window.app.options.Steps, 0); // the setting may be any number
    if (state.UndoPos > steps) {
        ArrangeUndoStack(state.undoStack, state.UndoPos - steps);
        state.UndoPos = steps;
    }
    state.undoStack.resize(static_cast<std::size_t>(state.UndoPos));
}

// The text as it stands then: colouring may put blanks in.
controls::RichContent WriteInPlace(DocumentWindow& window, const text::LongText& newText) {
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    const PaneSelections selections(window);
    window.TextInUse().SetText(newText);
    SetTreeXMLColor(window);
    controls::RichContent content = window.TextInUse().Content();
    selections.restore();
    return content;
}

} // namespace

void BeginHistory(DocumentWindow& window) {
    TextState& state = StateOf(window);
    state.undoStack.clear();
    state.UndoPos = 0;
    state.placeTakenBy.clear();
}

void ChangeText(DocumentWindow& window, const text::LongText& newText, const controls::RichContent& oldRTF) {
    TextState& state = StateOf(window);
    if (state.bUndoRunning)
        return;
    MakeRoom(window);
    UndoRecord record; // joins the stack when it is whole
    record.WholeText = true;
    record.OldRTF = std::make_shared<const controls::RichContent>(oldRTF);
    record.NewRTF = std::make_shared<const controls::RichContent>(WriteInPlace(window, newText));
    // Colouring may bring the text back to what it was: that is no step.
    if (record.NewRTF->text == oldRTF.text && record.NewRTF->fillers == oldRTF.fillers)
        return;
    state.undoStack.push_back(std::move(record));
    ++state.UndoPos;
}

void ArrangeUndoStack(std::vector<UndoRecord>& stack, int lost) {
    stack.erase(stack.begin(), stack.begin() + std::min<std::ptrdiff_t>(lost, std::ssize(stack)));
}

void RInsert(Application& app, controls::RichTextBox& richText, qsizetype position, const QString& text,
             const std::vector<controls::ColourRun>& colours) {
    if (text.isEmpty())
        return;
    richText.SetSelStart(position);
    richText.SetSelLength(0);
    if (text.size() > kLongestColoured)
        richText.SetSelContent(text, colours);
    else
        richText.SetSelText(text);
    richText.SetSelStart(position);
    richText.SetSelLength(text.size());
    SetSeltextColor(app, richText);
}

void RDelete(controls::RichTextBox& richText, qsizetype position, const QString& text) {
    if (text.isEmpty())
        return;
    richText.SetSelStart(position);
    richText.SetSelLength(text.size());
    richText.SetSelText({});
}

} // namespace textview
