// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QObject>
#include <QTimer>

namespace desktop {

/// Makes a control model's timer run.
class TimerAdapter : public QObject {
public:
    explicit TimerAdapter(controls::Timer& model, QObject* parent = nullptr);

private:
    QTimer timer_;
};

} // namespace desktop
