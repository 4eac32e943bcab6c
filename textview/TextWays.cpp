// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextWays.h"
#include "core/model/NodeKind.h"
#include "core/model/NodeNumbers.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include "textview/TextLink.h"
#include "textview/TreeText.h"

namespace textview {

namespace {

const text::LongText& Text(const DocumentWindow& window) {
    return window.rtxtXML.Plain();
}

// A window that is loaded again may hold a text that was never read: it belonged to another document.
void ForgetDocument(DocumentWindow& window) {
    window.bond.textRead(window.tvXML.Revision(), {});
    window.bond.rewriting = Rewriting::Unasked;
}

// The tree from a text that the panes have, which isn't written anew, whichever view shows (quirk 42).
void ReadFetched(DocumentWindow& window, const FetchedText& fetched) {
    XMLToTree(window, fetched, 0, Afterwards::KeepText);
    window.bond.msLastParsedText = Text(window);
}

// A window that merely comes to the front keeps its text (quirk 17).
void Begin(DocumentWindow& window, const FetchedText& fetched) {
    ForgetDocument(window);
    SetRichText(window, fetched.text);
    ReadFetched(window, fetched);
    BeginHistory(window);
}

void Renew(DocumentWindow& window, const FetchedText& fetched) {
    ForgetDocument(window);
    ChangeText(window, fetched.text, window.TextInUse().Content());
    ReadFetched(window, fetched);
}

void BeginFromTree(DocumentWindow& window) {
    ForgetDocument(window);
    TreeChangeTextView(window);
    BeginHistory(window);
}

std::function<void()> Keep(DocumentWindow& window) {
    TextState& state = StateOf(window);
    return [&window, &state, panes = PaneContents(window), steps = state.undoStack, at = state.UndoPos,
            parsed = window.bond.msLastParsedText] {
        panes.restore();
        state.undoStack = steps;
        state.UndoPos = at;
        window.bond.msLastParsedText = parsed;
    };
}

// The current node stays by its number, since the keys are new; the root has none of its own. The text is
// that of the file by now, and stays so.
void Replace(DocumentWindow& window, const QString& text) {
    ChangeText(window, text::LongText::Like(text, Text(window)), window.TextInUse().Content());
    const controls::TreeNode selected = window.tvXML.SelectedItem();
    const long number = m_tvXML::GetBeforeNodeNumber(window.app, selected);
    const bool root = m_tvXML::IsTreeRoot(selected);
    XMLToTree(window, text, number, Afterwards::KeepText, edit::Tone::Quiet);
    if (root)
        window.tvXML.SetSelectedItem(window.tvXML.Nodes(1));
    window.bond.msLastParsedText = Text(window);
}

} // namespace

const edit::TextWay& WrittenAnew() {
    static constexpr edit::TextWay way{.text = Text,
                                       .begin = Begin,
                                       .renew = Renew,
                                       .beginFromTree = BeginFromTree,
                                       .read = ReadEditedText,
                                       .write = TreeChangeTextView,
                                       .keep = Keep,
                                       .replace = Replace};
    return way;
}

} // namespace textview
