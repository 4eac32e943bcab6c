// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Encoder.h"
#include "platform/text/Iconv.h"
#include "platform/text/TextTools.h"
#include <QStringEncoder>
#include <QtEndian>
#include <algorithm>

namespace text {

namespace {

constexpr qsizetype kStep = 16384; // units that are encoded at once

/// The encodings of the library. A character that one of them can't hold is looked for only once it is known
/// to be there, as far as the library tells: in UTF-16 it doesn't.
class LibraryEncoder : public Encoder {
public:
    explicit LibraryEncoder(QStringConverter::Encoding encoding, char16_t last = 0xFFFF)
        : encoder_(encoding), last_(last), tells_(encoding == QStringConverter::Utf8) {}

    qsizetype Append(QStringView piece) override {
        if (const qsizetype bad = tells_ ? -1 : FirstBad(piece); bad >= 0)
            return bad;
        for (qsizetype at = 0; at < piece.size(); at += kStep) {
            const QStringView step = piece.sliced(at, std::min(piece.size() - at, kStep));
            char* const out = Room(static_cast<std::size_t>(encoder_.requiredSpace(step.size())));
            Used(encoder_.appendToBuffer(out, step));
        }
        // A surrogate at the end is kept back, as it may be the half of a pair.
        const bool atEnd = tells_ && !piece.isEmpty() && piece.back().isSurrogate();
        return atEnd || encoder_.hasError() ? FirstBad(piece) : -1;
    }

private:
    qsizetype FirstBad(QStringView piece) const {
        if (last_ == 0xFFFF)
            return FindLoneHalf(piece);
        const auto bad =
            std::find_if(piece.begin(), piece.end(), [this](QChar c) { return c.unicode() > last_; });
        return bad == piece.end() ? -1 : bad - piece.begin();
    }
    QStringEncoder encoder_;
    char16_t last_; ///< that the encoding holds
    bool tells_;    ///< the library tells of such a character
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

class SystemEncoder : public Encoder {
public:
    explicit SystemEncoder(const QByteArray& name) : converter_(kUtf16Native, name.constData()) {}
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

std::unique_ptr<Encoder> MakeEncoder(const Encoding& encoding) {
    constexpr char16_t kLastAscii = 0x7F;
    constexpr char16_t kLastLatin1 = 0xFF;
    switch (encoding.kind) {
    case Encoding::Kind::Utf7:
        return std::make_unique<Utf7Encoder>();
    case Encoding::Kind::Utf8:
        return std::make_unique<LibraryEncoder>(QStringConverter::Utf8);
    case Encoding::Kind::Utf16Le:
        return std::make_unique<LibraryEncoder>(QStringConverter::Utf16LE);
    case Encoding::Kind::Utf16Be:
        return std::make_unique<LibraryEncoder>(QStringConverter::Utf16BE);
    case Encoding::Kind::Latin1:
        return std::make_unique<LibraryEncoder>(QStringConverter::Latin1, kLastLatin1);
    case Encoding::Kind::Ascii:
        return std::make_unique<LibraryEncoder>(QStringConverter::Latin1, kLastAscii);
    case Encoding::Kind::Other:
        break;
    }
    return std::make_unique<SystemEncoder>(encoding.name);
}

} // namespace text
