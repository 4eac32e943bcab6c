// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CheckSchema.h"
#include "core/edit/NodePath.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/FileNames.h"
#include "core/model/NodeContent.h"
#include "platform/services/Schemas.h"
#include "schema/BindSchema.h"
#include "schema/Diagnostics.h"
#include "schema/FetchSchema.h"
#include "schema/SchemaState.h"
#include "textview/TextLink.h"
#include <QScopedValueRollback>
#include <utility>

namespace schema {

namespace {

using controls::TreeNode;
using services::SchemaOutcome;

const QString kTitle = QStringLiteral("Schema error!");
const QString kSchemaNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema");

constexpr std::size_t kMost = 1000; // faults in the list; the check finds one more if there are more

/// What came of a check.
struct Found {
    std::vector<Diagnostic> all;
    bool good = true;       ///< nothing but warnings
    bool complete = true;   ///< all that the documents refer to could be had
    bool cancelled = false; ///< by the user
};

// --- the check ---------------------------------------------------------------------------------------------

Diagnostic WithoutPlace(const QString& message) {
    return {{}, 0, 0, message};
}

QString WhyNot(SchemaOutcome outcome) {
    switch (outcome) {
    case SchemaOutcome::TooLong:
        return QStringLiteral("The check took too long and was given up.");
    case SchemaOutcome::TooLarge:
        return QStringLiteral("The check needed too much memory and was given up.");
    case SchemaOutcome::Cancelled:
        return QStringLiteral("The check was cancelled.");
    default:
        return QStringLiteral("The check could not be done.");
    }
}

services::SchemaAnswer Ask(Application& app, const services::SchemaRequest& request) {
    app.services.progress.Begin(QStringLiteral("Checking the schema"));
    services::SchemaAnswer answer = app.services.schemas->Check(
        request, [&progress = app.services.progress] { return progress.Step(0, 0); });
    app.services.progress.End();
    return answer;
}

Found Take(const services::SchemaAnswer& answer, const QString& place) {
    Found found;
    found.complete = answer.wanted.isEmpty();
    for (const services::SchemaFault& fault : answer.faults) {
        found.all.push_back(
            {fault.document == place ? QString() : fault.document, fault.line, fault.column, fault.message});
        found.good = found.good && fault.warning;
        found.complete = found.complete && !fault.warning;
    }
    if (found.all.size() > kMost) {
        found.all.back() = WithoutPlace(
            QStringLiteral("There are more faults than these. The check ended with the first %1.")
                .arg(kMost));
        found.all.back().last = true;
    }
    if (answer.outcome == SchemaOutcome::Checked)
        return found;
    found.cancelled = answer.outcome == SchemaOutcome::Cancelled;
    found.all.push_back(WithoutPlace(WhyNot(answer.outcome)));
    found.good = false;
    return found;
}

// What is fetched may refer to more.
Found Check(DocumentWindow& window, bool isSchema, bool asked) {
    const bool placed = mXMLEdit::GetAddressType(window.Caption) > 0;
    services::SchemaRequest request{
        window.way->text(window), placed ? window.Caption : QString(), isSchema, {}};
    SchemaFetch fetch(window.app);
    services::SchemaAnswer answer = Ask(window.app, request);
    while (asked && fetch.FetchAll(answer.wanted)) {
        request.fetched = fetch.bytes();
        answer = Ask(window.app, request);
    }
    return Take(answer, request.place);
}

bool IsSchemaElement(TreeNode node) {
    QString prefix;
    m_tvXML::GetPureName(node.Text(), prefix);
    const QString name = prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix;
    return m_tvXML::ContentOf(node, name).value == kSchemaNamespace;
}

Found CheckSchema(DocumentWindow& window, bool asked) {
    const TreeNode node = GetSchemaNode(window.tvXML);
    if (node && IsSchemaElement(node))
        return Check(window, true, asked);
    Found found;
    found.good = false;
    found.all.push_back(WithoutPlace(QStringLiteral("The document has no schema element of the namespace ") +
                                     kSchemaNamespace));
    return found;
}

// --- telling -----------------------------------------------------------------------------------------------

void Box(DocumentWindow& window, const QString& description) {
    window.app.services.prompts.MsgBox(description, services::Buttons::Ok, services::Icon::Critical, kTitle);
}

// The path has the names of the schema language alone; the document's prefix goes in front of each.
QString PathWithoutPrefix(DocumentWindow& window, TreeNode node) {
    const QString& prefix = SchemaOf(window).msPrefix;
    const QString path = edit::GetXPath(node);
    return prefix.isEmpty() ? path : QString(path).replace(u'/' + prefix + u':', QStringLiteral("/"));
}

// Where the first fault stands comes up. A fault of another document, or without a place, is told alone.
void TellFirst(DocumentWindow& window) {
    const std::vector<Diagnostic>& all = DiagnosticsOf(window).all;
    const auto own = std::find_if(
        all.begin(), all.end(), [](const Diagnostic& one) { return one.document.isEmpty() && one.line > 0; });
    TreeNode node = own == all.end() ? TreeNode() : NodeOf(window, *own);
    if (!node)
        return Box(window, all.front().message);
    const Diagnostic first = *own;
    edit::ShowView(window, edit::kTextTab);
    Box(window, window.Caption + u'#' + PathWithoutPrefix(window, node) + u'\n' + first.message);
    node.EnsureVisible();
    edit::SelectNode(window, node);
    textview::NavToNodeRelatedText(window);
    window.TextInUse().SetFocus();
}

void TellOnStatusBar(DocumentWindow& window, const Found& found) {
    if (!found.all.empty())
        edit::Message(window.app, found.all.front().message.section(u'\n', 0, 0));
}

// A text that is ahead of the tree goes in first: places lead to nodes. That would check a schema by itself.
bool ReadText(DocumentWindow& window) {
    const QScopedValueRollback checking(SchemaOf(window).checking, true);
    return !window.bond.bTextChanged() || window.way->read(window);
}

// The tree may be behind the text, which is left as it is where it names no schema.
bool NamesSchema(const DocumentWindow& window) {
    return window.way->text(window).indexOf(u"chemaLocation", 0, Qt::CaseSensitive) >= 0;
}

bool CheckAgainstSchemas(DocumentWindow& window) {
    if (!NamesSchema(window) || (ReadText(window) && !IsBound(window))) {
        ShowDiagnostics(window, {});
        return true;
    }
    if (window.bond.bTextChanged()) // it can't be read, and the user has been told
        return false;
    const Found found = Check(window, false, true);
    ShowDiagnostics(window, found.all);
    if (found.cancelled)
        TellOnStatusBar(window, found);
    else if (!found.good || !found.complete)
        TellFirst(window);
    return found.good && found.complete;
}

} // namespace

bool ValidateSchemaFile(DocumentWindow& window, Tell tell) {
    if (!window.app.services.schemas)
        return true;
    const bool asked = tell == Tell::All;
    const Found found = CheckSchema(window, asked);
    ShowDiagnostics(window, found.all);
    // What follows from a document that is missing can't be judged.
    const bool judged = !found.cancelled && (asked || found.complete);
    const bool told = judged && tell != Tell::OnStatusBar;
    SchemaOf(window).untold = judged && !told && !found.good;
    if (!told)
        TellOnStatusBar(window, found);
    else if (!found.good || !found.complete)
        TellFirst(window);
    return found.good && found.complete;
}

// A command that had the text read goes on with its own node, and one who saves goes on typing: no box and no
// other place come between (quirk 93).
void CheckAfterReading(DocumentWindow& window) {
    SchemaState& state = SchemaOf(window);
    state.unchecked = state.saving;
    if (state.checking || state.saving)
        return;
    const Tell tell = window.bLoaded ? Tell::OnStatusBar : Tell::Faults;
    edit::Then(window, [&window, tell] { ValidateSchemaFile(window, tell); });
}

void CheckAfterSaving(DocumentWindow& window, bool saving) {
    SchemaState& state = SchemaOf(window);
    state.saving = saving;
    if (saving || !std::exchange(state.unchecked, false) || window.bUnloading)
        return;
    edit::Guarded(window, "CheckAfterSaving", [&] { CheckAfterReading(window); });
}

void TellAfterLeaving(DocumentWindow& window) {
    edit::Then(window, [&window] {
        if (std::exchange(SchemaOf(window).untold, false) && !DiagnosticsOf(window).all.empty())
            TellFirst(window);
    });
}

bool CheckDocument(DocumentWindow& window, bool wellFormed) {
    SchemaOf(window).untold = false; // of a text that was
    if (!wellFormed) {
        if (const auto& error = window.app.lastParseError)
            ShowDiagnostics(window, {{{}, error->line, error->linepos, error->reason.trimmed()}});
        return false;
    }
    if (!window.app.services.schemas)
        return true;
    if (!window.kind.schema)
        return CheckAgainstSchemas(window);
    return ReadText(window) && ValidateSchemaFile(window, Tell::All);
}

} // namespace schema
