// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongTextBuilder.h"
#include "platform/text/TextFile.h"
#include <QString>
#include <QStringView>
#include <array>
#include <cstddef>
#include <functional>
#include <vector>

namespace text {

/// The first CR or LF in [p, end); `end` when there is none.
const char16_t* FindLineEnd(const char16_t* p, const char16_t* end);

/// Gathers a text part by part and turns every line end (CR LF, CR alone, LF alone) into CR LF.
class CrLfBuilder {
public:
    explicit CrLfBuilder(LongText::Builder text = {}) : text_(std::move(text)) {}
    virtual ~CrLfBuilder() = default;
    CrLfBuilder(const CrLfBuilder&) = delete;
    CrLfBuilder& operator=(const CrLfBuilder&) = delete;
    void append(QStringView part);
    qsizetype size() const { return size_; } ///< units of the text so far
    /// The whole text. Call once, at the end.
    LongText finish();

protected:
    virtual void note(LineEnd) {} ///< told of each line end that came

private:
    void put(QStringView part) {
        text_.append(part);
        size_ += part.size();
    }

    LongText::Builder text_;
    qsizetype size_ = 0;
    bool pendingCr_ = false; ///< the last part ended in CR: it may be the half of a CR LF
};

/// Gathers the text of a file and notes how the file wrote its line ends.
class LineEndReader final : public CrLfBuilder {
public:
    /// How they are written, the text itself being `text`. Call once, behind finish().
    LineEnds ends(const LongText& text);

private:
    void note(LineEnd kind) override;
    LineEnd common() const;

    std::array<std::size_t, 3> counts_{};
    std::size_t total_ = 0;
    LineEnd first_ = LineEnd::CrLf;
    std::vector<LineEnd> each_; ///< from the first mixture on, all line ends
};

/// Hands out a text (CR LF line ends) piece by piece with the line ends of the file: `put` gets a piece and
/// its place in the text and stops all by returning false. Lines that stand in the loaded text as well keep
/// their own line end where the file mixes them; those between the first and the last changed place take the
/// common one.
void WriteLineEnds(QStringView text, const LineEnds& ends,
                   const std::function<bool(QStringView piece, qsizetype position)>& put);

} // namespace text
