// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/NodeNumbers.h"
#include "core/model/Serialise.h"
#include "table/Sheet.h"
#include "table/TableState.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace test {

inline constexpr char kShop[] = "<shop><item id=\"007\" name=\"Tea\">fine</item><!--new-->"
                                "<item id=\"008\" name=\"Cup\"><part/></item><note>x</note>"
                                "<item name=\"Pot\" id=\"1.50\"/></shop>";

/// A document in the table view, worked by the acts of a user. The first element below the root is current.
struct TableDesk : testing::Test {
    TestApp t;
    DocumentWindow* w = nullptr;

    void Open(const QByteArray& text = kShop, const QString& name = QStringLiteral("shop.xml")) {
        w = &t.OpenText(name, text);
        table::ResizeTableView(*w, 9000, 6000);
        w->tbsXML.Select(QStringLiteral("tableview"));
        if (const controls::TreeNode first = m_tvXML::FirstElement(Element().Child()))
            t.ClickNode(first);
    }
    controls::TreeNode Root() { return w->tvXML.Nodes(1); }
    controls::TreeNode Element() { return m_tvXML::FirstElement(Root().Child()); }
    controls::FlexGrid& Grid(int index = 0) { return w->hfgrdTableView(index); }
    int Grids() { return Grid().Visible() ? w->hfgrdTableView.Count() : 0; }

    /// What a grid shows behind the keys: cells by "|", rows by line ends.
    std::string Cells(int index = 0) {
        QStringList rows;
        for (int row = 0; row < Grid(index).Rows(); ++row) {
            QStringList cells;
            for (int column = 1; column < Grid(index).Cols(); ++column)
                cells << Grid(index).TextMatrix(row, column);
            rows << cells.join(u'|');
        }
        return rows.join(u'\n').toStdString();
    }
    /// Without indentation and line breaks.
    std::string Xml() {
        return m_tvXML::GetTreeNodesXML(Element(), {}).remove(QStringLiteral("\r\n")).toStdString();
    }
    std::string Text() {
        return QString(w->rtxtXML.Text()).remove(QStringLiteral("\r\n")).remove(u'\t').toStdString();
    }
    std::string TagAt(int row, int index = 0) {
        return w->tvXML.Nodes(Grid(index).TextMatrix(row, 0)).Tag().toStdString();
    }
    std::string Current() { return w->tvXML.SelectedItem().Key().toStdString(); }

    /// Drags over a block, or clicks a cell, with the left button.
    void Drag(int row, int column, int rowSel, int columnSel, int index = 0) {
        controls::FlexGrid& grid = Grid(index);
        grid.MouseRow = row;
        grid.MouseCol = column;
        grid.events().GotFocus(grid);
        grid.Select(std::max(row, 1), column, rowSel, columnSel);
        grid.events().MouseDown(grid, 1);
        grid.events().MouseUp(grid, 1);
        grid.events().Click(grid);
    }
    void Click(int row, int column, int index = 0) { Drag(row, column, std::max(row, 1), column, index); }
    void DblClick(int row, int column, int index = 0) {
        Click(row, column, index);
        Grid(index).events().DblClick(Grid(index));
    }
    /// A key in the grid that the user last touched.
    void Key(int key, int modifiers = 0) {
        controls::FlexGrid& grid = Grid(table::TableOf(*w).miTableViewIndex);
        int down = key;
        grid.events().KeyDown(grid, down, modifiers);
        if (key < 0x7F && modifiers == 0)
            grid.events().KeyPress(grid, key);
        grid.events().KeyUp(grid, key, modifiers);
    }
    void Control(int key) { Key(key, static_cast<int>(Qt::ControlModifier)); }

    // --- the editors ---------------------------------------------------------------------------------------
    std::string Edited() { return w->txtTView.Visible() ? w->txtTView.Text().toStdString() : "closed"; }
    std::string EditedHeader() {
        return w->txtTViewHeader.Visible() ? w->txtTViewHeader.Text().toStdString() : "closed";
    }
    /// Opens the editor on a cell, types, and leaves it.
    void Edit(int row, int column, const char* text, int index = 0) {
        DblClick(row, column, index);
        ASSERT_TRUE(w->txtTView.Visible());
        w->txtTView.GotFocus();
        w->txtTView.UserTyped(QString::fromUtf8(text));
        w->txtTView.LostFocus();
        EXPECT_FALSE(w->txtTView.Visible());
    }
    void Rename(int column, const char* name, int index = 0) {
        DblClick(0, column, index);
        ASSERT_TRUE(w->txtTViewHeader.Visible());
        w->txtTViewHeader.UserTyped(QString::fromUtf8(name));
        w->txtTViewHeader.LostFocus();
    }
    /// A key in an open editor, the caret at a place; whether it was used up.
    static bool EditorKey(controls::TextBox& editor, int key, qsizetype caret = 0, int modifiers = 0) {
        editor.UserSelected(caret, 0);
        editor.KeyDown(key, modifiers);
        return key == 0;
    }
    bool CellKey(int key, qsizetype caret = 0) { return EditorKey(w->txtTView, key, caret); }
    void Menu(const char* entry) { t.frame().RunMenuCommand(QLatin1String(entry)); }
    void Undo() { Menu("mnuEditUndo"); }
    void Redo() { Menu("mnuRedo"); }
};

} // namespace test
