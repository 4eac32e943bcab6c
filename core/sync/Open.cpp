// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/sync/Files.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "textview/fill/FillText.h"
#include <QScopeGuard>

// Opening a document by its name.

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

bool IsSchemaName(const QString& fileName) {
    return mXMLEdit::GetExtName(fileName).toLower() == QStringLiteral("xsd");
}

// A window that is loaded again takes the new text and name.
void Reload(DocumentWindow& window, const QString& fileName, const FetchedText& fetched) {
    Application& app = window.app;
    window.bLoaded = false;
    const auto loaded = qScopeGuard([&window] { window.bLoaded = true; });
    app.CurrentFileName = fileName;
    window.SetCaption(fileName);
    TakeFetched(window, fetched);
    if (app.frame)
        ShowNodePath(window, app.frame->StatusBar1());
    window.msOpenText = window.rtxtXML.Long();
    window.msLastParsedText = window.rtxtXML.Long();
    BeginHistory(window); // the steps so far lead to another document
    DoTree(window);
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
        app.frame->NewSXMLFile({}, name);
    else
        app.frame->NewXMLFile({}, name);
    return true;
}

// After a failure the name in hand is again that of the document that the user sees.
void NameAfterFailure(Application& app, const QString& fileName, DocumentWindow* form) {
    DocumentWindow* active = app.frame->ActiveForm();
    app.CurrentFileName =
        active && active->tvXML.Nodes.Count() > 0 ? active->tvXML.Nodes(1).Text() : fileName;
    if (form)
        form->SetCaption(app.CurrentFileName);
}

} // namespace

void TakeFetched(DocumentWindow& window, const FetchedText& fetched) {
    window.fileForm = fetched.form;
    SetRichText(window, fetched.text);
    // Colouring may have put blanks in; which line end is whose is told by the text as it was before an edit.
    if (!window.fileForm.lineEnds.each.empty())
        window.fileForm.lineEnds.loadedText = window.rtxtXML.Long();
    XMLToTree(window, fetched, 0);
}

void BeginHistory(DocumentWindow& window) {
    window.undoStack.clear();
    window.UndoPos = 0;
    SetUndoRedoMenuToolBar(window);
}

void OpenFile(Application& app, const QString& fileName, DocumentWindow*& form) try {
    // However the opening breaks off, a later save must go to the document that the user sees.
    auto failed = qScopeGuard([&] { NameAfterFailure(app, fileName, form); });
    FetchedText fetched;
    if (mXMLEdit::GetData(app, fileName, fetched)) {
        if (form)
            Reload(*form, fileName, fetched);
        else if (IsSchemaName(fileName))
            app.frame->NewSXMLFile(fetched, fileName);
        else
            app.frame->NewXMLFile(fetched, fileName);
        failed.dismiss();
        form = form ? form : app.frame->ActiveForm();
        return;
    }
    if (!form && !fetched.cancelled && MakeNewInstead(app, fileName))
        form = app.frame->ActiveForm();
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("mXMLEdit.OpenFile"));
}
