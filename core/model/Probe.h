// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <optional>

struct Application;

// What the user types as a name, an attribute, a value or a text is checked by asking the parser whether a
// tiny document around it loads, with the string pasted in raw: accepted is what the parser accepts in that
// place, as long as one name or value stays one. Nothing here tells the user anything: see
// core/edit/Validate.h.
namespace m_tvXML {

// The tiny documents. Element names lose their prefix first, since no probe declares one.
QString NodeNameProbe(const QString& name);
QString NodeAttributesProbe(const QString& attributes, const QString& nodeName);
/// Markup is legal in a text, even an end tag and a start tag of the node itself: it becomes two nodes then.
QString NodeTextProbe(const QString& text, const QString& nodeName);
/// The attribute's name is used as given, with its prefix.
QString NodeAttributeValueProbe(const QString& value, const QString& nodeName, const QString& attributeName);
QString NodeAttributeNameProbe(const QString& attributeName, const QString& nodeName);
QString CDataProbe(const QString& text);
QString CommentProbe(const QString& text);
QString InstructionProbe(const QString& target, const QString& text);

inline constexpr int kAnyNumber = -1; ///< of attributes in a probe

/// What became of a probe.
struct ProbeResult {
    std::optional<xml::ParseError> error; ///< the parser's
    bool several = false; ///< it parses, but what was meant to be one name or value is more than one
    bool good() const { return !error && !several; }
    QString reason() const; ///< one line; empty for a good one
};

/// Parses a probe. `attributes`: how many its root element is to have.
ProbeResult Probe(Application& app, const QString& document, int attributes = kAnyNumber,
                  xml::Prefixes prefixes = xml::Prefixes::Any);

/// Tells of a name or value that is more than one.
QString MoreThanOne();

/// A list of attributes as it was typed in the form of a Tag: double quotes, one blank between. Nothing where
/// it doesn't parse.
std::optional<QString> ReadAttributes(const QString& typed);
/// The same; as typed where it doesn't parse.
QString PlainAttributes(const QString& typed);

} // namespace m_tvXML
