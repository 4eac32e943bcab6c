// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "textview/FindText.h"
#include <QString>
#include <vector>

// Replacing many hits at once, in one pass over the text.
namespace textview {

/// The hits of a search that goes on behind each hit, from a 0-based position down to the end of the text.
/// Hits that are the replacement already are left out.
std::vector<qsizetype> HitsDown(const controls::RichTextBox& target, const QString& text, qsizetype from,
                                const QString& replacement, const FindOptions& options);
/// The same upwards: the last one that ends at `from` or before it comes first.
std::vector<qsizetype> HitsUp(const controls::RichTextBox& target, const QString& text, qsizetype from,
                              const QString& replacement, const FindOptions& options);

/// Replaces the hits, `length` units each, in both panes of the window, as if one were replaced after the
/// other, but as one undo step (quirk 50). `hits` are as the two routines above give them, not none. Selects
/// the last replacement in `target` and gives its place.
qsizetype ReplaceHits(DocumentWindow& window, controls::RichTextBox& target,
                      const std::vector<qsizetype>& hits, qsizetype length, const QString& replacement);
/// Such steps one behind the other, the first of which has the 0-based place `first`, become one.
void JoinSteps(DocumentWindow& window, int first);

} // namespace textview
