// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/Guard.h"

namespace edit {

QString RoutineName(const DocumentWindow& window, const char* routine) {
    return window.kind.Name + u'.' + QLatin1String(routine);
}

} // namespace edit
