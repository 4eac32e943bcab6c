// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LineEnds.h"
#include <algorithm>
#include <bit>
#include <optional>
#include <utility>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace text {

namespace {

#ifdef Q_OS_WIN
constexpr LineEnd kOfTheSystem = LineEnd::CrLf;
#else
constexpr LineEnd kOfTheSystem = LineEnd::Lf;
#endif

constexpr char16_t kCr = u'\r';
constexpr char16_t kLf = u'\n';

QStringView Characters(LineEnd end) {
    switch (end) {
    case LineEnd::Lf:
        return u"\n";
    case LineEnd::Cr:
        return u"\r";
    case LineEnd::CrLf:
        break;
    }
    return u"\r\n";
}

/// Place of the next CR LF at or behind `from`, or -1.
qsizetype NextLineEnd(QStringView text, qsizetype from) {
    for (qsizetype at = text.indexOf(kLf, from); at >= 0; at = text.indexOf(kLf, at + 1)) {
        if (at > from && text[at - 1] == kCr)
            return at - 1;
    }
    return -1;
}

std::size_t CountLineEnds(QStringView text) {
    std::size_t count = 0;
    for (qsizetype at = NextLineEnd(text, 0); at >= 0; at = NextLineEnd(text, at + 2))
        ++count;
    return count;
}

/// The line ends of a text that is compared with the one its mixed file held.
class MixedLineEnds {
public:
    MixedLineEnds(QStringView text, const LineEnds& ends) : ends_(ends) {
        const QString loaded = ends.loadedText.toString();
        const qsizetype shorter = std::min(text.size(), loaded.size());
        const qsizetype same =
            std::mismatch(text.begin(), text.begin() + shorter, loaded.begin()).first - text.begin();
        qsizetype tail = 0;
        while (tail < shorter - same && text[text.size() - 1 - tail] == loaded[loaded.size() - 1 - tail])
            ++tail;
        front_ = CountLineEnds(text.first(same));
        total_ = CountLineEnds(text);
        back_ = CountLineEnds(text.last(tail));
    }
    /// Of the line end with this 0-based number in the text.
    LineEnd At(std::size_t number) const {
        if (number < front_ && number < ends_.each.size())
            return ends_.each[number];
        const std::size_t fromBack = total_ - number;
        if (fromBack <= back_ && fromBack <= ends_.each.size())
            return ends_.each[ends_.each.size() - fromBack];
        return ends_.common;
    }

private:
    const LineEnds& ends_;
    std::size_t front_ = 0;
    std::size_t back_ = 0;
    std::size_t total_ = 0;
};

} // namespace

const char16_t* FindLineEnd(const char16_t* p, const char16_t* end) {
#ifdef __SSE2__
    const __m128i cr = _mm_set1_epi16(kCr);
    const __m128i lf = _mm_set1_epi16(kLf);
    for (; end - p >= 8; p += 8) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i hit = _mm_or_si128(_mm_cmpeq_epi16(units, cr), _mm_cmpeq_epi16(units, lf));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(hit));
        if (mask != 0)
            return p + std::countr_zero(mask) / 2;
    }
#endif
    while (p != end && *p != kCr && *p != kLf)
        ++p;
    return p;
}

void CrLfBuilder::append(QStringView part) {
    if (part.isEmpty())
        return;
    const char16_t* p = part.utf16();
    const char16_t* const end = p + part.size();
    if (std::exchange(pendingCr_, false)) {
        const bool pair = *p == kLf;
        note(pair ? LineEnd::CrLf : LineEnd::Cr);
        p += pair;
    }
    const char16_t* from = p;
    while ((p = FindLineEnd(p, end)) != end) {
        if (*p == kCr && p + 1 != end && p[1] == kLf) {
            note(LineEnd::CrLf); // stands as it should: copied with its surroundings
            p += 2;
            continue;
        }
        put(QStringView(from, p));
        put(u"\r\n");
        if (*p == kCr && p + 1 == end)
            pendingCr_ = true;
        else
            note(*p == kCr ? LineEnd::Cr : LineEnd::Lf);
        from = ++p;
    }
    put(QStringView(from, end));
}

LongText CrLfBuilder::finish() {
    if (std::exchange(pendingCr_, false))
        note(LineEnd::Cr);
    return text_.finish();
}

void LineEndReader::note(LineEnd kind) {
    if (total_ == 0)
        first_ = kind;
    if (each_.empty() && kind != first_)
        each_.assign(total_, first_);
    if (!each_.empty())
        each_.push_back(kind);
    ++counts_[static_cast<std::size_t>(kind)];
    ++total_;
}

LineEnd LineEndReader::common() const {
    if (total_ == 0)
        return kOfTheSystem;
    LineEnd best = first_;
    for (const LineEnd kind : {LineEnd::CrLf, LineEnd::Lf, LineEnd::Cr}) {
        if (counts_[static_cast<std::size_t>(kind)] > counts_[static_cast<std::size_t>(best)])
            best = kind;
    }
    return best;
}

LineEnds LineEndReader::ends(const LongText& text) {
    LineEnds result;
    result.common = common();
    result.each = std::move(each_);
    if (!result.each.empty())
        result.loadedText = text;
    return result;
}

void WriteLineEnds(QStringView text, const LineEnds& ends,
                   const std::function<bool(QStringView piece, qsizetype position)>& put) {
    const bool mixed = !ends.each.empty();
    if (!mixed && ends.common == LineEnd::CrLf) {
        put(text, 0);
        return;
    }
    std::optional<MixedLineEnds> own;
    if (mixed)
        own.emplace(text, ends);
    qsizetype from = 0;
    std::size_t number = 0;
    for (qsizetype at = NextLineEnd(text, 0); at >= 0; at = NextLineEnd(text, from)) {
        const LineEnd end = mixed ? own->At(number) : ends.common;
        ++number;
        if (!put(text.sliced(from, at - from), from) || !put(Characters(end), at))
            return;
        from = at + 2;
    }
    put(text.sliced(from), from);
}

} // namespace text
