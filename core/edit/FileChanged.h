// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/FileOnDisk.h"

// What the user is told, and asked, when another program has written or removed a document's file.
namespace edit {

/// Whether a window's file is still there. One that has gone is told on status panel 1, if the window is in
/// front, and its document counts as unsaved as long as it stays away.
void NoticeFile(DocumentWindow& window);

/// What OpenFiles::tmLook ticks for: notices what happened to the files of all windows, and asks about that
/// of the window in front. A document with unsaved changes is asked about only when its window has just come
/// to the front: a question must not catch the keys of someone who is typing. Each coming to the front asks
/// once at most; saving asks always.
void LookAtFiles(Application& app);

/// Whether a box that the user hasn't asked for may come up now: nothing is being typed, and no other box or
/// menu is open.
bool MayAskNow(DocumentWindow& window);

/// Before a document is saved over its file. False when that isn't to be: the user wants the file's text, has
/// put off the question, or leaves another document's file alone.
bool MayOverwrite(DocumentWindow& window);

} // namespace edit
