// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/controls/ListView.h"
#include <QString>
#include <cstdint>
#include <optional>
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
    text::LongText text;      ///< the document's when it was checked: what places are places in
    QString name;             ///< the document's then
    bool past = false;        ///< the text has changed since, and the rows tell so
    std::uint64_t rowsOf = 0; ///< the tree's revision that the rows were made of
    std::optional<std::vector<long>> numbers; ///< of the elements, while the tree is being built anew
    controls::ListView lvDiagnostics;         ///< a row for each: place, message, path of the node
    controls::Pane pctDiagnostics;            ///< visible while there are any
    controls::Event<> wentThere; ///< the user has gone to a place in this document that a row told
};
DiagnosticsState& DiagnosticsOf(DocumentWindow& window);

/// Takes the place of what an earlier check found. Those of the document itself come first, by their places.
void ShowDiagnostics(DocumentWindow& window, std::vector<Diagnostic> found);

/// The element that a row is about; nothing without one, and where it is gone.
controls::TreeNode NodeOf(DocumentWindow& window, const Diagnostic& diagnostic);
/// Whether the document's text is the one that was checked last.
bool IsAsChecked(const DocumentWindow& window);

/// The tree is about to be built anew from a text, inside an edit: at its end rows lead to the elements that
/// they are about by their new keys. Those of another document go.
void KeepDiagnosedNodes(DocumentWindow& window);
/// There is no document any more.
void ForgetDiagnostics(DocumentWindow& window);

void ConnectDiagnostics(DocumentWindow& window);

} // namespace schema
