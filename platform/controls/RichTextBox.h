// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace controls {

/// A run of characters in one colour (0x00BBGGRR), from `start` to the next run.
struct ColourRun {
    qsizetype start;
    std::uint32_t colour;
};

/// A place in lines: both numbers from 1, the column in 16-bit units.
struct TextPlace {
    qsizetype line = 1;
    qsizetype column = 1;
};

/// The whole content of a rich text at one moment. Its text is shared, so keeping one costs nothing.
struct RichContent {
    QString text;
    std::vector<ColourRun> runs;
};

/// Multi-line text. Its line ends are CR LF whatever is written to it, as the widget of the platform does.
/// Positions are 0-based and count 16-bit units, a line end counting two. While the user types, the widget
/// holds the newest text and the model fetches it when it is asked for (SetTextSource): a key press in a text
/// of 100 MB must not copy it.
class RichTextBox {
public:
    const QString& Text() const;
    void SetText(const QString& text); ///< no colours; caret to 0; raises Change when the text differs
    RichContent TextRTF() const;
    void SetTextRTF(const RichContent& content);

    qsizetype SelStart() const { return selStart_; }
    qsizetype SelLength() const { return selLength_; }
    void SetSelStart(qsizetype start);   ///< cut to the text; ends the selection
    void SetSelLength(qsizetype length); ///< cut to the text
    QString SelText() const;
    /// Line and column of the selection's start. While the widget holds the newest text it answers, and
    /// nothing is fetched.
    TextPlace CaretPlace() const;
    std::function<TextPlace()> caretSource; ///< set by the widget
    void SetSelText(const QString& text);   ///< replaces the selection; the caret stands behind it

    QString FontName() const { return fontName_; }
    double FontSize() const { return fontSize_; }
    void SetFont(const QString& name, double size);

    QString Tag;
    bool TabStop = true;
    bool Locked = false;
    void SetFocus() { focusRequested(); }

    // --- user's acts -----------------------------------------------------------------------------------
    /// The user changed the text in the widget: `source` fetches it when needed; raises Change. Colours move
    /// along with the text around the changed piece.
    void UserEdited(std::function<QString()> source);
    /// The user moved the caret or selection; the text stays. Taken as told, so that the text needn't be
    /// fetched.
    void UserSelected(qsizetype start, qsizetype length);
    /// A user's edit without a widget (tests): replaces the selection by `text` and raises Change.
    void Type(const QString& text);
    Event<> Click;
    Event<int, int> KeyDown, KeyUp;
    Event<> GotFocus, LostFocus;

    Event<> Change; ///< the text is another one, by user or program

    // --- announcements for the widget ------------------------------------------------------------------
    Event<> contentReplaced;                           ///< everything is new
    Event<qsizetype, qsizetype, QString> textReplaced; ///< at, removed length, new text; by the program
    Event<> selectionChanged, fontChanged, focusRequested;

private:
    void Fetch() const;
    void CutSelection();
    mutable QString text_;
    mutable std::function<QString()> source_;
    mutable std::vector<ColourRun> runs_;
    qsizetype selStart_ = 0, selLength_ = 0;
    QString fontName_ = QStringLiteral("Courier New");
    double fontSize_ = 10;
};

} // namespace controls
