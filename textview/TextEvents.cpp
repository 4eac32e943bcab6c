// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextEvents.h"
#include "core/edit/NodePath.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "textview/Colour.h"
#include "textview/FillText.h"
#include "textview/Indent.h"
#include "textview/RecordChange.h"
#include "textview/TextCommands.h"
#include "textview/TextLink.h"
#include "textview/Undo.h"

// What the events of a text pane do; `second` tells which pane raised one. Keys are Qt's, modifiers too.
namespace textview {

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
    window.app.frame().RunMenuCommand(QLatin1String(entry));
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
    void (*run)(DocumentWindow&);
    void (*withShift)(DocumentWindow&); ///< null: it means something else to a text
};
constexpr ControlKey kControlKeys[] = {
    {Qt::Key_A, SelectAllAtTextView, SelectAllAtTextView},
    {Qt::Key_C, CopyText, CopyText},
    {Qt::Key_X, CutText, CutText},
    {Qt::Key_V, PasteText, PasteText},
    {Qt::Key_F, RFind, RFind},
    {Qt::Key_Z, rUndo, rRedo},
    {Qt::Key_Y, rRedo, rRedo},
    {Qt::Key_Home, GoToStart, nullptr},
    {Qt::Key_End, GoToEnd, nullptr},
    {Qt::Key_Insert, CopyText, EditNode}, // quirk 53
};

bool RunControlKey(DocumentWindow& window, int key, bool shift) {
    for (const ControlKey& one : kControlKeys) {
        const auto run = shift ? one.withShift : one.run;
        if (one.key == key && run) {
            run(window);
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

// --- events ------------------------------------------------------------------------------------------------

void Pane_GotFocus(DocumentWindow& window, bool second) {
    edit::Run(window, second ? "rtxtXML2_GotFocus" : "rtxtXML_GotFocus", [&] {
        window.brtxtXML2Focus = second;
        edit::Attend(window, kContextText);
        BringTextUpToDate(window);
    });
}

void Pane_LostFocus(DocumentWindow& window, bool second) {
    if (window.brtxtXML2Focus == second)
        LeaveTextView(window);
}

// A key that the pane mustn't see any more becomes 0 (Tab) or 1 (a command with Ctrl).
void PaneKeyDown(DocumentWindow& window, bool second, int& key, int modifiers) {
    RichTextBox& pane = Pane(window, second);
    edit::Attend(window, kContextText);
    SetTextStatus(window, pane);
    const bool shift = Holds(modifiers, Qt::ShiftModifier);
    const bool control = Holds(modifiers, Qt::ControlModifier) && !Holds(modifiers, Qt::AltModifier);
    if (!control && (key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
        pane.EndMark();
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

void PaneKeyUp(DocumentWindow& window, bool second, int key) {
    const RichTextBox& pane = Pane(window, second);
    const qsizetype before = StateOf(window).currentStatus.SelStart;
    SetTextStatus(window, pane);
    if (IsArrow(key) && PassesTagBorder(pane.Long(), before, pane.SelStart()))
        SelectNodeAtCaret(window);
    edit::ShowCursorPosition(window);
}

void PaneMouseUp(DocumentWindow& window, bool second) {
    SetTextStatus(window, Pane(window, second));
    ShowSelection(window);
}

void PaneClick(DocumentWindow& window, bool second) {
    edit::Attend(window, kContextText);
    SetTextStatus(window, Pane(window, second));
    SelectNodeAtCaret(window);
    edit::ShowCursorPosition(window);
}

// The caret goes to the point (in twips) that text is dragged over, unless it is the pane's own selection
// that is dragged, which stays. The status bar tells the place.
void PaneDragOver(DocumentWindow& window, bool second, double x, double y) {
    RichTextBox& pane = Pane(window, second);
    RichTextBox aside; // the place of the pointer, while the pane keeps the selection that is dragged
    if (pane.DragsSelection)
        aside.SetText(pane.Long());
    RichTextBox& shown = pane.DragsSelection ? aside : pane;
    shown.SetSelStart(rtGetCharFromPos(pane, x, y));
    edit::ShowCursorPosition(window, shown);
}

void PaneSelChange(DocumentWindow& window, bool second, bool wasSelected) {
    if (StateOf(window).bControlChange || window.brtxtXML2Focus != second ||
        window.miPopupContext != kContextText)
        return;
    if (wasSelected != (Pane(window, second).SelLength() > 0))
        ShowSelection(window);
}

// What is dropped goes into a pane that doesn't have the keys yet.
void PaneBeforeChange(DocumentWindow& window, bool second) {
    if (StateOf(window).bControlChange)
        return;
    window.brtxtXML2Focus = second;
    SetTextStatus(window, Pane(window, second));
}

void PaneChange(DocumentWindow& window, bool second) {
    if (window.brtxtXML2Focus != second)
        return;
    const RichTextBox& pane = Pane(window, second);
    StateOf(window).miTextSizeLevel = GetTextSizeLevel(pane.Long().size());
    if (StateOf(window).bControlChange)
        return SetTextStatus(window, pane);
    if (second)
        RecordTextChange2(window);
    else
        RecordTextChange(window);
    if (window.bLoaded)
        window.bond.move(BondMove::TextEdited);
    edit::ShowCursorPosition(window);
}

} // namespace

void ConnectPane(DocumentWindow& window, RichTextBox& pane, bool second) {
    pane.BeforeChange.connect([&window, second] { PaneBeforeChange(window, second); });
    pane.Change.connect([&window, second] { PaneChange(window, second); });
    pane.GotFocus.connect([&window, second] { Pane_GotFocus(window, second); });
    pane.LostFocus.connect([&window, second] { Pane_LostFocus(window, second); });
    pane.KeyDown.connect(
        [&window, second](int& key, int modifiers) { PaneKeyDown(window, second, key, modifiers); });
    pane.KeyPress.connect([&window, second](const QString& text) { PaneKeyPress(window, second, text); });
    pane.KeyUp.connect([&window, second](int key, int) { PaneKeyUp(window, second, key); });
    pane.DragOver.connect([&window, second](double x, double y) { PaneDragOver(window, second, x, y); });
    pane.MouseUp.connect([&window, second] { PaneMouseUp(window, second); });
    pane.SelChange.connect(
        [&window, second](bool wasSelected) { PaneSelChange(window, second, wasSelected); });
    pane.Pasted.connect(
        [&window, &pane](qsizetype start, qsizetype length) { ColourInserted(window, pane, start, length); });
    pane.Click.connect([&window, second] { PaneClick(window, second); });
}

} // namespace textview
