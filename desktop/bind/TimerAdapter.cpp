// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bind/TimerAdapter.h"
#include "desktop/base/Listen.h"

namespace desktop {

TimerAdapter::TimerAdapter(controls::Timer& model, QObject* parent) : QObject(parent) {
    timer_.setInterval(model.Interval);
    const auto follow = [this, &model] {
        if (model.Enabled())
            timer_.start();
        else
            timer_.stop();
    };
    Listen(model.changed, this, follow);
    connect(&timer_, &QTimer::timeout, this, [&model] { model.Tick(); });
    follow();
}

} // namespace desktop
