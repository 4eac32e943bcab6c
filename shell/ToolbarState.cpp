// SPDX-License-Identifier: GPL-3.0-or-later
// Which toolbar buttons the user can press: each with the menu entry that does the same, the others by the
// view in force.
#include "core/model/m_tvXML.h"
#include "shell/frmMDIMain.h"

namespace {

/// A button that does what a menu entry does is enabled with it.
struct Twin {
    const char* toolbar;
    const char* key;
    const char* entry;
};
constexpr Twin kTwins[] = {
    {"tbFileEdit", "newfile", "mnuFileNew"},
    {"tbFileEdit", "openfile", "mnuFileOpen"},
    {"tbFileEdit", "savefile", "mnuFileSave"},
    {"tbFileEdit", "print", "mnuFilePrint"},
    {"tbCommonEdit", "cut", "mnuEditCut"},
    {"tbCommonEdit", "copy", "mnuEditCopy"},
    {"tbCommonEdit", "paste", "mnuEditPaste"},
    {"tbCommonEdit", "delete", "mnuDelete"},
    {"tbCommonEdit", "undo", "mnuEditUndo"},
    {"tbCommonEdit", "redo", "mnuRedo"},
    {"tbCommonEdit", "find", "mnuFindReplace"},
    {"tbCommonEdit", "az", "mnuSortAZ"},
    {"tbCommonEdit", "za", "mnuSortZA"},
    {"tbListEdit", "newattribute", "mnuNewAttrP"},
    {"tbListEdit", "newcomment", "mnuNewComment"},
    {"tbListEdit", "newtext", "mnuNewNodeTextP"},
    {"tbListEdit", "moveup", "mnuMoveUP"},
    {"tbListEdit", "movedown", "mnuMoveDown"},
    {"tbListEdit", "popedit", "mnuEditPopupEditNode"},
    {"tbTextEdit", "closetag", "mnuXMLCloseTag"},
    {"tbTextEdit", "validate", "mnuXMLValidate"},
};

bool ShowsList(const DocumentWindow& window) {
    return window.miCurrentView == kViewTree || window.miCurrentView == kViewList;
}

/// Tree or list have the user's attention, and the current node has a level above it.
bool CanChangeLevel(const DocumentWindow& window, MenuSituation situation) {
    const controls::TreeNode node = window.tvXML.SelectedItem();
    return node && !m_tvXML::IsTreeRoot(node) &&
           (situation == MenuSituation::TreeNode || situation == MenuSituation::ListSelected ||
            situation == MenuSituation::ListUnselected);
}

void SetEntities(frmMDIMain& frame, bool enabled) {
    controls::Toolbar& entities = frame.ToolbarByName(QStringLiteral("tbTextEdit"));
    for (const char* key : {"quote", "apostraphe", "lt", "gt", "amp"})
        entities.Button(QLatin1String(key)).SetEnabled(enabled);
}

} // namespace

void frmMDIMain::EnableEntitiesToolbar() {
    SetEntities(*this, true);
}

void frmMDIMain::SetToolBar() {
    const DocumentWindow* window = ActiveForm();
    const bool list = window && ShowsList(*window);
    const bool table = window && window->miCurrentView == kViewTable;
    const bool textView = window && window->miCurrentView == kViewText;

    Menu(QStringLiteral("mnuSortAZ")).SetEnabled(table);
    Menu(QStringLiteral("mnuSortZA")).SetEnabled(table);
    for (const Twin& twin : kTwins) {
        ToolbarByName(QLatin1String(twin.toolbar))
            .Button(QLatin1String(twin.key))
            .SetEnabled(Menu(QLatin1String(twin.entry)).Enabled());
    }
    ToolbarByName(QStringLiteral("tbFileEdit")).Button(QStringLiteral("listview")).SetEnabled(list);

    controls::Toolbar& nodes = ToolbarByName(QStringLiteral("tbListEdit"));
    const bool level = window && CanChangeLevel(*window, SituationInForce());
    for (const char* key : {"uponelevel", "moveuplevel", "movedownlevel"})
        nodes.Button(QLatin1String(key)).SetEnabled(level);
    nodes.Button(QStringLiteral("newelement"))
        .SetEnabled(Menu(QStringLiteral("mnuNewCNode")).Enabled() ||
                    Menu(QStringLiteral("mnuNewNode")).Enabled());

    SetEntities(*this, textView || (window && window->mbIsEditValue));

    // "go" is enabled by the address alone.
    controls::Toolbar& navigate = ToolbarByName(QStringLiteral("tbNavigate"));
    navigate.Button(QStringLiteral("back")).SetEnabled(window != nullptr);
    navigate.Button(QStringLiteral("forward")).SetEnabled(window != nullptr);
}
