// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/Encodings.h"
#include <QByteArrayView>
#include <QStringView>
#include <functional>

namespace text {

/// Takes the text of a file piece by piece.
using TextSink = std::function<void(QStringView piece)>;

enum class Fit {
    No,         ///< the bytes aren't in this encoding; what the sink got is worth nothing
    Yes,        ///< writing the text again may give other bytes: ask an Encoder
    Surrogates, ///< 16-bit units with surrogates that lack their partner, which no Encoder writes
    Identical   ///< writing the text again gives these bytes
};

/// Bytes without their byte-order mark to text, strictly.
Fit DecodeBytes(const Encoding& encoding, QByteArrayView bytes, const TextSink& sink);

} // namespace text
