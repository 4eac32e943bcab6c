// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Parse.h"
#include "core/model/Probe.h"

struct Application;

// What the parser found, told to the user: the one place where a failed parse becomes a box, a beep, a
// message on the status bar, a caret at the error.
namespace edit {

/// How loud a failure is.
enum class Tone {
    Box,  ///< a box
    Quiet ///< a beep, and a message on status panel 1
};

void Message(Application& app, const QString& text); ///< on status panel 1

/// Parses, and tells of a failure, which stays the last parse error. A good text clears that and status
/// panel 1. An empty text does nothing.
mXMLEdit::Parsed LoadXMLDocFromString(Application& app, const FetchedText& text, Tone tone,
                                      xml::Prefixes prefixes = xml::Prefixes::Declared);
/// Whether a text parses; told likewise. False and not a word for an empty text.
bool ValidateXML(Application& app, const FetchedText& text, Tone tone,
                 xml::Prefixes prefixes = xml::Prefixes::Declared);
/// What became of a probe, told likewise; last parse error and caret stay, as it is in no document (quirk
/// 24). True for one without an error of the parser.
bool Tell(Application& app, const m_tvXML::ProbeResult& result, Tone tone);

/// The seven lines of the report. While the active window shows its text view, the caret goes to the error
/// too.
QString GetXMLParseErrorString(Application& app, const xml::ParseError& error);
/// Shows line and place in status panel 2 and selects the character at the error in the text view in use.
void PointToErrorPos(Application& app, const xml::ParseError& error);

} // namespace edit
