// SPDX-License-Identifier: GPL-3.0-or-later
// Which toolbar buttons the user can press in the view in force.
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
    {"tbListEdit", "moveuplevel", "mnuMoveUP"},
    {"tbListEdit", "movedownlevel", "mnuMoveDown"},
    {"tbListEdit", "popedit", "mnuEditPopupEditNode"},
    {"tbTextEdit", "closetag", "mnuXMLCloseTag"},
    {"tbTextEdit", "validate", "mnuXMLValidate"},
};

bool ShowsList(const DocumentWindow& window) {
    return window.miCurrentView == kViewTree || window.miCurrentView == kViewList;
}

bool CanGoUp(const DocumentWindow& window) {
    const controls::TreeNode node = window.tvXML.SelectedItem();
    return node && !m_tvXML::IsTreeRoot(node);
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
        const bool ofList = QLatin1String(twin.toolbar) == QLatin1String("tbListEdit");
        ToolbarByName(QLatin1String(twin.toolbar))
            .Button(QLatin1String(twin.key))
            .SetEnabled(Menu(QLatin1String(twin.entry)).Enabled() && (list || !ofList));
    }
    ToolbarByName(QStringLiteral("tbFileEdit")).Button(QStringLiteral("listview")).SetEnabled(list);

    controls::Toolbar& nodes = ToolbarByName(QStringLiteral("tbListEdit"));
    nodes.Button(QStringLiteral("uponelevel")).SetEnabled(list && CanGoUp(*window));
    nodes.Button(QStringLiteral("newelement"))
        .SetEnabled(list && (Menu(QStringLiteral("mnuNewCNode")).Enabled() ||
                             Menu(QStringLiteral("mnuNewNode")).Enabled()));

    SetEntities(*this, textView || (window && window->mbIsEditValue));

    // "go" is enabled by the address alone.
    controls::Toolbar& navigate = ToolbarByName(QStringLiteral("tbNavigate"));
    navigate.Button(QStringLiteral("back")).SetEnabled(window != nullptr);
    navigate.Button(QStringLiteral("forward")).SetEnabled(window != nullptr);
}
