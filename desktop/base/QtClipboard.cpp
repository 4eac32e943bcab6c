// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/QtClipboard.h"
#include "platform/text/TextTools.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace desktop {

namespace {

QString AsWrittenHere(const QString& text) {
#ifndef Q_OS_WIN
    return text::WithReplacements(text, text::PlacesOf(QStringLiteral("\r\n"), text), 2,
                                  QStringLiteral("\n"));
#else
    return text;
#endif
}

} // namespace

QtClipboard::QtClipboard() {
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &listener_,
                     [this] { hasXml_.reset(); });
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const QString& text) {
    QGuiApplication::clipboard()->setText(AsWrittenHere(text));
}

void QtClipboard::SetContents(const services::ClipboardContents& contents) {
    auto data = std::make_unique<QMimeData>();
    data->setText(AsWrittenHere(contents.text));
    if (!contents.html.isEmpty())
        data->setHtml(contents.html);
    if (!contents.xml.isEmpty())
        data->setData(QStringLiteral("application/xml"), contents.xml.toUtf8());
    QGuiApplication::clipboard()->setMimeData(data.release()); // it is the clipboard's from here on
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
