// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileReplace.h"
#include "platform/services/IniText.h"
#include "platform/services/RealServices.h"
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <sys/stat.h>

namespace services {

namespace {

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

    void Save(const QString& section, const QString& key, const QString& value) override {
        Refresh();
        const QString* old = text_.Find(section, key);
        if (!readable_ || (old && *old == value))
            return; // what can't be read must not be written over
        IniText changed = text_;
        changed.Set(section, key, value);
        if (!StampOf(path_).exists)
            MakeFolder();
        if (ReplaceFile(path_, changed.ToBytes())) {
            text_ = std::move(changed);
            stamp_ = StampOf(path_);
        }
    }

    std::vector<std::pair<QString, QString>> GetAll(const QString& section) const override {
        Refresh();
        return text_.All(section);
    }

private:
    /// Another program, or a second window of this one, may have written the file.
    void Refresh() const {
        const Stamp now = StampOf(path_);
        if (loaded_ && now == stamp_)
            return;
        QByteArray bytes;
        readable_ = !now.exists || files_->Read(path_, bytes);
        text_ = IniText(bytes);
        stamp_ = now;
        loaded_ = true;
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
    mutable bool loaded_ = false;
    mutable bool readable_ = true;
};

} // namespace

std::unique_ptr<SettingsStore> MakeIniSettings(const QString& path) {
    return std::make_unique<IniSettings>(path.isEmpty() ? DefaultPath() : path);
}

} // namespace services
