// SPDX-License-Identifier: GPL-3.0-or-later
// The options dialog: what it shows, what Apply stores and takes over, and what a restart makes of it.
#include "shell/frmOptions.h"
#include "tests/support/TestApp.h"
#include "textview/TextState.h"
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using test::TestApp;

const QString kSection = QStringLiteral("AppInternal");

/// Chooses the menu entry and does something in the dialog that it brings.
void InDialog(TestApp& t, const std::function<void(frmOptions&)>& act) {
    int shown = 0;
    t.frame().optionsShown.disconnectAll();
    t.frame().optionsShown.connect([&](frmOptions& form) {
        ++shown;
        act(form);
    });
    t.ChooseMenu(QStringLiteral("mnuToolOptions"));
    t.frame().optionsShown.disconnectAll();
    EXPECT_EQ(shown, 1);
}

QString Stored(TestApp& t, const char* key) {
    return t.settings().Get(kSection, QLatin1String(key), QStringLiteral("(none)"));
}

TEST(Options, AppliedValuesHoldAtOnceAndAfterARestart) {
    TestApp t;
    t.prompts.ChooseColours({0x112233u, 0x445566u, 0x778899u, 0xAABBCCu, std::nullopt});
    t.prompts.ChooseFonts({services::FontChoice{QStringLiteral("Liberation Mono"), 13.5}, std::nullopt});
    InDialog(t, [](frmOptions& form) {
        form.tbsOptions.Select(QStringLiteral("parameters"));
        form.cmbEnc.UserChose(static_cast<int>(form.cmbEnc.Items().indexOf(QStringLiteral("BIG5"))));
        form.txtTNTLen.UserTyped(QStringLiteral(" 20 "));
        form.txtTTLen.UserTyped(QStringLiteral("100 units"));
        form.txtUndoSteps.UserTyped(QStringLiteral("7"));
        form.tbsOptions.Select(QStringLiteral("textview"));
        for (auto& button : form.cmdColor)
            button.Click();
        form.cmdColor[1].Click(); // cancelled: the colour stays
        form.cmdFont.Click();
        form.cmdFont.Click(); // cancelled
        form.cmdOK.Click();
    });
    EXPECT_EQ(t.prompts.colourDialogs,
              (std::vector<std::uint32_t>{0xFF0000, 0x32C832, 0x3232FF, 0xB4B4B4, 0x445566}));
    EXPECT_EQ(t.prompts.fontDialogs[0].name, QStringLiteral("Courier New"));
    EXPECT_EQ(t.prompts.fontDialogs[1].size, 13.5);

    for (const char* when : {"at once", "after a restart"}) {
        SCOPED_TRACE(when);
        const Options& options = t.app().options;
        const std::vector<std::uint32_t> colours{options.GLColor, options.SlashColor, options.EqualColor,
                                                 options.CommentColor};
        EXPECT_EQ(colours, (std::vector<std::uint32_t>{0x112233, 0x445566, 0x778899, 0xAABBCC}));
        EXPECT_EQ(options.GLRTF, QStringLiteral("\\red51\\green34\\blue17"));
        EXPECT_EQ(options.SlashRTF, QStringLiteral("\\red102\\green85\\blue68"));
        EXPECT_EQ(options.EqualRTF, QStringLiteral("\\red153\\green136\\blue119"));
        EXPECT_EQ(options.CommentRTF, QStringLiteral("\\red204\\green187\\blue170"));
        InDialog(t, [&](frmOptions& form) {
            QStringList shown{form.cmbEnc.Items().value(form.cmbEnc.ListIndex())};
            for (const controls::TextBox* box : {&form.txtTNTLen, &form.txtTTLen, &form.txtUndoSteps})
                shown << box->Text();
            shown << form.txtFontName.Text() << form.cmbSize.Text();
            EXPECT_EQ(shown.join(u'|').toStdString(), "BIG5|20|100|7|Liberation Mono|13.5");
            const std::vector<std::uint32_t> samples{form.txtGL.ForeColor(), form.txtSlash.ForeColor(),
                                                     form.txtEqual.ForeColor(), form.txtComment.ForeColor()};
            EXPECT_EQ(samples, colours);
        });
        t.Restart();
    }
    t.ChooseMenu(QStringLiteral("mnuFileNew"));
    EXPECT_TRUE(t.window().rtxtXML.Text().contains(QStringLiteral("encoding=\"BIG5\"")));
    EXPECT_EQ(t.window().rtxtXML.FontName(), QStringLiteral("Liberation Mono"));
}

