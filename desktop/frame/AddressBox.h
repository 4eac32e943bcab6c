// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "platform/controls/Controls.h"
#include <QComboBox>
#include <QObject>

namespace desktop {

/// An editable combo box on a ComboBox control. Only a choice from the open list counts as one: neither the
/// wheel nor the arrow keys, since a choice opens a document.
class AddressBox : public QObject {
public:
    AddressBox(controls::ComboBox& model, QComboBox& widget, QObject* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    controls::ComboBox& model_;
    QComboBox& widget_;
    ControlEvents events_;
};

} // namespace desktop
