// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/services/Schemas.h"

// The check of a schema that has been opened or edited. It goes on beside the user's work: the window is
// there at once, and nothing waits for it.
namespace schema {

/// What the user has before them: as long as it stays the same they haven't gone on to something else.
struct Attention {
    QString node, tab;
    int context = 0, row = 0, top = 0, branches = 0;
    qsizetype caret = 0, marked = 0;
    bool operator==(const Attention&) const = default;
};

struct CheckBeside {
    controls::Timer tmCheck{50};     ///< looks after the check, while there is something to do
    int branches = 0;                ///< how often one was opened or closed
    bool due = false;                ///< one is to begin with the next tick
    bool told = false;               ///< faults are told in a box, unless the user has gone on
    bool untold = false;             ///< the last check has found faults that no box has told of
    bool telling = false;            ///< the box comes as soon as it may
    bool quiet = false;              ///< the user has gone to a diagnostic: the list alone tells
    bool attentionTaken = false;     ///< `attention` is that of the present check
    Attention attention;             ///< when the check began, or the text was left
    services::SchemaRequest request; ///< of the one that is under way
    QString name;                    ///< the document's when it was last to be checked; empty: it never was
    std::map<QString, services::FetchedSchema> fetched; ///< what the user has had fetched for the last check
    std::unique_ptr<services::SchemaCheck> running;
    bool said = false; ///< the status bar tells of it
    QString saidBefore;

    bool busy() const { return due || running; }
};
CheckBeside& CheckBesideOf(DocumentWindow& window);

/// The text of a schema has just been read into the tree: it is checked. Faults of one that is being opened
/// are told in a box, those of an edited one when the user leaves it. A check that is under way is given up.
void CheckAfterReading(DocumentWindow& window);
/// The user has left the text: what the last check has found is told now, or when it has come to its end. A
/// text that hasn't been checked as it is by now, since steps of the history led to it, is checked.
void TellAfterLeaving(DocumentWindow& window);
/// Gives up what is under way or to be told: the user has asked for a check.
void StopCheckBeside(DocumentWindow& window);

void ConnectCheckBeside(DocumentWindow& window);

} // namespace schema
