// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"
#include <QString>

namespace integration {

/// The record of the view that shows the document as a page.
const edit::View& BrowserView();

/// Writes the text (an empty page for none) into the preview's file, whose name goes to `tempFile`, and shows
/// it.
void DisplayAtIE(Application& app, const QString& text, QString& tempFile, controls::WebBrowser& ie);

} // namespace integration
