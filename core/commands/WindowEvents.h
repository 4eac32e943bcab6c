// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The life of a document window and the events of its controls, common to both kinds.

/// First state of a new window, and its controls' events connected to the routines.
void Form_Load(DocumentWindow& window);
/// Each time the window becomes the active one.
void Form_Activate(DocumentWindow& window);
/// Before the window closes: finishes edits, asks to save, files the name under the recent ones. `cancel` is
/// set when the user chose to keep the window.
void Form_Unload(DocumentWindow& window, bool& cancel);
