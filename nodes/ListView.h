// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"

namespace nodes {

/// The list as a view of a window.
const edit::View& ListView();

} // namespace nodes
