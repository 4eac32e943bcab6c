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
#include <QScopedValueRollback>
#include <utility>

namespace {

constexpr int kAnyNumber = -1; // of attributes in a probe

constexpr double kOneBox = 5795, kTwoBoxes = 2775; // heights of txtNodeAttrs in twips

void SelectAnyRow(controls::ListView& list) {
    if (list.SelectedItem() == 0 && list.Count() > 0)
        list.SetSelectedItem(1);
}

void SelectAnyNode(controls::TreeView& tree) {
    if (!tree.SelectedItem() && tree.Nodes.Count() > 0)
        tree.SetSelectedItem(tree.Nodes(1));
}

// A window that comes to the front shows its root as the current node; the work goes on where it was.
void BringToFront(DocumentWindow& window) {
    Frame* frame = window.app.frame;
    if (!frame || frame->ActiveForm() == &window)
        return;
    controls::ListView& list = window.ListView1;
    const controls::TreeNode current = window.tvXML.SelectedItem();
    const QString row = list.SelectedItem() > 0 ? list.Item(list.SelectedItem()).Key : QString();
    frame->ActivateForm(&window);
    if (!current) // nothing was, or the tree has been built anew
        return;
    window.tvXML.SetSelectedItem(current);
    DoTree(window);
    list.SetSelectedItem(row.isEmpty() ? 0 : list.IndexOf(row));
}

QString GoneNotice() {
    return QStringLiteral(
        "The node that was edited is no longer in the document. What was typed stays in the "
        "dialog; Cancel gives it up.");
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
                ComplainAbout(m_tvXML::NodeNameProbe(txtNodeName.Text()), 0);
        });
    });
    txtNodeAttrs.Change.connect(
        [this] { Guarded("frmEditNodes.txtNodeAttrs_Change", [this] { txtNodeAttrs_Change(); }); });
    txtNodeText.Change.connect([this] {
        Guarded("frmEditNodes.txtNodeText_Change",
                [this] { ComplainAbout(m_tvXML::NodeTextProbe(txtNodeText.Text(), name_), kAnyNumber); });
    });
    txtXPath.KeyDown.connect([this](int& key, int) {
        Guarded("frmEditNodes.txtXPath_KeyDown", [this, &key] { txtXPath_KeyDown(key); });
    });
}

// A list of attributes has a validator that does without a box; for other values there is the probe alone.
void frmEditNodes::txtNodeAttrs_Change() {
    UndoProbe();
    if (kind_ != kRowElement || !IsChanged())
        return ComplainAbout(NodeValueProbe(*window_, hand_, txtNodeAttrs.Text()),
                             kind_ == kRowAttribute ? 1 : kAnyNumber);
    NoteBeforeProbe();
    if (m_tvXML::ValidateNodeAttributes(app_, txtNodeAttrs.Text(), name_, false))
        UndoProbe();
    else
        NoteAfterProbe();
}

void frmEditNodes::ComplainAbout(const QString& probe, int attributes) {
    m_tvXML::ComplainWhileTyping(app_, IsChanged() ? probe : QString(), attributes);
}

// --- start and end ----------------------------------------------------------------------------------------

bool frmEditNodes::Form_Load(DocumentWindow& window) {
    if (!BringUpToDate(window) || (window_ && IsChanged() && !SaveCurrentNode()))
        return false;
    UndoProbe();
    BringToFront(window); // saving took the window of the node in hand there
    window_ = &window;
    const bool list = window.miPopupContext == kContextList;
    optList.SetValue(list);
    optTree.SetValue(!list);
    if (list)
        ShowListTab(window);
    attention_.reset(); // what the dialog found before, the user has left meanwhile
    TakeAttention();
    const bool path = window.kind.Name == QStringLiteral("frmXMLEdit");
    lXPath.SetVisible(path);
    txtXPath.SetVisible(path);
    FetchNode();
    return true;
}

// A document that is just being closed stays in front: its question has been answered a moment ago.
bool frmEditNodes::Form_Activate() {
    const DocumentWindow* front = app_.frame ? app_.frame->ActiveForm() : nullptr;
    if (!window_ || activating_ || saving_ || (front && front->bUnloading))
        return false;
    const bool other = front && front != window_;
    const QScopedValueRollback activating(activating_, true);
    try {
        ComeBack();
    } catch (const text::Fault& fault) {
        ShowMessage(fault.Description);
    }
    return other;
}

