// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/sync/Views.h"
#include "core/model/Frame.h"
#include "core/model/mXMLEdit.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "nodes/fill/ShowListView.h"
#include "platform/text/TextTools.h"

namespace {

using controls::TreeNode;

void SetMenuSituation(DocumentWindow& window, MenuSituation situation) {
    if (window.app.frame)
        window.app.frame->SetMenuSituation(situation);
}

void SetTextTabStops(DocumentWindow& window, bool stop) {
    window.rtxtXML.TabStop = stop;
    window.rtxtXML2.TabStop = stop;
}

void ShowList(DocumentWindow& window) {
    window.miCurrentView = kViewList;
    window.ListView1.SetFocus();
    DoTree(window);
    SetMenuSituation(window, window.ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected
                                                                 : MenuSituation::ListUnselected);
    SetTextTabStops(window, false);
}

void ShowText(DocumentWindow& window) {
    window.miCurrentView = kViewText;
    SetTextTabStops(window, true);
    window.TextInUse().SetFocus();
    // Who goes on in the text builds the tree anew from it: a text node that is left empty holds nothing up.
    const bool naming = window.tvXML.LabelEditNode() || window.ListView1.LabelEditRow() > 0;
    if (window.bTreeChanged)
        TreeChangeTextView(window, !naming);
    NavToNodeRelatedText(window);
    SetMenuSituation(window, window.TextInUse().SelLength() > 0 ? MenuSituation::TextSelected
                                                                : MenuSituation::TextUnselected);
    window.pctText.ZOrder();
}

void ShowTable(DocumentWindow& window) {
    window.miCurrentView = kViewTable;
    window.chtAna.SetVisible(true);
    window.pctLHSplit.SetVisible(true);
    SetMenuSituation(window, MenuSituation::TableUnselected);
    window.pctTableView.ZOrder();
    const TreeNode selected = window.tvXML.SelectedItem();
    if (m_tvXML::IsTreeRoot(selected) && selected.Child())
        window.tvXML.SetSelectedItem(selected.Child());
}

void ShowBrowser(DocumentWindow& window) {
    SetMenuSituation(window, MenuSituation::ViewWithoutEditing);
    if (window.tvXML.SelectedItem() && window.bTreeChanged) {
        window.miCurrentView = kViewText; // the text's own update asks which view is in force
        TreeChangeTextView(window);
    }
    window.miCurrentView = kViewBrowser;
    window.IE.SetFocus();
    m_tvXML::DisplayAtIE(window.app, window.rtxtXML.Text(), window.msTempFile, window.IE);
}

void ShowSchemaText(DocumentWindow& window) {
    window.miCurrentView = kViewSchema;
    SetMenuSituation(window, MenuSituation::ViewWithoutEditing);
    window.txtSchema.SetFocus();
}

} // namespace

void tbsXML_Click(DocumentWindow& window) try {
    // A tab strip may be clicked without taking the focus from the text: an edited text reaches the tree all
    // the same.
    if (window.miCurrentView == kViewText && window.bTextChanged) {
        LeaveTextView(window);
        if (window.tbsXML.SelectedKey() == QStringLiteral("textview"))
            return; // it doesn't parse: the text view is back already, with the error selected
    }
    if (window.app.frame)
        window.app.frame->StatusBar1().SetPanel(2, {});
    window.chtAna.SetVisible(false);
    window.pctLHSplit.SetVisible(false);
    const QString key = window.tbsXML.SelectedKey();
    if (key == QStringLiteral("listview"))
        ShowList(window);
    else if (key == QStringLiteral("textview"))
        ShowText(window);
    else if (key == QStringLiteral("tableview"))
        ShowTable(window);
    else if (key == QStringLiteral("browserview"))
        ShowBrowser(window);
    else if (key == QStringLiteral("schema"))
        ShowSchemaText(window);
    if (window.app.frame)
        window.app.frame->SetToolBar();
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".tbsXML_Click"));
}

void DoTree(DocumentWindow& window) try {
    const bool changed = window.bTreeChanged;
    if (changed)
        TreeChangeTextView(window);
    const TreeNode node = window.tvXML.SelectedItem();
    const QString key = node ? node.Key() : QString();
    const QString tab = window.tbsXML.SelectedKey();
    if (tab == QStringLiteral("listview") && (changed || key != window.ListView1.Tag))
        ShowListView(window);
    // A change that waits with a new node for its name must not be forgotten: the text still lacks it.
    window.bTreeChanged = changed && IsAddingNewNode(window);
    if (!node)
        return;
    const bool moved = key != window.TextInUse().Tag;
    if (window.app.frame && (changed || moved || key != window.msShownPathKey))
        ShowNodePath(window, window.app.frame->StatusBar1());
    if (tab == QStringLiteral("textview") && window.miPopupContext == kContextTree && (moved || changed))
        NavToNodeRelatedText(window);
} catch (const text::Fault& fault) {
    ErrorReportBox(window.app, fault, window.kind.Name + QStringLiteral(".DoTree"));
}

void DoMenu(DocumentWindow& window) {
    const bool root = m_tvXML::IsTreeRoot(window.tvXML.SelectedItem());
    SetMenuSituation(window, root ? MenuSituation::TreeRoot : MenuSituation::TreeNode);
    if (window.app.frame)
        window.app.frame->SetToolBar();
}

void ExpandRoot(DocumentWindow& window) {
    if (window.tvXML.Nodes.Count() == 0)
        return;
    TreeNode root = window.tvXML.Nodes(1);
    root.SetExpanded(true);
    root.SetSelected(true);
    DoTree(window);
}

void m_tvXML::DisplayAtIE(Application& app, const QString& text, QString& tempFile,
                          controls::WebBrowser& ie) try {
    // One name serves all windows: a later preview overwrites an earlier one.
    tempFile = app.services.files.TemporaryFolder() + QStringLiteral("/tempbv_forVantrel.xml");
    // A preview is nobody's document: it is written in a code that holds every character, halves of pairs
    // give way to the sign for what can't be shown, and no question is asked.
    QString page = text.isEmpty()
                       ? QStringLiteral("<html><body></body></html>")
                       : text::WithDeclaredEncoding(text::WithoutLoneHalves(text), QStringLiteral("UTF-8"));
    if (mXMLEdit::SaveStringToFile(app, page, tempFile))
        ie.Navigate(tempFile);
} catch (const text::Fault& fault) {
    ErrorReportBox(app, fault, QStringLiteral("m_tvXML@DisplayAtIE"));
}

void SavePos(DocumentWindow& window, float left, float top, float width, float height) {
    window.mfSavedLeft = left;
    window.mfSavedTop = top;
    window.mfSavedWidth = width;
    window.mfSavedHeight = height;
}

void ClearPos(DocumentWindow& window) {
    SavePos(window, 0, 0, 0, 0);
}

void SetVSplitPosition(DocumentWindow& window, double position) {
    window.msngVSplit = std::max(position, 0.0);
}

void SplitTextViewHalf(DocumentWindow& window) {
    window.pctSplitText.SetVisible(!window.pctSplitText.Visible());
}
