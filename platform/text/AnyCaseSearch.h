// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringView>

namespace text {

/// 0-based first place at or behind `from` where `text` holds `what` in whatever case; -1 for none. The same
/// as QStringView::indexOf, and several times as fast where `what` begins with ASCII.
qsizetype IndexOfAnyCase(QStringView text, QStringView what, qsizetype from);

} // namespace text
