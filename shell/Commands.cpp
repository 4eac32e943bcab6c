// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Commands.h"
#include "core/edit/Guard.h"
#include "exchange/dialogs/ExchangeCommandTable.h"
#include "nodes/NodeCommandTable.h"
#include "schema/SchemaCommandTable.h"
#include "schema/dialogs/MakeCommandTable.h"
#include "shell/FrameCommands.h"
#include "shell/RunCommand.h"
#include "table/TableCommandTable.h"
#include "textview/TextCommandTable.h"
#include "window/WindowKinds.h"
#include <algorithm>
#include <cstring>

namespace shell {

namespace {

bool Same(const char* a, const char* b) {
    return a && b && std::strcmp(a, b) == 0;
}

/// What rooms do in their views when a command of another room is chosen.
std::vector<edit::CommandForm> FormsOfViews() {
    std::vector<edit::CommandForm> forms;
    for (const auto& room : {textview::TextForms(), table::TableForms(), schema::SchemaForms()})
        forms.insert(forms.end(), room.begin(), room.end());
    return forms;
}

/// A command's own forms and those that other rooms give it.
std::vector<edit::Form> FormsOf(const edit::Command& command) {
    std::vector<edit::Form> forms(std::begin(command.forms), std::end(command.forms));
    for (const edit::CommandForm& other : FormsOfViews()) {
        if (Same(other.entry, command.offer.entries[0].name))
            forms.push_back(other.form);
    }
    return forms;
}

/// A form finds its command by the name of an entry: a slip in it would be a command that does nothing.
void RefuseFormsWithoutCommand(std::span<const edit::Offer* const> offers) {
    for (const edit::CommandForm& form : FormsOfViews()) {
        if (std::none_of(offers.begin(), offers.end(),
                         [&](const edit::Offer* offer) { return Same(form.entry, offer->entries[0].name); }))
            throw text::Fault(text::kFaultNotFound, QLatin1String(form.entry));
    }
}

bool Has(const WindowKind& kind, const edit::View* view) {
    return std::find(kind.views.begin(), kind.views.end(), view) != kind.views.end();
}

/// Offered in the windows that have such a view.
edit::Offer OfferOf(const edit::View* view) {
    const bool both = Has(window::XMLKind(), view) && Has(window::SchemaKind(), view);
    const edit::In one = Has(window::XMLKind(), view) ? edit::In::XMLWindow : edit::In::SchemaWindow;
    return {.entries = {{view->entry}}, .in = both ? edit::In::AnyWindow : one};
}

} // namespace

Commands::Commands(FrameParts& frame) : frame_(frame) {
    for (const FrameCommand& command : FrameCommands()) {
        Row& row = rows_.emplace_back(&command.offer);
        if (command.run)
            row.run = [&frame, run = command.run](int index) { run(frame, index); };
    }
    AddViews();
    AddCommands(nodes::NodeCommands());
    AddCommands(textview::TextCommands());
    AddCommands(exchange::ExchangeCommands());
    AddCommands(table::TableCommands());
    AddCommands(schema::SchemaCommands());
    AddCommands(schema::MakeCommands());
    RefuseFormsWithoutCommand(Offers());
}

void Commands::AddViews() {
    std::vector<const edit::View*> views = window::XMLKind().views;
    for (const edit::View* view : window::SchemaKind().views) {
        if (!Has(window::XMLKind(), view))
            views.push_back(view);
    }
    for (const edit::View* view : views) {
        rows_.push_back({&views_.emplace_back(OfferOf(view)), [&frame = frame_, view](int) {
                             if (DocumentWindow* window = frame.windows.ActiveForm())
                                 edit::ShowView(*window, view->key);
                         }});
    }
}

void Commands::AddCommands(std::span<const edit::Command> commands) {
    for (const edit::Command& command : commands) {
        const auto run = [&frame = frame_, &command, forms = FormsOf(command)](int) {
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
