// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

// From diagnostic to diagnostic.
namespace schema {

/// Goes to a row's node, and with the caret to its place; after an edit to where the node stands by now. Into
/// the window of the other document where it is about that, which is opened if need be. `row` counts from 1.
void GoToDiagnostic(DocumentWindow& window, int row);
/// The row behind the current one, the first one behind the last. A list that has led into another document's
/// window is walked on from there.
void NextDiagnostic(DocumentWindow& window);
void PreviousDiagnostic(DocumentWindow& window); ///< the last one before the first
/// Whether there is a list to walk.
bool HasDiagnostics(DocumentWindow& window);

void ConnectDiagnosticWalk(DocumentWindow& window);

} // namespace schema
