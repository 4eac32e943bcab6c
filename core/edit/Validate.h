// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Probe.h"
#include <QString>
#include <optional>

struct Application;

// The checks of what the user typed, with what they tell. Every failed probe beeps and leaves the parser's
// complaint on status panel 1; while the active window shows its text view, the caret goes to the error's
// position, though that is a position in the probe. Nothing in the document changes.
namespace edit {

/// False without a message for an empty name; a box for any other wrong one.
bool ValidateNodeName(Application& app, const QString& name);
bool ValidateNodeAttributeName(Application& app, const QString& attributeName, const QString& nodeName);
/// A whole list as typed, such as a="1" b="2". With `showBox` the complaint comes in a box, else on the
/// status panel alone, with its line ends as they are.
bool ValidateNodeAttributes(Application& app, const QString& attributes, const QString& nodeName,
                            bool showBox);
bool ValidateNodeText(Application& app, const QString& text, const QString& nodeName);
bool ValidateNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                const QString& attributeName);
/// Any other probe; a wrong one is told in a box.
bool PassesProbe(Application& app, const QString& probe);

// The same for what is about to be written. Where "&", "<" or a quote is the reason, the box offers to write
// it escaped (quirk 58). As it is to be written; nothing where it was refused.
std::optional<QString> TakeNodeAttributes(Application& app, const QString& attributes,
                                          const QString& nodeName);
std::optional<QString> TakeNodeText(Application& app, const QString& text, const QString& nodeName);
std::optional<QString> TakeNodeAttributeValue(Application& app, const QString& value, const QString& nodeName,
                                              const QString& attributeName);

/// Shows on status panel 1 what the parser dislikes of a probe, or nothing. No beep, no box, and the last
/// parse error stays as it was: the text isn't finished yet. An empty probe clears the panel.
void ComplainWhileTyping(Application& app, const QString& probe, int attributes = m_tvXML::kAnyNumber);

/// What a piece of text is that is about to be dropped or pasted.
enum SelTextType {
    kSelTextNothing = -1, ///< nothing usable; the user has been told
    kSelTextDocument = 1, ///< well-formed with one root
    kSelTextAttributes = 2,
    kSelTextFragment = 100 ///< nodes that need a parent element
};
int GetSelTextType(Application& app, const QString& text);

} // namespace edit
