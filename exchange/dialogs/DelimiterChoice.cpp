// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/DelimiterChoice.h"

namespace exchange {

DelimiterChoice::DelimiterChoice(int chosen) {
    for (std::size_t i = 0; i < optChoose.size(); ++i) {
        optChoose[i].SetValue(static_cast<int>(i) == chosen);
        optChoose[i].Click.connect([this, i] {
            Choose(i);
            if (i == kOther)
                txtOther.SetFocus();
            changed();
        });
    }
    txtOther.Change.connect([this] { // who types one wants it
        Choose(kOther);
        changed();
    });
}

void DelimiterChoice::Choose(std::size_t option) {
    for (std::size_t i = 0; i < optChoose.size(); ++i)
        optChoose[i].SetValue(i == option);
}

QString DelimiterChoice::GetDelimiter() const {
    constexpr char16_t kGiven[] = {u'\t', u';', u',', u' '};
    for (std::size_t i = 0; i < std::size(kGiven); ++i) {
        if (optChoose[i].Value())
            return QChar(kGiven[i]);
    }
    return txtOther.Text();
}

} // namespace exchange
