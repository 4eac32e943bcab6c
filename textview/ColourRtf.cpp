// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/ColourRtf.h"
#include "platform/text/TextTools.h"
#include <QStringList>
#include <algorithm>

namespace textview {

namespace {

QString Anchor() {
    return QStringLiteral("\\viewkind4\\uc1\\pard\\");
}

ColourStep Wrap(QChar character, int colour) {
    return {character, QStringLiteral("\\cf%1 %2\\cf0 ").arg(colour).arg(character)};
}

// Two slashes in a row, as in an address, are no markup.
ColourStep BareSlashes(const ColourStep& slash) {
    return {slash.replace + slash.replace, QStringLiteral("//")};
}

// A comment's delimiters hold "<" and ">" that are wrapped already. The opener leaves the comment's colour
// on.
ColourStep Opener(const ColourStep& less, int colour) {
    return {less.replace + QStringLiteral("!--"), QStringLiteral("\\cf%1 <!-- \\cf%1").arg(colour)};
}
// The blank that ends the wrapper stays behind the new text and ends its last word.
ColourStep Closer(const ColourStep& greater, int colour) {
    return {QStringLiteral("--") + greater.replace.chopped(1), QStringLiteral("\\cf%1 -->\\cf0").arg(colour)};
}

std::vector<ColourStep> AllMarkup() {
    const ColourStep quote = Wrap(u'"', 3), less = Wrap(u'<', 1), greater = Wrap(u'>', 1),
                     equal = Wrap(u'=', 2), slash = Wrap(u'/', 3);
    return {quote, less, greater, equal, slash, BareSlashes(slash), Opener(less, 4), Closer(greater, 4)};
}

std::vector<ColourStep> Tags() {
    const ColourStep less = Wrap(u'<', 1), greater = Wrap(u'>', 1), slash = Wrap(u'/', 2);
    return {less, greater, slash, BareSlashes(slash), Opener(less, 3), Closer(greater, 3)};
}

std::vector<ColourStep> SlashesAndComments() {
    const ColourStep slash = Wrap(u'/', 1);
    return {
        slash,
        BareSlashes(slash),
        {QStringLiteral("<!--"), QStringLiteral("\\cf2 <!--")},
        // Finds nothing as long as no step of this level colours "!"; a level that comes to do so needs it.
        {QStringLiteral("<\\cf2 !\\cf0 --"), QStringLiteral("\\cf2 <!--")},
        {QStringLiteral("-->"), QStringLiteral("\\cf2 -->\\cf0")}};
}

} // namespace

const std::vector<ColourStep>& ColourSteps(int level) {
    static const std::vector<ColourStep> kSteps[] = {AllMarkup(), Tags(), SlashesAndComments(), {}};
    return kSteps[std::clamp(level, 0, kNoColours)];
}

void RunColourStep(QString& rtf, const ColourStep& step) {
    rtf = text::WithReplacements(rtf, text::PlacesOf(step.search, rtf), step.search.size(), step.replace);
}

QString ColourHead(const Options& options, int level) {
    QStringList colours = {options.GLRTF, options.EqualRTF, options.SlashRTF, options.CommentRTF};
    if (level == 1)
        colours = {options.GLRTF, options.SlashRTF, options.CommentRTF};
    else if (level == 2)
        colours = {options.SlashRTF, options.CommentRTF};
    return QStringLiteral("{\\colortbl ;") + colours.join(u';') + QStringLiteral(";}\r\n") + Anchor() +
           QStringLiteral("cf1\\");
}

void RemoveRTFColorTable(QString& rtf) {
    const QString end = QStringLiteral("}\r\n");
    const qsizetype start = rtf.indexOf(QStringLiteral("{\\colortbl ;"));
    const qsizetype stop = start < 0 ? -1 : rtf.indexOf(end, start);
    if (stop >= 0)
        rtf.remove(start, stop + end.size() - start);
}

QString ColourRTF(QString rtf, const Options& options, int level) {
    if (level >= kNoColours)
        return rtf;
    RemoveRTFColorTable(rtf);
    RunColourStep(rtf, {Anchor(), ColourHead(options, level)});
    for (const ColourStep& step : ColourSteps(level))
        RunColourStep(rtf, step);
    return rtf;
}

} // namespace textview
