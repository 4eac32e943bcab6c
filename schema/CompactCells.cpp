// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CompactCells.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/NodeKind.h"
#include "core/model/Probe.h"
#include "schema/CompactAttributes.h"
#include "schema/CompactList.h"
#include "schema/CompactState.h"
#include <Qt>

namespace schema {

namespace {

void Close(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    state.editedKey.clear();
    state.refused = false;
    state.txtResLv.SetVisible(false);
}

// False where the text was refused. A value of one attribute, and a text, is a sample.
bool Take(DocumentWindow& window, const controls::ListItem& row, int column, const QString& typed) {
    if (row.Sub[static_cast<std::size_t>(column - 1)] == typed)
        return true;
    const controls::TreeNode node = CompactOf(window).tvRes.Nodes.Find(row.Key);
    if (column != 1 || row.SmallIcon != m_tvXML::kElement || !node) {
        SayItIsASample(window);
        return true;
    }
    const auto taken = edit::TakeNodeAttributes(window.app, typed, node.Text());
    if (!taken || !ChangeMainTreeAttributesByAttrString(window, node, m_tvXML::PlainAttributes(*taken)))
        return false;
    BuildInstanceAnew(window);
    return true;
}

// False where it was refused: it is there still.
bool Commit(DocumentWindow& window) {
    txtResLv_LostFocus(window);
    if (CompactOf(window).refused)
        return false;
    CompactOf(window).lvRes.SetFocus();
    return true;
}

void GoOn(DocumentWindow& window, int step) {
    CompactState& state = CompactOf(window);
    const int row = state.lvRes.IndexOf(state.editedKey) + step;
    const int column = state.txtResLv.Tag.toInt();
    if (Commit(window) && row >= 1 && row <= state.lvRes.Count())
        OpenResultCell(window, row, column);
}

} // namespace

void OpenResultCell(DocumentWindow& window, int row, int column) {
    CompactState& state = CompactOf(window);
    if (!state.editedKey.isEmpty() && !Commit(window))
        return;
    if (row < 1 || row > state.lvRes.Count())
        return;
    const controls::ListItem item = state.lvRes.Item(row);
    const int shown = item.SmallIcon == m_tvXML::kElement ? column : 1;
    SelectResultRow(window, row);
    state.lvRes.EnsureVisible(row);
    state.editedKey = item.Key;
    state.listInUse = true;
    const QString text = item.Sub[static_cast<std::size_t>(shown - 1)];
    state.txtResLv.Tag = QString::number(shown);
    state.txtResLv.SetText(text);
    state.txtResLv.SetVisible(true);
    state.txtResLv.SetFocus();
    state.txtResLv.Select(0, text.size());
}

// What was refused stays as it was typed, and the box has the keys again.
void txtResLv_LostFocus(DocumentWindow& window) {
    CompactState& state = CompactOf(window);
    if (state.editedKey.isEmpty())
        return;
    const QString key = std::exchange(state.editedKey, {}); // a message takes the focus away once more
    const bool done = edit::Run(window, "txtResLv_LostFocus", [&] {
        const int row = state.lvRes.IndexOf(key);
        edit::Message(window.app, {});
        return row == 0 ||
               Take(window, state.lvRes.Item(row), state.txtResLv.Tag.toInt(), state.txtResLv.Text());
    });
    if (done)
        return Close(window);
    state.editedKey = key;
    state.refused = true;
    state.txtResLv.SetFocus();
}

void txtResLv_KeyDown(DocumentWindow& window, int& key, int modifiers) {
    const bool back = key == Qt::Key_Backtab || (modifiers & static_cast<int>(Qt::ShiftModifier)) != 0;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Commit(window);
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        GoOn(window, back ? -1 : 1);
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        GoOn(window, key == Qt::Key_Up ? -1 : 1);
        break;
    case Qt::Key_Escape:
        Close(window);
        CompactOf(window).lvRes.SetFocus();
        break;
    default:
        return;
    }
    key = 0;
}

} // namespace schema
