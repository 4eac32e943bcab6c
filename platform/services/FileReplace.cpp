// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileReplace.h"
#include "platform/services/FileHandle.h"
#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <sys/xattr.h>
#include <unistd.h>

namespace services {

namespace {

constexpr mode_t kAllRights = 07777;
constexpr mode_t kAnyWrite = 0222;
constexpr mode_t kSpecialIds = 06000;

QByteArray FolderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return QByteArrayLiteral(".");
    return slash == 0 ? QByteArrayLiteral("/") : path.first(slash);
}

/// What a path that may be a symbolic link, or a chain of them, stands for; an error number when that has no
/// end.
int FollowLinks(QByteArray& path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        QByteArray link(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = readlink(path.constData(), link.data(), static_cast<std::size_t>(link.size()));
        if (length < 0)
            return 0; // no link, or nothing there
        link.truncate(length);
        path = link.startsWith('/') ? link : FolderOf(path) + '/' + link;
    }
    return ELOOP;
}

/// Access lists and other attributes of the old file, as far as the system lets them be copied.
void CopyAttributes(const QByteArray& from, int to) {
    QByteArray names(static_cast<qsizetype>(std::max<ssize_t>(listxattr(from.constData(), nullptr, 0), 0)),
                     '\0');
    const ssize_t size = listxattr(from.constData(), names.data(), static_cast<std::size_t>(names.size()));
    if (size <= 0)
        return;
    for (const QByteArray& name : names.first(size).split('\0')) {
        const ssize_t length = name.isEmpty() ? -1 : getxattr(from.constData(), name.constData(), nullptr, 0);
        if (length < 0)
            continue;
        QByteArray value(length, '\0');
        if (getxattr(from.constData(), name.constData(), value.data(), static_cast<std::size_t>(length)) ==
            length)
            fsetxattr(to, name.constData(), value.constData(), static_cast<std::size_t>(length), 0);
    }
}

/// Owner and rights of the old file for the new one.
int CopyRights(const QByteArray& from, const struct stat& old, int to) {
    mode_t mode = old.st_mode & kAllRights;
    struct stat made {};
    if (fstat(to, &made) != 0)
        return errno;
    const bool sameOwners =
        (made.st_uid == old.st_uid && made.st_gid == old.st_gid) || fchown(to, old.st_uid, old.st_gid) == 0;
    // Only root may give a file away; the group at least is often possible.
    if (!sameOwners && fchown(to, static_cast<uid_t>(-1), old.st_gid) != 0)
        mode &= ~kSpecialIds; // no program runs under an id that its file didn't have
    else if (!sameOwners)
        mode &= ~static_cast<mode_t>(S_ISUID);
    CopyAttributes(from, to);
    return fchmod(to, mode) == 0 ? 0 : errno;
}

/// Rights of a file that wasn't there.
int GrantRights(mode_t mode, int to) {
    const mode_t mask = umask(0);
    umask(mask);
    return fchmod(to, mode & ~mask) == 0 ? 0 : errno;
}

/// Why an existing target must not be replaced; nothing when it may.
std::optional<FileResult> Objection(const QByteArray& target, const struct stat& old) {
    if (S_ISDIR(old.st_mode))
        return FailureOf(EISDIR);
    if (!S_ISREG(old.st_mode))
        return Failure(FileError::BadName, QString::fromLocal8Bit(std::strerror(EINVAL)));
    if ((old.st_mode & kAnyWrite) == 0)
        return Failure(FileError::ReadOnly, QString::fromLocal8Bit(std::strerror(EACCES)));
    if (faccessat(AT_FDCWD, target.constData(), W_OK, AT_EACCESS) != 0)
        return Failure(FileError::ReadOnly, QString::fromLocal8Bit(std::strerror(errno)));
    return std::nullopt;
}

/// The file that a path stands for.
struct Target {
    QByteArray path;
    bool exists = false;
    struct stat old {}; ///< of an existing one
};

FileResult FindTarget(const QString& path, Target& target) {
    target.path = NativePath(path);
    if (target.path.isEmpty())
        return Failure(FileError::BadName, QString::fromLocal8Bit(std::strerror(EINVAL)));
    if (const int error = FollowLinks(target.path))
        return FailureOf(error);
    target.exists = stat(target.path.constData(), &target.old) == 0;
    if (!target.exists && errno != ENOENT)
        return FailureOf(errno);
    if (target.exists) {
        if (const std::optional<FileResult> objection = Objection(target.path, target.old))
            return *objection;
    }
    return {};
}

FileResult FailureIn(const QFile& file) {
    const bool full = file.error() == QFileDevice::ResourceError;
    return Failure(full ? FileError::DiskFull : FileError::Other, file.errorString());
}

/// Makes the new file beside the target, for this user alone. It goes again unless it becomes the target. Its
/// name is short, whatever the target's is: with a part added to it a long name would become too long.
FileResult OpenBeside(const Target& target, QTemporaryFile& file) {
    const QByteArray folder = FolderOf(target.path);
    if (faccessat(AT_FDCWD, folder.constData(), W_OK | X_OK, AT_EACCESS) != 0) {
        const FileResult failure = FailureOf(errno);
        const bool denied = failure.error == FileError::Permission;
        return Failure(denied ? FileError::ReadOnly : failure.error, failure.description);
    }
    file.setFileTemplate(QFile::decodeName(folder) + QStringLiteral("/.vantrel-XXXXXX.tmp"));
    return file.open() ? FileResult() : FailureIn(file);
}

/// Fills the new file and brings it to the disk.
FileResult Fill(QTemporaryFile& file, const std::function<bool(const PutBytes&)>& write, struct stat& info) {
    bool good = true;
    const bool whole = write([&](QByteArrayView bytes) {
        good = good && file.write(bytes.data(), bytes.size()) == bytes.size();
        return good;
    });
    if (good && !whole)
        return Failure(FileError::Cancelled, QString::fromLocal8Bit(std::strerror(ECANCELED)));
    if (!good || !file.flush())
        return FailureIn(file);
    return fsync(file.handle()) == 0 && fstat(file.handle(), &info) == 0 ? FileResult() : FailureOf(errno);
}

void FlushFolder(const QByteArray& folder) {
    const FileHandle handle(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen())
        fsync(handle.Get()); // not every file system can; the file itself is safe already
}

} // namespace

