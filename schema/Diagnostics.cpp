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
#include "core/model/NodeNumbers.h"
#include "core/model/NodePlaces.h"
#include <algorithm>
#include <tuple>

namespace schema {

namespace {

using controls::TreeNode;
using text::LongText;

// --- places ------------------------------------------------------------------------------------------------

// 0-based; the end of the text for a line that it doesn't have.
qsizetype PositionOf(const LongText& text, int line, int column) {
    qsizetype at = 0;
    for (int left = line - 1; left > 0; --left) {
        const qsizetype end = text.indexOf(u"\n", at, Qt::CaseSensitive);
        if (end < 0)
            return text.size();
        at = end + 1;
    }
    return std::min(at + std::max(column - 1, 0), text.size());
}

// Whether a start tag ends in "/>", or stands for no element at all.
bool ClosesItself(const QString& tag) {
    QChar quote;
    for (qsizetype i = 1; i < tag.size(); ++i) {
        if (!quote.isNull())
            quote = tag[i] == quote ? QChar() : quote;
        else if (tag[i] == u'"' || tag[i] == u'\'')
            quote = tag[i];
        else if (tag[i] == u'>')
            return tag[i - 1] == u'/';
    }
    return false;
}

// Between the last node that began before the place and the place only end tags can stand.
int LevelsUp(const LongText& text, long number, qsizetype position) {
    const qsizetype start = m_tvXML::GetTextPositionByNodeNum(text, number) - 1;
    const QString between = text.mid(start, position - start);
    const qsizetype last = between.lastIndexOf(u'<');
    if (start < 0 || last <= 0 || between.mid(last, 2) != QStringLiteral("</"))
        return 0;
    const auto ended = static_cast<int>(between.count(QStringLiteral("</")));
    const bool leaf = between.startsWith(QStringLiteral("<!")) || between.startsWith(QStringLiteral("<?"));
    return leaf || ClosesItself(between) ? ended : ended - 1;
}

QString PlaceText(const Diagnostic& one) {
    const QString place = one.line > 0 ? QStringLiteral("%1 : %2").arg(one.line).arg(one.column) : QString();
    if (one.document.isEmpty())
        return place;
    return mXMLEdit::GetFSFileName(one.document) + (place.isEmpty() ? QString() : u' ' + place);
}

controls::ListItem RowOf(DocumentWindow& window, std::uint32_t number) {
    const Diagnostic& one = DiagnosticsOf(window).all[number];
    QString message = one.message;
    return {QString::number(number),
            PlaceText(one),
            0,
            0,
            {message.replace(u'\n', u' '), edit::GetXPath(NodeOf(window, one))},
            {}};
}

// --- going there -------------------------------------------------------------------------------------------

void GoToPlace(DocumentWindow& window, const Diagnostic& one) {
    edit::Run(window, "GoToDiagnostic", [&] {
        TreeNode node = NodeOf(window, one);
        if (node) {
            node.EnsureVisible();
            window.tvXML.SetSelectedItem(node);
        }
        edit::Message(window.app, one.message);
        if (one.line == 0)
            return;
        edit::Then(window, [&window, one] {
            controls::RichTextBox& pane = window.TextInUse();
            pane.SetSelStart(PositionOf(pane.Long(), one.line, one.column));
            if (!edit::Shows(window, edit::kTextTab))
                return;
            pane.SetFocus();
            edit::ShowCursorPosition(window);
        });
    });
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
        return std::tie(a.document, a.line, a.column) < std::tie(b.document, b.line, b.column);
    });
    DiagnosticsState& state = DiagnosticsOf(window);
    state.lvDiagnostics.BeginUpdate();
    state.lvDiagnostics.Clear();
    state.all = std::move(found);
    state.lvDiagnostics.Fill(
        static_cast<std::uint32_t>(state.all.size()),
        [&window](std::uint32_t number) { return RowOf(window, number); },
        [](const QString& key) { return key.toLongLong(); });
    state.lvDiagnostics.EndUpdate();
    state.pctDiagnostics.SetVisible(!state.all.empty());
    window.app.frame().RefreshMenu();
}

TreeNode NodeOf(DocumentWindow& window, const Diagnostic& one) {
    if (one.line == 0 || !one.document.isEmpty() || window.tvXML.Nodes.Count() == 0)
        return {};
    const LongText& text = window.way->text(window);
    const qsizetype position = PositionOf(text, one.line, one.column);
    const long number = m_tvXML::GetNodeNumByTextPosition(text, position);
    if (number == 0)
        return {};
    window.app.NodeWalkCounter = 0;
    TreeNode node = m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(1));
    for (int up = LevelsUp(text, number, position); node && up > 0; --up)
        node = node.Parent();
    return node && m_tvXML::IsTreeRoot(node) ? TreeNode() : node;
}

void GoToDiagnostic(DocumentWindow& window, int row) {
    DiagnosticsState& state = DiagnosticsOf(window);
    if (row < 1 || row > static_cast<int>(state.all.size()))
        return;
    state.lvDiagnostics.ClearSelected();
    state.lvDiagnostics.SetSelectedItem(row);
    state.lvDiagnostics.EnsureVisible(row);
    Diagnostic one = state.all[static_cast<std::size_t>(row - 1)];
    if (one.document.isEmpty())
        return GoToPlace(window, one);
    edit::Message(window.app, one.message);
    DocumentWindow* other = nullptr;
    if (window.app.frame().HaveSameNameForm(one.document, true))
        other = window.app.frame().ActiveForm();
    else if (mXMLEdit::FileExist(window.app, one.document))
        edit::OpenFile(window.app, one.document, other);
    one.document.clear();
    if (other)
        GoToPlace(*other, one);
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
    state.lvDiagnostics.ItemClick.connect([&window](int row) { GoToDiagnostic(window, row); });
}

} // namespace schema
