// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/FollowPath.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/model/NodeAddress.h"
#include "platform/text/TextTools.h"

namespace edit {

namespace {

// The text may lack what the tree still shows: then it is the nearest node above.
void SelectTreeNodeByDomNode(DocumentWindow& window, xml::Node found) {
    controls::TreeNode node = m_tvXML::NodeAddress(found).nearestIn(window.tvXML);
    node.EnsureVisible();
    SelectNode(window, node);
}

void SelectInText(DocumentWindow& window, const QString& path) {
    const mXMLEdit::Parsed parsed = LoadXMLDocFromString(window.app, window.TextInUse().Long(), Tone::Box);
    if (!parsed.good())
        return;
    QString complaint;
    if (const xml::Node found = parsed.document->selectSingleNode(path, &complaint))
        return SelectTreeNodeByDomNode(window, found);
    Message(window.app, complaint); // what is wrong with the path itself, if anything is
    window.app.services.prompts.MsgBox(QStringLiteral("Can not find any node by path:"));
}

} // namespace

void SelectTreeNodeByPath(DocumentWindow& window, const QString& path) {
    if (window.bond.bTreeChanged()) // the path is looked for in the text
        Run(window, "txtXPath_KeyUp", [&] { WriteUnnamed(window); });
    Run(window, "txtXPath_KeyUp", [&] {
        if (window.tvXML.Nodes.Count() == 0)
            return;
        TellPathAgain(window);          // the box may hold a path that led elsewhere
        if (text::Trim(path).isEmpty()) // the path of the tree root
            SelectNode(window, window.tvXML.Nodes(1));
        else
            SelectInText(window, path);
    });
}

bool SelectTreeNodeByXPath(DocumentWindow& window, const xml::ParsedDocument& document, const QString& path) {
    const xml::Node found = document.selectSingleNode(path);
    if (found)
        SelectTreeNodeByDomNode(window, found);
    return static_cast<bool>(found);
}

} // namespace edit
