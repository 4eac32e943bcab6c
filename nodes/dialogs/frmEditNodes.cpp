// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/dialogs/frmEditNodes.h"
#include "core/edit/FollowPath.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "nodes/FinishEdits.h"
#include "nodes/dialogs/NodeWalk.h"
#include <QScopedValueRollback>
#include <utility>

namespace nodes {

// --- events -----------------------------------------------------------------------------------------------

frmEditNodes::frmEditNodes(Application& app) : NodeEditor(app), self_(std::make_shared<frmEditNodes*>(this)) {
    ConnectButtons();
    ConnectBoxes();
    app.windowClosed.connect([self = std::weak_ptr(self_)](DocumentWindow& window) {
        if (const auto form = self.lock())
            (*form)->WindowClosed(window);
    });
}

template <typename Act> void frmEditNodes::Guarded(const char* routine, Act act) {
    if (window_)
        edit::Guarded(app_, QLatin1String(routine), act);
}

template <typename Event, typename Act>
void frmEditNodes::Connect(Event& event, const char* routine, Act act) {
    event.connect([this, routine, act] { Guarded(routine, act); });
}

void frmEditNodes::ConnectButtons() {
    Connect(cmdUp.Click, "frmEditNode.cmdUp_Click",
            [this] { Move([this] { WalkToSibling(*window_, Context(), false); }); });
    Connect(cmdDown.Click, "frmEditNode.cmdDown_Click",
            [this] { Move([this] { WalkToSibling(*window_, Context(), true); }); });
    Connect(cmdLeft.Click, "frmEditNode.cmdLeft_Click",
            [this] { Move([this] { WalkUp(*window_, Context()); }); });
    Connect(cmdRight.Click, "frmEditNode.cmdRight_Click",
            [this] { Move([this] { WalkDown(*window_, Context()); }); });
    Connect(cmdOk.Click, "frmEditNodes.cmdOk_Click", [this] { cmdOk_Click(); });
    Connect(cmdCancel.Click, "frmEditNodes.cmdCancel_Click", [this] { cmdCancel_Click(); });
    Connect(optTree.Click, "frmEditNodes.optTree_Click", [this] { ChangeContext(kContextTree); });
    Connect(optList.Click, "frmEditNodes.optList_Click", [this] { ChangeContext(kContextList); });
}

void frmEditNodes::ConnectBoxes() {
    Connect(txtNodeName.Change, "frmEditNodes.txtNodeName_Change", [this] { ComplainAboutName(); });
    Connect(txtNodeAttrs.Change, "frmEditNodes.txtNodeAttrs_Change", [this] { ComplainAboutValue(); });
    Connect(txtNodeText.Change, "frmEditNodes.txtNodeText_Change", [this] { ComplainAboutText(); });
    txtXPath.KeyDown.connect([this](int& key, int) {
        Guarded("frmEditNodes.txtXPath_KeyDown", [this, &key] { txtXPath_KeyDown(key); });
    });
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

// --- start and end ----------------------------------------------------------------------------------------

bool frmEditNodes::Form_Load(DocumentWindow& window) {
    if (!BringUpToDate(window) || (window_ && IsChanged() && !SaveCurrentNode()))
        return false;
    BringToFront(window); // saving took the window of the node in hand there
    window_ = &window;
    const bool list = window.miPopupContext == kContextList;
    optList.SetValue(list);
    optTree.SetValue(!list);
    if (list)
        ShowListTab(window);
    attention_.Forget(); // what the dialog found before, the user has left meanwhile
    attention_.Take(window, Context());
    const bool path = window.kind.Name == QStringLiteral("frmXMLEdit");
    lXPath.SetVisible(path);
    txtXPath.SetVisible(path);
    FetchNode();
    return true;
}

// A document that is just being closed stays in front: its question has been answered a moment ago.
bool frmEditNodes::Form_Activate() {
    const DocumentWindow* front = app_.frame().ActiveForm();
    if (!window_ || activating_ || saving_ || (front && front->bUnloading))
        return false;
    const bool other = front && front != window_;
    const QScopedValueRollback activating(activating_, true);
    try {
        ComeBack();
    } catch (const text::Fault& fault) {
        edit::Message(app_, fault.Description);
    }
    return other;
}

void frmEditNodes::ComeBack() {
    BringToFront(*window_);
    const bool upToDate = TextParses() && BringUpToDate(*window_);
    attention_.Take(*window_, Context());
    if (!upToDate)
        return;
    if (InList())
        ShowListTab(*window_);
    if (IsChanged()) {
        if (!FindAgain())
            return edit::Message(app_, GoneNotice());
        if (GetNodeInHand(*window_, Context()) != held_.hand)
            SelectNodeInHand(*window_, held_.hand, Context());
        FollowUntouched();
    } else if (!HasCurrentNode(Context()) || window_->txtXPath.Text() != path_) {
        return FetchNode();
    }
    EnableButtons();
}

// A box about the text would make the dialog active once more when it closes: the reason comes on the status
// bar.
bool frmEditNodes::TextParses() {
    FinishEdits(*window_);
    if (!window_->bond.bTextChanged())
        return true;
    const auto error = mXMLEdit::Parse(app_, window_->TextInUse().Long()).error();
    if (error)
        edit::Message(app_, error->reason.trimmed());
    return !error;
}

// A box that saving opens takes the activation away too: that is no leaving.
void frmEditNodes::Form_Deactivate() {
    if (window_ && !saving_)
        attention_.GiveBack(*window_);
}

// False when the text doesn't parse. The views are brought up to date for what the user works in there.
bool frmEditNodes::BringUpToDate(DocumentWindow& window) {
    if (!FinishAllEdits(window))
        return false;
    if (window.bond.bTreeChanged())
        edit::Run(window, "BringUpToDate", [] {});
    return true;
}

void frmEditNodes::WindowClosed(const DocumentWindow& window) {
    if (window_ != &window)
        return;
    attention_.Forget();
    Unload();
}

void frmEditNodes::Unload() {
    attention_.GiveBack(*window_);
    window_ = nullptr;
    held_ = {};
    edit::Message(app_, {});
    unloaded();
}

// What was refused stays, to be put right or given up (quirk 59).
void frmEditNodes::cmdOk_Click() {
    if (SaveCurrentNode())
        Unload();
}

void frmEditNodes::cmdCancel_Click() {
    Unload();
}

// --- the walk ---------------------------------------------------------------------------------------------

template <typename Walk> void frmEditNodes::Move(Walk walk) {
    if (!SaveCurrentNode())
        return;
    walk();
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
    edit::Attend(*window_, context);
    FetchNode();
}

void frmEditNodes::txtXPath_KeyDown(int& key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return;
    key = 0;
    const QString path = txtXPath.Text();
    if (!SaveCurrentNode())
        return;
    const controls::TreeNode before = window_->tvXML.SelectedItem();
    edit::SelectTreeNodeByPath(*window_, path);
    if (window_->tvXML.SelectedItem() != before) // else a mistyped path stays, and what is said about it
        FetchNode();
}

void frmEditNodes::EnableButtons() {
    const Ways ways = WaysOn(*window_, Context());
    cmdUp.SetEnabled(ways.up);
    cmdDown.SetEnabled(ways.down);
    cmdLeft.SetEnabled(ways.left);
    cmdRight.SetEnabled(ways.right);
}

// --- the node in hand -------------------------------------------------------------------------------------

void frmEditNodes::FetchNode() {
    SelectAny(*window_, Context());
    TakeInHand(Context());
    ShowCurrentNode();
}

void frmEditNodes::ShowCurrentNode() {
    if (!window_)
        return;
    path_ = window_->txtXPath.Text();
    txtXPath.SetText(path_);
    Fill(node_);
    ShowKind(Kind());
    EnableButtons();
    edit::Message(app_, {});
}

bool frmEditNodes::SaveCurrentNode() {
    if (!window_)
        return true;
    const QScopedValueRollback saving(saving_, true);
    return edit::Guarded(app_, QStringLiteral("frmEditNodes.SaveCurrentNode"), [&] {
        BringToFront(*window_);
        if (!IsChanged())
            return true;
        if (!FinishAllEdits(*window_) || !WriteTyped())
            return false;
        SelectRowInHand();
        path_ = window_->txtXPath.Text();
        return true;
    });
}

// An attribute with a new name has another row.
void frmEditNodes::SelectRowInHand() {
    controls::ListView& list = window_->ListView1;
    if (InList() && list.SelectedItem() == 0)
        edit::Run(*window_, "SelectRowInHand",
                  [&] { list.SetSelectedItem(list.IndexOf(held_.hand.rowKey())); });
}

} // namespace nodes
