// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Journal.h"
#include "core/edit/JournalRecords.h"
#include "core/edit/Report.h"
#include "core/model/FileNames.h"
#include <QElapsedTimer>
#include <algorithm>
#include <new>
#include <utility>

namespace edit {

namespace {

using services::FileResult;
using text::LongText;

constexpr int kPauseTicks = 30; // a minute after a failure

// A journal that has grown this far beyond what its text needs is begun anew.
constexpr qint64 kSlack = 16 << 20; // bytes
constexpr qint64 kTimesTheText = 4;

bool IsOvergrown(const services::JournalFile& file, const LongText& text) {
    return file.Size() > kSlack + kTimesTheText * text.size();
}

// Where a file mixes its line ends, the text that these belong to comes first.
LongText FirstText(const DocumentWindow& window) {
    const text::LineEnds& ends = window.fileForm.lineEnds;
    return ends.each.empty() ? window.TextInUse().Plain() : ends.loadedText;
}

bool IsInItsFile(Application& app, const JournalReader& reader) {
    QByteArray bytes;
    return mXMLEdit::IsLocalPath(reader.head.name) && app.services.files.Read(reader.head.name, bytes) &&
           text::Decode(bytes).text == reader.text;
}

bool Never() {
    return false;
}

} // namespace

Journal::Journal(Application& app, services::JournalStore* store) : app_(app), store_(store) {
    tmJournal.Tick.connect([this] { Tick(); });
    tmJournalOn.Tick.connect([this] { Tick(); });
    app.windowClosed.connect([this](DocumentWindow& window) { Close(window); });
}

// --- windows -----------------------------------------------------------------------------------------------

Journal::Entry* Journal::EntryOf(const DocumentWindow& window) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.window == &window; });
    return found == entries_.end() ? nullptr : &*found;
}

void Journal::Watch(DocumentWindow& window) {
    if (!store_)
        return;
    Entry* entry = EntryOf(window);
    if (!entry)
        entry = &entries_.emplace_back();
    *entry = Entry();
    entry->window = &window;
    entry->saved = window.TextInUse().Plain();
    tmJournal.SetEnabled(true);
}

void Journal::Forget(DocumentWindow& window) {
    if (Entry* entry = EntryOf(window)) {
        Remove(*entry);
        entry->saved = window.TextInUse().Plain();
    }
}

void Journal::Keep(DocumentWindow& window) {
    if (Entry* entry = EntryOf(window))
        entry->saved.reset();
}

// One that wasn't forgotten holds what isn't saved, such as a text that couldn't be written to its file.
void Journal::Close(DocumentWindow& window) {
    Entry* entry = EntryOf(window);
    if (!entry)
        return;
    Write(*entry, Never);
    entries_.erase(entries_.begin() + (entry - entries_.data()));
    tmJournal.SetEnabled(!entries_.empty());
}

void Journal::Remove(Entry& entry) {
    for (auto* file : {&entry.file, &entry.older}) {
        if (*file)
            (*file)->Remove();
        file->reset();
    }
    entry.change.reset();
    entry.target = entry.written = {};
}

// --- writing -----------------------------------------------------------------------------------------------

void Journal::Tick() {
    if (pause_ > 0) {
        --pause_;
        return;
    }
    QElapsedTimer since;
    since.start();
    bool goesOn = false;
    // Each window has a record at least, however much another one has to write.
    for (Entry& entry : entries_)
        goesOn = Write(entry, [&] { return since.elapsed() >= mostMilliseconds; }) || goesOn;
    tmJournalOn.SetEnabled(goesOn);
}

void Journal::WriteAll() {
    for (Entry& entry : entries_)
        Write(entry, Never);
}

// True when there is more to write.
bool Journal::Write(Entry& entry, const std::function<bool()>& spent) try {
    while (HasChange(entry)) {
        const FileResult result = entry.file->Append(ChangeRecord(entry.target, *entry.change, entry.done));
        if (!result) {
            Fail(entry, result);
            return false;
        }
        entry.done = std::min(entry.done + kChangePart, entry.change->added);
        if (entry.done == entry.change->added)
            EndChange(entry);
        if (spent())
            return true;
    }
    return false;
} catch (const std::bad_alloc&) {
    return false; // the next tick tries again
}

