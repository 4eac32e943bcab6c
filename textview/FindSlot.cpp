// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/FindSlot.h"

namespace textview {

FindSlot::FindSlot(Application& app) {
    app.windowClosed.connect([this](DocumentWindow& window) {
        if (findWindow != &window)
            return;
        findWindow = nullptr;
        findTarget = nullptr;
    });
}

FindSlot& Finding(Application& app) {
    return app.rooms.of<FindSlot>(app);
}

} // namespace textview
