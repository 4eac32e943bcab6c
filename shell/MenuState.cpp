// SPDX-License-Identifier: GPL-3.0-or-later
// Which menu entries the user can choose in each situation of the active window.
#include "core/model/m_tvXML.h"
#include "shell/MenuPlan.h"
#include <array>

namespace {

using controls::TreeNode;

// --- the matrix ---------------------------------------------------------------------------------------

/// Entries of one row change together, the context menu's with their twins of the menu bar. A letter for each
/// situation, in the order of MenuSituation: E enabled, D disabled, - as the common first step left it, and
/// by a condition: c something to paste, h no root element yet, k as the kind of the node allows, u and r a
/// step to undo and to redo.
struct MatrixRow {
    std::array<const char*, 3> entries;
    const char* states;
};
constexpr MatrixRow kMatrix[] = {
    // clang-format off
    //                                                        none tree   list   text   table  other
    //                                                           root node sel none sel none sel none
    {{"mnuEditCut", "mnuCutP"},                              "D  D -  E D  E D  E D  D"},
    {{"mnuEditCopy", "mnuCopyP"},                            "D  D -  E D  E D  E D  D"},
    {{"mnuEditPaste", "mnuPasteP"},                          "D  c c  c c  c c  c c  D"},
    {{"mnuDelete", "mnuDeleteP"},                            "D  D -  - -  - -  E D  D"},
    {{"mnuEditName", "mnuEditP"},                            "D  E k  k D  D D  - -  D"},
    {{"mnuEditValue", "mnuEditAttrP"},                       "D  D k  k k  D D  - -  D"},
    {{"mnuNewCNode", "mnuNewCNodeP"},                        "D  h k  k k  D D  D D  D"},
    {{"mnuNewNode", "mnuNewNodeP"},                          "D  D k  k k  D D  D D  D"},
    {{"mnuNewAttr", "mnuNewAttrP"},                          "D  D k  k k  D D  D D  D"},
    {{"mnuNewNodeText", "mnuNewNodeTextP"},                  "D  D k  k k  D D  D D  D"},
    {{"mnuNewComment", "mnuNewCommentP"},                    "D  E -  E E  D D  D D  D"},
    {{"mnuFindReplace", "mnuSplitEditor", "mnuWinSplit"},    "D  D D  D D  - -  D D  D"},
    {{"mnuCopyAsHTML"},                                      "D  D D  D D  D D  E -  D"},
    // A tree that has the focus has nothing to select as a whole.
    {{"mnuSelectAll"},                                       "D  D D  - -  - -  - -  D"},
    {{"mnuEditUndo"},                                        "D  u u  u u  u u  u u  u"},
    {{"mnuRedo"},                                            "D  r r  r r  r r  r r  r"},
    {{"mnuMoveUP", "mnuMoveDown", "mnuEditPopupEditNode"},   "D  - -  - -  - -  - -  D"},
    // clang-format on
};

/// The letter of a situation.
constexpr char LetterOf(const MatrixRow& row, MenuSituation situation) {
    int column = static_cast<int>(situation);
    const char* letter = row.states;
    while (*letter == ' ' || column-- > 0)
        ++letter;
    return *letter;
}
static_assert(LetterOf(kMatrix[0], MenuSituation::NoForm) == 'D');
static_assert(LetterOf(kMatrix[0], MenuSituation::ListSelected) == 'E');
static_assert(LetterOf(kMatrix[6], MenuSituation::TreeRoot) == 'h');

/// What the commands would work on: the current node, or the node that the selected row of the list stands
/// for.
struct Target {
    int type = 0;             ///< node type
    bool atRootLevel = false; ///< directly below the tree root
    bool hasRootElement = false;
    bool canPaste = false, canUndo = false, canRedo = false;
};

constexpr int kElement = 1;
constexpr int kAttribute = 2;
constexpr int kText = 3;
constexpr int kInstruction = 7;
constexpr int kComment = 8;

/// Condition c: a node has been copied in this program; a text takes any text.
bool CanPaste(DocumentWindow& window, MenuSituation situation) {
    if (!window.app.copiedText.isEmpty()) // also when its document has been closed since
        return true;
    const bool text = situation == MenuSituation::TextSelected || situation == MenuSituation::TextUnselected;
    return (text || window.mbIsEditValue) && window.app.services.clipboard.HasText();
}

TreeNode NodeOf(DocumentWindow& window, MenuSituation situation) {
    const int row = window.ListView1.SelectedItem();
    if (situation != MenuSituation::ListSelected || row == 0)
        return window.tvXML.SelectedItem();
    const controls::ListItem& item = window.ListView1.Item(row);
    return window.tvXML.Nodes.Find(item.SmallIcon == kAttribute ? item.Tag : item.Key);
}

Target TargetOf(DocumentWindow& window, MenuSituation situation) {
    Target target;
    target.canPaste = CanPaste(window, situation);
    target.canUndo = window.UndoPos > 0;
    target.canRedo = window.UndoPos < std::ssize(window.undoStack);
    target.hasRootElement = m_tvXML::HaveElementNodeAtXMLRootLevel(window);
    if (const TreeNode node = NodeOf(window, situation)) {
        target.type = m_tvXML::GetKeyType(node);
        target.atRootLevel = m_tvXML::IsTreeRoot(node.Parent());
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
    case 'u':
        return target.canUndo;
    case 'r':
        return target.canRedo;
    default:
        return false;
    }
}

void ApplyMatrix(MenuPlan& plan, MenuSituation situation, const Target& target) {
    for (const MatrixRow& row : kMatrix) {
        const char letter = LetterOf(row, situation);
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

/// Only the text view works on text, so only it checks and closes tags; also while the tree beside it is in
/// use.
void DisableTextEdit(MenuPlan& plan, const DocumentWindow& window) {
    if (window.tbsXML.SelectedKey() != QStringLiteral("textview"))
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

MenuSituation TreeSituation(const DocumentWindow& window) {
    return m_tvXML::IsTreeRoot(window.tvXML.SelectedItem()) ? MenuSituation::TreeRoot
                                                            : MenuSituation::TreeNode;
}

MenuSituation ListSituation(const DocumentWindow& window) {
    return window.ListView1.SelectedItem() > 0 ? MenuSituation::ListSelected : MenuSituation::ListUnselected;
}

MenuSituation TextSituation(DocumentWindow& window) {
    return window.TextInUse().SelLength() > 0 ? MenuSituation::TextSelected : MenuSituation::TextUnselected;
}

/// The situation of a window that nobody has touched since it came to the front: that of the tree, or of the
/// view beside it when that was in use last.
MenuSituation SituationOf(DocumentWindow& window) {
    if (window.miCurrentView == kViewBrowser || window.miCurrentView == kViewSchema)
        return MenuSituation::ViewWithoutEditing;
    if (window.miPopupContext == 0 || window.miPopupContext == kContextTree)
        return TreeSituation(window);
    if (window.miCurrentView == kViewText)
        return TextSituation(window);
    if (window.miCurrentView == kViewTable)
        return MenuSituation::TableUnselected;
    return ListSituation(window);
}

} // namespace

void frmMDIMain::SetMenuSituation(MenuSituation situation) {
    MenuPlan plan(*this);
    DocumentWindow* window = ActiveForm();
    if (situation == MenuSituation::NoForm || !window) {
        situation = MenuSituation::NoForm;
        EnableMenuNoForm(plan);
    } else {
        CommonStep(plan, *window);
        const Target target = TargetOf(*window, situation);
        ApplyMatrix(plan, situation, target);
        DisableTextEdit(plan, *window);
        if (window->kind.schema && situation == MenuSituation::TreeRoot)
            EnableMenuSTreeRootSelected(plan, target);
        else if (window->kind.schema)
            plan.EnableAllSchemaMenuItem();
    }
    plan.Apply();
    menuSituation_ = situation;
    SetToolBar();
}

void frmMDIMain::SetFormActivatedMenu(DocumentWindow& window) {
    SetMenuSituation(SituationOf(window));
}

void frmMDIMain::RefreshMenu() {
    DocumentWindow* window = ActiveForm();
    if (!window)
        return;
    switch (menuSituation_) {
    case MenuSituation::TreeRoot:
    case MenuSituation::TreeNode:
        return SetMenuSituation(TreeSituation(*window));
    case MenuSituation::ListSelected:
    case MenuSituation::ListUnselected:
        return SetMenuSituation(ListSituation(*window));
    case MenuSituation::TextSelected:
    case MenuSituation::TextUnselected:
        return SetMenuSituation(TextSituation(*window));
    default:
        return SetMenuSituation(menuSituation_);
    }
}
