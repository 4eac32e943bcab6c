// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileReplace.h"
#include "platform/services/FileHandle.h"
#include <QFile>
#include <QRandomGenerator>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
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

/// A file made beside the target, which goes again unless it became the target.
class TemporaryFile {
public:
    TemporaryFile(const QByteArray& folder, mode_t mode) {
        constexpr int kTries = 20;
        for (int i = 0; i < kTries; ++i) {
            path_ = folder + "/.vantrel-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36) +
                    ".tmp";
            handle_ = FileHandle(open(path_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            there_ = handle_.IsOpen();
            error_ = there_ ? 0 : errno;
            if (error_ != EEXIST)
                return;
        }
    }
    ~TemporaryFile() {
        if (there_)
            unlink(path_.constData());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int Error() const { return error_; } ///< why it couldn't be made; 0 when it is there
    int Descriptor() const { return handle_.Get(); }

    /// All bytes to the disk; an error number when that fails.
    int Write(const QByteArray& bytes) {
        qsizetype done = 0;
        while (done < bytes.size()) {
            const ssize_t count =
                write(handle_.Get(), bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
            if (count < 0 && errno != EINTR)
                return errno;
            done += std::max<ssize_t>(count, 0);
        }
        if (fsync(handle_.Get()) != 0)
            return errno;
        return handle_.Close();
    }
    int RenameTo(const QByteArray& target) {
        if (std::rename(path_.constData(), target.constData()) != 0)
            return errno;
        there_ = false;
        return 0;
    }

private:
    QByteArray path_;
    FileHandle handle_;
    int error_ = 0;
    bool there_ = false;
};

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
        mode &= ~kSpecialIds; // nobody runs a program under an id that this file didn't have
    else if (!sameOwners)
        mode &= ~static_cast<mode_t>(S_ISUID);
    CopyAttributes(from, to);
    return fchmod(to, mode) == 0 ? 0 : errno;
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

/// Whether the new file could be made beside the target.
FileResult Made(const TemporaryFile& file) {
    if (file.Error() == 0)
        return {};
    const FileResult failure = FailureOf(file.Error());
    return failure.error == FileError::Permission ? Failure(FileError::ReadOnly, failure.description)
                                                  : failure;
}

constexpr mode_t kPrivate = 0600; // until a new file has the rights of the old one

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

FileResult ReplaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode) {
    Target target;
    if (FileResult result = FindTarget(path, target); !result)
        return result;
    const QByteArray folder = FolderOf(target.path);
    TemporaryFile file(folder, target.exists ? kPrivate : newFileMode);
    if (FileResult result = Made(file); !result)
        return result;
    int error = target.exists ? CopyRights(target.path, target.old, file.Descriptor()) : 0;
    if (error == 0)
        error = file.Write(bytes);
    if (error == 0)
        error = file.RenameTo(target.path);
    if (error != 0)
        return FailureOf(error);
    FlushFolder(folder);
    return {};
}

FileResult MayReplaceFile(const QString& path) {
    Target target;
    if (FileResult result = FindTarget(path, target); !result)
        return result;
    return Made(TemporaryFile(FolderOf(target.path), kPrivate));
}

} // namespace services
