// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Filling both panes, and the colours of what is put in.
namespace textview {

/// Caret and selection of a pane.
struct Selection {
    qsizetype start = 0, length = 0;
    bool mark = false; ///< a program's, see RichTextBox::Mark
};
Selection SelectionOf(const controls::RichTextBox& pane);
void Select(controls::RichTextBox& pane, const Selection& selection);

/// Those of both panes as they stand when it is made.
class PaneSelections {
public:
    explicit PaneSelections(DocumentWindow& window);
    void restore() const;

private:
    struct Place {
        controls::RichTextBox& pane;
        Selection selection;
    };
    Place first_, second_;
};

/// What both panes show, and their selections, as they stand when it is made: for what may fail half done.
class PaneContents {
public:
    explicit PaneContents(DocumentWindow& window);
    void restore() const;

private:
    DocumentWindow& window_;
    PaneSelections selections_;
    controls::RichContent first_, second_;
};

/// Another text of the same document in both panes, or, where that fails, in none. Caret, selection and what
/// they show stay in their nodes.
void SetContentInPlace(DocumentWindow& window, const controls::RichContent& content);
/// What stands in the pane in use stands in the other one, too.
void BringPanesTogether(DocumentWindow& window);

/// Replaces the text in both panes and colours it; no undo step.
void SetRichText(DocumentWindow& window, const text::LongText& text); ///< CR LF line ends
void SetRichText(DocumentWindow& window, const QString& text);
/// Colours a pane by a level. The blanks that this shows behind the openers of comments are its fillers: they
/// are no part of the document.
void ColourWhole(Application& app, controls::RichTextBox& pane, int level);
/// Colours the pane in use and copies its content to the other one.
void SetTreeXMLColor(DocumentWindow& window);
/// Gives a pane the colours and fillers of another one with the same text.
void TakeColours(controls::RichTextBox& pane, const controls::RichTextBox& from);
/// The colours that a text takes where it is put in, as SetSeltextColor gives them, counted from its start;
/// `around` is the colour there. A text too long for that has none.
std::vector<controls::ColourRun> InsertedColours(Application& app, const QString& text, std::uint32_t around);
/// The colour that a text put in at a place begins with: that of the character before it, at the text's start
/// of the one at `behind`.
std::uint32_t ColourAround(const controls::RichTextBox& pane, qsizetype place, qsizetype behind);
/// Gives a text that was put in at a place of a pane its colours, in both panes. The selection stays.
void ColourInserted(DocumentWindow& window, controls::RichTextBox& pane, qsizetype start, qsizetype length);
/// Colouring level by the length of a text: 0 (everything) to 3 (nothing). The bounds are open on both sides,
/// so a text of exactly 163840 or 409600 characters is coloured like a small one (quirk 20).
int GetTextSizeLevel(qsizetype length);

} // namespace textview
