// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include "platform/text/TextFile.h"
#include <QString>

struct Application;
struct DocumentWindow;

// Text to file, and what else is done to files.
namespace edit {

enum class SaveOutcome {
    Written,
    Refused, ///< by the system; the user has seen why
    Declined ///< another encoding was needed and not wanted, or no encoding would do; nothing was tried
};

/// Writes a text, replacing the file whole or not at all; an empty name writes "tmp.$$$" in the current
/// folder. `form` tells how the file writes its text (null: by the text's declaration, else UTF-8) and is
/// brought up to date after a write. A refused write leaves the old file as it was. Where the encoding can't
/// hold a character, or the declaration has come to name no known encoding, the user is asked: Yes saves as
/// UTF-8 with the declaration changed to say so, and `text` then takes that change. Half of a surrogate pair
/// fits no encoding: the user is told where it stands. `mark`, if it isn't null, gets that of the new file.
SaveOutcome WriteText(Application& app, QString& text, const QString& fileName, text::FileForm* form,
                      services::FileMark* mark = nullptr);
/// The boxes about what isn't written: half of a surrogate pair at a line and a position in it, both from 1,
/// and the system's refusal.
void TellLoneHalf(Application& app, qsizetype line, qsizetype position);
void TellRefused(Application& app, const services::FileResult& result);
/// Two windows on one file would save over each other: tells of another window whose document has this name,
/// in any spelling.
bool IsOpenElsewhere(const DocumentWindow& window, const QString& name);
/// Asks whether a document may be saved over the file of a name one day.
bool MayReplace(Application& app, const QString& name);
/// The same as a plain answer: true when it was written.
bool SaveStringToFile(Application& app, QString& text, const QString& fileName,
                      text::FileForm* form = nullptr);
bool DeleteFileIfExists(Application& app, const QString& path); ///< true when it existed and is gone

QString CopyFileTitle(); ///< of the boxes about copying
/// Asks whether an existing file may be replaced by a copy.
bool MayReplaceByCopy(Application& app, const QString& name);
/// Copies a file; a target ending in a separator is a folder. Asks before replacing another file; false on No
/// or failure. A failure goes to the error report, or into `failure` where the caller tells the user itself.
bool CopyFileTo(Application& app, const QString& source, const QString& target,
                services::FileResult* failure = nullptr);

} // namespace edit
