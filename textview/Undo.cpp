// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Undo.h"
#include "core/edit/FollowPath.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include "textview/TreeText.h"
#include <QScopedValueRollback>

namespace textview {

namespace {

using controls::RichTextBox;

enum class Way { Back, Again };

// --- the text ----------------------------------------------------------------------------------------------

/// One side of a step.
struct Side {
    qsizetype position;
    const QString& text;
    std::vector<controls::ColourRun>& colours;
    const std::vector<qsizetype>& fillers;
};

// A text that was loaded past the history may lack what the step would take away: other text must not go in
// its place. What goes keeps its colours for the way back.
void Exchange(Application& app, RichTextBox& pane, const Side& take, const Side& put) {
    if (pane.Long().mid(take.position, take.text.size()) != take.text)
        return;
    if (take.text.size() > kLongestColoured)
        take.colours = controls::RunsOf(pane.Runs(), take.position, take.text.size());
    RDelete(pane, take.position, take.text);
    RInsert(app, pane, put.position, put.text, put.colours);
    pane.AddFillers(put.position, put.fillers);
}

void ApplyToText(DocumentWindow& window, UndoRecord& record, Way way) {
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    static const std::vector<qsizetype> none;
    const Side deleted{record.DelPos, record.DelText, record.DelColours, record.DelFillers},
        inserted{record.InsPos, record.InsText, record.InsColours, none};
    for (RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2}) {
        if (record.WholeText)
            pane->SetContent(way == Way::Back ? *record.OldRTF : *record.NewRTF);
        else if (way == Way::Back)
            Exchange(window.app, *pane, inserted, deleted);
        else
            Exchange(window.app, *pane, deleted, inserted);
    }
}

void StepInText(DocumentWindow& window, Way way) {
    TextState& state = StateOf(window);
    const auto index = static_cast<std::size_t>(way == Way::Back ? state.UndoPos - 1 : state.UndoPos);
    UndoRecord record = state.undoStack[index];
    ApplyToText(window, record, way);
    state.undoStack[index] = std::move(record);
    state.UndoPos += way == Way::Back ? -1 : 1;
    window.bond.move(BondMove::TextEdited);
}

// --- the tree ----------------------------------------------------------------------------------------------

// A text on the way between two states that parse often doesn't: the status bar tells, a box at each step
// would not be wanted.
mXMLEdit::Parsed BuildTree(DocumentWindow& window) {
    const text::LongText text = window.TextInUse().Plain();
    mXMLEdit::Parsed parsed = XMLToTree(window, text, 0, Afterwards::KeepText, edit::Tone::Quiet);
    window.bond.msLastParsedText = window.TextInUse().Plain();
    return parsed;
}

QString CurrentKey(const DocumentWindow& window) {
    const controls::TreeNode node = window.tvXML.SelectedItem();
    return node ? node.Key() : QString();
}

// The path of the node that the user works on, also where an earlier step took it away.
QString PathInHand(DocumentWindow& window) {
    const TextState& state = StateOf(window);
    const bool lost = !state.placeTakenBy.isEmpty() && state.placeTakenBy == CurrentKey(window);
    return lost ? state.lostPath : text::Trim(window.txtXPath.Text());
}

// The node that was current stays so. Where the step took it away, its path is kept for the step that brings
// it back.
void KeepCurrentNode(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path) {
    TextState& state = StateOf(window);
    state.placeTakenBy.clear();
    if (path.isEmpty() || edit::SelectTreeNodeByXPath(window, document, path))
        return;
    state.lostPath = path;
    state.placeTakenBy = CurrentKey(window);
}

void TakeStep(DocumentWindow& window, Way way) {
    const QString path = PathInHand(window);
    const PaneSelections selections(window);
    StepInText(window, way);
    const mXMLEdit::Parsed parsed = BuildTree(window);
    selections.restore();
    if (parsed.good())
        return KeepCurrentNode(window, *parsed.document, path);
    // A text that doesn't parse comes to the front with its error selected: the user's place counts.
    edit::Then(window, [&window, selections] {
        selections.restore();
        if (edit::Shows(window, edit::kTextTab))
            edit::ShowCursorPosition(window);
    });
}

// What waits in the tree is a step itself.
void RunStep(DocumentWindow& window, const char* routine, Way way) {
    edit::DoTree(window);
    const TextState& state = StateOf(window);
    const int steps = static_cast<int>(state.undoStack.size());
    if (way == Way::Back ? state.UndoPos == 0 : state.UndoPos >= steps)
        return;
    const QScopedValueRollback running(StateOf(window).bUndoRunning, true);
    edit::Run(window, routine, [&] { TakeStep(window, way); });
}

} // namespace

void rUndo(DocumentWindow& window) {
    RunStep(window, "rUndo", Way::Back);
}

void rRedo(DocumentWindow& window) {
    RunStep(window, "rRedo", Way::Again);
}

} // namespace textview
