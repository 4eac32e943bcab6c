// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TreeText.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/DomToTree.h"
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
        m_tvXML::AddTreeRoot(window.app, window.tvXML, true);
        window.bond.treeRevision = window.tvXML.Revision();
    }
    TreeNode root = window.tvXML.Nodes(1);
    if (root.Text() != window.app.CurrentFileName)
        root.SetText(window.app.CurrentFileName);
}

// The view's text may have blanks that the colouring put in: then the place is another one there.
xml::ParseError ErrorAsShown(const DocumentWindow& window, const LongText& text,
                             const xml::ParseError& error) {
    if (window.rtxtXML.Long() == text)
        return error;
    xml::ParsedDocument shown;
    return shown.loadXML(window.rtxtXML.Long()) ? error : shown.parseError();
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
    if (const auto error = parsed.error())
        edit::Then(window, [&window, error = ErrorAsShown(window, text, *error)] {
            edit::PointToErrorPos(window.app, error);
        });
}

void SelectByNumber(DocumentWindow& window, long number) {
    TreeNode node =
        m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(window.app.CurrentFileName));
    window.tvXML.SetSelectedItem(node);
    if (node)
        node.SetExpanded(true);
}

void CountAsRead(DocumentWindow& window) {
    window.bond.move(BondMove::TextRead);
    window.bond.treeRevision = window.tvXML.Revision();
}

void TakeDocument(DocumentWindow& window, const xml::ParsedDocument& document, long selectNumber) {
    m_tvXML::FillTree(window.app, window.tvXML, document);
    CountAsRead(window);
    // What is being loaded stays as its file has it (quirk 43).
    const bool edited = window.bLoaded && edit::Shows(window, edit::kTextTab);
    if (edited || window.rtxtXML.Long().isEmpty())
        TreeChangeTextView(window);
    SelectByNumber(window, selectNumber);
}

mXMLEdit::Parsed ReadText(DocumentWindow& window, const FetchedText& text, long selectNumber,
                          edit::Tone tone) {
    auto brokenOff = qScopeGuard([&window] { window.bond.move(BondMove::TextEdited); }); // to be read again
    window.bond.move(BondMove::TextRefused); // until it is in the tree
    if (text.text.holdsOnly(u" ")) {
        m_tvXML::AddTreeRoot(window.app, window.tvXML, false);
        CountAsRead(window);
        brokenOff.dismiss();
        return {};
    }
    mXMLEdit::Parsed parsed = edit::LoadXMLDocFromString(window.app, text, tone);
    if (parsed.good())
        TakeDocument(window, *parsed.document, selectNumber);
    else
        ShowBadText(window, text.text, parsed);
    brokenOff.dismiss();
    return parsed;
}

// --- tree to text ------------------------------------------------------------------------------------------

// A new document begins without a root element: that is no error to tell the user of (quirk 45).
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
        if ((valid || !xml.holdsOnly(u" ")) && !(target.Long() == xml))
            ChangeText(window, xml, target.Content());
    }
    window.bond.msLastParsedText = target.Long(); // now the two say the same
}

void SayTextGaveWay(DocumentWindow& window) {
    window.app.services.prompts.MsgBox(
        QStringLiteral("The text could not be read into the tree, and the tree has been changed since. "
                       "The text view now shows the document of the tree.\r\nUndo brings the text back."),
        services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace

mXMLEdit::Parsed XMLToTree(DocumentWindow& window, const FetchedText& text, long selectNumber,
                           edit::Tone tone) {
    return edit::Run(window, QStringLiteral("m_tvXML@XMLToTree"),
                     [&] { return ReadText(window, text, selectNumber, tone); });
}

// A text that didn't parse gives way to the tree like any other. It holds work that the tree never got, so
// the user is told, once.
void TreeChangeTextView(DocumentWindow& window) {
    ++window.app.work.texts;
    Bond& bond = window.bond;
    const LongText before = window.TextInUse().Long();
    const bool unread = bond.refused() || (bond.bTextChanged() && !(before == bond.msLastParsedText));
    WriteTreeAsText(window);
    bond.move(BondMove::TextWritten);
    if (unread && !(window.TextInUse().Long() == before))
        SayTextGaveWay(window);
}

} // namespace textview
