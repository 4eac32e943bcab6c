// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
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

/// Gathers the text of a file piece by piece, turns every line end into CR LF and notes how the file wrote
/// them.
class LineEndReader {
public:
    /// `expectedUnits`: about how long the text will be.
    explicit LineEndReader(qsizetype expectedUnits);
    void Append(const char16_t* units, std::size_t length);
    /// The whole text; `ends` is filled. Call once, at the end.
    QString Finish(LineEnds& ends);

private:
    void Put(const char16_t* units, std::size_t length);
    void Note(LineEnd kind);
    LineEnd Common() const;

    QString text_; ///< longer than what it holds
    std::size_t used_ = 0;
    bool pendingCr_ = false; ///< the last piece ended in CR: it may be the half of a CR LF
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
