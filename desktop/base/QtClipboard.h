// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"

namespace desktop {

/// The clipboard of the desktop.
class QtClipboard : public services::Clipboard {
public:
    void Clear() override;
    /// Line ends go out as other programs here write them.
    void SetText(const QString& text) override;
    void SetContents(const services::ClipboardContents& contents) override;
    QString GetText() override;
    bool HasText() override;
};

} // namespace desktop
