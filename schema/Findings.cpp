// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/Findings.h"
#include "core/edit/TextWay.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "core/model/NodeContent.h"
#include "schema/SchemaState.h"
#include <QRegularExpression>

namespace schema {

namespace {

using services::SchemaOutcome;

const QString kSchemaNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema");

constexpr std::size_t kMost = 1000; // faults in the list; the check finds one more if there are more

Diagnostic WithoutPlace(const QString& message) {
    return {{}, 0, 0, message};
}

void TellOfMore(std::vector<Diagnostic>& all) {
    all.back() = WithoutPlace(
        QStringLiteral("There are more faults than these. The check ended with the first %1.").arg(kMost));
    all.back().last = true;
}

// The library writes a name that is in no namespace as ":name".
QString WithoutEmptyPrefixes(QString message) {
    static const QRegularExpression empty(QStringLiteral("':(?=[\\w.-]+')"));
    return message.replace(empty, QStringLiteral("'"));
}

// What the user sees of it in its window isn't what was judged.
void TellOfUnsaved(DocumentWindow& window, const QString& file, std::vector<Diagnostic>& all) {
    const DocumentWindow* const open = window.app.frame().FormNamed(file);
    if (!open || open == &window || !open->bUnsaved)
        return;
    all.push_back({file, 0, 0,
                   mXMLEdit::GetFSFileName(file) +
                       QStringLiteral(" has changes that aren't saved. Its file was checked.")});
    all.back().last = true;
}

} // namespace

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

services::SchemaRequest RequestFor(const DocumentWindow& window, bool isSchema) {
    const bool placed = mXMLEdit::GetAddressType(window.Caption) > 0;
    return {window.way->text(window), placed ? window.Caption : QString(), isSchema, {}};
}

Findings FindingsOf(DocumentWindow& window, const services::SchemaAnswer& answer,
                    const services::SchemaRequest& request) {
    Findings found;
    found.complete = answer.wanted.isEmpty();
    for (const services::SchemaFault& fault : answer.faults) {
        found.all.push_back({fault.document == request.place ? QString() : fault.document, fault.line,
                             fault.column, WithoutEmptyPrefixes(fault.message), fault.warning});
        found.good = found.good && (fault.warning || fault.note);
        found.complete = found.complete && !fault.warning;
    }
    if (found.all.size() > kMost)
        TellOfMore(found.all);
    for (const QString& file : answer.read)
        TellOfUnsaved(window, file, found.all);
    if (answer.outcome == SchemaOutcome::Checked)
        return found;
    found.cancelled = answer.outcome == SchemaOutcome::Cancelled;
    found.all.push_back(WithoutPlace(WhyNot(answer.outcome)));
    found.good = false;
    return found;
}

bool HasSchemaElement(const DocumentWindow& window) {
    const controls::TreeNode node = GetSchemaNode(window.tvXML);
    if (!node)
        return false;
    QString prefix;
    m_tvXML::GetPureName(node.Text(), prefix);
    const QString name = prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix;
    return m_tvXML::ContentOf(node, name).value == kSchemaNamespace;
}

Findings NoSchemaElement() {
    Findings found;
    found.good = false;
    found.all.push_back(WithoutPlace(QStringLiteral("The document has no schema element of the namespace ") +
                                     kSchemaNamespace));
    return found;
}

} // namespace schema
