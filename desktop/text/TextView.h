// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextAccessible.h"
#include "desktop/text/TextKeys.h"
#include "desktop/text/TextMouse.h"

namespace desktop {

/// A plain text editor on a RichTextBox. It has no text of its own: it sets the rows that can be seen
/// straight from the model's text and hands every edit to the model, so a text of any size is shown at once.
/// It keeps no history: undoing is the document's business. While it is hidden it does nothing. Positions
/// count 16-bit units of the model's text; a caret never stands inside a line's end or a character.
class TextView : public QAbstractScrollArea, public AccessibleSource {
    Q_OBJECT
public:
    explicit TextView(QWidget* parent = nullptr);
    ~TextView() override;

    /// Shows another model, which must live until the next call; null shows an empty one of the view's own.
    void SetModel(controls::RichTextBox* model);
    controls::RichTextBox& Model() const { return *state_.model; }

    qsizetype Caret() const { return state_.caret; }
    TextRange Selection() const { return state_.Selection(); }
    /// The user's selection: the model is told, the caret scrolled into view.
    void Select(qsizetype anchor, qsizetype caret) { caret_.Select(anchor, caret); }

    // --- places, in the viewport's pixels
    qsizetype PositionAt(QPoint place) const { return places_.PositionAt(place); }
    QRect RectAt(qsizetype position) const { return places_.RectAt(position); }
    qsizetype FirstRow() const { return places_.FirstRow(); }
    qsizetype RowsShown() const { return places_.RowsShown(); }

    /// Makes the letters larger or smaller by points, in all views that stand side by side; the model's font
    /// stays. 0 resets it.
    void Zoom(int points);

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    TextParts Parts() final { return {*this, state_, places_, caret_, editing_}; }

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
    void Prepare();
    void ConnectParts();
    void Follow();
    bool IsAwake();
    void ContentLeaves();
    void ContentReplaced(const controls::PlaceMap* where);
    void TextReplaced(qsizetype at, qsizetype removed, const QString& text);
    void ApplyFont();
    TextKeys::Act ActFor(const QKeyEvent& event);

    const std::unique_ptr<controls::RichTextBox> own_;
    std::unique_ptr<QObject> listening_; ///< as long as this lives, the model's events are heard
    TextState state_;
    TextPlaces places_;
    TextCaret caret_;
    TextEditing editing_;
    TextKeys keys_;
    TextDrag drag_;
    TextMouse mouse_;

    /// Where the view stood when its content went: a place, and in which row of the view that was.
    struct Left {
        qsizetype place = 0, row = 0;
    };
    Left left_;
    int zoom_ = 0;        ///< points
    bool follow_ = false; ///< the content is new: the caret is to be seen when the program is done
    QBasicTimer later_;
    int wheelTurned_ = 0; ///< eighths of a degree that haven't zoomed yet
};

} // namespace desktop
