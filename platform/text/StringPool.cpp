// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/StringPool.h"
#include <cstring>
#include <new>

namespace text {

namespace {

constexpr std::size_t kUnit = 4; // bytes that one step of a Ref stands for; also the size of a text's header
constexpr unsigned kSectionBits = 18;
constexpr std::size_t kUnitsPerSection = std::size_t{1} << kSectionBits;
constexpr std::size_t kSectionBytes = kUnitsPerSection * kUnit;
constexpr std::size_t kMaxSections = (std::size_t{1} << 32) / kUnitsPerSection;
constexpr std::size_t kMaxLength = 0x7FFFFFFF; // the header has 31 bits for it

} // namespace

StringPool::StringPool() = default;
StringPool::~StringPool() = default;
StringPool::StringPool(StringPool&&) noexcept = default;
StringPool& StringPool::operator=(StringPool&&) noexcept = default;

unsigned char* StringPool::reserve(std::size_t payloadBytes, Ref& ref) {
    const std::size_t total = kUnit + (payloadBytes + kUnit - 1) / kUnit * kUnit;
    if (sections_.empty() || used_ + total > kSectionBytes) {
        // The first unit of all stays free: Ref 0 is the empty text.
        const std::size_t lead = sections_.empty() ? kUnit : 0;
        const std::size_t count = (lead + total + kSectionBytes - 1) / kSectionBytes;
        if (sections_.size() + count > kMaxSections)
            throw std::bad_alloc();
        sections_.reserve(sections_.size() + count);
        blocks_.push_back(std::make_unique_for_overwrite<unsigned char[]>(count * kSectionBytes));
        const std::size_t first = sections_.size();
        for (std::size_t i = 0; i < count; ++i)
            sections_.push_back(blocks_.back().get() + i * kSectionBytes);
        ref = static_cast<Ref>(first * kUnitsPerSection + lead / kUnit);
        used_ = lead + total - (count - 1) * kSectionBytes;
        return sections_[first] + lead;
    }
    ref = static_cast<Ref>((sections_.size() - 1) * kUnitsPerSection + used_ / kUnit);
    unsigned char* place = sections_.back() + used_;
    used_ += total;
    return place;
}

StringPool::Ref StringPool::add(CompactView text) {
    if (text.isEmpty())
        return 0;
    if (text.length > kMaxLength)
        throw std::bad_alloc();
    const std::size_t size = text.wide ? text.length * sizeof(char16_t) : text.length;
    Ref ref = 0;
    unsigned char* place = reserve(size, ref);
    const std::uint32_t header = (text.length << 1) | (text.wide ? 1U : 0U);
    std::memcpy(place, &header, sizeof header);
    std::memcpy(place + kUnit, text.data, size);
    return ref;
}

StringPool::Ref StringPool::add(QStringView text) {
    scratch_.clear();
    scratch_.append(text);
    return add(scratch_.view());
}

StringPool::Ref StringPool::addUtf8(const char* bytes, std::size_t length) {
    if (length <= kMaxLength && IsAscii(bytes, length))
        return add(CompactView{reinterpret_cast<const unsigned char*>(bytes),
                               static_cast<std::uint32_t>(length), false});
    scratch_.clear();
    scratch_.appendUtf8(bytes, length);
    return add(scratch_.view());
}

CompactView StringPool::view(Ref ref) const {
    if (ref == 0)
        return {};
    const unsigned char* place = sections_[ref >> kSectionBits] + (ref & (kUnitsPerSection - 1)) * kUnit;
    std::uint32_t header = 0;
    std::memcpy(&header, place, sizeof header);
    return CompactView{place + kUnit, header >> 1, (header & 1U) != 0};
}

void StringPool::clear() {
    sections_.clear();
    blocks_.clear();
    used_ = 0;
    scratch_ = CompactBuilder();
}

std::size_t StringPool::bytes() const {
    return sections_.size() * kSectionBytes;
}

} // namespace text
