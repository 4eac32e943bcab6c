// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/SourceEdit.h"
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>

namespace {
// Lines above the selection when it is shown high in the view.
constexpr int kLinesAbove = 3;
// Larger texts take so long to fill in that the pointer says so.
constexpr qsizetype kFilledAtOnce = 4'000'000;
} // namespace

SourceEdit::SourceEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    connect(document(), &QTextDocument::contentsChange, this, [this](int position, int removed, int added) {
        text_.Changed(*document(), position, removed, added);
        if (!byProgram_)
            Q_EMIT userEdited();
    });
    // The caret moves with an edit too: that is told behind the edit.
    const auto moved = [this] {
        if (!byProgram_)
            Q_EMIT userSelected();
    };
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, moved);
    connect(this, &QPlainTextEdit::selectionChanged, this, moved);
}

void SourceEdit::Fill(const QString& text) {
    const QScopedValueRollback program(byProgram_, true);
    const bool slow = text.size() > kFilledAtOnce;
    if (slow)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    setPlainText(text_.Load(text));
    if (slow)
        QGuiApplication::restoreOverrideCursor();
}

void SourceEdit::ReplaceText(qsizetype start, qsizetype removed, const QString& text) {
    const QScopedValueRollback program(byProgram_, true);
    QTextCursor cursor(document());
    cursor.setPosition(text_.ToDocument(*document(), start));
    cursor.setPosition(text_.ToDocument(*document(), start + removed), QTextCursor::KeepAnchor);
    cursor.insertText(text_.Insert(text));
}

QString SourceEdit::Content() const {
    return text_.Read(document()->toRawText(), u"\r\n");
}

qsizetype SourceEdit::SelectionStart() const {
    return text_.ToModel(*document(), textCursor().selectionStart());
}

EditorText::LinePlace SourceEdit::CaretLine() const {
    return text_.LineOf(*document(), textCursor().selectionStart());
}

qsizetype SourceEdit::SelectionLength() const {
    return text_.ToModel(*document(), textCursor().selectionEnd()) - SelectionStart();
}

void SourceEdit::Select(qsizetype start, qsizetype length) {
    const QScopedValueRollback program(byProgram_, true);
    QTextCursor cursor(document());
    cursor.setPosition(text_.ToDocument(*document(), start));
    cursor.setPosition(text_.ToDocument(*document(), start + length), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void SourceEdit::ShowSelectionHigh() {
    verticalScrollBar()->setValue(textCursor().block().firstLineNumber() - kLinesAbove);
    ensureCursorVisible();
}

// Shift+Enter would put a line separator into the text, which is a character like any other in a document.
void SourceEdit::keyPressEvent(QKeyEvent* event) {
    if (event == QKeySequence::InsertLineSeparator) {
        QKeyEvent plain(event->type(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QPlainTextEdit::keyPressEvent(&plain);
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void SourceEdit::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT userClicked();
}

QMimeData* SourceEdit::createMimeDataFromSelection() const {
    auto mime = std::make_unique<QMimeData>();
    mime->setText(text_.Read(textCursor().selectedText(), u"\n"));
    return mime.release();
}

bool SourceEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() && !source->hasUrls();
}

void SourceEdit::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source))
        return;
    textCursor().insertText(text_.Insert(source->text()));
    ensureCursorVisible();
}
