// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Validate.h"
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "platform/controls/Controls.h"

namespace m_tvXML {

namespace {

using mXMLEdit::ValidateXML;
using services::Buttons;
using services::Icon;

QString PureName(const QString& name) {
    QString prefix;
    return GetPureName(name, prefix);
}

// The parser's report on the last failed probe.
QString Complaint(Application& app) {
    return app.lastParseError ? mXMLEdit::GetXMLParseErrorString(app, *app.lastParseError) : QString();
}

bool Probe(Application& app, const QString& document, const QString& title) {
    if (ValidateXML(app, document, true))
        return true;
    app.services.prompts.MsgBox(Complaint(app), Buttons::Ok, Icon::Critical, title);
    return false;
}

// A quote or a blank in what was typed can begin another attribute, and the parser has nothing against that:
// what is meant to be one name or value must be one.
bool HoldsAttributes(const QString& probe, int attributes) {
    xml::ParsedDocument document;
    document.loadXML(probe);
    return !document.documentElement() || document.documentElement().attributeCount() == attributes;
}

QString MoreThanOne() {
    return QStringLiteral(
        "This is more than one name or value. A quotation mark in a value is written &quot;");
}

bool ProbeOfOneAttribute(Application& app, const QString& probe, const QString& title) {
    if (!Probe(app, probe, title))
        return false;
    if (HoldsAttributes(probe, 1))
        return true;
    app.services.prompts.Beep();
    app.services.prompts.MsgBox(MoreThanOne(), Buttons::Ok, Icon::Critical, title);
    return false;
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
    return u'<' + PureName(nodeName) + u' ' + attributeName + QStringLiteral("=\"") + value +
           QStringLiteral("\"/>");
}

QString NodeAttributeNameProbe(const QString& attributeName, const QString& nodeName) {
    return u'<' + PureName(nodeName) + u' ' + PureName(attributeName) + QStringLiteral("=\"\"/>");
}

void ComplainWhileTyping(Application& app, const QString& probe, int attributes) {
    if (!app.frame)
        return;
    xml::ParsedDocument document;
    QString complaint;
    if (!probe.isEmpty() && !document.loadXML(probe))
        complaint = document.parseError().reason.trimmed();
    else if (!probe.isEmpty() && attributes >= 0 && !HoldsAttributes(probe, attributes))
        complaint = MoreThanOne();
    app.frame->StatusBar1().SetPanel(1, complaint);
}

bool ValidateNodeName(Application& app, const QString& name) {
    if (name.isEmpty())
        return false;
    const QString probe = NodeNameProbe(name);
    if (ValidateXML(app, probe, true)) {
        if (HoldsAttributes(probe, 0))
            return true;
        app.services.prompts.Beep();
    }
    app.services.prompts.MsgBox(
        QStringLiteral("Sample:Abc\r\nXML node name ::= (Letter | '_' | ':') (Letter | Digit | '.' | '-' | "
                       "'_' | ':' | CombiningChar | Extender)"),
        Buttons::Ok, Icon::Information, QStringLiteral("XML node name fomula"));
    return false;
}

bool ValidateNodeAttributeName(Application& app, const QString& attributeName, const QString& nodeName) {
    const QString probe = NodeAttributeNameProbe(attributeName, nodeName);
    const QString title = QStringLiteral("This is not a validate attribute name");
    return ProbeOfOneAttribute(app, probe, title);
}

bool ValidateNodeAttributes(Application& app, const QString& attributes, const QString& nodeName,
                            bool showBox) {
    const QString document = NodeAttributesProbe(attributes, nodeName);
    if (showBox)
        return Probe(app, document, QStringLiteral("This is not valid attributes"));
    if (ValidateXML(app, document, true))
        return true;
    if (app.frame)
        app.frame->StatusBar1().SetPanel(1, Complaint(app));
    return false;
}

bool ValidateNodeText(Application& app, const QString& text, const QString& nodeName) {
    const QString probe = NodeTextProbe(text, nodeName);
    // A text that closes its node and opens it again reads as two nodes, which is no document of its own.
    if (text.contains(QStringLiteral("</") + PureName(nodeName))) {
        const QString wrapped = QStringLiteral("<temp>") + probe + QStringLiteral("</temp>");
        if (xml::ParsedDocument().loadXML(wrapped))
            return ValidateXML(app, wrapped, true);
    }
    return Probe(app, probe, QStringLiteral("This is not a validate node text"));
}

bool ValidateNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                const QString& attributeName) {
    const QString probe = NodeAttributeValueProbe(value, nodeName, attributeName);
    const QString title = QStringLiteral("This is not a validate attribute value");
    return ProbeOfOneAttribute(app, probe, title);
}

int GetSelTextType(Application& app, const QString& text) {
    if (!text.contains(u'<'))
        return ValidateNodeAttributes(app, text, QStringLiteral("temp"), true) ? kSelTextAttributes
                                                                               : kSelTextNothing;
    if (ValidateXML(app, text, true))
        return kSelTextDocument;
    const QString wrapped = QStringLiteral("<temp> ") + text + QStringLiteral(" </temp>");
    return ValidateXML(app, wrapped, true) ? kSelTextFragment : kSelTextNothing;
}

} // namespace m_tvXML