void frmEditNodes::ComeBack() {
    BringToFront(*window_);
    const QScopedValueRollback quiet(window_->bQuietParse, true);
    const bool upToDate = BringUpToDate(*window_);
    TakeAttention();
    if (!upToDate)
        return;
    if (InList())
        ShowListTab(*window_);
    if (IsChanged()) {
        if (!FindNodeAgain(*window_, hand_, trace_))
            return ShowMessage(GoneNotice());
        if (GetNodeInHand(*window_, Context()) != hand_)
            SelectNodeInHand(*window_, hand_, Context());
        FollowUntouched();
    } else if (!ShowsCurrentNode()) {
        return FetchNode();
    }
    EnableButtons();
    ShowMenu();
}

// A box that saving opens takes the activation away too: that is no leaving.
void frmEditNodes::Form_Deactivate() {
    if (!window_ || saving_)
        return;
    UndoProbe();
    GiveAttentionBack();
}

// False when the text doesn't parse. The views are brought up to date for what the user works in there.
bool frmEditNodes::BringUpToDate(DocumentWindow& window) {
    const bool ahead = window.bTextChanged;
    if (!FinishAllEdits(window))
        return false;
    if (ahead || window.bTreeChanged)
        DoTree(window);
    return true;
}

void frmEditNodes::WindowClosed(const DocumentWindow& window) {
    if (refused_ && refused_->window == &window)
        refused_.reset();
    if (window_ == &window)
        Unload();
}

void frmEditNodes::Unload() {
    UndoProbe();
    GiveAttentionBack();
    window_ = nullptr;
    hand_ = {};
    ShowMessage({});
    unloaded();
}

void frmEditNodes::cmdOk_Click() {
    if (!SaveCurrentNode()) {
        if (!FindNodeAgain(*window_, hand_, trace_))
            return; // nothing would bring the typed text back
        KeepTyped();
    }
    Unload();
}

void frmEditNodes::cmdCancel_Click() {
    if (refused_ && refused_->window == window_)
        refused_.reset();
    Unload();
}

void frmEditNodes::KeepTyped() {
    refused_ = Refused{window_,
                       hand_,
                       trace_,
                       {name_, attrs_, text_},
                       {txtNodeName.Text(), txtNodeAttrs.Text(), txtNodeText.Text()}};
}

// Only for the very node as it was: it may have changed, or gone.
void frmEditNodes::BringTypedBack() {
    if (!refused_ || refused_->window != window_ ||
        !FindNodeAgain(*window_, refused_->hand, refused_->trace) || refused_->hand != hand_ ||
        refused_->node != Texts{name_, attrs_, text_})
        return;
    const Texts typed = std::exchange(refused_, std::nullopt)->typed;
    txtNodeName.SetText(typed.name);
    txtNodeAttrs.SetText(typed.attrs);
    txtNodeText.SetText(typed.text);
}

// --- what the dialog borrows -----------------------------------------------------------------------------

void frmEditNodes::TakeAttention() {
    const int context = window_->miPopupContext == 0 ? kContextTree : window_->miPopupContext;
    if (!attention_)
        attention_ = Attention{context, window_->miCurrentView};
    window_->miPopupContext = Context();
}

// The focus never left the window's view, so nothing there tells that it has the user's attention again. A
// view that the dialog chose has it from then on.
void frmEditNodes::GiveAttentionBack() {
    const auto found = std::exchange(attention_, std::nullopt);
    if (!found)
        return;
    if (window_->miCurrentView == found->view)
        window_->miPopupContext = found->context;
    if (app_.frame && app_.frame->ActiveForm() == window_)
        app_.frame->SetFormActivatedMenu(*window_);
}

void frmEditNodes::NoteBeforeProbe() {
    if (beforeProbe_)
        return;
    const controls::RichTextBox& pane = window_->TextInUse();
    beforeProbe_ = BeforeProbe{app_.lastParseError, &pane,           pane.SelStart(),
                               pane.SelLength(),    pane.SelStart(), pane.SelLength()};
}

void frmEditNodes::NoteAfterProbe() {
    if (!beforeProbe_)
        return;
    beforeProbe_->probeStart = beforeProbe_->pane->SelStart();
    beforeProbe_->probeLength = beforeProbe_->pane->SelLength();
}

// The document is none the worse for a value that isn't in it. A caret that was moved since stays.
void frmEditNodes::UndoProbe() {
    const auto before = std::exchange(beforeProbe_, std::nullopt);
    if (!before)
        return;
    app_.lastParseError = before->error;
    controls::RichTextBox& pane = window_->TextInUse();
    if (&pane != before->pane || pane.SelStart() != before->probeStart ||
        pane.SelLength() != before->probeLength)
        return;
    pane.SetSelStart(before->selStart);
    pane.SetSelLength(before->selLength);
    if (window_->tbsXML.SelectedKey() == QStringLiteral("textview"))
        ShowCursorPosition(*window_);
}

