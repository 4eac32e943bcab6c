// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Attributes.h"
#include "core/model/NodeContent.h"
#include "core/model/NodeNumbers.h"
#include "core/model/Serialise.h"
#include "tests/support/TestApp.h"
#include <gtest/gtest.h>

namespace test {

inline constexpr char kBook[] =
    "<?xml version=\"1.0\"?><!--on tea--><book lang=\"de\" year=\"1999\"><title>Tee</title>"
    "<chapter n=\"2\">x<b/>y</chapter>end</book>";

/// A document in the list, worked by the acts of a user.
struct ListDesk : testing::Test {
    TestApp t;
    DocumentWindow* w = nullptr;

    /// Opens a document and selects its root element.
    void Open(const QByteArray& text = kBook, const QString& name = QStringLiteral("book.xml")) {
        w = &t.OpenText(name, text);
        Select(Element());
    }
    controls::ListView& Rows() { return w->ListView1; }
    controls::TreeNode Root() { return w->tvXML.Nodes(1); }
    controls::TreeNode Element() { return m_tvXML::FirstElement(Root().Child()); }
    void Select(controls::TreeNode node) { t.ClickNode(node); }
    /// "kind name|value|text" of each row.
    std::string Table() {
        QStringList rows;
        for (int i = 1; i <= Rows().Count(); ++i) {
            const controls::ListItem& row = Rows().Item(i);
            rows << QString::number(row.SmallIcon) + u' ' +
                        QStringList{row.Text, row.Sub[0], row.Sub[1]}.join(u'|');
        }
        return rows.join(u'\n').toStdString();
    }
    /// Without indentation and line breaks.
    static std::string Plain(QString xml) {
        return xml.remove(QStringLiteral("\r\n")).remove(u'\t').toStdString();
    }
    std::string Xml(controls::TreeNode node) { return Plain(m_tvXML::GetTreeNodesXML(node, {})); }
    std::string Xml() { return Xml(Element()); }
    void ClickRow(int row) {
        Rows().GotFocus();
        Rows().MouseDown();
        Rows().ClearSelected();
        Rows().SetSelectedItem(row);
        Rows().Click();
    }
    void ClickRows(std::initializer_list<int> rows) {
        ClickRow(*rows.begin());
        for (const int row : rows)
            Rows().SetSelected(row, true);
    }
    /// Opens the editor on a cell (column 2 value, 3 text) and types; it stays open.
    void TypeInto(int row, int column, const QString& text) {
        ClickRow(row);
        Rows().CellClick(row, column);
        ASSERT_TRUE(w->txtListView.Visible());
        w->txtListView.GotFocus();
        w->txtListView.UserTyped(text);
    }
    void Edit(int row, int column, const char* text) {
        TypeInto(row, column, QString::fromUtf8(text));
        w->txtListView.LostFocus();
        EXPECT_FALSE(w->txtListView.Visible());
    }
    /// The same with what is refused: it stays, and is given up.
    void EditInVain(int row, int column, const QString& text) {
        TypeInto(row, column, text);
        t.prompts.Answer(services::Answer::No);
        w->txtListView.LostFocus();
        EXPECT_TRUE(w->txtListView.Visible());
        EXPECT_EQ(w->txtListView.Text(), text);
        EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty()) << "the reason";
        EXPECT_TRUE(EditorKey(Qt::Key_Escape, 0));
        EXPECT_FALSE(w->txtListView.Visible());
    }
    /// Presses a key in the editor with the caret at a place; whether the key was used up.
    bool EditorKey(int key, int caret) {
        w->txtListView.UserSelected(caret, 0);
        w->txtListView.KeyDown(key, 0);
        return key == 0;
    }
    void Key(int key, int modifiers = 0) {
        int down = key;
        Rows().KeyDown(down, modifiers);
        Rows().KeyUp(key, modifiers);
    }
    void Menu(const char* entry) { t.frame().RunMenuCommand(QLatin1String(entry)); }
    std::string LastBox() {
        return t.prompts.boxes.empty() ? std::string() : t.prompts.boxes.back().title.toStdString();
    }
};

} // namespace test
