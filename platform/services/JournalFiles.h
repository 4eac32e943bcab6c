// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QByteArray>
#include <QDateTime>
#include <functional>
#include <memory>
#include <vector>

// Records that outlive the program: what was put into a journal is on the disk, whatever happens next.
namespace services {

/// One journal. While this lives it belongs to this process, and no other one gets it; afterwards its file
/// stays, unless it was removed.
class JournalFile {
public:
    virtual ~JournalFile() = default;
    /// Puts a record at the end and sees it to the disk, with those before it. One that is good for nothing
    /// without the `next` one is only on its way there. After a failure the journal ends as it did before.
    virtual FileResult Append(const QByteArray& record, bool next = false) = 0;
    /// Hands out the records in order. It ends before the first one that is broken or that `take` answers
    /// with false; the next one appended stands there. Fails when the file can't be read.
    virtual FileResult Read(const std::function<bool(const QByteArray&)>& take) = 0;
    virtual qint64 Size() const = 0;    ///< in bytes, of the records that are good
    virtual QDateTime Time() const = 0; ///< of its last record
    virtual void Remove() = 0;          ///< it isn't there any more; nothing is to be appended
};

struct MadeJournal {
    std::unique_ptr<JournalFile> file; ///< null after a failure
    FileResult result;
};

/// All journals of a user.
class JournalStore {
public:
    virtual ~JournalStore() = default;
    virtual MadeJournal Make() = 0;
    /// The journals that no living process has, in no order; from here on this process has them.
    virtual std::vector<std::unique_ptr<JournalFile>> Orphans() = 0;
};

/// Journals as files of mode 0600 in a folder of mode 0700 (empty: vantrel/journal under the user's state
/// folder), made with the first one. A folder that is a link or another user's isn't used.
std::unique_ptr<JournalStore> MakeJournalStore(const QString& folder = {});

} // namespace services
