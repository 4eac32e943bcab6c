// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes, the common dialogs and the progress bar.
#include "desktop/base/QtProgress.h"
#include "desktop/base/QtPrompts.h"
#include <QAbstractButton>
#include <QApplication>
#include <QFontDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using desktop::QtProgress;
using desktop::QtPrompts;
using services::Answer;
using services::Buttons;

// Shows a box and presses one key in it.
Answer AnswerBy(Qt::Key key, Buttons buttons, services::Icon icon = services::Icon::Question) {
    QTimer::singleShot(0, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    return QtPrompts().MsgBox(QStringLiteral("Really?"), buttons, icon, QStringLiteral("Vantrel"));
}

TEST(Prompts, EscapeNeverSaysYesAndEnterNotToAWarning) {
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::YesNoCancel), Answer::Cancel);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::YesNo), Answer::No);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::Ok), Answer::Ok);
    EXPECT_EQ(AnswerBy(Qt::Key_Return, Buttons::YesNo), Answer::Yes);
    EXPECT_EQ(AnswerBy(Qt::Key_Return, Buttons::OkCancel), Answer::Ok);
    EXPECT_EQ(AnswerBy(Qt::Key_Return, Buttons::OkCancel, services::Icon::Exclamation), Answer::Cancel);
}

TEST(Prompts, MarkupIsShownAsItIsAndAnEndlessLineFitsTheScreen) {
    QSize size;
    QString shown;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        size = box->size();
        shown = box->text();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    const QString text = QStringLiteral("<b>bold</b>\r\n") + QString(5'000'000, QLatin1Char('x'));
    QtPrompts().MsgBox(text, Buttons::Ok, services::Icon::None, QStringLiteral("This is not valid XML"));
    EXPECT_TRUE(shown.startsWith(QStringLiteral("<b>bold</b>\n")));
    EXPECT_LE(size.width(), QGuiApplication::primaryScreen()->size().width());
}

TEST(Prompts, ABoxNamesWhatItIsAboutAsItIsSpelled) {
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        bool named = false;
        for (const QLabel* label : box->findChildren<QLabel*>())
            named = named || (label->text() == QStringLiteral("/a <b>.xml") && label->isVisible() &&
                              label->textFormat() == Qt::PlainText);
        EXPECT_TRUE(named);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    QtPrompts().MsgBox(QStringLiteral("Save it?"), Buttons::YesNoCancel, services::Icon::Question,
                       QStringLiteral("Vantrel"), QStringLiteral("/a <b>.xml"));
}

TEST(Prompts, AnAnswerOfItsOwnIsChosenByEnterOrByItsButton) {
    const auto choose = [](auto act) {
        QTimer::singleShot(0, [act] { act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
        return QtPrompts().Choose(QStringLiteral("Which?"), {QStringLiteral("One"), QStringLiteral("Two")},
                                  1);
    };
    EXPECT_EQ(choose([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }), 1);
    EXPECT_EQ(choose([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), -1);
    EXPECT_EQ(choose([](QMessageBox& box) {
                  for (QAbstractButton* button : box.buttons())
                      if (button->text().contains(QStringLiteral("One")))
                          button->click();
              }),
              0);
}

TEST(Prompts, ALongTextIsShownToBeReadOnly) {
    const QString text = QStringLiteral("- <a>\n").repeated(5000);
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const auto* lines = dialog->findChild<QPlainTextEdit*>();
        EXPECT_EQ(lines->toPlainText(), text);
        EXPECT_TRUE(lines->isReadOnly());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QtPrompts().ShowText(QStringLiteral("/a.xml"), text);
}

TEST(Prompts, FileFiltersKeepTheirCaptionAndStarDotStarMeansEveryFile) {
    EXPECT_EQ(
        QtPrompts::NameFilters(QStringLiteral("XML File (*.xml)|*.xml|Two|*.a;*.b|All Files (*.*)|*.*")),
        QStringList({QStringLiteral("XML File (*.xml) (*.xml)"), QStringLiteral("Two (*.a *.b)"),
                     QStringLiteral("All Files (*.*) (*)")}));
    EXPECT_TRUE(QtPrompts::NameFilters(QString()).isEmpty());
}

TEST(Prompts, CancelInTheProgressBarStopsTheWork) {
    QtProgress progress;
    progress.Begin(QStringLiteral("/home/u/<big>.xml"));
    qint64 done = 0;
    while (progress.Step(++done, 0)) {
        if (QWidget* bar = QApplication::activeModalWidget())
            bar->findChild<QAbstractButton*>()->click();
    }
    progress.End();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    progress.Begin(QStringLiteral("next"));
    EXPECT_TRUE(progress.Step(1, 2));
    progress.End();
}

TEST(Prompts, AColourAndAFontComeBackAsTheyWereShownUnlessCancelled) {
    QtPrompts prompts;
    const auto press = [](Qt::Key key) {
        QTimer::singleShot(0, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    };
    press(Qt::Key_Return);
    EXPECT_EQ(prompts.ChooseColour(0x80FF10), std::optional<std::uint32_t>(0x80FF10));
    press(Qt::Key_Escape);
    EXPECT_EQ(prompts.ChooseColour(0x80FF10), std::nullopt);
    const services::FontChoice font{QFont().family(), 12};
    press(Qt::Key_Escape);
    EXPECT_FALSE(prompts.ChooseFont(font));
    for (const double size : {12.0, -1.0, 1e30}) { // a size is any number here
        QTimer::singleShot(0, [] {
            if (auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget()))
                dialog->accept();
        });
        const auto chosen = prompts.ChooseFont({font.name, size});
        ASSERT_TRUE(chosen);
        EXPECT_GT(chosen->size, 0);
        EXPECT_LE(chosen->size, 1000);
        if (size == font.size) {
            EXPECT_EQ(chosen->size, size);
        }
    }
}

} // namespace
