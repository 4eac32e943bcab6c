// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "core/model/FetchedText.h"
#include "platform/controls/Controls.h"
#include "platform/services/JournalFiles.h"
#include "platform/text/TextDifference.h"
#include <QDateTime>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

// What outlives a crash: the changes of every open document since it was opened or saved, a few seconds
// behind the user.
namespace edit {

/// A document that a run left behind without saving it.
struct Orphan {
    QString name; ///< of its window
    QString kind; ///< name of its window's kind
    QDateTime time;
    text::LongText text;
    text::FileForm form;
    std::unique_ptr<services::JournalFile> file; ///< no other process has it as long as this is kept
};

/// Writes the journals of a run's windows. A window has one as long as its text isn't the one it had when it
/// was last watched or forgotten. Where a journal can't be written the document goes on without, and the user
/// is told once, on status panel 1.
class Journal {
public:
    /// `store` may be null: nothing is kept then.
    Journal(Application& app, services::JournalStore* store);
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    controls::Timer tmJournal{2000};  ///< writes what has changed; runs as long as there is a window
    controls::Timer tmJournalOn{100}; ///< goes on with what was too much for one tick
    int mostMilliseconds = 25;        ///< of a tick; it ends with the record in which they run out

    /// The window has a document now, as its file or a new one has it. A journal that it had stays behind.
    void Watch(DocumentWindow& window);
    /// Writes what has changed.
    void Tick();
    /// The same, however long it takes: the run is about to end, or the text is in danger.
    void WriteAll();
    /// The document is in its file, or isn't wanted any more: its journal goes.
    void Forget(DocumentWindow& window);

    /// The document's file is gone or holds something else: its text is kept though nothing changed in it.
    void Keep(DocumentWindow& window);

    /// The documents that earlier runs left behind, the oldest first. Those of a run that still goes on
    /// aren't among them, nor those whose text is in their file. What isn't taken back or dropped is there
    /// again at the next start.
    std::vector<Orphan> Orphans();
    /// The document for a window: of the kind and name that the orphan tells.
    static FetchedText TakeBack(const Orphan& orphan);
    /// The window that was made with it goes on with its journal, and counts as changed.
    void Adopt(DocumentWindow& window, Orphan orphan);
    static void Drop(Orphan orphan); ///< it isn't wanted

private:
    struct Entry {
        DocumentWindow* window = nullptr;
        std::optional<text::LongText> saved; ///< the text that needs no journal
        std::unique_ptr<services::JournalFile> file;
        std::unique_ptr<services::JournalFile> older; ///< kept until `file` has a whole text
        QString name;                                 ///< as `file` tells it
        text::LongText written;                       ///< the text that it gives
        bool whole = false;                           ///< it gives one
        text::LongText target;                        ///< the text after the change under way
        std::optional<text::TextChange> change;
        qsizetype done = 0; ///< units of it
    };
    Entry* EntryOf(const DocumentWindow& window);
    void Close(DocumentWindow& window);
    bool Write(Entry& entry, const std::function<bool()>& spent);
    bool HasChange(Entry& entry);
    services::FileResult Begin(Entry& entry);
    services::FileResult TellName(Entry& entry);
    void BeginChange(Entry& entry, const text::LongText& target);
    void EndChange(Entry& entry);
    void Fail(Entry& entry, const services::FileResult& result);
    static void Remove(Entry& entry);

    Application& app_;
    services::JournalStore* store_;
    std::vector<Entry> entries_;
    int pause_ = 0;     ///< ticks to leave out
    bool told_ = false; ///< that there is no journal
};

/// The journal of this run.
Journal& JournalOf(Application& app);

} // namespace edit
