// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Save.h"
#include "core/edit/Journal.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include <utility>

namespace edit {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

// Brings tree and text together. True when the tree had changes that the text didn't show while the window is
// closing: the user is then asked whatever the comparison with the opened text would say.
bool BringTogether(DocumentWindow& window) {
    if (window.bond.bTextChanged())
        window.way->read(window);
    const bool changed = window.bond.bTreeChanged();
    if (changed)
        Run(window, "SaveXMLFile", [&] { WriteUnnamed(window); });
    if (std::exchange(window.bond.untried, false))
        ValidateXML(window.app, window.TextInUse().Long(), Tone::Quiet);
    return changed && window.bUnloading;
}

// The last parse error belongs to the whole program, not to the window: while some text is known not to
// parse, closing any window asks, an unchanged one too. Which text it was is not kept, and a needless
// question loses nothing where a missing one might.
bool NothingToSave(DocumentWindow& window, bool bSaveAs) {
    return !window.app.lastParseError && !bSaveAs && window.way->text(window) == window.bond.msOpenText;
}

bool WantsSaving(DocumentWindow& window) {
    const Answer answer = window.app.services.prompts.MsgBox(
        QStringLiteral("This XML file has been changed. Do you want to save it?"), Buttons::YesNoCancel,
        Icon::Question);
    window.bCancelSave = answer == Answer::Cancel;
    if (answer == Answer::No)
        JournalOf(window.app).Forget(window);
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
    window.app.frame().cmbAddress().SetText(name);
}

// The user may have let the declaration be changed on the way to the file: text and tree follow.
// False when the user declined another encoding: that is no saving, and a closing window stays.
bool Write(DocumentWindow& window, const QString& fileName) {
    QString text = window.way->text(window).toString();
    const SaveOutcome outcome = WriteText(window.app, text, fileName, &window.fileForm);
    if (outcome == SaveOutcome::Declined) {
        window.bCancelSave = window.bUnloading;
        return false;
    }
    if (!(window.way->text(window) == text))
        Run(window, "SaveXMLFile", [&] { window.way->replace(window, text); });
    if (outcome == SaveOutcome::Written) // else the text is nowhere but here
        JournalOf(window.app).Forget(window);
    return true;
}

bool SaveUnderOwnName(DocumentWindow& window) {
    if (!Write(window, window.Caption))
        return false;
    window.app.frame().cmbAddress().SetText(window.app.CurrentFileName);
    return true;
}

bool SaveUnderNewName(DocumentWindow& window) {
    const QString name = AskSaveFileName(window);
    window.bCancelSave = window.bUnloading; // a closing window whose user backs out from here stays
    if (name.isEmpty())
        return false;
    const bool exists = mXMLEdit::FileExist(window.app, name);
    TakeName(window, name);
    if ((exists && !MayReplace(window.app, name)) || !Write(window, name))
        return false;
    window.bCancelSave = false;
    return true;
}

} // namespace

bool MayReplace(Application& app, const QString& name) {
    return app.services.prompts.MsgBox(name + QStringLiteral(" already exists. Do you want to replace it?"),
                                       Buttons::YesNo, Icon::None,
                                       QStringLiteral("Save file ...")) == Answer::Yes;
}

void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck) {
    Guarded(window, "SaveXMLFile", [&] {
        if (!bSkipCheck) {
            const bool ask = BringTogether(window);
            if (!ask && NothingToSave(window, bSaveAs))
                return;
        }
        if (window.bUnloading && !WantsSaving(window))
            return;
        const bool ownName = mXMLEdit::IsLocalPath(window.Caption) && !bSaveAs;
        if (!(ownName ? SaveUnderOwnName(window) : SaveUnderNewName(window)))
            return;
        // Whether the file was written isn't looked at: a refused write has told the user, and the window
        // counts as saved.
        window.bond.move(BondMove::TextTakenBack);
        window.bond.msOpenText = window.way->text(window);
    });
}

void SaveAs(DocumentWindow& window) {
    SaveXMLFile(window, true, false);
}

} // namespace edit
