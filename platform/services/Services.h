// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/TextFile.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

// What the program asks of the machine and of the person before it. Small interfaces: the real things stand
// beside them, and a test scripts only what waits for a person.
namespace services {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Answer { Ok, Yes, No, Cancel };

struct FontChoice {
    QString name;
    double size = 0; ///< in points
};

/// Message boxes and common dialogs: all that waits for a person.
class Prompts {
public:
    virtual ~Prompts() = default;
    /// `about` is what the text is about, such as a file's name: a line of its own below the text. Enter
    /// gives the first answer, but for OkCancel with Exclamation, where it cancels.
    virtual Answer MsgBox(const QString& text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
                          const QString& title = QStringLiteral("Vantrel"), const QString& about = {}) = 0;
    /// A question with answers of its own. The 0-based number of the one that was chosen; -1 when the box was
    /// closed without one. `usual` is the one that Enter chooses.
    virtual int Choose(const QString& text, const QStringList& answers, int usual) = 0;
    /// Shows lines to read, in a font of one width, until the user has done with them.
    virtual void ShowText(const QString& title, const QString& text) = 0;
    /// File names come back absolute; empty when cancelled. `filter` is
    /// "caption|pattern;pattern|caption|pattern".
    virtual QString OpenFileName(const QString& title, const QString& filter) = 0;
    virtual QString SaveFileName(const QString& title, const QString& filter, const QString& suggested) = 0;
    /// A colour as 0x00BBGGRR; nothing when cancelled. `present` is shown as chosen.
    virtual std::optional<std::uint32_t> ChooseColour(std::uint32_t present) = 0;
    virtual std::optional<FontChoice> ChooseFont(const FontChoice& present) = 0;
    virtual void Beep() = 0;
};

/// Shows that blocking work goes on: after half a second a bar and a Cancel button.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void Begin(const QString& what) = 0;
    /// `done` of `total` (total 0: unknown). Handles waiting events of the bar alone. False when the user
    /// cancelled.
    virtual bool Step(qint64 done, qint64 total) = 0;
    /// What is left can't be cancelled and makes no steps: a bar that is due stays as it is, without its
    /// button.
    virtual void LastStretch() {}
    virtual void End() = 0;
};

enum class FileError { None, BadName, NotFound, Permission, ReadOnly, DiskFull, Cancelled, Other };

struct FileResult {
    FileError error = FileError::None;
    QString description; ///< the system's error text
    explicit operator bool() const { return error == FileError::None; }
};

/// Settings by section and key with text values, kept for the user.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual QString Get(const QString& section, const QString& key, const QString& fallback = {}) const = 0;
    /// A failure leaves what was stored whole; its description names the file and the reason.
    virtual FileResult Save(const QString& section, const QString& key, const QString& value) = 0;
    /// All pairs of a section, in the order of their keys; empty without any.
    virtual std::vector<std::pair<QString, QString>> GetAll(const QString& section) const = 0;
};

/// What a file looks like from outside: where it is another one, the file may hold something else.
struct FileStamp {
    bool exists = false; ///< the rest is 0 without one
    qint64 size = 0;     ///< bytes
    qint64 modified = 0; ///< nanoseconds since 1970
    quint64 number = 0;  ///< of the file in its file system: another one where it was replaced
    /// It was changed so shortly before this was taken that the next change may bear the same time.
    bool fresh = false;
};
/// Whether a file can't have changed from the one to the other.
inline bool IsSameFile(const FileStamp& before, const FileStamp& now) {
    return !before.fresh && before.exists == now.exists && before.size == now.size &&
           before.modified == now.modified && before.number == now.number;
}

/// A file as it was read or written.
struct FileMark {
    FileStamp stamp;
    std::optional<std::size_t> content; ///< see ContentMark; nothing where the bytes aren't known
};
/// Equal for equal bytes, and for hardly any others. It means nothing to another run of the program.
std::size_t ContentMark(const QByteArray& bytes);

/// Takes the next bytes of a file that is being written; false where they couldn't be.
using PutBytes = std::function<bool(QByteArrayView)>;

