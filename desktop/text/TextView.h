// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextRow.h"
#include "desktop/text/TextSteps.h"
#include "platform/controls/RichTextBox.h"
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <optional>

class QDrag;
class QInputMethodEvent;

namespace desktop {

/// A plain text editor on a RichTextBox. It has no text of its own: it sets the rows that can be seen
/// straight from the model's text and hands every edit to the model, so a text of any size is shown at once.
/// It keeps no history: undoing is the document's business. While it is hidden it does nothing. Positions
/// count 16-bit units of the model's text; a caret never stands inside a line's end or a character.
class TextView : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit TextView(QWidget* parent = nullptr);
    ~TextView() override;

    /// Shows another model, which must live until the next call; null shows an empty one of the view's own.
    void SetModel(controls::RichTextBox* model);
    controls::RichTextBox& Model() const { return *model_; }

    qsizetype Caret() const { return caret_; }
    qsizetype Anchor() const { return anchor_; } ///< the selection's other end
    TextRange Selection() const { return {std::min(anchor_, caret_), std::max(anchor_, caret_)}; }
    QString SelectedText(QStringView lineEnd) const;
    /// The user's selection: the model is told, the caret scrolled into view.
    void Select(qsizetype anchor, qsizetype caret);
    /// A user's edit: replaces the units from `start` to `end`; the caret stands behind the new text. Nothing
    /// happens when the text is locked.
    void Replace(TextRange range, const QString& text);
    /// As typed: replaces the selection, or in overwrite mode the next character. The model is asked first.
    void TypeText(const QString& text);

    void Cut();
    void Copy() const;
    void Paste();
    void SelectAll();

    // --- places, in the viewport's pixels
    // --------------------------------------------------------------------
    qsizetype PositionAt(QPoint place) const; ///< of the caret place nearest to a point
    /// Of the character under a point; beside the characters as PositionAt.
    qsizetype CharacterAt(QPoint place) const;
    QRect RectAt(qsizetype position) const; ///< of a caret there; may be outside the viewport
    qsizetype FirstRow() const;             ///< the topmost row shown
    qsizetype RowsShown() const;            ///< whole ones, at least 1
    /// Scrolls as little as needed.
    void ShowCaret();
    /// Scrolls so that the caret stands a few rows below the view's top, unless it is in view already.
    void ShowCaretHigh();

    /// Makes the letters larger or smaller by points, in all views that stand side by side; the model's font
    /// stays. 0 resets it.
    void Zoom(int points);
    bool IsOverwriting() const { return overwrite_; }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /// Whether this is the pane that commands work on; unset, it is.
    std::function<bool()> isInUse;
    /// Carries a drag out and tells what became of it, in place of the window system: for a test.
    std::function<Qt::DropAction(QDrag&)> runsDrag;

Q_SIGNALS:
    // Caret and selection stand already when these are told.
    void userReleased(); ///< a mouse button
    void userClicked();  ///< the left button was released
    void contextMenuWanted(const QPoint& globalPlace);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Act = std::function<void()>;
    enum class Unit { Character, Word, Line };
    enum class Press { None, Selecting, MayDrag };
    /// Text that an input method is composing, shown at the caret; it isn't in the model.
    struct Preedit {
        QString text;
        int caret = 0;
        bool caretShown = true;
        QList<QTextLayout::FormatRange> formats; ///< count units of `text`
    };

    const text::LongText& Text() const { return model_->Long(); }

    // --- the model (TextView.cpp)
    void Follow();
    void ContentReplaced();
    void TextReplaced(qsizetype at, qsizetype removed, const QString& text);
    void FollowSelection();
    TextRange ModelSelection() const;
    void ApplyFont();

    // --- caret (TextViewCaret.cpp)
    void PlaceCaret(qsizetype anchor, qsizetype caret);
    void RestartBlinking();
    void UpdateRows(qsizetype first, qsizetype last);
    void UpdateCaretRow();
    void PublishSelection() const;

    // --- places (TextViewPlaces.cpp)
    RowText ContentOf(const text::LongText::Row& row) const;
    std::shared_ptr<const TextRow> Set(const text::LongText::Row& row) const;
    double XAt(qsizetype position) const;
    qsizetype PositionInRow(qsizetype row, double x) const;
    int TextLeft() const;    ///< of a row's start, scrolled
    int MarginWidth() const; ///< of the line numbers
    void UpdateBars();
    void NoteWidth(double width);
    void ShowProgramsCaret();
    void ShowSideways(qsizetype position);

    // --- painting (TextViewPaint.cpp)
    void PaintRow(QPainter& painter, const QRect& dirty, qsizetype number);
    void PaintSelectedEnd(QPainter& painter, const text::LongText::Row& row, const TextRow& set, int y);
    void PaintCaret(QPainter& painter);
    void PaintMargin(QPainter& painter, qsizetype first, qsizetype last);
    QColor Shade(double part) const; ///< between the paper (0) and the letters (1)
    QPalette::ColorGroup SelectionGroup() const;

    // --- keys (TextViewKeys.cpp)
    Act ActFor(const QKeyEvent& event);
    Act MoveFor(const QKeyEvent& event);
    Act EditFor(const QKeyEvent& event);
    void MoveTo(qsizetype position, bool select);
    void MoveRows(qsizetype rows, bool select);
    void ScrollRows(qsizetype rows);
    qsizetype RowEnd(qsizetype position) const;
    void PutIn(TextRange range, const QString& text);
    void DeleteTo(qsizetype (*step)(const text::LongText&, qsizetype));
    void EnterText(const QString& text);

    // --- mouse (TextViewMouse.cpp, TextViewDrop.cpp)
    TextRange UnitAt(QPoint place) const;
    void StartSelecting(Unit unit, QPoint place);
    void ExtendTo(QPoint place);
    void ScrollTowardsPointer();
    bool IsInSelection(QPoint place) const;
    void UpdatePointer(QPoint place);
    void StartDrag();
    bool TakeDrag(QDropEvent& event);
    void EndDragOver();
    bool ShowsSameText(const TextView& other) const;
    bool TakeOver(const TextView& from, const QString& dragged);
    void ShowDropPlace(qsizetype position);
    void MoveSelectionTo(qsizetype position);

    controls::RichTextBox* model_;
    const std::unique_ptr<controls::RichTextBox> own_;
    std::unique_ptr<QObject> listening_; ///< as long as this lives, the model's events are heard
    qsizetype caret_ = 0, anchor_ = 0;
    std::optional<double> wantedX_; ///< where up and down aim at
    bool editing_ = false;          ///< the user's edit is on its way through the model
    bool overwrite_ = false;
    std::optional<Preedit> preedit_;

    mutable TextRows rows_;
    qsizetype rowCount_ = 1; ///< when the view was last painted or updated
    int margin_ = 0;         ///< its width then
    double widest_ = 0;      ///< of the rows set so far
    int zoom_ = 0;           ///< points
    bool stale_ = true;      ///< the model changed while nobody saw it
    bool follow_ = false;    ///< the content is new: the caret is to be seen when the program is done
    bool high_ = false;      ///< the caret is to be shown high when the size is known

    QBasicTimer blinking_, scrolling_, thirdClick_, later_;
    bool caretShown_ = true;
    Press press_ = Press::None;
    Unit unit_ = Unit::Character;
    TextRange pressed_; ///< what the first click of a selection took
    QPoint pressPlace_;
    bool movedInside_ = false;
    qsizetype dropAt_ = -1;
    int wheelTurned_ = 0; ///< eighths of a degree that haven't zoomed yet
};

} // namespace desktop
