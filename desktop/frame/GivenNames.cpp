// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/GivenNames.h"
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace desktop {

namespace {

bool IsWebScheme(const QString& scheme) {
    return scheme == QLatin1String("http") || scheme == QLatin1String("https");
}

bool IsAddress(const QString& name) {
    const qsizetype colon = name.indexOf(QStringLiteral("://"));
    return colon > 0 && IsWebScheme(name.left(colon).toLower());
}

QString WithoutQuotes(QString name) {
    const QLatin1Char quote('"');
    if (name.startsWith(quote))
        name.remove(0, 1);
    if (name.endsWith(quote))
        name.chop(1);
    return name;
}

bool IsDrivePath(const QString& name) {
    return name.size() >= 2 && name[0].isLetter() && name[1] == QLatin1Char(':');
}

/// One document has one name: dots are taken out of it, unless that leads to another file over a link.
QString Absolute(const QString& name) {
    if (name.isEmpty() || IsAddress(name) || IsDrivePath(name))
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
        else if (IsWebScheme(url.scheme()))
            names += url.toString(QUrl::FullyEncoded);
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
