// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/View.h"

namespace schema {

/// The record of the view that shows the text of a document's schema.
const edit::View& SchemaView();

} // namespace schema
