// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/Validate.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "nodes/TreeCommands.h"
#include "platform/text/TextTools.h"

// Renaming nodes by their labels, and the document by its tree root's.

namespace {

using controls::TreeNode;

constexpr int kAttribute = 2;
constexpr int kText = 3;
constexpr int kInstruction = 7;

using services::Buttons;
using services::Icon;

void TellRefusal(Application& app, const QString& name, const services::FileResult& failure) {
    app.services.prompts.MsgBox(name + QStringLiteral("\r\n") + failure.description, Buttons::Ok,
                                Icon::Exclamation, mXMLEdit::CopyFileTitle());
}

// The file goes along with the name; a No at the question on replacing takes the name without copying. False
// when the system refused: the user knows why.
bool CopyFileAlong(Application& app, const QString& oldName, const QString& newName) {
    services::FileResult failure;
    mXMLEdit::CopyFileTo(app, oldName, newName, &failure);
    if (failure)
        return true;
    TellRefusal(app, newName, failure);
    return false;
}

// Two windows on one file would save over each other.
bool IsOpenElsewhere(Application& app, const QString& name) {
    bool found = false;
    if (app.frame)
        app.frame->HaveSameNameForm(name, false, found);
    if (found)
        app.services.prompts.MsgBox(name + QStringLiteral("\r\nis open in another window."), Buttons::Ok,
                                    Icon::Exclamation);
    return found;
}

// What the new name means for files: the old file is copied, and a document that has none, such as a new one,
// is unsaved from now on. No at the question on replacing keeps the old name then, since only saving could
// follow. False when the name can't be taken; the user knows why.
bool TakeFileAlong(DocumentWindow& window, const QString& oldName, const QString& newName) {
    Application& app = window.app;
    if (IsOpenElsewhere(app, newName))
        return false;
    if (!mXMLEdit::IsLocalPath(newName))
        return true;
    if (mXMLEdit::FileExist(app, oldName))
        return CopyFileAlong(app, oldName, newName);
    if (mXMLEdit::FileExist(app, newName) && !mXMLEdit::MayReplaceByCopy(app, newName))
        return false;
    // A name that can't be saved under is refused now, as it is for a document with a file.
    if (const services::FileResult result = app.services.files.MayReplace(newName); !result) {
        TellRefusal(app, newName, result);
        return false;
    }
    window.msOpenText = {};
    return true;
}

// A folder stands for the document's own file name in it: a document can't be saved under a folder's name.
QString FullName(const QString& name, const QString& oldName) {
    const bool folder = name.endsWith(u'\\') || name.endsWith(u'/');
    return folder && mXMLEdit::IsLocalPath(name) ? name + mXMLEdit::GetFSFileName(oldName) : name;
}

} // namespace

void EditTreeNode(DocumentWindow& window) try {
    const TreeNode node = window.tvXML.SelectedItem();
    if (!node)
        return;
    const int kind = m_tvXML::GetKeyType(node);
    if (kind != kAttribute && kind != kInstruction)
        window.tvXML.StartLabelEdit();
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".EditTreeNode"));
}

void tvXML_BeforeLabelEdit(DocumentWindow& window, bool& cancel) {
    const int kind = m_tvXML::GetKeyType(window.tvXML.SelectedItem());
    cancel = cancel || kind == kAttribute || kind == kText || kind == kInstruction;
}

void tvXMLAfterLabelEdit(DocumentWindow& window, TreeNode node, bool& cancel, QString& newString) try {
    if (m_tvXML::IsTreeRoot(node)) {
        cancel = !ChangeTreeRootText(window, newString);
        newString = node.Text();
        return;
    }
    if (!m_tvXML::ValidateNodeName(window.app, newString))
        newString = QStringLiteral("Unnamed");
    window.bTreeChanged = true;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tvXML_AfterLabelEdit"));
}

bool ChangeTreeRootText(DocumentWindow& window, const QString& name) try {
    if (text::Trim(name).size() <= 1 || window.tvXML.Nodes.Count() == 0)
        return false;
    Application& app = window.app;
    TreeNode root = window.tvXML.Nodes(1);
    const QString oldName = root.Key();
    const QString newName = FullName(text::Trim(name), oldName);
    const TreeNode owner = window.tvXML.Nodes.Find(newName);
    if (owner && owner != root) // a name that looks like a key of this tree
        return false;
    if (newName != oldName && !TakeFileAlong(window, oldName, newName))
        return false;
    root.SetText(newName);
    window.SetCaption(newName);
    root.SetKey(newName);
    // The name in hand and the address are those of the window in front.
    const bool inFront = !app.frame || app.frame->ActiveForm() == &window;
    if (inFront)
        app.CurrentFileName = newName;
    if (inFront && app.frame)
        app.frame->cmbAddress().SetText(newName);
    return true;
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".ChangeTreeRootText"));
    return false;
}
