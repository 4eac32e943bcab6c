// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The question before a document's text is first written anew from its tree in a way that drops content
// (quirk 36).
namespace edit {

/// The user's edit that leads to it.
enum class EditOf {
    Text, ///< kept by Cancel, as it was typed: the tree is built from it, and the text stays
    Tree  ///< taken back by Cancel; the next one asks again
};

/// Whether the text may be written anew although `losses` are left out then. True where there are none, or
/// where the user has agreed for this document; else they are asked. Where they said Cancel to an edit of the
/// text its later edits aren't asked about either: the text stays as it is typed until one of the tree asks.
bool MayRewrite(DocumentWindow& window, const xml::Losses& losses, EditOf edited);

/// What the user had agreed to lose is there again, by undo: the next rewrite asks about it.
void AskAgain(DocumentWindow& window);

QString RewritingTitle(); ///< of the box that asks

} // namespace edit
