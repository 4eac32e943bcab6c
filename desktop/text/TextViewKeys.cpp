// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/TextMime.h"
#include "desktop/text/TextView.h"
#include "platform/text/TextTools.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace desktop {

namespace {

bool IsTyped(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (event.text().isEmpty() || held == Qt::ControlModifier || held == Qt::AltModifier ||
        held == Qt::MetaModifier)
        return false;
    const QChar first = event.text().at(0);
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse || first == u'\t';
}

} // namespace

// --- dispatch ----------------------------------------------------------------------------------------------

// What the editor does with a key it does before the menus: they must not take its keys away.
bool TextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && ActFor(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void TextView::keyPressEvent(QKeyEvent* event) {
    const Act act = ActFor(*event);
    event->setAccepted(static_cast<bool>(act));
    if (act)
        act();
}

TextView::Act TextView::ActFor(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy))
        return [this] { Copy(); };
    if (event.matches(QKeySequence::SelectAll))
        return [this] { SelectAll(); };
    if (event.key() == Qt::Key_0 && event.modifiers() == Qt::ControlModifier)
        return [this] { Zoom(0); };
    Act act = MoveFor(event);
    if (!act && !model_->Locked)
        act = EditFor(event);
    return act;
}

// --- moving ------------------------------------------------------------------------------------------------

TextView::Act TextView::MoveFor(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool shift = held.testFlag(Qt::ShiftModifier), word = held.testFlag(Qt::ControlModifier);
    if ((held & ~(Qt::ShiftModifier | Qt::ControlModifier)) != 0)
        return {};
    const auto to = [this, shift](qsizetype position) {
        return shift ? Act([this, position] { MoveTo(position, true); })
                     : Act([this, position] { MoveTo(position, false); });
    };
    const auto rows = [this, shift](qsizetype count) {
        return shift ? Act([this, count] { MoveRows(count, true); })
                     : Act([this, count] { MoveRows(count, false); });
    };
    const auto scroll = [this](qsizetype count) { return Act([this, count] { ScrollRows(count); }); };
    const TextRange selection = Selection();
    const bool collapses = !shift && !word && selection.start < selection.end;
    const qsizetype page = std::max<qsizetype>(RowsShown() - 1, 1);
    switch (event.key()) {
    case Qt::Key_Left:
        return to(collapses ? selection.start
                  : word    ? PreviousWord(Text(), caret_)
                            : PreviousPlace(Text(), caret_));
    case Qt::Key_Right:
        return to(collapses ? selection.end : word ? NextWord(Text(), caret_) : NextPlace(Text(), caret_));
    case Qt::Key_Home:
        return to(word ? 0 : Text().row(Text().rowOf(caret_)).start);
    case Qt::Key_End:
        return to(word ? Text().size() : RowEnd(caret_));
    case Qt::Key_Up:
        return word ? scroll(-1) : rows(-1);
    case Qt::Key_Down:
        return word ? scroll(1) : rows(1);
    case Qt::Key_PageUp:
        return word ? Act{} : rows(-page);
    case Qt::Key_PageDown:
        return word ? Act{} : rows(page);
    default:
        return {};
    }
}

void TextView::MoveTo(qsizetype position, bool select) {
    Select(select ? anchor_ : position, position);
    PublishSelection();
}

// Up and down aim at where the first of them started, over shorter rows too. A page scrolls the view along.
void TextView::MoveRows(qsizetype rows, bool select) {
    const double wanted = wantedX_.value_or(XAt(caret_));
    const bool page = std::abs(rows) > 1;
    const qsizetype row = Text().rowOf(caret_) + rows, lastRow = Text().rowCount() - 1;
    qsizetype target = PositionInRow(std::clamp<qsizetype>(row, 0, lastRow), wanted);
    if (page && (row < 0 || row > lastRow))
        target = row < 0 ? 0 : Text().size();
    if (page)
        ScrollRows(rows);
    MoveTo(target, select);
    wantedX_ = wanted;
}

