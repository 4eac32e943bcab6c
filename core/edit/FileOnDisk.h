// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/controls/Controls.h"
#include "platform/services/Services.h"
#include <QString>
#include <functional>
#include <optional>
#include <vector>

// What a window knows of its file, and whether that is still so: other programs write files, too.
namespace edit {

enum class FileState {
    Ours,    ///< it holds what was read from it or written to it last, or isn't there
    Changed, ///< it holds something else
    NotOurs  ///< another document's: the window took its name and nothing more
};

/// How a change of a file is brought to the user, who is asked once for each coming to the front: a file that
/// changes every second must not bring box upon box.
enum class Heed {
    JustCame, ///< the window came to the front, and its file hasn't been looked at since
    Stays,    ///< and has, or was read or written since: a question must not catch the keys of someone who is
              ///< typing
    Asked,    ///< a question was answered
    Told      ///< a change was told on the status bar
};

/// A window's knowledge of its file.
struct FileOnDisk {
    QString name; ///< of the window's document when the mark was taken
    std::optional<services::FileMark> mark;
    // Each of these: the text is nowhere but in the window, though nothing changed in it.
    bool gone = false;    ///< the file is, as far as is known
    bool kept = false;    ///< it holds what the user didn't want
    bool refused = false; ///< the last write was refused, and the document counts as saved all the same
    Heed heed = Heed::Stays;
};
FileOnDisk& FileOf(DocumentWindow& window);

/// The document is what its file holds, which was read or written just now.
void TakeMark(DocumentWindow& window, const std::optional<services::FileMark>& mark);
/// The same for a file that the user lets the document have as it stands; `name` is about to be the window's.
void TakeFileAsItIs(DocumentWindow& window, const QString& name);
/// How the file stands to the document now. It is read only where it looks changed from outside; one that was
/// merely touched is ours. `found`, if it isn't null, gets the mark of a changed one.
FileState LookAtFile(DocumentWindow& window, services::FileMark* found = nullptr);
/// Whether it was there and isn't any more.
bool IsFileGone(DocumentWindow& window);

/// Whether the document as it stands is in no file, as far as that is known.
bool IsUnsaved(DocumentWindow& window);
/// Whether closing doesn't ask about it: it is saved, or was to be, and the user knows that it was refused.
bool CountsAsSaved(DocumentWindow& window);
void ShowUnsaved(DocumentWindow& window); ///< the window's caption shows whether it is

/// The files of all windows under watch.
class OpenFiles {
public:
    explicit OpenFiles(Application& app);
    ~OpenFiles();
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    /// Ticks when files are to be looked at: a little after something happened to one of them, or after a
    /// window came to the front. What looks at them switches it off.
    controls::Timer tmLook{300};
    /// Whether a question may come up now; empty: always. None does while another one is open, or while the
    /// user works in another program.
    std::function<bool()> mayAsk;

    void Follow(DocumentWindow& window); ///< it has a document now
    /// The window, or the program with it, has come to the front: what was put off is due.
    void CameToFront(DocumentWindow* window);
    const std::vector<DocumentWindow*>& Windows() const { return windows_; }

private:
    void WatchAll();
    Application& app_;
    std::vector<DocumentWindow*> windows_;
};
OpenFiles& FilesOf(Application& app);

} // namespace edit
