// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApp.h"
#include "schema/CheckBeside.h"
#include <QCoreApplication>
#include <gtest/gtest.h>
#include <stdexcept>

namespace test {
namespace {

// HTTP runs on the event loop, which needs the process's one application object.
void NeedCoreApplication() {
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char name[] = "tests";
    static char* argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
}

} // namespace

TestApp::TestApp() {
    NeedCoreApplication();
    settings_ = services::MakeIniSettings(folder.Path(QStringLiteral("settings.ini")));
    files_ = services::MakeFileSystem();
    http_ = services::MakeHttpClient();
    clock_ = services::MakeClock();
    journal_ = services::MakeJournalStore(folder.Path(QStringLiteral("journal")));
    watch_ = services::MakeFileWatch();
    schemas_ = services::MakeSchemas();
    Start({});
}

TestApp::~TestApp() = default;

void TestApp::Start(const QString& commandLine) {
    app_ = std::make_unique<Application>(services::Services{prompts, progress, *settings_, *files_, *http_,
                                                            *clock_, clipboard, journal_.get(), watch_.get(),
                                                            schemas_.get()});
    frame_ = std::make_unique<frmMDIMain>(*app_);
    frame_->MDIForm_Load();
    frame_->MDIForm_Activate(commandLine);
}

void TestApp::Restart(const QString& commandLine) {
    frame_.reset();
    app_.reset();
    Start(commandLine);
}

DocumentWindow& TestApp::window() {
    DocumentWindow* active = frame_->ActiveForm();
    if (!active)
        throw std::runtime_error("no document window is open");
    return *active;
}

DocumentWindow& TestApp::OpenText(const QString& name, const QByteArray& bytes) {
    frame_->OpenNamed(folder.Write(name, bytes));
    FinishChecks();
    return window();
}

void TestApp::ChooseMenu(const QString& name, int index) {
    controls::MenuItem& item = frame_->Menu(name, index);
    if (!item.Usable() || !item.Visible()) {
        ADD_FAILURE() << "menu entry " << name.toStdString() << " can't be chosen";
        return;
    }
    item.Click();
}

void TestApp::PressButton(const QString& toolbar, const QString& key, const QString& entry) {
    controls::ToolButton& button = frame_->ToolbarByName(toolbar).Button(key);
    if (!button.Usable()) {
        ADD_FAILURE() << "toolbar button " << key.toStdString() << " can't be pressed";
        return;
    }
    if (entry.isEmpty())
        button.Click();
    else
        button.ButtonMenuClick(entry);
}

void TestApp::EnterAddress(const QString& text) {
    frame_->cmbAddress().UserTyped(text);
    frame_->cmbAddress().KeyUp(Qt::Key_Return, Qt::NoModifier);
}

void TestApp::ClickNode(controls::TreeNode node) {
    DocumentWindow& active = window();
    active.tvXML.GotFocus();
    active.tvXML.SetSelectedItem(node);
    active.tvXML.NodeClick(node);
    active.tvXML.Click();
}

void TestApp::EditText(const QString& text) {
    DocumentWindow& active = window();
    active.tbsXML.Select(QStringLiteral("textview"));
    controls::RichTextBox& view = active.TextInUse();
    view.GotFocus();
    view.UserSelected(0, view.Text().size());
    view.Type(text);
    view.LostFocus();
    FinishChecks();
}

void TestApp::FinishChecks(DocumentWindow& window) {
    schema::CheckBeside& check = schema::CheckBesideOf(window);
    while (check.busy()) {
        check.tmCheck.Tick();
        if (check.running)
            check.running->WaitForEnd(100);
    }
    if (check.tmCheck.Enabled())
        check.tmCheck.Tick();
}

} // namespace test