qsizetype TextView::RowEnd(qsizetype position) const {
    const qsizetype number = Text().rowOf(position);
    const text::LongText::Row row = Text().row(number);
    const bool goesOn = row.lineEnd == 0 && number + 1 < Text().rowCount();
    return goesOn ? PreviousPlace(Text(), row.start + row.length) : row.start + row.length;
}

void TextView::SelectAll() {
    high_ = false; // the view stays where it is
    if (caret_ != Text().size() || anchor_ != 0) {
        PlaceCaret(0, Text().size());
        model_->UserSelected(0, Text().size());
    }
    PublishSelection();
}

// --- editing -----------------------------------------------------------------------------------------------

TextView::Act TextView::EditFor(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Cut))
        return [this] { Cut(); };
    if (event.matches(QKeySequence::Paste))
        return [this] { Paste(); };
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const bool plain = held == Qt::NoModifier, word = held == Qt::ControlModifier;
    switch (event.key()) {
    case Qt::Key_Backspace:
        if (word || plain)
            return [this, word] { DeleteTo(word ? PreviousWord : PreviousPlace); };
        return {};
    case Qt::Key_Delete:
        if (word || plain)
            return [this, word] { DeleteTo(word ? NextWord : NextPlace); };
        return {};
    case Qt::Key_Insert:
        if (event.modifiers() != Qt::NoModifier)
            return {};
        return [this] {
            overwrite_ = !overwrite_;
            UpdateCaretRow();
        };
    // With Shift too: a line separator would be a character like any other in a document.
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return plain ? Act([this] { EnterText(QStringLiteral("\r")); }) : Act{};
    default:
        if (!IsTyped(event))
            return {};
        return [this, text = event.text()] { TypeText(text); };
    }
}

void TextView::Replace(TextRange range, const QString& text) {
    if (model_->Locked || (range.start == range.end && text.isEmpty()))
        return;
    const QScopedValueRollback editing(editing_, true);
    preedit_.reset();
    model_->UserReplaced(range.start, range.end - range.start, text::ToCrLf(text));
    FollowSelection();
}

/// A text from elsewhere. An empty one replaces nothing.
void TextView::PutIn(TextRange range, const QString& text) {
    if (text.isEmpty())
        return;
    Replace(range, text);
    if (!model_->Locked && caret_ > range.start)
        model_->Pasted(range.start, caret_ - range.start);
}

void TextView::DeleteTo(qsizetype (*step)(const text::LongText&, qsizetype)) {
    TextRange range = Selection();
    if (range.start == range.end) {
        const qsizetype other = step(Text(), caret_);
        range = {std::min(caret_, other), std::max(caret_, other)};
    }
    Replace(range, {});
}

void TextView::EnterText(const QString& text) {
    model_->KeyPress(text);
    Replace(Selection(), text);
}

void TextView::TypeText(const QString& text) {
    if (model_->Locked)
        return;
    model_->KeyPress(text);
    TextRange range = Selection();
    if (overwrite_ && range.start == range.end && range.end < RowEnd(range.end))
        range.end = NextPlace(Text(), range.end);
    Replace(range, text);
    // The model has told the colour of the first character: several at once are coloured like a pasted text.
    if (text.size() > 1 && caret_ > range.start)
        model_->Pasted(range.start, caret_ - range.start);
}

// --- clipboard ---------------------------------------------------------------------------------------------

void TextView::Cut() {
    Copy();
    Replace(Selection(), {});
}

void TextView::Copy() const {
    const TextRange range = Selection();
    if (range.start < range.end)
        QGuiApplication::clipboard()->setText(SelectedText(u"\n"));
}

void TextView::Paste() {
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    if (mime && IsTextMime(*mime))
        PutIn(Selection(), mime->text());
}

} // namespace desktop
