// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuInputs.h"
#include "core/edit/CopySlot.h"
#include "core/model/NodeNumbers.h"
#include "schema/DiagnosticWalk.h"
#include "textview/TextState.h"

namespace shell {

namespace {

using controls::TreeNode;

// Texts and cells take any text (quirk 73).
bool TakesAnyText(MenuSituation situation) {
    return situation == MenuSituation::TextSelected || situation == MenuSituation::TextUnselected ||
           situation == MenuSituation::TableSelected;
}

// A node has been copied in this program, even if its document has been closed since, or XML in another
// (quirk 62).
bool CanPaste(DocumentWindow& window, MenuSituation situation, bool editsCell) {
    if (!edit::LastCopy(window.app).copiedText.isEmpty())
        return true;
    services::Clipboard& clipboard = window.app.services.clipboard;
    return TakesAnyText(situation) || editsCell ? clipboard.HasText() : clipboard.HasXml();
}

TreeNode NodeOf(DocumentWindow& window, MenuSituation situation) {
    const int row = window.ListView1.SelectedItem();
    if (situation != MenuSituation::ListSelected || row == 0)
        return window.tvXML.SelectedItem();
    const controls::ListItem& item = window.ListView1.Item(row);
    return window.tvXML.Nodes.Find(item.SmallIcon == m_tvXML::kAttribute ? item.Tag : item.Key);
}

edit::Target TargetOf(DocumentWindow& window, MenuSituation situation) {
    const TreeNode node = NodeOf(window, situation), current = window.tvXML.SelectedItem();
    const textview::TextState& text = textview::StateOf(window);
    edit::Target target;
    target.kind = m_tvXML::GetKeyType(node);
    target.atRootLevel = node && m_tvXML::IsTreeRoot(node.Parent());
    target.keepsLabel = situation == MenuSituation::TreeNode && !window.kind.renamesNodes;
    target.hasLevelAbove = current && !m_tvXML::IsTreeRoot(current);
    target.hasRootElement = m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML);
    target.editsCell = edit::OpenCell(window) != nullptr;
    target.canPaste = CanPaste(window, situation, target.editsCell);
    target.canUndo = text.UndoPos > 0;
    target.canRedo = text.UndoPos < std::ssize(text.undoStack);
    target.view = edit::miCurrentView(window);
    target.hasDiagnostics = schema::HasDiagnostics(window);
    if (window.kind.describeTarget)
        window.kind.describeTarget(window, node, target);
    return target;
}

} // namespace

MenuInputs InputsOf(DocumentWindow* window) {
    if (!window)
        return {};
    const MenuSituation situation = edit::SituationOf(*window);
    return {true, window->kind.schema, situation, TargetOf(*window, situation)};
}

} // namespace shell
