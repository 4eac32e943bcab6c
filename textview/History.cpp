// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/History.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include <algorithm>

namespace textview {

namespace {

// The oldest changes of the whole text beyond the limit go, and those that could be done again. What was
// typed before one that goes can't be reached any more.
void MakeRoom(DocumentWindow& window) {
    TextState& state = StateOf(window);
    state.undoStack.resize(static_cast<std::size_t>(state.UndoPos));
    int steps = std::max(window.app.options.Steps, 0); // the setting may be any number
    for (int at = state.UndoPos - 1; at >= 0; --at) {
        if (!state.undoStack[static_cast<std::size_t>(at)].WholeText || steps-- > 0)
            continue;
        ArrangeUndoStack(state.undoStack, at + 1);
        state.UndoPos -= at + 1;
        return;
    }
}

// Coloured aside: the panes change once, and keep what they show.
controls::RichContent Coloured(DocumentWindow& window, const text::LongText& text) {
    const int level = GetTextSizeLevel(text.size());
    controls::RichTextBox aside;
    aside.SetText(text);
    ColourWhole(window.app, aside, level);
    StateOf(window).miTextSizeLevel = level;
    return aside.Content();
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
    const controls::RichContent fresh = Coloured(window, newText); // may put blanks in
    SetContentInPlace(window, fresh);
    // Colouring may bring the text back to what it was: that is no step.
    if (!(fresh.text == oldRTF.text) || fresh.fillers != oldRTF.fillers)
        AddWholeStep(window, oldRTF, fresh);
}

void AddWholeStep(DocumentWindow& window, controls::RichContent before, controls::RichContent after) {
    MakeRoom(window);
    TextState& state = StateOf(window);
    UndoRecord record; // joins the stack when it is whole
    record.WholeText = true;
    record.OldRTF = std::make_shared<const controls::RichContent>(std::move(before));
    record.NewRTF = std::make_shared<const controls::RichContent>(std::move(after));
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
