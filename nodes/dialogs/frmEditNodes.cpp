// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/frmEditNodes.h"
#include "core/model/Frame.h"
#include "core/model/Validate.h"
#include "core/model/m_tvXML.h"
#include "core/sync/TreeText.h"
#include "core/sync/Views.h"
#include "nodes/FinishEdits.h"
#include "nodes/ListEditor.h"
#include "nodes/ListRows.h"
#include <utility>

namespace {

constexpr double kOneBox = 5795, kTwoBoxes = 2775; // heights of txtNodeAttrs in twips

void SelectAnyRow(controls::ListView& list) {
    if (list.SelectedItem() == 0 && list.Count() > 0)
        list.SetSelectedItem(1);
}

void ShowListTab(DocumentWindow& window) {
    if (window.tbsXML.SelectedKey() != QStringLiteral("listview"))
        window.tbsXML.Select(QStringLiteral("listview"));
}

} // namespace

frmEditNodes::frmEditNodes(Application& app) : app_(app) {
    lXPath.SetCaption(QStringLiteral("XPath:"));
    lText.SetCaption(QStringLiteral("Text:"));
    ConnectButtons();
    ConnectBoxes();
}

template <typename Act> void frmEditNodes::Guarded(const char* routine, Act act) {
    try {
        if (window_)
            act();
    } catch (const text::Fault& fault) {
        ErrorReportBox(app_, fault, QLatin1String(routine));
    }
}

void frmEditNodes::Click(controls::CommandButton& button, void (frmEditNodes::*act)(), const char* routine) {
    button.Click.connect([this, act, routine] { Guarded(routine, [&] { (this->*act)(); }); });
}

void frmEditNodes::ConnectButtons() {
    Click(cmdUp, &frmEditNodes::cmdUp_Click, "frmEditNode.cmdUp_Click");
    Click(cmdDown, &frmEditNodes::cmdDown_Click, "frmEditNode.cmdDown_Click");
    Click(cmdLeft, &frmEditNodes::cmdLeft_Click, "frmEditNode.cmdLeft_Click");
    Click(cmdRight, &frmEditNodes::cmdRight_Click, "frmEditNode.cmdRight_Click");
    Click(cmdOk, &frmEditNodes::cmdOk_Click, "frmEditNodes.cmdOk_Click");
    Click(cmdCancel, &frmEditNodes::cmdCancel_Click, "frmEditNodes.cmdCancel_Click");
    optTree.Click.connect(
        [this] { Guarded("frmEditNodes.optTree_Click", [this] { ChangeContext(kContextTree); }); });
    optList.Click.connect(
        [this] { Guarded("frmEditNodes.optList_Click", [this] { ChangeContext(kContextList); }); });
}

void frmEditNodes::ConnectBoxes() {
    txtNodeName.Change.connect([this] {
        Guarded("frmEditNodes.txtNodeName_Change", [this] {
            if (kind_ == kRowElement || kind_ == kRowAttribute)
                ComplainAbout(m_tvXML::NodeNameProbe(txtNodeName.Text()));
        });
    });
    txtNodeAttrs.Change.connect(
        [this] { Guarded("frmEditNodes.txtNodeAttrs_Change", [this] { txtNodeAttrs_Change(); }); });
    txtNodeText.Change.connect([this] {
        Guarded("frmEditNodes.txtNodeText_Change",
                [this] { ComplainAbout(m_tvXML::NodeTextProbe(txtNodeText.Text(), name_)); });
    });
    txtXPath.KeyDown.connect([this](int& key, int) {
        Guarded("frmEditNodes.txtXPath_KeyDown", [this, &key] { txtXPath_KeyDown(key); });
    });
}

// A list of attributes has a validator that does without a box; for other values there is the probe alone.
void frmEditNodes::txtNodeAttrs_Change() {
    if (kind_ == kRowElement && IsChanged())
        m_tvXML::ValidateNodeAttributes(app_, txtNodeAttrs.Text(), name_, false);
    else
        ComplainAbout(NodeValueProbe(*window_, hand_, txtNodeAttrs.Text()));
}

void frmEditNodes::ComplainAbout(const QString& probe) {
    m_tvXML::ComplainWhileTyping(app_, IsChanged() ? probe : QString());
}

// --- start and end ----------------------------------------------------------------------------------------

bool frmEditNodes::Form_Load(DocumentWindow& window) {
    if (window_ && !SaveCurrentNode())
        return false;
    if (!FinishAllEdits(window))
        return false;
    window_ = &window;
    const bool list = window.miPopupContext == kContextList;
    if (list)
        ShowListTab(window);
    window.miPopupContext = list ? kContextList : kContextTree;
    optList.SetValue(list);
    optTree.SetValue(!list);
    const bool path = window.kind.Name == QStringLiteral("frmXMLEdit");
    lXPath.SetVisible(path);
    txtXPath.SetVisible(path);
    FetchNode();
    return true;
}

