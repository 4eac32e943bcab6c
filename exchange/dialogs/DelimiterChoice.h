// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Controls.h"
#include <array>

namespace exchange {

/// The choice of a delimiter: tab, ";", ",", one blank, or what is typed.
class DelimiterChoice {
public:
    static constexpr int kTab = 0, kComma = 2, kOther = 4;
    std::array<controls::OptionButton, 5> optChoose;
    controls::TextBox txtOther; ///< takes the focus with its option; typing in it chooses that

    explicit DelimiterChoice(int chosen);
    DelimiterChoice(const DelimiterChoice&) = delete;
    DelimiterChoice& operator=(const DelimiterChoice&) = delete;
    QString GetDelimiter() const;
    controls::Event<> changed; ///< another delimiter

private:
    void Choose(std::size_t option);
};

} // namespace exchange
