// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

/// The tiny document that tells whether a text may stand in the cell under edit; empty where anything may.
QString ListCellProbe(DocumentWindow& window, const QString& text);
/// The same for a CDATA section, which must not end before its end.
QString CDataProbe(const QString& text);
/// Asks the parser about a value that has no words of its own for a refusal; the user has been told then.
bool PassesProbe(Application& app, const QString& probe);
/// An attribute string that was typed in another form (apostrophes, blanks around "=") in the one form that a
/// Tag has: each name="value" behind one blank.
QString PlainAttributes(const QString& typed);
