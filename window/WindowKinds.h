// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/WindowKind.h"

// The two kinds of document window, side by side.
namespace window {

const WindowKind& XMLKind();    ///< frmXMLEdit: a window on one XML document
const WindowKind& SchemaKind(); ///< frmSXMLEdit: a window that designs a schema

} // namespace window
