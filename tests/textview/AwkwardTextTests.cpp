// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that nobody expects, through the panes: whatever they hold, nothing of them is lost.
#include "platform/text/TextTools.h"
#include "tests/textview/TextDesk.h"
#include "textview/TextState.h"

namespace {

using test::TextDesk;

struct AwkwardText {
    const char* name;
    QString text;
};

const std::vector<AwkwardText>& AwkwardTexts() {
    static const std::vector<AwkwardText> kTexts{
        {"no line end", QStringLiteral("<q/>")},
        {"a null character", QStringLiteral("x") + QChar(0) + u'y'},
        {"halves of pairs", QString(QChar(0xdc00)) + QChar(0xd800) + u'x' + QChar(0xd83d)},
        {"RTF source",
         QStringLiteral("{\\rtf1{\\colortbl ;\\red255\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\cf1 "
                        "red\\par \\'e9 \\u8364?}")},
        {"line ends of every kind", QStringLiteral("a\rb\nc\r\nd\n\re\r\r\n")},
        {"line ends alone", QStringLiteral("\n\n\r\r")},
        {"marks that turn the direction", QStringLiteral("\u202e<q>\u2066\u05d0\u200f</q>")},
        {"megabytes", QStringLiteral("<q a=\"1\">caf\u00e9 \u4f60</q>\n").repeated(150'000)},
    };
    return kTexts;
}

// In the caret's place, beside what stood there; undo gives back the text from before, to the unit.
TEST(AwkwardText, IsPastedUndoneAndPastedAgainInBothPanes) {
    for (const auto& [name, text] : AwkwardTexts()) {
        SCOPED_TRACE(name);
        TextDesk desk;
        desk.app.prompts.AllowAnyBox();
        const QString before = desk.Text();
        desk.app.clipboard.text = text;
        desk.CaretBehind(QStringLiteral("one"));
        const qsizetype place = desk.pane().SelStart();
        desk.Press(Qt::Key_V, Qt::ControlModifier);
        const QString after = QString(before).insert(place, text::ToCrLf(text));
        EXPECT_TRUE(desk.Text() == after);
        EXPECT_TRUE(desk.PanesAgree());
        EXPECT_EQ(textview::StateOf(desk.window()).UndoPos, 1);
        for (int i = 0; i < 3; ++i)
            desk.Undo();
        EXPECT_TRUE(desk.Text() == before);
        for (int i = 0; i < 3; ++i)
            desk.Redo();
        EXPECT_TRUE(desk.Text() == after);
        EXPECT_TRUE(desk.PanesAgree());
    }
}

// The parser may dislike it: the text stays as it is, and only the first time there is a box about it.
TEST(AwkwardText, StaysInTheTextViewWhenItIsLeftTwiceAndCanBeTakenBack) {
    for (const auto& [name, text] : AwkwardTexts()) {
        if (text.size() > 1'000'000)
            continue;
        SCOPED_TRACE(name);
        TextDesk desk;
        desk.app.prompts.AllowAnyBox();
        const QString before = desk.Text();
        desk.app.clipboard.text = text + QStringLiteral("<bad");
        desk.SelectText(QStringLiteral("<b>"));
        desk.Press(Qt::Key_V, Qt::ControlModifier);
        const QString bad = desk.Text();
        for (int i = 0; i < 2; ++i) {
            desk.pane().LostFocus();
            EXPECT_EQ(desk.app.prompts.boxes.size(), 1u) << "one box, by leaving it first";
            EXPECT_TRUE(desk.Text() == bad);
            EXPECT_TRUE(desk.PanesAgree());
            desk.Enter(desk.window().rtxtXML);
        }
        desk.Undo();
        EXPECT_TRUE(desk.Text() == before);
        EXPECT_EQ(desk.window().tvXML.Nodes(1).Child().Child().Text(), QStringLiteral("b"));
    }
}

// Every place of the text, as the user's caret or the program may come to it.
TEST(AwkwardText, KeysAtEachPlaceNeverPartALineEnd) {
    TextDesk desk;
    desk.app.prompts.AllowAnyBox();
    const QString text = QStringLiteral("\r\n\t<a>\r\n\r\n\t\tx\r\n</a>\r\n");
    for (const int key :
         {int(Qt::Key_Tab), int(Qt::Key_Backtab), int(Qt::Key_Delete), int(Qt::Key_Backspace)}) {
        for (qsizetype place = 0; place <= text.size(); ++place) {
            for (const qsizetype length : {0, 1, 2, 7, 99}) {
                textview::SetRichText(desk.window(), text);
                desk.pane().UserSelected(place, length);
                desk.Press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
                const QString after = desk.Text();
                ASSERT_EQ(after.count(u'\r'), after.count(u'\n')) << key << ' ' << place << ' ' << length;
                ASSERT_EQ(text::ToCrLf(after), after);
                ASSERT_TRUE(desk.PanesAgree());
                desk.Undo();
                ASSERT_EQ(desk.Text(), text) << key << ' ' << place << ' ' << length;
            }
        }
    }
}

} // namespace
