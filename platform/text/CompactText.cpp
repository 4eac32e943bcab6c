// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/CompactText.h"
#include <QStringDecoder>
#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>

namespace text {

namespace {

QStringView WideView(const CompactView& view) {
    return QStringView(reinterpret_cast<const char16_t*>(view.data), static_cast<qsizetype>(view.length));
}

QLatin1String NarrowView(const CompactView& view) {
    return QLatin1String(reinterpret_cast<const char*>(view.data), static_cast<qsizetype>(view.length));
}

bool FitsLatin1(QStringView piece) {
    char16_t all = 0;
    for (const QChar c : piece)
        all = static_cast<char16_t>(all | c.unicode());
    return all <= 0xFF;
}

/// Entity of a character below U+0040, or nothing.
const char* EntityOf(char16_t c) {
    switch (c) {
    case u'&':
        return "&amp;";
    case u'<':
        return "&lt;";
    case u'>':
        return "&gt;";
    case u'"':
        return "&quot;";
    case u'\'':
        return "&apos;";
    default:
        return nullptr;
    }
}

constexpr std::array<bool, 256> kEscaped = [] {
    std::array<bool, 256> table{};
    for (const char c : {'&', '<', '>', '"', '\''})
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

/// Place of the first unit at or behind `from` that has an entity; `length` when there is none.
template <typename Unit>
std::uint32_t FindEscaped(const Unit* data, std::uint32_t from, std::uint32_t length) {
    for (; from < length; ++from) {
        if (data[from] < kEscaped.size() && kEscaped[data[from]])
            break;
    }
    return from;
}

std::uint32_t FindEscaped(const CompactView& piece, std::uint32_t from) {
    return piece.wide ? FindEscaped(reinterpret_cast<const char16_t*>(piece.data), from, piece.length)
                      : FindEscaped(piece.data, from, piece.length);
}

} // namespace

char16_t* CompactView::copyTo(char16_t* out) const {
    if (length == 0)
        return out;
    if (!wide)
        return std::copy_n(data, length, out);
    std::memcpy(out, data, length * sizeof(char16_t));
    return out + length;
}

QString CompactView::toString() const {
    if (length == 0)
        return {};
    return wide ? WideView(*this).toString() : QString(NarrowView(*this));
}

bool CompactView::operator==(const CompactView& other) const {
    if (length != other.length)
        return false;
    if (length == 0)
        return true;
    if (wide == other.wide)
        return std::memcmp(data, other.data, wide ? length * sizeof(char16_t) : length) == 0;
    return wide ? WideView(*this) == NarrowView(other) : WideView(other) == NarrowView(*this);
}

bool CompactView::operator==(QStringView other) const {
    if (static_cast<qsizetype>(length) != other.size())
        return false;
    if (length == 0)
        return true;
    return wide ? WideView(*this) == other : other == NarrowView(*this);
}

void CompactBuilder::clear() {
    narrow_.clear();
    wide_.clear();
    isWide_ = false;
}

void CompactBuilder::widen() {
    wide_.assign(narrow_.begin(), narrow_.end());
    narrow_.clear();
    isWide_ = true;
}

void CompactBuilder::append(char ascii) {
    const auto unit = static_cast<unsigned char>(ascii);
    if (isWide_)
        wide_.push_back(unit);
    else
        narrow_.push_back(unit);
}

void CompactBuilder::append(const char* ascii, std::size_t length) {
    const auto* from = reinterpret_cast<const unsigned char*>(ascii);
    if (isWide_)
        wide_.insert(wide_.end(), from, from + length);
    else
        narrow_.insert(narrow_.end(), from, from + length);
}

void CompactBuilder::append(CompactView piece) {
    if (piece.isEmpty())
        return;
    if (piece.wide)
        append(WideView(piece));
    else
        append(reinterpret_cast<const char*>(piece.data), piece.length);
}

void CompactBuilder::append(QStringView piece) {
    if (!isWide_ && !FitsLatin1(piece))
        widen();
    const auto* from = piece.utf16();
    if (isWide_) {
        wide_.insert(wide_.end(), from, from + piece.size());
        return;
    }
    const std::size_t old = narrow_.size();
    narrow_.resize(old + static_cast<std::size_t>(piece.size()));
    std::transform(from, from + piece.size(), narrow_.data() + old,
                   [](char16_t c) { return static_cast<unsigned char>(c); });
}

void CompactBuilder::appendUtf8(const char* bytes, std::size_t length) {
    if (IsAscii(bytes, length)) {
        append(bytes, length);
        return;
    }
    using Decoder = QStringDecoder;
    Decoder decoder(Decoder::Utf8, Decoder::Flag::Stateless | Decoder::Flag::ConvertInitialBom);
    QVarLengthArray<QChar> units(decoder.requiredSpace(static_cast<qsizetype>(length)));
    const QChar* const end =
        decoder.appendToBuffer(units.data(), QByteArrayView(bytes, static_cast<qsizetype>(length)));
    append(QStringView(units.data(), end));
}

void CompactBuilder::appendEscaped(CompactView piece) {
    std::uint32_t done = 0;
    const std::uint32_t unit = piece.wide ? sizeof(char16_t) : 1;
    for (;;) {
        const std::uint32_t next = FindEscaped(piece, done);
        append(CompactView{piece.data + std::size_t{done} * unit, next - done, piece.wide});
        if (next == piece.length)
            return;
        const char* entity = EntityOf(piece.at(next));
        append(entity, std::strlen(entity));
        done = next + 1;
    }
}

CompactView CompactBuilder::view() const {
    const std::size_t length = isWide_ ? wide_.size() : narrow_.size();
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    const auto* data = isWide_ ? reinterpret_cast<const unsigned char*>(wide_.data()) : narrow_.data();
    return CompactView{data, static_cast<std::uint32_t>(length), isWide_};
}

} // namespace text
