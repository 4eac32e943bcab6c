// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/Fault.h"
#include <QApplication>
#include <functional>

namespace desktop {

/// The widget application with a net under its event loop: a failure that no routine's error exit caught is
/// reported instead of ending the program.
class VantrelApplication : public QApplication {
public:
    VantrelApplication(int& argumentCount, char** arguments) : QApplication(argumentCount, arguments) {}
    std::function<void(const text::Fault&)> faulted;
    std::function<void()> outOfMemory;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace desktop
