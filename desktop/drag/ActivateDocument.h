// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace desktop {

/// Brings the document that a widget is part of to the front.
void ActivateDocumentOf(const QWidget& part);

} // namespace desktop
