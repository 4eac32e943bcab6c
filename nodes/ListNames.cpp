// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/ListNames.h"
#include "core/edit/Transaction.h"
#include "core/edit/Validate.h"
#include "core/model/Attributes.h"
#include "nodes/Adding.h"
#include "nodes/ListRows.h"
#include "nodes/ListState.h"

namespace nodes {

namespace {

using controls::TreeNode;

// The row takes the name by itself, so the list needn't be filled anew for it.
bool RenameElement(DocumentWindow& window, const QString& key, const QString& name) {
    if (!edit::ValidateNodeName(window.app, name))
        return false;
    const bool current = RowsAreCurrent(window);
    window.tvXML.Nodes(key).SetText(name);
    if (current)
        RowsFollowed(window);
    return true;
}

// The row's key holds the name, so the list is filled anew, and the row is another one.
bool RenameAttribute(DocumentWindow& window, const controls::ListItem& item, const QString& name) {
    TreeNode element = window.tvXML.Nodes(item.Tag);
    if (!edit::ValidateNodeAttributeName(window.app, name, element.Text()))
        return false;
    m_tvXML::Attributes all(element);
    if (all.contains(name)) {
        window.app.services.prompts.MsgBox(
            QStringLiteral("Can not set same attribute name at XML attribute list!"));
        return false;
    }
    const qsizetype at = all.find(item.Text);
    if (at < 0)
        return false;
    all.set(at, name, all.value(at));
    element.SetTag(all.tag());
    edit::Then(window, [&window, key = item.Tag + u'/' + name] {
        if (const int row = window.ListView1.IndexOf(key); row > 0)
            window.ListView1.SetSelectedItem(row);
    });
    return true;
}

/// What became of a name.
enum class Naming { GivenUp, Taken, Refused };

// A name that was refused stays in its editor (quirk 59). One that was emptied is given up; a new element
// can't go without.
Naming RenameRow(DocumentWindow& window, int row, QString& name) {
    const controls::ListItem item = window.ListView1.Item(row);
    const bool attribute = item.SmallIcon == m_tvXML::kAttribute;
    if (!attribute && name.isEmpty()) {
        if (!item.Text.isEmpty())
            return Naming::GivenUp;
        name = QStringLiteral("Unnamed");
    }
    const bool taken =
        attribute ? RenameAttribute(window, item, name) : RenameElement(window, item.Key, name);
    return taken ? Naming::Taken : Naming::Refused;
}

bool IsAddingRow(DocumentWindow& window, int row) {
    const controls::ListItem& item = window.ListView1.Item(row);
    return IsAdding(window, item.SmallIcon == m_tvXML::kAttribute ? item.Tag : item.Key);
}

QString NameProbe(DocumentWindow& window, const controls::ListItem& item, const QString& name) {
    if (item.SmallIcon != m_tvXML::kAttribute)
        return m_tvXML::NodeNameProbe(name);
    const TreeNode element = NodeOfRow(window, item);
    return element ? m_tvXML::NodeAttributeNameProbe(name, element.Text()) : QString();
}

} // namespace

void EditListViewItemName(DocumentWindow& window) {
    if (window.ListView1.SelectedItem() > 0)
        window.ListView1.StartLabelEdit();
}

void ListView1_BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    const int kind = SelectedRowKind(window);
    // The caption of a CDATA section is the list's own word and not a name.
    cancel = cancel || kind == m_tvXML::kText || kind == m_tvXML::kComment || kind == m_tvXML::kInstruction ||
             kind == m_tvXML::kCData;
}

void ListView1_LabelTyped(DocumentWindow& window, const QString& text) {
    const int row = window.ListView1.LabelEditRow();
    const controls::ListItem item = row > 0 ? window.ListView1.Item(row) : controls::ListItem();
    const bool asked = row > 0 && !text.isEmpty();
    edit::ComplainWhileTyping(window.app, asked ? NameProbe(window, item, text) : QString(),
                              item.SmallIcon == m_tvXML::kAttribute ? 1 : 0);
}

void ListView1_AfterLabelEdit(DocumentWindow& window, int row, bool& cancel, QString& newString) {
    cancel = !edit::Run(window, "ListView1_AfterLabelEdit", [&] {
        const Naming naming = RenameRow(window, row, newString);
        if (naming == Naming::Taken)
            edit::WriteUnnamed(window); // a text that stays empty holds nothing up
        else if (naming == Naming::Refused)
            window.ListView1.KeepLabelEdit();
        return naming == Naming::Taken;
    });
}

void ListView1_LabelEdited(DocumentWindow& window) {
    edit::Run(window, "ListView1_LabelEdited", [&] {
        EndAdding(window);
        edit::WriteUnnamed(window);
    });
}

void ListView1_LabelGivenUp(DocumentWindow& window, int row) {
    if (IsAddingRow(window, row))
        TakeBackAdding(window);
}

} // namespace nodes
