// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/VantrelApplication.h"
#include <new>

namespace desktop {

bool VantrelApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const text::Fault& fault) {
        if (faulted)
            faulted(fault);
    } catch (const std::bad_alloc&) {
        if (outOfMemory)
            outOfMemory();
    }
    return false;
}

} // namespace desktop
