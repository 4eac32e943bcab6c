// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/chart/ChartPicture.h"

class QPainter;

namespace desktop {

/// Draws a chart as it is laid out: on the screen, into a picture or a file alike. Without series there is a
/// word in its place.
void PaintChart(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);

// What it is put together from; each draws within the axes.
void PaintBars(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);
/// Lines, areas and steps: all series behind those that are bars.
void PaintLines(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);
void PaintPoints(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);
void PaintPie(QPainter& painter, const ChartPicture& picture, const ChartLayout& layout);

} // namespace desktop
