// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include "platform/text/LongText.h"
#include "platform/text/TextDifference.h"
#include "platform/text/TextFile.h"
#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

// What a document's journal says, record by record: first what its document is, then every change of the text
// from the empty one on.
namespace edit {

/// A document beside its text.
struct JournalHead {
    QString name; ///< of the window: path, address, or that of a new document
    QString kind; ///< name of the window's kind
    text::FileForm form;
    std::optional<services::FileStamp> stamp; ///< of its file
};

/// The records that a journal begins with. The bytes that the file had aren't in it: a text that is in a
/// journal is another one. Where the file mixes its line ends the text that they belong to has to be the
/// first one.
std::vector<QByteArray> HeadRecords(const JournalHead& head);
QByteArray NameRecord(const QString& name); ///< the document is called so from here on

/// Units of the text in one record.
inline constexpr qsizetype kChangePart = 512 * 1024;
/// A part of a change that leads to `after`: from `done` units of what was added on. The change counts once
/// all of its parts are there.
QByteArray ChangeRecord(const text::LongText& after, const text::TextChange& change, qsizetype done);

/// How a file's line ends stand in a text that has become of its own: those in front of the changed stretch
/// and behind it stay, those in it are the common ones.
text::LineEnds LineEndsFor(const text::LongText& now, const text::LineEnds& ends);

/// Puts a document together from its records.
class JournalReader {
public:
    /// False for a record that makes no sense here: nothing behind it does.
    bool take(const QByteArray& record);
    bool isForeign() const { return foreign_; } ///< of a later version
    bool hasText() const { return hasText_; }   ///< one change at least is whole
    JournalHead head;
    text::LongText text; ///< after the last whole change

private:
    bool takeHead(QDataStream& stream);
    bool takeLineEnds(QDataStream& stream);
    bool takeChange(QDataStream& stream);

    bool hasHead_ = false, foreign_ = false, hasText_ = false;
    text::LongText coming_; ///< the text with the change that isn't whole yet
    text::TextChange change_;
    qsizetype done_ = 0; ///< of it
};

} // namespace edit
