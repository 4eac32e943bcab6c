// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/TableShapes.h"
#include <QString>

namespace exchange {

/// The element around the rows of all tables, with their keys; empty without tables. `attributes`: columns
/// are attributes of their rows.
QString RootSchema(const QString& root, const std::vector<TableShape>& shapes, bool attributes);

} // namespace exchange
