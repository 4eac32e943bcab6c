// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <QString>

namespace mXMLEdit {

/// The encoding labels on offer, in order; they are labels of new documents' declarations.
void LoadEncoding(controls::ComboBox& combo);
/// Selects the item that equals `name` exactly; without one the selection stays.
void FindEncoding(const QString& name, controls::ComboBox& combo);

} // namespace mXMLEdit
