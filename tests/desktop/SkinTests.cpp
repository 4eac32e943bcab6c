// SPDX-License-Identifier: GPL-3.0-or-later
// What the skin adds of its own: pale pictures, title buttons, tips, the list's cursor.
#include "desktop/base/Glyphs.h"
#include "desktop/base/ThemeIcons.h"
#include "desktop/frame/FrameStyle.h"
#include "tests/desktop/ShownApp.h"
#include <QHelpEvent>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionTitleBar>
#include <QToolTip>

namespace {

using desktop::ChooseIconTheme;
using desktop::FrameStyle;
using desktop::NewNodeIcon;
using desktop::SignIcon;
using desktop::ThemeIcon;
using test::ShownApp;

/// How much ink a picture has: the sum of the opacity of its points.
double Ink(const QIcon& icon, QIcon::Mode mode) {
    const QImage image = icon.pixmap(QSize(16, 16), 1, mode).toImage();
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum;
}

// Greying alone doesn't tell them apart: on a dark desktop enabled pictures are grey, too.
TEST(Skin, PicturesAreFarPalerWhereTheyCannotBeChosen) {
    ChooseIconTheme();
    QIcon theme = ThemeIcon(QStringLiteral("edit-cut"));
    if (theme.isNull())
        theme = SignIcon(QStringLiteral("&")); // a machine without an icon theme
    for (const QIcon& icon :
         {theme, NewNodeIcon(QStringLiteral("element")), SignIcon(QStringLiteral("</>"))}) {
        const double enabled = Ink(icon, QIcon::Normal), disabled = Ink(icon, QIcon::Disabled);
        EXPECT_GT(enabled, 5);
        EXPECT_GT(disabled, 1);
        EXPECT_LT(disabled, enabled * 0.6);
    }
}

/// The lightest point of the close button on the title of an inner window that isn't in front.
int LightestOfCloseButton(const QPalette& palette) {
    const FrameStyle style(QStyleFactory::create(QStringLiteral("fusion")));
    QStyleOptionTitleBar title;
    title.rect = QRect(0, 0, 300, 24);
    title.palette = palette;
    title.subControls = QStyle::SC_TitleBarLabel | QStyle::SC_TitleBarCloseButton;
    title.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    title.text = QStringLiteral("orders.xml");
    QImage image(title.rect.size(), QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    style.drawComplexControl(QStyle::CC_TitleBar, &title, &painter, nullptr);
    const QRect button =
        style.subControlRect(QStyle::CC_TitleBar, &title, QStyle::SC_TitleBarCloseButton, nullptr)
            .adjusted(5, 5, -5, -5);
    int lightest = 0;
    for (int y = button.top(); y <= button.bottom(); ++y)
        for (int x = button.left(); x <= button.right(); ++x)
            lightest = std::max(lightest, image.pixelColor(x, y).lightness());
    return lightest;
}

TEST(Skin, TitleButtonsOfAWindowInTheBackShowOnADarkPalette) {
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::WindowText, QColor(239, 240, 241));
    EXPECT_GT(LightestOfCloseButton(dark), 180);
}

struct Tips : ::testing::Test {
    ShownApp t;
    const QString words =
        QStringLiteral("He said &lt;b>once&lt;/b> and then fell silent. ").repeated(3).trimmed();
    Tips() { t.OpenText(QStringLiteral("talk.xml"), "<talk>" + words.toUtf8() + "</talk>"); }
    ~Tips() override { QToolTip::hideText(); }
    QString TipOver(const QModelIndex& index) {
        QToolTip::hideText();
        t.Tree().expandAll();
        const QPoint place = t.Tree().visualRect(index).center();
        QHelpEvent help(QEvent::ToolTip, place, t.Tree().viewport()->mapToGlobal(place));
        QApplication::sendEvent(t.Tree().viewport(), &help);
        QString shown = QToolTip::text();
        return shown.remove(0, shown.indexOf(QLatin1Char('>')) + 1).remove(QStringLiteral("</p>"));
    }
    QModelIndex Text() {
        const QModelIndex root = t.Tree().model()->index(0, 0);
        return t.Tree().model()->index(0, 0, t.Tree().model()->index(0, 0, root));
    }
};

TEST_F(Tips, OverACutTextIsTheWholeOneAndNeverMarkup) {
    EXPECT_EQ(TipOver(Text().parent()), QString()) << "a name that fits needs none";
    const QString whole = t.window().tvXML.Nodes(3).Tag();
    EXPECT_EQ(TipOver(Text()), whole.toHtmlEscaped());
    t.app().options.TreeToolTipShowLength = 7;
    EXPECT_EQ(TipOver(Text()), QStringLiteral("He said..."));
}

// Blanks alone would not keep them narrower than the screen; and half a character is none.
TEST_F(Tips, WordsLongerThanALineAreBrokenAndCharactersAreCutWhole) {
    t.OpenText(QStringLiteral("word.xml"), "<w>" + QByteArray(300, 'x') + "</w>");
    const QString tip = TipOver(Text());
    EXPECT_EQ(tip.count(QLatin1Char('x')), 300);
    for (const QString& piece : tip.split(QChar(0x200B)))
        EXPECT_LE(piece.size(), 81);
    t.OpenText(QStringLiteral("faces.xml"), "<w>" + QByteArray("\xF0\x9F\x98\x80").repeated(100) + "</w>");
    t.app().options.TreeToolTipShowLength = 5;
    EXPECT_EQ(TipOver(Text()), QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x80..."));
}

TEST(ListCursor, TheFirstDownSelectsTheFirstRow) {
    ShownApp t;
    t.OpenText(QStringLiteral("shop.xml"), "<shop><pen/><ink/></shop>");
    t.Press(Qt::Key_Down);
    controls::ListView& list = t.window().ListView1;
    for (const int style : {controls::lvwReport, controls::lvwList}) {
        list.SetView(style);
        list.SetSelectedItem(0);
        list.ClearSelected();
        t.Tree().setFocus();
        list.SetFocus();
        EXPECT_EQ(list.SelectedItem(), 0) << "the focus alone chooses nothing";
        t.Press(Qt::Key_Down);
        EXPECT_EQ(list.SelectedItem(), 1);
        EXPECT_TRUE(list.Selected(1));
        t.Press(Qt::Key_Down);
        EXPECT_EQ(list.SelectedItem(), 2);
        EXPECT_FALSE(list.Selected(1));
    }
}

} // namespace
