// SPDX-License-Identifier: GPL-3.0-or-later
// Times a full colouring pass, step by step, over the largest text that is coloured completely.
#include "core/model/ColourStrings.h"
#include "platform/controls/Rtf.h"
#include "textview/ColourRtf.h"
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr qsizetype kLength = 409600;
constexpr int kRounds = 15;

QString Records() {
    QString text = QStringLiteral("<?xml version=\"1.0\"?>\r\n<orders>\r\n");
    for (int i = 0; text.size() < kLength; ++i)
        text += QStringLiteral(
                    "\t<order id=\"%1\" href=\"http://a/b\"><!-- no. %1 --><name>Bjørn %1</name></order>\r\n")
                    .arg(i);
    return text.left(kLength);
}

/// The best of some rounds, in milliseconds.
template <typename Routine> double Best(Routine routine) {
    qint64 best = std::numeric_limits<qint64>::max();
    for (int round = 0; round < kRounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        routine();
        best = std::min(best, timer.nsecsElapsed());
    }
    return static_cast<double>(best) / 1e6;
}

} // namespace

int main() {
    Options options;
    options.GLColor = 0xff0000;
    options.EqualColor = 0x3232ff;
    options.SlashColor = 0x32c832;
    options.CommentColor = 0xb4b4b4;
    MakeRTFColorStrings(options);
    const QString text = Records();
    QString plain, coloured, read;
    std::vector<controls::ColourRun> runs;
    const double write =
        Best([&] { plain = controls::WriteRtf(text, {}, QStringLiteral("Courier New"), 10); });
    const double colour = Best([&] { coloured = ColourRTF(plain, options, 0); });
    const double reading = Best([&] { controls::ReadRtf(coloured, read, runs); });
    controls::RichTextBox box;
    const auto pass = [&] { box.SetTextRTF(ColourRTF(box.TextRTF(), options, 0)); };
    const double first = Best([&] {
        box.SetText(text);
        pass();
    });
    const double again = Best(pass);
    std::printf("%lld characters, %zu runs: write %.1f ms, substitute %.1f ms, read %.1f ms\n",
                static_cast<long long>(text.size()), runs.size(), write, colour, reading);
    std::printf("in a control: first pass %.1f ms, another one %.1f ms\n", first, again);
    if (read != text || box.Text() != text || runs.size() < 10000)
        std::puts("WRONG TEXT");
}