/// Local files.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    /// Reads a regular file whole; devices, pipes and sockets are BadName, folders and missing files
    /// NotFound. `step` is called about every 4 MB with bytes read and total and stops the reading
    /// (Cancelled) by returning false.
    virtual FileResult Read(const QString& path, QByteArray& bytes,
                            const std::function<bool(qint64, qint64)>& step = {}) = 0;
    /// The first bytes of a regular file, `most` at the most; `size` is the whole file's. Fails as Read does.
    virtual FileResult ReadFront(const QString& path, qint64 most, QByteArray& bytes, qint64& size) = 0;
    /// Replaces or makes a file whole or not at all: written beside it, flushed, renamed. Follows a symbolic
    /// link to its target. Access rights stay as they were; a file without any write permission bit, or that
    /// this user may not write, is ReadOnly.
    /// `made`, if it isn't null, tells of the new file, whatever other programs do to it from then on.
    virtual FileResult Replace(const QString& path, const QByteArray& bytes, FileStamp* made = nullptr) = 0;
    /// The same with bytes that `write` hands on as they come. The file stays as it was where `write` returns
    /// false (Cancelled, unless bytes couldn't be written).
    virtual FileResult ReplaceBy(const QString& path,
                                 const std::function<bool(const PutBytes& put)>& write) = 0;
    /// Whether Replace could begin: the name can be a file's, its folder is there, and the rights are. Leaves
    /// nothing behind.
    virtual FileResult MayReplace(const QString& path) = 0;
    virtual bool Exists(const QString& path) = 0; ///< a file, not a folder
    /// Nothing where the system doesn't say, as of a folder that can't be looked into.
    virtual std::optional<FileStamp> Stamp(const QString& path) = 0;
    /// One name for all spellings of a path, with relative parts, doubled separators and symbolic links:
    /// where two paths have the same one, what is saved under one is read under the other. The file needn't
    /// be there. Hard links differ: saving gives one of them a file of its own.
    virtual QString TrueName(const QString& path) = 0;
    virtual bool Delete(const QString& path) = 0; ///< true when it existed and is gone
    virtual FileResult Copy(const QString& source, const QString& target) = 0;
    virtual QString
    TemporaryFolder() = 0; ///< the user's own, mode 0700, made on first use; without a trailing separator
};

struct HttpAnswer {
    bool ok = false;           ///< an answer came and its status is below 400
    bool cannotLocate = false; ///< the host or the resource can't be found
    bool cancelled = false;
    int status = 0;
    QString error;   ///< one sentence when not ok
    QString address; ///< where the answer came from in the end
    QString movedTo; ///< the address at another host that wasn't asked for it; see Redirects
    QByteArray body;
    QString charset; ///< from Content-Type, empty without one
};

/// Where a request may be sent on to.
enum class Redirects { Anywhere, WithinHost };

/// One blocking GET on the one thread, in steps: redirects (at most 20), TLS, the system's proxy.
class HttpClient {
public:
    virtual ~HttpClient() = default;
    /// `step` is called at least every 100 ms with bytes got and expected (0: unknown); false cancels.
    virtual HttpAnswer Get(const QString& url, const std::function<bool(qint64, qint64)>& step,
                           Redirects redirects = Redirects::Anywhere) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual int MillisecondOfHour() = 0; ///< minutes, seconds and milliseconds of the current hour
};

/// One thing in the forms in which programs take it. A form that is empty isn't offered.
struct ClipboardContents {
    QString text;
    QString html = {}; ///< for programs that paste tables
    QString xml = {};
};

/// The system's clipboard, as text.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void Clear() = 0;
    virtual void SetText(const QString& text) = 0;
    virtual void SetContents(const ClipboardContents& contents) { SetText(contents.text); }
    virtual QString GetText() = 0; ///< empty when it holds no text
    /// Whether it holds text, without fetching what another program may hold ready of it.
    virtual bool HasText() { return !GetText().isEmpty(); }
    /// Whether its text begins like XML. Asked for often.
    virtual bool HasXml() { return BeginsLikeXml(GetText()); }

protected:
    static bool BeginsLikeXml(const QString& text) {
        const auto first = std::find_if(text.begin(), text.end(), [](QChar one) {
            return !one.isSpace() && one != QChar::ByteOrderMark;
        });
        return first != text.end() && *first == QLatin1Char('<');
    }
};

/// Tells when files may have changed.
class FileWatch {
public:
    virtual ~FileWatch() = default;
    /// From now on these files are watched, and no others. They needn't be there.
    virtual void Watch(const QStringList& paths) = 0;
    /// Called on the event loop after one of them was written, replaced, made or removed; at other times,
    /// too.
    std::function<void()> changed;
};

class JournalStore; // see JournalFiles.h
class Schemas;      // see Schemas.h

/// Everything at hand, owned elsewhere (by main or a test).
struct Services {
    Prompts& prompts;
    Progress& progress;
    SettingsStore& settings;
    FileSystem& files;
    HttpClient& http;
    Clock& clock;
    Clipboard& clipboard;
    JournalStore* journal = nullptr; ///< null: nothing outlives a crash
    FileWatch* watch = nullptr;      ///< null: changes are seen when a file is looked at
    Schemas* schemas = nullptr;      ///< null: documents are checked for their form alone
};

} // namespace services
