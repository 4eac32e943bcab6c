// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/FileChanged.h"
#include "core/edit/Journal.h"
#include "core/edit/Open.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "core/model/Frame.h"
#include "platform/text/LineDifference.h"
#include <utility>

namespace edit {

namespace {

using services::FileMark;

enum Choice { kReload, kKeepMine, kShow };
enum class Decision { Reloaded, KeptMine, PutOff };

QString ChangedText(const DocumentWindow& window) {
    return window.Caption + QStringLiteral("\r\nhas been changed by another program.");
}

QString QuestionOn(DocumentWindow& window) {
    return IsUnsaved(window)
               ? ChangedText(window) +
                     QStringLiteral(" Your own changes are not saved. After a reload, Undo brings "
                                    "them back.")
               : ChangedText(window);
}

void ShowDifference(DocumentWindow& window) {
    QByteArray bytes;
    if (const services::FileResult result = window.app.services.files.Read(window.Caption, bytes); !result) {
        window.app.services.prompts.MsgBox(result.description, services::Buttons::Ok,
                                           services::Icon::Exclamation, QStringLiteral("Vantrel"),
                                           window.Caption);
        return;
    }
    QStringList lines = text::LineDifference(text::Decode(bytes).text, window.TextInUse().Plain());
    if (lines.isEmpty())
        lines << QStringLiteral("The texts are equal. Their encodings or line ends differ.");
    lines.prepend(QStringLiteral("+ the document in its window"));
    lines.prepend(QStringLiteral("- the file: ") + window.Caption);
    window.app.services.prompts.ShowText(window.Caption, lines.join(QStringLiteral("\r\n")));
}

bool ReloadFile(DocumentWindow& window) {
    DocumentWindow* form = &window;
    OpenFile(window.app, window.Caption, form);
    if (LookAtFile(window) != FileState::Ours)
        return false;
    JournalOf(window.app).Forget(window);
    Message(window.app, window.Caption + QStringLiteral(" is as its file has it now."));
    return true;
}

// From here on that version of the file may be written over, and the document is nowhere but here.
void KeepMine(DocumentWindow& window, const FileMark& theirs) {
    FileOf(window).mark = theirs;
    FileOf(window).kept = true;
    JournalOf(window.app).Keep(window);
    ShowUnsaved(window);
}

Decision Choose(DocumentWindow& window, const FileMark& theirs) {
    for (;;) {
        const int chosen = window.app.services.prompts.Choose(
            QuestionOn(window),
            {QStringLiteral("Reload"), QStringLiteral("Keep mine"), QStringLiteral("Show what differs")},
            IsUnsaved(window) ? kKeepMine : kReload);
        if (chosen == kReload)
            return ReloadFile(window) ? Decision::Reloaded : Decision::PutOff;
        if (chosen == kKeepMine) {
            KeepMine(window, theirs);
            return Decision::KeptMine;
        }
        if (chosen != kShow)
            return Decision::PutOff;
        ShowDifference(window);
    }
}

Decision Ask(DocumentWindow& window, const FileMark& theirs) {
    const Decision decision = Choose(window, theirs);
    FileOf(window).heed = Heed::Asked;
    return decision;
}

bool IsInFront(const DocumentWindow& window) {
    return window.app.frame().ActiveForm() == &window;
}

void SayGone(DocumentWindow& window) {
    if (IsInFront(window))
        Message(window.app,
                window.Caption +
                    QStringLiteral(" has been removed by another program. The text is only here."));
}

void LookInFront(DocumentWindow& window) {
    Heed& heed = FileOf(window).heed;
    if (heed == Heed::Told)
        return;
    FileMark theirs;
    if (LookAtFile(window, &theirs) != FileState::Changed) {
        if (FileOf(window).gone && heed == Heed::JustCame)
            SayGone(window);
        heed = heed == Heed::JustCame ? Heed::Stays : heed;
    } else if (heed == Heed::Asked || (heed == Heed::Stays && IsUnsaved(window))) {
        heed = Heed::Told;
        Message(window.app, ChangedText(window).replace(QStringLiteral("\r\n"), QStringLiteral(" ")));
    } else {
        Ask(window, theirs);
    }
}

} // namespace

void NoticeFile(DocumentWindow& window) {
    const bool gone = IsFileGone(window);
    if (std::exchange(FileOf(window).gone, gone) == gone)
        return;
    if (gone) {
        JournalOf(window.app).Keep(window);
        SayGone(window);
    } else if (IsInFront(window)) {
        Message(window.app, {});
    }
    if (!gone && !IsUnsaved(window))
        JournalOf(window.app).Forget(window);
    ShowUnsaved(window);
}

void LookAtFiles(Application& app) {
    OpenFiles& files = FilesOf(app);
    files.tmLook.SetEnabled(false);
    for (DocumentWindow* window : files.Windows())
        NoticeFile(*window);
    DocumentWindow* front = app.frame().ActiveForm();
    if (front && MayAskNow(*front))
        LookInFront(*front);
    else
        files.tmLook.SetEnabled(front != nullptr); // again in a moment
}

// What is being typed belongs to the document as it stands: it is waited for.
bool MayAskNow(DocumentWindow& window) {
    const auto& mayAsk = FilesOf(window.app).mayAsk;
    const bool typing = IsEditorOpen(window) || window.bond.bTreeChanged();
    return window.bLoaded && !window.bUnloading && !typing && (!mayAsk || mayAsk());
}

bool MayOverwrite(DocumentWindow& window) {
    FileMark theirs;
    switch (LookAtFile(window, &theirs)) {
    case FileState::Changed:
    case FileState::Unknown:
        return Ask(window, theirs) == Decision::KeptMine;
    case FileState::NotOurs:
        return MayReplace(window.app, window.Caption);
    case FileState::Ours:
        break;
    }
    return true;
}

} // namespace edit
