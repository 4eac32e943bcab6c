// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

/// The tiny document that tells whether a text may stand in the cell under edit; empty where anything may.
QString ListCellProbe(DocumentWindow& window, const QString& text);
