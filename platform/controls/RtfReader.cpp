// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Rtf.h"
#include "platform/controls/RtfWords.h"
#include <QStringView>
#include <algorithm>
#include <utility>

namespace controls {

namespace {

int HexDigit(char16_t c) {
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    const int letter = (c | 0x20) - u'a';
    return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// Groups below this depth share the formatting of the one at it, so that a string of braces needs no memory.
constexpr std::size_t kDeepestGroup = 4096;
// A number is read to its end but counts no further than this.
constexpr int kLargestNumber = 0x7fffff;

struct Group {
    int colour = 0;       ///< number in the colour table
    int fallback = 1;     ///< characters that follow each \u for readers without Unicode
    bool skipped = false; ///< not body text
    bool colourTable = false;
};

class Reader {
public:
    explicit Reader(QStringView rtf) : rtf_(rtf) { text_.reserve(rtf.size() / 2); }

    void Read() {
        while (at_ < rtf_.size() && !ended_) {
            switch (Here()) {
            case u'{':
                Open();
                break;
            case u'}':
                Close();
                break;
            case u'\\':
                Control();
                break;
            case u'\r':
            case u'\n':
                ++at_;
                break;
            default:
                Stretch();
            }
        }
    }

    QString text_;
    std::vector<ColourRun> runs_;

private:
    char16_t Here(qsizetype ahead = 0) const {
        return at_ + ahead < rtf_.size() ? rtf_[at_ + ahead].unicode() : u'\0';
    }

    void Open() {
        ++at_;
        if (outer_.size() < kDeepestGroup)
            outer_.push_back(group_);
        else
            ++deeper_;
    }

    void Close() {
        ++at_;
        if (deeper_ > 0) {
            --deeper_;
            return;
        }
        if (!outer_.empty()) {
            group_ = outer_.back();
            outer_.pop_back();
        }
        ended_ = outer_.empty();
    }

    // Characters up to the next one that means something.
    void Stretch() {
        const qsizetype start = at_;
        const auto means = [](QChar c) {
            return c == u'\\' || c == u'{' || c == u'}' || c == u'\r' || c == u'\n';
        };
        const auto* const end = std::find_if(rtf_.data() + at_, rtf_.data() + rtf_.size(), means);
        at_ = end - rtf_.data();
        Put(rtf_.mid(start, at_ - start));
    }

    void Put(QStringView text) {
        if (group_.skipped)
            return;
        if (group_.colourTable) {
            for (qsizetype i = text.count(u';'); i > 0; --i) {
                colours_.push_back(entry_);
                entry_ = 0;
            }
            return;
        }
        const auto number = static_cast<std::size_t>(group_.colour);
        const std::uint32_t colour = number < colours_.size() ? colours_[number] : 0;
        if (colour != lastColour_) {
            runs_.push_back({text_.size(), colour});
            lastColour_ = colour;
        }
        text_ += text;
    }
    void PutUnit(int unit) {
        const auto c = static_cast<char16_t>(unit & 0xffff);
        Put(QStringView(&c, 1));
    }

    // A control word or symbol, from its backslash on.
    void Control() {
        ++at_;
        if (at_ >= rtf_.size())
            return;
        if (IsLetter(Here()))
            RunWord();
        else
            RunSymbol();
    }

    void RunSymbol() {
        const char16_t symbol = Here();
        ++at_;
        switch (symbol) {
        case u'\\':
        case u'{':
        case u'}':
            PutUnit(symbol);
            break;
        case u'\'':
            RunCode();
            break;
        case u'*':
            group_.skipped = true; // only readers that know the destination look into it
            break;
        case u'~':
            PutUnit(QChar::Nbsp);
            break;
        case u'_':
            PutUnit(0x2011);
            break;
        case u'-':
            PutUnit(QChar::SoftHyphen);
            break;
        default:
            break;
        }
    }

    // The two digits of \'hh; without them it is nothing.
    void RunCode() {
        const int high = HexDigit(Here()), low = HexDigit(Here(1));
        if (high < 0 || low < 0)
            return;
        at_ += 2;
        PutUnit(FromCp1252(high * 16 + low));
    }

    QStringView ReadName() {
        const qsizetype start = at_;
        while (IsLetter(Here()))
            ++at_;
        return rtf_.mid(start, at_ - start);
    }

    /// The number behind a word's name and the blank that ends both; `missing` where there is none.
    int ReadNumber(int missing) {
        const bool negative = Here() == u'-' && IsDigit(Here(1));
        at_ += negative ? 1 : 0;
        int number = missing;
        if (IsDigit(Here())) {
            number = 0;
            for (; IsDigit(Here()); ++at_)
                number = std::min(number * 10 + (Here() - u'0'), kLargestNumber);
        }
        if (Here() == u' ')
            ++at_;
        return negative ? -number : number;
    }

    void RunWord() {
        const RtfWord* const word = FindRtfWord(ReadName());
        const RtfAct act = word ? word->act : RtfAct::Nothing;
        const int number = ReadNumber(act == RtfAct::Fallback ? 1 : 0);
        switch (act) {
        case RtfAct::Nothing:
            break;
        case RtfAct::Colour:
            group_.colour = std::max(number, 0);
            break;
        case RtfAct::Unicode:
            PutUnit(number);
            SkipFallback();
            break;
        case RtfAct::Fallback:
            group_.fallback = std::max(number, 0);
            break;
        case RtfAct::Insert:
            Put(word->text);
            break;
        case RtfAct::Plain:
            group_.colour = 0;
            break;
        case RtfAct::ColourTable:
            group_.colourTable = true;
            break;
        case RtfAct::Skip:
            group_.skipped = true;
            break;
        case RtfAct::Red:
            SetPart(0, number);
            break;
        case RtfAct::Green:
            SetPart(8, number);
            break;
        case RtfAct::Blue:
            SetPart(16, number);
            break;
        }
    }

    void SetPart(int shift, int value) {
        entry_ &= ~(0xffu << shift);
        entry_ |= static_cast<std::uint32_t>(std::clamp(value, 0, 255)) << shift;
    }

    // A control word counts as one character, and the end of the group ends the fallback.
    void SkipFallback() {
        for (int left = group_.fallback; left > 0 && at_ < rtf_.size(); --left) {
            while (Here() == u'\r' || Here() == u'\n')
                ++at_;
            if (Here() == u'{' || Here() == u'}')
                return;
            if (Here() == u'\\')
                SkipControl();
            else
                ++at_;
        }
    }

    void SkipControl() {
        ++at_;
        if (IsLetter(Here())) {
            ReadName();
            ReadNumber(0);
        } else {
            at_ += Here() == u'\'' ? 3 : 1;
        }
        at_ = std::min(at_, rtf_.size());
    }

    QStringView rtf_;
    qsizetype at_ = 0;
    bool ended_ = false;
    Group group_;
    std::vector<Group> outer_;
    qsizetype deeper_ = 0; ///< open groups beyond the deepest that is kept
    std::vector<std::uint32_t> colours_;
    std::uint32_t entry_ = 0; ///< the colour table's entry in hand
    std::uint32_t lastColour_ = 0;
};

} // namespace

bool ReadRtf(const QString& rtf, QString& text, std::vector<ColourRun>& runs) {
    if (!rtf.startsWith(u"{\\rtf"))
        return false;
    Reader reader(rtf);
    reader.Read();
    text = std::move(reader.text_);
    runs = std::move(reader.runs_);
    return true;
}

} // namespace controls
