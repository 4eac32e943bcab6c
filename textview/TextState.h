// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/TreeTextCache.h"
#include <QString>
#include <memory>
#include <vector>

namespace textview {

/// One step of the text's history.
struct UndoRecord {
    qsizetype DelPos = 0; ///< 0-based
    QString DelText;
    qsizetype InsPos = 0; ///< 0-based
    QString InsText;
    bool WholeText = false; ///< the step replaced everything: OldRTF and NewRTF hold both sides
    std::shared_ptr<const controls::RichContent> OldRTF, NewRTF;
    /// Colours of DelText and InsText where these are too long to be coloured when they come back.
    std::vector<controls::ColourRun> DelColours, InsColours;
    std::vector<qsizetype> DelFillers; ///< of DelText, counted from its start; what is put in has none
};

/// How a text pane stood at a moment: what SelText was is the stretch of the text from SelStart on.
struct TextStatus {
    controls::RichContent Content; ///< the text with its colours
    qsizetype SelStart = 0;        ///< 0-based
    qsizetype SelLength = 0;
};

/// A window's text view.
struct TextState {
    bool bControlChange = false;     ///< the program itself writes to a text view
    int miTextSizeLevel = 0;         ///< colouring level of the current text
    m_tvXML::TreeTextCache treeText; ///< the tree as text

    std::vector<UndoRecord> undoStack;
    int UndoPos = 0;           ///< steps that can be undone; where the next record goes
    bool bUndoRunning = false; ///< a step is being taken back or done again
    // The pane in use, before its last change and as it stands: a change is told by the difference.
    TextStatus previousStatus, currentStatus;

    QString pathInHand; ///< of the node that is to be current when the tree follows the steps
    /// Path of the node that was current until a step took it away, for the step that brings it back; good as
    /// long as the node that took its place is the current one (quirk 19).
    QString lostPath, placeTakenBy;
};

TextState& StateOf(DocumentWindow& window);

/// How a pane stands now becomes the window's current status.
void SetTextStatus(DocumentWindow& window, const controls::RichTextBox& pane);

} // namespace textview
