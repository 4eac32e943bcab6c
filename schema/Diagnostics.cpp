// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/Diagnostics.h"
#include "core/edit/NodePath.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "schema/FaultPlaces.h"
#include "schema/KeptNumbers.h"
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

// After a reading the elements have other keys: they are found by their numbers, which follow the text.
void FindNodesAgain(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    std::optional<std::vector<long>> numbers = std::exchange(state.numbers, {});
    if (!numbers)
        return;
    if (IsAsChecked(window) && IsTreeOfText(window))
        return FindNodes(window, state.all);
    if (!IsTreeOfText(window))
        numbers->clear();
    numbers->resize(state.all.size());
    const QStringList keys = KeysOf(window, *numbers);
    for (std::size_t i = 0; i < state.all.size(); ++i)
        state.all[i].node = keys[static_cast<qsizetype>(i)];
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

void MakeRows(DocumentWindow& window, int current) {
    DiagnosticsState& state = DiagnosticsOf(window);
    state.rowsOf = window.tvXML.Revision();
    state.lvDiagnostics.BeginUpdate();
    state.lvDiagnostics.Clear();
    state.lvDiagnostics.Fill(
        static_cast<std::uint32_t>(state.all.size()),
        [&window](std::uint32_t number) { return RowOf(window, number); },
        [](const QString& key) { return key.toLongLong(); });
    state.lvDiagnostics.SetSelectedItem(current);
    state.lvDiagnostics.EndUpdate();
}

void MakeRowsAgain(DocumentWindow& window) {
    MakeRows(window, DiagnosticsOf(window).lvDiagnostics.SelectedItem());
}

// They keep the place of the text that was checked, and tell so, as long as another one is there. The paths
// of nodes follow the tree.
void FollowText(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (state.all.empty())
        return;
    const bool past = !IsAsChecked(window);
    if (past != std::exchange(state.past, past) || state.rowsOf != window.tvXML.Revision())
        MakeRowsAgain(window);
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
    state.text = window.way->text(window);
    state.name = window.Caption;
    state.past = false;
    state.numbers.reset();
    MakeRows(window, 0);
    state.pctDiagnostics.SetVisible(!state.all.empty());
    window.app.frame().RefreshMenu();
}

TreeNode NodeOf(DocumentWindow& window, const Diagnostic& one) {
    return window.tvXML.Nodes.Find(one.node);
}

bool IsAsChecked(const DocumentWindow& window) {
    return window.way->text(window) == DiagnosticsOf(const_cast<DocumentWindow&>(window)).text;
}

void KeepDiagnosedNodes(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (!window.bLoaded && state.name != window.Caption) {
        ForgetDiagnostics(window);
        state.text = {};
    }
    if (state.all.empty() || state.numbers)
        return;
    QStringList keys;
    for (const Diagnostic& one : state.all)
        keys << one.node;
    std::vector<long> numbers = NumbersOf(window, keys);
    std::transform(numbers.begin(), numbers.end(), numbers.begin(),
                   KeptNumbers(window.bond.treeText, window.way->text(window)));
    state.numbers = std::move(numbers);
    edit::Then(window, [&window] {
        FindNodesAgain(window);
        MakeRowsAgain(window);
    });
}

void ForgetDiagnostics(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (!state.all.empty())
        return ShowDiagnostics(window, {});
    state.text = window.way->text(window);
}

void ConnectDiagnostics(DocumentWindow& window) {
    DiagnosticsState& state = DiagnosticsOf(window);
    state.pctDiagnostics.SetVisible(false);
    state.lvDiagnostics.ColumnHeaders = {QStringLiteral("Place"), QStringLiteral("Message"),
                                         QStringLiteral("Node")};
    for (controls::RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2})
        pane->Change.connect([&window] { FollowText(window); });
}

} // namespace schema
