// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/sync/TreeText.h"
#include "core/model/Serialise.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/Views.h"
#include "platform/text/TextTools.h"
#include "textview/fill/FillText.h"
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <utility>

namespace {

using controls::TreeNode;

constexpr int kElement = 1;

// Units of a text that is parsed after each change of the tree.
constexpr qsizetype kTriedAtOnce = 4'000'000;

QString MakerComment() {
    return QStringLiteral("edited with Vantrel v2.0 by Orvane (https://vantrel.example/)");
}

bool ShowsTextView(DocumentWindow& window) {
    return window.tbsXML.SelectedKey() == QStringLiteral("textview");
}

// The bad text is shown as it came, the tree stays; a window without a document gets the default tree.
void ShowBadText(DocumentWindow& window, const text::LongText& text, const xml::ParsedDocument* document) {
    Application& app = window.app;
    if (window.tvXML.Nodes.Count() < 2)
        AddTreeRoot(window, true);
    TreeNode root = window.tvXML.Nodes(1);
    if (root.Text() != app.CurrentFileName)
        root.SetText(app.CurrentFileName);
    if (window.rtxtXML.Long().isEmpty()) {
        const QScopedValueRollback ownWriting(window.bControlChange, true);
        window.rtxtXML.SetText(text);
        window.rtxtXML2.SetText(text);
        SetTreeXMLColor(window);
    }
    window.tbsXML.Select(QStringLiteral("textview"));
    if (!document)
        return;
    // The view's text may have blanks that the colouring put in: then the place is another one there.
    xml::ParsedDocument shown;
    const bool asFetched = window.rtxtXML.Long() == text || shown.loadXML(window.rtxtXML.Long());
    mXMLEdit::PointToErrorPos(app, (asFetched ? *document : shown).parseError());
}

void FillTree(DocumentWindow& window, const xml::ParsedDocument& document) {
    const controls::TreeUpdate update(window.tvXML);
    // Where the memory runs out, no half of a document stands for the whole.
    auto brokenOff = qScopeGuard([&window] { AddTreeRoot(window, false); });
    AddTreeRoot(window, false);
    m_tvXML::XMLChildNodesToTree(window.app, &window, document.document(), window.app.CurrentFileName,
                                 window.tvXML);
    brokenOff.dismiss();
}

void SelectByNumber(DocumentWindow& window, long number) {
    TreeNode node =
        m_tvXML::GetNodeByNumber(window.app, number, window.tvXML.Nodes(window.app.CurrentFileName));
    window.tvXML.SetSelectedItem(node);
    if (node)
        node.SetExpanded(true);
}

text::LongText TreeAsText(DocumentWindow& window) {
    return window.treeText.text(window.tvXML.Nodes(window.Caption), QStringLiteral("\t"),
                                window.TextInUse().Long());
}

} // namespace

void AddTreeRoot(DocumentWindow& window, bool withDefaults) {
    Application& app = window.app;
    controls::TreeView& tree = window.tvXML;
    const controls::TreeUpdate update(tree);
    tree.Nodes.Clear();
    window.ListView1.Tag
        .clear(); // its rows carry keys that are gone, also where the root's own key comes back
    const TreeNode root = tree.Nodes.Add({}, 0, app.CurrentFileName, app.CurrentFileName,
                                         QStringLiteral("xmlroot"), QStringLiteral("openxmlroot"));
    if (withDefaults) {
        const QString instruction = QStringLiteral("processinginstruction");
        TreeNode declaration =
            tree.Nodes.Add(root, controls::tvwChild, m_tvXML::GetDistinctElementKey(app, 7),
                           QStringLiteral("xml"), instruction, instruction);
        declaration.SetTag(QStringLiteral("version=\"1.0\" encoding=\"%1\"").arg(app.options.Encoding));
        const QString comment = QStringLiteral("comment");
        TreeNode maker = tree.Nodes.Add(root, controls::tvwChild, m_tvXML::GetDistinctElementKey(app, 8),
                                        QStringLiteral("#comment"), comment, comment);
        maker.SetTag(MakerComment());
        tree.SetSelectedItem(root);
    }
}

