// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RealServices.h"
#include <QFileInfo>
#include <QFileSystemWatcher>

namespace services {

namespace {

// A file is watched together with its folder: the file tells of writing, the folder of a file that takes its
// name, which is how most programs save.
class LocalFileWatch : public FileWatch {
public:
    void Watch(const QStringList& paths) override {
        wanted_.clear();
        for (const QString& path : paths)
            wanted_ << path << QFileInfo(path).path();
        wanted_.removeDuplicates();
        if (!watcher_ && !wanted_.isEmpty())
            MakeWatcher();
        if (!watcher_)
            return;
        QStringList gone;
        for (const QString& path : watcher_->files() + watcher_->directories()) {
            if (!wanted_.contains(path))
                gone << path;
        }
        if (!gone.isEmpty())
            watcher_->removePaths(gone);
        WatchMissing();
    }

private:
    void MakeWatcher() {
        watcher_ = std::make_unique<QFileSystemWatcher>();
        const auto tell = [this] {
            WatchMissing();
            if (changed)
                changed();
        };
        QObject::connect(watcher_.get(), &QFileSystemWatcher::fileChanged, watcher_.get(), tell);
        QObject::connect(watcher_.get(), &QFileSystemWatcher::directoryChanged, watcher_.get(), tell);
    }

    // One that was replaced isn't watched any more.
    void WatchMissing() {
        const QStringList watched = watcher_->files() + watcher_->directories();
        for (const QString& path : wanted_) {
            if (!watched.contains(path) && QFileInfo::exists(path))
                watcher_->addPath(path);
        }
    }

    QStringList wanted_;
    std::unique_ptr<QFileSystemWatcher> watcher_; ///< made when there is something to watch
};

} // namespace

std::unique_ptr<FileWatch> MakeFileWatch() {
    return std::make_unique<LocalFileWatch>();
}

} // namespace services
