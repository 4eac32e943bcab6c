// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/EditorText.h"
#include <QPlainTextEdit>

/// A plain text editor that gives back exactly the characters it was given, also over the clipboard. It keeps
/// no history of its own: undoing is the document's business. Files that are dropped on it are left to the
/// window around it.
class SourceEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit SourceEdit(QWidget* parent = nullptr);

    void Fill(const QString& text); ///< replaces everything, caret at the start
    /// Replaces `removed` units at `start`, both as the model counts.
    void ReplaceText(qsizetype start, qsizetype removed, const QString& text);
    QString Content() const; ///< with CR LF line ends

    qsizetype SelectionStart() const;
    qsizetype SelectionLength() const;
    EditorText::LinePlace CaretLine() const; ///< of the selection's start
    /// Selects and scrolls as little as needed.
    void Select(qsizetype start, qsizetype length);
    /// Scrolls so that the selection stands high in the view.
    void ShowSelectionHigh();

Q_SIGNALS:
    void userEdited();   ///< the user changed the text
    void userSelected(); ///< the user moved caret or selection
    void userClicked();  ///< the left button was released; caret and selection stand already

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    EditorText text_;
    bool byProgram_ = false;
};
