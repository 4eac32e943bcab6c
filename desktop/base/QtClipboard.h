// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QObject>
#include <optional>

namespace desktop {

/// The clipboard of the desktop.
class QtClipboard : public services::Clipboard {
public:
    QtClipboard();
    void Clear() override;
    /// Line ends go out as other programs here write them.
    void SetText(const QString& text) override;
    void SetContents(const services::ClipboardContents& contents) override;
    QString GetText() override;
    bool HasText() override;
    bool HasXml() override; ///< another program is asked for its text once, whenever it has a new one

private:
    QObject listener_;
    std::optional<bool> hasXml_;
};

} // namespace desktop
