// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/GivenNames.h"
#include "core/model/mXMLEdit.h"
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace desktop {

namespace {

bool IsWebAddress(const QString& name) {
    return mXMLEdit::GetAddressType(name) == 2;
}

QString WithoutQuotes(QString name) {
    const QLatin1Char quote('"');
    if (name.startsWith(quote))
        name.remove(0, 1);
    if (name.endsWith(quote))
        name.chop(1);
    return name;
}

/// One document has one name: dots are taken out of it, unless that leads to another file over a link.
QString Absolute(const QString& name) {
    const bool drivePath = mXMLEdit::IsLocalPath(name) && QDir::isRelativePath(name);
    if (name.isEmpty() || IsWebAddress(name) || drivePath)
        return name;
    if (const QUrl url(name); url.isLocalFile())
        return url.toLocalFile();
    const QString path = QDir::current().absoluteFilePath(name);
    const QString clean = QDir::cleanPath(path);
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() || target == QFileInfo(clean).canonicalFilePath() ? clean : path;
}

} // namespace

QStringList DroppedNames(const QMimeData& data) {
    QStringList names;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            names += url.toLocalFile();
        else if (const QString address = url.toString(QUrl::FullyEncoded); IsWebAddress(address))
            names += address;
    }
    return names;
}

QStringList CommandLineNames(const QStringList& arguments) {
    QStringList names;
    for (const QString& argument : arguments)
        if (const QString name = WithoutQuotes(argument); !name.isEmpty())
            names += Absolute(name);
    const QString whole = Absolute(WithoutQuotes(arguments.join(QLatin1Char(' '))));
    const auto missing = [](const QString& name) { return !QFileInfo::exists(name); };
    if (names.size() > 1 && QFileInfo::exists(whole) && std::all_of(names.begin(), names.end(), missing))
        return {whole};
    return names;
}

} // namespace desktop
