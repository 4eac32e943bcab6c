// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/TextFile.h"
#include <QString>

/// A document's text as it was fetched, and how its file writes it.
struct FetchedText {
    QString text;
    text::FileForm form;
    bool cancelled = false; ///< the user stopped the fetching: nothing is to follow
    FetchedText() = default;
    FetchedText(const QString& plain) : text(plain) {} // NOLINT: a plain text is a fetched one without a file
};
