// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/Diagnostics.h"
#include "core/edit/NodePath.h"
#include "core/edit/Open.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "schema/FaultPlaces.h"
#include "textview/KeptPlaces.h"
#include <algorithm>
#include <tuple>
#include <utility>

namespace schema {

namespace {

using controls::TreeNode;
using text::LongText;

// --- places ------------------------------------------------------------------------------------------------

bool IsOwn(const Diagnostic& one) {
    return one.line > 0 && one.document.isEmpty();
}

// Keys outlast edits of nodes, which places don't.
void FindNodes(DocumentWindow& window, std::vector<Diagnostic>& all) {
    std::vector<Diagnostic*> own;
    std::vector<qsizetype> positions;
    for (Diagnostic& one : all) {
        if (!IsOwn(one))
            continue;
        own.push_back(&one);
        positions.push_back(PositionOf(window.way->text(window), one.line, one.column));
    }
    const QStringList keys = ElementsAt(window, positions);
    for (std::size_t i = 0; i < own.size(); ++i)
        own[i]->node = keys[static_cast<qsizetype>(i)];
}

bool HasChanged(const DocumentWindow& window, const DiagnosticsState& state) {
    return !(window.way->text(window) == state.text);
}

// The place of the check as long as the text is the same, then where the element is by now, or the letters
// are.
qsizetype PositionNow(DocumentWindow& window, const Diagnostic& one) {
    const DiagnosticsState& state = DiagnosticsOf(window);
    const qsizetype then = PositionOf(state.text, one.line, one.column);
    if (!HasChanged(window, state))
        return then;
    const TreeNode node = NodeOf(window, one);
    return node ? PositionOf(window, node) : textview::KeptPlaces(state.text, window.way->text(window))(then);
}

// --- rows --------------------------------------------------------------------------------------------------

QString PlaceText(const Diagnostic& one, bool past) {
    const QString place = one.line > 0 ? QStringLiteral("%1 : %2").arg(one.line).arg(one.column) : QString();
    if (one.document.isEmpty())
        return past && !place.isEmpty() ? QStringLiteral("was ") + place : place;
    return mXMLEdit::GetFSFileName(one.document) + (place.isEmpty() ? QString() : u' ' + place);
}

controls::ListItem RowOf(DocumentWindow& window, std::uint32_t number) {
    const DiagnosticsState& state = DiagnosticsOf(window);
    const Diagnostic& one = state.all[number];
    QString message = one.message;
    return {QString::number(number),
            PlaceText(one, state.past),
            0,
            0,
            {message.replace(u'\n', u' '), edit::GetXPath(NodeOf(window, one))},
            {}};
}

void MakeRows(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    const int current = state.lvDiagnostics.SelectedItem();
    state.lvDiagnostics.BeginUpdate();
    state.lvDiagnostics.Clear();
    state.lvDiagnostics.Fill(
        static_cast<std::uint32_t>(state.all.size()),
        [&window](std::uint32_t number) { return RowOf(window, number); },
        [](const QString& key) { return key.toLongLong(); });
    if (state.past)
        state.lvDiagnostics.SetSelectedItem(current);
    state.lvDiagnostics.EndUpdate();
}

// They keep the place of the text that was checked, and tell so, as long as another one is there.
void LookWhetherPast(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (state.all.empty())
        return;
    const bool past = HasChanged(window, state);
    if (past != std::exchange(state.past, past))
        MakeRows(window);
}

// --- going there -------------------------------------------------------------------------------------------

void PutCaret(DocumentWindow& window, qsizetype position) {
    controls::RichTextBox& pane = window.TextInUse();
    pane.SetSelStart(pane.ShownPlace(position));
    if (!edit::Shows(window, edit::kTextTab))
        return;
    pane.SetFocus();
    edit::ShowCursorPosition(window);
}

void GoToPlace(DocumentWindow& window, const Diagnostic& one, TreeNode node, qsizetype position) {
    edit::Run(window, "GoToDiagnostic", [&] {
        if (node) {
            node.EnsureVisible();
            window.tvXML.SetSelectedItem(node);
        }
        edit::Message(window.app, one.message);
        if (one.line > 0)
            edit::Then(window, [&window, position] { PutCaret(window, position); });
    });
}

void GoToOtherDocument(Application& app, const Diagnostic& one) {
    edit::Message(app, one.message);
    DocumentWindow* other = nullptr;
    if (app.frame().HaveSameNameForm(one.document, true))
        other = app.frame().ActiveForm();
    else if (mXMLEdit::FileExist(app, one.document))
        edit::OpenFile(app, one.document, other);
    if (!other)
        return;
    const qsizetype position = PositionOf(other->way->text(*other), one.line, one.column);
    const QString key = one.line > 0 ? ElementsAt(*other, {position}).front() : QString();
    GoToPlace(*other, one, other->tvXML.Nodes.Find(key), position);
}

void Walk(DocumentWindow& window, int by) {
    DiagnosticsState& state = DiagnosticsOf(window);
    const int count = state.lvDiagnostics.Count(), row = state.lvDiagnostics.SelectedItem();
    if (count == 0)
        return;
    const int first = by > 0 ? 1 : count;
    GoToDiagnostic(window, row == 0 || row + by < 1 || row + by > count ? first : row + by);
}

} // namespace

DiagnosticsState& DiagnosticsOf(DocumentWindow& window) {
    return window.rooms.of<DiagnosticsState>();
}

void ShowDiagnostics(DocumentWindow& window, std::vector<Diagnostic> found) {
    std::stable_sort(found.begin(), found.end(), [](const Diagnostic& a, const Diagnostic& b) {
        return std::tie(a.last, a.document, a.line, a.column) <
               std::tie(b.last, b.document, b.line, b.column);
    });
    DiagnosticsState& state = DiagnosticsOf(window);
    FindNodes(window, found);
    state.all = std::move(found);
    state.text = state.all.empty() ? LongText() : window.way->text(window);
    state.past = false;
    MakeRows(window);
    state.pctDiagnostics.SetVisible(!state.all.empty());
    window.app.frame().RefreshMenu();
}

TreeNode NodeOf(DocumentWindow& window, const Diagnostic& one) {
    return window.tvXML.Nodes.Find(one.node);
}

void GoToDiagnostic(DocumentWindow& window, int row) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (row < 1 || row > static_cast<int>(state.all.size()))
        return;
    state.lvDiagnostics.ClearSelected();
    state.lvDiagnostics.SetSelectedItem(row);
    state.lvDiagnostics.EnsureVisible(row);
    const Diagnostic one = state.all[static_cast<std::size_t>(row - 1)];
    if (one.document.isEmpty())
        GoToPlace(window, one, NodeOf(window, one), PositionNow(window, one));
    else
        GoToOtherDocument(window.app, one);
}

void NextDiagnostic(DocumentWindow& window) {
    Walk(window, 1);
}

void PreviousDiagnostic(DocumentWindow& window) {
    Walk(window, -1);
}

void ConnectDiagnostics(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    state.pctDiagnostics.SetVisible(false);
    state.lvDiagnostics.ColumnHeaders = {QStringLiteral("Place"), QStringLiteral("Message"),
                                         QStringLiteral("Node")};
    for (controls::RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2})
        pane->Change.connect([&window] { LookWhetherPast(window); });
    state.lvDiagnostics.ItemClick.connect([&window](int row) { GoToDiagnostic(window, row); });
}

} // namespace schema
