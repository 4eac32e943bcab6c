// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmMDIMain.h"
#include "shell/Recovery.h"
#include "shell/Settings.h"
#include "window/WindowKinds.h"
#include <utility>

namespace {

const QString kSupportAddress = QStringLiteral("support@orvane.example");

} // namespace

frmMDIMain::frmMDIMain(Application& application)
    : app_(application), parts_(application), commands_(parts_),
      menuState_(parts_.menus, commands_.Offers(), application.work) {
    app_.SetFrame(this);
    commands_.Connect();
}

frmMDIMain::~frmMDIMain() {
    parts_.windows.Clear();
    app_.SetFrame(nullptr);
}

void frmMDIMain::MDIForm_Load() {
    shell::ReadSettings(app_);
    shell::SetRTFColorString(app_);
    GetRecentFiles();
    parts_.recentFiles.FillCombo();
    parts_.addressBox.cmbAddress_Change();
    RefreshMenu();
}

void frmMDIMain::MDIForm_Activate(const QString& commandLine) {
    shell::OfferUnsavedWork(app_);
    if (commandLine.isEmpty())
        return;
    QString name = commandLine;
    if (name.startsWith(QLatin1Char('"')))
        name.remove(0, 1);
    if (name.endsWith(QLatin1Char('"')))
        name.chop(1);
    OpenNamed(name);
}

void frmMDIMain::SetMousePointer(int pointer) {
    if (std::exchange(mousePointer_, pointer) != pointer)
        mousePointerChanged(pointer);
}

void frmMDIMain::NewXMLFile(const FetchedText& text, const QString& fileName) {
    parts_.windows.NewFile(window::XMLKind(), text, fileName);
}

void frmMDIMain::NewSXMLFile(const FetchedText& text, const QString& fileName) {
    parts_.windows.NewFile(window::SchemaKind(), text, fileName);
}

bool frmMDIMain::HaveSameNameForm(const QString& name, bool bringToFront) {
    return parts_.windows.HaveSameNameForm(name, bringToFront);
}

void frmMDIMain::ErrorReportBox(const text::Fault& fault, const QString& routineName) {
    if (fault.Number == 0 || !app_.options.Debug)
        return;
    const QStringList lines = {
        QStringLiteral("Module name:") + routineName,
        QStringLiteral("Error number:") + QString::number(fault.Number),
        QStringLiteral("Error des:") + fault.Description,
        QStringLiteral("Please contact us by ") + kSupportAddress + QStringLiteral(" Thanks!"),
    };
    app_.services.prompts.MsgBox(lines.join(QStringLiteral("\r\n")), services::Buttons::Ok,
                                 services::Icon::Information);
}

void frmMDIMain::RunMenuCommand(const QString& entry) {
    Menu(entry).Click();
}

// While a window is being closed its menus stay as they are: they belong to a window that is still there, or
// are those of none already.
void frmMDIMain::RefreshMenu() {
    DocumentWindow* active = ActiveForm();
    if (!active || !active->bUnloading)
        menuState_.Apply(shell::InputsOf(active));
}

void frmMDIMain::DisableMenu() {
    menuState_.Apply({});
}
