// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextEvents.h"
#include "core/model/Frame.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "textview/Indent.h"
#include "textview/TextCommands.h"
#include "textview/Undo.h"
#include "textview/fill/Colour.h"
#include "textview/fill/FillText.h"

namespace {

using controls::RichTextBox;

constexpr int kSwallowed = 0;
constexpr int kDone = 1;

RichTextBox& Pane(DocumentWindow& window, bool second) {
    return second ? window.rtxtXML2 : window.rtxtXML;
}

bool Holds(int modifiers, Qt::KeyboardModifier modifier) {
    return (modifiers & static_cast<int>(modifier)) != 0;
}

void RunMenuCommand(DocumentWindow& window, const char* entry) {
    if (window.app.frame)
        window.app.frame->RunMenuCommand(QLatin1String(entry));
}

// --- keys with Ctrl ----------------------------------------------------------------------------------------

void CopyText(DocumentWindow& window) {
    RunMenuCommand(window, "mnuEditCopy");
}
void CutText(DocumentWindow& window) {
    RunMenuCommand(window, "mnuEditCut");
}
void PasteText(DocumentWindow& window) {
    RunMenuCommand(window, "mnuEditPaste");
}
void EditNode(DocumentWindow& window) {
    RunMenuCommand(window, "mnuEditPopupEditNode");
}
void GoToStart(DocumentWindow& window) {
    window.TextInUse().SetSelStart(0);
}
void GoToEnd(DocumentWindow& window) {
    window.TextInUse().SetSelStart(window.TextInUse().Long().size());
}

struct ControlKey {
    int key;
    bool withShift; ///< with Shift, too: where it means nothing else to a text
    void (*run)(DocumentWindow&);
};
constexpr ControlKey kControlKeys[] = {
    {Qt::Key_A, true, SelectAllAtTextView},
    {Qt::Key_C, true, CopyText},
    {Qt::Key_X, true, CutText},
    {Qt::Key_V, true, PasteText},
    {Qt::Key_F, true, RFind},
    {Qt::Key_Z, true, rUndo},
    {Qt::Key_Y, true, rRedo},
    {Qt::Key_Home, false, GoToStart},
    {Qt::Key_End, false, GoToEnd},
    {Qt::Key_Insert, true, EditNode},
};

bool RunControlKey(DocumentWindow& window, int key, bool shift) {
    for (const ControlKey& one : kControlKeys) {
        if (one.key == key && (one.withShift || !shift)) {
            one.run(window);
            return true;
        }
    }
    return false;
}

// --- the caret ---------------------------------------------------------------------------------------------

bool IsArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

// The caret has left or entered a tag when it passed over a "<" or ">".
bool PassesTagBorder(const text::LongText& text, qsizetype from, qsizetype to) {
    bool passes = false;
    text.visit(std::min(from, to), std::abs(to - from), [&](QStringView piece) {
        passes = piece.contains(u'<') || piece.contains(u'>');
        return !passes;
    });
    return passes;
}

// The path of the current node follows.
void FollowCaretInTree(DocumentWindow& window) {
    const controls::TreeNode before = window.tvXML.SelectedItem();
    SelectNodeAtCaret(window);
    if (window.app.frame && window.tvXML.SelectedItem() != before)
        ShowNodePath(window, window.app.frame->StatusBar1());
}

} // namespace

void PaneKeyDown(DocumentWindow& window, bool second, int& key, int modifiers) {
    RichTextBox& pane = Pane(window, second);
    window.miPopupContext = kContextText;
    SetTextStatus(pane, window.currentStatus);
    const bool shift = Holds(modifiers, Qt::ShiftModifier);
    const bool control = Holds(modifiers, Qt::ControlModifier) && !Holds(modifiers, Qt::AltModifier);
    if (!control && (key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
        if (shift || key == Qt::Key_Backtab)
            DecreaseIndent(pane);
        else
            RTabKey(pane);
        key = kSwallowed;
    } else if (control && RunControlKey(window, key, shift)) {
        key = kDone;
    }
}

void PaneKeyPress(DocumentWindow& window, bool second, const QString& text) {
    if (!text.isEmpty())
        ColourTypedKey(window, second, text.front().unicode());
}

void PaneKeyUp(DocumentWindow& window, bool second, int key, int) {
    const RichTextBox& pane = Pane(window, second);
    const qsizetype before = window.currentStatus.SelStart;
    SetTextStatus(pane, window.currentStatus);
    if (IsArrow(key) && PassesTagBorder(pane.Long(), before, pane.SelStart()))
        FollowCaretInTree(window);
    ShowCursorPosition(window);
}

void PaneMouseUp(DocumentWindow& window, bool second) {
    SetTextStatus(Pane(window, second), window.currentStatus);
    ShowSelection(window);
}

void PaneClick(DocumentWindow& window, bool second) {
    window.miPopupContext = kContextText;
    SetTextStatus(Pane(window, second), window.currentStatus);
    FollowCaretInTree(window);
    ShowCursorPosition(window);
}

void PaneDragOver(DocumentWindow& window, bool second, double x, double y) {
    RichTextBox& pane = Pane(window, second);
    RichTextBox aside; // the place of the pointer, while the pane keeps the selection that is dragged
    if (pane.DragsSelection)
        aside.SetText(pane.Long());
    RichTextBox& shown = pane.DragsSelection ? aside : pane;
    shown.SetSelStart(rtGetCharFromPos(pane, x, y));
    ShowCursorPosition(window, shown);
}

void PanePasted(DocumentWindow& window, bool second, qsizetype start, qsizetype length) {
    ColourInserted(window, Pane(window, second), start, length);
}

void PaneSelChange(DocumentWindow& window, bool second, bool wasSelected) {
    if (window.bControlChange || window.brtxtXML2Focus != second || window.miPopupContext != kContextText)
        return;
    if (wasSelected != (Pane(window, second).SelLength() > 0))
        ShowSelection(window);
}

// What is dropped goes into a pane that doesn't have the keys yet.
void PaneBeforeChange(DocumentWindow& window, bool second) {
    if (window.bControlChange)
        return;
    window.brtxtXML2Focus = second;
    SetTextStatus(Pane(window, second), window.currentStatus);
}

void PaneChange(DocumentWindow& window, bool second) {
    if (window.brtxtXML2Focus != second)
        return;
    const RichTextBox& pane = Pane(window, second);
    window.miTextSizeLevel = GetTextSizeLevel(pane.Long().size());
    if (window.bControlChange) {
        SetTextStatus(pane, window.currentStatus);
        return;
    }
    if (second)
        RecordTextChange2(window);
    else
        RecordTextChange(window);
    if (window.bLoaded)
        window.bTextChanged = true;
    ShowCursorPosition(window);
}
