// SPDX-License-Identifier: GPL-3.0-or-later
// Which menu entries the user can choose in each situation of the active window.
#include "core/model/m_tvXML.h"
#include "shell/MenuPlan.h"
#include <array>

namespace {

using controls::TreeNode;

// --- the matrix ---------------------------------------------------------------------------------------

/// Entries of one row change together, the context menu's with their twins of the menu bar. A letter for each
/// situation, in the order of MenuSituation: E enabled, D disabled, - as the common step left it, c h k: by a
/// condition.
struct MatrixRow {
    std::array<const char*, 3> entries;
    const char* states;
};
constexpr MatrixRow kMatrix[] = {
    //                                                          none, root, node, list 2, text 2, table 2,
    //                                                          other
    {{"mnuEditCut", "mnuCutP"}, "DD-EDEDEDD"},
    {{"mnuEditCopy", "mnuCopyP"}, "DD-EDEDEDD"},
    {{"mnuEditPaste", "mnuPasteP"}, "DccccccccD"},
    {{"mnuDelete", "mnuDeleteP"}, "DD-----EDD"},
    {{"mnuEditName", "mnuEditP"}, "DEkkDDD--D"},
    {{"mnuEditValue", "mnuEditAttrP"}, "DDkkkDD--D"},
    {{"mnuNewCNode", "mnuNewCNodeP"}, "DhkkkDDDDD"},
    {{"mnuNewNode", "mnuNewNodeP"}, "DDkkkDDDDD"},
    {{"mnuNewAttr", "mnuNewAttrP"}, "DDkkkDDDDD"},
    {{"mnuNewNodeText", "mnuNewNodeTextP"}, "DDkkkDDDDD"},
    {{"mnuNewComment", "mnuNewCommentP"}, "DE-EEDDDDD"},
    {{"mnuFindReplace", "mnuSplitEditor", "mnuWinSplit"}, "DDDDD--DDD"},
    {{"mnuCopyAsHTML"}, "DDDDDDDE-D"},
    // A tree that has the focus has nothing to select as a whole; browser and schema views offer no editing.
    {{"mnuSelectAll"}, "DDD------D"},
    {{"mnuEditUndo", "mnuRedo", "mnuEditPopupEditNode"}, "D--------D"},
    {{"mnuMoveUP", "mnuMoveDown"}, "DD-------D"},
};

/// What the commands would work on: the current node, or the selected row of the list.
struct Target {
    int type = 0;             ///< node type
    bool atRootLevel = false; ///< directly below the tree root
    bool hasRootElement = false;
    bool canPaste = false;
};

constexpr int kElement = 1;
constexpr int kText = 3;
constexpr int kInstruction = 7;
constexpr int kComment = 8;

/// Condition c: a node has been copied in this program; a text takes any text.
bool CanPaste(DocumentWindow& window, MenuSituation situation) {
    const DocumentWindow* source = window.app.clipboardSource;
    if (source && !source->msNodeClip.isEmpty())
        return true;
    const bool text = situation == MenuSituation::TextSelected || situation == MenuSituation::TextUnselected;
    return text && !window.app.services.clipboard.GetText().isEmpty();
}

Target TargetOf(DocumentWindow& window, MenuSituation situation) {
    Target target;
    target.canPaste = CanPaste(window, situation);
    const TreeNode current = window.tvXML.SelectedItem();
    target.hasRootElement = m_tvXML::HaveElementNodeAtXMLRootLevel(window);
    const int row = window.ListView1.SelectedItem();
    if (situation == MenuSituation::ListSelected && row > 0) {
        const QString key = window.ListView1.Item(row).Key;
        target.type = m_tvXML::GetKeyType(key);
        // A leaf's list shows the leaf itself, an element's list what is below it.
        const bool itself = current && key == current.Key();
        target.atRootLevel = m_tvXML::IsTreeRoot(itself ? current.Parent() : current);
    } else if (current) {
        target.type = m_tvXML::GetKeyType(current);
        target.atRootLevel = m_tvXML::IsTreeRoot(current.Parent());
    }
    return target;
}

bool IsOneOf(const QString& name, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(), [&](const char* n) { return name == QLatin1String(n); });
}

/// Condition k: what the kind of a node allows.
bool AllowedByNode(const QString& entry, const Target& target) {
    if (IsOneOf(entry, {"mnuEditValue", "mnuEditAttrP"}))
        return true;
    // A document has one root element. At its level the menu bar also holds back attributes and text, which
    // the context menu still offers.
    if (target.atRootLevel && target.hasRootElement &&
        IsOneOf(entry, {"mnuNewNode", "mnuNewNodeP", "mnuNewAttr", "mnuNewNodeText"}))
        return false;
    const bool newSibling = IsOneOf(entry, {"mnuNewNode", "mnuNewNodeP"});
    switch (target.type) {
    case kText:
    case kComment:
        return newSibling;
    case kInstruction:
        return newSibling && !target.atRootLevel;
    case kElement:
        return !(newSibling && target.atRootLevel);
    default:
        return true;
    }
}

