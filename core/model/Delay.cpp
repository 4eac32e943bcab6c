// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Delay.h"
#include "core/model/Application.h"
#include <QThread>

namespace mXMLEdit {

void Delay(Application& app, int milliseconds) {
    const int start = app.services.clock.MillisecondOfHour();
    while (true) {
        const int passed = app.services.clock.MillisecondOfHour() - start;
        if (passed < 0 || passed >= milliseconds)
            return;
        QThread::yieldCurrentThread();
    }
}

} // namespace mXMLEdit