TEST(Options, CancelStoresNothingAndOkClosesOnce) {
    TestApp t;
    const QByteArray before = t.folder.Read(QStringLiteral("settings.ini"));
    for (const bool ok : {false, true}) {
        int unloaded = 0;
        InDialog(t, [&](frmOptions& form) {
            form.unloaded.connect([&] { ++unloaded; });
            form.txtUndoSteps.UserTyped(QStringLiteral("3"));
            form.txtGL.SetForeColor(1);
            (ok ? form.cmdOK : form.cmdCancel).Click();
        });
        EXPECT_EQ(unloaded, 1);
        EXPECT_EQ(t.app().options.Steps, ok ? 3 : 16);
        EXPECT_EQ(t.folder.Read(QStringLiteral("settings.ini")) == before, !ok);
    }
}

// Length, steps and encoding are stored whatever they are, font and colours only when they are new.
TEST(Options, ApplyStoresAFirstPageAlwaysAndTheLookOnlyWhenItDiffers) {
    TestApp t;
    InDialog(t, [](frmOptions& form) { form.cmdApply.Click(); });
    EXPECT_EQ(t.folder.Read(QStringLiteral("settings.ini")),
              "[AppInternal]\nDebug=0\nEncoding=UTF-8\nSteps=16\nTreeNodeTextShowLength=64\n"
              "TreeToolTipShowLength=0\n");
    InDialog(t, [](frmOptions& form) {
        form.txtFontName.UserTyped(QStringLiteral("Hack"));
        form.cmbSize.UserTyped(QStringLiteral("11"));
        form.txtEqual.SetForeColor(4);
        form.txtGL.SetForeColor(3);
        form.txtSlash.SetForeColor(2);
        form.txtComment.SetForeColor(1);
        form.cmdApply.Click();
    });
    EXPECT_EQ(
        t.folder.Read(QStringLiteral("settings.ini")),
        "[AppInternal]\nCommentColor=1\nDebug=0\nEncoding=UTF-8\nEqualColor=4\nGLColor=3\nSlashColor=2\n"
        "Steps=16\nTextName=Hack\nTextSize=11\nTreeNodeTextShowLength=64\nTreeToolTipShowLength=0\n");
}

TEST(Options, NumbersAreTakenUncheckedAndTheNextStartMendsThem) {
    TestApp t;
    InDialog(t, [](frmOptions& form) {
        form.txtTNTLen.UserTyped(QStringLiteral("abc"));
        form.txtTTLen.UserTyped(QStringLiteral("0"));
        form.txtUndoSteps.UserTyped(QStringLiteral("99999")); // more than the number holds
        form.cmbSize.UserTyped(QStringLiteral("-1"));
        form.txtSlash.SetForeColor(0);
        form.cmdApply.Click();
    });
    const Options& options = t.app().options;
    EXPECT_EQ(options.TreeNodeTextShowLength, 0);
    EXPECT_EQ(options.Steps, 0);
    EXPECT_EQ(options.TextSize, -1);
    EXPECT_EQ(options.SlashRTF, QStringLiteral("\\red0\\green0\\blue0"));
    for (const char* key : {"TreeNodeTextShowLength", "TreeToolTipShowLength", "Steps", "SlashColor"})
        EXPECT_EQ(Stored(t, key), QStringLiteral("0")) << key;
    EXPECT_EQ(Stored(t, "TextSize"), QStringLiteral("-1"));
    // With such values a document still opens.
    t.OpenText(QStringLiteral("a.xml"), "<a>text</a>");

    t.Restart();
    const Options& mended = t.app().options;
    EXPECT_EQ(mended.TreeNodeTextShowLength, 64);
    EXPECT_EQ(mended.Steps, 16);
    EXPECT_EQ(mended.TextSize, 10);
    EXPECT_EQ(mended.SlashColor, 0x32C832u);
}

TEST(Options, NegativeNumbersLeaveDocumentsUsable) {
    TestApp t;
    InDialog(t, [](frmOptions& form) {
        for (controls::TextBox* field : {&form.txtTNTLen, &form.txtTTLen, &form.txtUndoSteps})
            field->UserTyped(QStringLiteral("-5"));
        form.cmdOK.Click();
    });
    EXPECT_EQ(t.app().options.Steps, -5);
    DocumentWindow& window = t.OpenText(QStringLiteral("a.xml"), "<a>text</a>");
    for (int i = 0; i < 3; ++i) {
        t.ClickNode(window.tvXML.Nodes(1));
        t.ChooseMenu(QStringLiteral("mnuNewComment"));
        window.tbsXML.Select(QStringLiteral("textview"));
    }
    EXPECT_EQ(window.rtxtXML.Text().count(QStringLiteral("<!--")), 3);
}

TEST(Options, AnEncodingThatIsNotOnOfferStaysUnlessAnotherOneIsChosen) {
    TestApp t;
    t.settings().Save(kSection, QStringLiteral("Encoding"), QStringLiteral("ISO-8859-15"));
    t.Restart();
    InDialog(t, [](frmOptions& form) {
        EXPECT_EQ(form.cmbEnc.ListIndex(), -1);
        form.cmdApply.Click();
    });
    EXPECT_EQ(Stored(t, "Encoding"), QStringLiteral("ISO-8859-15"));
}

