// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/JournalFiles.h"
#include "platform/services/FileHandle.h"
#include "platform/services/FileReplace.h"
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QtEndian>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace services {

namespace {

constexpr mode_t kPrivateFolder = 0700;
constexpr mode_t kPrivateFile = 0600;
constexpr mode_t kOthers = 077;
constexpr auto kChecksum = QCryptographicHash::Sha1;
constexpr qsizetype kLengthBytes = 4;
constexpr qsizetype kChecksumBytes = 20;
constexpr qsizetype kHeadBytes = kLengthBytes + kChecksumBytes;
const QString kSuffix = QStringLiteral(".journal");

using Folder = std::shared_ptr<const FileHandle>;

// --- one journal -------------------------------------------------------------------------------------------

/// Reads as much as was asked for, or to the end of the file; an error number when that fails.
int ReadAt(int descriptor, qint64 at, QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            pread(descriptor, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done), at + done);
        if (count < 0 && errno != EINTR)
            return errno;
        if (count == 0)
            break;
        done += std::max<ssize_t>(count, 0);
    }
    bytes.truncate(done);
    return 0;
}

int WriteAt(int descriptor, qint64 at, const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = pwrite(descriptor, bytes.constData() + done,
                                     static_cast<std::size_t>(bytes.size() - done), at + done);
        if (count < 0 && errno != EINTR)
            return errno;
        done += std::max<ssize_t>(count, 0);
    }
    return fdatasync(descriptor) == 0 ? 0 : errno;
}

class RealJournal : public JournalFile {
public:
    RealJournal(Folder folder, QByteArray name, FileHandle handle)
        : folder_(std::move(folder)), name_(std::move(name)), handle_(std::move(handle)) {}

    FileResult Append(const QByteArray& record) override {
        QByteArray bytes(kLengthBytes, '\0');
        qToLittleEndian(static_cast<quint32>(record.size()), bytes.data());
        bytes += QCryptographicHash::hash(record, kChecksum);
        bytes += record;
        // A broken record may stand there; what lay behind it would follow a shorter new one.
        int error = ftruncate(handle_.Get(), end_) == 0 ? 0 : errno;
        if (error == 0)
            error = WriteAt(handle_.Get(), end_, bytes);
        if (error == 0) {
            end_ += bytes.size();
            return {};
        }
        // Where this fails as well the broken record ends the reading.
        [[maybe_unused]] const int cut = ftruncate(handle_.Get(), end_);
        return FailureOf(error);
    }

    FileResult Read(const std::function<bool(const QByteArray&)>& take) override {
        struct stat info {};
        if (fstat(handle_.Get(), &info) != 0)
            return FailureOf(errno);
        for (end_ = 0;;) {
            QByteArray head(kHeadBytes, Qt::Uninitialized);
            if (const int error = ReadAt(handle_.Get(), end_, head))
                return FailureOf(error);
            const qint64 start = end_ + kHeadBytes;
            const auto length = head.size() == kHeadBytes ? qFromLittleEndian<quint32>(head.constData()) : 0;
            if (head.size() < kHeadBytes || length > info.st_size - start)
                return {};
            QByteArray record(static_cast<qsizetype>(length), Qt::Uninitialized);
            if (const int error = ReadAt(handle_.Get(), start, record))
                return FailureOf(error);
            if (QCryptographicHash::hash(record, kChecksum) != head.sliced(kLengthBytes) || !take(record))
                return {};
            end_ = start + record.size();
        }
    }

    qint64 Size() const override { return end_; }

    QDateTime Time() const override {
        struct stat info {};
        if (fstat(handle_.Get(), &info) != 0)
            return {};
        return QDateTime::fromMSecsSinceEpoch(StampOf(info).modified / 1'000'000);
    }

    void Remove() override {
        unlinkat(folder_->Get(), name_.constData(), 0);
        fsync(folder_->Get()); // it must not come back after a power cut
    }

private:
    Folder folder_;
    QByteArray name_;
    FileHandle handle_; ///< locked
    qint64 end_ = 0;    ///< of the good records
};

