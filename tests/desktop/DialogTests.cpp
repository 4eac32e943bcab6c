// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes, file dialogs, the progress bar and the names that come from outside.
#include "desktop/base/QtProgress.h"
#include "desktop/base/QtPrompts.h"
#include "desktop/frame/GivenNames.h"
#include "tests/support/TempFolder.h"
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using desktop::CommandLineNames;
using desktop::QtProgress;
using desktop::QtPrompts;
using services::Answer;
using services::Buttons;

// Shows a box and presses one key in it.
Answer AnswerBy(Qt::Key key, Buttons buttons, const QString& text = QStringLiteral("Really?")) {
    QTimer::singleShot(0, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    return QtPrompts().MsgBox(text, buttons, services::Icon::Question, QStringLiteral("Vantrel"));
}

TEST(MessageBoxes, EscapeNeverSaysYes) {
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::YesNoCancel), Answer::Cancel);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::YesNo), Answer::No);
    EXPECT_EQ(AnswerBy(Qt::Key_Escape, Buttons::Ok), Answer::Ok);
    EXPECT_EQ(AnswerBy(Qt::Key_Return, Buttons::YesNo), Answer::Yes);
}

TEST(MessageBoxes, MarkupIsShownAsItIsAndAnEndlessLineFitsTheScreen) {
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

TEST(FileDialogs, FiltersKeepTheirCaptionAndStarDotStarMeansEveryFile) {
    EXPECT_EQ(
        QtPrompts::NameFilters(QStringLiteral("XML File (*.xml)|*.xml|Two|*.a;*.b|All Files (*.*)|*.*")),
        QStringList({QStringLiteral("XML File (*.xml) (*.xml)"), QStringLiteral("Two (*.a *.b)"),
                     QStringLiteral("All Files (*.*) (*)")}));
    EXPECT_TRUE(QtPrompts::NameFilters(QString()).isEmpty());
}

TEST(ProgressBar, CancelStopsTheWork) {
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

TEST(GivenNames, RelativeNamesBecomeAbsoluteAndAddressesStay) {
    const test::TempFolder folder;
    folder.Write(QStringLiteral("a b.xml"), "<a/>");
    folder.Write(QStringLiteral("c.xml"), "<c/>");
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.Path({}));
    const QString here = QDir::currentPath() + QLatin1Char('/');
    const auto names = [](std::initializer_list<const char*> arguments) {
        QStringList list;
        for (const char* argument : arguments)
            list << QString::fromUtf8(argument);
        return CommandLineNames(list);
    };
    EXPECT_EQ(names({"./c.xml"}), QStringList(here + QStringLiteral("c.xml")));
    EXPECT_EQ(names({"\"a b.xml\""}), QStringList(here + QStringLiteral("a b.xml")));
    EXPECT_EQ(names({"a", "b.xml"}), QStringList(here + QStringLiteral("a b.xml")));
    EXPECT_EQ(names({"c.xml", "missing.xml"}),
              QStringList({here + QStringLiteral("c.xml"), here + QStringLiteral("missing.xml")}));
    EXPECT_EQ(names({"HTTP://example.org/a.xml", "c:\\a.xml"}),
              QStringList({QStringLiteral("HTTP://example.org/a.xml"), QStringLiteral("c:\\a.xml")}));
    EXPECT_TRUE(names({}).isEmpty());
    EXPECT_TRUE(names({""}).isEmpty());
    QDir::setCurrent(before);
}

} // namespace
