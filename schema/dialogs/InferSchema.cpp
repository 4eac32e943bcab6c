// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/InferSchema.h"
#include "core/edit/Fetch.h"
#include "core/edit/Open.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Waiting.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "core/model/Parse.h"
#include "platform/services/Schemas.h"
#include "platform/text/TextFile.h"
#include "schema/BindSchema.h"
#include "schema/Findings.h"
#include "schema/dialogs/BlankTexts.h"
#include "schema/infer/CollectDocument.h"
#include "schema/infer/SchemaText.h"
#include <algorithm>

namespace schema {

namespace {

using services::SchemaOutcome;

void Tell(Application& app, const QString& text) {
    app.services.prompts.MsgBox(text, services::Buttons::Ok, services::Icon::Exclamation);
}

/// The documents of one inference, and what is known of them.
struct Documents {
    DocumentFacts facts;
    std::vector<text::LongText> texts;
    bool cancelled = false;
};

QString TooMany() {
    return QStringLiteral(
               "The documents have more than %1 different names of elements: no schema of use can be "
               "made of them.")
        .arg(DocumentFacts::kMostElements);
}

// False when the file can't be taken, which the user has been told.
bool AddFile(Application& app, const QString& file, Documents& documents, const CollectStep& step) {
    FetchedText fetched;
    if (!edit::GetFileData(app, file, fetched))
        return false;
    const mXMLEdit::Parsed parsed = mXMLEdit::Parse(app, fetched);
    if (!parsed.good()) {
        const auto error = parsed.error();
        Tell(app, file + QStringLiteral("\r\n") +
                      (error ? mXMLEdit::ErrorLines(*error) : QStringLiteral("The file is empty.")));
        return false;
    }
    documents.texts.push_back(fetched.text);
    documents.cancelled = !CollectParsed(*parsed.document, documents.facts, step) && !documents.facts.tooMany;
    return !documents.cancelled;
}

bool Collect(DocumentWindow& window, const QStringList& files, Documents& documents) {
    Application& app = window.app;
    edit::Waiting waiting(app, QStringLiteral("Looking at the documents"));
    const edit::WaitStep wait = waiting.Step(0, 0);
    const CollectStep step = [&] { return wait(0, 0); };
    documents.texts.push_back(window.way->text(window));
    documents.cancelled = !CollectTree(window.tvXML, documents.facts, step) && !documents.facts.tooMany;
    for (const QString& file : files) {
        if (documents.cancelled || documents.facts.tooMany || !AddFile(app, file, documents, step))
            break;
    }
    if (documents.facts.tooMany)
        Tell(app, TooMany());
    else if (documents.cancelled)
        edit::Message(app, QStringLiteral("The schema was not made."));
    return !documents.facts.tooMany && !documents.cancelled &&
           documents.texts.size() == static_cast<std::size_t>(files.size()) + 1;
}

// --- where it goes -----------------------------------------------------------------------------------------

QString NameBeside(const DocumentWindow& window) {
    const QString name = mXMLEdit::GetFSFileName(window.Caption);
    const qsizetype dot = name.lastIndexOf(u'.');
    return (dot > 0 ? name.left(dot) : name) + QStringLiteral(".xsd");
}

// Files for all, the first of them as the user says. Empty when they don't.
QString ChooseFile(DocumentWindow& window, std::size_t count) {
    Application& app = window.app;
    const QString place = app.services.prompts.SaveFileName(
        QStringLiteral("Save the schema and %1 beside it").arg(count - 1),
        QStringLiteral("Schema File (*.xsd)|*.xsd|All Files (*.*)|*.*"), NameBeside(window));
    if (place.isEmpty() || mXMLEdit::GetExtName(place).isEmpty())
        return place.isEmpty() ? place : place + QStringLiteral(".xsd");
    return place;
}

QString PlaceOf(const InferredSchema& schema, const QString& folder) {
    return folder.isEmpty() ? schema.file : folder + u'/' + schema.file;
}

// None but the first may be there already: the user was asked about that one alone.
bool AreFree(Application& app, const std::vector<InferredSchema>& schemas, const QString& folder) {
    const auto taken = std::find_if(schemas.begin() + 1, schemas.end(), [&](const InferredSchema& one) {
        return app.services.files.Exists(PlaceOf(one, folder));
    });
    if (taken == schemas.end())
        return true;
    Tell(app, QStringLiteral("The schema needs a file that is there already: ") + PlaceOf(*taken, folder));
    return false;
}

// All of them or none.
bool WriteAll(Application& app, const std::vector<InferredSchema>& schemas, const QString& folder) {
    for (std::size_t i = schemas.size(); i-- > 0;) {
        const QString place = PlaceOf(schemas[i], folder);
        const services::FileResult result = app.services.files.Replace(place, schemas[i].text.toUtf8());
        if (result)
            continue;
        for (std::size_t written = i + 1; written < schemas.size(); ++written)
            app.services.files.Delete(PlaceOf(schemas[written], folder));
        Tell(app, place + QStringLiteral("\r\n") + result.description);
        return false;
    }
    return true;
}

// --- the check ---------------------------------------------------------------------------------------------

QString FirstFault(const services::SchemaAnswer& answer) {
    if (answer.outcome != SchemaOutcome::Checked)
        return WhyNot(answer.outcome);
    return answer.faults.empty() ? QString() : answer.faults.front().message;
}

// What the documents and the schema say of each other; empty for a schema that fits.
QString FaultOf(Application& app, const std::vector<InferredSchema>& schemas, const QString& folder,
                const Documents& documents) {
    const QString own = folder.isEmpty() ? QStringLiteral("/") : folder;
    services::SchemaRequest request{text::LongText(schemas[0].text), PlaceOf(schemas[0], own), true, {}};
    for (std::size_t i = 1; i < schemas.size(); ++i)
        request.fetched[PlaceOf(schemas[i], own)] = {PlaceOf(schemas[i], own), schemas[i].text.toUtf8(), {}};
    edit::Waiting waiting(app, QStringLiteral("Checking the documents"));
    const edit::WaitStep step = waiting.Step(0, 0);
    return FirstFault(app.services.schemas->CheckBy(request, documents.texts, [&] { return step(0, 0); }));
}

// Takes a looser form where the documents don't pass. What they say at last; empty for schemas that fit.
QString Fit(Application& app, SchemaForm form, const QString& folder, const Documents& documents,
            std::vector<InferredSchema>& schemas) {
    if (!app.services.schemas)
        return {};
    const QString fault = FaultOf(app, schemas, folder, documents);
    if (fault.isEmpty())
        return fault;
    form.blankTexts = form.plainXml = true;
    schemas = SchemasOf(documents.facts, form);
    return FaultOf(app, schemas, folder, documents);
}

// --- what follows ------------------------------------------------------------------------------------------

void OpenResult(Application& app, const std::vector<InferredSchema>& schemas, const QString& folder) {
    if (schemas.size() == 1) {
        FetchedText fetched(schemas[0].text);
        fetched.made = true;
        return app.frame().NewSXMLFile(fetched, {});
    }
    DocumentWindow* form = nullptr;
    edit::OpenFile(app, PlaceOf(schemas[0], folder), form);
}

void OfferBinding(DocumentWindow& window) {
    const QString schemaFile = window.app.CurrentFileName;
    if (window.app.services.prompts.MsgBox(QStringLiteral("Do you want to assign schema to this XML file?"),
                                           services::Buttons::YesNo) == services::Answer::Yes)
        ApplySchema(window, schemaFile);
}

} // namespace

void InferSchema(DocumentWindow& window, const QStringList& furtherFiles) {
    Application& app = window.app;
    Documents documents;
    if (!Collect(window, furtherFiles, documents))
        return;
    SchemaForm form{QStringLiteral("UTF-8"), NameBeside(window),
                    documents.facts.HaveEmptyElements() && HaveBlankTexts(documents.texts), false};
    std::vector<InferredSchema> schemas = SchemasOf(documents.facts, form);
    if (schemas.empty())
        return Tell(app, QStringLiteral("Schema is empty!"));
    QString folder;
    if (schemas.size() > 1) {
        const QString place = ChooseFile(window, schemas.size());
        if (place.isEmpty())
            return;
        form.fileName = mXMLEdit::GetFSFileName(place);
        folder = mXMLEdit::GetFSFolderName(place);
        schemas = SchemasOf(documents.facts, form);
        if (!AreFree(app, schemas, folder))
            return;
    }
    if (const QString fault = Fit(app, form, folder, documents, schemas); !fault.isEmpty())
        return Tell(app, QStringLiteral("No schema was found that all documents pass.\r\n") + fault);
    if (schemas.size() > 1 && !WriteAll(app, schemas, folder))
        return;
    OpenResult(app, schemas, folder);
    OfferBinding(window);
}

} // namespace schema
