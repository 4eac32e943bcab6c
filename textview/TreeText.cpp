// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TreeText.h"
#include "core/edit/Rewriting.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/NodeNumbers.h"
#include "platform/text/TextTools.h"
#include "textview/FillText.h"
#include "textview/History.h"
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace textview {

namespace {

using controls::TreeNode;
using text::LongText;

// --- text to tree ------------------------------------------------------------------------------------------

// A window without a document gets the default tree. That is no change of the user's that the text lacks.
void SeeToDefaultTree(DocumentWindow& window) {
    if (window.tvXML.Nodes.Count() < 2) {
        window.kind.newTree(window, true);
        window.bond.passTree(window.tvXML.Revision());
    }
    TreeNode root = window.tvXML.Nodes(1);
    if (root.Text() != window.app.CurrentFileName)
        root.SetText(window.app.CurrentFileName);
}

// The report tells the place in the document; the blanks that the view shows beside that move it.
std::optional<xml::ParseError> ErrorAsShown(const DocumentWindow& window, const mXMLEdit::Parsed& parsed) {
    std::optional<xml::ParseError> error = parsed.error();
    const controls::RichTextBox& pane = window.rtxtXML;
    if (!error || error->filepos <= 0 || pane.Fillers().empty())
        return error;
    const qsizetype place = pane.ShownPlace(error->filepos - 1);
    error->filepos = static_cast<int>(place + 1);
    error->linepos = static_cast<int>(place - pane.Long().lineStart(pane.Long().lineOf(place)) + 1);
    return error;
}

// The bad text is shown as it came, the tree stays.
void ShowBadText(DocumentWindow& window, const LongText& text, const mXMLEdit::Parsed& parsed) {
    SeeToDefaultTree(window);
    if (window.rtxtXML.Long().isEmpty()) {
        const QScopedValueRollback ownWriting(StateOf(window).bControlChange, true);
        window.rtxtXML.SetText(text);
        window.rtxtXML2.SetText(text);
        SetTreeXMLColor(window);
    }
    edit::ShowView(window, edit::kTextTab);
    if (const auto error = ErrorAsShown(window, parsed))
        edit::Then(window, [&window, error = *error] { edit::PointToErrorPos(window.app, error); });
}

void SelectByNumber(DocumentWindow& window, long number) {
    TreeNode node =
        m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(window.app.CurrentFileName));
    window.tvXML.SetSelectedItem(node);
    if (node)
        node.SetExpanded(true);
}

void TakeDocument(DocumentWindow& window, const LongText& text, const xml::ParsedDocument& document,
                  long selectNumber, Afterwards afterwards) {
    const bool anew = afterwards == Afterwards::WriteAnew && edit::Shows(window, edit::kTextTab) &&
                      edit::MayRewrite(window, document.losses(), edit::EditOf::Text);
    window.kind.fillTree(window, document);
    window.bond.treeText = text;
    window.bond.textRead(window.tvXML.Revision(), document.losses());
    if (anew || window.rtxtXML.Long().isEmpty())
        TreeChangeTextView(window);
    SelectByNumber(window, selectNumber);
}

mXMLEdit::Parsed ReadText(DocumentWindow& window, const FetchedText& text, long selectNumber,
                          Afterwards afterwards, edit::Tone tone) {
    auto brokenOff = qScopeGuard([&window] { window.bond.move(BondMove::TextEdited); }); // to be read again
    window.bond.move(BondMove::TextRefused); // until it is in the tree
    if (text.text.holdsOnly(u" ")) {
        window.kind.newTree(window, false);
        window.bond.textRead(window.tvXML.Revision(), {});
        brokenOff.dismiss();
        return {};
    }
    mXMLEdit::Parsed parsed = edit::LoadXMLDocFromString(window.app, text, tone);
    if (parsed.good()) {
        TakeDocument(window, text.text, *parsed.document, selectNumber, afterwards);
        if (tone == edit::Tone::Box && window.kind.textRead) // a step of the history tells nothing
            window.kind.textRead(window);
    } else {
        ShowBadText(window, text.text, parsed);
    }
    brokenOff.dismiss();
    return parsed;
}

// --- tree to text ------------------------------------------------------------------------------------------

// A new document begins without a root element: that is no error to tell the user of (quirk 44).
bool IsJustBegun(const DocumentWindow& window) {
    return window.bond.msOpenText.isEmpty() && !m_tvXML::HaveElementNodeAtXMLRootLevel(window.tvXML);
}

void WriteTreeAsText(DocumentWindow& window) {
    controls::RichTextBox& target = window.TextInUse();
    if (window.tvXML.Nodes.Count() < 2) {
        ChangeText(window, {}, target.Content());
    } else if (!text::IsBlank(window.Caption)) {
        const LongText xml = StateOf(window).treeText.text(window.tvXML.Nodes(window.Caption),
                                                           QStringLiteral("\t"), target.Long());
        // The text is tried even where it will be taken anyway: status panel and last parse error tell how it
        // stands. With a large one that would hold up each command for a second or more: saving tries it.
        window.bond.untried = xml.size() > kTriedAtOnce || IsJustBegun(window);
        const bool valid = !window.bond.untried && edit::ValidateXML(window.app, xml, edit::Tone::Quiet);
        if ((valid || !xml.holdsOnly(u" ")) && !(target.Plain() == xml))
            ChangeText(window, xml, target.Content());
    }
    window.bond.msLastParsedText = window.bond.treeText = target.Plain(); // now the two say the same
}

// Undo brings the text back, from which the tree can't be made.
void KeepTreeOfStep(DocumentWindow& window, const LongText& tree) {
    TextState& state = StateOf(window);
    if (!state.bUndoRunning && state.UndoPos > 0)
        state.undoStack[static_cast<std::size_t>(state.UndoPos - 1)].treeBefore = tree;
}

void SayTextGaveWay(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(
        QStringLiteral("The text could not be read into the tree, and the tree has been changed since. "
                       "The text view now shows the document of the tree.\r\nUndo brings the text back."),
        services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace

mXMLEdit::Parsed XMLToTree(DocumentWindow& window, const FetchedText& text, long selectNumber,
                           Afterwards afterwards, edit::Tone tone) {
    return edit::Run(window, QStringLiteral("m_tvXML@XMLToTree"),
                     [&] { return ReadText(window, text, selectNumber, afterwards, tone); });
}

// A text that didn't parse gives way to the tree like any other. It holds work that the tree never got, so
// the user is told, once (quirk 30).
void TreeChangeTextView(DocumentWindow& window) {
    ++window.app.work.texts;
    Bond& bond = window.bond;
    const LongText before = window.TextInUse().Plain(), tree = bond.treeText;
    const bool unread = bond.refused() || (bond.bTextChanged() && !(before == bond.msLastParsedText));
    WriteTreeAsText(window);
    bond.textWritten();
    if (!unread || window.TextInUse().Plain() == before)
        return;
    KeepTreeOfStep(window, tree);
    SayTextGaveWay(window);
}

} // namespace textview
