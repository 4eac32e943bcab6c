// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/Undo.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "platform/controls/ColourRuns.h"
#include "platform/text/TextTools.h"
#include "textview/fill/Colour.h"
#include "textview/fill/FillText.h"
#include <QScopedValueRollback>

namespace {

using controls::RichTextBox;

enum class Way { Back, Again };

/// One side of a step.
struct Side {
    qsizetype position;
    const QString& text;
    std::vector<controls::ColourRun>& colours;
};

// A text that was loaded past the history may lack what the step would take away: other text must not go in
// its place. What goes keeps its colours for the way back.
void Exchange(Application& app, RichTextBox& pane, const Side& take, const Side& put) {
    if (pane.Long().mid(take.position, take.text.size()) != take.text)
        return;
    if (take.text.size() > mXMLEdit::kLongestColoured)
        take.colours = controls::RunsOf(pane.Runs(), take.position, take.text.size());
    RDelete(pane, take.position, take.text);
    RInsert(app, pane, put.position, put.text, put.colours);
}

void ApplyToText(DocumentWindow& window, UndoRecord& record, Way way) {
    const QScopedValueRollback ownWriting(window.bControlChange, true);
    const Side deleted{record.DelPos, record.DelText, record.DelColours},
        inserted{record.InsPos, record.InsText, record.InsColours};
    for (RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2}) {
        if (record.WholeText)
            pane->SetContent(way == Way::Back ? *record.OldRTF : *record.NewRTF);
        else if (way == Way::Back)
            Exchange(window.app, *pane, inserted, deleted);
        else
            Exchange(window.app, *pane, deleted, inserted);
    }
}

// A text on the way between two states that parse often doesn't: the status bar tells, a box at each step
// would not be wanted.
ParsedRoot BuildTree(DocumentWindow& window) {
    const text::LongText text = window.TextInUse().Long();
    window.bQuietParse = true;
    ParsedRoot root = XMLToTree(window, text, 0);
    window.bTextChanged = false;
    window.msLastParsedText = window.TextInUse().Long();
    return root;
}

// Step back or again; the node that was current stays so where it still exists.
void TakeStep(DocumentWindow& window, Way way) {
    const QString path = text::Trim(window.txtXPath.Text());
    const QScopedValueRollback running(window.bUndoRunning, true);
    const PaneSelections selections(window);
    const int index = way == Way::Back ? window.UndoPos - 1 : window.UndoPos;
    UndoRecord record = window.undoStack[static_cast<std::size_t>(index)];
    ApplyToText(window, record, way);
    window.undoStack[static_cast<std::size_t>(index)] = std::move(record);
    window.bTextChanged = true;
    window.UndoPos += way == Way::Back ? -1 : 1;
    SetUndoRedoMenuToolBar(window);
    const ParsedRoot root = BuildTree(window);
    if (window.tbsXML.SelectedKey() == QStringLiteral("browserview"))
        tbsXML_Click(window);
    selections.restore();
    if (window.tbsXML.SelectedKey() == QStringLiteral("textview"))
        ShowCursorPosition(window); // a text that doesn't parse has shown the place of its error
    if (root.document && !path.isEmpty())
        SelectTreeNodeByXPath(window, *root.document, path);
}

} // namespace

void RInsert(Application& app, RichTextBox& richText, qsizetype position, const QString& text,
             const std::vector<controls::ColourRun>& colours) {
    if (text.isEmpty())
        return;
    richText.SetSelStart(position);
    richText.SetSelLength(0);
    if (text.size() > mXMLEdit::kLongestColoured)
        richText.SetSelContent(text, colours);
    else
        richText.SetSelText(text);
    richText.SetSelStart(position);
    richText.SetSelLength(text.size());
    mXMLEdit::SetSeltextColor(app, richText);
}

void RDelete(RichTextBox& richText, qsizetype position, const QString& text) {
    if (text.isEmpty())
        return;
    richText.SetSelStart(position);
    richText.SetSelLength(text.size());
    richText.SetSelText({});
}

void rUndo(DocumentWindow& window) try {
    DoTree(window);
    if (window.UndoPos > 0)
        TakeStep(window, Way::Back);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".rUndo"));
}

void rRedo(DocumentWindow& window) try {
    DoTree(window);
    if (window.UndoPos < static_cast<int>(window.undoStack.size()))
        TakeStep(window, Way::Again);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".rRedo"));
}
