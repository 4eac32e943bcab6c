// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuState.h"

namespace shell {

namespace {

// The last letter of a row that has one more than there are situations is for the tree root of a schema.
char LetterOf(edit::Offered offered, const MenuInputs& inputs) {
    constexpr auto kSituations = static_cast<std::size_t>(MenuSituation::ViewWithoutEditing) + 1;
    std::string letters(offered);
    std::erase(letters, ' ');
    const bool schemaRoot = inputs.schema && inputs.situation == MenuSituation::TreeRoot;
    return schemaRoot && letters.size() > kSituations ? letters.back()
                                                      : letters[static_cast<std::size_t>(inputs.situation)];
}

bool IsIn(edit::In in, const MenuInputs& inputs) {
    return inputs.window && (in == edit::In::AnyWindow || (in == edit::In::SchemaWindow) == inputs.schema);
}

bool IsOffered(const edit::Offer& offer, edit::Condition allowed, const MenuInputs& inputs) {
    const edit::Target& target = inputs.target;
    switch (offer.offered ? LetterOf(offer.offered, inputs) : '-') {
    case 'E':
        return true;
    case '-':
        return IsIn(offer.in, inputs);
    case 'c':
        return target.canPaste;
    case 'u':
        return target.canUndo;
    case 'r':
        return target.canRedo;
    case 'h':
        return !target.hasRootElement;
    case 'k':
        return !allowed || allowed(target);
    default:
        return false;
    }
}

bool IsOfferedByButton(const edit::Offer& offer, const MenuInputs& inputs) {
    return IsOffered(offer, offer.button.allowed ? offer.button.allowed : offer.entries[0].allowed, inputs);
}

bool IsSetByItsOwner(const edit::Offer& offer) {
    return offer.offered && *offer.offered == '\0';
}

/// Whether an entry inserts a schema element: its name starts with "mnuNewS", in this very case.
bool IsSchemaMenu(const QString& name) {
    return name.startsWith(QLatin1String("mnuNewS"));
}

// At the root of a schema document only its schema element can be added, and only one. "(none)" stays shown
// and disabled. In an XML document the whole menu is disabled, and its entries stay as they are.
void SetSchemaEntry(controls::MenuItem& item, const MenuInputs& inputs) {
    if (inputs.window && !inputs.schema)
        return;
    const bool none = item.Name == QLatin1String("mnuNewSNone");
    const bool fits = inputs.situation != MenuSituation::TreeRoot ||
                      (item.Name == QLatin1String("mnuNewSSchema") && !inputs.target.hasRootElement);
    item.SetEnabled(inputs.schema && !none && fits);
    if (inputs.schema)
        item.SetVisible(none || fits);
}

} // namespace

MenuState::MenuState(FrameMenus& menus, const std::vector<const edit::Offer*>& offers, Work& work)
    : menus_(menus), work_(work) {
    for (const edit::Offer* offer : offers) {
        if (IsSetByItsOwner(*offer))
            continue;
        for (const edit::Entry& entry : offer->entries) {
            if (entry.name)
                entries_.insert(QLatin1String(entry.name), {offer, entry.allowed});
        }
        if (offer->button.key)
            StateOf(menus_.Button(offer->button.toolbar, offer->button.key)).offers.push_back(offer);
    }
}

MenuState::ButtonState& MenuState::StateOf(controls::ToolButton& button) {
    for (ButtonState& state : buttons_) {
        if (state.button == &button)
            return state;
    }
    return buttons_.emplace_back(&button);
}

void MenuState::Apply(const MenuInputs& inputs) {
    if (applied_ == inputs)
        return;
    applied_ = inputs;
    SetMenus(inputs);
    SetToolBar(inputs);
}

void MenuState::SetMenus(const MenuInputs& inputs) {
    ++work_.menuStates;
    for (controls::MenuItem* item : menus_.MenuEntries()) {
        const auto state = entries_.constFind(item->Name);
        if (IsSchemaMenu(item->Name))
            SetSchemaEntry(*item, inputs);
        else if (state == entries_.constEnd()) // there is no command yet
            item->SetEnabled(inputs.window);
        else
            item->SetEnabled(IsOffered(*state->offer, state->allowed, inputs));
    }
    if (!inputs.window)
        return;
    for (const auto& item : menus_.Menu(QStringLiteral("mnuPopup")).Items)
        item->SetVisible(true);
}

void MenuState::SetToolBar(const MenuInputs& inputs) {
    ++work_.toolbars;
    for (const ButtonState& state : buttons_) {
        state.button->SetEnabled(
            std::any_of(state.offers.begin(), state.offers.end(),
                        [&](const edit::Offer* offer) { return IsOfferedByButton(*offer, inputs); }));
    }
}

} // namespace shell
