// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/QtPrompts.h"
#include "desktop/base/Colours.h"
#include "desktop/base/LongWords.h"
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace desktop {

using services::Answer;
using services::Buttons;

namespace {

// A box shows so much of a text: a line of millions of characters would stop it.
constexpr qsizetype kLongestText = 4000;

// A stored size may be any number; a font dialog draws its sample in it.
constexpr double kSmallestFont = 1;
constexpr double kLargestFont = 200;

QString ForBox(const QString& text) {
    QString shown = text.left(kLongestText);
    if (shown.size() < text.size())
        shown += QChar(0x2026);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return WithBreaksInLongWords(shown);
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

// Enter may have been meant for what was there before the box: to a warning it says no.
QMessageBox::StandardButton UsualOf(Buttons buttons, services::Icon icon) {
    if (buttons == Buttons::OkCancel && icon == services::Icon::Exclamation)
        return QMessageBox::Cancel;
    return buttons == Buttons::Ok || buttons == Buttons::OkCancel ? QMessageBox::Ok : QMessageBox::Yes;
}

QMessageBox::Icon IconOf(services::Icon icon) {
    switch (icon) {
    case services::Icon::Information:
        return QMessageBox::Information;
    case services::Icon::Question:
        return QMessageBox::Question;
    case services::Icon::Exclamation:
        return QMessageBox::Warning;
    case services::Icon::Critical:
        return QMessageBox::Critical;
    case services::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

Answer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

QString Ask(QFileDialog& dialog, QString& folder) {
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!folder.isEmpty())
        dialog.setDirectory(folder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    folder = dialog.directory().absolutePath();
    return dialog.selectedFiles().constFirst();
}

} // namespace

Answer QtPrompts::MsgBox(const QString& text, Buttons buttons, services::Icon icon, const QString& title,
                         const QString& about) {
    QMessageBox box(QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setText(ForBox(text));
    box.setInformativeText(ForBox(about));
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText); // the box's own format is for its text alone
    box.setWindowTitle(title);
    box.setIcon(IconOf(icon));
    box.setStandardButtons(ButtonsOf(buttons));
    box.setDefaultButton(UsualOf(buttons, icon));
    const auto escape = buttons == Buttons::Ok      ? QMessageBox::Ok
                        : buttons == Buttons::YesNo ? QMessageBox::No
                                                    : QMessageBox::Cancel;
    box.setEscapeButton(escape);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return AnswerOf(box.exec());
}

int QtPrompts::Choose(const QString& text, const QStringList& answers, int usual) {
    QMessageBox box(QMessageBox::Question, QStringLiteral("Vantrel"), {}, QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setText(ForBox(text));
    QList<QPushButton*> buttons;
    for (const QString& answer : answers)
        buttons << box.addButton(answer, QMessageBox::ActionRole);
    box.setDefaultButton(buttons.value(usual));
    const QPushButton* none = box.addButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == none
               ? -1
               : static_cast<int>(buttons.indexOf(qobject_cast<QPushButton*>(box.clickedButton())));
}

void QtPrompts::ShowText(const QString& title, const QString& text) {
    QDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(title);
    dialog.resize(900, 600);
    auto* lines = new QPlainTextEdit(text, &dialog);
    lines->setReadOnly(true);
    lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(lines);
    layout->addWidget(buttons);
    dialog.exec();
}

QString QtPrompts::OpenFileName(const QString& title, const QString& filter) {
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(NameFilters(filter));
    return Ask(dialog, folder_);
}

// Whether an existing file may be replaced is asked by the one who saves.
QString QtPrompts::SaveFileName(const QString& title, const QString& filter, const QString& suggested) {
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(NameFilters(filter));
    const QFileInfo given(suggested);
    QString folder = given.isAbsolute() ? given.absolutePath() : folder_;
    if (!suggested.isEmpty())
        dialog.selectFile(given.fileName());
    QString name = Ask(dialog, folder);
    if (!name.isEmpty())
        folder_ = folder;
    return name;
}

std::optional<std::uint32_t> QtPrompts::ChooseColour(std::uint32_t present) {
    const QColor chosen = QColorDialog::getColor(ToQColor(present), QApplication::activeWindow());
    if (!chosen.isValid())
        return std::nullopt;
    return ToColour(chosen);
}

std::optional<services::FontChoice> QtPrompts::ChooseFont(const services::FontChoice& present) {
    QFont font(present.name);
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(std::clamp(present.size, kSmallestFont, kLargestFont));
    font.setFamily(QFontInfo(font).family()); // what stands in for a font that isn't installed
    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, font, QApplication::activeWindow());
    if (!accepted)
        return std::nullopt;
    return services::FontChoice{chosen.family(), chosen.pointSizeF()};
}

void QtPrompts::Beep() {
    QApplication::beep();
}

QStringList QtPrompts::NameFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters += QStringLiteral("%1 (%2)").arg(parts[i], patterns.join(QLatin1Char(' ')));
    }
    return filters;
}

} // namespace desktop
