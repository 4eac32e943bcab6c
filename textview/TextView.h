// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"

namespace textview {

/// The document's text in two panes. It follows the current node while the tree has the attention.
const edit::View& TextView();

} // namespace textview
