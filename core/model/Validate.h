// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>

/// What the user types as a name, an attribute, a value or a text is checked by asking the parser whether a
/// tiny document around it loads, with the string pasted in raw: accepted is what the parser accepts in that
/// place, as long as one name or value stays one. Every failed probe beeps and leaves the parser's complaint
/// on status panel 1; while the active window shows its text view, the caret goes to the error's position,
/// though that is a position in the probe. Nothing in the document changes. Element names lose their prefix
/// first, since no probe declares one; what stands in front of the first ":" is therefore never looked at.
namespace m_tvXML {

/// False without a message for an empty name; a box for any other wrong one.
bool ValidateNodeName(Application& app, const QString& name);
bool ValidateNodeAttributeName(Application& app, const QString& attributeName, const QString& nodeName);
/// A whole list as typed, such as a="1" b="2". With `showBox` the complaint comes in a box, else on the
/// status panel alone, with its line ends as they are.
bool ValidateNodeAttributes(Application& app, const QString& attributes, const QString& nodeName,
                            bool showBox);
/// Markup is legal in a text, even an end tag and a start tag of the node itself: it becomes two nodes then.
bool ValidateNodeText(Application& app, const QString& text, const QString& nodeName);
/// The attribute's name is used as given, with its prefix.
bool ValidateNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                const QString& attributeName);

// The probes themselves, for complaints that come while the user types.
QString NodeNameProbe(const QString& name);
QString NodeAttributesProbe(const QString& attributes, const QString& nodeName);
QString NodeTextProbe(const QString& text, const QString& nodeName);
QString NodeAttributeValueProbe(const QString& value, const QString& nodeName, const QString& attributeName);
QString NodeAttributeNameProbe(const QString& attributeName, const QString& nodeName);
/// Shows on status panel 1 what the parser dislikes of a probe, or nothing. No beep, no box, and the last
/// parse error stays as it was: the text isn't finished yet. An empty probe clears the panel.
/// `attributes`: how many the probe is to have, -1 for any number.
void ComplainWhileTyping(Application& app, const QString& probe, int attributes = -1);

/// What a piece of text is that is about to be dropped or pasted.
enum SelTextType {
    kSelTextNothing = -1, ///< nothing usable; the user has been told
    kSelTextDocument = 1, ///< well-formed with one root
    kSelTextAttributes = 2,
    kSelTextFragment = 100 ///< nodes that need a parent element
};
int GetSelTextType(Application& app, const QString& text);

} // namespace m_tvXML
