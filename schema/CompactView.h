// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"

namespace schema {

/// The record of the compact view of a schema document.
const edit::View& CompactView();

} // namespace schema
