// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Validate.h"
#include "core/edit/Report.h"
#include "core/model/Application.h"
#include "core/model/NodeContent.h"

namespace edit {

namespace {

using m_tvXML::Probe;
using m_tvXML::ProbeResult;
using services::Buttons;
using services::Icon;

// A failed probe is told twice: by a beep and the status bar, and in a box under its own title.
bool Passes(Application& app, const QString& probe, const QString& title,
            int attributes = m_tvXML::kAnyNumber) {
    const ProbeResult result = Probe(app, probe, attributes);
    if (!Tell(app, result, Tone::Quiet)) {
        app.services.prompts.MsgBox(GetXMLParseErrorString(app, *result.error), Buttons::Ok, Icon::Critical,
                                    title);
    } else if (result.several) {
        app.services.prompts.Beep();
        app.services.prompts.MsgBox(m_tvXML::MoreThanOne(), Buttons::Ok, Icon::Critical, title);
    }
    return result.good();
}

} // namespace

void ComplainWhileTyping(Application& app, const QString& probe, int attributes) {
    Message(app, probe.isEmpty() ? QString() : Probe(app, probe, attributes).reason());
}

bool PassesProbe(Application& app, const QString& probe) {
    return Tell(app, Probe(app, probe), Tone::Box);
}

bool ValidateNodeName(Application& app, const QString& name) {
    if (name.isEmpty())
        return false;
    const ProbeResult result = Probe(app, m_tvXML::NodeNameProbe(name), 0);
    Tell(app, result, Tone::Quiet);
    if (result.good())
        return true;
    if (result.several)
        app.services.prompts.Beep();
    app.services.prompts.MsgBox(
        QStringLiteral("Sample:Abc\r\nXML node name ::= (Letter | '_' | ':') (Letter | Digit | '.' | '-' | "
                       "'_' | ':' | CombiningChar | Extender)"),
        Buttons::Ok, Icon::Information, QStringLiteral("XML node name fomula"));
    return false;
}

bool ValidateNodeAttributeName(Application& app, const QString& attributeName, const QString& nodeName) {
    return Passes(app, m_tvXML::NodeAttributeNameProbe(attributeName, nodeName),
                  QStringLiteral("This is not a validate attribute name"), 1);
}

bool ValidateNodeAttributes(Application& app, const QString& attributes, const QString& nodeName,
                            bool showBox) {
    const QString probe = m_tvXML::NodeAttributesProbe(attributes, nodeName);
    if (showBox)
        return Passes(app, probe, QStringLiteral("This is not valid attributes"));
    const ProbeResult result = Probe(app, probe);
    if (Tell(app, result, Tone::Quiet))
        return true;
    Message(app, GetXMLParseErrorString(app, *result.error));
    return false;
}

bool ValidateNodeText(Application& app, const QString& text, const QString& nodeName) {
    const QString probe = m_tvXML::NodeTextProbe(text, nodeName);
    QString prefix;
    // A text that closes its node and opens it again reads as two nodes, which is no document of its own.
    if (text.contains(QStringLiteral("</") + m_tvXML::GetPureName(nodeName, prefix))) {
        const ProbeResult wrapped = Probe(app, QStringLiteral("<temp>") + probe + QStringLiteral("</temp>"));
        if (wrapped.good())
            return Tell(app, wrapped, Tone::Quiet);
    }
    return Passes(app, probe, QStringLiteral("This is not a validate node text"));
}

bool ValidateNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                const QString& attributeName) {
    return Passes(app, m_tvXML::NodeAttributeValueProbe(value, nodeName, attributeName),
                  QStringLiteral("This is not a validate attribute value"), 1);
}

int GetSelTextType(Application& app, const QString& text) {
    if (!text.contains(u'<'))
        return ValidateNodeAttributes(app, text, QStringLiteral("temp"), true) ? kSelTextAttributes
                                                                               : kSelTextNothing;
    if (ValidateXML(app, text, Tone::Quiet, xml::Prefixes::Any))
        return kSelTextDocument;
    const QString wrapped = QStringLiteral("<temp> ") + text + QStringLiteral(" </temp>");
    return ValidateXML(app, wrapped, Tone::Quiet, xml::Prefixes::Any) ? kSelTextFragment : kSelTextNothing;
}

} // namespace edit