void frmEditNodes::Form_Activate() {
    if (!window_ || !FinishAllEdits(*window_))
        return;
    const NodeInHand current = GetNodeInHand(*window_, InList() ? kContextList : kContextTree);
    if (current == hand_ && IsChanged())
        return; // what was typed stays
    if (SaveCurrentNode())
        FetchNode();
}

void frmEditNodes::WindowClosed(const DocumentWindow& window) {
    if (window_ == &window)
        cmdCancel_Click();
}

void frmEditNodes::Unload() {
    window_ = nullptr;
    hand_ = {};
    if (app_.frame)
        app_.frame->StatusBar1().SetPanel(1, {});
    unloaded();
}

void frmEditNodes::cmdOk_Click() {
    if (!SaveCurrentNode())
        KeepTyped();
    ShowMenu();
    Unload();
}

void frmEditNodes::cmdCancel_Click() {
    refused_.reset();
    Unload();
}

void frmEditNodes::KeepTyped() {
    refused_ =
        Refused{hand_, {name_, attrs_, text_}, {txtNodeName.Text(), txtNodeAttrs.Text(), txtNodeText.Text()}};
}

// Only for the very node as it was: keys are never used twice, but its content may have changed.
void frmEditNodes::BringTypedBack() {
    if (!refused_ || refused_->hand != hand_ || refused_->node != Texts{name_, attrs_, text_})
        return;
    const Texts typed = std::exchange(refused_, std::nullopt)->typed;
    txtNodeName.SetText(typed.name);
    txtNodeAttrs.SetText(typed.attrs);
    txtNodeText.SetText(typed.text);
}

// --- the node in hand -------------------------------------------------------------------------------------

bool frmEditNodes::InList() const {
    return optList.Value();
}

bool frmEditNodes::IsChanged() const {
    return txtNodeName.Text() != name_ || txtNodeAttrs.Text() != attrs_ || txtNodeText.Text() != text_;
}

void frmEditNodes::FetchNode() {
    if (InList())
        SelectAnyRow(window_->ListView1);
    const int context = InList() ? kContextList : kContextTree;
    hand_ = GetNodeInHand(*window_, context);
    SetMemberVars(*window_, context, name_, attrs_, text_, kind_);
    ShowCurrentNode();
    BringTypedBack();
    ShowMenu();
}

// An attribute with a new name has another row.
void frmEditNodes::SelectRowInHand() {
    if (!InList() || window_->ListView1.SelectedItem() > 0)
        return;
    const QString key = hand_.attribute.isEmpty() ? hand_.key : hand_.key + u'/' + hand_.attribute;
    window_->ListView1.SetSelectedItem(window_->ListView1.IndexOf(key));
}

// The window's menus are those of the node in hand: it is the current one there.
void frmEditNodes::ShowMenu() {
    if (!InList())
        DoMenu(*window_);
    else if (app_.frame)
        app_.frame->SetMenuSituation(window_->ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected
                                                                           : MenuSituation::ListUnselected);
}

void frmEditNodes::ShowCurrentNode() {
    if (!window_)
        return;
    txtXPath.SetText(window_->txtXPath.Text());
    txtNodeName.SetText(name_);
    txtNodeAttrs.SetText(attrs_);
    txtNodeText.SetText(text_);
    ShowKind();
    EnableButtons();
    if (app_.frame)
        app_.frame->StatusBar1().SetPanel(1, {});
}

void frmEditNodes::ShowKind() {
    const bool element = kind_ == kRowElement;
    lNodeName.SetCaption(kind_ == 0               ? QStringLiteral("File Name:")
                         : kind_ == kRowAttribute ? QStringLiteral("Attribute Name:")
                                                  : QStringLiteral("Node Name:"));
    txtNodeName.SetEnabled(kind_ == 0 || element || kind_ == kRowAttribute);
    lAttrs.SetCaption(element ? QStringLiteral("Attributes:") : QStringLiteral("Value:"));
    // The document has no value of its own, and nothing has none at all.
    txtNodeAttrs.SetEnabled(kind_ > 0);
    controls::Bounds place = txtNodeAttrs.Place();
    place.Height = element ? kTwoBoxes : kOneBox;
    txtNodeAttrs.Move(place);
    lText.SetVisible(element);
    txtNodeText.SetVisible(element);
}

