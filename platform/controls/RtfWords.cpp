// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/RtfWords.h"
#include <algorithm>
#include <array>
#include <iterator>

namespace controls {

namespace {

// The frequent ones first.
constexpr RtfWord kWords[] = {
    {u"cf", RtfAct::Colour},
    {u"par", RtfAct::Insert, u"\r\n"},
    {u"u", RtfAct::Unicode},
    {u"tab", RtfAct::Insert, u"\t"},
    {u"uc", RtfAct::Fallback},
    {u"plain", RtfAct::Plain},
    {u"red", RtfAct::Red},
    {u"green", RtfAct::Green},
    {u"blue", RtfAct::Blue},
    {u"colortbl", RtfAct::ColourTable},
    {u"line", RtfAct::Insert, u"\r\n"},
    {u"row", RtfAct::Insert, u"\r\n"},
    {u"cell", RtfAct::Insert, u"\t"},
    {u"bullet", RtfAct::Insert, u"\u2022"},
    {u"endash", RtfAct::Insert, u"\u2013"},
    {u"emdash", RtfAct::Insert, u"\u2014"},
    {u"lquote", RtfAct::Insert, u"\u2018"},
    {u"rquote", RtfAct::Insert, u"\u2019"},
    {u"ldblquote", RtfAct::Insert, u"\u201c"},
    {u"rdblquote", RtfAct::Insert, u"\u201d"},
    {u"fonttbl", RtfAct::Skip},
    {u"stylesheet", RtfAct::Skip},
    {u"info", RtfAct::Skip},
    {u"pict", RtfAct::Skip},
    {u"object", RtfAct::Skip},
    {u"header", RtfAct::Skip},
    {u"footer", RtfAct::Skip},
    {u"footnote", RtfAct::Skip},
};

// Codes 0x80 to 0x9f; all others are the characters of the same numbers.
constexpr std::array<char16_t, 32> kCp1252 = {0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                              0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008d, 0x017d, 0x008f,
                                              0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                              0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

} // namespace

const RtfWord* FindRtfWord(QStringView name) {
    const auto* const found = std::find_if(std::begin(kWords), std::end(kWords),
                                           [&](const RtfWord& word) { return word.name == name; });
    return found == std::end(kWords) ? nullptr : found;
}

char16_t FromCp1252(int code) {
    return code >= 0x80 && code < 0xa0 ? kCp1252[static_cast<std::size_t>(code - 0x80)]
                                       : static_cast<char16_t>(code);
}

} // namespace controls
