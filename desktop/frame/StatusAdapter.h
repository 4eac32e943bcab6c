// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QLabel>
#include <QObject>
#include <QStatusBar>
#include <vector>

namespace desktop {

/// A status bar's panels on a StatusBar control. A message of any length takes no more than its place.
class StatusAdapter : public QObject {
public:
    StatusAdapter(controls::StatusBar& model, QStatusBar& widget, QObject* parent);

private:
    void Show(int panel);
    controls::StatusBar& model_;
    std::vector<QLabel*> labels_;
};

} // namespace desktop
