// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "platform/controls/Controls.h"
#include <QComboBox>
#include <QObject>

namespace desktop {

/// A combo box, with or without a line to type in, on a ComboBox control. One without shows a text that isn't
/// among its items all the same.
class ChoiceAdapter : public QObject {
public:
    ChoiceAdapter(controls::ComboBox& model, QComboBox& widget, QObject* parent);

private:
    void Show();
    controls::ComboBox& model_;
    QComboBox& widget_;
    ControlEvents events_;
};

} // namespace desktop
