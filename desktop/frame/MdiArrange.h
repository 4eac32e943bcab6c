// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMdiArea;

namespace desktop {

/// Places the document windows; `code` is an ArrangeCode. Minimised windows keep out of it, but for the last
/// code.
void Arrange(QMdiArea& area, int code);

} // namespace desktop
