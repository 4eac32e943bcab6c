// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/Encodings.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>
#include <memory>

namespace text {

/// Text to bytes, piece by piece.
class Encoder {
public:
    virtual ~Encoder() = default;
    /// Appends a piece. -1, or the place in the piece of the first character that the encoding can't hold.
    /// A pair of surrogates must not be cut between two pieces.
    virtual qsizetype Append(QStringView piece) = 0;
    /// To be called behind the last piece.
    virtual void Finish() {}

    void Reserve(qsizetype size) { bytes_.reserve(size); }
    void AppendBytes(QByteArrayView bytes);
    /// All bytes so far, which are then forgotten.
    QByteArray Take();
    /// The bytes since the last Drain; good until the next call.
    QByteArrayView Drain();

protected:
    /// Place for at least `size` more bytes. Growing large storage moves pages and copies nothing.
    char* Room(std::size_t size);
    std::size_t RoomLeft() const { return static_cast<std::size_t>(bytes_.size()) - used_; }
    void Used(const char* end) { used_ = static_cast<std::size_t>(end - bytes_.constData()); }

private:
    QByteArray bytes_; ///< longer than what it holds
    std::size_t used_ = 0;
};

std::unique_ptr<Encoder> MakeEncoder(const Encoding& encoding);

} // namespace text
