// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QString>
#include <QStringList>

namespace desktop {

/// Message boxes and the common dialogs before the window in front.
class QtPrompts : public services::Prompts {
public:
    services::Answer MsgBox(const QString& text, services::Buttons buttons, services::Icon icon,
                            const QString& title, const QString& about = {}) override;
    int Choose(const QString& text, const QStringList& answers, int usual) override;
    void ShowText(const QString& title, const QString& text) override;
    QString OpenFileName(const QString& title, const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& filter, const QString& suggested) override;
    std::optional<std::uint32_t> ChooseColour(std::uint32_t present) override;
    std::optional<services::FontChoice> ChooseFont(const services::FontChoice& present) override;
    void Beep() override;

    /// "caption|pattern;pattern|caption|pattern" as name filters of a file dialog. "*.*" is every file, also
    /// one without a dot.
    static QStringList NameFilters(const QString& filter);

private:
    QString folder_; ///< where the last dialog ended
};

} // namespace desktop
