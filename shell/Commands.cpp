// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Commands.h"
#include "core/edit/Guard.h"
#include "nodes/NodeCommandTable.h"
#include "shell/FrameCommands.h"
#include "shell/RunCommand.h"
#include "textview/TextCommandTable.h"
#include <cstring>

namespace shell {

namespace {

bool Same(const char* a, const char* b) {
    return a && b && std::strcmp(a, b) == 0;
}

/// A command's own forms and those that other rooms give it.
std::vector<edit::Form> FormsOf(const edit::Command& command, std::span<const edit::CommandForm> others) {
    std::vector<edit::Form> forms(std::begin(command.forms), std::end(command.forms));
    for (const edit::CommandForm& other : others) {
        if (Same(other.entry, command.offer.entries[0].name))
            forms.push_back(other.form);
    }
    return forms;
}

} // namespace

Commands::Commands(FrameParts& frame) : frame_(frame) {
    for (const FrameCommand& command : FrameCommands()) {
        Row& row = rows_.emplace_back(&command.offer);
        if (command.run)
            row.run = [&frame, run = command.run](int index) { run(frame, index); };
    }
    AddCommands(nodes::NodeCommands(), textview::TextForms());
    AddCommands(textview::TextCommands(), {});
}

void Commands::AddCommands(std::span<const edit::Command> commands,
                           std::span<const edit::CommandForm> others) {
    for (const edit::Command& command : commands) {
        const auto run = [&frame = frame_, &command, forms = FormsOf(command, others)](int) {
            DocumentWindow* window = frame.windows.ActiveForm();
            if (!window)
                return;
            RunCommand(*window, command, forms);
            frame.app.frame().RefreshMenu(); // one that changes no nodes may have changed what can be pasted
        };
        rows_.push_back({&command.offer, run});
    }
}

std::vector<const edit::Offer*> Commands::Offers() const {
    std::vector<const edit::Offer*> offers;
    for (const Row& row : rows_)
        offers.push_back(row.offer);
    return offers;
}

void Commands::Connect() {
    for (const Row& row : rows_) {
        if (!row.run)
            continue;
        ConnectEntries(row);
        if (row.offer->button.key)
            ConnectButton(row);
    }
}

void Commands::ConnectEntries(const Row& row) {
    for (controls::MenuItem* item : frame_.menus.MenuEntries()) {
        if (!std::any_of(std::begin(row.offer->entries), std::end(row.offer->entries),
                         [&](const edit::Entry& entry) { return item->Name == QLatin1String(entry.name); }))
            continue;
        item->HasCommand = true;
        const QString name = QStringLiteral("frmMDIMain@") + item->Name + QStringLiteral("_Click");
        item->Click.connect([this, &row, name, index = item->Index] {
            edit::Guarded(frame_.app, name, [&] { row.run(index); });
        });
    }
}

void Commands::ConnectButton(const Row& row) {
    const edit::Button& at = row.offer->button;
    controls::ToolButton& button = frame_.menus.Button(at.toolbar, at.key);
    const bool shared = std::exchange(button.HasCommand, true);
    const QString name =
        QStringLiteral("frmMDIMain@") + QLatin1String(at.toolbar) + QStringLiteral("_ButtonClick");
    if (at.choice) {
        button.ButtonMenuClick.connect(
            [this, &row, name, choice = QString(QLatin1String(at.choice))](const QString& chosen) {
                if (chosen == choice)
                    edit::Guarded(frame_.app, name, [&] { row.run(0); });
            });
    } else if (!shared) {
        button.Click.connect(
            [this, &at, name] { edit::Guarded(frame_.app, name, [&] { RunFirstOffered(at); }); });
    }
}

// The last one runs where none is offered: a button that isn't enabled can't be pressed.
void Commands::RunFirstOffered(const edit::Button& button) const {
    const Row* found = nullptr;
    for (const Row& row : rows_) {
        if (!row.run || !Same(row.offer->button.toolbar, button.toolbar) ||
            !Same(row.offer->button.key, button.key))
            continue;
        found = &row;
        if (IsOffered(row))
            break;
    }
    found->run(0);
}

bool Commands::IsOffered(const Row& row) const {
    const char* entry = row.offer->entries[0].name;
    return !entry || frame_.menus.Menu(QLatin1String(entry)).Enabled();
}

} // namespace shell
