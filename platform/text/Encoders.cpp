// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Iconv.h"
#include "platform/text/TextCoder.h"
#include "platform/text/TextTools.h"
#include <QtEndian>
#include <array>
#include <cstring>

namespace text {

namespace {

char* WriteUtf8(char32_t c, char* out) {
    const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
    return out;
}

/// Writes a block of ASCII characters as bytes; false when there are others among them.
template <std::size_t Size> bool NarrowAscii(const char16_t* in, char* out) {
    char16_t units[Size];
    unsigned char bytes[Size];
    std::memcpy(units, in, sizeof units);
    char16_t all = 0;
    for (std::size_t i = 0; i < Size; ++i) {
        all = static_cast<char16_t>(all | units[i]);
        bytes[i] = static_cast<unsigned char>(units[i]);
    }
    if (all >= 0x80)
        return false;
    std::memcpy(out, bytes, sizeof bytes);
    return true;
}

class Utf8Encoder : public Encoder {
public:
    qsizetype Append(QStringView piece) override {
        constexpr qsizetype kStep = kChunkUnits;
        constexpr qsizetype kBlock = 16;
        const char16_t* const units = piece.utf16();
        const qsizetype length = piece.size();
        for (qsizetype i = 0; i < length;) {
            const qsizetype stop = std::min(length, i + kStep);
            char* out =
                Room(3 * static_cast<std::size_t>(stop - i) + 3); // a pair may reach over the step's end
            while (i < stop) {
                if (stop - i >= kBlock && NarrowAscii<kBlock>(units + i, out)) {
                    i += kBlock;
                    out += kBlock;
                    continue;
                }
                for (const qsizetype rest = std::min(stop, i + kBlock); i < rest;) {
                    char32_t c = units[i];
                    if (QChar::isSurrogate(c)) {
                        if (QChar::isLowSurrogate(c) || i + 1 == length ||
                            !QChar::isLowSurrogate(units[i + 1]))
                            return i;
                        c = QChar::surrogateToUcs4(units[i], units[i + 1]);
                        ++i;
                    }
                    out = WriteUtf8(c, out);
                    ++i;
                }
            }
            Used(out);
        }
        return -1;
    }
};

class Utf16Encoder : public Encoder {
public:
    explicit Utf16Encoder(bool bigEndian) : bigEndian_(bigEndian) {}
    qsizetype Append(QStringView piece) override {
        const qsizetype bad = FindLoneHalf(piece);
        if (bad >= 0 || piece.isEmpty())
            return bad;
        char* out = Room(static_cast<std::size_t>(piece.size()) * 2);
        if (bigEndian_)
            qToBigEndian<char16_t>(piece.utf16(), piece.size(), out);
        else
            qToLittleEndian<char16_t>(piece.utf16(), piece.size(), out);
        Used(out + piece.size() * 2);
        return -1;
    }

private:
    bool bigEndian_;
};

/// Codes whose bytes are the first characters of Unicode: ASCII and Latin-1.
class NarrowEncoder : public Encoder {
public:
    explicit NarrowEncoder(char16_t last) : last_(last) {}
    qsizetype Append(QStringView piece) override {
        char* out = Room(static_cast<std::size_t>(piece.size()));
        for (qsizetype i = 0; i < piece.size(); ++i) {
            if (piece[i].unicode() > last_)
                return i;
            *out++ = static_cast<char>(piece[i].unicode());
        }
        Used(out);
        return -1;
    }

private:
    char16_t last_;
};

/// UTF-7 with the characters of a declaration written as they are, so that it can be read back as ASCII. The
/// system's own converter doesn't do that.
class Utf7Encoder : public Encoder {
public:
    qsizetype Append(QStringView piece) override {
        const qsizetype bad = FindLoneHalf(piece);
        if (bad >= 0)
            return bad;
        for (qsizetype i = 0; i < piece.size();) {
            qsizetype stop = i;
            while (stop < piece.size() && IsDirect(piece[stop]) == IsDirect(piece[i]))
                ++stop;
            const QStringView run = piece.sliced(i, stop - i);
            if (IsDirect(piece[i]))
                AppendBytes(run.toLatin1());
            else if (run == u"+")
                AppendBytes("+-");
            else
                AppendRun(run);
            i = stop;
        }
        return -1;
    }

private:
    static bool IsDirect(QChar c) {
        const bool control = c == u'\t' || c == u'\r' || c == u'\n';
        return control || (c >= u' ' && c <= u'}' && c != u'+' && c != u'\\');
    }
    void AppendRun(QStringView run) {
        QByteArray units(run.size() * 2, Qt::Uninitialized);
        qToBigEndian<char16_t>(run.utf16(), run.size(), units.data());
        AppendBytes('+' + units.toBase64(QByteArray::OmitTrailingEquals) + '-');
    }
};

class OtherEncoder : public Encoder {
public:
    explicit OtherEncoder(const QByteArray& name) : converter_(kUtf16Native, name.constData()) {}
    qsizetype Append(QStringView piece) override {
        if (!converter_.IsOpen())
            return 0;
        const auto* const start = reinterpret_cast<const char*>(piece.utf16());
        const char* in = start;
        std::size_t inLeft = static_cast<std::size_t>(piece.size()) * sizeof(char16_t);
        const int error = inLeft == 0 ? 0 : Run(in, inLeft);
        return error == 0 ? -1 : (in - start) / static_cast<qsizetype>(sizeof(char16_t));
    }
    void Finish() override {
        const char* in = nullptr;
        std::size_t inLeft = 0;
        if (converter_.IsOpen())
            Run(in, inLeft);
    }

private:
    int Run(const char*& in, std::size_t& inLeft) {
        constexpr std::size_t kSpare = 64; // more than any one character and its shift sequence take
        for (;;) {
            char* out = Room(inLeft / 2 + kSpare);
            std::size_t outLeft = RoomLeft();
            const int error = converter_.Convert(in, inLeft, out, outLeft);
            Used(out);
            if (error != E2BIG)
                return error;
        }
    }
    Iconv converter_;
};

} // namespace

char* Encoder::Room(std::size_t size) {
    const std::size_t wanted = used_ + size;
    if (static_cast<std::size_t>(bytes_.size()) < wanted)
        bytes_.resize(static_cast<qsizetype>(std::max(wanted, static_cast<std::size_t>(bytes_.capacity()))));
    return bytes_.data() + used_;
}

void Encoder::AppendBytes(QByteArrayView bytes) {
    char* const out = Room(static_cast<std::size_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), out);
    Used(out + bytes.size());
}

