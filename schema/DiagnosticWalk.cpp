// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/DiagnosticWalk.h"
#include "core/edit/NodePath.h"
#include "core/edit/Open.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "schema/Diagnostics.h"
#include "schema/FaultPlaces.h"
#include "textview/KeptPlaces.h"

namespace schema {

namespace {

using controls::TreeNode;
using text::LongText;

/// A list that has led into the window of another document.
struct Walk {
    explicit Walk(Application& app) {
        app.windowClosed.connect([this](DocumentWindow& window) {
            if (list == &window || at == &window)
                list = at = nullptr;
        });
    }
    DocumentWindow *list = nullptr, *at = nullptr;
};

Walk& WalkOf(Application& app) {
    return app.rooms.of<Walk>(app);
}

DocumentWindow& ListFor(DocumentWindow& window) {
    const Walk& walk = WalkOf(window.app);
    return walk.at == &window && !DiagnosticsOf(*walk.list).all.empty() ? *walk.list : window;
}

// --- places ------------------------------------------------------------------------------------------------

// The place of the check as long as the text is the same, then where the element is by now, or the letters
// are.
qsizetype PositionNow(DocumentWindow& window, const Diagnostic& one) {
    const DiagnosticsState& state = DiagnosticsOf(window);
    const qsizetype then = PositionOf(state.text, one.line, one.column);
    if (IsAsChecked(window))
        return then;
    const TreeNode node = NodeOf(window, one);
    return node ? PositionOf(window, node) : textview::KeptPlaces(state.text, window.way->text(window))(then);
}

// What was checked of another document is its file.
qsizetype PositionIn(DocumentWindow& other, const Diagnostic& one) {
    const LongText& saved = other.bond.msOpenText;
    const LongText& now = other.way->text(other);
    if (saved.isEmpty() || saved == now)
        return PositionOf(now, one.line, one.column);
    return textview::KeptPlaces(saved, now)(PositionOf(saved, one.line, one.column));
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
    DiagnosticsOf(window).wentThere();
}

// Null where it can't be had.
DocumentWindow* WindowOf(Application& app, const QString& document) {
    DocumentWindow* other = nullptr;
    if (app.frame().HaveSameNameForm(document, true))
        other = app.frame().ActiveForm();
    else if (mXMLEdit::GetAddressType(document) == 2 || mXMLEdit::FileExist(app, document))
        edit::OpenFile(app, document, other);
    return other;
}

void GoToOtherDocument(DocumentWindow& window, const Diagnostic& one) {
    DocumentWindow* const other = WindowOf(window.app, one.document);
    if (!other)
        return edit::Message(window.app, one.message);
    Walk& walk = WalkOf(window.app);
    walk.list = &window;
    walk.at = other;
    const qsizetype position = PositionIn(*other, one);
    const QString key = one.line > 0 ? ElementsAt(*other, {position}).front() : QString();
    GoToPlace(*other, one, other->tvXML.Nodes.Find(key), position);
}

void GoToOwn(DocumentWindow& window, const Diagnostic& one) {
    Walk& walk = WalkOf(window.app);
    walk.list = walk.at = nullptr;
    if (window.app.frame().ActiveForm() != &window)
        window.app.frame().ActivateForm(&window);
    GoToPlace(window, one, NodeOf(window, one), PositionNow(window, one));
}

void WalkBy(DocumentWindow& window, int by) {
    DocumentWindow& walked = ListFor(window);
    DiagnosticsState& state = DiagnosticsOf(walked);
    const int count = state.lvDiagnostics.Count(), row = state.lvDiagnostics.SelectedItem();
    if (count == 0)
        return;
    const int first = by > 0 ? 1 : count;
    GoToDiagnostic(walked, row == 0 || row + by < 1 || row + by > count ? first : row + by);
}

} // namespace

void GoToDiagnostic(DocumentWindow& window, int row) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (row < 1 || row > static_cast<int>(state.all.size()))
        return;
    state.lvDiagnostics.ClearSelected();
    state.lvDiagnostics.SetSelectedItem(row);
    state.lvDiagnostics.EnsureVisible(row);
    const Diagnostic one = state.all[static_cast<std::size_t>(row - 1)];
    if (one.document.isEmpty())
        GoToOwn(window, one);
    else
        GoToOtherDocument(window, one);
}

void NextDiagnostic(DocumentWindow& window) {
    WalkBy(window, 1);
}

void PreviousDiagnostic(DocumentWindow& window) {
    WalkBy(window, -1);
}

bool HasDiagnostics(DocumentWindow& window) {
    return DiagnosticsOf(ListFor(window)).lvDiagnostics.Count() > 0;
}

void ConnectDiagnosticWalk(DocumentWindow& window) {
    DiagnosticsOf(window).lvDiagnostics.ItemClick.connect(
        [&window](int row) { GoToDiagnostic(window, row); });
}

} // namespace schema
