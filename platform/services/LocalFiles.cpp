// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileHandle.h"
#include "platform/services/FileReplace.h"
#include "platform/services/RealServices.h"
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace services {

namespace {

using Step = std::function<bool(qint64, qint64)>;

constexpr qsizetype kStepBytes = 4 << 20;

QString SystemText(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

/// Only a regular file is read: others may block, have no end, or do something when they are opened.
FileResult CheckKind(const struct stat& info) {
    if (S_ISREG(info.st_mode))
        return {};
    if (S_ISDIR(info.st_mode))
        return Failure(FileError::NotFound, SystemText(EISDIR));
    return Failure(FileError::BadName, SystemText(EINVAL));
}

FileResult OpenRegular(const QByteArray& path, FileHandle& handle, qint64& size) {
    struct stat info {};
    if (stat(path.constData(), &info) != 0)
        return FailureOf(errno);
    if (FileResult result = CheckKind(info); !result)
        return result;
    // Another kind of file may have taken the name meanwhile: opening must not wait for it, and it is looked
    // at again.
    handle = FileHandle(open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!handle.IsOpen() || fstat(handle.Get(), &info) != 0)
        return FailureOf(errno);
    size = info.st_size;
    return CheckKind(info);
}

/// Reads to the end, wherever that is by then: the file may grow or shrink under the reading.
FileResult ReadToEnd(int descriptor, qint64 size, QByteArray& bytes, const Step& step) {
    bytes.resize(size);
    qsizetype used = 0;
    for (;;) {
        if (used == bytes.size()) {
            char probe = 0; // most often the end: found without more room
            const ssize_t more = read(descriptor, &probe, 1);
            if (more == 0)
                break;
            if (more < 0 && errno != EINTR)
                return FailureOf(errno);
            if (more > 0) {
                bytes.resize(used + kStepBytes);
                bytes[used++] = probe;
            }
        }
        const qsizetype wanted = std::min(bytes.size() - used, kStepBytes);
        const ssize_t count = read(descriptor, bytes.data() + used, static_cast<std::size_t>(wanted));
        if (count < 0 && errno != EINTR)
            return FailureOf(errno);
        if (count == 0 && wanted > 0)
            break;
        used += std::max<ssize_t>(count, 0);
        if (step && !step(used, std::max<qint64>(size, used)))
            return Failure(FileError::Cancelled, SystemText(ECANCELED));
    }
    bytes.resize(used);
    return {};
}

/// Reads no further than `most` bytes.
FileResult ReadSome(int descriptor, qint64 most, QByteArray& bytes) {
    bytes.resize(most);
    qsizetype used = 0;
    while (used < most) {
        const ssize_t count = read(descriptor, bytes.data() + used, static_cast<std::size_t>(most - used));
        if (count < 0 && errno != EINTR)
            return FailureOf(errno);
        if (count == 0)
            break;
        used += std::max<ssize_t>(count, 0);
    }
    bytes.resize(used);
    return {};
}

class LocalFiles : public FileSystem {
public:
    FileResult Read(const QString& path, QByteArray& bytes, const Step& step) override {
        bytes.clear();
        const QByteArray name = NativePath(path);
        if (name.isEmpty())
            return Failure(FileError::BadName, SystemText(EINVAL));
        FileHandle handle;
        qint64 size = 0;
        FileResult result = OpenRegular(name, handle, size);
        try {
            if (result)
                result = ReadToEnd(handle.Get(), size, bytes, step);
        } catch (const std::bad_alloc&) { // with nothing half-read left behind
            bytes = {};
            throw;
        }
        if (!result)
            bytes.clear();
        return result;
    }

    FileResult ReadFront(const QString& path, qint64 most, QByteArray& bytes, qint64& size) override {
        bytes.clear();
        const QByteArray name = NativePath(path);
        if (name.isEmpty())
            return Failure(FileError::BadName, SystemText(EINVAL));
        FileHandle handle;
        FileResult result = OpenRegular(name, handle, size);
        if (result)
            result = ReadSome(handle.Get(), most, bytes);
        if (!result)
            bytes.clear();
        return result;
    }

    FileResult Replace(const QString& path, const QByteArray& bytes, FileStamp* made) override {
        return ReplaceFile(path, bytes, kNewFileMode, made);
    }

    FileResult ReplaceBy(const QString& path, const std::function<bool(const PutBytes&)>& write) override {
        return ReplaceFileBy(path, write);
    }

    FileResult MayReplace(const QString& path) override { return MayReplaceFile(path); }

    bool Exists(const QString& path) override {
        struct stat info {};
        return stat(NativePath(path).constData(), &info) == 0 && !S_ISDIR(info.st_mode);
    }

    std::optional<FileStamp> Stamp(const QString& path) override {
        struct stat info {};
        if (stat(NativePath(path).constData(), &info) == 0)
            return StampOf(info);
        return errno == ENOENT || errno == ENOTDIR ? std::optional(FileStamp()) : std::nullopt;
    }

    QString TrueName(const QString& path) override { return TrueNameOf(path); }

    bool Delete(const QString& path) override { return unlink(NativePath(path).constData()) == 0; }

    FileResult Copy(const QString& source, const QString& target) override {
        QByteArray bytes;
        if (FileResult result = Read(source, bytes, {}); !result)
            return result;
        struct stat info {};
        const bool known = stat(NativePath(source).constData(), &info) == 0;
        return ReplaceFile(target, bytes, known ? info.st_mode & kNewFileMode : kNewFileMode);
    }

    QString TemporaryFolder() override {
        // Systems clear their temporary folders out while a program runs on for weeks.
        if (temporary_ && QDir(temporary_->path()).exists())
            return temporary_->path();
        for (const QString& parent :
             {QDir::tempPath(), QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)}) {
            temporary_ =
                std::make_unique<QTemporaryDir>(parent + QStringLiteral("/vantrel-XXXXXX")); // mode 0700
            if (temporary_->isValid())
                break;
        }
        return temporary_->path();
    }

private:
    std::unique_ptr<QTemporaryDir> temporary_; ///< goes with all that is in it when the program ends
};

} // namespace

std::size_t ContentMark(const QByteArray& bytes) {
    return qHash(bytes, 0);
}

std::unique_ptr<FileSystem> MakeFileSystem() {
    return std::make_unique<LocalFiles>();
}

} // namespace services
