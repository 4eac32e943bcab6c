// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Probe.h"
#include "core/model/Application.h"
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include <QRegularExpression>

namespace m_tvXML {

namespace {

QString PureName(const QString& name) {
    QString prefix;
    return GetPureName(name, prefix);
}

} // namespace

QString NodeNameProbe(const QString& name) {
    return u'<' + PureName(name) + QStringLiteral("/>");
}

QString NodeAttributesProbe(const QString& attributes, const QString& nodeName) {
    return u'<' + PureName(nodeName) + u' ' + attributes + QStringLiteral(" />");
}

QString NodeTextProbe(const QString& text, const QString& nodeName) {
    const QString name = PureName(nodeName);
    return u'<' + name + u'>' + text + QStringLiteral("</") + name + u'>';
}

QString NodeAttributeValueProbe(const QString& value, const QString& nodeName, const QString& attributeName) {
    return u'<' + PureName(nodeName) + u' ' + Attributes::pair(attributeName, value) + QStringLiteral("/>");
}

QString NodeAttributeNameProbe(const QString& attributeName, const QString& nodeName) {
    return u'<' + PureName(nodeName) + u' ' + Attributes::pair(PureName(attributeName), {}) +
           QStringLiteral("/>");
}

QString CDataProbe(const QString& text) {
    return QStringLiteral("<temp><![CDATA[") + text + QStringLiteral("]]></temp>");
}

QString CommentProbe(const QString& text) {
    return QStringLiteral("<temp><!--") + text + QStringLiteral("--></temp>");
}

QString InstructionProbe(const QString& target, const QString& text) {
    return QStringLiteral("<?") + target + u' ' + text + QStringLiteral("?><temp/>");
}

QString MoreThanOne() {
    return QStringLiteral(
        "This is more than one name or value. A quotation mark in a value is written &quot;");
}

QString ProbeResult::reason() const {
    return error ? error->reason.trimmed() : several ? MoreThanOne() : QString();
}

// A quote or a blank in what was typed can begin another attribute, and the parser has nothing against that:
// what is meant to be one name or value must be one.
ProbeResult Probe(Application& app, const QString& document, int attributes, xml::Prefixes prefixes) {
    ++app.work.probes;
    xml::ParsedDocument parsed;
    ProbeResult result;
    if (!parsed.loadXML(document, {}, {}, prefixes))
        result.error = parsed.parseError();
    else if (attributes != kAnyNumber && parsed.documentElement())
        result.several = parsed.documentElement().attributeCount() != attributes;
    return result;
}

// The probe's own element carries no declarations, and none are needed to read attributes as written.
std::optional<QString> ReadAttributes(const QString& typed) {
    xml::ParsedDocument document;
    if (!document.loadXML(NodeAttributesProbe(typed, QStringLiteral("temp"))))
        return {};
    return GenerateAttributeString(document.documentElement());
}

QString PlainAttributes(const QString& typed) {
    static const QRegularExpression plain(QStringLiteral("^(?:[^\\s=\"']+=\"[^\"]*\"(?: |$))*$"));
    return plain.match(typed).hasMatch() ? typed : ReadAttributes(typed).value_or(typed);
}

} // namespace m_tvXML
