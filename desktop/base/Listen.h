// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QObject>
#include <QPointer>
#include <utility>

namespace desktop {

/// Connects a routine to a control model's event for as long as `context` lives: a model may outlive its
/// widget.
template <typename... Args, typename Routine>
void Listen(controls::Event<Args...>& event, QObject* context, Routine routine) {
    event.connect([guard = QPointer<QObject>(context), routine = std::move(routine)](Args... args) {
        if (guard)
            routine(args...);
    });
}

} // namespace desktop
