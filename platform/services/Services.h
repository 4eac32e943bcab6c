// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/TextFile.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
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
    virtual Answer MsgBox(const QString& text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
                          const QString& title = QStringLiteral("Vantrel")) = 0;
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
    virtual FileResult Replace(const QString& path, const QByteArray& bytes) = 0;
    /// Whether Replace could begin: the name can be a file's, its folder is there, and the rights are. Leaves
    /// nothing behind.
    virtual FileResult MayReplace(const QString& path) = 0;
    virtual bool Exists(const QString& path) = 0; ///< a file, not a folder
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
    QString error; ///< one sentence when not ok
    QByteArray body;
    QString charset; ///< from Content-Type, empty without one
};

/// One blocking GET on the one thread, in steps: redirects (at most 20), TLS, the system's proxy.
class HttpClient {
public:
    virtual ~HttpClient() = default;
    /// `step` is called at least every 100 ms with bytes got and expected (0: unknown); false cancels.
    virtual HttpAnswer Get(const QString& url, const std::function<bool(qint64, qint64)>& step) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual int MillisecondOfHour() = 0; ///< minutes, seconds and milliseconds of the current hour
};

/// The system's clipboard, as text.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void Clear() = 0;
    virtual void SetText(const QString& text) = 0;
    virtual QString GetText() = 0; ///< empty when it holds no text
    /// Whether it holds text, without fetching what another program may hold ready of it.
    virtual bool HasText() { return !GetText().isEmpty(); }
};

class JournalStore; // see JournalFiles.h

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
};

} // namespace services
