// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include "platform/controls/RichTextSearch.h"
#include "platform/text/LongText.h"
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace controls {

/// A run of characters in one colour (0x00BBGGRR), from `start` to the next run. What stands before the first
/// run is black, that is 0.
struct ColourRun {
    qsizetype start;
    std::uint32_t colour;
    bool operator==(const ColourRun&) const = default;
};

/// A place in lines: both numbers from 1, the column in 16-bit units.
struct TextPlace {
    qsizetype line = 1;
    qsizetype column = 1;
};

/// The whole content of a rich text at one moment. Its text is shared, so keeping one costs next to nothing.
struct RichContent {
    text::LongText text;
    std::vector<ColourRun> runs;
    /// Places, in order, of blanks that are shown and belong to no document (see RichTextBox::Plain).
    std::vector<qsizetype> fillers = {};
};

/// Where a place of a text stands in the text that takes its place.
using PlaceMap = std::function<qsizetype(qsizetype)>;

/// What Find looks at, put together by or.
enum FindFlags { rtfWholeWord = 2, rtfMatchCase = 4, rtfNoHighlight = 8 };

/// Multi-line text. Its line ends are CR LF whatever is written to it, as the widget of the platform does.
/// Positions are 0-based and count 16-bit units, a line end counting two. The text stands here and nowhere
/// else: a widget shows rows of it.
class RichTextBox {
public:
    const text::LongText& Long() const { return text_; }
    const std::vector<ColourRun>& Runs() const { return runs_; }
    QString Text() const;                     ///< the whole text: made anew for a large one on each call
    void SetText(const QString& text);        ///< no colours; caret to 0; raises Change when the text differs
    void SetText(const text::LongText& text); ///< the same; its line ends are CR LF
    RichContent Content() const { return {text_, runs_, fillers_}; }
    void SetContent(const RichContent& content);
    /// The same, but caret, selection and what a widget shows stay with the places that they stood at.
    void SetContent(const RichContent& content, const PlaceMap& where);
    /// The text without its fillers: the blanks that colouring shows behind the opener of a comment (quirk
    /// 38). They move along with the text around them. One whose opener is no longer in front of it is a
    /// blank like any other.
    const text::LongText& Plain() const;
    const std::vector<qsizetype>& Fillers() const { return fillers_; }
    void SetFillers(std::vector<qsizetype> fillers);
    /// More of them, counted from a place.
    void AddFillers(qsizetype start, const std::vector<qsizetype>& fillers);
    /// Where a place of Plain() stands in the text.
    qsizetype ShownPlace(qsizetype plain) const;
    /// Gives a stretch other colours, counted from its start; text and selection stay.
    void SetColours(qsizetype start, qsizetype length, const std::vector<ColourRun>& runs);
    QString TextRTF() const; ///< text and colours as an RTF document
    /// Reads an RTF document; a string that isn't one is taken as plain text.
    void SetTextRTF(const QString& rtf);

    qsizetype SelStart() const { return selStart_; }
    qsizetype SelLength() const { return selLength_; }
    void SetSelStart(qsizetype start);   ///< cut to the text; ends the selection
    void SetSelLength(qsizetype length); ///< cut to the text
    /// Selects a stretch to show it. The user has selected nothing: the caret stands in front of it, and
    /// EndMark comes before the next edit.
    void Mark(qsizetype start, qsizetype length);
    bool IsMark() const { return mark_; } ///< what is selected
    /// Nothing is selected any more, and the caret stays. False when there was no mark.
    bool EndMark();
    QString SelText() const;
    void SetSelText(const QString& text); ///< replaces the selection; the caret stands behind it
    /// The same with colours and fillers of its own, which count from the text's start.
    void SetSelContent(const QString& text, std::vector<ColourRun> runs,
                       const std::vector<qsizetype>& fillers = {});
    /// The same for a text that comes from elsewhere: raises Pasted. Nothing happens for an empty one.
    void Paste(const QString& text);
    void SelectAll(); ///< as the user does it: a widget doesn't scroll
    /// Colour of the selection's first character; without a selection that of text typed next.
    std::uint32_t SelColor() const;
    std::uint32_t ColourAt(qsizetype position) const; ///< of the character there
    void SetSelColor(std::uint32_t colour);           ///< of the selection, and of text typed next
    TextPlace CaretPlace() const;                     ///< line and column of the selection's start
    qsizetype GetLineFromChar(qsizetype position) const { return text_.lineOf(position); } ///< from 0
    /// Looks for a text between two positions (end -1: to the end of the text) and selects a hit unless
    /// rtfNoHighlight is set. Its position, -1 for none.
    qsizetype Find(const QString& text, qsizetype start, qsizetype end, int flags);
    /// Whether the characters beside a hit are neither letters nor numbers.
    static bool IsWholeWord(const SearchHit& hit);

    QString FontName() const { return fontName_; }
    double FontSize() const { return fontSize_; }
    void SetFont(const QString& name, double size);

    QString Tag;
    bool TabStop = true;
    bool Locked = false;
    bool DragsSelection = false; ///< its selection is being dragged, and stays meanwhile
    void SetFocus() { focusRequested(); }
    /// The character at a point (twips), set by the widget; -1 without one.
    std::function<qsizetype(double x, double y)> charFromPos;

    // --- user's acts -----------------------------------------------------------------------------------
    /// The user put `text` in the place of a stretch; it takes the colour of text typed next. Raises Change.
    void UserReplaced(qsizetype at, qsizetype removed, const QString& text);
    /// The user moved the caret or selection.
    void UserSelected(qsizetype start, qsizetype length);
    void Type(const QString& text); ///< replaces the selection as typing does, without a widget
    Event<> Click, MouseUp;
    Event<double, double> DragOver; ///< text is dragged over a point (twips)
    /// Qt key code, Qt modifiers; a handler that uses a key up changes its code.
    Event<int&, int> KeyDown;
    Event<const QString&> KeyPress; ///< before typed characters go in
    Event<int, int> KeyUp;
    Event<> GotFocus, LostFocus;
    Event<qsizetype, qsizetype> Pasted; ///< several characters have gone in at once: where, length

    Event<> BeforeChange;  ///< the text is about to become another one; not to be changed now
    Event<> Change;        ///< the text is another one, by user or program
    Event<bool> SelChange; ///< the selection may be another one; whether something was selected before

    // --- announcements for the widget ------------------------------------------------------------------
    Event<> contentLeaves;                  ///< everything is about to be new
    Event<const PlaceMap*> contentReplaced; ///< everything is new; where its places are, null: gone
    Event<qsizetype, qsizetype, QString> textReplaced; ///< at, removed length, new text
    Event<qsizetype, qsizetype> coloursChanged;        ///< start, length
    Event<> selectionChanged, allSelected, fontChanged, focusRequested;

private:
    void Exchange(const RichContent& content, const PlaceMap* where);
    void Paint(qsizetype start, qsizetype length, const std::vector<ColourRun>& colours);
    void Replace(qsizetype at, qsizetype removed, const QString& piece);
    void TellReplaced(qsizetype at, qsizetype removed, const QString& piece, bool wasSelected);
    void PutSelection(qsizetype start, qsizetype length);
    void TakeWholeLineEnds(qsizetype& at, qsizetype& removed) const;
    void TakeTypeColour();
    bool IsFiller(qsizetype place) const;
    void ShiftFillers(qsizetype at, qsizetype removed, qsizetype added);

    text::LongText text_;
    std::vector<ColourRun> runs_;
    std::vector<qsizetype> fillers_;
    mutable text::LongText plain_; ///< the last plain text that was asked for, while nothing changes
    mutable bool plainKnown_ = false;
    mutable QString whole_; ///< the last whole text that was asked for, while nothing changes
    mutable bool wholeKnown_ = false;
    qsizetype selStart_ = 0, selLength_ = 0;
    bool mark_ = false; ///< the selection is the program's
    std::uint32_t typeColour_ = 0;
    QString fontName_ = QStringLiteral("Courier New");
    double fontSize_ = 10;
};

} // namespace controls
