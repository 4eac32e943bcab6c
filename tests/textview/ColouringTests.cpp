// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Settings.h"
#include "tests/support/TestApp.h"
#include "textview/Colour.h"
#include "textview/ColourStrings.h"
#include "textview/FillText.h"
#include "textview/TextState.h"
#include <gtest/gtest.h>
#include <map>

namespace {

using controls::RichTextBox;

constexpr std::uint32_t kBlack = 0, kBlue = 0xff0000, kEqual = 0x3232ff, kGreen = 0x32c832, kGrey = 0xb4b4b4;
constexpr std::uint32_t kOther = 0x123456;

/// A letter for the colour of each character: g angle brackets, e equal signs, s slashes and quotes, c
/// comments.
QString Look(const RichTextBox& pane) {
    const std::map<std::uint32_t, char16_t> letters{
        {kBlack, u'.'}, {kBlue, u'g'}, {kEqual, u'e'}, {kGreen, u's'}, {kGrey, u'c'}};
    QString look(pane.Long().size(), u'.');
    for (const controls::ColourRun& run : pane.Runs()) {
        const auto found = letters.find(run.colour);
        const QChar letter = found == letters.end() ? u'?' : found->second;
        std::fill(look.begin() + run.start, look.end(), letter);
    }
    return look;
}

class Colouring : public ::testing::Test {
protected:
    test::TestApp app;
    DocumentWindow& Open(const QByteArray& bytes) {
        return app.OpenText(QStringLiteral("colours.xml"), bytes);
    }
    /// What a key press makes of the insertion colour, from a colour that no rule gives.
    std::uint32_t Pressed(DocumentWindow& window, QChar key, int level) {
        window.rtxtXML.UserSelected(1, 0);
        window.rtxtXML.SetSelColor(kOther);
        textview::StateOf(window).miTextSizeLevel = level;
        window.rtxtXML.KeyPress(QString(key));
        return window.rtxtXML.SelColor();
    }
};

TEST_F(Colouring, TheBlankThatACommentGainsIsNoEdit) {
    DocumentWindow& window = Open("<a><!--b--></a>");
    EXPECT_TRUE(window.rtxtXML.Text().contains(QStringLiteral("<!-- b-->")));
    EXPECT_EQ(window.rtxtXML2.Text(), window.rtxtXML.Text());
    EXPECT_FALSE(window.bond.bTextChanged() || window.bond.bTreeChanged() ||
                 textview::StateOf(window).bControlChange);
    window.tbsXML.Select(QStringLiteral("textview"));
    window.rtxtXML.GotFocus();
    window.rtxtXML.LostFocus();
    window.tbsXML.Select(QStringLiteral("listview"));
    app.ChooseMenu(QStringLiteral("mnuFileSave"));
    EXPECT_EQ(app.folder.Read(QStringLiteral("colours.xml")), QByteArray("<a><!--b--></a>"));
    EXPECT_TRUE(app.frame().CloseForm(&window)); // without a question
    EXPECT_TRUE(app.prompts.boxes.empty());
}

TEST_F(Colouring, TheAmountOfColourFollowsTheLengthOfTheText) {
    DocumentWindow& window = Open("<a/>");
    const QString start = QStringLiteral("<a b=\"c/\"/>");
    const QString all = QStringLiteral("g...es.sssg"), tags = QStringLiteral("g......s.sg"),
                  slashes = QStringLiteral("ssssssss.s."), nothing = QStringLiteral("...........");
    const std::pair<qsizetype, QString> cases[] = {{81920, all},  {81921, tags},     {163839, tags},
                                                   {163840, all}, {163841, slashes}, {409599, slashes},
                                                   {409600, all}, {409601, nothing}};
    for (const auto& [length, look] : cases) {
        textview::SetRichText(window, start + QString(length - start.size(), u'x'));
        EXPECT_EQ(Look(window.rtxtXML).left(start.size()), look) << length;
        EXPECT_EQ(Look(window.rtxtXML2).left(start.size()), look) << length;
    }
}

TEST_F(Colouring, ATypedCharacterTakesItsColourAsFarAsItsLevelShowsIt) {
    DocumentWindow& window = Open("<a/>");
    const struct {
        QChar key;
        std::uint32_t colours[4]; // by level
    } cases[] = {
        {u'<', {kBlue, kBlue, kOther, kOther}},    {u'>', {kBlue, kBlue, kOther, kOther}},
        {u'=', {kEqual, kOther, kOther, kOther}},  {u'"', {kGreen, kOther, kOther, kOther}},
        {u'/', {kGreen, kGreen, kGreen, kOther}},  {u'x', {kBlack, kBlack, kBlack, kOther}},
        {u'\r', {kBlack, kBlack, kBlack, kOther}}, {QChar(0x4e2d), {kBlack, kBlack, kBlack, kOther}}};
    for (const auto& one : cases) {
        for (const int level : {0, 1, 2, 3})
            EXPECT_EQ(Pressed(window, one.key, level), one.colours[level])
                << int{one.key.unicode()} << " at level " << level;
    }
}

TEST_F(Colouring, AKeyPressColoursBothPanesAndNoneAtTheStartOfTheText) {
    DocumentWindow& window = Open("<a>text</a>");
    window.rtxtXML2.GotFocus();
    window.rtxtXML2.UserSelected(3, 4);
    window.rtxtXML2.KeyPress(QStringLiteral("="));
    EXPECT_EQ(window.rtxtXML.SelStart(), 3);
    EXPECT_EQ(window.rtxtXML.SelLength(), 4);
    for (const RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2})
        EXPECT_EQ(Look(*pane), QStringLiteral("g.g....gs.g")) << "the old selection goes as it is";
    EXPECT_FALSE(textview::StateOf(window).bControlChange || window.bond.bTextChanged());
    window.rtxtXML2.Type(QStringLiteral("="));
    for (const RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2})
        EXPECT_EQ(Look(*pane), QStringLiteral("g.gegs.g"));

    window.rtxtXML2.UserSelected(0, 0);
    window.rtxtXML2.SetSelColor(kOther);
    window.rtxtXML2.KeyPress(QStringLiteral("<"));
    EXPECT_EQ(window.rtxtXML2.SelColor(), kOther);
    EXPECT_EQ(window.rtxtXML.SelStart(), 4) << "behind what was typed";
}