QByteArray Encoder::Take() {
    bytes_.truncate(static_cast<qsizetype>(used_));
    bytes_.squeeze();
    used_ = 0;
    return std::exchange(bytes_, {});
}

QByteArrayView Encoder::Drain() {
    const QByteArrayView drained(bytes_.constData(), static_cast<qsizetype>(used_));
    used_ = 0;
    return drained;
}

std::unique_ptr<Encoder> MakeEncoder(const Code& code) {
    constexpr char16_t kLastAscii = 0x7F;
    constexpr char16_t kLastLatin1 = 0xFF;
    switch (code.kind) {
    case Code::Kind::Utf7:
        return std::make_unique<Utf7Encoder>();
    case Code::Kind::Utf8:
        return std::make_unique<Utf8Encoder>();
    case Code::Kind::Utf16Le:
        return std::make_unique<Utf16Encoder>(false);
    case Code::Kind::Utf16Be:
        return std::make_unique<Utf16Encoder>(true);
    case Code::Kind::Latin1:
        return std::make_unique<NarrowEncoder>(kLastLatin1);
    case Code::Kind::Ascii:
        return std::make_unique<NarrowEncoder>(kLastAscii);
    case Code::Kind::Other:
        break;
    }
    return std::make_unique<OtherEncoder>(code.name);
}

} // namespace text
