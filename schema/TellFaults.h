// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/Findings.h"

// How the user is told of what a check found, beside the list of diagnostics, which is filled already.
namespace schema {

/// A box about the first fault; the text view comes up with its place, and its node is selected. A fault of
/// another document, or without a place, is told alone, and so is a document that couldn't be had: other
/// faults may follow from that.
void TellFirst(DocumentWindow& window);
/// The first fault on status panel 1.
void TellOnStatusBar(DocumentWindow& window);

} // namespace schema
