// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"
#include "platform/services/Services.h"
#include <QByteArray>
#include <QSize>

namespace desktop {

/// The chart in the bytes of a file; `size` in pixels. A PNG has two points for each in both directions.
QByteArray ChartPng(const ChartPicture& picture, QSize size);
QByteArray ChartSvg(const ChartPicture& picture, QSize size);

/// Puts the chart on the desktop's clipboard, as a picture and as SVG.
void CopyChart(const ChartPicture& picture, QSize size);
/// Asks for a name and writes the chart there: SVG where the name ends so, else PNG, whose ending is added to
/// a name without one. Asks before it replaces a file; the user is told when it can't be written.
void SaveChart(const services::Services& services, const ChartPicture& picture, QSize size);

} // namespace desktop
