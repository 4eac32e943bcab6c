// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "core/model/FetchedText.h"
#include "platform/controls/Controls.h"
#include "platform/text/StringPool.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <memory>

struct DocumentWindow;

/// Fetching and parsing, and the file helpers.
namespace mXMLEdit {

/// 1: local file, 2: web address, -1: neither. Trims first. A single letter and ":" is a drive, an absolute
/// POSIX path is a file; relative and network paths are not files to this routine.
int GetAddressType(const QString& address);
/// Whether a name is a local path that can be written: a drive path or an absolute POSIX path.
bool IsLocalPath(const QString& name);

/// Fetches by the address type. True with an untouched `fetched` for a name that is neither file nor web
/// address: it is then an empty document. False after a message when nothing could be fetched or the user
/// cancelled. Text that was fetched is taken apart already while the user can still cancel; a bar that shows
/// stays as long as `fetched` does.
bool GetData(Application& app, const QString& address, FetchedText& fetched);
bool GetFileData(Application& app, const QString& path, FetchedText& fetched);
bool GetHttpData(Application& app, const QString& url, FetchedText& fetched);

/// By the extension only; the file isn't looked at.
bool IsBinaryFile(const QString& name);

/// Parses. An empty text does nothing and yields false with `document` untouched. A failure is kept as the
/// last parse error and reported: quiet by a beep and status panel 1, else in a box. `document` is set in
/// both cases, so that the caller can point at the error. A text that was taken apart when it was fetched is
/// not parsed again.
bool LoadXMLDocFromString(Application& app, const FetchedText& text,
                          std::shared_ptr<xml::ParsedDocument>& document, bool quiet);
/// Whether a text parses; reports as a quiet or loud load does. False and no report for an empty text.
bool ValidateXML(Application& app, const FetchedText& text, bool quiet);

/// The seven lines of the report. While the active window shows its text view, the caret goes to the error
/// too.
QString GetXMLParseErrorString(Application& app, const xml::ParseError& error);
/// Shows line and place in status panel 2 and selects the character at the error in the text view in use.
void PointToErrorPos(Application& app, const xml::ParseError& error);

/// & < > " ' as entities. A text that holds an entity already is escaped again.
QString convertStringToXML(const QString& text);

/// Waits on the clock, up to the end of the hour; nothing else runs meanwhile.
void Delay(Application& app, int milliseconds);

/// The encoding labels on offer, in order; they are labels of new documents' declarations.
void LoadEncoding(controls::ComboBox& combo);
/// Selects the item that equals `name` exactly; without one the selection stays.
void FindEncoding(const QString& name, controls::ComboBox& combo);

// File names. Both separators count.
QString GetExtName(const QString& path);      ///< behind the last dot of the file name; empty without one
QString GetFSFolderName(const QString& path); ///< the parent folder; only a root ends in a separator
QString GetFSFileName(const QString& path);   ///< behind the last separator
bool FileExist(Application& app, const QString& path);
/// What stands around a pasted name, blanks or a line end, belongs to no file, unless one is called so.
QString NameMeant(Application& app, const QString& name);
bool DeleteFileIfExists(Application& app, const QString& path); ///< true when it existed and is gone

enum class SaveOutcome {
    Written,
    Refused, ///< by the system; the user has seen why
    Declined ///< another encoding was needed and not wanted, or no encoding would do; nothing was tried
};

/// Writes a text, replacing the file whole or not at all; an empty name writes "tmp.$$$" in the current
/// folder. `form` tells how the file writes its text (null: by the text's declaration, else UTF-8) and is
/// brought up to date after a write. A refused write leaves the old file as it was. Where the code can't hold
/// a character, or the declaration has come to name no known code, the user is asked: Yes saves as UTF-8 with
/// the declaration changed to say so, and `text` then takes that change. Half of a surrogate pair fits no
/// code: the user is told where it stands.
SaveOutcome WriteText(Application& app, QString& text, const QString& fileName, text::FileForm* form);
/// The same as a plain answer: true when it was written.
bool SaveStringToFile(Application& app, QString& text, const QString& fileName,
                      text::FileForm* form = nullptr);

QString CopyFileTitle(); ///< of the boxes about copying
/// Asks whether an existing file may be replaced by a copy.
bool MayReplaceByCopy(Application& app, const QString& name);
/// Copies a file; a target ending in a separator is a folder. Asks before replacing another file; false on No
/// or failure. A failure goes to the error report, or into `failure` where the caller tells the user itself.
bool CopyFileTo(Application& app, const QString& source, const QString& target,
                services::FileResult* failure = nullptr);

} // namespace mXMLEdit
