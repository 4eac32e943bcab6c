// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/DocumentName.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "platform/text/TextTools.h"

namespace nodes {

namespace {

using controls::TreeNode;
using services::Buttons;
using services::Icon;

void TellRefusal(Application& app, const QString& name, const services::FileResult& failure) {
    app.services.prompts.MsgBox(name + QStringLiteral("\r\n") + failure.description, Buttons::Ok,
                                Icon::Exclamation, edit::CopyFileTitle());
}

// The file goes along with the name; a No at the question on replacing takes the name without copying: saving
// asks again then. False when the system refused: the user knows why.
bool CopyFileAlong(DocumentWindow& window, const QString& oldName, const QString& newName) {
    services::FileResult failure;
    if (edit::CopyFileTo(window.app, oldName, newName, &failure))
        edit::TakeFileAsItIs(window, newName);
    if (failure)
        return true;
    TellRefusal(window.app, newName, failure);
    return false;
}

// What the new name means for files (quirk 7): the old file is copied, and a document that has none, such as
// a new one, is unsaved from now on. No at the question on replacing keeps the old name then, since only
// saving could follow. False when the name can't be taken; the user knows why.
bool TakeFileAlong(DocumentWindow& window, const QString& oldName, const QString& newName) {
    Application& app = window.app;
    if (edit::IsOpenElsewhere(window, newName))
        return false;
    if (!mXMLEdit::IsLocalPath(newName))
        return true;
    if (mXMLEdit::FileExist(app, oldName))
        return CopyFileAlong(window, oldName, newName);
    if (mXMLEdit::FileExist(app, newName) && !edit::MayReplaceByCopy(app, newName))
        return false;
    // A name that can't be saved under is refused now, as it is for a document with a file.
    if (const services::FileResult result = app.services.files.MayReplace(newName); !result) {
        TellRefusal(app, newName, result);
        return false;
    }
    window.bond.msOpenText = {};
    edit::TakeFileAsItIs(window, newName);
    return true;
}

// A folder stands for the document's own file name in it: a document can't be saved under a folder's name.
QString FullName(const QString& name, const QString& oldName) {
    const bool folder = name.endsWith(u'\\') || name.endsWith(u'/');
    return folder && mXMLEdit::IsLocalPath(name) ? name + mXMLEdit::GetFSFileName(oldName) : name;
}

// The name in hand and the address are those of the window in front.
void TellName(DocumentWindow& window) {
    const DocumentWindow* front = window.app.frame().ActiveForm();
    if (front && front != &window)
        return;
    window.app.CurrentFileName = window.Caption;
    window.app.frame().cmbAddress().SetText(window.Caption);
}

} // namespace

bool ChangeTreeRootText(DocumentWindow& window, const QString& name) {
    return edit::Run(window, "ChangeTreeRootText", [&] {
        if (text::Trim(name).size() <= 1 || window.tvXML.Nodes.Count() == 0)
            return false;
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
        TellName(window);
        return true;
    });
}

} // namespace nodes
