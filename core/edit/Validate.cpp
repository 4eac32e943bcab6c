// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Validate.h"
#include "core/edit/Report.h"
#include "core/model/Application.h"
#include "core/model/Escaping.h"
#include "core/model/NodeContent.h"
#include <functional>

namespace edit {

namespace {

using m_tvXML::Probe;
using m_tvXML::ProbeResult;
using services::Buttons;
using services::Icon;

/// How a kind of value is checked.
struct Check {
    std::function<QString(const QString&)> probe;
    QString title; ///< of the box about a wrong one
    int attributes = m_tvXML::kAnyNumber;
    bool quotes = false; ///< a quote can be the reason
};

ProbeResult Try(Application& app, const Check& check, const QString& typed) {
    return Probe(app, check.probe(typed), check.attributes);
}

QString Reason(const ProbeResult& result) {
    return result.error ? mXMLEdit::ErrorLines(*result.error) : m_tvXML::MoreThanOne();
}

// A failed probe is told twice: by a beep and the status bar, and in a box under its own title.
void TellQuietly(Application& app, const ProbeResult& result) {
    if (Tell(app, result, Tone::Quiet) && result.several)
        app.services.prompts.Beep();
}

void TellInBox(Application& app, const Check& check, const ProbeResult& result) {
    app.services.prompts.MsgBox(Reason(result), Buttons::Ok, Icon::Critical, check.title);
}

bool Passes(Application& app, const Check& check, const QString& typed) {
    const ProbeResult result = Try(app, check, typed);
    TellQuietly(app, result);
    if (!result.good())
        TellInBox(app, check, result);
    return result.good();
}

/// What escaping makes of a wrong text; nothing where it is of no help. As little as will do is escaped.
std::optional<QString> Escaped(Application& app, const Check& check, const QString& typed) {
    QString tried = mXMLEdit::WithAmpersandsEscaped(typed);
    if (tried != typed && Try(app, check, tried).good())
        return tried;
    if (check.quotes) {
        tried.replace(u'"', QStringLiteral("&quot;"));
        if (tried != typed && Try(app, check, tried).good())
            return tried;
    }
    if (!tried.contains(u'<'))
        return {};
    tried.replace(u'<', QStringLiteral("&lt;"));
    return Try(app, check, tried).good() ? std::optional(tried) : std::nullopt;
}

std::optional<QString> Take(Application& app, const Check& check, const QString& typed) {
    constexpr qsizetype kShown = 200; // units of a text in a box
    const ProbeResult result = Try(app, check, typed);
    TellQuietly(app, result);
    if (result.good())
        return typed;
    const std::optional<QString> escaped = Escaped(app, check, typed);
    if (!escaped) {
        TellInBox(app, check, result);
        return {};
    }
    const QString shown = escaped->size() > kShown ? escaped->left(kShown) + QStringLiteral("...") : *escaped;
    const services::Answer answer =
        app.services.prompts.MsgBox(Reason(result) + QStringLiteral("\r\n\r\nShall it be written as this?"),
                                    Buttons::YesNo, Icon::Critical, check.title, shown);
    if (answer != services::Answer::Yes)
        return {};
    Tell(app, ProbeResult(), Tone::Quiet);
    return escaped;
}

// --- the checks --------------------------------------------------------------------------------------------

Check AttributesCheck(const QString& nodeName) {
    return {[=](const QString& typed) { return m_tvXML::NodeAttributesProbe(typed, nodeName); },
            QStringLiteral("This is not valid attributes")};
}

// A text that closes its node and opens it again reads as two nodes, which is no document of its own.
Check TextCheck(Application& app, const QString& nodeName) {
    const auto probe = [&app, nodeName](const QString& typed) {
        const QString alone = m_tvXML::NodeTextProbe(typed, nodeName);
        QString prefix;
        if (!typed.contains(QStringLiteral("</") + m_tvXML::GetPureName(nodeName, prefix)))
            return alone;
        const QString wrapped = QStringLiteral("<temp>") + alone + QStringLiteral("</temp>");
        return Probe(app, wrapped).good() ? wrapped : alone;
    };
    return {probe, QStringLiteral("This is not a validate node text")};
}

Check AttributeValueCheck(const QString& nodeName, const QString& attributeName) {
    return {[=](const QString& typed) {
                return m_tvXML::NodeAttributeValueProbe(typed, nodeName, attributeName);
            },
            QStringLiteral("This is not a validate attribute value"), 1, true};
}

Check AttributeNameCheck(const QString& nodeName) {
    return {[=](const QString& typed) { return m_tvXML::NodeAttributeNameProbe(typed, nodeName); },
            QStringLiteral("This is not a validate attribute name"), 1};
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
    return Passes(app, AttributeNameCheck(nodeName), attributeName);
}

bool ValidateNodeAttributes(Application& app, const QString& attributes, const QString& nodeName,
                            bool showBox) {
    if (showBox)
        return Passes(app, AttributesCheck(nodeName), attributes);
    const ProbeResult result = Try(app, AttributesCheck(nodeName), attributes);
    if (Tell(app, result, Tone::Quiet))
        return true;
    Message(app, mXMLEdit::ErrorLines(*result.error));
    return false;
}

bool ValidateNodeText(Application& app, const QString& text, const QString& nodeName) {
    return Passes(app, TextCheck(app, nodeName), text);
}

bool ValidateNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                const QString& attributeName) {
    return Passes(app, AttributeValueCheck(nodeName, attributeName), value);
}

std::optional<QString> TakeNodeAttributes(Application& app, const QString& attributes,
                                          const QString& nodeName) {
    return Take(app, AttributesCheck(nodeName), attributes);
}

std::optional<QString> TakeNodeText(Application& app, const QString& text, const QString& nodeName) {
    return Take(app, TextCheck(app, nodeName), text);
}

std::optional<QString> TakeNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                              const QString& attributeName) {
    return Take(app, AttributeValueCheck(nodeName, attributeName), value);
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
