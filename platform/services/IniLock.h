// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/FileHandle.h"
#include <QString>

namespace services {

/// Held while a settings file is read, changed and replaced. The lock is taken on a file beside it, which
/// stays: the settings file itself is another one after each change. The system gives the lock back when a
/// program ends in whatever way.
class IniLock {
public:
    /// Waits for others, a second at the most.
    explicit IniLock(const QString& path);
    /// Another program kept the lock all that time. A folder that no lock can be made in isn't busy: the
    /// writing itself tells what is wrong there.
    bool IsBusy() const { return busy_; }

private:
    FileHandle file_;
    bool busy_ = false;
};

} // namespace services