TEST_F(Colouring, ALetterTypedIntoACommentStaysGreyOnlyInTheDefaultGrey) {
    DocumentWindow& window = Open("<a><!-- b --></a>");
    const auto typed = [&] {
        window.rtxtXML.UserSelected(window.rtxtXML.Text().indexOf(u'b') + 1, 0);
        window.rtxtXML.KeyPress(QStringLiteral("x"));
        window.rtxtXML.Type(QStringLiteral("x"));
        window.rtxtXML.UserSelected(window.rtxtXML.Text().indexOf(u'x'), 1);
        return window.rtxtXML.SelColor();
    };
    EXPECT_EQ(typed(), kGrey);
    app.app().options.CommentColor = kOther;
    shell::SetRTFColorString(app.app());
    EXPECT_EQ(typed(), kBlack);
}

TEST_F(Colouring, TypedCharactersKeepTheFixedColoursUntilTheNextFullPass) {
    DocumentWindow& window = Open("<a>text</a>");
    app.app().options.GLColor = kOther;
    shell::SetRTFColorString(app.app());
    EXPECT_EQ(Look(window.rtxtXML), QStringLiteral("?.?....?s.?"));
    EXPECT_EQ(Pressed(window, u'<', 0), kBlue);
    window.rtxtXML.Type(QStringLiteral("<"));
    EXPECT_EQ(Look(window.rtxtXML).left(3), QStringLiteral("?g."));
    textview::SetTreeXMLColor(window);
    EXPECT_EQ(Look(window.rtxtXML).left(3), QStringLiteral("??."));
}

TEST_F(Colouring, AShortSelectionIsColouredOneByOneAndStaysSelected) {
    DocumentWindow& window = Open("<a/>");
    RichTextBox box;
    const auto coloured = [&](const QString& text, int level) {
        box.SetText(text);
        box.SetSelLength(text.size());
        textview::StateOf(window).miTextSizeLevel = level;
        textview::SetSeltextColor(app.app(), box);
        EXPECT_EQ(box.SelLength(), text.size());
        EXPECT_EQ(box.SelStart(), 0);
        return Look(box);
    };
    std::vector<int> pointers;
    app.frame().mousePointerChanged.connect([&](int pointer) { pointers.push_back(pointer); });
    const QString text = QStringLiteral("<a b=\"//\">");
    EXPECT_EQ(coloured(text, 0), QStringLiteral("g...essssg"));
    EXPECT_EQ(pointers, (std::vector{vbHourglass, 0}));
    EXPECT_EQ(coloured(text, 1), QStringLiteral("g.....ss.g"));
    EXPECT_EQ(coloured(text, 2), QStringLiteral("......ss.."));
    EXPECT_EQ(coloured(text, 3), QStringLiteral(".........."));
    EXPECT_EQ(coloured(QString(512, u'<'), 0), QString(512, u'g'));
    EXPECT_EQ(coloured(QString(513, u'<'), 0), QString(513, u'.'));
}

// The colour asked for is that of whatever is selected when the character's turn comes: at first the whole
// selection, then the character before.
TEST_F(Colouring, InAGreySelectionPlainCharactersStayGreyUpToTheFirstMarkup) {
    Open("<a/>");
    RichTextBox box;
    box.SetContent({text::LongText(u"ab<cd"), {{0, kGrey}}});
    box.SetSelLength(5);
    textview::SetSeltextColor(app.app(), box);
    EXPECT_EQ(Look(box), QStringLiteral("ccg.."));
}

TEST_F(Colouring, ATextTooLargeForColoursStillTakesTheFont) {
    DocumentWindow& window = Open("<a>" + QByteArray(409'600, 'x') + "</a>");
    app.app().options.TextName = QStringLiteral("Monospace");
    app.app().options.GLColor = kOther;
    shell::SetRTFColorString(app.app());
    for (const RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2}) {
        EXPECT_TRUE(pane->Runs().empty());
        EXPECT_EQ(pane->FontName(), QStringLiteral("Monospace"));
    }
}

} // namespace
