// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Recovery.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/Journal.h"
#include "core/model/Frame.h"
#include "window/WindowKinds.h"
#include <QLocale>

namespace shell {

namespace {

using edit::Orphan;
using services::Answer;

QString Question(const std::vector<Orphan>& orphans) {
    constexpr std::size_t kShown = 12;
    QStringList lines{
        QStringLiteral("These documents were not saved when the program ended. Do you want them back?")};
    for (std::size_t i = 0; i < orphans.size() && i < kShown; ++i)
        lines << orphans[i].name + QStringLiteral("  (") +
                     QLocale().toString(orphans[i].time, QLocale::ShortFormat) + u')';
    if (orphans.size() > kShown)
        lines << QStringLiteral("... %1 in all").arg(orphans.size());
    return lines.join(QStringLiteral("\r\n"));
}

// Two runs may have left the same document behind: neither takes the other one's window.
QString FreeName(Frame& frame, const QString& name) {
    QString free = name;
    for (int number = 2; frame.HaveSameNameForm(free, false); ++number)
        free = name + u' ' + QString::number(number);
    return free;
}

// The document belongs to its file as the run that ended had it. One that was written since is asked about.
void KnowFile(DocumentWindow& window, const QDateTime& lastWork) {
    edit::TakeFileAsItIs(window, window.Caption);
    std::optional<services::FileMark>& mark = edit::FileOf(window).mark;
    if (mark && mark->stamp.modified / 1'000'000 > lastWork.toMSecsSinceEpoch())
        mark->stamp = {};
}

void BringBack(Application& app, Orphan orphan) {
    Frame& frame = app.frame();
    const QString name = FreeName(frame, orphan.name);
    if (orphan.kind == window::SchemaKind().Name)
        frame.NewSXMLFile(edit::Journal::TakeBack(orphan), name);
    else
        frame.NewXMLFile(edit::Journal::TakeBack(orphan), name);
    DocumentWindow* made = frame.ActiveForm();
    if (!made || made->Caption != name)
        return;
    KnowFile(*made, orphan.time);
    edit::JournalOf(app).Adopt(*made, std::move(orphan));
    edit::ShowUnsaved(*made);
}

} // namespace

void OfferUnsavedWork(Application& app) {
    std::vector<Orphan> orphans = edit::JournalOf(app).Orphans();
    if (orphans.empty())
        return;
    const Answer answer = app.services.prompts.MsgBox(Question(orphans), services::Buttons::YesNoCancel,
                                                      services::Icon::Question);
    for (Orphan& orphan : orphans) {
        if (answer == Answer::Yes)
            BringBack(app, std::move(orphan));
        else if (answer == Answer::No)
            edit::Journal::Drop(std::move(orphan));
    }
}

} // namespace shell
