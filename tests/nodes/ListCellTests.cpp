// SPDX-License-Identifier: GPL-3.0-or-later
// The list's cell editor: what is typed, how it is checked, where the keys lead.
#include "nodes/dialogs/frmEditNodes.h"
#include "tests/nodes/ListDesk.h"

namespace {

using services::Answer;
using test::kBook;

struct ListCell : test::ListDesk {};

TEST_F(ListCell, WhatIsTypedIsCheckedAndWrittenByTheKindOfItsRow) {
    struct Case {
        int row, column;
        const char* typed;
        const char* xml; ///< of the root element afterwards; null: refused
        const char* title = "";
    };
    const char* const attributes = "This is not valid attributes";
    const char* const value = "This is not a validate attribute value";
    const char* const text = "This is not a validate node text";
    const Case cases[] = {
        {2, 2, "n=\"3\" m=\"4\"", "<chapter n=\"3\" m=\"4\">"},
        {2, 2, "n='\"' m = \"4\"", "<chapter n=\"&quot;\" m=\"4\">"}, // brought into the one form
        {2, 2, "", "<chapter>"},
        {2, 2, "n=3", nullptr, attributes},
        {4, 2, "it's", "<book lang=\"it's\" year"},
        {4, 2, "d\"e", nullptr, value},
        {4, 2, "a & b", nullptr, value},
        {4, 2, "a &amp; b", "<book lang=\"a &amp; b\" year"},
        {3, 2, "a < b", nullptr, text},
        {3, 2, "the <i>end</i>", "the <i>end</i></book>"},
        {1, 3, "Kaffee", "<title>Kaffee</title>"},
        {1, 3, "</title>", nullptr, text},
        {1, 3, "", "<title></title>"},
        {2, 3, "", "<chapter n=\"2\"><b></b>y</chapter>"},
    };
    int number = 0;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.typed);
        Open(kBook, QStringLiteral("book%1.xml").arg(++number));
        const std::string before = Xml(), table = Table();
        const QString shown = Rows().Tag;
        if (one.xml)
            Edit(one.row, one.column, one.typed);
        else
            EditInVain(one.row, one.column, QString::fromUtf8(one.typed));
        EXPECT_EQ(Rows().Tag, shown) << "the list stays where it is";
        if (one.xml) {
            EXPECT_NE(Xml().find(one.xml), std::string::npos) << Xml();
            EXPECT_NE(Plain(w->rtxtXML.Text()).find(one.xml), std::string::npos);
        } else {
            EXPECT_EQ(Xml(), before);
            EXPECT_EQ(Table(), table);
            EXPECT_EQ(LastBox(), one.title);
        }
    }
}

// What can't be written is asked about: as little is escaped as will do.
TEST_F(ListCell, WhatOnlyWantsEscapingCanBeWrittenSo) {
    const struct {
        int row, column;
        const char *typed, *written;
    } cases[] = {
        {4, 2, "Tee & Co", "lang=\"Tee &amp; Co\""},
        {4, 2, "&amp; & &#8364; \"so\" <b>", "lang=\"&amp; &amp; &#8364; &quot;so&quot; &lt;b>\""},
        {4, 2, "x\" y=\"1", "lang=\"x&quot; y=&quot;1\""},
        {3, 2, "the <i>end</i> & more", "the <i>end</i> &amp; more</book>"},
        {3, 2, "1 < 2", "1 &lt; 2</book>"},
        {1, 3, "\"Tee\" & <", "<title>\"Tee\" &amp; &lt;</title>"},
        {2, 2, "n=\"a & b\"", "<chapter n=\"a &amp; b\">"},
    };
    int number = 0;
    for (const auto& one : cases) {
        SCOPED_TRACE(one.typed);
        Open(kBook, QStringLiteral("book%1.xml").arg(++number));
        t.prompts.Answer(Answer::Yes);
        Edit(one.row, one.column, one.typed);
        EXPECT_EQ(t.prompts.boxes.back().buttons, services::Buttons::YesNo);
        EXPECT_NE(Xml().find(one.written), std::string::npos) << Xml();
        EXPECT_EQ(t.frame().StatusBar1().Panel(1), QString()) << "nothing is wrong any more";
    }
}

TEST_F(ListCell, InstructionsAndCommentsAreCheckedToo) {
    Open();
    Select(Root());
    EditInVain(2, 2, QStringLiteral("a -- b"));
    EditInVain(1, 2, QStringLiteral("a ?> b"));
    Edit(2, 2, "a - b");
    Edit(1, 2, "version=\"1.0\" encoding=\"UTF-8\"");
    EXPECT_EQ(Root().Child().Next().Tag(), QStringLiteral("a - b"));
    EXPECT_EQ(Root().Child().Tag(), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\""));
}

