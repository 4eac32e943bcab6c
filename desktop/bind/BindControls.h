// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QWidget>
#include <functional>
#include <variant>
#include <vector>

namespace desktop {

/// A control model under the name that it shares with its widget. A model of another kind brings a routine
/// that binds it.
struct NamedControl {
    const char* name;
    std::variant<controls::CheckBox*, controls::ComboBox*, controls::CommandButton*, controls::Label*,
                 controls::OptionButton*, controls::TabStrip*, controls::TextBox*,
                 std::function<void(QWidget&)>>
        model; ///< never null
};

/// Binds each control to the widget of its name in a form: from now on the widget shows the control's state,
/// and what the user does reaches the control. The controls outlive the form. The pages of tabs are those of
/// the form's stack, named as the tabs' keys are. A control without a widget that can show it is told as a
/// warning, and so is a widget named as controls are (cmd, txt, cmb, chk, opt, tbs) that none is given for.
void BindControls(QWidget& form, const std::vector<NamedControl>& controls);

} // namespace desktop
