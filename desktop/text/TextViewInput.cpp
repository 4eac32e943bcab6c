// SPDX-License-Identifier: GPL-3.0-or-later
// Input methods: text that is composed before it goes in.
#include "desktop/text/TextView.h"
#include <QInputMethodEvent>

namespace desktop {

namespace {

/// The text before and behind the caret that an input method may look at.
constexpr qsizetype kSurrounding = 1000;

QTextLayout::FormatRange Underlined(const QInputMethodEvent::Attribute& attribute) {
    QTextLayout::FormatRange range{attribute.start, attribute.length, {}};
    range.format = qvariant_cast<QTextFormat>(attribute.value).toCharFormat();
    return range;
}

} // namespace

void TextView::inputMethodEvent(QInputMethodEvent* event) {
    if (model_->Locked)
        return event->ignore();
    preedit_.reset();
    if (event->replacementLength() > 0) {
        const qsizetype start = caret_ + event->replacementStart();
        Replace({std::max<qsizetype>(start, 0), std::max<qsizetype>(start, 0) + event->replacementLength()},
                {});
    }
    if (!event->commitString().isEmpty())
        TypeText(event->commitString());
    if (!event->preeditString().isEmpty())
        Replace(Selection(), {}); // what is composed stands instead of the selection
    Preedit preedit{event->preeditString(), static_cast<int>(event->preeditString().size()), true, {}};
    for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::TextFormat) {
            preedit.formats.push_back(Underlined(attribute));
        } else if (attribute.type == QInputMethodEvent::Cursor) {
            preedit.caret = std::clamp(attribute.start, 0, static_cast<int>(preedit.text.size()));
            preedit.caretShown = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::Selection) {
            const qsizetype row = Text().row(Text().rowOf(caret_)).start;
            Select(row + attribute.start, row + attribute.start + attribute.length);
        }
    }
    if (!preedit.text.isEmpty())
        preedit_ = std::move(preedit);
    UpdateCaretRow();
    ShowCaret();
    updateMicroFocus();
    event->accept();
}

// The surroundings are those of the caret's row: the widget's documents have lines of any length.
QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    const text::LongText::Row row = Text().row(Text().rowOf(caret_));
    const auto cut = [&](qsizetype position) {
        return static_cast<int>(std::clamp<qsizetype>(position - row.start, 0, row.length));
    };
    switch (query) {
    case Qt::ImEnabled:
        return !model_->Locked;
    case Qt::ImCursorRectangle:
        return RectAt(caret_).translated(viewport()->pos());
    case Qt::ImAnchorRectangle:
        return RectAt(anchor_).translated(viewport()->pos());
    case Qt::ImFont:
        return rows_.Font().font;
    case Qt::ImCursorPosition:
        return cut(caret_);
    case Qt::ImAnchorPosition:
        return cut(anchor_);
    case Qt::ImAbsolutePosition:
        return static_cast<qlonglong>(caret_);
    case Qt::ImSurroundingText:
        return Text().mid(row.start, row.length);
    case Qt::ImTextBeforeCursor:
        return Text().mid(std::max<qsizetype>(caret_ - kSurrounding, 0), std::min(caret_, kSurrounding));
    case Qt::ImTextAfterCursor:
        return Text().mid(caret_, kSurrounding);
    case Qt::ImCurrentSelection:
        return Text().mid(row.start + cut(Selection().start), cut(Selection().end) - cut(Selection().start));
    case Qt::ImHints:
        return static_cast<int>(inputMethodHints());
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace desktop
