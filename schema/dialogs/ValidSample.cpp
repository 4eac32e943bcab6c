// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/ValidSample.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeKind.h"
#include "schema/BindSchema.h"
#include "schema/FetchSchema.h"
#include "schema/SchemaState.h"
#include "schema/SchemaTree.h"

namespace schema {

namespace {

using controls::TreeNode;
using services::SchemaOutcome;

constexpr int kMostNames = 1000;

QString Attribute(TreeNode node, const char* name) {
    return m_tvXML::ContentOf(node, QLatin1String(name)).value;
}

services::SampleAnswer Ask(Application& app, const services::SchemaRequest& request,
                           const services::SampleWish& wish) {
    app.services.progress.Begin(QStringLiteral("Making a sample"));
    services::SampleAnswer answer = app.services.schemas->MakeSample(
        request, wish, [&progress = app.services.progress] { return progress.Step(0, 0); });
    app.services.progress.End();
    return answer;
}

QString WhyNot(const services::SampleAnswer& answer) {
    switch (answer.outcome) {
    case SchemaOutcome::Checked:
        return answer.remarks.join(QStringLiteral("\r\n"));
    case SchemaOutcome::TooLong:
        return QStringLiteral("It took too long and was given up.");
    case SchemaOutcome::TooLarge:
        return QStringLiteral("It needed too much memory and was given up.");
    default:
        return QStringLiteral("The sample could not be made.");
    }
}

// A blank would part the name in a list of names (quirk 91).
QString LocationOf(const DocumentWindow& window) {
    return AsListEntry(window.Caption);
}

void Open(DocumentWindow& window, const services::SampleAnswer& answer) {
    Application& app = window.app;
    const bool placed = mXMLEdit::GetAddressType(window.Caption) > 0;
    FetchedText fetched(answer.text);
    fetched.made = true;
    app.frame().NewXMLFile(fetched, {});
    if (!answer.remarks.isEmpty())
        edit::Message(app, answer.remarks.first());
    else if (!placed)
        edit::Message(app,
                      QStringLiteral("The schema is in no file yet: save it, and apply it to the document."));
}

} // namespace

QStringList RootNames(DocumentWindow& window) {
    const TreeNode schema = GetSchemaNode(window.tvXML);
    QStringList likely, others;
    for (TreeNode node = schema ? schema.Child() : TreeNode(); node; node = node.Next()) {
        if (!m_tvXML::IsElement(node) || LocalName(node.Text()) != QStringLiteral("element"))
            continue;
        const QString abstract = Attribute(node, "abstract"), name = Attribute(node, "name");
        if (name.isEmpty() || abstract == QStringLiteral("true") || abstract == QStringLiteral("1"))
            continue;
        QStringList& names = IsMarkedAsRoot(node) ? likely : others;
        if (names.size() < kMostNames)
            names << name;
    }
    return (likely + others).mid(0, kMostNames);
}

void OpenValidSample(DocumentWindow& window, services::SampleWish wish) {
    Application& app = window.app;
    if (!app.services.schemas)
        return;
    wish.targetNamespace = Attribute(GetSchemaNode(window.tvXML), "targetNamespace");
    wish.encoding = app.options.Encoding;
    wish.location = LocationOf(window);
    const bool placed = mXMLEdit::GetAddressType(window.Caption) > 0;
    services::SchemaRequest request{window.way->text(window), placed ? window.Caption : QString(), true, {}};
    SchemaFetch fetch(app);
    services::SampleAnswer answer = Ask(app, request, wish);
    while (fetch.FetchAll(answer.wanted)) { // what is fetched may refer to more
        request.fetched = fetch.found();
        answer = Ask(app, request, wish);
    }
    if (answer.outcome == SchemaOutcome::Cancelled)
        return edit::Message(app, QStringLiteral("The sample was not made."));
    if (answer.text.isEmpty()) {
        app.services.prompts.MsgBox(QStringLiteral("No valid sample can be made.\r\n") + WhyNot(answer),
                                    services::Buttons::Ok, services::Icon::Exclamation);
        return;
    }
    Open(window, answer);
}

} // namespace schema
