// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FileReplace.h"
#include "platform/services/IniFormat.h"
#include "platform/services/RealServices.h"
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <cerrno>

namespace services {

namespace {

// A settings file isn't as long as this: something else lies there, and its lines would fill the memory.
constexpr qint64 kLargest = 4 << 20;
constexpr qsizetype kLongestValue = kLargest / 16;
constexpr int kPatience = 5000; // milliseconds
const QString kTooLarge = QStringLiteral("too large for a settings file");

QString DefaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vantrel/vantrel.ini");
}

/// The library keeps what it read, looks at the file again each time one of these is made, and merges, locks
/// and replaces when one is written. A failure sticks to it, so that each use has its own.
class IniSettings : public SettingsStore {
public:
    explicit IniSettings(QString path) : path_(std::move(path)) {}

    QString Get(const QString& section, const QString& key, const QString& fallback) const override {
        return CanRead() ? QSettings(path_, IniFormat()).value(Name(section, key), fallback).toString()
                         : fallback;
    }

    FileResult Save(const QString& section, const QString& key, const QString& value) override {
        const FileResult result = Write(Name(section, key), value);
        return result ? result : Failure(result.error, path_ + QStringLiteral(": ") + result.description);
    }

    std::vector<std::pair<QString, QString>> GetAll(const QString& section) const override {
        std::vector<std::pair<QString, QString>> pairs;
        if (!CanRead())
            return pairs;
        QSettings settings(path_, IniFormat());
        settings.beginGroup(section);
        for (const QString& key : settings.childKeys())
            pairs.emplace_back(key, settings.value(key).toString());
        return pairs;
    }

private:
    static QString Name(const QString& section, const QString& key) { return section + u'/' + key; }

    /// A device or a pipe would be waited for, or have no end.
    bool CanRead() const {
        const QFileInfo file(path_);
        return !file.exists() || (file.isFile() && file.size() <= kLargest);
    }

    FileResult Write(const QString& name, const QString& value) {
        if (!CanRead() || value.size() > kLongestValue)
            return Failure(FileError::Other, kTooLarge);
        QSettings settings(path_, IniFormat());
        const bool readable = settings.status() == QSettings::NoError;
        const QVariant old = settings.value(name);
        if (readable && old == QVariant(value))
            return {};
        QDir().mkpath(QFileInfo(path_).absolutePath());
        if (FileResult result = MayReplaceFile(path_); !result)
            return result;
        if (!readable) // what can't be read must not be written over
            return FailureOf(EACCES);
        // The library would wait for ever.
        QLockFile lock(path_ + QStringLiteral(".lock"));
        if (!lock.tryLock(kPatience) && lock.error() == QLockFile::LockFailedError)
            return Failure(FileError::Other, QStringLiteral("another program is writing the file"));
        lock.unlock();
        settings.setValue(name, value);
        settings.sync();
        if (settings.status() == QSettings::NoError)
            return {};
        old.isValid() ? settings.setValue(name, old) : settings.remove(name);
        return FailureOf(EIO);
    }

    QString path_;
};

} // namespace

std::unique_ptr<SettingsStore> MakeIniSettings(const QString& path) {
    return std::make_unique<IniSettings>(path.isEmpty() ? DefaultPath() : path);
}

} // namespace services
