// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include "platform/text/TextFile.h"
#include <QString>
#include <QStringView>

namespace exchange {

/// The lines of a file's text, one after the other. One kind of line end parts them, the first of CR LF, LF
/// and CR that the file has at all; the others are characters of their line. Where `everyEnd` is set, each of
/// them ends a line.
class LineWalk {
public:
    LineWalk(const text::LongText& text, const text::LineEnds& ends, bool everyEnd);

    bool Next(); ///< goes to the next line, at first to the first; false behind the last
    QStringView Line() const {
        return line_;
    } ///< without its end; other line ends as LF and CR. Good until Next
    qsizetype Number() const { return number_; }     ///< of the line, from 1
    qsizetype Position() const { return position_; } ///< units of the text that have been walked

private:
    bool TakeEnd(QStringView part);

    text::LongText::Reader reader_;
    const text::LineEnds& ends_;
    bool everyEnd_;
    text::LineEnd separator_;
    std::size_t end_ = 0; ///< number of the next line end
    QStringView rest_;    ///< of the reader's piece
    QString carry_;       ///< the beginning of the line, where that isn't in one piece
    QStringView line_;
    qsizetype number_ = 0, position_ = 0;
    bool atEnd_ = false;
};

/// Whether the file has line ends that don't part its lines.
bool MixesLineEnds(const text::LineEnds& ends);

} // namespace exchange
