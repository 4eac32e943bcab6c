// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "shell/FrameMenus.h"
#include "shell/MenuInputs.h"
#include <optional>

namespace shell {

/// Which menu entries and buttons can be chosen. They are set from the commands' rows, in one go, and only
/// when something that they depend on is no longer as it was.
class MenuState {
public:
    /// `offers`: of all commands; they stay where they are.
    MenuState(FrameMenus& menus, const std::vector<const edit::Offer*>& offers, Work& work);

    void Apply(const MenuInputs& inputs);
    MenuSituation SituationInForce() const { return applied_ ? applied_->situation : MenuSituation::NoForm; }

private:
    struct EntryState {
        const edit::Offer* offer;
        const edit::Entry* entry;
    };
    struct ButtonState {
        controls::ToolButton* button;
        std::vector<const edit::Offer*> offers; ///< one is enough for it
    };
    ButtonState& StateOf(controls::ToolButton& button);
    void SetMenus(const MenuInputs& inputs);
    void SetToolBar(const MenuInputs& inputs);

    FrameMenus& menus_;
    Work& work_;
    QHash<QString, EntryState> entries_;
    std::vector<ButtonState> buttons_;
    std::optional<MenuInputs> applied_; ///< nothing before the first time
};

} // namespace shell
