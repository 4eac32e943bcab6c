// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/TableState.h"

namespace table {

TableState& TableOf(DocumentWindow& window) {
    return window.rooms.of<TableState>();
}

} // namespace table
