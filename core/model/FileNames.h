// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

struct Application;

// What a name says: address or file, kind of file, its parts. Both separators count.
namespace mXMLEdit {

/// 1: local file, 2: web address, -1: neither. Trims first. A single letter and ":" is a drive, an absolute
/// POSIX path is a file; relative and network paths are not files to this routine.
int GetAddressType(const QString& address);
/// Whether a name is a local path that can be written: a drive path or an absolute POSIX path.
bool IsLocalPath(const QString& name);
/// Whether a name begins with a letter and a colon.
bool IsDrivePath(const QString& name);
/// By the extension only; the file isn't looked at.
bool IsBinaryFile(const QString& name);

QString GetExtName(const QString& path);      ///< behind the last dot of the file name; empty without one
QString GetFSFolderName(const QString& path); ///< the parent folder; only a root ends in a separator
QString GetFSFileName(const QString& path);   ///< behind the last separator

/// Whether two names mean one file, however they are spelled. Names that aren't local paths are compared as
/// they stand.
bool IsSameFile(Application& app, const QString& one, const QString& other);
bool FileExist(Application& app, const QString& path);
/// What stands around a pasted name, blanks or a line end, belongs to no file, unless one is called so.
QString NameMeant(Application& app, const QString& name);

} // namespace mXMLEdit
