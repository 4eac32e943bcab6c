// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <sys/stat.h>
#include <sys/types.h>

// Replacing a file whole or not at all.
namespace services {

inline constexpr mode_t kNewFileMode = 0666;

/// FileSystem::Replace. A file that isn't there yet gets `newFileMode` less what the user's mask takes away.
FileResult ReplaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode = kNewFileMode,
                       FileStamp* made = nullptr);

/// FileSystem::ReplaceBy; the rest as above.
FileResult ReplaceFileBy(const QString& path, const std::function<bool(const PutBytes&)>& write,
                         mode_t newFileMode = kNewFileMode, FileStamp* made = nullptr);

/// FileSystem::MayReplace.
FileResult MayReplaceFile(const QString& path);

/// FileSystem::TrueName.
QString TrueNameOf(const QString& path);

/// The stamp of a file that the system told about just now.
FileStamp StampOf(const struct stat& info);

/// Path as the system wants it; empty for a name that can't be one (none, or with a NUL in it).
QByteArray NativePath(const QString& path);
/// The failure behind an error number of the system, with its text.
FileResult FailureOf(int systemError);
inline FileResult Failure(FileError error, const QString& description) {
    return FileResult{error, description};
}

} // namespace services
