// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"

namespace text {

/// Makes a long text out of parts as they come; no more than a piece of it is held twice.
class LongText::Builder {
public:
    Builder();
    /// The text will share every piece with `old` in which both are equal: beginning and end at least.
    explicit Builder(LongText old);
    ~Builder();
    Builder(Builder&&) noexcept;
    void append(QStringView part);
    /// The whole text. Call once, at the end.
    LongText finish();

private:
    void cut(QStringView piece);
    void cutWholePieces();

    LongText old_;
    std::shared_ptr<Pieces> made_;
    QString rest_;        ///< the end that isn't cut yet; longer than what it holds
    qsizetype used_ = 0;  ///< of it
    bool inFront_ = true; ///< so far all is as in the old text
};

} // namespace text