ParsedRoot XMLToTree(DocumentWindow& window, const FetchedText& text, long selectNumber) try {
    ParsedRoot root;
    window.bTextUnread = true; // until it is in the tree, in whatever way this ends
    if (text.text.holdsOnly(u" ")) {
        AddTreeRoot(window, false);
        window.bTextUnread = window.bTextChanged = false;
        return root;
    }
    if (!mXMLEdit::LoadXMLDocFromString(window.app, text, root.document, window.bQuietParse)) {
        ShowBadText(window, text.text, root.document.get());
        root.document.reset();
    } else {
        root.element = root.document->documentElement();
        FillTree(window, *root.document);
        window.bTextUnread = false;
        window.bTextChanged = false;
        if (ShowsTextView(window) || window.rtxtXML.Long().isEmpty())
            TreeChangeTextView(window);
        SelectByNumber(window, selectNumber);
    }
    window.bQuietParse = false;
    return root;
} catch (const text::Fault& fault) {
    window.bQuietParse = false;
    ErrorReportBox(window.app, fault, QStringLiteral("m_tvXML@XMLToTree"));
    return {};
}

void TreeToTextView(DocumentWindow& window) try {
    if (window.tvXML.Nodes.Count() >= 2 && !text::Trim(window.Caption).isEmpty())
        SetRichText(window, TreeAsText(window));
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".TreeToTextView"));
}

namespace {

void WriteTreeAsText(DocumentWindow& window) {
    controls::RichTextBox& target = window.TextInUse();
    if (window.tvXML.Nodes.Count() < 2) {
        ChangeText(window, {}, target.Content());
        window.msLastParsedText = target.Long();
        return;
    }
    const TreeNode selected = window.tvXML.SelectedItem();
    if (!text::Trim(window.Caption).isEmpty()) {
        const text::LongText xml = TreeAsText(window);
        // The text is tried even where it will be taken anyway: status panel and last parse error tell how it
        // stands. With a large one that would hold up each command for a second or more: saving tries it.
        window.bTextUntried = xml.size() > kTriedAtOnce;
        const bool valid = !window.bTextUntried && mXMLEdit::ValidateXML(window.app, xml, true);
        if ((valid || !xml.holdsOnly(u" ")) && !(target.Long() == xml))
            ChangeText(window, xml, target.Content());
        window.msLastParsedText = target.Long(); // now the two say the same
    }
    if (selected)
        window.tvXML.SetSelectedItem(selected);
    window.bControlChange = false;
}

} // namespace

// A text that didn't parse gives way to the tree like any other. It holds work that the tree never got, so
// the user is told, once.
void TreeChangeTextView(DocumentWindow& window, bool withNewNode) try {
    if (!withNewNode && IsAddingNewNode(window))
        return;
    window.bTreeChanged = false;
    const text::LongText before = window.TextInUse().Long();
    const bool ahead = window.bTextChanged && !(before == window.msLastParsedText);
    const bool unread = std::exchange(window.bTextUnread, false) || ahead;
    // A text that couldn't be written is still behind the tree: nothing may take it for the document.
    auto brokenOff = qScopeGuard([&window, unread] {
        window.bTreeChanged = true;
        window.bTextUnread = unread;
    });
    WriteTreeAsText(window);
    brokenOff.dismiss();
    window.bTextChanged = false;
    if (unread && !(window.TextInUse().Long() == before))
        window.app.services.prompts.MsgBox(
            QStringLiteral("The text could not be read into the tree, and the tree has been changed since. "
                           "The text view now shows the document of the tree.\r\nUndo brings the text back."),
            services::Buttons::Ok, services::Icon::Exclamation);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".TreeChangeTextView"));
}

bool IsAddingNewNode(DocumentWindow& window) {
    const TreeNode selected = window.tvXML.SelectedItem();
    if (!selected)
        return false;
    // A new element is selected itself while it gets its name.
    if (m_tvXML::GetKeyType(selected) == kElement && selected.TextView().isEmpty())
        return true;
    for (TreeNode child = selected.Child(); child; child = child.Next()) {
        if (child.TextView().isEmpty())
            return true;
    }
    return false;
}
