// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Filling the text view, and the step that records a change of the whole text.

/// Replaces the text in both panes and colours it; no undo step.
void SetRichText(DocumentWindow& window, const QString& text);
/// Colours the pane in use and copies its content to the other one.
void SetTreeXMLColor(DocumentWindow& window);
/// Colouring level by the length of a text: 0 (everything) to 3 (nothing). The bounds are open on both sides,
/// so a text of exactly 163840 or 409600 characters is coloured like a small one.
int GetTextSizeLevel(qsizetype length);

/// A change of the whole text that comes from the tree: one undo step. The selections of both panes stay
/// where they are.
void ChangeText(DocumentWindow& window, const QString& newText, const controls::RichContent& oldRTF);
/// Moves each record down one place; the oldest is lost.
void ArrangeUndoStack(std::vector<UndoRecord>& stack);
