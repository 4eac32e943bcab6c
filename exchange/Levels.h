// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "table/TableState.h"
#include <QStringList>

// The levels of a document, each as the tables of all its elements.
namespace exchange {

/// The names of the elements of each level, from that of the root element on; the first few of a level.
std::vector<QStringList> LevelsOf(DocumentWindow& window);
/// The tables of a level, counted from 0 for the root element's.
table::Tables TablesOfLevel(DocumentWindow& window, int level);
/// The level that the user is at: that of the current node, but where it holds the root element alone the one
/// below.
int UsualLevel(DocumentWindow& window, int levels);

} // namespace exchange
