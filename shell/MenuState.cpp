// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MenuState.h"
#include <algorithm>

namespace shell {

namespace {

// The last letter of a row that has one more than there are situations is for the tree root of a schema.
char LetterOf(edit::Offered offered, const MenuInputs& inputs) {
    constexpr auto kSituations = static_cast<std::size_t>(MenuSituation::ViewWithoutEditing) + 1;
    std::string letters(offered);
    std::erase(letters, ' ');
    const bool schemaRoot = inputs.schema && inputs.situation == MenuSituation::TreeRoot;
    // The compact view has no letter of its own: it goes by that of a view without editing.
    const auto place = std::min(static_cast<std::size_t>(inputs.situation), kSituations - 1);
    return schemaRoot && letters.size() > kSituations ? letters.back() : letters[place];
}

bool IsIn(edit::In in, const MenuInputs& inputs) {
    return inputs.window && (in == edit::In::AnyWindow || (in == edit::In::SchemaWindow) == inputs.schema);
}

bool IsOffered(const edit::Offer& offer, const edit::Entry& entry, edit::Condition allowed,
               const MenuInputs& inputs) {
    const edit::Target& target = inputs.target;
    if (inputs.situation == MenuSituation::CompactView && entry.inCompact)
        return IsIn(offer.in, inputs) && entry.inCompact(target);
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
        return IsIn(offer.in, inputs) && (!allowed || allowed(target));
    default:
        return false;
    }
}

bool IsOfferedByButton(const edit::Offer& offer, const MenuInputs& inputs) {
    const edit::Entry& entry = offer.entries[0];
    return IsOffered(offer, entry, offer.button.allowed ? offer.button.allowed : entry.allowed, inputs);
}

void SetEntry(controls::MenuItem& item, const edit::Offer& offer, const edit::Entry& entry,
              const MenuInputs& inputs) {
    const bool offered = IsOffered(offer, entry, entry.allowed, inputs);
    item.SetEnabled(offered);
    if (entry.hides)
        item.SetVisible(offered);
    item.SetChecked(entry.checked && entry.checked(inputs.target));
}

bool IsSetByItsOwner(const edit::Offer& offer) {
    return offer.offered && *offer.offered == '\0';
}

} // namespace

MenuState::MenuState(FrameMenus& menus, const std::vector<const edit::Offer*>& offers, Work& work)
    : menus_(menus), work_(work) {
    for (const edit::Offer* offer : offers) {
        if (IsSetByItsOwner(*offer))
            continue;
        for (const edit::Entry& entry : offer->entries) {
            if (entry.name)
                entries_.insert(QLatin1String(entry.name), {offer, &entry});
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
        if (state == entries_.constEnd()) // there is no command yet
            item->SetEnabled(inputs.window);
        else
            SetEntry(*item, *state->offer, *state->entry, inputs);
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
