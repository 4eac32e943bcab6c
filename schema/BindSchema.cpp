// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/BindSchema.h"
#include "core/edit/Report.h"
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
#include <QRegularExpression>
#include <QUrl>
#include <map>

namespace schema {

namespace {

using controls::TreeNode;
using m_tvXML::Attributes;

const QString kInstanceNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");
const QString kLocation = QStringLiteral("schemaLocation");
const QString kPlainLocation = QStringLiteral("noNamespaceSchemaLocation");
const QString kDeclaration = QStringLiteral("xmlns:");

// --- values ------------------------------------------------------------------------------------------------

// What a reference stands for; nothing for one of the document's own.
QString CharacterOf(const QString& name) {
    static const std::map<QString, QString> kNamed = {{QStringLiteral("amp"), QStringLiteral("&")},
                                                      {QStringLiteral("lt"), QStringLiteral("<")},
                                                      {QStringLiteral("gt"), QStringLiteral(">")},
                                                      {QStringLiteral("quot"), QStringLiteral("\"")},
                                                      {QStringLiteral("apos"), QStringLiteral("'")}};
    if (const auto named = kNamed.find(name); named != kNamed.end())
        return named->second;
    if (!name.startsWith(u'#'))
        return {};
    const bool hex = name.mid(1, 1) == QStringLiteral("x");
    const char32_t number = name.mid(hex ? 2 : 1).toUInt(nullptr, hex ? 16 : 10);
    return number == 0 || number > 0x10FFFF ? QString() : QString::fromUcs4(&number, 1);
}

QString WithoutReferences(const QString& value) {
    QString plain;
    for (qsizetype at = 0; at < value.size(); ++at) {
        const qsizetype end = value[at] == u'&' ? value.indexOf(u';', at) : -1;
        const QString character = end < 0 ? QString() : CharacterOf(value.mid(at + 1, end - at - 1));
        plain += character.isEmpty() ? QString(value[at]) : character;
        at = character.isEmpty() ? at : end;
    }
    return plain;
}

QString WithReferences(const QString& plain) {
    return mXMLEdit::WithLineEndReferences(mXMLEdit::convertStringToXML(plain));
}

// --- the attributes ----------------------------------------------------------------------------------------

// Those that are bound to the namespace of the locations; "xsi" also where nothing declares it.
QStringList InstancePrefixes(const Attributes& all) {
    QStringList prefixes;
    for (qsizetype at = 0; at < all.count(); ++at) {
        if (all.name(at).startsWith(kDeclaration) && WithoutReferences(all.value(at)) == kInstanceNamespace)
            prefixes << all.name(at).mid(kDeclaration.size());
    }
    if (!all.contains(QStringLiteral("xmlns:xsi")))
        prefixes << QStringLiteral("xsi");
    return prefixes;
}

// -1 without one.
qsizetype FindLocation(const Attributes& all, const QString& local) {
    for (const QString& prefix : InstancePrefixes(all)) {
        if (const qsizetype at = all.find(prefix + u':' + local); at >= 0)
            return at;
    }
    return -1;
}

// The prefix is declared unless there is one: declared twice it would make the document unreadable
// (quirk 92), and "xsi" may be another namespace's (quirk 130).
QString DeclaredPrefix(Attributes& all) {
    const QString first = InstancePrefixes(all).value(0);
    if (!first.isEmpty() && all.contains(kDeclaration + first))
        return first;
    QString prefix = QStringLiteral("xsi");
    for (int number = 1; all.contains(kDeclaration + prefix); ++number)
        prefix = QStringLiteral("xsi%1").arg(number);
    all.add(kDeclaration + prefix, kInstanceNamespace);
    return prefix;
}

/// Where the first location of a list begins, and how long it is.
struct Stretch {
    qsizetype start = 0, length = 0;
};
// Blanks of any kind part namespaces and locations, which take turns.
Stretch LocationIn(const QString& list) {
    static const QRegularExpression blanks(QStringLiteral("\\s+")),
        pair(QStringLiteral("^\\s*\\S+\\s+(\\S+)")), rest(QStringLiteral("^\\s*\\S+\\s+(\\S.*\\S)"));
    // Those with an odd number of words hold one location with blanks (quirk 145).
    const bool pairs = list.split(blanks, Qt::SkipEmptyParts).size() % 2 == 0;
    const QRegularExpressionMatch match = (pairs ? pair : rest).match(list);
    return match.hasMatch() ? Stretch{match.capturedStart(1), match.capturedLength(1)} : Stretch();
}

QString LocationOf(const Attributes& all) {
    const qsizetype plain = FindLocation(all, kPlainLocation), list = FindLocation(all, kLocation);
    const QString location = plain < 0 ? QString() : text::Trim(WithoutReferences(all.value(plain)));
    if (!location.isEmpty() || list < 0)
        return location;
    const QString pairs = WithoutReferences(all.value(list));
    const Stretch stretch = LocationIn(pairs);
    return pairs.mid(stretch.start, stretch.length);
}

bool MayReplaceLocation(DocumentWindow& window) {
    return window.app.services.prompts.MsgBox(
               QStringLiteral("This file already applied a schema. Do you want to proceed?"),
               services::Buttons::YesNo) == services::Answer::Yes;
}

void ReplaceInList(Attributes& all, qsizetype at, const QString& schemaFile) {
    QString list = WithoutReferences(all.value(at));
    const Stretch stretch = LocationIn(list);
    if (stretch.length == 0)
        return;
    list.replace(stretch.start, stretch.length, AsListEntry(schemaFile));
    all.set(at, QString(all.name(at)), WithReferences(list));
}

// False where the user leaves it as it is.
bool WriteLocation(DocumentWindow& window, TreeNode root, const QString& schemaFile) {
    Attributes all(root);
    const qsizetype plain = FindLocation(all, kPlainLocation), list = FindLocation(all, kLocation);
    if ((plain >= 0 || list >= 0) && !MayReplaceLocation(window))
        return false;
    if (list >= 0)
        ReplaceInList(all, list, schemaFile);
    else if (plain >= 0)
        all.set(plain, QString(all.name(plain)), WithReferences(schemaFile));
    else
        all.add(DeclaredPrefix(all) + u':' + kPlainLocation, WithReferences(schemaFile));
    root.SetTag(all.tag());
    return true;
}

// --- the schema --------------------------------------------------------------------------------------------

// Empty for a relative location in a document without a place.
QString Beside(const QString& document, const QString& location) {
    if (location.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive)) {
        const QString path = QUrl(location).toLocalFile();
        return mXMLEdit::IsLocalPath(path) || path.isEmpty() ? path : Beside(document, path);
    }
    if (mXMLEdit::GetAddressType(location) > 0)
        return location;
    if (mXMLEdit::GetAddressType(document) == 2)
        return QUrl(document).resolved(QUrl(location)).toString();
    return mXMLEdit::IsLocalPath(document) ? mXMLEdit::GetFSFolderName(document) + u'/' + location
                                           : QString();
}

std::optional<QByteArray> BytesAt(Application& app, const QString& place) {
    if (mXMLEdit::GetAddressType(place) == 2)
        return SchemaFetch(app).Fetch(place);
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

// A blank would part the name (quirk 91); what looks like one that is written otherwise is then written
// otherwise, too.
QString AsListEntry(QString name) {
    const auto isBlank = [](QChar one) { return one.isSpace(); };
    if (std::any_of(name.cbegin(), name.cend(), isBlank))
        name.replace(u'%', QStringLiteral("%25"));
    for (const QChar blank : {u' ', u'\t', u'\n', u'\r'})
        name.replace(blank, QLatin1String(QUrl::toPercentEncoding(QString(blank))));
    return name;
}

TreeNode GetXMLRootNode(const controls::TreeView& tree) {
    return tree.Nodes.Count() == 0 ? TreeNode() : m_tvXML::FirstElement(tree.Nodes(1).Child());
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
        if (WriteLocation(window, root, schemaFile))
            edit::Then(window, [&window] { ShowSchemaOrDTD(window); });
    });
}

void ShowSchemaOrDTD(DocumentWindow& window) {
    edit::Guarded(window, "ShowSchemaOrDTD", [&] {
        const TreeNode root = GetXMLRootNode(window.tvXML);
        const QString location = root ? LocationOf(Attributes(root)) : QString();
        if (location.isEmpty())
            return;
        const QString place = Beside(window.Caption, location);
        if (place.isEmpty())
            return edit::Message(
                window.app,
                QStringLiteral("The document has no place yet from which to look for %1.").arg(location));
        const auto bytes = BytesAt(window.app, place);
        if (bytes && !bytes->isEmpty())
            ShowText(window, text::Decode(*bytes).text);
    });
}

void ShowSchema(DocumentWindow& window) {
    edit::ShowView(window, edit::kSchemaTab);
}

} // namespace schema
