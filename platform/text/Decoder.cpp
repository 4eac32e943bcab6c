// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Decoder.h"
#include "platform/text/Iconv.h"
#include <QStringDecoder>
#include <algorithm>

namespace text {

namespace {

constexpr qsizetype kChunk = 16384; // bytes, or units where the system converts

/// Whether every high surrogate in these units is followed by a low one and every low one led by a high one.
class PairCheck {
public:
    void Check(QStringView units) {
        for (const QChar unit : units) {
            alone_ |= afterHigh_ != unit.isLowSurrogate();
            afterHigh_ = unit.isHighSurrogate();
        }
    }
    bool FoundAlone() const { return alone_ || afterHigh_; }

private:
    bool afterHigh_ = false;
    bool alone_ = false;
};

/// By the library, which neither takes a byte-order mark away nor cares for surrogates in UTF-16.
Fit DecodeByLibrary(QStringConverter::Encoding encoding, QByteArrayView bytes, const TextSink& sink) {
    QStringDecoder decoder(encoding, QStringDecoder::Flag::ConvertInitialBom);
    QString chunk(decoder.requiredSpace(kChunk), Qt::Uninitialized);
    QChar* const out = chunk.data();
    for (qsizetype at = 0; at < bytes.size(); at += kChunk) {
        const QByteArrayView step = bytes.sliced(at, std::min(bytes.size() - at, kChunk));
        const QChar* const end = decoder.appendToBuffer(out, step);
        if (decoder.hasError())
            return Fit::No;
        sink(QStringView(out, end));
    }
    // What comes next shows whether a sequence was cut off at the end.
    decoder.appendToBuffer(out, QByteArrayView("\n"));
    return decoder.hasError() ? Fit::No : Fit::Identical;
}

Fit DecodeAscii(QByteArrayView bytes, const TextSink& sink) {
    constexpr char kLast = 0x7F;
    if (std::any_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & ~kLast) != 0; }))
        return Fit::No;
    return DecodeByLibrary(QStringConverter::Latin1, bytes, sink);
}

Fit DecodeUtf16(QStringConverter::Encoding encoding, QByteArrayView bytes, const TextSink& sink) {
    if (bytes.size() % 2 != 0)
        return Fit::No;
    PairCheck pairs;
    DecodeByLibrary(encoding, bytes, [&](QStringView piece) {
        pairs.Check(piece);
        sink(piece);
    });
    return pairs.FoundAlone() ? Fit::Surrogates : Fit::Identical;
}

Fit DecodeBySystem(const QByteArray& name, QByteArrayView bytes, const TextSink& sink) {
    Iconv converter(name.constData(), kUtf16Native);
    if (!converter.IsOpen())
        return Fit::No;
    QString chunk(kChunk, Qt::Uninitialized);
    auto* const start = reinterpret_cast<char*>(chunk.data());
    const char* in = bytes.data();
    auto inLeft = static_cast<std::size_t>(bytes.size());
    // The last round has no input: it writes out what the converter holds back for a combining character.
    for (bool flush = bytes.isEmpty();; flush = true) {
        for (;;) {
            char* out = start;
            std::size_t outLeft = kChunk * sizeof(char16_t);
            const char* none = nullptr;
            const int error = converter.Convert(flush ? none : in, inLeft, out, outLeft);
            if (error != 0 && error != E2BIG)
                return Fit::No;
            sink(QStringView(chunk).first((out - start) / 2));
            if (error == 0)
                break;
        }
        if (flush)
            return Fit::Yes;
    }
}

} // namespace

Fit DecodeBytes(const Encoding& encoding, QByteArrayView bytes, const TextSink& sink) {
    switch (encoding.kind) {
    case Encoding::Kind::Utf8:
        return DecodeByLibrary(QStringConverter::Utf8, bytes, sink);
    case Encoding::Kind::Utf16Le:
        return DecodeUtf16(QStringConverter::Utf16LE, bytes, sink);
    case Encoding::Kind::Utf16Be:
        return DecodeUtf16(QStringConverter::Utf16BE, bytes, sink);
    case Encoding::Kind::Latin1:
        return DecodeByLibrary(QStringConverter::Latin1, bytes, sink);
    case Encoding::Kind::Ascii:
        return DecodeAscii(bytes, sink);
    case Encoding::Kind::Utf7:
    case Encoding::Kind::Other:
        break;
    }
    return DecodeBySystem(encoding.name, bytes, sink);
}

} // namespace text
