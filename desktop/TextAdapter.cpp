// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TextAdapter.h"
#include "desktop/SourceEdit.h"
#include <QEvent>

TextAdapter::TextAdapter(controls::RichTextBox& model, SourceEdit& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), events_(widget, this) {
    events_.Bind(model, widget);
    widget.installEventFilter(this);

    Listen(model.contentReplaced, this, [this] { ContentReplaced(); });
    Listen(model.textReplaced, this, [this](qsizetype at, qsizetype removed, const QString& text) {
        if (IsFilled())
            widget_.ReplaceText(at, removed, text);
        ShowSelection();
    });
    Listen(model.selectionChanged, this, [this] { ShowSelection(); });
    Listen(model.fontChanged, this, [this] { ShowFont(); });
    connect(&widget, &SourceEdit::userSelected, this, [this] { UserSelected(); });
    connect(&widget, &SourceEdit::userClicked, this, [this] { model_.Click(); });
    connect(&widget, &SourceEdit::userEdited, this, [this] {
        model_.UserEdited(
            [edit = QPointer<SourceEdit>(&widget_)] { return edit ? edit->Content() : QString(); });
    });
    model.caretSource = [edit = QPointer<SourceEdit>(&widget)] {
        const EditorText::LinePlace place = edit ? edit->CaretLine() : EditorText::LinePlace{0, 0};
        return controls::TextPlace{place.line + 1, place.offset + 1};
    };
    ShowFont();
    if (widget.isVisible())
        Fill();
}

TextAdapter::~TextAdapter() {
    model_.Text();
}

bool TextAdapter::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &widget_ && event->type() == QEvent::Show && stale_)
        Fill();
    return false;
}

void TextAdapter::ContentReplaced() {
    stale_ = true;
    if (widget_.isVisible())
        Fill();
}

void TextAdapter::Fill() {
    stale_ = false;
    widget_.Fill(model_.Text());
    widget_.setReadOnly(model_.Locked);
    ShowSelection();
    widget_.ShowSelectionHigh();
}

void TextAdapter::ShowSelection() {
    if (IsFilled())
        widget_.Select(model_.SelStart(), model_.SelLength());
}

void TextAdapter::ShowFont() {
    QFont font(model_.FontName());
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(model_.FontSize());
    widget_.setFont(font);
    widget_.setTabStopDistance(4 * QFontMetricsF(font).horizontalAdvance(QLatin1Char(' ')));
}

void TextAdapter::UserSelected() {
    model_.UserSelected(widget_.SelectionStart(), widget_.SelectionLength());
}