bool frmEditNodes::SaveCurrentNode() {
    if (!window_ || !IsChanged())
        return true;
    try {
        if (!FinishAllEdits(*window_))
            return false;
        // A node can't go without a name, and there is nothing to say about an empty one: it keeps its own.
        if (txtNodeName.Text().isEmpty())
            txtNodeName.SetText(name_);
        if (WriteNodeInHand(*window_, hand_, txtNodeName.Text(), txtNodeAttrs.Text(), txtNodeText.Text()) ==
            NodeWrite::Refused)
            return false;
        SelectRowInHand();
        name_ = txtNodeName.Text();
        attrs_ = txtNodeAttrs.Text();
        text_ = txtNodeText.Text();
        return true;
    } catch (const text::Fault& fault) {
        ErrorReportBox(app_, fault, QStringLiteral("frmEditNodes.SaveCurrentNode"));
        return false;
    }
}

// --- moving -----------------------------------------------------------------------------------------------

void frmEditNodes::EnableButtons() {
    if (InList()) {
        EnableListMoves();
        return;
    }
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    cmdUp.SetEnabled(node && node.Previous());
    cmdDown.SetEnabled(node && node.Next());
    cmdLeft.SetEnabled(node && node.Parent());
    cmdRight.SetEnabled(node && node.Child());
}

void frmEditNodes::EnableListMoves() {
    const controls::TreeNode shown = window_->tvXML.SelectedItem();
    const int row = window_->ListView1.SelectedItem();
    cmdUp.SetEnabled(row > 1);
    cmdDown.SetEnabled(row > 0 && row < window_->ListView1.Count());
    cmdLeft.SetEnabled(shown && shown.Parent());
    cmdRight.SetEnabled(SelectedRowKind(*window_) == kRowElement);
}

void frmEditNodes::SelectSibling(bool next) {
    if (!SaveCurrentNode())
        return;
    if (InList()) {
        controls::ListView& list = window_->ListView1;
        const int row = list.SelectedItem() + (next ? 1 : -1);
        if (row >= 1 && row <= list.Count()) {
            list.ClearSelected();
            list.SetSelectedItem(row);
            list.EnsureVisible(row);
        }
    } else if (const controls::TreeNode node = window_->tvXML.SelectedItem()) {
        if (const controls::TreeNode sibling = next ? node.Next() : node.Previous()) {
            window_->tvXML.SetSelectedItem(sibling);
            DoTree(*window_);
        }
    }
    FetchNode();
}

void frmEditNodes::cmdUp_Click() {
    SelectSibling(false);
}

void frmEditNodes::cmdDown_Click() {
    SelectSibling(true);
}

void frmEditNodes::cmdRight_Click() {
    if (!SaveCurrentNode())
        return;
    if (InList())
        ShowListTab(*window_);
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    controls::TreeNode below;
    if (!InList())
        below = node ? node.Child() : node;
    else if (SelectedRowKind(*window_) == kRowElement)
        below = CurrentListNode(*window_);
    if (below) {
        window_->tvXML.SetSelectedItem(below);
        DoTree(*window_);
        if (InList() && window_->ListView1.Count() > 0) {
            window_->ListView1.ClearSelected();
            window_->ListView1.SetSelectedItem(1);
        }
    }
    FetchNode();
}

// In the list the row of the node that was left becomes the current one.
void frmEditNodes::cmdLeft_Click() {
    if (!SaveCurrentNode())
        return;
    if (InList())
        ShowListTab(*window_);
    const controls::TreeNode node = window_->tvXML.SelectedItem();
    if (const controls::TreeNode parent = node ? node.Parent() : node) {
        window_->tvXML.SetSelectedItem(parent);
        DoTree(*window_);
        controls::ListView& list = window_->ListView1;
        if (const int row = InList() ? list.IndexOf(node.Key()) : 0; row > 0) {
            list.ClearSelected();
            list.SetSelectedItem(row);
            list.EnsureVisible(row);
        }
    }
    FetchNode();
}

void frmEditNodes::ChangeContext(int context) {
    const bool list = context == kContextList;
    const bool saved = SaveCurrentNode();
    optList.SetValue(saved == list);
    optTree.SetValue(saved != list);
    if (!saved)
        return;
    cmdUp.SetEnabled(true);
    cmdDown.SetEnabled(true);
    if (list)
        ShowListTab(*window_);
    window_->miPopupContext = context;
    FetchNode();
}

void frmEditNodes::txtXPath_KeyDown(int& key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return;
    key = 0;
    const QString path = txtXPath.Text();
    if (!SaveCurrentNode())
        return;
    SelectTreeNodeByPath(*window_, path);
    FetchNode();
}

void frmEditNodes::Form_KeyDown(int& key, int modifiers) {
    if ((modifiers & static_cast<int>(Qt::ControlModifier)) == 0)
        return;
    const std::pair<int, controls::CommandButton*> arrows[] = {
        {Qt::Key_Left, &cmdLeft}, {Qt::Key_Up, &cmdUp}, {Qt::Key_Right, &cmdRight}, {Qt::Key_Down, &cmdDown}};
    for (const auto& [code, button] : arrows) {
        if (code != key)
            continue;
        key = 0;
        if (button->Enabled())
            button->Click();
        return;
    }
}
