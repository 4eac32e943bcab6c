// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Undo.h"
#include "core/edit/FollowPath.h"
#include "core/edit/NodePath.h"
#include "core/edit/Rewriting.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include "textview/TreeText.h"
#include <QScopedValueRollback>
#include <algorithm>
#include <vector>

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
// its place. What goes keeps its colours for the way back. The caret stands behind what came then.
void Exchange(Application& app, RichTextBox& pane, const Side& take, const Side& put) {
    if (pane.Long().mid(take.position, take.text.size()) != take.text)
        return;
    if (take.text.size() > kLongestColoured)
        take.colours = controls::RunsOf(pane.Runs(), take.position, take.text.size());
    RDelete(pane, take.position, take.text);
    RInsert(app, pane, put.position, put.text, put.colours);
    pane.AddFillers(put.position, put.fillers);
    pane.SetSelStart(pane.SelStart() + pane.SelLength());
}

// The pane that isn't in use stays with its place.
void ExchangeInPlace(Application& app, RichTextBox& pane, const Side& take, const Side& put) {
    const auto moved = [&](qsizetype place) {
        if (place > take.position)
            place = std::max(take.position, place - take.text.size());
        return place > put.position ? place + put.text.size() : place;
    };
    const qsizetype start = moved(pane.SelStart()), end = moved(pane.SelStart() + pane.SelLength());
    Exchange(app, pane, take, put);
    pane.SetSelStart(start);
    pane.SetSelLength(end - start);
}

void ApplyToText(DocumentWindow& window, UndoRecord& record, Way way) {
    if (record.WholeText)
        return SetContentInPlace(window, way == Way::Back ? *record.OldRTF : *record.NewRTF);
    const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
    static const std::vector<qsizetype> none;
    const Side deleted{record.DelPos, record.DelText, record.DelColours, record.DelFillers},
        inserted{record.InsPos, record.InsText, record.InsColours, none};
    for (RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2}) {
        const auto exchange = pane == &window.TextInUse() ? Exchange : ExchangeInPlace;
        if (way == Way::Back)
            exchange(window.app, *pane, inserted, deleted);
        else
            exchange(window.app, *pane, deleted, inserted);
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
    window.bond.msLastParsedText = text;
    if (parsed.good() && parsed.document->losses().any())
        edit::AskAgain(window);
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

/// Where a node stands, by the rows on the way down to it.
using Rows = std::vector<int>;

Rows RowsOf(controls::TreeNode node) {
    Rows rows;
    for (; node && node.Parent(); node = node.Parent())
        rows.push_back(node.Row());
    std::reverse(rows.begin(), rows.end());
    return rows;
}

// The node there, else what stands in its place: the last one of the family, or the parent.
controls::TreeNode NodeAt(const controls::TreeView& tree, const Rows& rows) {
    controls::TreeNode node = tree.Nodes.Count() > 0 ? tree.Nodes(1) : controls::TreeNode();
    for (const int row : rows) {
        if (node.Children() == 0)
            break;
        node = tree.ChildAt(node, std::min(row, node.Children() - 1));
    }
    return node;
}

// The node that was current stays so. Where the step took it away, or gave it another name, what stands in
// its place is current, and its path is kept for the step that brings it back.
void KeepCurrentNode(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path,
                     const Rows& rows) {
    TextState& state = StateOf(window);
    state.placeTakenBy.clear();
    if (path.isEmpty() || edit::SelectTreeNodeByXPath(window, document, path))
        return;
    edit::SelectNode(window, NodeAt(window.tvXML, rows));
    state.lostPath = path;
    state.placeTakenBy = CurrentKey(window);
}

void Follow(DocumentWindow& window) {
    if (window.TextInUse().Plain() == window.bond.msLastParsedText)
        return window.bond.move(BondMove::TextTakenBack);
    const PaneSelections selections(window);
    const Rows rows = RowsOf(window.tvXML.SelectedItem());
    const mXMLEdit::Parsed parsed = BuildTree(window);
    if (parsed.good())
        return KeepCurrentNode(window, *parsed.document, StateOf(window).pathInHand, rows);
    // A text that doesn't parse comes to the front with its error selected: the user's place counts.
    edit::Then(window, [&window, selections] {
        selections.restore();
        if (edit::Shows(window, edit::kTextTab))
            edit::ShowCursorPosition(window);
    });
}

// With each step of a held key a large tree would be built anew, and the keys would wait.
void TakeStep(DocumentWindow& window, Way way) {
    const bool waits = window.tmText.Enabled();
    if (!waits)
        StateOf(window).pathInHand = PathInHand(window);
    window.tmText.SetEnabled(false);
    StepInText(window, way);
    if (window.TextInUse().Long().size() > kTriedAtOnce)
        window.tmText.SetEnabled(true);
    else
        Follow(window);
}

// What waits in the tree is a step itself.
void RunStep(DocumentWindow& window, const char* routine, Way way) {
    edit::DoTree(window);
    const TextState& state = StateOf(window);
    const int steps = static_cast<int>(state.undoStack.size());
    if (way == Way::Back ? state.UndoPos == 0 : state.UndoPos >= steps)
        return;
    const QScopedValueRollback running(StateOf(window).bUndoRunning, true);
    edit::Run(window, routine, [&] {
        TakeStep(window, way);
        if (edit::Shows(window, edit::kTextTab))
            edit::ShowCursorPosition(window);
    });
}

} // namespace

void rUndo(DocumentWindow& window) {
    RunStep(window, "rUndo", Way::Back);
}

void rRedo(DocumentWindow& window) {
    RunStep(window, "rRedo", Way::Again);
}

void FollowSteps(DocumentWindow& window) {
    if (!window.tmText.Enabled())
        return;
    window.tmText.SetEnabled(false);
    const QScopedValueRollback running(StateOf(window).bUndoRunning, true);
    edit::Run(window, "rUndo", [&] { Follow(window); });
}

} // namespace textview
