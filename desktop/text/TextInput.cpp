// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextInput.h"
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

// The row of the caret is what an input method counts in: a line may have any length.
text::LongText::Row CaretRow(const TextState& state) {
    return state.Text().row(state.Text().rowOf(state.caret));
}

TextState::Preedit Composed(const TextParts& parts, const QInputMethodEvent& event) {
    TextState::Preedit preedit{
        event.preeditString(), static_cast<int>(event.preeditString().size()), true, {}};
    for (const QInputMethodEvent::Attribute& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::TextFormat) {
            preedit.formats.push_back(Underlined(attribute));
        } else if (attribute.type == QInputMethodEvent::Cursor) {
            preedit.caret = std::clamp(attribute.start, 0, static_cast<int>(preedit.text.size()));
            preedit.caretShown = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::Selection) {
            const qsizetype start = CaretRow(parts.state).start + attribute.start;
            parts.caret.Select(start, start + attribute.length);
        }
    }
    return preedit;
}

} // namespace

bool TakeInput(const TextParts& parts, const QInputMethodEvent& event) {
    TextState& state = parts.state;
    if (state.model->Locked)
        return false;
    state.preedit.reset();
    state.model->EndMark();
    if (event.replacementLength() > 0) {
        const qsizetype start = std::max<qsizetype>(state.caret + event.replacementStart(), 0);
        parts.editing.Replace({start, start + event.replacementLength()}, {});
    }
    if (!event.commitString().isEmpty())
        parts.editing.Type(event.commitString());
    if (!event.preeditString().isEmpty())
        parts.editing.Replace(state.Selection(), {}); // what is composed stands instead of the selection
    TextState::Preedit preedit = Composed(parts, event);
    if (!preedit.text.isEmpty())
        state.preedit = std::move(preedit);
    parts.caret.UpdateRow();
    parts.places.Show(state.caret);
    return true;
}

std::optional<QVariant> AnswerInput(const QAbstractScrollArea& area, const TextState& state,
                                    const TextPlaces& places, Qt::InputMethodQuery query) {
    const text::LongText& text = state.Text();
    const text::LongText::Row row = CaretRow(state);
    const auto cut = [&](qsizetype position) {
        return static_cast<int>(std::clamp<qsizetype>(position - row.start, 0, row.length));
    };
    const auto rectangle = [&](qsizetype position) {
        return places.RectAt(position).translated(area.viewport()->pos());
    };
    switch (query) {
    case Qt::ImEnabled:
        return !state.model->Locked;
    case Qt::ImCursorRectangle:
        return rectangle(state.caret);
    case Qt::ImAnchorRectangle:
        return rectangle(state.anchor);
    case Qt::ImFont:
        return places.Font().font;
    case Qt::ImCursorPosition:
        return cut(state.caret);
    case Qt::ImAnchorPosition:
        return cut(state.anchor);
    case Qt::ImAbsolutePosition:
        return static_cast<qlonglong>(state.caret);
    case Qt::ImSurroundingText:
        return text.mid(row.start, row.length);
    case Qt::ImTextBeforeCursor:
        return text.mid(std::max<qsizetype>(state.caret - kSurrounding, 0),
                        std::min(state.caret, kSurrounding));
    case Qt::ImTextAfterCursor:
        return text.mid(state.caret, kSurrounding);
    case Qt::ImCurrentSelection:
        return text.mid(row.start + cut(state.Selection().start),
                        cut(state.Selection().end) - cut(state.Selection().start));
    case Qt::ImHints:
        return static_cast<int>(area.inputMethodHints());
    default:
        return std::nullopt;
    }
}

} // namespace desktop
