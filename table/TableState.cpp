// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableState.h"

namespace table {

TableState& TableOf(DocumentWindow& window) {
    return window.rooms.of<TableState>();
}

bool GridsAreCurrent(DocumentWindow& window) {
    return TableOf(window).shownRevision == window.tvXML.Revision();
}

QString AtRoutine(const DocumentWindow& window, const char* routine) {
    return window.kind.Name + u'@' + QLatin1String(routine);
}

} // namespace table
