// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// Names that are typed over labels of the compact view: of what is there, and of what is being added.
namespace schema {

void ConnectCompactLabels(DocumentWindow& window);

} // namespace schema
