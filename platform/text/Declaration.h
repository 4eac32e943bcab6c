// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QString>
#include <QStringView>

namespace text {

/// The label in the encoding pseudo-attribute of the declaration a text starts with; empty without one.
QString DeclaredEncoding(QStringView text);
QString DeclaredEncoding(const LongText& text);
/// The text with the declaration's encoding changed to `label` (added when the declaration has none; a text
/// without a declaration comes back unchanged, since it means UTF-8 then).
QString WithDeclaredEncoding(const QString& text, const QString& label);

} // namespace text
