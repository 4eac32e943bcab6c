// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/CopySlot.h"

namespace edit {

CopySlot::CopySlot(Application& app) {
    app.windowClosed.connect([this](DocumentWindow& window) {
        if (clipboardSource == &window)
            clipboardSource = nullptr;
    });
}

CopySlot& LastCopy(Application& app) {
    return app.rooms.of<CopySlot>(app);
}

bool IsLastCopy(Application& app, const QString& text) {
    const QString& copied = LastCopy(app).copiedText;
    if (copied.isEmpty() || text.isEmpty())
        return false;
    const auto plain = [](QString one) { return one.remove(u'\r'); };
    return text == copied || plain(text) == plain(copied);
}

} // namespace edit
