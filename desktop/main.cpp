// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/FileOnDisk.h"
#include "core/edit/Journal.h"
#include "core/model/Application.h"
#include "desktop/base/QtClipboard.h"
#include "desktop/base/QtProgress.h"
#include "desktop/base/QtPrompts.h"
#include "desktop/base/ThemeIcons.h"
#include "desktop/bind/TimerAdapter.h"
#include "desktop/frame/FrameStyle.h"
#include "desktop/frame/GivenNames.h"
#include "desktop/frame/MainWindow.h"
#include "desktop/frame/VantrelApplication.h"
#include "platform/services/JournalFiles.h"
#include "platform/services/RealServices.h"
#include "platform/services/Schemas.h"
#include "shell/frmMDIMain.h"
#include <QComboBox>
#include <QLineEdit>
#include <cstdlib>
#include <unistd.h>

namespace {

// The web engine refuses to start its sandbox for root; for other users the sandbox stays. Where it can't
// have shared memory it would end the whole program, so it is told to use files instead.
void PrepareWebEngine() {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (access("/dev/shm", W_OK | X_OK) != 0)
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
                qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --disable-dev-shm-usage");
}

void PrepareLook() {
    QApplication::setApplicationName(QStringLiteral("vantrel"));
    QApplication::setStyle(new desktop::FrameStyle); // the application owns it
    desktop::ChooseIconTheme();
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("text-xml")));
}

// An address, a path, what is to be found.
bool IsTypingALine() {
    const QWidget* focus = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QComboBox*>(focus);
}

// A question takes the keys from whatever has them.
bool NothingElseGoesOn() {
    return QGuiApplication::applicationState() == Qt::ApplicationActive &&
           !QApplication::activeModalWidget() && !QApplication::activePopupWidget() && !IsTypingALine() &&
           QGuiApplication::mouseButtons() == Qt::NoButton;
}

// For measuring: VANTREL_MEASURE=frame ends the program when the frame has been painted, =document when the
// given documents have been, without the time that tidying up takes.
void EndIfMeasured(const char* moment) {
    if (qgetenv("VANTREL_MEASURE") != moment)
        return;
    QCoreApplication::processEvents();
    std::_Exit(0);
}

// The first name is the command line's; the frame takes it when it has been painted.
void OpenGivenNames(frmMDIMain& frame, const QStringList& names) {
    frame.MDIForm_Activate(names.value(0));
    for (const QString& name : names.mid(1))
        frame.OpenNamed(name);
}

} // namespace

int main(int argumentCount, char** arguments) {
    PrepareWebEngine();
    desktop::VantrelApplication qt(argumentCount, arguments);
    PrepareLook();

    desktop::QtPrompts prompts;
    desktop::QtProgress progress;
    const auto settings = services::MakeIniSettings();
    const auto files = services::MakeFileSystem();
    const auto http = services::MakeHttpClient();
    const auto clock = services::MakeClock();
    desktop::QtClipboard clipboard;
    const auto journal = services::MakeJournalStore();
    const auto watch = services::MakeFileWatch();
    const auto schemas = services::MakeSchemas();
    Application app({prompts, progress, *settings, *files, *http, *clock, clipboard, journal.get(),
                     watch.get(), schemas.get()});
    frmMDIMain frame(app);
    frame.MDIForm_Load();
    qt.faulted = [&frame](const text::Fault& fault) { frame.ErrorReportBox(fault, QStringLiteral("main")); };
    qt.outOfMemory = [&prompts] {
        prompts.MsgBox(QStringLiteral("Not enough memory for this."), services::Buttons::Ok,
                       services::Icon::Critical, QStringLiteral("Vantrel"));
    };

    edit::Journal& unsaved = edit::JournalOf(app);
    const desktop::TimerAdapter tick(unsaved.tmJournal), goOn(unsaved.tmJournalOn);
    QObject::connect(&qt, &QGuiApplication::commitDataRequest, &qt, [&unsaved] { unsaved.WriteAll(); });

    edit::OpenFiles& openFiles = edit::FilesOf(app);
    const desktop::TimerAdapter look(openFiles.tmLook);
    openFiles.mayAsk = NothingElseGoesOn;
    QObject::connect(&qt, &QGuiApplication::applicationStateChanged, &qt, [&](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            openFiles.CameToFront(frame.ActiveForm());
    });

    desktop::MainWindow window(frame);
    const QStringList names = desktop::CommandLineNames(QApplication::arguments().mid(1));
    QObject::connect(&window, &desktop::MainWindow::painted, &window, [&] {
        EndIfMeasured("frame");
        OpenGivenNames(frame, names);
        EndIfMeasured("document");
    });
    window.show();
    return QApplication::exec();
}
