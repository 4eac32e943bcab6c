// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/StateSlots.h"
#include "platform/controls/Event.h"
#include "platform/services/Services.h"
#include "platform/text/Fault.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

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

/// How often the dear steps ran since the start: for measuring, and for tests that no step runs twice.
struct Work {
    int parses = 0; ///< of whole documents
    int probes = 0; ///< of tiny documents around one name or value
    int texts = 0;  ///< the text written from the tree
    int listFills = 0;
    int tableFills = 0;
    int paths = 0;
    int menuStates = 0;
    int toolbars = 0;
    bool operator==(const Work&) const = default;
};

/// All process-wide state, passed by reference, so that a test makes a fresh one.
struct Application {
    explicit Application(const services::Services& given);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    services::Services services;
    Options options;

    /// The main window; one that does nothing while there is none.
    Frame& frame() const { return *frame_; }
    void SetFrame(Frame* frame); ///< null: there is none any more

    QString CurrentFileName;            ///< the name of the document in hand
    std::int32_t ElementKeyCounter = 0; ///< never reset, so a key is never used twice in a run
    long NodeWalkCounter = 0;           ///< see GetNodeByNumber

    /// Nothing after a successful parse, the error after a failed one.
    std::optional<xml::ParseError> lastParseError;

    /// A document window is about to be destroyed.
    controls::Event<DocumentWindow&> windowClosed;
    StateSlots rooms; ///< what single rooms keep for the whole run
    Work work;

private:
    std::unique_ptr<Frame> noFrame_;
    Frame* frame_;
};

/// What a routine's error exit calls: the frame's report under the routine's name. Shows a box only when
/// Debug is on. Nothing for what the user declined.
void ErrorReportBox(Application& app, const text::Fault& fault, const QString& routineName);
