// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"

namespace table {

/// The record of the table view.
const edit::View& TableView();

} // namespace table