// What is written anew leaves the section out, and a new value with it.
TEST_F(ListCell, ACDataSectionIsNotChangedHere) {
    Open("<r><![CDATA[a < b]]></r>");
    Edit(1, 2, "a < b");
    EXPECT_TRUE(t.prompts.boxes.empty());
    EditInVain(1, 2, QStringLiteral("lost"));
    EXPECT_TRUE(t.prompts.boxes.back().text.contains(QStringLiteral("text view")));
    EXPECT_EQ(Element().Child().Tag(), QStringLiteral("a < b"));
    EXPECT_EQ(Rows().Item(1).Sub[0], QStringLiteral("a < b"));
    EXPECT_EQ(w->rtxtXML.Text(), QStringLiteral("<r><![CDATA[a < b]]></r>"));
}

// Whatever comes in is checked whole: what the parser refuses changes nothing.
TEST_F(ListCell, HostileValuesAreRefusedOrKeptToTheLastCharacter) {
    Open("<r a=\"\">x</r>");
    const QString megabyte = QString(1 << 20, u'x');
    const QString bad[] = {QString(QChar(0)),      QString(QChar(8)), QString(QChar(0xD800)),
                           QString(QChar(0xFFFE)), megabyte + u'<',   QStringLiteral("&nothing;")};
    for (const QString& value : bad) {
        for (const int row : {1, 2}) {
            EditInVain(row, 2, value);
            EXPECT_EQ(Xml(), "<r a=\"\">x</r>") << "unit " << int{value.at(0).unicode()} << " row " << row;
        }
    }
    const QString good[] = {QStringLiteral("&#60;&gt;'"), QStringLiteral("tab&#9;line&#10;end"),
                            QString::fromUtf8("\xF0\x9F\x8D\xB5 \xE2\x80\x8Fme"), megabyte};
    for (const QString& value : good) {
        TypeInto(2, 2, value);
        w->txtListView.LostFocus();
        EXPECT_EQ(Element().Tag(), QStringLiteral("a=\"") + value + u'"');
        EXPECT_EQ(Rows().Item(2).Sub[0], value);
    }
    // They would be blanks after the next reading.
    Element().SetTag(QStringLiteral("a=\"\""));
    Select(Element().Child());
    Select(Element());
    TypeInto(2, 2, QStringLiteral("tab\tline\nend"));
    w->txtListView.LostFocus();
    EXPECT_EQ(Element().Tag(), QStringLiteral("a=\"tab&#9;line&#10;end\""));
}

// One line on the screen would take seconds with it.
TEST_F(ListCell, AVeryLongValueOpensInTheDialog) {
    const QByteArray value(2'000'000, 'x');
    Open("<r a=\"" + value + "\" b=\"\">" + value + "</r>");
    nodes::frmEditNodes* dialog = nullptr;
    t.frame().editNodesShown.connect([&](nodes::frmEditNodes& form) { dialog = &form; });
    for (const int row : {1, 2}) {
        ClickRow(row);
        Rows().CellClick(row, 2);
        EXPECT_FALSE(w->txtListView.Visible());
        ASSERT_TRUE(dialog && dialog->Window());
        EXPECT_EQ(dialog->txtNodeAttrs.Text().size(), value.size());
        dialog->txtNodeAttrs.UserTyped(QStringLiteral("short"));
        dialog->cmdOk.Click();
        EXPECT_EQ(Rows().Item(row).Sub[0], QStringLiteral("short"));
    }
}

// An element's text cell shows its first text: where that went, the next one.
TEST_F(ListCell, ATextThatGoesMakesRoomForTheNext) {
    Open();
    Edit(2, 3, "");
    EXPECT_EQ(Rows().Item(2).Sub[1], QStringLiteral("y"));
    Edit(2, 3, "");
    EXPECT_EQ(Rows().Item(2).Sub[1], QString());
    EXPECT_EQ(Xml(Element().Child().Next()), "<chapter n=\"2\"><b></b></chapter>");
}

TEST_F(ListCell, UpAndDownGoFromRowToRowInTheColumn) {
    Open();
    TypeInto(1, 3, QStringLiteral("Kakao"));
    EXPECT_TRUE(EditorKey(Qt::Key_Up, 0));
    EXPECT_TRUE(w->txtListView.Visible()) << "above the first row there is nothing to go to";
    EXPECT_EQ(Element().Child().Child().Tag(), QStringLiteral("Tee")) << "and nothing is written";
    EditorKey(Qt::Key_Down, 0);
    EXPECT_EQ(Element().Child().Child().Tag(), QStringLiteral("Kakao"));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("x"));
    EXPECT_EQ(Rows().SelectedItem(), 2);
    EditorKey(Qt::Key_Down, 0); // a text has a value alone
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("end"));
    EditorKey(Qt::Key_Down, 0);
    EditorKey(Qt::Key_Down, 0);
    w->txtListView.UserTyped(QStringLiteral("2001"));
    EditorKey(Qt::Key_Down, 0);
    EXPECT_TRUE(w->txtListView.Visible());
    EXPECT_EQ(Rows().Item(5).Sub[0], QStringLiteral("1999")) << "below the last row likewise";
    EditorKey(Qt::Key_Up, 0);
    EXPECT_EQ(Rows().Item(5).Sub[0], QStringLiteral("2001"));
    EXPECT_EQ(w->miPopupContext, kContextList);
}

