// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include "platform/text/Fault.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace controls {
class RichTextBox;
}
class Frame;
struct DocumentWindow;

/// The options in force, read from the settings store at start.
struct Options {
    QString Encoding = QStringLiteral("UTF-8");
    int TreeNodeTextShowLength = 64;
    int TreeToolTipShowLength = 0;
    int Steps = 16;
    // 0x00BBGGRR
    std::uint32_t SlashColor = 0;
    std::uint32_t CommentColor = 0;
    std::uint32_t GLColor = 0;
    std::uint32_t EqualColor = 0;
    // The same as entries of an RTF colour table: see SetRTFColorString.
    QString SlashRTF, CommentRTF, GLRTF, EqualRTF;
    QString TextName = QStringLiteral("Courier New");
    double TextSize = 10;
    bool Debug = false;
    QString ApplicationFolder; ///< where the program lies, with a separator at the end; for the help file
};

/// All process-wide state, passed by reference, so that a test makes a fresh one.
struct Application {
    explicit Application(const services::Services& given) : services(given) {}
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    services::Services services;
    Frame* frame = nullptr; ///< set by the frame as long as it lives
    Options options;

    QString CurrentFileName;            ///< the name of the document in hand
    std::int32_t ElementKeyCounter = 0; ///< never reset, so a key is never used twice in a run
    long NodeWalkCounter = 0;           ///< see GetNodeByNumber
    // --- the last copy ---
    DocumentWindow* clipboardSource = nullptr; ///< the window it came from; null once that has closed
    int ClipboardSourceView = 0;               ///< the view it came from: 1 tree, 2 list
    QString copiedText;                        ///< what it put on the clipboard
    QString copiedAttributes;                  ///< attributes of list rows that were copied

    // --- the last drag of nodes or rows ---
    DocumentWindow* dragSource = nullptr; ///< the window it began in; null once that has closed
    int dragSourceView = 0;               ///< the view it began in: 1 tree, 2 list

    // --- finding ---
    DocumentWindow* findWindow = nullptr;        ///< whose text is searched; null once it has closed
    controls::RichTextBox* findTarget = nullptr; ///< the pane of it that was in use
    QStringList findHistory, replaceHistory;     ///< newest first; kept for this run only

    /// Nothing after a successful parse, the error after a failed one.
    std::optional<xml::ParseError> lastParseError;
};

/// What a routine's error exit calls: the frame's report under the routine's name. Shows a box only when
/// Debug is on.
void ErrorReportBox(Application& app, const text::Fault& fault, const QString& routineName);
