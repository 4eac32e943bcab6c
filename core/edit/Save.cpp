// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Save.h"
#include "core/edit/FileChanged.h"
#include "core/edit/Journal.h"
#include "core/edit/NodePath.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include <utility>

namespace edit {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

// The user saves and goes nowhere: the next key belongs where they type, also in a text that doesn't parse,
// whose error has been told (quirk 81).
void ReadInPlace(DocumentWindow& window) {
    controls::RichTextBox& pane = window.TextInUse();
    const bool onShow = Shows(window, kTextTab);
    const qsizetype start = pane.SelStart(), length = pane.SelLength();
    if (window.way->read(window) || !onShow)
        return;
    pane.SetSelStart(start);
    pane.SetSelLength(length);
    ShowCursorPosition(window);
}

// Brings tree and text together. False when the text isn't well-formed: the user has been told.
bool BringTogether(DocumentWindow& window) {
    if (window.bond.bTextChanged())
        ReadInPlace(window);
    if (window.bond.bTreeChanged())
        Run(window, "SaveXMLFile", [&] { WriteUnnamed(window); });
    if (std::exchange(window.bond.untried, false))
        return ValidateXML(window.app, window.TextInUse().Long(), Tone::Quiet);
    return !window.bond.refused();
}

// A text whose write was refused and that can't be kept in its journal either, on a full disk, say (quirk
// 84).
bool IsNowhereElse(DocumentWindow& window) {
    return FileOf(window).refused && !JournalOf(window.app).Keeps(window);
}

// Whatever another document's last parse was, a text that is in its file needs no saving (quirks 25 and 46).
// One whose write was refused is tried again, but counts as saved for closing (quirk 45).
bool NothingToSave(DocumentWindow& window) {
    NoticeFile(window);
    return window.bUnloading ? CountsAsSaved(window) && !IsNowhereElse(window) : !IsUnsaved(window);
}

bool WantsSaving(DocumentWindow& window) {
    const Answer answer = window.app.services.prompts.MsgBox(
        QStringLiteral("This XML file has been changed. Do you want to save it?"), Buttons::YesNoCancel,
        Icon::Question, QStringLiteral("Vantrel"), window.Caption);
    window.bCancelSave = answer == Answer::Cancel;
    if (answer == Answer::No)
        JournalOf(window.app).Forget(window);
    return answer == Answer::Yes;
}

QString AskSaveFileName(DocumentWindow& window) {
    const QString xml = QStringLiteral("XML File (*.xml)|*.xml|"),
                  schema = QStringLiteral("Schema File (*.xsd)|*.xsd|");
    // The dialog gives a name the extension of the first kind.
    const QString kinds = window.kind.schema ? schema + xml : xml + schema;
    return window.app.services.prompts.SaveFileName(
        QStringLiteral("Save As"), kinds + QStringLiteral("All files (*.*)|*.*"), window.Caption);
}

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
// False when that was no saving: the user declined another encoding, or a closing window has nowhere else to
// keep its text. The window stays then.
bool Write(DocumentWindow& window, const QString& fileName) {
    QString text = window.way->text(window).toString();
    services::FileMark mark;
    const SaveOutcome outcome = WriteText(window.app, text, fileName, &window.fileForm, &mark);
    FileOf(window).refused = outcome == SaveOutcome::Refused;
    if (outcome == SaveOutcome::Declined || (outcome == SaveOutcome::Refused && window.bUnloading)) {
        window.bCancelSave = window.bUnloading;
        return false;
    }
    if (!(window.way->text(window) == text))
        Run(window, "SaveXMLFile", [&] { window.way->replace(window, text); });
    if (outcome == SaveOutcome::Written) { // else the text is nowhere but here
        JournalOf(window.app).Forget(window);
        TakeMark(window, mark);
    }
    return true;
}

bool SaveUnderOwnName(DocumentWindow& window) {
    if (!MayOverwrite(window) || !Write(window, window.Caption)) {
        window.bCancelSave = window.bUnloading;
        return false;
    }
    window.app.frame().cmbAddress().SetText(window.app.CurrentFileName);
    return true;
}

bool SaveUnderNewName(DocumentWindow& window) {
    const QString name = AskSaveFileName(window);
    window.bCancelSave = window.bUnloading; // closing, it stays (quirk 28)
    if (name.isEmpty())
        return false;
    // Refused or answered with No, the window keeps its name: the next save would write over that file
    // without a word (quirk 26).
    if (IsOpenElsewhere(window, name) ||
        (mXMLEdit::FileExist(window.app, name) && !MayReplace(window.app, name)))
        return false;
    TakeName(window, name);
    if (!Write(window, name))
        return false;
    window.bCancelSave = false;
    return true;
}

void SaySaved(DocumentWindow& window, bool wellFormed) {
    const QString saved = SavedMessage(window);
    Message(window.app, wellFormed ? saved : saved + QStringLiteral(" It is not valid XML."));
}

} // namespace

void SaveXMLFile(DocumentWindow& window, bool bSaveAs, bool bSkipCheck) {
    Guarded(window, "SaveXMLFile", [&] {
        const bool looks = !bSkipCheck && !bSaveAs;
        // The question comes before anything is said about the text, which may not be wanted (quirk 43).
        if (window.bUnloading && ((looks && NothingToSave(window)) || !WantsSaving(window)))
            return;
        const bool wellFormed = bSkipCheck || BringTogether(window);
        if (!window.bUnloading && looks && NothingToSave(window))
            return;
        const bool ownName = mXMLEdit::IsLocalPath(window.Caption) && !bSaveAs;
        if (!(ownName ? SaveUnderOwnName(window) : SaveUnderNewName(window)))
            return;
        // Whether the file was written isn't looked at: a refused write has told the user, and the window
        // counts as saved (quirk 27).
        window.bond.move(BondMove::TextTakenBack);
        window.bond.msOpenText = window.way->text(window);
        ShowUnsaved(window);
        if (!FileOf(window).refused)
            SaySaved(window, wellFormed);
    });
}

void SaveAs(DocumentWindow& window) {
    SaveXMLFile(window, true, false);
}

} // namespace edit
