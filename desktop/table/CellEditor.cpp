// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/CellEditor.h"
#include "desktop/table/SheetPlaces.h"
#include <QScopedValueRollback>
#include <QTextBlock>
#include <algorithm>
#include <limits>

namespace desktop {

namespace {

constexpr qsizetype kLongText = 120; ///< from which on a text gets the box
constexpr QSize kBoxSize(420, 140);

bool IsLong(const QString& text) {
    return text.size() > kLongText || text.contains(u'\n') || text.contains(u'\r');
}

// As typed: the plain text would turn hard blanks into common ones.
QString Typed(const QPlainTextEdit& box) {
    QString text = box.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

/// What is typed into the box has the line ends that the text had.
QString WithLineEndsOf(const QString& before, QString typed) {
    if (before.contains(QLatin1String("\r\n")))
        typed.replace(u'\n', QLatin1String("\r\n"));
    return typed;
}

QString ForBox(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(u'\r', u'\n');
}

} // namespace

CellEditor::CellEditor(DocumentWindow& window, controls::TextBox& model, QWidget& view, const QString& name)
    : window_(window), model_(model), view_(view), line_(new QLineEdit(&view)),
      box_(new QPlainTextEdit(&view)), lineEvents_(*line_, this), boxEvents_(*box_, this) {
    line_->setObjectName(name);
    box_->setObjectName(name + QStringLiteral("Large"));
    line_->setMaxLength(std::numeric_limits<int>::max());
    line_->setTextMargins(1, 0, 1, 0);
    box_->setTabChangesFocus(true);
    line_->hide();
    box_->hide();
    ConnectLine();
    ConnectBox();
    Listen(model.changed, this, [this] { Show(); });
    Listen(model.moved, this, [this] { Place(); });
    Listen(window.pctTV.moved, this, [this] { Place(); });
    Listen(model.focusRequested, this, [this] { TakeFocus(); });
    Listen(model.selectionChanged, this, [this] {
        const int start = static_cast<int>(model_.SelStart()), length = static_cast<int>(model_.SelLength());
        const QScopedValueRollback guard(filling_, true);
        if (large_) {
            QTextCursor cursor(box_->document());
            cursor.setPosition(std::min(start, box_->document()->characterCount() - 1));
            cursor.setPosition(std::min(start + length, box_->document()->characterCount() - 1),
                               QTextCursor::KeepAnchor);
            box_->setTextCursor(cursor);
        } else if (length > 0) {
            line_->setSelection(start, length);
        } else {
            line_->setCursorPosition(start);
        }
    });
    Show();
}

CellEditor::~CellEditor() {
    delete line_;
    delete box_;
}

void CellEditor::ConnectLine() {
    lineEvents_.Bind(model_);
    connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) { model_.UserTyped(text); });
    connect(line_, &QLineEdit::selectionChanged, this, [this] { TellSelection(); });
    connect(line_, &QLineEdit::cursorPositionChanged, this, [this] { TellSelection(); });
}

void CellEditor::ConnectBox() {
    boxEvents_.Bind(model_);
    boxEvents_.keyDown = [this](int& key, int modifiers) { BoxKey(key, modifiers); };
    connect(box_, &QPlainTextEdit::textChanged, this, [this] {
        if (filling_ || !large_)
            return;
        model_.UserTyped(WithLineEndsOf(model_.Text(), Typed(*box_)));
        TellSelection(); // the caret moved before the text was told
    });
    connect(box_, &QPlainTextEdit::cursorPositionChanged, this, [this] { TellSelection(); });
    connect(box_, &QPlainTextEdit::selectionChanged, this, [this] { TellSelection(); });
}

// Within a text of several lines Up and Down go from line to line; only at its ends they lead to other cells.
void CellEditor::BoxKey(int& key, int modifiers) {
    const QTextCursor cursor = box_->textCursor();
    QTextCursor moved = cursor;
    const bool within = (key == Qt::Key_Up && moved.movePosition(QTextCursor::Up)) ||
                        (key == Qt::Key_Down && moved.movePosition(QTextCursor::Down));
    if (!within)
        model_.KeyDown(key, modifiers);
}

void CellEditor::TellSelection() {
    if (filling_)
        return;
    if (!large_) {
        const bool any = line_->hasSelectedText();
        model_.UserSelected(any ? line_->selectionStart() : line_->cursorPosition(),
                            any ? line_->selectionLength() : 0);
        return;
    }
    const QTextCursor cursor = box_->textCursor();
    const auto place = [this, &cursor](int position) {
        // Line ends of two characters are one in the box.
        const int lines = model_.Text().contains(QLatin1String("\r\n"))
                              ? box_->document()->findBlock(position).blockNumber()
                              : 0;
        return static_cast<qsizetype>(position) + lines;
    };
    const qsizetype start = place(cursor.selectionStart());
    model_.UserSelected(start, place(cursor.selectionEnd()) - start);
}

// --- what the model wants
// -----------------------------------------------------------------------------------

QWidget& CellEditor::InUse() const {
    return large_ ? static_cast<QWidget&>(*box_) : static_cast<QWidget&>(*line_);
}

// Which of the two is in use is decided when the editor opens, so that no key changes it.
void CellEditor::Show() {
    const bool opens = model_.Visible() && !shown_;
    const bool hadFocus = shown_ && InUse().hasFocus();
    shown_ = model_.Visible();
    if (opens)
        large_ = IsLong(model_.Text());
    ShowText();
    // An editor that is closed under the user would give the focus to any other widget.
    if (!shown_ && hadFocus)
        view_.setFocus(Qt::OtherFocusReason);
    line_->setVisible(shown_ && !large_);
    box_->setVisible(shown_ && large_);
    if (shown_)
        Place();
}

void CellEditor::ShowText() {
    const QScopedValueRollback guard(filling_, true);
    if (!large_ && line_->text() != model_.Text()) {
        line_->setText(model_.Text());
        line_->setCursorPosition(static_cast<int>(model_.SelStart()));
    }
    const QString boxed = large_ ? ForBox(model_.Text()) : QString();
    if (Typed(*box_) != boxed)
        box_->setPlainText(boxed);
}

void CellEditor::Place() {
    if (!shown_)
        return;
    QRect place = SheetPlaces(window_, view_.size()).RectOf(model_.Place());
    if (large_) { // as much of the box as fits lies on the widget
        place.setSize(kBoxSize.expandedTo(place.size()).boundedTo(view_.size()));
        place.moveLeft(std::clamp(place.left(), 0, std::max(view_.width() - place.width(), 0)));
        if (place.top() < view_.height() && place.bottom() > 0)
            place.moveTop(std::clamp(place.top(), 0, std::max(view_.height() - place.height(), 0)));
    }
    InUse().setGeometry(place);
    InUse().raise();
}

void CellEditor::TakeFocus() {
    if (shown_)
        InUse().setFocus(Qt::OtherFocusReason);
}

} // namespace desktop
