// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Files.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "platform/text/TextTools.h"
#include "textview/fill/FillText.h"
#include <utility>

// The save cycle.

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

// Brings tree and text together. True when the tree had changes that the text didn't show while the window is
// closing: the user is then asked whatever the comparison with the opened text would say.
bool BringTogether(DocumentWindow& window) {
    const bool onNodes = window.miCurrentView == kViewTree || window.miCurrentView == kViewList;
    if (!onNodes || window.bTextChanged)
        LeaveTextView(window);
    const bool changed = window.bTreeChanged;
    if (changed) {
        const controls::TreeNode selected = window.tvXML.SelectedItem();
        TreeChangeTextView(window, true);
        if (selected)
            window.tvXML.SetSelectedItem(selected);
    }
    if (std::exchange(window.bTextUntried, false))
        mXMLEdit::ValidateXML(window.app, window.TextInUse().Long(), true);
    return changed && window.bUnloading;
}

// The last parse error belongs to the whole program, not to the window: while some text is known not to
// parse, closing any window asks, an unchanged one too. Which text it was is not kept, and a needless
// question loses nothing where a missing one might.
bool NothingToSave(DocumentWindow& window, bool bSaveAs) {
    return !window.app.lastParseError && !bSaveAs && window.rtxtXML.Long() == window.msOpenText;
}

bool WantsSaving(DocumentWindow& window) {
    const Answer answer = window.app.services.prompts.MsgBox(
        QStringLiteral("This XML file has been changed. Do you want to save it?"), Buttons::YesNoCancel,
        Icon::Question);
    window.bCancelSave = answer == Answer::Cancel;
    return answer == Answer::Yes;
}

QString AskSaveFileName(DocumentWindow& window) {
    return window.app.services.prompts.SaveFileName(
        QStringLiteral("Save As"),
        QStringLiteral("XML File (*.xml)|*.xml|Schema File (*.xsd)|*.xsd|All files (*.*)|*.*"),
        window.Caption);
}

// The name is taken as soon as it is chosen, before the question whether a file of that name may be replaced:
// after No the window keeps the new name with its text unwritten, and a later plain Save writes to it without
// asking again. Odd, but kept: a window bears the name that its user chose last, written or not.
void TakeName(DocumentWindow& window, const QString& name) {
    if (window.tvXML.Nodes.Count() > 0) {
        controls::TreeNode root = window.tvXML.Nodes(window.Caption);
        root.SetText(name);
        root.SetKey(name);
    }
    window.SetCaption(name);
    window.app.CurrentFileName = name;
    if (window.app.frame)
        window.app.frame->cmbAddress().SetText(name);
}

// The user may have let the declaration be changed on the way to the file: text and tree follow.
// False when the user declined another encoding: that is no saving, and a closing window stays.
bool Write(DocumentWindow& window, const QString& fileName) {
    QString text = window.rtxtXML.Text();
    if (mXMLEdit::WriteText(window.app, text, fileName, &window.fileForm) ==
        mXMLEdit::SaveOutcome::Declined) {
        window.bCancelSave = window.bUnloading;
        return false;
    }
    if (!(window.rtxtXML.Long() == text)) {
        ChangeText(window, text::LongText::Like(text, window.rtxtXML.Long()), window.TextInUse().Content());
        window.bQuietParse = true;
        const long number = m_tvXML::GetBeforeNodeNumber(window.app, window.tvXML.SelectedItem());
        const bool root = m_tvXML::IsTreeRoot(window.tvXML.SelectedItem());
        XMLToTree(window, text, number);
        if (root)
            window.tvXML.SetSelectedItem(window.tvXML.Nodes(1));
        window.msLastParsedText = window.rtxtXML.Long();
        DoTree(window);
    }
    return true;
}

} // namespace

bool MayReplace(Application& app, const QString& name) {
    return app.services.prompts.MsgBox(name + QStringLiteral(" already exists. Do you want to replace it?"),
                                       Buttons::YesNo, Icon::None,
                                       QStringLiteral("Save file ...")) == Answer::Yes;
}

void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck) try {
    if (!bSkipCheck) {
        const bool ask = BringTogether(window);
        if (!ask && NothingToSave(window, bSaveAs))
            return;
    }
    if (window.bUnloading && !WantsSaving(window))
        return;
    if (mXMLEdit::IsLocalPath(window.Caption) && !bSaveAs) {
        if (!Write(window, window.Caption))
            return;
        if (window.app.frame)
            window.app.frame->cmbAddress().SetText(window.app.CurrentFileName);
    } else {
        const QString name = AskSaveFileName(window);
        window.bCancelSave = window.bUnloading; // a closing window whose user backs out from here stays
        if (name.isEmpty())
            return;
        const bool exists = mXMLEdit::FileExist(window.app, name);
        TakeName(window, name);
        if (exists && !MayReplace(window.app, name))
            return;
        if (!Write(window, name))
            return;
        window.bCancelSave = false;
    }
    // Whether the file was written isn't looked at: a refused write has told the user, and the window counts
    // as saved.
    window.bTextChanged = false;
    window.msOpenText = window.rtxtXML.Long();
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".SaveXMLFile"));
}

void SaveAs(DocumentWindow& window) {
    SaveXMLFile(window, true, false);
}
