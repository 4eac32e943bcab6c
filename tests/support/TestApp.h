// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/services/JournalFiles.h"
#include "platform/services/RealServices.h"
#include "platform/services/Schemas.h"
#include "shell/frmMDIMain.h"
#include "tests/support/PrintText.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TempFolder.h"
#include <memory>

namespace test {

/// The whole application in the test's process, without a screen: the real frame, files, settings (in a
/// temporary folder) and HTTP. Only what waits for a person is scripted. It stands as after a start without a
/// command line.
class TestApp {
public:
    TestApp();
    ~TestApp();
    TestApp(const TestApp&) = delete;
    TestApp& operator=(const TestApp&) = delete;

    // Declared in the order of need: the frame and its windows go first.
    ScriptedPrompts prompts;
    ScriptedProgress progress;
    MemoryClipboard clipboard;
    TempFolder folder; ///< documents of the test; the settings stand in "settings.ini" there

    Application& app() { return *app_; }
    frmMDIMain& frame() { return *frame_; }
    services::SettingsStore& settings() { return *settings_; }
    /// The active window; throws std::runtime_error (the test fails) when there is none.
    DocumentWindow& window();

    /// Ends the run and starts anew on the same settings and files.
    void Restart(const QString& commandLine = {});

    // --- what a user does ----------------------------------------------------------------------------
    /// Writes a file into the folder and opens it by its name; its window. A schema has been checked.
    DocumentWindow& OpenText(const QString& name, const QByteArray& bytes);
    /// Chooses a menu entry; fails the test when it isn't usable.
    void ChooseMenu(const QString& name, int index = 0);
    /// Presses a toolbar button, or chooses an entry of its drop-down; fails the test when it isn't usable.
    void PressButton(const QString& toolbar, const QString& key, const QString& entry = {});
    /// Types a name into the address box and presses Enter.
    void EnterAddress(const QString& text);
    /// Selects a node of the active window's tree by a click.
    void ClickNode(controls::TreeNode node);
    /// Goes to the text tab, replaces the whole text as by typing, and leaves the view again.
    void EditText(const QString& text);
    /// Waits until nothing is checked beside the work any more, and the user has been told of it.
    void FinishChecks() { FinishChecks(window()); }
    static void FinishChecks(DocumentWindow& window); ///< the same of a window that needn't be in front

private:
    void Start(const QString& commandLine);
    std::unique_ptr<services::SettingsStore> settings_;
    std::unique_ptr<services::FileSystem> files_;
    std::unique_ptr<services::HttpClient> http_;
    std::unique_ptr<services::Clock> clock_;
    std::unique_ptr<services::JournalStore> journal_;
    std::unique_ptr<services::FileWatch> watch_;
    std::unique_ptr<services::Schemas> schemas_;
    std::unique_ptr<Application> app_;
    std::unique_ptr<frmMDIMain> frame_;
};

} // namespace test
