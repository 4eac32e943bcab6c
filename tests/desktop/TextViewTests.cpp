// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor shows: rows, scrolling, colours, large texts.
#include "desktop/base/Colours.h"
#include "tests/desktop/Editor.h"
#include <QPaintEvent>
#include <QScrollBar>

namespace {

struct TextView : test::Editor {
    std::size_t Pixels(QRgb colour) {
        const QImage image = Painted();
        std::size_t count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == colour ? 1U : 0U;
        return count;
    }
};

// --- rows --------------------------------------------------------------------------------------------------

TEST_F(TextView, TextComesThroughTheViewAsItWas) {
    QString awkward;
    for (const char16_t unit : {u'\x2028', u'\x2029', u'\xFDD0', u'\xFFFC', u'\xFFFE', u'\x0000', u'\x000B',
                                u'\xD83D', u'\xE000', u'\x0301', u'\x202E'})
        awkward += QString(QChar(unit)) + QStringLiteral("|\r\n");
    Load(awkward, awkward.size());
    Painted();
    Type(QStringLiteral("!"));
    EXPECT_EQ(model.Text(), awkward + u'!');
    EXPECT_EQ(view.RectAt(2).top(), view.RectAt(0).top()) << "a separator ends no row";
    EXPECT_GT(view.RectAt(1).left(), view.RectAt(0).left()) << "a separator can be seen";
}

// --- scrolling ---------------------------------------------------------------------------------------------

// A node is selected by going 800 characters beyond it first, and then to it.
TEST_F(TextView, AProgramsJumpLeavesTheNodeHighInTheView) {
    const QString line = QStringLiteral("<order number=\"1\"/>\r\n");
    Load(line.repeated(1000));
    for (const qsizetype number : {500, 90, 997}) {
        const qsizetype place = number * line.size() + 1;
        model.SetSelStart(place + 800);
        model.SetSelStart(place - 1);
        model.SetSelLength(1);
        ASSERT_TRUE(Shows(place));
        if (number < 900) {
            EXPECT_LE(number - view.FirstRow(), 4);
        }
    }
    const qsizetype first = view.FirstRow();
    model.SetSelStart((first + 2) * line.size());
    EXPECT_EQ(view.FirstRow(), first) << "what is in view doesn't move";
}

TEST_F(TextView, AHiddenViewIsUpToDateWhenItIsShownAgain) {
    Load(QStringLiteral("<a/>\r\n").repeated(50));
    view.hide();
    const QString line = QStringLiteral("<order/>\r\n");
    model.SetText(line.repeated(2000));
    model.SetSelStart(1500 * line.size());
    model.SetSelLength(6);
    view.show();
    EXPECT_EQ(view.Selection().start, 15000);
    EXPECT_EQ(view.Selection().end, 15006);
    EXPECT_TRUE(Shows(15000));
    Type(QStringLiteral("x"));
    EXPECT_EQ(model.Text().size(), 20000 - 5);
}

TEST_F(TextView, TheCaretOfALongRowIsScrolledIntoViewSideways) {
    Load(QStringLiteral("<a b=\"1\"/>").repeated(100));
    Press(Qt::Key_End);
    EXPECT_TRUE(Shows(view.Caret()));
    Type(QStringLiteral("\u4F60"));
    EXPECT_TRUE(Shows(view.Caret()));
    Press(Qt::Key_Home);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
}

TEST_F(TextView, AMarginThatGetsWiderIsPaintedInAllRows) {
    Load(QStringLiteral("<a/>\r\n").repeated(998) + QStringLiteral("<b/>"), 6 * 6);
    struct Painted : QObject {
        QRegion region;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                region += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } painted;
    view.viewport()->installEventFilter(&painted);
    const auto isTopPainted = [&] {
        painted.region = {};
        QTest::qWait(1);
        return painted.region.contains(QPoint(view.viewport()->width() - 1, 1));
    };
    isTopPainted();
    ASSERT_EQ(view.FirstRow(), 0);
    Press(Qt::Key_Return);
    ASSERT_EQ(model.Long().lineCount(), 1000);
    EXPECT_TRUE(isTopPainted());
    Press(Qt::Key_Return);
    EXPECT_FALSE(isTopPainted()) << "as wide as before: rows above stay";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_TRUE(isTopPainted());
}

TEST_F(TextView, AnyFontSizeCanBeShown) {
    Load(QStringLiteral("<a/>\r\n").repeated(10));
    for (const double size : {1e9, 0.0, -3.0, std::numeric_limits<double>::quiet_NaN(), 10.0}) {
        model.SetFont(QStringLiteral("Courier New"), size);
        Painted();
        EXPECT_GE(view.RowsShown(), 1);
    }
}

// --- large texts -------------------------------------------------------------------------------------------

TEST_F(TextView, ALargeTextIsShownScrolledToItsEndAndEdited) {
    const QString line = QStringLiteral("\t<order number=\"4711\">caf\u00E9</order>\r\n");
    const QString text = line.repeated(20'000'000 / line.size());
    Load(text);
    Press(Qt::Key_End, Qt::ControlModifier);
    Painted();
    EXPECT_TRUE(Shows(text.size()));
    Type(QStringLiteral("<x/>"));
    Press(Qt::Key_Home, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(model.Text(), text.mid(1) + QStringLiteral("<x/>"));
    EXPECT_TRUE(Shows(0));
}

TEST_F(TextView, ALineOfAnyLengthIsShownInRows) {
    const QString text = QStringLiteral("<r a=\"\u4F60\"/>").repeated(1'000'000);
    Load(text);
    Press(Qt::Key_End, Qt::ControlModifier);
    Painted();
    EXPECT_TRUE(Shows(text.size()));
    Press(Qt::Key_Up);
    Press(Qt::Key_Home);
    const qsizetype at = view.Caret();
    EXPECT_GT(at, text.size() - 3 * text::LongText::kLongestRow);
    Type(QStringLiteral("!"));
    EXPECT_EQ(model.Text(), QString(text).insert(at, u'!'));
    EXPECT_TRUE(Shows(at + 1));
}

// A row's last place is the next row's first: the caret never stands where typing would go elsewhere.
TEST_F(TextView, StepsGoOverTheRowsOfALongLineWithoutASkip) {
    const qsizetype cut = text::LongText::kLongestRow;
    Load(QString(3 * cut, u'x'), cut - 2);
    std::vector<qsizetype> places;
    for (int i = 0; i < 4; ++i) {
        Press(Qt::Key_Right);
        places.push_back(view.Caret());
    }
    EXPECT_EQ(places, std::vector<qsizetype>({cut - 1, cut, cut + 1, cut + 2}));
    Press(Qt::Key_Up);
    Press(Qt::Key_End);
    EXPECT_EQ(view.Caret(), cut - 1);
    Press(Qt::Key_Left);
    EXPECT_EQ(view.Caret(), cut - 2);
}

// --- colours -----------------------------------------------------------------------------------------------

TEST_F(TextView, RunsHaveTheirColoursAndBlackIsThePalettes) {
    QPalette dark = view.palette();
    const QRgb paper = qRgb(20, 22, 24), ink = qRgb(220, 225, 230);
    dark.setColor(QPalette::Base, QColor(paper));
    dark.setColor(QPalette::Text, QColor(ink));
    view.setPalette(dark);
    const QString blocks = QStringLiteral("\u2588").repeated(6);
    model.SetContent({text::LongText(blocks), {{0, 0}, {3, 0xFF0000}}});
    EXPECT_GT(Pixels(ink), 100U);
    EXPECT_GT(Pixels(desktop::TextColour(0xFF0000, QColor(paper)).rgb()), 100U);
    EXPECT_EQ(Pixels(qRgb(0, 0, 255)), 0U) << "blue on black can't be read";
}

} // namespace
