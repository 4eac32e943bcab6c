// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/FileOnDisk.h"
#include "core/model/FileNames.h"
#include <algorithm>

namespace edit {

namespace {

using services::FileMark;
using services::FileStamp;

services::FileSystem& Files(DocumentWindow& window) {
    return window.app.services.files;
}

// A file that is there, and looks changed: whether its bytes are others. The mark found is taken over where
// they aren't.
FileState LookInside(DocumentWindow& window, FileMark& mark, const FileStamp& now, FileMark* found) {
    QByteArray bytes;
    if (!Files(window).Read(window.Caption, bytes))
        return FileState::Ours; // a lock, perhaps: it is looked at again
    const FileMark fresh{now, services::ContentMark(bytes)};
    if (mark.stamp.exists && mark.content == fresh.content) {
        mark = fresh;
        return FileState::Ours;
    }
    if (found)
        *found = fresh;
    return FileState::Changed;
}

} // namespace

FileOnDisk& FileOf(DocumentWindow& window) {
    return window.rooms.of<FileOnDisk>();
}

void TakeMark(DocumentWindow& window, const std::optional<FileMark>& mark) {
    FileOf(window) = FileOnDisk();
    FileOf(window).name = window.Caption;
    FileOf(window).mark = mark;
}

void TakeFileAsItIs(DocumentWindow& window, const QString& name) {
    TakeMark(window, {});
    FileOf(window).name = name;
    if (const std::optional<FileStamp> stamp = Files(window).Stamp(name))
        FileOf(window).mark = FileMark{*stamp, {}};
}

FileState LookAtFile(DocumentWindow& window, FileMark* found) {
    FileOnDisk& file = FileOf(window);
    if (!mXMLEdit::IsLocalPath(window.Caption))
        return FileState::Ours;
    const std::optional<FileStamp> now = Files(window).Stamp(window.Caption);
    if (!now)
        return FileState::Ours;
    if (!now->exists) // saving makes it anew
        return FileState::Ours;
    if (file.name != window.Caption || !file.mark)
        return FileState::NotOurs;
    FileStamp& known = file.mark->stamp;
    if (services::IsSameFile(known, *now))
        return FileState::Ours;
    // Without a mark of the bytes the stamp alone tells.
    known.fresh = known.fresh && file.mark->content;
    return services::IsSameFile(known, *now) ? FileState::Ours : LookInside(window, *file.mark, *now, found);
}

bool IsFileGone(DocumentWindow& window) {
    const FileOnDisk& file = FileOf(window);
    if (file.name != window.Caption || !file.mark || !file.mark->stamp.exists ||
        !mXMLEdit::IsLocalPath(window.Caption))
        return false;
    const std::optional<FileStamp> now = Files(window).Stamp(window.Caption);
    return now && !now->exists;
}

bool IsUnsaved(DocumentWindow& window) {
    return FileOf(window).refused || !CountsAsSaved(window);
}

bool CountsAsSaved(DocumentWindow& window) {
    const FileOnDisk& file = FileOf(window);
    return !file.gone && !file.kept && !window.bond.bTreeChanged() &&
           window.TextInUse().Plain() == window.bond.msOpenText;
}

void ShowUnsaved(DocumentWindow& window) {
    window.SetUnsaved(IsUnsaved(window));
}

OpenFiles::OpenFiles(Application& app) : app_(app) {
    app.windowClosed.connect([this](DocumentWindow& window) {
        std::erase(windows_, &window);
        WatchAll();
    });
    if (app.services.watch)
        app.services.watch->changed = [this] { tmLook.SetEnabled(true); };
}

OpenFiles::~OpenFiles() {
    if (!app_.services.watch)
        return;
    app_.services.watch->changed = {};
    app_.services.watch->Watch({});
}

void OpenFiles::Follow(DocumentWindow& window) {
    if (std::find(windows_.begin(), windows_.end(), &window) == windows_.end()) {
        windows_.push_back(&window);
        window.captionChanged.connect([this] { WatchAll(); });
    }
    WatchAll();
}

void OpenFiles::CameToFront(DocumentWindow* window) {
    if (!window)
        return;
    FileOf(*window).heed = Heed::JustCame;
    tmLook.SetEnabled(true);
}

void OpenFiles::WatchAll() {
    if (!app_.services.watch)
        return;
    QStringList paths;
    for (const DocumentWindow* window : windows_) {
        if (mXMLEdit::IsLocalPath(window->Caption))
            paths << window->Caption;
    }
    app_.services.watch->Watch(paths);
}

OpenFiles& FilesOf(Application& app) {
    return app.rooms.of<OpenFiles>(app);
}

} // namespace edit
