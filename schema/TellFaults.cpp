// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/TellFaults.h"
#include "core/edit/NodePath.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "schema/SchemaState.h"
#include "textview/TextLink.h"
#include <algorithm>

namespace schema {

namespace {

using controls::TreeNode;

const QString kTitle = QStringLiteral("Schema error!");

void Box(DocumentWindow& window, const QString& description) {
    window.app.services.prompts.MsgBox(description, services::Buttons::Ok, services::Icon::Critical, kTitle);
}

// The path has the names of the schema language alone; the document's prefix goes in front of each.
QString PathWithoutPrefix(DocumentWindow& window, TreeNode node) {
    const QString& prefix = SchemaOf(window).msPrefix;
    const QString path = edit::GetXPath(node);
    return prefix.isEmpty() ? path : QString(path).replace(u'/' + prefix + u':', QStringLiteral("/"));
}

const Diagnostic& FirstOf(const std::vector<Diagnostic>& all) {
    const auto missing = std::find_if(all.begin(), all.end(), [](const auto& one) { return one.warning; });
    if (missing != all.end())
        return *missing;
    const auto own = std::find_if(all.begin(), all.end(),
                                  [](const auto& one) { return one.document.isEmpty() && one.line > 0; });
    return own != all.end() ? *own : all.front();
}

} // namespace

void TellFirst(DocumentWindow& window) {
    if (DiagnosticsOf(window).all.empty())
        return;
    const Diagnostic first = FirstOf(DiagnosticsOf(window).all);
    TreeNode node = NodeOf(window, first);
    if (!node)
        return Box(window, first.message);
    edit::ShowView(window, edit::kTextTab);
    Box(window, window.Caption + u'#' + PathWithoutPrefix(window, node) + u'\n' + first.message);
    node.EnsureVisible();
    edit::SelectNode(window, node);
    textview::NavToNodeRelatedText(window);
    window.TextInUse().SetFocus();
}

void TellOnStatusBar(DocumentWindow& window) {
    const std::vector<Diagnostic>& all = DiagnosticsOf(window).all;
    if (!all.empty() && window.app.frame().ActiveForm() == &window)
        edit::Message(window.app, FirstOf(all).message.section(u'\n', 0, 0));
}

} // namespace schema