// The text is the pane's as it stands, but for blanks that it only shows: the tree may be ahead of it, and
// what is being typed into a cell or a label isn't in it yet.
bool Journal::HasChange(Entry& entry) {
    if (entry.change)
        return true;
    const LongText& now = entry.window->TextInUse().Plain();
    if (!entry.window->bLoaded)
        return false;
    if (entry.saved && now == *entry.saved) {
        Remove(entry);
        return false;
    }
    const bool anew = !entry.file || (IsOvergrown(*entry.file, now) && !(now == entry.written));
    if (const FileResult result = anew ? Begin(entry) : TellName(entry); !result) {
        Fail(entry, result);
        return false;
    }
    if (!entry.change && !(now == entry.written))
        BeginChange(entry, now);
    return entry.change.has_value();
}

FileResult Journal::Begin(Entry& entry) {
    services::MadeJournal made = store_->Make();
    if (!made.file)
        return made.result;
    const DocumentWindow& window = *entry.window;
    for (const QByteArray& record : HeadRecords({window.Caption, window.kind.Name, window.fileForm})) {
        if (FileResult result = made.file->Append(record); !result) {
            made.file->Remove();
            return result;
        }
    }
    if (entry.file)
        entry.older = std::move(entry.file);
    entry.file = std::move(made.file);
    entry.name = window.Caption;
    entry.written = {};
    entry.whole = false;
    BeginChange(entry, FirstText(window));
    return {};
}

FileResult Journal::TellName(Entry& entry) {
    if (entry.name == entry.window->Caption)
        return {};
    FileResult result = entry.file->Append(NameRecord(entry.window->Caption));
    if (result)
        entry.name = entry.window->Caption;
    return result;
}

void Journal::BeginChange(Entry& entry, const LongText& target) {
    entry.target = target;
    entry.change = text::Difference(entry.written, target);
    entry.done = 0;
}

void Journal::EndChange(Entry& entry) {
    entry.written = std::exchange(entry.target, {});
    entry.change.reset();
    entry.whole = true;
    if (entry.older)
        entry.older->Remove();
    entry.older.reset();
}

// A journal without a whole text is good for nothing and would only fill the disk.
void Journal::Fail(Entry& entry, const FileResult& result) {
    if (entry.file && !entry.whole) {
        entry.file->Remove();
        entry.file.reset();
        entry.change.reset();
    }
    pause_ = kPauseTicks;
    if (!std::exchange(told_, true))
        Message(app_, QStringLiteral("Unsaved changes can't be kept for the case of a crash: ") +
                          result.description);
}

// --- what earlier runs left behind ------------------------------------------------------------------------

std::vector<Orphan> Journal::Orphans() {
    std::vector<Orphan> orphans;
    if (!store_)
        return orphans;
    for (auto& file : store_->Orphans()) {
        JournalReader reader;
        const FileResult result = file->Read([&](const QByteArray& record) { return reader.take(record); });
        if (reader.hasText() && IsInItsFile(app_, reader))
            file->Remove(); // the run ended between saving and this
        else if (reader.hasText())
            orphans.push_back({reader.head.name, reader.head.kind, file->Time(), reader.text,
                               reader.head.form, std::move(file)});
        else if (result && !reader.isForeign())
            file->Remove(); // it ended before it had a text
    }
    std::sort(orphans.begin(), orphans.end(),
              [](const Orphan& a, const Orphan& b) { return a.time < b.time; });
    return orphans;
}

FetchedText Journal::TakeBack(const Orphan& orphan) {
    FetchedText fetched(orphan.text);
    fetched.form = orphan.form;
    fetched.form.lineEnds = LineEndsFor(orphan.text, orphan.form.lineEnds);
    return fetched;
}

void Journal::Adopt(DocumentWindow& window, Orphan orphan) {
    window.bond.msOpenText = {};
    Watch(window);
    Keep(window);
    if (Entry* entry = EntryOf(window)) {
        entry->file = std::move(orphan.file);
        entry->name = orphan.name;
        entry->written = orphan.text;
        entry->whole = true;
    }
}

void Journal::Drop(Orphan orphan) {
    if (orphan.file)
        orphan.file->Remove();
}

Journal& JournalOf(Application& app) {
    return app.rooms.of<Journal>(app, app.services.journal);
}

} // namespace edit
