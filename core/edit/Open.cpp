// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Open.h"
#include "core/edit/Fetch.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/Journal.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "core/model/NodeAddress.h"
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace edit {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

bool IsSchemaName(const QString& fileName) {
    return mXMLEdit::GetExtName(fileName).toLower() == QStringLiteral("xsd");
}

// A window takes another document. The steps so far lead to the one before.
void TakeDocument(DocumentWindow& window, const QString& fileName, const FetchedText& fetched) {
    window.bLoaded = false;
    window.app.CurrentFileName = fileName;
    window.SetCaption(fileName);
    FillWindow(window, fetched);
}

// The same document, as its file has it now: a step of the history, and the user stays where they are.
void Reload(DocumentWindow& window, const FetchedText& fetched) {
    const m_tvXML::NodeAddress current(window.tvXML.SelectedItem());
    const QScopedValueRollback loading(window.bLoaded, false);
    Run(window, "OpenFile", [&] {
        window.app.CurrentFileName = window.Caption;
        window.fileForm = fetched.form;
        window.way->renew(window, fetched);
        window.bond.msOpenText = window.fileForm.openedText = window.way->text(window);
        TakeMark(window, fetched.mark);
        window.tvXML.SetSelectedItem(current.nearestIn(window.tvXML));
        TellPathAgain(window);
    });
}

// What can't be fetched may become a new document of that name, if the user wants it.
bool MakeNewInstead(Application& app, const QString& fileName) {
    const bool schema = IsSchemaName(fileName);
    const bool keepsName = schema || mXMLEdit::GetExtName(fileName).toLower() == QStringLiteral("xml");
    const QString name = keepsName ? fileName : fileName + QStringLiteral(".xml");
    const QString question =
        (schema ? QStringLiteral("Bad file name! Do you want to create new schema file with name: ")
                : QStringLiteral("Bad file name! Do you want to create new xml file with name: ")) +
        name + QStringLiteral(" ?");
    if (app.services.prompts.MsgBox(question, Buttons::YesNo, Icon::Question) != Answer::Yes)
        return false;
    // The first save would write over a file that merely couldn't be read, or that has the name with the
    // extension.
    if (mXMLEdit::FileExist(app, name) && !MayReplace(app, name))
        return false;
    if (schema)
        app.frame().NewSXMLFile({}, name);
    else
        app.frame().NewXMLFile({}, name);
    if (DocumentWindow* made = app.frame().ActiveForm(); made && made->Caption == name)
        TakeFileAsItIs(*made, name);
    return true;
}

// After a failure the name in hand is again that of the document that the user sees.
void NameAfterFailure(Application& app, const QString& fileName, DocumentWindow* form) {
    DocumentWindow* active = app.frame().ActiveForm();
    app.CurrentFileName =
        active && active->tvXML.Nodes.Count() > 0 ? active->tvXML.Nodes(1).Text() : fileName;
    if (form)
        form->SetCaption(app.CurrentFileName);
}

} // namespace

void FillWindow(DocumentWindow& window, const FetchedText& fetched) {
    const auto loaded = qScopeGuard([&window] { window.bLoaded = true; });
    Transaction edit(window);
    window.fileForm = fetched.form;
    if (fetched.text.isEmpty()) {
        window.kind.newTree(window, true);
        window.bond.msOpenText = {}; // a document that was never saved counts as changed
        window.way->beginFromTree(window);
    } else {
        window.way->begin(window, fetched);
        const text::LongText& text = window.way->text(window);
        window.fileForm.openedText = text;
        if (!text.holdsOnly(u" \t\r\n"))
            window.bond.msOpenText = fetched.made ? text::LongText() : text;
    }
    TakeMark(window, fetched.mark);
    TellPathAgain(window);
    edit.Close();
    JournalOf(window.app).Watch(window);
    if (fetched.made)
        JournalOf(window.app).Keep(window);
    FilesOf(window.app).Follow(window);
}

void OpenFile(Application& app, const QString& fileName, DocumentWindow*& form) {
    Guarded(app, QStringLiteral("mXMLEdit.OpenFile"), [&] {
        // However the opening breaks off, a later save must go to the document that the user sees.
        auto failed = qScopeGuard([&] { NameAfterFailure(app, fileName, form); });
        FetchedText fetched;
        if (GetData(app, fileName, fetched)) {
            if (form && form->Caption == fileName)
                Reload(*form, fetched);
            else if (form)
                TakeDocument(*form, fileName, fetched);
            else if (IsSchemaName(fileName))
                app.frame().NewSXMLFile(fetched, fileName);
            else
                app.frame().NewXMLFile(fetched, fileName);
            failed.dismiss();
            form = form ? form : app.frame().ActiveForm();
            return;
        }
        if (!form && !fetched.cancelled && MakeNewInstead(app, fileName))
            form = app.frame().ActiveForm();
    });
}

} // namespace edit
