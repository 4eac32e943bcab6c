// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuData.h"
#include "schema/InsertMenu.h"
#include <span>

namespace shell {

namespace {

/// One entry of a menu; a null name is a separator.
struct Row {
    const char* name = nullptr;
    const char* caption = "";
    const char* shortcut = "";
    const char* icon = "";
};
constexpr Row kSeparator{};

// Marks the places where entries of another table stand.
constexpr const char* kRecentFiles = "mnuFileMRU";
constexpr const char* kChartTypes = "mnuTVChartType";
constexpr const char* kSourceControl = "mnuTSS";

constexpr Row kFile[] = {
    {"mnuFileNew", "新建XML文件(&N)", "Ctrl+N", "document-new"},
    {"mnuNewschema", "新建Schema文件", "", "document-new"},
    {"mnuFileOpen", "打开(&O)...", "Ctrl+O", "document-open"},
    {"mnuFileClose", "关闭(&C)", "Ctrl+W", "window-close"},
    {"mnuCloseAll", "关闭所有窗口"},
    kSeparator,
    {"mnuFileSave", "保存(&S)", "Ctrl+S", "document-save"},
    {"mnuFileSaveAs", "另存为", "Ctrl+Shift+S", "document-save-as"},
    {"mnuFileSaveAll", "保存所有文件(&A)"},
    kSeparator,
    {"mnuFilePageSetup", "页面设置(&s)...", "", "document-page-setup"},
    {"mnuFilePrint", "打印(&P)...", "Ctrl+P", "document-print"},
    kSeparator,
    {kRecentFiles},
    kSeparator,
    {"mnuFileExit", "退出(&X)", "", "application-exit"},
};

constexpr Row kEdit[] = {
    {"mnuEditUndo", "撤消(&U)", "Ctrl+Z", "edit-undo"},
    {"mnuRedo", "重复(&R)", "Ctrl+Y; Ctrl+Shift+Z", "edit-redo"},
    kSeparator,
    {"mnuEditCut", "剪切(&u)", "Ctrl+X", "edit-cut"},
    {"mnuEditCopy", "复制(&C)", "Ctrl+C", "edit-copy"},
    {"mnuEditPaste", "粘贴(&P)", "Ctrl+V", "edit-paste"},
    {"mnuDelete", "删除", "", "edit-delete"},
    kSeparator,
    {"mnuEditName", "重命名", "F2", "edit-rename"},
    {"mnuEditValue", "编辑值", "", "document-edit"},
    {"mnuMoveUP", "上一节点", "Alt+Up", "go-up"},
    {"mnuMoveDown", "下一节点", "Alt+Down", "go-down"},
    kSeparator,
    {"mnuEditPopupEditNode", "弹出编辑"},
    {"mnuSelectAll", "全选(&A)", "", "edit-select-all"},
    {"mnuFindReplace", "查找替换(&F)...", "Ctrl+F", "edit-find-replace"},
    {"mnuSplitEditor", "对比编辑"},
    {"mnuCopyAsHTML", "复制TableView数据到HTML表格"},
};

constexpr Row kXml[] = {
    {"mnuNewCNode", "新建子节点", "", "list-add"},
    {"mnuNewNode", "新建节点", "", "list-add"},
    {"mnuNewAttr", "新建属性"},
    {"mnuNewNodeText", "新建节点文本"},
    {"mnuNewComment", "新建注释"},
    kSeparator,
    {"mnuSortAZ", "升序排列", "", "view-sort-ascending"},
    {"mnuSortZA", "降序排列", "", "view-sort-descending"},
    kSeparator,
    {"mnuGotoSchema", "打开相应Schema"},
    {"mnuApplySchema", "应用Schema"},
    {"mnuXMLValidate", "验证XML", "", "dialog-ok-apply"},
    {"mnuNextDiagnostic", "下一个问题", "F8", "go-next"},
    {"mnuPreviousDiagnostic", "上一个问题", "Shift+F8", "go-previous"},
    {"mnuXMLCloseTag", "在文本视图中添加节点的结束标记"},
    {"mnuGenSchema", "生成Schema"},
    {"mnuInferSchema", "生成匹配的Schema"},
    {"mnuSXMLImpOnDBS", "根据数据库Schema导入XML"},
};

constexpr Row kSchema[] = {
    {"mnuSGenXML", "通过Schema生成XML"},
    {"mnuSValidSample", "通过Schema生成有效XML"},
    kSeparator,
    {"mnuSEnaMsSQL", "启用微软SQL Server Schema扩展"},
    {"mnuSEnaOra", "启用Oracle Schema扩展"},
};

constexpr Row kView[] = {
    {"mnuViewList", "列表视图", "", "view-list-details"},
    {"mnuViewAtTableV", "表格视图", "", "view-form-table"},
    {kChartTypes, "图表类型"},
    {"mnuViewText", "文本视图", "", "text-x-generic"},
    {"mnuViewCompact", "Schema实例图"},
    {"mnuViewWebBrowser", "浏览器视图", "", "internet-web-browser"},
    {"mnuViewSchema", "Schema视图"},
};

constexpr const char* kChartCaptions[] = {"三维条",   "二维条",   "三维线",   "二维线",
                                          "三维区域", "二维区域", "三维阶梯", "二维阶梯",
                                          "三维组合", "二维组合", "二维饼",   "二维XY"};

constexpr Row kTool[] = {
    {"mnuTImpText", "导入文本文件", "", "document-import"},
    {"mnuTImpDbData", "导入数据库数据"},
    {"mnuSCds", "创建数据库Schema"},
    {"mnuTCDBSOnSchema", "按Schema创建数据结构"},
    {"mnuTExpToText", "导出到文本文件", "", "document-export"},
    {"mnuTExpToDb", "导出到数据库"},
    {"mnuTHtmlToXml2", "HTML/XML to XML/HTML"},
    kSeparator,
    {"mnuToolOptions", "(&O)选项...", "", "configure"},
    kSeparator,
    {"mnuTPtoWS", "发布到WWW服务器"},
    {kSourceControl, "版本控制"},
};

constexpr Row kSourceControlEntries[] = {
    {"mnuTSOpenPrj", "打开项目..."},
    {"mnuTSCPfSS", "从版本控制创建项目"},
    kSeparator,
    {"mnuTSGLV", "获取最新版本"},
    {"mnuTSCheckOut", "签出"},
    {"mnuTSCheckIn", "签入"},
    {"mnuTSUCO", "撤消签出"},
    kSeparator,
    {"mnuTSAFToSS", "添加文件到版本控制"},
    {"mnuTSSFiles", "共享文件"},
    {"mnuTSSHistory", "显示历史"},
    {"mnuTSSDiff", "显示差异"},
    {"mnuTSSSProp", "文件属性"},
    {"mnuTSRefreshFS", "刷新文件状态"},
    kSeparator,
    {"mnuTSRunSS", "运行版本控制程序"},
};

constexpr Row kWindow[] = {
    {"mnuWinSplit", "拆分"},
    kSeparator,
    {"mnuWindowCascade", "(&C)层叠"},
    {"mnuWindowTileHorizontal", "(&H)水平平铺"},
    {"mnuWindowTileVertical", "(&V)垂直平铺"},
    {"mnuWindowArrangeIcons", "(&A)排列图标"},
};

constexpr Row kHelp[] = {
    {"mnuHelpContents", "Vantrel 帮助", "", "help-contents"},
    {"mnuShowonlinehelp", "在线帮助"},
    kSeparator,
    {"mnuHelpAbout", "关于Vantrel(&A)", "", "help-about"},
};

// No shortcuts here: those of the twins in the menu bar are in force everywhere.
constexpr Row kPopup[] = {
    {"mnuNewCNodeP", "新建子结点", "", "list-add"},
    {"mnuNewNodeP", "新建结点", "", "list-add"},
    {"mnuNewAttrP", "新建属性"},
    {"mnuNewNodeTextP", "新建节点文本"},
    {"mnuNewCommentP", "新建注释"},
    kSeparator,
    {"mnuCutP", "剪切(&u)", "", "edit-cut"},
    {"mnuCopyP", "复制(&C)", "", "edit-copy"},
    {"mnuPasteP", "粘贴(&P)", "", "edit-paste"},
    {"mnuDeleteP", "删除", "", "edit-delete"},
    kSeparator,
    {"mnuEditP", "重命名", "", "edit-rename"},
    {"mnuEditAttrP", "编辑值", "", "document-edit"},
};

struct TopMenu {
    const char* name;
    const char* caption;
    std::span<const Row> rows;
};
// What can be inserted into a schema: the entries are told by the room that inserts.
constexpr char kInserts[] = "mnuXSD";
constexpr TopMenu kMenus[] = {
    {"mnuFile", "文件(&F)", kFile},    {"mnuEdit", "编辑(&E)", kEdit},     {"mnuXML", "XML(&X)", kXml},
    {"mnuSchema", "S&chema", kSchema}, {kInserts, "&Schema设计", {}},      {"mnuView", "视图(&V)", kView},
    {"mnuTool", "工具(&T)", kTool},    {"mnuWindow", "窗口(&W)", kWindow}, {"mnuHelp", "帮助(&H)", kHelp},
    {"mnuPopup", "Popup", kPopup},
};

constexpr int kRecentEntries = 4;

controls::MenuItem& Append(controls::MenuItem& menu, const Row& row, int index = 0) {
    auto item = std::make_unique<controls::MenuItem>();
    item->separator = !row.name;
    if (row.name)
        item->Name = QString::fromUtf8(row.name);
    item->SetCaption(QString::fromUtf8(row.caption));
    item->Shortcut = QLatin1String(row.shortcut);
    item->Icon = QLatin1String(row.icon);
    item->Index = index;
    menu.Items.push_back(std::move(item));
    return *menu.Items.back();
}

void Fill(controls::MenuItem& menu, std::span<const Row> rows) {
    for (const Row& row : rows) {
        if (row.name == kRecentFiles) {
            for (int i = 1; i <= kRecentEntries; ++i)
                Append(menu, row, i).SetVisible(false);
            continue;
        }
        controls::MenuItem& item = Append(menu, row);
        if (row.name == kChartTypes) {
            int index = 0;
            for (const char* caption : kChartCaptions)
                Append(item, {"mnuViewChart", caption}, index++);
        } else if (row.name == kSourceControl) {
            Fill(item, kSourceControlEntries);
        }
    }
}

void FillInserts(controls::MenuItem& menu) {
    for (const schema::InsertEntry& one : schema::InsertEntries())
        Append(menu, {one.entry, one.element});
    Append(menu, {"mnuNewSNone", "(none)"});
}

} // namespace

std::vector<std::unique_ptr<controls::MenuItem>> BuildMenus() {
    std::vector<std::unique_ptr<controls::MenuItem>> menus;
    for (const TopMenu& top : kMenus) {
        auto menu = std::make_unique<controls::MenuItem>();
        menu->Name = QString::fromUtf8(top.name);
        menu->SetCaption(QString::fromUtf8(top.caption));
        Fill(*menu, top.rows);
        if (top.name == kInserts)
            FillInserts(*menu);
        menus.push_back(std::move(menu));
    }
    return menus;
}

} // namespace shell
