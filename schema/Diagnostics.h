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
    bool warning = false; ///< of a document that couldn't be had: others may follow from that
    bool last = false;    ///< it is about the list itself, and ends it
    QString node = {};    ///< key of the element that it is about, once it is in the list
};

struct DiagnosticsState {
    std::vector<Diagnostic> all;
    text::LongText text;              ///< the document's when it was checked: what places are places in
    bool past = false;                ///< the text has changed since, and the rows tell so
    controls::ListView lvDiagnostics; ///< a row for each: place, message, path of the node
    controls::Pane pctDiagnostics;    ///< visible while there are any
};
DiagnosticsState& DiagnosticsOf(DocumentWindow& window);

/// Takes the place of what an earlier check found. Those of the document itself come first, by their places.
void ShowDiagnostics(DocumentWindow& window, std::vector<Diagnostic> found);

/// The element that a row is about; nothing without one, and where it is gone.
controls::TreeNode NodeOf(DocumentWindow& window, const Diagnostic& diagnostic);

/// Goes to a row's node, and with the caret to its place; after an edit to where the node stands by now. Into
/// the window of the other document where it is about that, which is opened if need be. `row` counts from 1.
void GoToDiagnostic(DocumentWindow& window, int row);
void NextDiagnostic(DocumentWindow& window);     ///< the first one behind the last
void PreviousDiagnostic(DocumentWindow& window); ///< the last one before the first

void ConnectDiagnostics(DocumentWindow& window);

} // namespace schema