// --- the node in hand -------------------------------------------------------------------------------------

bool frmEditNodes::InList() const {
    return optList.Value();
}

int frmEditNodes::Context() const {
    return InList() ? kContextList : kContextTree;
}

void frmEditNodes::ShowMessage(const QString& message) {
    if (app_.frame)
        app_.frame->StatusBar1().SetPanel(1, message);
}

void frmEditNodes::ShowListTab(DocumentWindow& window) {
    if (window.tbsXML.SelectedKey() != QStringLiteral("listview"))
        window.tbsXML.Select(QStringLiteral("listview"));
    DoTree(window);
}

bool frmEditNodes::IsChanged() const {
    return kind_ != kNoNodeInHand &&
           (txtNodeName.Text() != name_ || txtNodeAttrs.Text() != attrs_ || txtNodeText.Text() != text_);
}

void frmEditNodes::FetchNode() {
    if (InList())
        SelectAnyRow(window_->ListView1);
    else
        SelectAnyNode(window_->tvXML);
    hand_ = GetNodeInHand(*window_, Context());
    trace_ = TraceOf(*window_, hand_);
    SetMemberVars(*window_, Context(), name_, attrs_, text_, kind_);
    ShowCurrentNode();
    BringTypedBack();
    ShowMenu();
}

bool frmEditNodes::ShowsCurrentNode() {
    Texts now;
    int kind = kNoNodeInHand;
    SetMemberVars(*window_, Context(), now.name, now.attrs, now.text, kind);
    return GetNodeInHand(*window_, Context()) == hand_ && now == Texts{name_, attrs_, text_} &&
           window_->txtXPath.Text() == path_;
}

// What was changed elsewhere meanwhile shows in the boxes that nobody typed in, and isn't written over.
void frmEditNodes::FollowUntouched() {
    Texts now{name_, attrs_, text_};
    if (!ReadNodeInHand(*window_, hand_, now.name, now.attrs, now.text))
        return;
    const auto follow = [](controls::TextBox& box, QString& was, const QString& is) {
        if (box.Text() == was)
            box.SetText(is);
        was = is;
    };
    follow(txtNodeName, name_, now.name);
    follow(txtNodeAttrs, attrs_, now.attrs);
    follow(txtNodeText, text_, now.text);
    trace_ = TraceOf(*window_, hand_);
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
    if (!app_.frame || app_.frame->ActiveForm() != window_)
        return;
    if (!InList())
        DoMenu(*window_);
    else
        app_.frame->SetMenuSituation(window_->ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected
                                                                           : MenuSituation::ListUnselected);
}

void frmEditNodes::ShowCurrentNode() {
    if (!window_)
        return;
    path_ = window_->txtXPath.Text();
    txtXPath.SetText(path_);
    txtNodeName.SetText(name_);
    txtNodeAttrs.SetText(attrs_);
    txtNodeText.SetText(text_);
    ShowKind();
    EnableButtons();
    ShowMessage({});
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
    if (!window_)
        return true;
    const QScopedValueRollback saving(saving_, true);
    try {
        BringToFront(*window_);
        return !IsChanged() || (FinishAllEdits(*window_) && WriteTyped());
    } catch (const text::Fault& fault) {
        ErrorReportBox(app_, fault, QStringLiteral("frmEditNodes.SaveCurrentNode"));
        return false;
    }
}

bool frmEditNodes::WriteTyped() {
    if (!FindNodeAgain(*window_, hand_, trace_)) {
        app_.services.prompts.MsgBox(GoneNotice(), services::Buttons::Ok, services::Icon::Exclamation);
        return false;
    }
    FollowUntouched();
    // A node can't go without a name, and there is nothing to say about an empty one: it keeps its own.
    if (txtNodeName.Text().isEmpty())
        txtNodeName.SetText(name_);
    NoteBeforeProbe();
    const NodeWrite result =
        WriteNodeInHand(*window_, hand_, txtNodeName.Text(), txtNodeAttrs.Text(), txtNodeText.Text());
    if (result == NodeWrite::Refused) {
        NoteAfterProbe();
        return false;
    }
    if (result == NodeWrite::Written && kind_ > 0)
        beforeProbe_.reset(); // the document has been tried anew, and stands as it is
    else
        UndoProbe();
    SelectRowInHand();
    name_ = txtNodeName.Text();
    attrs_ = txtNodeAttrs.Text();
    text_ = txtNodeText.Text();
    trace_ = TraceOf(*window_, hand_);
    path_ = window_->txtXPath.Text();
    return true;
}
