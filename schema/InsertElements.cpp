// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/InsertElements.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeKind.h"
#include "nodes/AddNodes.h"
#include "nodes/ListAdd.h"
#include "nodes/ListRows.h"
#include "schema/SchemaState.h"

namespace schema {

// The row that the menu is for takes it (quirk 87).
void NewSchemaStuff(DocumentWindow& window, const QString& name) {
    if (window.miPopupContext == kContextList && nodes::SelectedRowKind(window) == m_tvXML::kElement)
        AddNewListViewElementByXSDName(window, name);
    else if (window.miPopupContext == kContextTree || window.miPopupContext == kContextList)
        AddNewTreeElementByXSDName(window, name);
}

QString AddNewTreeElementByXSDName(DocumentWindow& window, const QString& name) {
    return edit::Run(window, "AddNewTreeElementByXSDName",
                     [&] { return nodes::AddNewTreeSubNode(window, true, Prefixed(window, name)); });
}

void AddNewListViewElementByXSDName(DocumentWindow& window, const QString& name) {
    nodes::AddNewListViewChildNode(window, Prefixed(window, name));
}

} // namespace schema
