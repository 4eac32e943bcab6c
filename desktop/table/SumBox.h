// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/base/ControlEvents.h"
#include "desktop/bind/ChoiceAdapter.h"
#include <QComboBox>
#include <QObject>
#include <QPointer>
#include <memory>

namespace desktop {

/// The box that is laid over a cell of the calculation row. Alt+Down and F4 open its list, as in any box of
/// this kind; all other keys are the control's.
class SumBox : public QObject {
public:
    SumBox(DocumentWindow& window, QWidget& view);
    ~SumBox() override;

private:
    void Show();
    void Place();
    bool KeyPressed(int& key, int modifiers);

    DocumentWindow& window_;
    QWidget& view_;
    QPointer<QComboBox> box_; ///< owned by the view
    std::unique_ptr<ChoiceAdapter> choice_;
    ControlEvents events_;
};

} // namespace desktop
