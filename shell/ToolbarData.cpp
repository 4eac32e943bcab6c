// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ToolbarData.h"
#include <span>

namespace shell {

namespace {

struct ButtonRow {
    const char* key;
    const char* toolTip;
    const char* icon;
};

constexpr ButtonRow kFileEdit[] = {
    {"newfile", "New File", "document-new"},    {"openfile", "Open File", "document-open"},
    {"savefile", "Save File", "document-save"}, {"print", "Print", "document-print"},
    {"listview", "Views", "view-list-details"},
};

constexpr ButtonRow kCommonEdit[] = {
    {"cut", "Cut", "edit-cut"},
    {"copy", "Copy", "edit-copy"},
    {"paste", "Paste", "edit-paste"},
    {"delete", "Delete", "edit-delete"},
    {"undo", "Undo", "edit-undo"},
    {"redo", "Redo", "edit-redo"},
    {"find", "Find", "edit-find"},
    {"az", "Sort Ascending", "view-sort-ascending"},
    {"za", "Sort Descending", "view-sort-descending"},
};

constexpr ButtonRow kListEdit[] = {
    {"uponelevel", "Go To Parent Node", "go-parent-folder"},
    {"newelement", "New Element", ""},
    {"newattribute", "New Attribute", ""},
    {"newcomment", "New Comment", ""},
    {"newtext", "New Node Text", ""},
    {"moveup", "Move Up", "arrow-up"},
    {"movedown", "Move Down", "arrow-down"},
    {"moveuplevel", "Set Node As Parent", "format-indent-less"},
    {"movedownlevel", "Set Node As Child", "format-indent-more"},
    {"popedit", "Edit Node One By One", "document-edit"},
};

// The key "apostraphe" is spelled so.
constexpr ButtonRow kTextEdit[] = {
    {"closetag", "Close Tag", ""},
    {"validate", "Validate XML", "dialog-ok-apply"},
    {"quote", "&quot;", ""},
    {"apostraphe", "&apos;", ""},
    {"lt", "&lt;", ""},
    {"gt", "&gt;", ""},
    {"amp", "&amp;", ""},
};

constexpr ButtonRow kNavigate[] = {
    {"go", "Go", "go-jump"},
    {"back", "Back", "go-previous"},
    {"forward", "Forward", "go-next"},
};

struct ToolbarRow {
    const char* name;
    const char* caption;
    std::span<const ButtonRow> buttons;
};
constexpr ToolbarRow kToolbars[] = {
    {"tbFileEdit", "文件", kFileEdit}, {"tbCommonEdit", "编辑", kCommonEdit},
    {"tbListEdit", "节点", kListEdit}, {"tbTextEdit", "文本", kTextEdit},
    {"tbNavigate", "导航", kNavigate},
};

} // namespace

std::vector<std::unique_ptr<controls::Toolbar>> BuildToolbars() {
    std::vector<std::unique_ptr<controls::Toolbar>> toolbars;
    for (const ToolbarRow& row : kToolbars) {
        auto toolbar = std::make_unique<controls::Toolbar>();
        toolbar->Name = QLatin1String(row.name);
        toolbar->Caption = QString::fromUtf8(row.caption);
        for (const ButtonRow& buttonRow : row.buttons) {
            auto button = std::make_unique<controls::ToolButton>();
            button->Key = QLatin1String(buttonRow.key);
            button->ToolTip = QLatin1String(buttonRow.toolTip);
            button->Icon = QLatin1String(buttonRow.icon);
            toolbar->Buttons.push_back(std::move(button));
        }
        toolbars.push_back(std::move(toolbar));
    }
    toolbars.front()->Button(QStringLiteral("listview")).ButtonMenus = {
        {QStringLiteral("details"), QStringLiteral("Details")},
        {QStringLiteral("icons"), QStringLiteral("Icons")},
        {QStringLiteral("list"), QStringLiteral("List")},
    };
    return toolbars;
}

} // namespace shell
