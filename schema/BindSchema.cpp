// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/BindSchema.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Attributes.h"
#include "core/model/Escaping.h"
#include "core/model/FileNames.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "platform/text/TextFile.h"
#include "platform/text/TextTools.h"
#include "schema/FetchSchema.h"
#include "textview/FillText.h"
#include <QUrl>

namespace schema {

namespace {

using controls::TreeNode;
using m_tvXML::Attributes;

const QString kLocation = QStringLiteral("xsi:schemaLocation");
const QString kPlainLocation = QStringLiteral("xsi:noNamespaceSchemaLocation");
const QString kInstance = QStringLiteral("xmlns:xsi");

QString ValueOf(TreeNode element, const QString& name) {
    const Attributes all(element);
    const qsizetype at = all.find(name);
    return at < 0 ? QString() : all.value(at);
}

/// A list of a namespace and a location: where the location begins in it, and how long it is.
struct Stretch {
    qsizetype start = 0, length = 0;
};
// A line feed parts the two, or else a blank. Further pairs behind it are another namespace's.
Stretch LocationIn(const QString& pair) {
    static const QString kLineFeed = QStringLiteral("&#10;");
    qsizetype start = pair.indexOf(u'\n') + 1;
    if (start == 0 && pair.contains(kLineFeed))
        start = pair.indexOf(kLineFeed) + kLineFeed.size();
    if (start == 0)
        start = pair.indexOf(u' ') + 1;
    if (start == 0)
        return {};
    while (start < pair.size() && pair[start].isSpace())
        ++start;
    qsizetype end = start;
    while (end < pair.size() && !pair[end].isSpace() && pair[end] != u'&')
        ++end;
    return {start, end - start};
}

QString LocationOf(TreeNode root) {
    const QString pair = ValueOf(root, kLocation);
    const Stretch stretch = LocationIn(pair);
    const QString plain = ValueOf(root, kPlainLocation);
    return text::Trim(plain.isEmpty() ? pair.mid(stretch.start, stretch.length) : plain);
}

bool MayReplaceLocation(DocumentWindow& window) {
    return window.app.services.prompts.MsgBox(
               QStringLiteral("This file already applied a schema. Do you want to proceed?"),
               services::Buttons::YesNo) == services::Answer::Yes;
}

// A blank would part the name in a list of names (quirk 91).
void ReplaceInPair(Attributes& all, const QString& schemaFile) {
    QString pair = all.value(all.find(kLocation));
    const Stretch stretch = LocationIn(pair);
    if (stretch.length > 0)
        all.set(all.find(kLocation), kLocation,
                pair.replace(stretch.start, stretch.length,
                             QString(schemaFile).replace(u' ', QStringLiteral("%20"))));
}

// Declared twice, a prefix would make the document unreadable (quirk 92).
void Bind(Attributes& all, const QString& schemaFile) {
    if (!all.contains(kInstance))
        all.add(kInstance, QStringLiteral("http://www.w3.org/2001/XMLSchema-instance"));
    all.add(kPlainLocation, schemaFile);
}

void WriteLocation(DocumentWindow& window, TreeNode root, const QString& schemaFile) {
    Attributes all(root);
    if (all.contains(kLocation) || all.contains(kPlainLocation)) {
        if (!MayReplaceLocation(window))
            return;
        if (all.contains(kLocation))
            ReplaceInPair(all, schemaFile);
        else
            all.set(all.find(kPlainLocation), kPlainLocation, schemaFile);
    } else {
        Bind(all, schemaFile);
    }
    root.SetTag(all.tag());
}

QString Beside(const QString& document, const QString& location) {
    if (location.startsWith(QStringLiteral("file:")))
        return QUrl(location).toLocalFile();
    if (mXMLEdit::GetAddressType(location) > 0)
        return location;
    if (mXMLEdit::GetAddressType(document) == 2)
        return QUrl(document).resolved(QUrl(location)).toString();
    return mXMLEdit::GetFSFolderName(document) + u'/' + location;
}

std::optional<QByteArray> BytesAt(Application& app, const QString& place) {
    if (mXMLEdit::GetAddressType(place) == 2)
        return FetchIfAllowed(app, place);
    QByteArray bytes;
    for (const QString& path : {place, QString(QUrl::fromPercentEncoding(place.toUtf8()))}) {
        if (app.services.files.Read(path, bytes))
            return bytes;
    }
    return {};
}

void ShowText(DocumentWindow& window, const text::LongText& text) {
    window.txtSchema.SetText(text);
    textview::ColourWhole(window.app, window.txtSchema, textview::GetTextSizeLevel(text.size()));
}

} // namespace

TreeNode GetXMLRootNode(const controls::TreeView& tree) {
    return tree.Nodes.Count() == 0 ? TreeNode() : m_tvXML::FirstElement(tree.Nodes(1).Child());
}

bool IsBound(const DocumentWindow& window) {
    const TreeNode root = GetXMLRootNode(window.tvXML);
    if (!root)
        return false;
    const Attributes all(root);
    return std::any_of(all.names().begin(), all.names().end(), [](const QString& name) {
        return name.endsWith(QStringLiteral(":schemaLocation")) ||
               name.endsWith(QStringLiteral(":noNamespaceSchemaLocation"));
    });
}

void ApplySchema(DocumentWindow& window, QString schemaFile) {
    TreeNode root = GetXMLRootNode(window.tvXML);
    if (!root)
        return;
    if (schemaFile.isEmpty())
        schemaFile = window.app.services.prompts.OpenFileName(
            QStringLiteral("Open file"), QStringLiteral("Schema File (*.xsd)|*.xsd|All Files (*.*)|*.*"));
    if (schemaFile.isEmpty())
        return;
    edit::Run(window, "ApplySchema", [&] {
        WriteLocation(window, root, mXMLEdit::convertStringToXML(schemaFile));
        edit::Then(window, [&window] { ShowSchemaOrDTD(window); });
    });
}

void ShowSchemaOrDTD(DocumentWindow& window) {
    edit::Guarded(window, "ShowSchemaOrDTD", [&] {
        const TreeNode root = GetXMLRootNode(window.tvXML);
        const QString location = root ? LocationOf(root) : QString();
        if (location.isEmpty())
            return;
        const auto bytes = BytesAt(window.app, Beside(window.Caption, location));
        if (bytes && !bytes->isEmpty())
            ShowText(window, text::Decode(*bytes).text);
    });
}

void ShowSchema(DocumentWindow& window) {
    edit::ShowView(window, edit::kSchemaTab);
}

} // namespace schema
