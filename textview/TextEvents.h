// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// What the events of a text pane do; `second` tells which pane raised one. Keys are Qt's, modifiers too.

/// A key goes down. One that the pane mustn't see any more becomes 0 (Tab) or 1 (a command with Ctrl).
void PaneKeyDown(DocumentWindow& window, bool second, int& key, int modifiers);
/// Text is about to go in.
void PaneKeyPress(DocumentWindow& window, bool second, const QString& text);
void PaneKeyUp(DocumentWindow& window, bool second, int key, int modifiers);
void PaneMouseUp(DocumentWindow& window, bool second);
void PaneClick(DocumentWindow& window, bool second);
/// Text is dragged over the pane, the pointer at a point in twips: the caret goes there, unless it is the
/// pane's own selection, which stays. The status bar tells the place.
void PaneDragOver(DocumentWindow& window, bool second, double x, double y);
/// Several characters have gone in at once: they take their colours.
void PanePasted(DocumentWindow& window, bool second, qsizetype start, qsizetype length);
/// The selection may be another one: menus and status bar tell while the text has the user's attention.
void PaneSelChange(DocumentWindow& window, bool second, bool wasSelected);
/// The text is about to become another one, or has become it. A pane that changes without the program's
/// doing is the one in use, whichever was before.
void PaneBeforeChange(DocumentWindow& window, bool second);
void PaneChange(DocumentWindow& window, bool second);
