// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/FindText.h"

namespace textview {

namespace {

bool IsPartOfWord(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c.isDigit();
}

} // namespace

bool IsWholeWord(const controls::SearchHit& hit) {
    // Outside the text there is a null character, which is part of no word.
    return !IsPartOfWord(hit.before) && !IsPartOfWord(hit.behind);
}

qsizetype SearchDown(controls::RichTextBox& target, const QString& text, qsizetype start,
                     const FindOptions& options) {
    if (text.isEmpty())
        return -1;
    const int flags = controls::rtfNoHighlight | (options.wholeWord ? controls::rtfWholeWord : 0) |
                      (options.matchCase ? controls::rtfMatchCase : 0);
    return target.Find(text, start, -1, flags);
}

qsizetype SearchUp(const controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options) {
    qsizetype hit = -1;
    const Qt::CaseSensitivity sensitivity = options.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    controls::VisitHitsUp(target.Long(), text, start, sensitivity, [&](const controls::SearchHit& found) {
        hit = !options.wholeWord || IsWholeWord(found) ? found.at : -1;
        return hit < 0 ? found.at + text.size() - 1 : -1;
    });
    return hit;
}

qsizetype TakeHit(controls::RichTextBox& target, qsizetype hit, qsizetype length,
                  const FindOptions& options) {
    if (hit >= 0) {
        target.SetSelStart(hit);
        target.SetSelLength(options.noHighlight ? 0 : length);
    }
    return hit;
}

qsizetype FindText(controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options) {
    return TakeHit(target, SearchDown(target, text, start, options), text.size(), options);
}

qsizetype FindTextRev(controls::RichTextBox& target, const QString& text, qsizetype start,
                      const FindOptions& options) {
    return TakeHit(target, SearchUp(target, text, start, options), text.size(), options);
}

} // namespace textview
