// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartCopy.h"
#include "desktop/chart/ChartPaint.h"
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>
#include <memory>

namespace desktop {

namespace {

constexpr int kPointsPerPixel = 2;
constexpr int kScreenDpi = 96;

QImage Drawn(const ChartPicture& picture, QSize size) {
    QImage image(size * kPointsPerPixel, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(kPointsPerPixel);
    image.fill(picture.palette.color(QPalette::Base));
    QPainter painter(&image);
    PaintChart(painter, picture, LayChart(picture, QRectF(QPointF(), size)));
    return image;
}

bool MayReplace(const services::Services& services, const QString& name) {
    return !services.files.Exists(name) ||
           services.prompts.MsgBox(name + QStringLiteral(" already exists. Do you want to replace it?"),
                                   services::Buttons::YesNo, services::Icon::Question,
                                   QStringLiteral("Save file ...")) == services::Answer::Yes;
}

} // namespace

QByteArray ChartPng(const ChartPicture& picture, QSize size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    Drawn(picture, size).save(&buffer, "PNG");
    return bytes;
}

QByteArray ChartSvg(const ChartPicture& picture, QSize size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setResolution(kScreenDpi);
    generator.setTitle(QStringLiteral("Chart"));
    QPainter painter(&generator);
    PaintChart(painter, picture, LayChart(picture, QRectF(QPointF(), size)));
    painter.end();
    return bytes;
}

void CopyChart(const ChartPicture& picture, QSize size) {
    auto mime = std::make_unique<QMimeData>();
    mime->setImageData(Drawn(picture, size));
    mime->setData(QStringLiteral("image/svg+xml"), ChartSvg(picture, size));
    QGuiApplication::clipboard()->setMimeData(mime.release());
}

void SaveChart(const services::Services& services, const ChartPicture& picture, QSize size) {
    QString name = services.prompts.SaveFileName(
        QStringLiteral("Save As"), QStringLiteral("PNG picture (*.png)|*.png|SVG picture (*.svg)|*.svg"),
        QStringLiteral("chart.png"));
    if (name.isEmpty())
        return;
    const QString ending = QFileInfo(name).suffix().toLower();
    if (ending.isEmpty())
        name += QStringLiteral(".png");
    if (!MayReplace(services, name))
        return;
    const services::FileResult result = services.files.Replace(
        name, ending == QLatin1String("svg") ? ChartSvg(picture, size) : ChartPng(picture, size));
    if (!result)
        services.prompts.MsgBox(result.description, services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace desktop
