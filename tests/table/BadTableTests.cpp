// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Transaction.h"
#include "tests/table/TableDesk.h"

namespace {

using test::TableDesk;

struct BadTables : TableDesk {};

TEST_F(BadTables, EveryRowHasAnAttributeOfItsOwn) {
    constexpr int kRows = 12'000;
    QByteArray rows;
    for (int i = 0; i < kRows; ++i)
        rows += "<a n" + QByteArray::number(i) + "='1'/>";
    Open("<r>" + rows + "</r>");
    EXPECT_EQ(Grid().Cols(), kRows + 3);
    EXPECT_EQ(Grid().TextMatrix(0, kRows + 1), QStringLiteral("n%1").arg(kRows - 1));
    EXPECT_EQ(Grid().TextMatrix(kRows, kRows + 1), QString()) << "the row that brings it";
    Edit(kRows, kRows + 1, "2");
    EXPECT_EQ(TagAt(kRows), "n11999=\"2\"");
    Grid().ShowColumn(kRows + 1);
    EXPECT_GT(Grid().ScrollLeft(), 0);
    t.prompts.AllowAnyBox();
    // It has more cells than can be written or copied one by one.
    Click(1, 2);
    Control(Qt::Key_A);
    Menu("mnuSortZA");
    EXPECT_EQ(Grid().TextMatrix(1, 1), QStringLiteral("[1]-"));
    Control(Qt::Key_C);
    t.clipboard.SetText(QStringLiteral("7"));
    Control(Qt::Key_V);
    EXPECT_EQ(t.prompts.Texts(), QStringList({QStringLiteral("This type of data can not copy!"),
                                              QStringLiteral("This type of data can not paste!")}));
    Key(Qt::Key_Delete);
    EXPECT_EQ(TagAt(1), "n0=\"\"");
    EXPECT_EQ(TagAt(kRows), "n11999=\"2\"") << "its cell doesn't show it";
}

TEST_F(BadTables, OneRowHasTenThousandAttributes) {
    QByteArray row = "<a";
    for (int i = 0; i < 10'000; ++i)
        row += " n" + QByteArray::number(i) + "='" + QByteArray::number(i) + "'";
    Open("<r>" + row + "/><a n9999='x'/></r>");
    EXPECT_EQ(Grid().TextMatrix(1, 10'001), QStringLiteral("9999"));
    Menu("mnuSelectAll");
    Grid().events().GotFocus(Grid());
    Control(Qt::Key_A);
    Control(Qt::Key_C);
    EXPECT_TRUE(t.clipboard.text.startsWith(u"<a n0=\"0\" n1=\"1\" "_qs));
    EXPECT_EQ(t.clipboard.text.count(u'\n'), 1);
}

TEST_F(BadTables, ThousandsOfNamesAreThousandsOfGrids) {
    QByteArray rows;
    for (int i = 0; i < 3000; ++i)
        rows += "<n" + QByteArray::number(i % 1500) + " x='" + QByteArray::number(i) + "'/>";
    Open("<r>" + rows + "</r>");
    EXPECT_EQ(Grids(), 1500);
    t.ClickNode(Element().LastChild());
    EXPECT_EQ(table::TableOf(*w).miFocusTableIndex, 1499);
    EXPECT_EQ(Grid(1499).TextMatrix(2, 2), QStringLiteral("2999"));
    t.ClickNode(Element());
    EXPECT_EQ(Grids(), 1);
}

TEST_F(BadTables, NothingIsPastedThatWouldNotParse) {
    Open();
    const QStringList clips{QStringLiteral("\u0000\u0001\u0002"),
                            QString(QChar(0xD800)),
                            QString(QChar(0xFFFF)),
                            QStringLiteral("<a"),
                            QStringLiteral("&"),
                            QStringLiteral("]]>"),
                            QStringLiteral("a\t\"open"),
                            QStringLiteral("<!-- a -->"),
                            QStringLiteral("<?x y?>\t"),
                            QString(3'000'000, u'x'),
                            QStringLiteral("\n\n\n"),
                            QStringLiteral("\t\t")};
    t.prompts.AllowAnyBox();
    for (const QString& clip : clips) {
        for (const auto& [row, column] : {std::pair(1, 2), std::pair(1, 4), std::pair(2, 3)}) {
            t.clipboard.SetText(clip);
            Click(row, column);
            Control(Qt::Key_V);
            EXPECT_FALSE(t.app().lastParseError) << clip.left(20).toStdString();
        }
    }
}

TEST_F(BadTables, AnEditOfNothingLeadsNowhere) {
    w = &t.OpenText(QStringLiteral("e.xml"), "<?xml version='1.0'?><r/>");
    w->tbsXML.Select(QStringLiteral("tableview"));
    t.EditText({});
    w->tbsXML.Select(QStringLiteral("tableview"));
    t.prompts.AllowAnyBox();
    for (const char* entry : {"mnuEditCopy", "mnuEditCut", "mnuEditPaste", "mnuDelete", "mnuSelectAll",
                              "mnuEditName", "mnuEditValue", "mnuCopyAsHTML", "mnuSortAZ", "mnuSortZA"}) {
        edit::Attend(*w, kContextTable);
        Menu(entry);
    }
    EXPECT_EQ(Grids(), 0);
}

} // namespace
