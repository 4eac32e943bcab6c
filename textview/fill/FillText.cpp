// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/fill/FillText.h"
#include <QScopedValueRollback>

namespace {

struct Selection {
    explicit Selection(const controls::RichTextBox& pane)
        : start(pane.SelStart()), length(pane.SelLength()) {}
    void restore(controls::RichTextBox& pane) const {
        pane.SetSelStart(start);
        pane.SetSelLength(length);
    }
    qsizetype start, length;
};

controls::RichTextBox& OtherPane(DocumentWindow& window) {
    return window.brtxtXML2Focus ? window.rtxtXML : window.rtxtXML2;
}

} // namespace

void SetRichText(DocumentWindow& window, const QString& text) {
    const QScopedValueRollback ownWriting(window.bControlChange, true);
    window.TextInUse().SetText(text);
    window.miTextSizeLevel = GetTextSizeLevel(text.size());
    SetTreeXMLColor(window);
}

void SetTreeXMLColor(DocumentWindow& window) {
    OtherPane(window).SetTextRTF(window.TextInUse().TextRTF());
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

void ChangeText(DocumentWindow& window, const QString& newText, const controls::RichContent& oldRTF) {
    const int steps = window.app.options.Steps;
    if (window.UndoPos >= steps && !window.undoStack.empty()) {
        ArrangeUndoStack(window.undoStack);
        window.UndoPos = steps;
    }
    window.undoStack.resize(static_cast<std::size_t>(window.UndoPos) + 1);
    UndoRecord& record = window.undoStack.back();
    record = {};
    record.WholeText = true;
    record.OldRTF = oldRTF;

    const QScopedValueRollback ownWriting(window.bControlChange, true);
    const Selection first(window.rtxtXML);
    const Selection second(window.rtxtXML2);
    window.TextInUse().SetText(newText);
    SetTreeXMLColor(window);
    record.NewRTF = window.TextInUse().TextRTF();
    first.restore(window.rtxtXML);
    second.restore(window.rtxtXML2);
    ++window.UndoPos;
}

void ArrangeUndoStack(std::vector<UndoRecord>& stack) {
    if (!stack.empty())
        stack.erase(stack.begin());
}