bool StateOf(char letter, const QString& entry, const Target& target) {
    switch (letter) {
    case 'E':
        return true;
    case 'h':
        return !target.hasRootElement;
    case 'k':
        return AllowedByNode(entry, target);
    case 'c':
        return target.canPaste;
    default:
        return false;
    }
}

void ApplyMatrix(MenuPlan& plan, MenuSituation situation, const Target& target) {
    for (const MatrixRow& row : kMatrix) {
        const char letter = row.states[static_cast<int>(situation)];
        if (letter == '-')
            continue;
        for (const char* entry : row.entries) {
            if (!entry)
                continue;
            const QString name = QLatin1String(entry);
            plan.Set(name, StateOf(letter, name, target));
        }
    }
}

// --- common steps -----------------------------------------------------------------------------------

void SetXMLFormActivatedMenu(MenuPlan& plan) {
    plan.Enable({"mnuTExpToText", "mnuTExpToDb", "mnuViewSchema"});
    plan.Disable({"mnuTCDBSOnSchema", "mnuTHtmlToXml2", "mnuViewCompact", "mnuSchema", "mnuXSD"});
}

void SetSchemaFormActivatedMenu(MenuPlan& plan) {
    plan.Enable({"mnuSchema", "mnuXSD", "mnuViewCompact"});
    plan.Disable({"mnuGotoSchema", "mnuGenSchema", "mnuApplySchema", "mnuTCDBSOnSchema", "mnuTHtmlToXml2",
                  "mnuTExpToText", "mnuTExpToDb", "mnuViewSchema"});
}

void CommonStep(MenuPlan& plan, const DocumentWindow& window) {
    plan.EnableAllMenuItem();
    plan.EnableAllPopupItem();
    if (window.kind.schema)
        SetSchemaFormActivatedMenu(plan);
    else
        SetXMLFormActivatedMenu(plan);
}

/// Only the text view works on text, so only it checks and closes tags.
void DisableTextEdit(MenuPlan& plan, MenuSituation situation) {
    if (situation != MenuSituation::TextSelected && situation != MenuSituation::TextUnselected)
        plan.Disable({"mnuXMLValidate", "mnuXMLCloseTag"});
}

// --- situations --------------------------------------------------------------------------------------

void EnableMenuNoForm(MenuPlan& plan) {
    plan.DisableAllMenuItem();
    plan.DisableAllSchemaMenuItem();
    plan.Enable({"mnuFile",         "mnuFileNew",        "mnuNewschema", "mnuFileOpen",
                 "mnuFileExit",     "mnuFileMRU",        "mnuXSD",       "mnuEdit",
                 "mnuXML",          "mnuWindow",         "mnuSchema",    "mnuHelp",
                 "mnuHelpContents", "mnuShowonlinehelp", "mnuHelpAbout", "mnuTool",
                 "mnuTImpText",     "mnuTImpDbData",     "mnuSCds",      "mnuToolOptions"});
}

/// At the root of a schema document only its schema element can be added, and only one.
void EnableMenuSTreeRootSelected(MenuPlan& plan, const Target& target) {
    plan.Disable(
        {"mnuNewCNode", "mnuNewCNodeP", "mnuNewComment", "mnuNewCommentP", "mnuEditPaste", "mnuPasteP"});
    plan.HideAllSchemaMenuItem();
    if (!target.hasRootElement)
        plan.ShowSchemaMenuItem(QStringLiteral("mnuNewSSchema"));
}

/// The situation of a window that nobody has touched since it came to the front: that of the tree, or of the
/// view beside it when that was in use last.
MenuSituation SituationOf(DocumentWindow& window) {
    if (window.miCurrentView == kViewBrowser || window.miCurrentView == kViewSchema)
        return MenuSituation::ViewWithoutEditing;
    if (window.miPopupContext == 0 || window.miPopupContext == kContextTree)
        return m_tvXML::IsTreeRoot(window.tvXML.SelectedItem()) ? MenuSituation::TreeRoot
                                                                : MenuSituation::TreeNode;
    if (window.miCurrentView == kViewText)
        return window.TextInUse().SelLength() > 0 ? MenuSituation::TextSelected
                                                  : MenuSituation::TextUnselected;
    if (window.miCurrentView == kViewTable)
        return MenuSituation::TableUnselected;
    return window.ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected : MenuSituation::ListUnselected;
}

} // namespace

void frmMDIMain::SetMenuSituation(MenuSituation situation) {
    MenuPlan plan(*this);
    DocumentWindow* window = ActiveForm();
    if (situation == MenuSituation::NoForm || !window) {
        EnableMenuNoForm(plan);
    } else {
        CommonStep(plan, *window);
        const Target target = TargetOf(*window, situation);
        ApplyMatrix(plan, situation, target);
        DisableTextEdit(plan, situation);
        if (window->kind.schema && situation == MenuSituation::TreeRoot)
            EnableMenuSTreeRootSelected(plan, target);
        else if (window->kind.schema)
            plan.EnableAllSchemaMenuItem();
    }
    plan.Apply();
    SetToolBar();
}

void frmMDIMain::SetFormActivatedMenu(DocumentWindow& window) {
    SetMenuSituation(SituationOf(window));
}
