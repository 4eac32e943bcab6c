// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/FileNames.h"
#include "core/model/Application.h"
#include "platform/text/TextTools.h"
#include <QSet>

namespace mXMLEdit {

namespace {

bool IsSeparator(QChar c) {
    return c == u'/' || c == u'\\';
}

qsizetype LastSeparator(const QString& path) {
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

bool IsLetter(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

} // namespace

int GetAddressType(const QString& address) {
    const QString name = text::Trim(address);
    if (IsLocalPath(name))
        return 1;
    const QString upper = name.left(8).toUpper();
    if (upper.startsWith(QStringLiteral("HTTP://")) || upper == QStringLiteral("HTTPS://"))
        return 2;
    return -1;
}

bool IsLocalPath(const QString& name) {
    return IsDrivePath(name) || name.startsWith(u'/');
}

bool IsDrivePath(const QString& name) {
    return name.size() >= 2 && IsLetter(name[0]) && name[1] == u':';
}

bool IsBinaryFile(const QString& name) {
    static const QSet<QString> extensions{
        QStringLiteral("exe"),  QStringLiteral("bin"),  QStringLiteral("dll"), QStringLiteral("gif"),
        QStringLiteral("tiff"), QStringLiteral("bmp"),  QStringLiteral("cur"), QStringLiteral("wav"),
        QStringLiteral("avi"),  QStringLiteral("midi"), QStringLiteral("frx"), QStringLiteral("doc"),
        QStringLiteral("ocx"),  QStringLiteral("db"),   QStringLiteral("zip"), QStringLiteral("mdb"),
        QStringLiteral("jpg"),  QStringLiteral("jpeg"), QStringLiteral("ico"), QStringLiteral("isu"),
        QStringLiteral("reg"),  QStringLiteral("drv"),  QStringLiteral("oca"), QStringLiteral("hlp"),
        QStringLiteral("ime"),  QStringLiteral("tbl"),  QStringLiteral("vxd"), QStringLiteral("ttf")};
    return extensions.contains(text::Trim(GetExtName(name)).toLower());
}

QString GetExtName(const QString& path) {
    const QString file = GetFSFileName(path);
    const qsizetype dot = file.lastIndexOf(u'.');
    return dot < 0 ? QString() : file.mid(dot + 1);
}

QString GetFSFolderName(const QString& path) {
    qsizetype end = path.size();
    while (end > 1 && IsSeparator(path[end - 1]))
        --end;
    const qsizetype separator = LastSeparator(path.left(end));
    if (separator < 0)
        return {};
    // Without its separator the root of a drive would be the folder in hand on that drive.
    const bool driveRoot = separator == 2 && path[1] == u':';
    return separator == 0 || driveRoot ? path.left(separator + 1) : path.left(separator);
}

QString GetFSFileName(const QString& path) {
    qsizetype end = path.size();
    while (end > 0 && IsSeparator(path[end - 1]))
        --end;
    const QString cut = path.left(end);
    return cut.mid(LastSeparator(cut) + 1);
}

bool IsSameFile(Application& app, const QString& one, const QString& other) {
    if (one == other)
        return true;
    services::FileSystem& files = app.services.files;
    return IsLocalPath(one) && IsLocalPath(other) && files.TrueName(one) == files.TrueName(other);
}

bool FileExist(Application& app, const QString& path) {
    return app.services.files.Exists(path);
}

QString NameMeant(Application& app, const QString& name) {
    return FileExist(app, name) ? name : name.trimmed();
}

} // namespace mXMLEdit
