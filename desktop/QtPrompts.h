// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QString>
#include <QStringList>

/// Message boxes and file dialogs before the window in front.
class QtPrompts : public services::Prompts {
public:
    services::Answer MsgBox(const QString& text, services::Buttons buttons, services::Icon icon,
                            const QString& title) override;
    QString OpenFileName(const QString& title, const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& filter, const QString& suggested) override;
    void Beep() override;

    /// "caption|pattern;pattern|caption|pattern" as name filters of a file dialog. "*.*" is every file, also
    /// one without a dot.
    static QStringList NameFilters(const QString& filter);

private:
    QString folder_; ///< where the last dialog ended
};
