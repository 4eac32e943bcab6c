// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/text/TextParts.h"

class QKeyEvent;

namespace desktop {

/// What the editor does with keys.
class TextKeys {
public:
    explicit TextKeys(const TextParts& parts) : parts_(parts) {}
    using Act = std::function<void()>;
    /// Null where the editor has no use for the key.
    Act ActFor(const QKeyEvent& event);

private:
    const text::LongText& Text() const { return parts_.Text(); }
    Act MoveFor(const QKeyEvent& event);
    std::optional<qsizetype> TargetOf(int key, bool select, bool word) const;
    void MoveRows(qsizetype rows, bool select);
    Act EditFor(const QKeyEvent& event);
    Act DeleteFor(const QKeyEvent& event);

    const TextParts parts_;
};

} // namespace desktop
