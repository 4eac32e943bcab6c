// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/fill/FillText.h"
#include "core/model/Frame.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/fill/Colour.h"
#include <QScopedValueRollback>
#include <algorithm>

namespace {

controls::RichTextBox& OtherPane(DocumentWindow& window) {
    return window.brtxtXML2Focus ? window.rtxtXML : window.rtxtXML2;
}

} // namespace

PaneSelections::PaneSelections(DocumentWindow& window)
    : first_{window.rtxtXML, window.rtxtXML.SelStart(), window.rtxtXML.SelLength()},
      second_{window.rtxtXML2, window.rtxtXML2.SelStart(), window.rtxtXML2.SelLength()} {}

void PaneSelections::restore() const {
    for (const Selection& one : {first_, second_}) {
        one.pane.SetSelStart(one.start);
        one.pane.SetSelLength(one.length);
    }
}

void BringPanesTogether(DocumentWindow& window) {
    if (OtherPane(window).Long() == window.TextInUse().Long())
        return;
    const QScopedValueRollback ownWriting(window.bControlChange, true);
    OtherPane(window).SetContent(window.TextInUse().Content());
}

void SetRichText(DocumentWindow& window, const QString& text) {
    SetRichText(window, text::LongText(text::ToCrLf(text)));
}

void SetRichText(DocumentWindow& window, const text::LongText& text) {
    const QScopedValueRollback ownWriting(window.bControlChange, true);
    window.TextInUse().SetText(text);
    window.miTextSizeLevel = GetTextSizeLevel(text.size());
    SetTreeXMLColor(window);
}

void SetTreeXMLColor(DocumentWindow& window) {
    mXMLEdit::setRichTextXMLColor(window.app, window.TextInUse(), window.miTextSizeLevel);
    OtherPane(window).SetContent(window.TextInUse().Content());
}

void TakeColours(controls::RichTextBox& pane, const controls::RichTextBox& from) {
    if (pane.Runs() != from.Runs())
        pane.SetColours(0, pane.Long().size(), from.Runs());
}

// Coloured aside: in the pane each character would be selected for a moment, and be shown.
std::vector<controls::ColourRun> InsertedColours(Application& app, const QString& text,
                                                 std::uint32_t around) {
    // The colour of what stands before it says nothing about very many characters.
    if (text.size() > mXMLEdit::kLongestColoured)
        return {};
    controls::RichTextBox aside;
    aside.SetContent({text::LongText(text), {{0, around}}});
    aside.SetSelLength(text.size());
    mXMLEdit::SetSeltextColor(app, aside);
    return aside.Runs();
}

std::uint32_t ColourAround(const controls::RichTextBox& pane, qsizetype place, qsizetype behind) {
    return pane.ColourAt(place > 0 ? place - 1 : behind);
}

void ColourInserted(DocumentWindow& window, controls::RichTextBox& pane, qsizetype start, qsizetype length) {
    // No more of a long one than tells that it is too long.
    const QString text = pane.Long().mid(start, std::min(length, mXMLEdit::kLongestColoured + 1));
    const std::uint32_t around = ColourAround(pane, start, start + length);
    pane.SetColours(start, length, InsertedColours(window.app, text, around));
    controls::RichTextBox& other = &pane == &window.rtxtXML ? window.rtxtXML2 : window.rtxtXML;
    if (other.Long() == pane.Long())
        TakeColours(other, pane);
}

int GetTextSizeLevel(qsizetype length) {
    if (length > 81920 && length < 163840)
        return 1;
    if (length > 163840 && length < 409600)
        return 2;
    if (length > 409600)
        return 3;
    return 0;
}

void ChangeText(DocumentWindow& window, const text::LongText& newText, const controls::RichContent& oldRTF) {
    if (window.bUndoRunning)
        return;
    const int steps = std::max(window.app.options.Steps, 0); // the setting may be any number
    if (window.UndoPos > steps) {
        ArrangeUndoStack(window.undoStack, window.UndoPos - steps);
        window.UndoPos = steps;
    }
    window.undoStack.resize(static_cast<std::size_t>(window.UndoPos));
    UndoRecord record; // joins the stack when it is whole
    record.WholeText = true;
    record.OldRTF = std::make_shared<const controls::RichContent>(oldRTF);
    {
        const QScopedValueRollback ownWriting(window.bControlChange, true);
        const PaneSelections selections(window);
        window.TextInUse().SetText(newText);
        SetTreeXMLColor(window);
        record.NewRTF = std::make_shared<const controls::RichContent>(window.TextInUse().Content());
        selections.restore();
    }
    // Colouring may bring the text back to what it was: that is no step.
    if (!(record.NewRTF->text == oldRTF.text)) {
        window.undoStack.push_back(std::move(record));
        ++window.UndoPos;
    }
    SetUndoRedoMenuToolBar(window);
}

void ArrangeUndoStack(std::vector<UndoRecord>& stack, int lost) {
    stack.erase(stack.begin(), stack.begin() + std::min<std::ptrdiff_t>(lost, std::ssize(stack)));
}

void SetUndoRedoMenuToolBar(DocumentWindow& window) {
    Frame* frame = window.app.frame;
    if (frame && frame->ActiveForm() == &window)
        frame->SetUndoRedo(window.UndoPos > 0, window.UndoPos < static_cast<int>(window.undoStack.size()));
}
