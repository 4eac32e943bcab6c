// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// The two vocabularies of annotations for databases: whether their attributes are offered, and the
// declaration of their namespace at the schema element.
namespace schema {

void EnableMSSQL(DocumentWindow& window);
void DisableMSSQL(DocumentWindow& window);
void EnableOracle(DocumentWindow& window);
void DisableOracle(DocumentWindow& window);

/// Enabled, and the prefix is declared at the schema element: undo and redo take it with them.
bool OffersMSSQL(DocumentWindow& window);
bool OffersOracle(DocumentWindow& window);

void ToggleMSSQL(DocumentWindow& window);
void ToggleOracle(DocumentWindow& window);

} // namespace schema
