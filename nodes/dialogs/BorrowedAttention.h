// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <optional>

namespace nodes {

/// The user's attention in a window, while a dialog has it.
class BorrowedAttention {
public:
    /// The dialog works in a context. What had the attention is kept the first time.
    void Take(DocumentWindow& window, int context);
    /// The focus never left the window's view, so nothing there tells that it has the attention again. A view
    /// that the dialog chose has it from then on.
    void GiveBack(DocumentWindow& window);
    void Forget() { found_.reset(); }

private:
    struct Found {
        int context, view;
    };
    std::optional<Found> found_;
};

} // namespace nodes