// --- the folder --------------------------------------------------------------------------------------------

void MakeFolders(const QByteArray& path) {
    for (qsizetype slash = path.indexOf('/', 1); slash > 0; slash = path.indexOf('/', slash + 1))
        mkdir(path.first(slash).constData(), kPrivateFolder);
    mkdir(path.constData(), kPrivateFolder);
}

/// An error number when the folder isn't one that only this user can write to.
int OpenFolder(const QByteArray& path, FileHandle& folder) {
    folder = FileHandle(open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat info {};
    if (!folder.IsOpen() || fstat(folder.Get(), &info) != 0)
        return errno;
    if (info.st_uid != geteuid())
        return EPERM;
    if ((info.st_mode & kOthers) != 0 && fchmod(folder.Get(), kPrivateFolder) != 0)
        return errno;
    return 0;
}

/// Takes the lock, by which other processes know that the journal isn't theirs. An error number where that
/// can't be, also for a file that was removed by another process meanwhile.
int Own(const FileHandle& handle) {
    struct stat info {};
    if (flock(handle.Get(), LOCK_EX | LOCK_NB) != 0 || fstat(handle.Get(), &info) != 0)
        return errno;
    return S_ISREG(info.st_mode) && info.st_nlink == 1 && info.st_uid == geteuid() ? 0 : ESTALE;
}

/// As the base directory rules of the desktop have it: a relative folder counts as none.
QString StateFolder() {
    const QString given = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(given) ? given : QDir::homePath() + QStringLiteral("/.local/state")) +
           QStringLiteral("/vantrel/journal");
}

class JournalFolder : public JournalStore {
public:
    explicit JournalFolder(const QString& path) : path_(NativePath(path)) {}

    MadeJournal Make() override {
        MakeFolders(path_);
        auto folder = std::make_shared<FileHandle>();
        if (const int error = OpenFolder(path_, *folder))
            return {nullptr, FailureOf(error)};
        constexpr int kTries = 20;
        int error = 0;
        for (int i = 0; i < kTries; ++i) {
            const QByteArray name =
                QByteArray::number(QRandomGenerator::system()->generate64(), 36) + kSuffix.toLatin1();
            FileHandle handle(
                openat(folder->Get(), name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateFile));
            error = handle.IsOpen() ? Own(handle) : errno;
            if (error == 0) {
                fsync(folder->Get()); // the name
                return {std::make_unique<RealJournal>(folder, name, std::move(handle)), {}};
            }
            if (error == EEXIST || error == EWOULDBLOCK || error == ESTALE) // another process was quicker
                continue;
            if (handle.IsOpen())
                unlinkat(folder->Get(), name.constData(), 0);
            break;
        }
        return {nullptr, FailureOf(error)};
    }

    std::vector<std::unique_ptr<JournalFile>> Orphans() override {
        std::vector<std::unique_ptr<JournalFile>> orphans;
        auto folder = std::make_shared<FileHandle>();
        if (OpenFolder(path_, *folder) != 0)
            return orphans;
        const QDir names(QFile::decodeName(path_), u'*' + kSuffix, QDir::NoSort, QDir::Files | QDir::Hidden);
        for (const QString& each : names.entryList()) {
            const QByteArray name = QFile::encodeName(each);
            FileHandle handle(
                openat(folder->Get(), name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
            if (handle.IsOpen() && Own(handle) == 0)
                orphans.push_back(std::make_unique<RealJournal>(folder, name, std::move(handle)));
        }
        return orphans;
    }

private:
    QByteArray path_;
};

} // namespace

std::unique_ptr<JournalStore> MakeJournalStore(const QString& folder) {
    return std::make_unique<JournalFolder>(folder.isEmpty() ? StateFolder() : folder);
}

} // namespace services
