// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileReplace.h"
#include "platform/services/IniLock.h"
#include "platform/services/IniText.h"
#include "platform/services/RealServices.h"
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <sys/stat.h>

namespace services {

namespace {

// Nobody's settings are this long; something else lies there, and its lines would fill the memory.
constexpr off_t kLargest = 4 << 20;
const QString kTooLarge = QStringLiteral("too large for a settings file");

QString DefaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vantrel/vantrel.ini");
}

/// What tells one state of a file from another.
struct Stamp {
    bool exists = false;
    dev_t device = 0;
    ino_t node = 0;
    off_t size = 0;
    time_t seconds = 0;
    long nanoseconds = 0;
    bool operator==(const Stamp&) const = default;
};

Stamp StampOf(const QString& path) {
    struct stat info {};
    if (stat(NativePath(path).constData(), &info) != 0)
        return {};
    return {true, info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

class IniSettings : public SettingsStore {
public:
    explicit IniSettings(QString path) : path_(std::move(path)), files_(MakeFileSystem()) {}

    QString Get(const QString& section, const QString& key, const QString& fallback) const override {
        Refresh();
        const QString* value = text_.Find(section, key);
        return value ? *value : fallback;
    }

    FileResult Save(const QString& section, const QString& key, const QString& value) override {
        Refresh();
        if (reading_ && Holds(section, key, value))
            return {};
        const FileResult result = Write(section, key, value);
        return result ? result : Failure(result.error, path_ + QStringLiteral(": ") + result.description);
    }

    std::vector<std::pair<QString, QString>> GetAll(const QString& section) const override {
        Refresh();
        return text_.All(section);
    }

private:
    /// Another program, or a second window of this one, may have written the file.
    void Refresh() const {
        if (!loaded_ || !(StampOf(path_) == stamp_))
            Load();
    }

    void Load() const {
        const Stamp now = StampOf(path_);
        QByteArray bytes;
        if (now.size > kLargest)
            reading_ = Failure(FileError::Other, kTooLarge);
        else
            reading_ = now.exists ? files_->Read(path_, bytes) : FileResult();
        text_ = IniText(bytes);
        stamp_ = now;
        loaded_ = true;
    }

    bool Holds(const QString& section, const QString& key, const QString& value) const {
        const QString* old = text_.Find(section, key);
        return old && *old == value;
    }

    /// Under the lock the file is read anew, whatever its stamp: what another program wrote a moment ago
    /// stays.
    FileResult Write(const QString& section, const QString& key, const QString& value) {
        if (!stamp_.exists)
            MakeFolder();
        const IniLock lock(path_);
        if (lock.IsBusy())
            return Failure(FileError::Other, QStringLiteral("another program is writing the file"));
        Load();
        if (!reading_)
            return reading_; // what can't be read must not be written over
        if (Holds(section, key, value))
            return {};
        IniText changed = text_;
        changed.Set(section, key, value);
        const QByteArray bytes = changed.ToBytes();
        if (bytes.size() > kLargest) // it could not be read again
            return Failure(FileError::Other, kTooLarge);
        FileResult result = ReplaceFile(path_, bytes);
        if (result) {
            text_ = std::move(changed);
            stamp_ = StampOf(path_);
        }
        return result;
    }

    void MakeFolder() const {
        const QString folder = QFileInfo(path_).absolutePath();
        if (QFileInfo::exists(folder))
            return;
        QDir().mkpath(QFileInfo(folder).absolutePath());
        QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString path_;
    std::unique_ptr<FileSystem> files_;
    mutable IniText text_;
    mutable Stamp stamp_;
    mutable FileResult reading_; ///< how the last reading went; a missing file is an empty one
    mutable bool loaded_ = false;
};

} // namespace

std::unique_ptr<SettingsStore> MakeIniSettings(const QString& path) {
    return std::make_unique<IniSettings>(path.isEmpty() ? DefaultPath() : path);
}

} // namespace services
