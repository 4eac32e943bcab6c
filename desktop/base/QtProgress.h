// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QElapsedTimer>
#include <QProgressDialog>
#include <memory>

namespace desktop {

/// A bar with a Cancel button that appears when work takes longer than half a second. It is modal: nothing
/// else in the program takes part while it works.
class QtProgress : public services::Progress {
public:
    void Begin(const QString& what) override;
    bool Step(qint64 done, qint64 total) override;
    void LastStretch() override;
    void End() override;

private:
    void Open();
    QString what_;
    QElapsedTimer since_, shownAt_;
    std::unique_ptr<QProgressDialog> dialog_;
    bool cancelled_ = false;
};

} // namespace desktop
