// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CheckSchema.h"
#include "core/edit/TextWay.h"
#include "platform/services/Schemas.h"
#include "schema/CheckBeside.h"
#include "schema/FetchSchema.h"
#include "schema/TellFaults.h"

namespace schema {

namespace {

services::SchemaAnswer Ask(Application& app, const services::SchemaRequest& request) {
    app.services.progress.Begin(QStringLiteral("Checking the schema"));
    services::SchemaAnswer answer = app.services.schemas->Check(
        request, [&progress = app.services.progress] { return progress.Step(0, 0); });
    app.services.progress.End();
    return answer;
}

// What is fetched may refer to more.
Findings Check(DocumentWindow& window, bool isSchema) {
    services::SchemaRequest request = RequestFor(window, isSchema);
    SchemaFetch fetch(window.app);
    services::SchemaAnswer answer = Ask(window.app, request);
    while (fetch.FetchAll(answer.wanted)) {
        request.fetched = fetch.found();
        answer = Ask(window.app, request);
    }
    CheckBesideOf(window).fetched = fetch.found();
    return FindingsOf(window, answer, request);
}

bool Show(DocumentWindow& window, const Findings& found) {
    ShowDiagnostics(window, found.all);
    if (found.cancelled)
        TellOnStatusBar(window);
    else if (!found.good || !found.complete)
        TellFirst(window);
    return found.good && found.complete;
}

// A text that is ahead of the tree goes in first: places lead to nodes. False where it can't be read, which
// the user has been told.
bool ReadText(DocumentWindow& window) {
    const bool read = !window.bond.bTextChanged() || window.way->read(window);
    StopCheckBeside(window);
    return read && !window.bond.bTextChanged();
}

// In any element. The tree may be behind the text, which is left as it is where it names no schema.
bool NamesSchema(const DocumentWindow& window) {
    return window.way->text(window).indexOf(u"chemaLocation", 0, Qt::CaseSensitive) >= 0;
}

bool CheckAgainstSchemas(DocumentWindow& window) {
    if (NamesSchema(window)) {
        if (!ReadText(window))
            return false;
        return Show(window, Check(window, false));
    }
    ShowDiagnostics(window, {});
    return true;
}

} // namespace

bool ValidateSchemaFile(DocumentWindow& window) {
    return Show(window, HasSchemaElement(window) ? Check(window, true) : NoSchemaElement());
}

bool CheckDocument(DocumentWindow& window, bool wellFormed) {
    StopCheckBeside(window);
    if (!wellFormed) {
        if (const auto& error = window.app.lastParseError)
            ShowDiagnostics(window, {{{}, error->line, error->linepos, error->reason.trimmed()}});
        return false;
    }
    if (!window.app.services.schemas)
        return true;
    if (!window.kind.schema)
        return CheckAgainstSchemas(window);
    return ReadText(window) && ValidateSchemaFile(window);
}

} // namespace schema
