// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/IniLock.h"
#include "platform/services/FileReplace.h"
#include <QFileInfo>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace services {

namespace {

constexpr unsigned long kPauseMilliseconds = 5;
constexpr int kTries = 200;

/// One lock for one file, whatever links lead to it.
QByteArray LockPath(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    return NativePath((target.isEmpty() ? path : target) + QStringLiteral(".lock"));
}

} // namespace

IniLock::IniLock(const QString& path) {
    constexpr mode_t kPrivate = 0600;
    file_ = FileHandle(
        open(LockPath(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kPrivate));
    for (int i = 0; file_.IsOpen() && i < kTries; ++i) {
        busy_ = flock(file_.Get(), LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
        if (!busy_)
            return;
        QThread::msleep(kPauseMilliseconds);
    }
}

} // namespace services
