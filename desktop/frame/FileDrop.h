// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QStringList>
#include <QWidget>
#include <functional>

class QDropEvent;

namespace desktop {

/// Files that are dropped anywhere in a window are opened, also over a widget that would take them as text.
class FileDrop : public QObject {
public:
    /// `opens` gets paths and addresses, once the drop is over.
    FileDrop(QWidget& window, std::function<void(const QStringList&)> opens);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Enter(QWidget& widget, QDropEvent& event);
    void Drop(QDropEvent& event);

    QWidget& window_;
    const std::function<void(const QStringList&)> opens_;
};

} // namespace desktop