QByteArray NativePath(const QString& path) {
    return path.contains(QChar(0)) ? QByteArray() : QFile::encodeName(path);
}

FileResult FailureOf(int systemError) {
    const QString description = QString::fromLocal8Bit(std::strerror(systemError));
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
        return Failure(FileError::NotFound, description);
    case EACCES:
    case EPERM:
        return Failure(FileError::Permission, description);
    case EROFS:
        return Failure(FileError::ReadOnly, description);
    case ENOSPC:
    case EDQUOT:
        return Failure(FileError::DiskFull, description);
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL:
    case ENXIO:
        return Failure(FileError::BadName, description);
    default:
        return Failure(FileError::Other, description);
    }
}

FileStamp StampOf(const struct stat& info) {
    constexpr qint64 kSecond = 1'000'000'000;
    constexpr qint64 kFresh = 20'000'000; // some clocks go on in steps of a hundredth of a second
    struct timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    const auto nanoseconds = [](const struct timespec& time) {
        return static_cast<qint64>(time.tv_sec) * kSecond + time.tv_nsec;
    };
    const qint64 modified = nanoseconds(info.st_mtim);
    return {true, info.st_size, modified, info.st_ino, std::abs(nanoseconds(now) - modified) < kFresh};
}

QString TrueNameOf(const QString& path) {
    QByteArray name = NativePath(path);
    if (name.isEmpty() || FollowLinks(name) != 0)
        return path;
    const QByteArray folder = FolderOf(name);
    QByteArray real(PATH_MAX, '\0');
    if (!realpath(folder.constData(), real.data()))
        return QDir::cleanPath(QFile::decodeName(name));
    const QByteArray file = name.mid(name.lastIndexOf('/') + 1);
    return QDir::cleanPath(QFile::decodeName(real.constData()) + u'/' + QFile::decodeName(file));
}

FileResult ReplaceFileBy(const QString& path, const std::function<bool(const PutBytes&)>& write,
                         mode_t newFileMode, FileStamp* made) {
    Target target;
    if (FileResult result = FindTarget(path, target); !result)
        return result;
    QTemporaryFile file;
    if (FileResult result = OpenBeside(target, file); !result)
        return result;
    const int error = target.exists ? CopyRights(target.path, target.old, file.handle())
                                    : GrantRights(newFileMode, file.handle());
    if (error != 0)
        return FailureOf(error);
    struct stat info {};
    if (FileResult result = Fill(file, write, info); !result)
        return result;
    if (std::rename(QFile::encodeName(file.fileName()).constData(), target.path.constData()) != 0)
        return FailureOf(errno);
    if (made)
        *made = StampOf(info);
    file.setAutoRemove(false);
    FlushFolder(FolderOf(target.path));
    return {};
}

FileResult ReplaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode, FileStamp* made) {
    return ReplaceFileBy(
        path, [&](const PutBytes& put) { return put(bytes); }, newFileMode, made);
}

FileResult MayReplaceFile(const QString& path) {
    Target target;
    QTemporaryFile file;
    FileResult result = FindTarget(path, target);
    return result ? OpenBeside(target, file) : result;
}

} // namespace services
