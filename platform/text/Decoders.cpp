// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Iconv.h"
#include "platform/text/Latin1.h"
#include "platform/text/TextCoder.h"
#include "platform/text/Utf8.h"
#include <QtEndian>
#include <vector>

namespace text {

namespace {

constexpr std::size_t kBlock = 16; // bytes that the ASCII path of UTF-8 takes at once

Fit DecodeUtf8(QByteArrayView bytes, const UnitSink& sink) {
    std::vector<char16_t> chunk(kChunkUnits);
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = p + bytes.size();
    char16_t* const last = chunk.data() + kChunkUnits - kBlock;
    while (p != end) {
        char16_t* out = chunk.data();
        while (p != end && out <= last) {
            if (static_cast<std::size_t>(end - p) >= kBlock &&
                IsAscii(reinterpret_cast<const char*>(p), kBlock)) {
                out = WidenLatin1(p, kBlock, out);
                p += kBlock;
                continue;
            }
            // A block with other characters in it: most of its neighbours have some as well.
            const char16_t* const stop = out + kBlock - 1;
            while (p != end && out < stop) {
                const Utf8Char c = ReadUtf8(p, end);
                if (c.length == 0)
                    return Fit::No;
                out = WriteUtf16(c.code, out);
                p += c.length;
            }
        }
        sink(chunk.data(), static_cast<std::size_t>(out - chunk.data()));
    }
    return Fit::Identical;
}

Fit DecodeLatin1(QByteArrayView bytes, const UnitSink& sink) {
    std::vector<char16_t> chunk(kChunkUnits);
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype step = std::min(bytes.size() - at, static_cast<qsizetype>(kChunkUnits));
        const auto length = static_cast<std::size_t>(step);
        WidenLatin1(reinterpret_cast<const unsigned char*>(bytes.data()) + at, length, chunk.data());
        sink(chunk.data(), length);
        at += step;
    }
    return Fit::Identical;
}

Fit DecodeAscii(QByteArrayView bytes, const UnitSink& sink) {
    if (!IsAscii(bytes.data(), static_cast<std::size_t>(bytes.size())))
        return Fit::No;
    return DecodeLatin1(bytes, sink);
}

/// Whether every high half in these units is followed by a low one and every low one led by a high one.
class PairCheck {
public:
    void Check(const char16_t* units, std::size_t length) {
        for (std::size_t i = 0; i < length; ++i) {
            alone_ |= afterHigh_ != QChar::isLowSurrogate(units[i]);
            afterHigh_ = QChar::isHighSurrogate(units[i]);
        }
    }
    bool FoundAlone() const { return alone_ || afterHigh_; }

private:
    bool afterHigh_ = false;
    bool alone_ = false;
};

Fit DecodeUtf16(QByteArrayView bytes, bool bigEndian, const UnitSink& sink) {
    if (bytes.size() % 2 != 0)
        return Fit::No;
    std::vector<char16_t> chunk(kChunkUnits);
    PairCheck pairs;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype length = std::min(bytes.size() - at, static_cast<qsizetype>(kChunkUnits * 2)) / 2;
        if (bigEndian)
            qFromBigEndian<char16_t>(bytes.data() + at, length, chunk.data());
        else
            qFromLittleEndian<char16_t>(bytes.data() + at, length, chunk.data());
        pairs.Check(chunk.data(), static_cast<std::size_t>(length));
        sink(chunk.data(), static_cast<std::size_t>(length));
        at += length * 2;
    }
    return pairs.FoundAlone() ? Fit::Halves : Fit::Identical;
}

Fit DecodeOther(const QByteArray& name, QByteArrayView bytes, const UnitSink& sink) {
    Iconv converter(name.constData(), kUtf16Native);
    if (!converter.IsOpen())
        return Fit::No;
    std::vector<char16_t> chunk(kChunkUnits);
    const char* in = bytes.data();
    auto inLeft = static_cast<std::size_t>(bytes.size());
    // The last round has no input: it writes out what the converter holds back for a combining character.
    for (bool flush = bytes.isEmpty();; flush = true) {
        for (;;) {
            auto* const start = reinterpret_cast<char*>(chunk.data());
            char* out = start;
            std::size_t outLeft = chunk.size() * sizeof(char16_t);
            const char* none = nullptr;
            const int error = converter.Convert(flush ? none : in, inLeft, out, outLeft);
            if (error != 0 && error != E2BIG)
                return Fit::No;
            sink(chunk.data(), static_cast<std::size_t>(out - start) / sizeof(char16_t));
            if (error == 0)
                break;
        }
        if (flush)
            return Fit::Yes;
    }
}

} // namespace

Fit DecodeBytes(const Code& code, QByteArrayView bytes, const UnitSink& sink) {
    switch (code.kind) {
    case Code::Kind::Utf8:
        return DecodeUtf8(bytes, sink);
    case Code::Kind::Utf16Le:
        return DecodeUtf16(bytes, false, sink);
    case Code::Kind::Utf16Be:
        return DecodeUtf16(bytes, true, sink);
    case Code::Kind::Latin1:
        return DecodeLatin1(bytes, sink);
    case Code::Kind::Ascii:
        return DecodeAscii(bytes, sink);
    case Code::Kind::Utf7:
    case Code::Kind::Other:
        break;
    }
    return DecodeOther(code.name, bytes, sink);
}

} // namespace text