TEST_F(ListCell, TheCaretDecidesWhetherAKeyLeavesTheEditor) {
    Open();
    for (const int key : {Qt::Key_Right, Qt::Key_Control}) {
        TypeInto(4, 2, QStringLiteral("en"));
        EXPECT_FALSE(EditorKey(key, 1));
        EXPECT_EQ(Rows().Item(4).Sub[0], QStringLiteral("de")) << "in the middle of the text";
        EXPECT_TRUE(EditorKey(key, 2));
        EXPECT_EQ(Rows().Item(4).Sub[0], QStringLiteral("en"));
        EXPECT_TRUE(w->txtListView.Visible()) << "open again on the same row";
        EXPECT_EQ(Rows().SelectedItem(), 4);
        if (key == Qt::Key_Control) { // the first half of Ctrl+V
            EXPECT_EQ(w->txtListView.SelStart(), 2);
            EXPECT_EQ(w->txtListView.SelLength(), 0);
        }
        Edit(4, 2, "de");
    }
    TypeInto(4, 2, QStringLiteral("en"));
    EXPECT_FALSE(EditorKey(Qt::Key_Left, 2));
    EXPECT_TRUE(EditorKey(Qt::Key_Left, 0));
    EXPECT_FALSE(w->txtListView.Visible());
    EXPECT_EQ(Element().Tag(), QStringLiteral("lang=\"en\" year=\"1999\""));
    TypeInto(4, 2, QStringLiteral("f<r"));
    EXPECT_FALSE(t.frame().StatusBar1().Panel(1).isEmpty());
    EXPECT_TRUE(EditorKey(Qt::Key_Escape, 2));
    EXPECT_EQ(t.frame().StatusBar1().Panel(1), QString());
    EXPECT_FALSE(w->txtListView.Visible());
    EXPECT_EQ(Element().Tag(), QStringLiteral("lang=\"en\" year=\"1999\"")) << "given up";
}

// Name, value, text of an element, next row; backwards likewise, and wherever the caret stands.
TEST_F(ListCell, TabGoesFromCellToCell) {
    Open();
    TypeInto(2, 2, QStringLiteral("n=\"3\""));
    EXPECT_TRUE(EditorKey(Qt::Key_Tab, 1));
    EXPECT_EQ(Element().Child().Next().Tag(), QStringLiteral("n=\"3\""));
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("x")) << "the text of the same element";
    EditorKey(Qt::Key_Tab, 0);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("end")) << "a text has a value alone";
    EditorKey(Qt::Key_Tab, 0);
    ASSERT_EQ(Rows().LabelEditRow(), 4);
    EXPECT_FALSE(w->txtListView.Visible());
    Rows().EndLabelEdit(QStringLiteral("tongue")); // its row has another key then
    Rows().LabelTabbed(false);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("de"));
    w->txtListView.UserTyped(QStringLiteral("nl"));
    EditorKey(Qt::Key_Backtab, 1);
    EXPECT_EQ(Element().Tag(), QStringLiteral("tongue=\"nl\" year=\"1999\""));
    ASSERT_EQ(Rows().LabelEditRow(), 4);
    Rows().EndLabelEdit(QStringLiteral("tongue"));
    Rows().LabelTabbed(true);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("end"));

    TypeInto(5, 2, QStringLiteral("2001"));
    EXPECT_TRUE(EditorKey(Qt::Key_Tab, 0)) << "behind the last cell the row stays";
    EXPECT_FALSE(w->txtListView.Visible());
    EXPECT_EQ(Rows().SelectedItem(), 5);
    EXPECT_EQ(Rows().Item(5).Sub[0], QStringLiteral("2001"));
    TypeInto(4, 2, QStringLiteral("a < b"));
    t.prompts.Answer(Answer::No);
    EditorKey(Qt::Key_Tab, 0);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("a < b")) << "what is refused isn't left";
    EXPECT_EQ(Rows().SelectedItem(), 4);
}

// What comes behind would go past it.
TEST_F(ListCell, WhatIsRefusedHoldsUpCommandsTabsAndClosing) {
    Open();
    TypeInto(4, 2, QStringLiteral("<"));
    w->txtListView.UserSelected(1, 0);
    t.prompts.AllowAnyBox();
    Menu("mnuDeleteP");
    Menu("mnuFileSave");
    EXPECT_EQ(Rows().Count(), 5);
    EXPECT_FALSE(t.folder.Read(QStringLiteral("book.xml")).isEmpty());
    w->tbsXML.Select(QStringLiteral("textview"));
    EXPECT_EQ(w->tbsXML.SelectedKey(), QStringLiteral("listview"));
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    EXPECT_FALSE(t.frame().CloseForm(w));
    t.ChooseMenu(QStringLiteral("mnuCloseAll"));
    ASSERT_EQ(t.frame().FormCount(), 1);
    EXPECT_EQ(w->txtListView.Text(), QStringLiteral("<"));
    EditorKey(Qt::Key_Escape, 0);
    EXPECT_TRUE(t.frame().CloseForm(w));
}

} // namespace
