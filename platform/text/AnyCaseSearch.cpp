// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/AnyCaseSearch.h"
#include <array>
#include <bit>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace text {

namespace {

/// The units that are one character but for case; some of them twice.
using Variants = std::array<char16_t, 3>;

Variants VariantsOf(char16_t ascii) {
    const char16_t lower = ascii >= u'A' && ascii <= u'Z' ? static_cast<char16_t>(ascii + 32) : ascii;
    const char16_t upper = ascii >= u'a' && ascii <= u'z' ? static_cast<char16_t>(ascii - 32) : ascii;
    constexpr char16_t kKelvin = u'\u212A', kLongS = u'\u017F';
    return {lower, upper, lower == u'k' ? kKelvin : lower == u's' ? kLongS : lower};
}

bool IsOneOf(const Variants& variants, char16_t unit) {
    return unit == variants[0] || unit == variants[1] || unit == variants[2];
}

#ifdef __SSE2__
/// Finds two neighbours, eight places at once.
class PairFinder {
public:
    PairFinder(const Variants& first, const Variants& second)
        : first_(Spread(first)), second_(Spread(second)) {}
    /// Two bits for each of the eight places from `units` on (nine are read), set where the pair stands.
    unsigned look(const char16_t* units) const {
        const __m128i hits = _mm_and_si128(Hits(first_, units), Hits(second_, units + 1));
        return static_cast<unsigned>(_mm_movemask_epi8(hits));
    }

private:
    struct Wanted {
        __m128i one, two, three;
    };
    static Wanted Spread(const Variants& variants) {
        return {_mm_set1_epi16(static_cast<short>(variants[0])),
                _mm_set1_epi16(static_cast<short>(variants[1])),
                _mm_set1_epi16(static_cast<short>(variants[2]))};
    }
    static __m128i Hits(const Wanted& wanted, const char16_t* units) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
        return _mm_or_si128(
            _mm_or_si128(_mm_cmpeq_epi16(block, wanted.one), _mm_cmpeq_epi16(block, wanted.two)),
            _mm_cmpeq_epi16(block, wanted.three));
    }
    Wanted first_, second_;
};
#endif

} // namespace

qsizetype IndexOfAnyCase(QStringView text, QStringView what, qsizetype from) {
    constexpr char16_t kAsciiEnd = 0x80;
    if (what.size() < 2 || what[0] >= kAsciiEnd || what[1] >= kAsciiEnd)
        return text.indexOf(what, from, Qt::CaseInsensitive);
    const Variants first = VariantsOf(what[0].unicode()), second = VariantsOf(what[1].unicode());
    const qsizetype last = text.size() - what.size();
    const char16_t* const units = text.utf16();
    const auto stands = [&](qsizetype at) {
        return text.sliced(at, what.size()).compare(what, Qt::CaseInsensitive) == 0;
    };
    qsizetype at = from;
#ifdef __SSE2__
    const PairFinder pairs(first, second);
    for (; at + 8 <= last; at += 8) {
        for (unsigned mask = pairs.look(units + at); mask != 0;) {
            const int bit = std::countr_zero(mask);
            if (stands(at + bit / 2))
                return at + bit / 2;
            mask &= ~(3U << bit);
        }
    }
#endif
    for (; at <= last; ++at) {
        if (IsOneOf(first, units[at]) && IsOneOf(second, units[at + 1]) && stands(at))
            return at;
    }
    return -1;
}

} // namespace text
