// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/controls/ListView.h"
#include <QString>
#include <vector>

// What the last check of a document found, as a list under its views.
namespace schema {

/// Line and column (in 16-bit units) count from 1; 0 for one without a place.
struct Diagnostic {
    QString document; ///< another one, by path or address; empty: the window's own
    int line = 0, column = 0;
    QString message;
};

struct DiagnosticsState {
    std::vector<Diagnostic> all;
    controls::ListView lvDiagnostics; ///< a row for each: place, message, path of the node
    controls::Pane pctDiagnostics;    ///< visible while there are any
};
DiagnosticsState& DiagnosticsOf(DocumentWindow& window);

/// Takes the place of what an earlier check found. Those of the document itself come first, by their places.
void ShowDiagnostics(DocumentWindow& window, std::vector<Diagnostic> found);

/// The element that a place behind a tag is about; a place behind an end tag is about the element that ends
/// there. Nothing without a place, and where the tree has no such node.
controls::TreeNode NodeOf(DocumentWindow& window, const Diagnostic& diagnostic);

/// Goes to a row's node, and with the caret to its place; into the window of the other document where it is
/// about that, which is opened if need be. `row` counts from 1.
void GoToDiagnostic(DocumentWindow& window, int row);
void NextDiagnostic(DocumentWindow& window);     ///< the first one behind the last
void PreviousDiagnostic(DocumentWindow& window); ///< the last one before the first

void ConnectDiagnostics(DocumentWindow& window);

} // namespace schema