TEST(Options, TheActiveWindowTakesTheFontAtOnceWithCaretAndHistoryAsTheyWere) {
    TestApp t;
    DocumentWindow& other = t.OpenText(QStringLiteral("a.xml"), "<a/>");
    DocumentWindow& active = t.OpenText(QStringLiteral("b.xml"), "<b>\n <c/>\n</b>");
    active.tbsXML.Select(QStringLiteral("textview"));
    active.rtxtXML.UserSelected(5, 3);
    active.rtxtXML2.UserSelected(1, 0);
    const auto steps = textview::StateOf(active).undoStack.size();
    InDialog(t, [](frmOptions& form) {
        form.txtFontName.UserTyped(QStringLiteral("Hack"));
        form.cmbSize.UserTyped(QStringLiteral("18"));
        form.txtGL.SetForeColor(0x00FF00);
        form.cmdApply.Click();
    });
    for (const auto* pane : {&active.rtxtXML, &active.rtxtXML2}) {
        EXPECT_EQ(pane->FontName(), QStringLiteral("Hack"));
        EXPECT_EQ(pane->FontSize(), 18);
    }
    EXPECT_EQ(other.rtxtXML.FontName(), QStringLiteral("Courier New"));
    EXPECT_EQ(active.rtxtXML.SelStart(), 5);
    EXPECT_EQ(active.rtxtXML.SelLength(), 3);
    EXPECT_EQ(active.rtxtXML2.SelStart(), 1);
    EXPECT_EQ(textview::StateOf(active).undoStack.size(), steps);
    EXPECT_FALSE(active.bond.bTextChanged());
    EXPECT_FALSE(textview::StateOf(active).bControlChange);
}

TEST(Options, AFileThatCanNotBeWrittenIsToldOfOnceAndTheValuesHoldForTheRun) {
    TestApp t;
    const QString path = t.folder.Path(QStringLiteral("settings.ini"));
    ASSERT_EQ(chmod(path.toLocal8Bit().constData(), 0444), 0);
    t.prompts.Answer(services::Answer::Ok);
    InDialog(t, [](frmOptions& form) {
        form.txtUndoSteps.UserTyped(QStringLiteral("3"));
        form.txtTTLen.UserTyped(QStringLiteral("90"));
        form.cmdApply.Click();
    });
    ASSERT_EQ(t.prompts.boxes.size(), 1u);
    EXPECT_TRUE(t.prompts.boxes[0].text.startsWith(QStringLiteral("The settings could not be stored.\r\n") +
                                                   path + QStringLiteral(": ")));
    EXPECT_EQ(t.app().options.Steps, 3);
    EXPECT_EQ(t.app().options.TreeToolTipShowLength, 90);
    EXPECT_EQ(t.folder.Read(QStringLiteral("settings.ini")), "[AppInternal]\nDebug=0\n");
}

TEST(Options, ADamagedFileGivesTheDefaultsAndIsWrittenAnew) {
    QByteArray noise("\0\xFF\xFE[AppInternal", 15);
    for (int i = 0; i < 3000; ++i)
        noise += static_cast<char>(i * i >> 3);
    const QByteArray contents[] = {"", "[AppInternal]\nSteps",
                                   "[AppInternal]\nSteps=\nTextSize=1e999\nGLColor=1e400\nTreeNodeTextSh",
                                   "[AppInternal]\r\nSteps=sixteen\r\nTextName=\r\n", noise};
    TestApp t;
    for (const QByteArray& content : contents) {
        SCOPED_TRACE(content.left(40).toStdString());
        t.folder.Write(QStringLiteral("settings.ini"), content);
        t.Restart();
        const Options& options = t.app().options;
        EXPECT_EQ(options.Steps, 16);
        EXPECT_EQ(options.TextSize, 10);
        EXPECT_EQ(options.TextName, QStringLiteral("Courier New"));
        EXPECT_EQ(options.GLColor, 0xFF0000u);
        EXPECT_EQ(options.SlashColor, 0x32C832u);
        EXPECT_EQ(options.CommentColor, 0xB4B4B4u);
        EXPECT_EQ(options.EqualColor, 0x3232FFu);
        EXPECT_EQ(options.Encoding, QStringLiteral("UTF-8"));
        EXPECT_EQ(options.TreeNodeTextShowLength, 64);
        InDialog(t, [](frmOptions& form) { form.cmdOK.Click(); });
        t.Restart();
        EXPECT_EQ(Stored(t, "Steps"), QStringLiteral("16"));
    }
}

} // namespace
