// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextAccessible.h"
#include "desktop/text/TextSteps.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QScrollBar>
#include <limits>

namespace desktop {

namespace {

// Assistive programs count in int.
int ToInt(qsizetype number) {
    return static_cast<int>(std::clamp<qsizetype>(number, -1, std::numeric_limits<int>::max()));
}

class AccessibleText : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
public:
    AccessibleText(QWidget& view, const TextParts& parts)
        : QAccessibleWidget(&view, QAccessible::EditableText), parts_(parts) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = true;
        state.editable = !parts_.state.model->Locked;
        state.readOnly = parts_.state.model->Locked;
        return state;
    }

    // --- text
    int characterCount() const override { return ToInt(Text().size()); }
    QString text(int start, int end) const override { return Text().mid(start, end - start); }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? Text().toString() : QAccessibleWidget::text(which);
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                         int* end) const override {
        return Give(Piece(offset, type), start, end);
    }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                             int* end) const override {
        const TextRange here = Piece(offset, type);
        return Give(here.start > 0 ? Piece(here.start - 1, type) : TextRange{0, 0}, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                            int* end) const override {
        const TextRange here = Piece(offset, type);
        return Give(here.end < Text().size() ? Piece(here.end, type) : TextRange{here.end, here.end}, start,
                    end);
    }
    QString attributes(int offset, int* start, int* end) const override {
        Give(Piece(offset, QAccessible::LineBoundary), start, end);
        return {};
    }

    // --- caret and selection
    int cursorPosition() const override { return ToInt(parts_.state.caret); }
    void setCursorPosition(int position) override { parts_.caret.Select(position, position); }
    int selectionCount() const override { return parts_.state.caret != parts_.state.anchor ? 1 : 0; }
    void selection(int index, int* start, int* end) const override {
        const TextRange range = index == 0 ? parts_.state.Selection() : TextRange{0, 0};
        *start = ToInt(range.start);
        *end = ToInt(range.end);
    }
    void addSelection(int start, int end) override { parts_.caret.Select(start, end); }
    void removeSelection(int) override { parts_.caret.Select(parts_.state.caret, parts_.state.caret); }
    void setSelection(int, int start, int end) override { parts_.caret.Select(start, end); }

    // --- places
    QRect characterRect(int offset) const override {
        const qsizetype place = Place(offset);
        const QRect here = parts_.places.RectAt(place), next = parts_.places.RectAt(NextPlace(Text(), place));
        const QRect whole = here.top() == next.top() ? here.united(next.translated(-1, 0)) : here;
        return {parts_.area.viewport()->mapToGlobal(whole.topLeft()), whole.size()};
    }
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint place = parts_.area.viewport()->mapFromGlobal(point);
        return parts_.area.viewport()->rect().contains(place) ? ToInt(parts_.places.PositionAt(place)) : -1;
    }
    void scrollToSubstring(int start, int) override {
        parts_.area.verticalScrollBar()->setValue(ToInt(Text().rowOf(Place(start))));
    }

    // --- editing
    void deleteText(int start, int end) override { parts_.editing.Replace({start, end}, {}); }
    void insertText(int offset, const QString& text) override {
        parts_.editing.Replace({offset, offset}, text);
    }
    void replaceText(int start, int end, const QString& text) override {
        parts_.editing.Replace({start, end}, text);
    }

private:
    const text::LongText& Text() const { return parts_.Text(); }
    QString Give(TextRange range, int* start, int* end) const {
        *start = ToInt(range.start);
        *end = ToInt(range.end);
        return Text().mid(range.start, range.end - range.start);
    }
    /// -1 stands for the text's end, -2 for the caret.
    qsizetype Place(qsizetype offset) const {
        return offset == -2 ? parts_.state.caret
               : offset < 0 ? Text().size()
                            : std::min(offset, Text().size());
    }
    // Looks at no more than the row, but for a whole text that is asked for.
    TextRange Piece(qsizetype asked, QAccessible::TextBoundaryType type) const {
        const qsizetype offset = Place(asked);
        switch (type) {
        case QAccessible::CharBoundary:
            return {offset, NextPlace(Text(), offset)};
        case QAccessible::WordBoundary:
            return WordAt(Text(), offset);
        case QAccessible::NoBoundary:
            return {0, Text().size()};
        default: {
            const text::LongText::Row row = Text().row(Text().rowOf(offset));
            return {row.start, row.start + row.length + row.lineEnd};
        }
        }
    }

    const TextParts parts_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* source = dynamic_cast<AccessibleSource*>(object);
    if (!source)
        return nullptr;
    return new AccessibleText(*static_cast<QWidget*>(object), source->Parts()); // the framework owns it
}

} // namespace

void InstallTextAccessibility() {
    QAccessible::installFactory(Make); // one that is known already is not installed again
}

void TellTextChanged(QWidget& view) {
    if (!QAccessible::isActive())
        return;
    QAccessibleTextUpdateEvent event(&view, 0, QString(), QString());
    QAccessible::updateAccessibility(&event);
}

// What was removed is gone when this is told: blanks stand for it.
void TellReplaced(QWidget& view, qsizetype at, qsizetype removed, const QString& text) {
    if (!QAccessible::isActive())
        return;
    if (removed > 0) {
        QAccessibleTextRemoveEvent event(&view, ToInt(at), QString(removed, u' '));
        QAccessible::updateAccessibility(&event);
    }
    if (!text.isEmpty()) {
        QAccessibleTextInsertEvent event(&view, ToInt(at), text);
        QAccessible::updateAccessibility(&event);
    }
}

void TellSelection(QWidget& view, const TextState& state) {
    if (!QAccessible::isActive())
        return;
    const TextRange range = state.Selection();
    QAccessibleTextSelectionEvent event(&view, ToInt(range.start), ToInt(range.end));
    event.setCursorPosition(ToInt(state.caret));
    QAccessible::updateAccessibility(&event);
}

} // namespace desktop
