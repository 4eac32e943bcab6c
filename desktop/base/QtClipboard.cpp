// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/QtClipboard.h"
#include "platform/text/TextTools.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace desktop {

QtClipboard::QtClipboard() {
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &listener_,
                     [this] { hasXml_.reset(); });
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const QString& text) {
    QString plain = text;
#ifndef Q_OS_WIN
    plain =
        text::WithReplacements(text, text::PlacesOf(QStringLiteral("\r\n"), text), 2, QStringLiteral("\n"));
#endif
    QGuiApplication::clipboard()->setText(plain);
}

bool QtClipboard::HasText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

QString QtClipboard::GetText() {
    return QGuiApplication::clipboard()->text();
}

bool QtClipboard::HasXml() {
    if (!hasXml_)
        hasXml_ = HasText() && BeginsLikeXml(GetText());
    return *hasXml_;
}

} // namespace desktop
