// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "textview/TextState.h"
#include <QString>
#include <vector>

// What the steps of the text's history are made of: changes of the whole text, and single pieces that go in
// and out of a pane.
namespace textview {

/// The text is a document of its own from here on: no step leads to what was before.
void BeginHistory(DocumentWindow& window);

/// A change of the whole text that comes from the tree: one undo step. Caret and selection of both panes stay
/// in their nodes. While a step is taken back the text stays as that step leaves it, and nothing is done.
void ChangeText(DocumentWindow& window, const text::LongText& newText, const controls::RichContent& oldRTF);
/// Adds such a step. As many of its kind as the options allow stay before it; the oldest are lost, with what
/// was typed before them (quirk 22).
void AddWholeStep(DocumentWindow& window, controls::RichContent before, controls::RichContent after);
/// Moves each record down, by one place as a rule; the oldest are lost.
void ArrangeUndoStack(std::vector<UndoRecord>& stack, int lost = 1);

/// Puts a text in at a 0-based position, colours it and leaves it selected. Nothing for an empty text. One
/// that is too long to be coloured takes `colours`, counted from its start.
void RInsert(Application& app, controls::RichTextBox& richText, qsizetype position, const QString& text,
             const std::vector<controls::ColourRun>& colours = {});
/// Takes as many characters away as `text` has.
void RDelete(controls::RichTextBox& richText, qsizetype position, const QString& text);

} // namespace textview
